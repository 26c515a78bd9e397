// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "framelog.h"

#include "frameview.h"
#include "memorymap.h"
#include "threadannotations.h"

#include <QtCore/QDateTime>
#include <QtCore/QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace QuadrelFrame;

namespace {

QByteArray placeText(std::uint32_t address)
{
    const QByteArray number =
        "0x" + QByteArray::number(address, 16).rightJustified(8, '0').toUpper();
    const std::string name = placeName(address);
    return name.empty() ? number : number + " (" + QByteArray::fromStdString(name) + ')';
}

/** What a frame says, but for its time: "17 read 0xF0020000 (event count) 1 20". */
QByteArray frameText(const QByteArray& bytes)
{
    const FrameView frame(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    const bool isRead = frame.kind() == ReadRequest || frame.kind() == ReadReply;
    QByteArray text = QByteArray::number(frame.label()) + (isRead ? " read " : " write ")
        + placeText(frame.address()) + ' ' + QByteArray::number(frame.dataLength());
    const QByteArray payload = bytes.mid(headSize, bytes.size() - headSize - trailerSize);
    return payload.isEmpty() ? text : text + ' ' + payload.toHex();
}

QByteArray durationText(std::chrono::nanoseconds duration)
{
    const std::chrono::duration<double, std::milli> milliseconds = duration;
    return QByteArray::number(milliseconds.count(), 'f', 3) + " ms";
}

int openToAppend(const QString& path)
{
    constexpr mode_t readableForAll = 0644;
    return ::open(QFile::encodeName(path).constData(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC,
        readableForAll);
}

} // namespace

class FrameLog::Private {
public:
    /** Of standard error, which has no older files. */
    Private() = default;
    Private(const QString& path, qint64 maximumSize, int keptFiles);
    ~Private();
    Private(const Private&) = delete;
    Private& operator=(const Private&) = delete;

    bool open();
    void write(const QByteArray& line);
    bool hasFailed() const;

private:
    void rotate() LINK_REQUIRES(m_mutex);
    QString nameOf(int age) const;

    const QString m_path;
    const qint64 m_maximumSize = 0;
    const int m_keptFiles = 0;
    mutable LinkMutex m_mutex;
    int m_descriptor LINK_GUARDED_BY(m_mutex) = STDERR_FILENO;
    bool m_hasFailed LINK_GUARDED_BY(m_mutex) = false;
};

FrameLog::Private::Private(const QString& path, qint64 maximumSize, int keptFiles)
    : m_path(path)
    , m_maximumSize(maximumSize)
    , m_keptFiles(keptFiles)
    , m_descriptor(-1)
{
}

FrameLog::Private::~Private()
{
    if (!m_path.isEmpty())
        close(m_descriptor);
}

bool FrameLog::Private::open()
{
    const LinkLock lock(m_mutex);
    m_descriptor = openToAppend(m_path);
    return m_descriptor >= 0;
}

void FrameLog::Private::write(const QByteArray& line)
{
    const LinkLock lock(m_mutex);
    struct stat file = {};
    const bool isFull = m_maximumSize > 0 && fstat(m_descriptor, &file) == 0 && file.st_size > 0
        && file.st_size + line.size() > m_maximumSize;
    if (isFull)
        rotate();
    // A line at once, so that two programs may share a file.
    const ssize_t written =
        ::write(m_descriptor, line.constData(), static_cast<size_t>(line.size()));
    if (written != line.size())
        m_hasFailed = true;
}

bool FrameLog::Private::hasFailed() const
{
    const LinkLock lock(m_mutex);
    return m_hasFailed;
}

void FrameLog::Private::rotate()
{
    close(m_descriptor);
    QFile::remove(nameOf(m_keptFiles));
    for (int age = m_keptFiles; age > 0; --age)
        QFile::rename(nameOf(age - 1), nameOf(age));
    m_descriptor = openToAppend(m_path);
}

QString FrameLog::Private::nameOf(int age) const
{
    return age == 0 ? m_path : QStringLiteral("%1.%2").arg(m_path).arg(age);
}

FrameLog::FrameLog(std::unique_ptr<Private> owned)
    : d(std::move(owned))
{
}

FrameLog::~FrameLog() = default;

std::shared_ptr<FrameLog> FrameLog::toStandardError()
{
    return std::shared_ptr<FrameLog>(new FrameLog(std::make_unique<Private>()));
}

std::shared_ptr<FrameLog> FrameLog::toFile(
    const QString& path, QString& error, qint64 maximumSize, int keptFiles)
{
    auto owned = std::make_unique<Private>(path, maximumSize, keptFiles);
    if (!owned->open()) {
        error = qt_error_string(errno);
        return nullptr;
    }
    return std::shared_ptr<FrameLog>(new FrameLog(std::move(owned)));
}

void FrameLog::add(const QString& unit, Direction direction, const QByteArray& frame,
    std::chrono::nanoseconds duration)
{
    QByteArray line = QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs).toLatin1() + ' ';
    line += unit.toUtf8() + ' ' + static_cast<char>(direction) + ' ' + frameText(frame);
    if (duration.count() >= 0)
        line += ' ' + durationText(duration);
    d->write(line + '\n');
}

bool FrameLog::hasFailed() const
{
    return d->hasFailed();
}
