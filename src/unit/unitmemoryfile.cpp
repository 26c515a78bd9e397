#include "unitmemoryfile.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>
#include <QtCore/QSaveFile>

#include <utility>

namespace QuadrelUnit {

namespace {

constexpr int pauseMilliseconds = 100;
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

QByteArray fileContent(const ControlUnit& unit)
{
    QByteArray content = firstLine() + '\n';
    if (unit.clock().ahead())
        content += "clock: " + QByteArray::number(*unit.clock().ahead()) + '\n';
    const QByteArray zeros(bytesPerLine, '\0');
    const QList<quint32> pages = unit.memory().pages();
    for (const quint32 page : pages) {
        const QByteArray bytes = unit.memory().read(page, UnitMemory::pageSize);
        for (int offset = 0; offset < bytes.size(); offset += bytesPerLine) {
            const QByteArray part = bytes.mid(offset, bytesPerLine);
            if (part != zeros)
                content += memoryLine(page + static_cast<quint32>(offset), part);
        }
    }
    return content;
}

/** What the lines of a file say. */
struct Content {
    UnitMemory memory;
    std::optional<qint64> clockAhead;

    bool takeLine(const QString& line);
};

bool Content::takeLine(const QString& line)
{
    static const QRegularExpression memoryForm(
        QStringLiteral("^([0-9a-fA-F]{8}):((?: [0-9a-fA-F]{2}){1,16})$"));
    static const QRegularExpression clockForm(QStringLiteral("^clock: (-?\\d{1,18})$"));
    const QRegularExpressionMatch bytes = memoryForm.match(line);
    if (bytes.hasMatch()) {
        memory.write(bytes.captured(1).toUInt(nullptr, 16),
            QByteArray::fromHex(bytes.captured(2).toLatin1()));
        return true;
    }
    const QRegularExpressionMatch clock = clockForm.match(line);
    if (clock.hasMatch())
        clockAhead = clock.captured(1).toLongLong();
    return clock.hasMatch();
}

} // namespace

UnitMemoryFile::UnitMemoryFile(QString path, ControlUnit* unit, QObject* parent)
    : QObject(parent)
    , m_path(std::move(path))
    , m_unit(unit)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(pauseMilliseconds);
    connect(&m_pause, &QTimer::timeout, this, &UnitMemoryFile::saveAfterPause);
}

bool UnitMemoryFile::exists() const
{
    return QFileInfo::exists(m_path);
}

bool UnitMemoryFile::load(QString* error)
{
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("cannot read %1: %2").arg(m_path, file.errorString());
        return false;
    }
    if (file.readLine(longestLine).trimmed() != firstLine()) {
        *error = QStringLiteral("%1 is no memory of a simulated unit").arg(m_path);
        return false;
    }
    Content content;
    for (int number = 2; !file.atEnd(); ++number) {
        const QByteArray line = file.readLine(longestLine).trimmed();
        if (!content.takeLine(QString::fromLatin1(line))) {
            *error =
                QStringLiteral("%1, line %2: neither bytes nor a clock").arg(m_path).arg(number);
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
    QSaveFile file(m_path);
    const QByteArray content = fileContent(*m_unit);
    m_isSaved =
        file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit();
    if (!m_isSaved)
        *error = QStringLiteral("cannot save %1: %2").arg(m_path, file.errorString());
    return m_isSaved;
}

bool UnitMemoryFile::saveNoted(QString* error)
{
    return m_isSaved || save(error);
}

void UnitMemoryFile::noteChange()
{
    m_isSaved = false;
    // A pause that runs is left to run: a unit that is written without end is saved all the same.
    if (!m_pause.isActive())
        m_pause.start();
}

void UnitMemoryFile::saveAfterPause()
{
    QString error;
    if (save(&error))
        emit saved();
    else
        emit failed(error);
}

} // namespace QuadrelUnit
