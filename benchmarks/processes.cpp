// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "echosize.h"
#include "fullunit.h"
#include "hostiledocuments.h"
#include "hostilefiles.h"
#include "loopback.h"
#include "rawecho.h"
#include "rows.h"
#include "timing.h"
#include "upgradeimage.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

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

/** A program and its arguments; what it prints is dropped. */
class Program {
public:
    Program(const QString& path, const QStringList& arguments)
    {
        m_words.append(QFile::encodeName(path));
        for (const QString& argument : arguments)
            m_words.append(argument.toLocal8Bit());
        for (QByteArray& word : m_words)
            m_arguments.push_back(word.data());
        m_arguments.push_back(nullptr);
        posix_spawn_file_actions_init(&m_actions);
        posix_spawn_file_actions_addopen(&m_actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    }

    ~Program() { posix_spawn_file_actions_destroy(&m_actions); }
    Q_DISABLE_COPY_MOVE(Program)

    /** Milliseconds from its start to its end. */
    double time()
    {
        return microsecondsPerCall(1, [this] { run(); }) / 1000;
    }

private:
    void run()
    {
        char* const path = m_arguments.front();
        pid_t process = 0;
        int status = 0;
        if (posix_spawn(&process, path, &m_actions, nullptr, m_arguments.data(), environ) != 0
            || waitpid(process, &status, 0) != process || status != 0)
            qFatal("%s failed", path);
    }

    QList<QByteArray> m_words;
    std::vector<char*> m_arguments;
    posix_spawn_file_actions_t m_actions = {};
};

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

constexpr int hostileSize = 1024 * 1024;

/** The worst of all hostile files, and a file with nothing in it, for a program that reads them. */
class HostileFiles : public Comparison {
public:
    HostileFiles(const char* program, const QVector<HostileFile>& files, const QStringList& what,
        double unit)
        : m_program(program)
        , m_what(what)
        , m_unit(unit)
    {
        m_harmless = write("harmless.xml", "<a/>");
        for (const HostileFile& file : files)
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
        return printedSize(m_program, QStringList(path) + m_what) * m_unit;
    }

    const QTemporaryDir m_folder;
    const char* const m_program;
    const QStringList m_what;
    const double m_unit;
    QString m_harmless;
    QStringList m_hostile;
};

class LoadTime : public Comparison {
public:
    double ours() override { return m_library.time(); }
    double reference() override { return m_framework.time(); }

private:
    Program m_library{programPath("loadlibrary"), {}};
    Program m_framework{programPath("loadframework"), {}};
};

/** A unit and an echo, for clients that are processes of their own. */
class Servers {
public:
    QString unitPort() const { return QString::number(m_unit.port()); }
    QString echoPort() const { return QString::number(m_echo.port()); }
    QString unitAddress() const { return QStringLiteral("tcp://127.0.0.1:") + unitPort(); }

private:
    LoopbackUnit m_unit;
    RawEchoServer m_echo{EchoSize::request, EchoSize::record};
};

class InfoTime : public Comparison {
public:
    double ours() override { return m_info.time(); }
    double reference() override { return m_echo.time(); }

private:
    Servers m_servers;
    Program m_info{QStringLiteral(QUADRELCTL),
        {QStringLiteral("info"), QStringLiteral("--unit"), m_servers.unitAddress()}};
    Program m_echo{programPath("rawechoes"), {m_servers.echoPort(), QStringLiteral("1")}};
};

/** System calls of an exchange, in all threads of the client. */
class SystemCalls : public Comparison {
public:
    double ours() override
    {
        constexpr int reads = 5;
        return callsPerRound("unitreads", m_servers.unitPort(), reads) / FullUnit::exchangesOfRead;
    }

    double reference() override
    {
        constexpr int echoes = 1000;
        return callsPerRound("rawechoes", m_servers.echoPort(), echoes);
    }

private:
    /** What a round more takes; starting and ending are no part of it. */
    double callsPerRound(const char* program, const QString& port, int rounds) const
    {
        return (calls(program, port, 1 + rounds) - calls(program, port, 1)) / rounds;
    }

    double calls(const char* program, const QString& port, int rounds) const
    {
        QProcess process;
        const QString summary = m_folder.filePath(QStringLiteral("summary"));
        process.start(QStringLiteral("strace"),
            {QStringLiteral("-f"), QStringLiteral("-c"), QStringLiteral("-o"), summary,
                programPath(program), port, QString::number(rounds)});
        QFile file(summary);
        if (!process.waitForFinished(-1) || process.exitCode() != 0
            || !file.open(QIODevice::ReadOnly))
            qFatal("strace %s: %s", program, process.readAllStandardError().constData());
        return totalOf(file.readAll());
    }

    /** The last line has the share, the seconds and the time of a call before the number of calls.
     */
    static double totalOf(const QByteArray& summary)
    {
        const QList<QByteArray> fields =
            summary.trimmed().split('\n').constLast().simplified().split(' ');
        if (fields.constLast() != "total")
            qFatal("strace: no total in its summary");
        return fields.value(3).toInt();
    }

    Servers m_servers;
    QTemporaryDir m_folder;
};

class LoadMemory : public Comparison {
public:
    double ours() override { return printedSize("loadlibrary", m_memory); }
    double reference() override { return printedSize("loadframework", m_memory); }

private:
    const QStringList m_memory{QStringLiteral("memory")};
};

} // namespace

Rows processRows()
{
    return joined({
        {{"peak memory of an upgrade / idle process", "MiB", {Limit::DifferenceAtMost, 4}, 5,
             [] { return std::make_unique<UpgradePeak>(); }},
            {"worst hostile file of 1 MB / tiny file", "ms", {Limit::DifferenceAtMost, 250}, 3,
                [] {
                    return std::make_unique<HostileFiles>(
                        "hostilefile", hostileFiles(hostileSize), QStringList(), 1);
                }},
            {"memory of that / tiny file", "MB", {Limit::DifferenceAtMost, 80}, 3,
                [] {
                    return std::make_unique<HostileFiles>("hostilefile", hostileFiles(hostileSize),
                        QStringList(QStringLiteral("memory")), 1024 / 1e6);
                }},
            {"worst hostile document of 1 MB / tiny file", "ms", {Limit::DifferenceAtMost, 500}, 3,
                [] {
                    return std::make_unique<HostileFiles>(
                        "hostiledocument", hostileDocuments(hostileSize), QStringList(), 1);
                }},
            {"memory of that document / tiny file", "MB", {Limit::DifferenceAtMost, 80}, 3,
                [] {
                    return std::make_unique<HostileFiles>("hostiledocument",
                        hostileDocuments(hostileSize), QStringList(QStringLiteral("memory")),
                        1024 / 1e6);
                }},
            {"program with the library / framework only", "ms", {}, 51,
                [] { return std::make_unique<LoadTime>(); }},
            {"private memory, library / framework only", "KiB", {}, 5,
                [] { return std::make_unique<LoadMemory>(); }},
            {"system calls of an exchange / of a raw echo, one processor", "calls",
                {Limit::OursAtMost, 7}, 3, [] { return std::make_unique<SystemCalls>(); },
                Placement::OneProcessor}},
        inBothPlacements({"quadrelctl info / bare program with one raw echo", "ms", {}, 51,
                             [] { return std::make_unique<InfoTime>(); }},
            {Limit::RatioAtMost, 1.5}, {Limit::RatioAtMost, 1.5}),
    });
}
