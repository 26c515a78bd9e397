// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitmemoryfile.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>
#include <QtCore/QSaveFile>
#include <QtCore/QThreadPool>

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

namespace QuadrelUnit {

namespace {

constexpr int pauseMilliseconds = 100;
constexpr int retryMilliseconds = 1000;
constexpr int bytesPerLine = 16;
constexpr int longestLine = 256;

const QByteArray& firstLine()
{
    static const QByteArray line("quadrelsim memory 1");
    return line;
}

QByteArray memoryLine(quint32 address, const QByteArray& bytes)
{
    return QByteArray::number(address, 16).rightJustified(8, '0') + ": " + bytes.toHex(' ') + '\n';
}

/** What a file holds; a copy of it costs little, and does not change when the unit does. */
struct Content {
    UnitMemory memory;
    std::optional<qint64> clockAhead;

    bool write(QIODevice& device) const;
    bool writePage(QIODevice& device, quint32 page) const;
    /** Why the line is not taken, or an empty text. */
    QString takeLine(const QString& line);
    QString takeClock(const QString& digits);
};

Content contentOf(const ControlUnit& unit)
{
    return {unit.memory(), unit.clock().ahead()};
}

bool Content::write(QIODevice& device) const
{
    QByteArray head = firstLine() + '\n';
    if (clockAhead)
        head += "clock: " + QByteArray::number(*clockAhead) + '\n';
    if (device.write(head) != head.size())
        return false;
    const QList<quint32> pages = memory.pages();
    return std::all_of(
        pages.begin(), pages.end(), [&](quint32 page) { return writePage(device, page); });
}

bool Content::writePage(QIODevice& device, quint32 page) const
{
    const QByteArray zeros(bytesPerLine, '\0');
    const QByteArray bytes = memory.read(page, UnitMemory::pageSize);
    QByteArray lines;
    for (int offset = 0; offset < bytes.size(); offset += bytesPerLine) {
        const QByteArray part = bytes.mid(offset, bytesPerLine);
        if (part != zeros)
            lines += memoryLine(page + static_cast<quint32>(offset), part);
    }
    return device.write(lines) == lines.size();
}

QString Content::takeLine(const QString& line)
{
    static const QRegularExpression memoryForm(
        QStringLiteral("^([0-9a-fA-F]{8}):((?: [0-9a-fA-F]{2}){1,16})$"));
    static const QRegularExpression clockForm(QStringLiteral("^clock: (-?\\d+)$"));
    const QRegularExpressionMatch clock = clockForm.match(line);
    if (clock.hasMatch())
        return takeClock(clock.captured(1));
    const QRegularExpressionMatch bytes = memoryForm.match(line);
    if (!bytes.hasMatch())
        return QStringLiteral("neither bytes nor a clock");
    if (!memory.write(bytes.captured(1).toUInt(nullptr, 16),
            QByteArray::fromHex(bytes.captured(2).toLatin1())))
        return QStringLiteral("over the memory limit of %1 bytes").arg(memory.limit());
    return QString();
}

QString Content::takeClock(const QString& digits)
{
    bool isNumber = false;
    const qint64 ahead = digits.toLongLong(&isNumber);
    if (!isNumber || ahead > UnitClock::largestLead || ahead < -UnitClock::largestLead)
        return QStringLiteral("a clock of %1 is out of range: %2 to %3")
            .arg(digits)
            .arg(-UnitClock::largestLead)
            .arg(UnitClock::largestLead);
    clockAhead = ahead;
    return QString();
}

/** The error, or an empty text. */
QString saveContent(const QString& path, const Content& content)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && content.write(file) && file.commit())
        return QString();
    return QStringLiteral("cannot save %1: %2").arg(path, file.errorString());
}

/** One name for all the ways to one file. */
QString pathOfLock(const QString& path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return (canonical.isEmpty() ? path : canonical) + QStringLiteral(".lock");
}

} // namespace

UnitMemoryFile::UnitMemoryFile(QString path, ControlUnit* unit, QObject* parent)
    : QObject(parent)
    , m_path(std::move(path))
    , m_unit(unit)
{
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &UnitMemoryFile::startSaving);
}

UnitMemoryFile::~UnitMemoryFile()
{
    if (m_saving.valid())
        m_saving.wait();
}

bool UnitMemoryFile::claim(QString* error)
{
    switch (m_lock.hold(pathOfLock(m_path))) {
    case UnitFileLock::Held:
        return true;
    case UnitFileLock::Taken:
        *error = QStringLiteral("%1 is in use by process %2").arg(m_path, m_lock.holder());
        return false;
    case UnitFileLock::Impossible:
        *error = QStringLiteral("cannot save %1: its folder is missing or cannot be written")
                     .arg(m_path);
        return false;
    }
    return false;
}

bool UnitMemoryFile::exists() const
{
    return QFileInfo::exists(m_path);
}

bool UnitMemoryFile::load(QString* error)
{
    // Opening a pipe would wait for its other end.
    if (exists() && !QFileInfo(m_path).isFile()) {
        *error = QStringLiteral("cannot read %1: it is not a regular file").arg(m_path);
        return false;
    }
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("cannot read %1: %2").arg(m_path, file.errorString());
        return false;
    }
    if (file.readLine(longestLine).trimmed() != firstLine()) {
        *error = QStringLiteral("%1 is not a memory file of a simulated unit").arg(m_path);
        return false;
    }
    Content content;
    content.memory.setLimit(m_unit->memory().limit());
    for (int number = 2; !file.atEnd(); ++number) {
        const QByteArray line = file.readLine(longestLine).trimmed();
        const QString problem = content.takeLine(QString::fromLatin1(line));
        if (!problem.isEmpty()) {
            *error = QStringLiteral("%1, line %2: %3").arg(m_path).arg(number).arg(problem);
            return false;
        }
    }
    m_unit->memory() = content.memory;
    m_unit->clock().setAhead(content.clockAhead);
    return true;
}

bool UnitMemoryFile::save(QString* error)
{
    m_pause.stop();
    if (m_saving.valid())
        m_saving.wait();
    *error = saveContent(m_path, contentOf(*m_unit));
    m_isSaved = error->isEmpty();
    return m_isSaved;
}

bool UnitMemoryFile::saveNoted(QString* error)
{
    if (m_saving.valid())
        finishSaving();
    return m_isSaved || save(error);
}

void UnitMemoryFile::noteChange()
{
    m_isSaved = false;
    // A pause that runs is left to run: a unit that is written without end is saved all the same.
    if (!m_pause.isActive() && !m_saving.valid())
        m_pause.start(pauseMilliseconds);
}

void UnitMemoryFile::startSaving()
{
    const auto result = std::make_shared<std::promise<QString>>();
    m_saving = result->get_future();
    m_isSaved = true;
    QThreadPool::globalInstance()->start(
        [this, result, path = m_path, content = contentOf(*m_unit)] {
            const QString error = saveContent(path, content);
            QMetaObject::invokeMethod(this, &UnitMemoryFile::finishSaving, Qt::QueuedConnection);
            result->set_value(error);
        });
}

void UnitMemoryFile::finishSaving()
{
    // One that had to be waited for is finished already.
    if (!m_saving.valid())
        return;
    const QString error = m_saving.get();
    if (!error.isEmpty())
        m_isSaved = false;
    if (!m_isSaved)
        m_pause.start(error.isEmpty() ? pauseMilliseconds : retryMilliseconds);
    if (error.isEmpty())
        emit saved();
    else if (error != m_lastError)
        emit failed(error);
    m_lastError = error;
}

} // namespace QuadrelUnit
