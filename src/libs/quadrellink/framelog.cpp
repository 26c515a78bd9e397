#include "framelog.h"

#include "frameview.h"
#include "memorymap.h"
#include "threadannotations.h"

#include <QtCore/QDateTime>
#include <QtCore/QFile>

#include <cstdio>

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

} // namespace

class FrameLog::Private {
public:
    void write(const QByteArray& line);
    bool open(QString& error);

    LinkMutex mutex;
    QFile file LINK_GUARDED_BY(mutex);
    bool hasFailed LINK_GUARDED_BY(mutex) = false;
    /** Of standard error there is no older file. */
    qint64 maximumSize = 0;
    int keptFiles = 0;

private:
    void rotate() LINK_REQUIRES(mutex);
    QString olderName(int age) const LINK_REQUIRES(mutex);
};

bool FrameLog::Private::open(QString& error)
{
    const LinkLock lock(mutex);
    const bool isOpen = file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered);
    if (!isOpen)
        error = file.errorString();
    return isOpen;
}

void FrameLog::Private::write(const QByteArray& line)
{
    const LinkLock lock(mutex);
    if (maximumSize > 0 && file.size() > 0 && file.size() + line.size() > maximumSize)
        rotate();
    if (file.write(line) != line.size())
        hasFailed = true;
}

void FrameLog::Private::rotate()
{
    file.close();
    QFile::remove(olderName(keptFiles));
    for (int age = keptFiles; age > 0; --age)
        QFile::rename(olderName(age - 1), olderName(age));
    if (keptFiles == 0)
        file.remove();
    file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered);
}

QString FrameLog::Private::olderName(int age) const
{
    return age == 0 ? file.fileName() : QStringLiteral("%1.%2").arg(file.fileName()).arg(age);
}

FrameLog::FrameLog(std::unique_ptr<Private> owned)
    : d(std::move(owned))
{
}

FrameLog::~FrameLog() = default;

std::shared_ptr<FrameLog> FrameLog::toStandardError()
{
    auto owned = std::make_unique<Private>();
    {
        const LinkLock lock(owned->mutex);
        owned->file.open(stderr, QIODevice::WriteOnly | QIODevice::Unbuffered);
    }
    return std::shared_ptr<FrameLog>(new FrameLog(std::move(owned)));
}

std::shared_ptr<FrameLog> FrameLog::toFile(
    const QString& path, QString& error, qint64 maximumSize, int keptFiles)
{
    auto owned = std::make_unique<Private>();
    owned->maximumSize = maximumSize;
    owned->keptFiles = keptFiles;
    {
        const LinkLock lock(owned->mutex);
        owned->file.setFileName(path);
    }
    if (!owned->open(error))
        return nullptr;
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
    const LinkLock lock(d->mutex);
    return d->hasFailed;
}
