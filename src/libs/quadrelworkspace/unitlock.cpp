// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitlock.h"

#include "singleline.h"
#include "workspace.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QUrl>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace QuadrelWorkspace;

namespace {

constexpr int maximalHolderSize = 1024;
constexpr int maximalNameLength = 64;
// Several users take locks in one folder; none may remove another's files.
constexpr mode_t folderMode = 01777;
constexpr mode_t fileMode = 0666;

QString userName()
{
    const passwd* entry = getpwuid(getuid());
    return entry ? QString::fromLocal8Bit(entry->pw_name) : QString::number(getuid());
}

QByteArray describeThisProcess()
{
    const QJsonObject holder{
        {QStringLiteral("process"), static_cast<qint64>(getpid())},
        {QStringLiteral("user"), userName()},
        {QStringLiteral("program"), QCoreApplication::applicationName()},
        {QStringLiteral("since"), QDateTime::currentDateTimeUtc().toString(Qt::ISODate)},
    };
    return QJsonDocument(holder).toJson(QJsonDocument::Compact);
}

/** Any user may have written the file. */
QString shortName(const QJsonValue& value)
{
    return singleLine(value.toString(), maximalNameLength);
}

std::optional<LockHolder> parseHolder(const QByteArray& text)
{
    const QJsonObject object = QJsonDocument::fromJson(text).object();
    LockHolder holder;
    holder.process = static_cast<qint64>(object.value(QStringLiteral("process")).toDouble());
    holder.user = shortName(object.value(QStringLiteral("user")));
    holder.program = shortName(object.value(QStringLiteral("program")));
    holder.since =
        QDateTime::fromString(object.value(QStringLiteral("since")).toString(), Qt::ISODate);
    const bool isWhole = holder.process > 0 && !holder.user.isEmpty() && !holder.program.isEmpty()
        && holder.since.isValid();
    return isWhole ? std::make_optional(holder) : std::nullopt;
}

std::optional<LockHolder> readHolder(int descriptor)
{
    QByteArray text(maximalHolderSize, '\0');
    const ssize_t size = pread(descriptor, text.data(), static_cast<size_t>(text.size()), 0);
    text.resize(static_cast<int>(std::max<ssize_t>(size, 0)));
    return parseHolder(text);
}

/** Opens without O_CREAT first: the system may refuse that for a file of another user. */
int openOrCreate(const QByteArray& path)
{
    constexpr int flags = O_RDWR | O_CLOEXEC | O_NOFOLLOW;
    const int descriptor = open(path.constData(), flags);
    if (descriptor >= 0 || errno != ENOENT)
        return descriptor;
    const int created = open(path.constData(), flags | O_CREAT | O_EXCL, fileMode);
    if (created >= 0)
        fchmod(created, fileMode);
    return created < 0 && errno == EEXIST ? open(path.constData(), flags) : created;
}

/** -1 and errno on failure. What another user has put there in a lock's place is not written to. */
int openLockFile(const QByteArray& path)
{
    const int descriptor = openOrCreate(path);
    struct stat status = {};
    if (descriptor < 0 || fstat(descriptor, &status) != 0)
        return descriptor;
    if (S_ISREG(status.st_mode) && status.st_nlink == 1)
        return descriptor;
    close(descriptor);
    errno = EPERM;
    return -1;
}

bool makeLockFolder(const QString& folder)
{
    const QByteArray path = QFile::encodeName(folder);
    if (QDir(folder).exists())
        return true;
    QDir().mkpath(QFileInfo(folder).path());
    if (mkdir(path.constData(), folderMode) == 0)
        return chmod(path.constData(), folderMode) == 0;
    return errno == EEXIST;
}

QString reasonOf(int systemError)
{
    return QString::fromLocal8Bit(std::strerror(systemError));
}

} // namespace

/** A file that this process has locked. */
struct UnitLock::LockFile {
    QString key;
    int descriptor;

    LockFile(QString itsKey, int itsDescriptor)
        : key(std::move(itsKey))
        , descriptor(itsDescriptor)
    {
        writeHolder(describeThisProcess());
    }
    ~LockFile()
    {
        writeHolder(QByteArray());
        close(descriptor);
    }
    Q_DISABLE_COPY(LockFile)

    /** The lock counts without a name in it too. */
    void writeHolder(const QByteArray& text) const
    {
        if (ftruncate(descriptor, 0) == 0) [[maybe_unused]]
            const ssize_t written =
                pwrite(descriptor, text.constData(), static_cast<size_t>(text.size()), 0);
    }
};

QString LockHolder::text() const
{
    return Workspace::tr("%1 (process %2, user %3) since %4")
        .arg(program, QString::number(process), user,
            since.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")));
}

UnitLock::UnitLock(const QString& folder)
    : m_folder(folder)
{
}

UnitLock::~UnitLock() = default;

bool UnitLock::takeAddress(const UnitAddress& address, QString& error)
{
    const QString endpoint = address.toText().toLower().section(QStringLiteral("://"), 1);
    return take(QStringLiteral("address-%1").arg(endpoint), endpoint, error);
}

bool UnitLock::takeSerial(quint64 serialNumber, QString& error)
{
    if (serialNumber == 0)
        return true;
    const QString number = QString::number(serialNumber);
    return take(QStringLiteral("serial-%1").arg(number),
        Workspace::tr("the unit with serial number %1").arg(number), error);
}

bool UnitLock::take(const QString& key, const QString& unit, QString& error)
{
    m_holder.reset();
    const auto isHeld = [&key](const std::unique_ptr<LockFile>& file) { return file->key == key; };
    if (std::any_of(m_files.begin(), m_files.end(), isHeld))
        return true;

    const QString path =
        m_folder + QLatin1Char('/') + QString::fromLatin1(QUrl::toPercentEncoding(key, ":[]"));
    const int descriptor = makeLockFolder(m_folder) ? openLockFile(QFile::encodeName(path)) : -1;
    if (descriptor >= 0 && flock(descriptor, LOCK_EX | LOCK_NB) == 0) {
        m_files.push_back(std::make_unique<LockFile>(key, descriptor));
        return true;
    }

    const int systemError = errno;
    if (descriptor >= 0 && systemError == EWOULDBLOCK) {
        m_holder = readHolder(descriptor);
        error = Workspace::tr("%1 is in use by %2; wait until it has ended")
                    .arg(unit, m_holder ? m_holder->text() : Workspace::tr("another program"));
    } else {
        error = Workspace::tr("cannot lock %1: %2: %3").arg(unit, path, reasonOf(systemError));
    }
    if (descriptor >= 0)
        close(descriptor);
    return false;
}
