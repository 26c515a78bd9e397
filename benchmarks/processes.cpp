#include "comparison.h"
#include "hostilefiles.h"
#include "loopback.h"
#include "timing.h"
#include "upgradeimage.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

#include <spawn.h>
#include <sys/wait.h>

namespace {

constexpr double kibInMib = 1024;

QString programPath(const char* name)
{
    return QCoreApplication::applicationDirPath() + QLatin1Char('/') + QLatin1String(name);
}

/** The number of KiB that a program prints. */
double printedSize(const char* name, const QStringList& arguments)
{
    QProcess process;
    process.start(programPath(name), arguments);
    bool isNumber = false;
    process.waitForFinished(-1);
    const int size = process.readAllStandardOutput().trimmed().toInt(&isNumber);
    if (!isNumber || process.exitCode() != 0)
        qFatal("%s: %s", name, process.readAllStandardError().constData());
    return size;
}

void runToEnd(const QByteArray& path)
{
    char* arguments[] = {const_cast<char*>(path.constData()), nullptr};
    pid_t process = 0;
    int status = 0;
    if (posix_spawn(&process, path.constData(), nullptr, nullptr, arguments, environ) != 0
        || waitpid(process, &status, 0) != process || status != 0)
        qFatal("%s does not run", path.constData());
}

/** Without the image itself, which the caller holds. */
class UpgradePeak : public Comparison {
public:
    double ours() override
    {
        const LoopbackUnit unit;
        const double peak = printedSize("upgradepeak", {QString::number(unit.port())}) / kibInMib;
        return peak - upgradeImageSize / kibInMib / kibInMib;
    }

    double reference() override { return printedSize("upgradepeak", {}) / kibInMib; }
};

/** The worst of all hostile files of 1 MB, and a file with nothing in it. */
class HostileFiles : public Comparison {
public:
    HostileFiles(const QStringList& what, double unit)
        : m_what(what)
        , m_unit(unit)
    {
        m_harmless = write("harmless", "<a/>");
        for (const HostileFile& file : hostileFiles(1024 * 1024))
            m_hostile.append(write(file.name, file.bytes));
    }

    double ours() override
    {
        double worst = 0;
        for (const QString& path : m_hostile)
            worst = qMax(worst, cost(path));
        return worst;
    }

    double reference() override { return cost(m_harmless); }

private:
    QString write(const QByteArray& name, const QByteArray& bytes)
    {
        QFile file(m_folder.filePath(QString::fromLatin1(name)));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("%s can't be written", qPrintable(file.fileName()));
        return file.fileName();
    }

    double cost(const QString& path)
    {
        return printedSize("hostilefile", QStringList(path) + m_what) * m_unit;
    }

    const QTemporaryDir m_folder;
    const QStringList m_what;
    const double m_unit;
    QString m_harmless;
    QStringList m_hostile;
};

class LoadTime : public Comparison {
public:
    double ours() override { return time(m_library); }
    double reference() override { return time(m_framework); }

private:
    static double time(const QByteArray& path)
    {
        return microsecondsPerCall(5, [&] { runToEnd(path); }) / 1000;
    }

    const QByteArray m_library = QFile::encodeName(programPath("loadlibrary"));
    const QByteArray m_framework = QFile::encodeName(programPath("loadframework"));
};

class LoadMemory : public Comparison {
public:
    double ours() override { return printedSize("loadlibrary", m_memory); }
    double reference() override { return printedSize("loadframework", m_memory); }

private:
    const QStringList m_memory{QStringLiteral("memory")};
};

} // namespace

std::vector<Row> processRows()
{
    return {
        {"peak memory of an upgrade / idle process", "MiB", {Limit::DifferenceAtMost, 4}, 5,
            [] { return std::make_unique<UpgradePeak>(); }},
        {"worst hostile file of 1 MB / tiny file", "ms", {Limit::DifferenceAtMost, 250}, 3,
            [] { return std::make_unique<HostileFiles>(QStringList(), 1); }},
        {"memory of that / tiny file", "MB", {Limit::DifferenceAtMost, 80}, 3,
            [] {
                return std::make_unique<HostileFiles>(
                    QStringList(QStringLiteral("memory")), 1024 / 1e6);
            }},
        {"program with the library / framework only", "ms", {}, 51,
            [] { return std::make_unique<LoadTime>(); }},
        {"private memory, library / framework only", "KiB", {}, 5,
            [] { return std::make_unique<LoadMemory>(); }},
    };
}
