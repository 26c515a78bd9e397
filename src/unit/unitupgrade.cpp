// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitupgrade.h"

#include "unitaddresses.h"
#include "unitbytes.h"
#include "unittexts.h"

#include <QtCore/QtEndian>

#include <algorithm>

namespace QuadrelUnit {

namespace {

constexpr int chunkLength = 2048;
constexpr quint32 addressedImageEnd = 0x10000000;
constexpr quint32 firstPosition = 0;
constexpr quint16 startWord = 0x7209;
constexpr quint16 emptyWord = 0;
constexpr quint16 command = 2;
constexpr quint16 addressedTarget = 1;
constexpr quint16 streamedTarget = 2;

bool isControlWord(quint32 address)
{
    constexpr quint32 words[] = {Address::upgradeLength, Address::upgradePosition,
        Address::upgradeCommand, Address::upgradeSize, Address::upgradeWord,
        Address::upgradeStartWord};
    return std::find(std::begin(words), std::end(words), address) != std::end(words);
}

QString hexAddress(quint32 address)
{
    return QStringLiteral("0x%1").arg(address, 8, 16, QLatin1Char('0'));
}

QString shown(const QByteArray& data)
{
    constexpr int shownBytes = 8;
    const QString more = data.size() > shownBytes ? QStringLiteral(" ...") : QString();
    return QString::fromLatin1(data.left(shownBytes).toHex(' ')) + more;
}

} // namespace

/** The one control word that the present step takes. */
struct UnitUpgrade::Expected {
    quint32 address;
    QByteArray data;
};

bool UnitUpgrade::isImage(quint32 address)
{
    return (address >= Address::addressedImage && address < addressedImageEnd)
        || address == Address::streamedImage;
}

UnitUpgrade::Outcome UnitUpgrade::write(quint32 address, const QByteArray& data)
{
    if (!isControlWord(address) && !isImage(address))
        return Elsewhere;
    if (address == Address::upgradeLength && !opensStreamedHalf(data))
        return begin(data);

    switch (m_step) {
    case Lost:
        return Taken;
    case Length:
        return breakOff(
            QStringLiteral("a write at %1, and no upgrade was begun").arg(hexAddress(address)));
    case AddressedSize:
        return takeAddressedSize(address, data);
    case AddressedData:
        return takeData(m_addressed, m_addressedSize,
            Address::addressedImage + static_cast<quint32>(m_addressed.size()), address, data);
    case StreamedData:
        return takeData(m_streamed, streamedSize(), Address::streamedImage, address, data);
    default:
        return takeWord(address, data);
    }
}

// The length word opens an upgrade, and once more its second half, with what is left to come.
bool UnitUpgrade::opensStreamedHalf(const QByteArray& data) const
{
    return m_step == StreamedLength && data == littleEndian(streamedSize());
}

UnitUpgrade::Outcome UnitUpgrade::begin(const QByteArray& data)
{
    const bool cutsOff = m_step != Length && m_step != Lost;
    m_addressed.clear();
    m_streamed.clear();
    if (data.size() != 4)
        return breakOff(QStringLiteral("a length word of %1").arg(bytesText(data.size())));
    m_totalSize = qFromLittleEndian<quint32>(data.constData());
    if (m_totalSize > m_limit)
        return breakOff(QStringLiteral("an upgrade of %1 bytes is over the limit of %2")
                            .arg(m_totalSize)
                            .arg(m_limit));
    m_addressedSize = 0;
    m_step = Position;
    if (!cutsOff)
        return Taken;
    m_problem = QStringLiteral("a new upgrade began before the last one was whole");
    return Broken;
}

UnitUpgrade::Outcome UnitUpgrade::takeAddressedSize(quint32 address, const QByteArray& data)
{
    if (address != Address::upgradeSize || data.size() != 4)
        return breakOff(
            QStringLiteral("got %1 at %2 where the size of an image at %3 was due")
                .arg(shown(data), hexAddress(address), hexAddress(Address::upgradeSize)));
    m_addressedSize = qFromLittleEndian<quint32>(data.constData());
    if (m_addressedSize > m_totalSize)
        return breakOff(QStringLiteral("an image of %1 in an upgrade of %2")
                            .arg(bytesText(m_addressedSize))
                            .arg(m_totalSize));
    return advance();
}

UnitUpgrade::Outcome UnitUpgrade::takeWord(quint32 address, const QByteArray& data)
{
    const Expected due = expected();
    if (address != due.address || data != due.data)
        return breakOff(
            QStringLiteral("got %1 at %2 where %3 at %4 was due")
                .arg(shown(data), hexAddress(address), shown(due.data), hexAddress(due.address)));
    return advance();
}

UnitUpgrade::Outcome UnitUpgrade::takeData(QByteArray& image, quint32 imageSize,
    quint32 expectedAddress, quint32 address, const QByteArray& data)
{
    const quint32 missing = imageSize - static_cast<quint32>(image.size());
    const int due = static_cast<int>(std::min<quint32>(missing, chunkLength));
    if (address != expectedAddress || data.size() != due)
        return breakOff(QStringLiteral("got %1 at %2 instead of %3 of image at %4")
                            .arg(bytesText(data.size()))
                            .arg(hexAddress(address))
                            .arg(bytesText(due))
                            .arg(hexAddress(expectedAddress)));
    image.append(data);
    return static_cast<quint32>(image.size()) == imageSize ? advance() : Taken;
}

UnitUpgrade::Outcome UnitUpgrade::breakOff(const QString& problem)
{
    m_problem = problem;
    m_step = Lost;
    return Broken;
}

UnitUpgrade::Outcome UnitUpgrade::advance()
{
    m_step = static_cast<Step>(m_step + 1);
    if (m_step == AddressedData && m_addressedSize == 0)
        m_step = StartWord;
    const bool isWhole = m_step == Lost || (m_step == StreamedData && streamedSize() == 0);
    if (!isWhole)
        return Taken;
    m_step = Length;
    return Complete;
}

UnitUpgrade::Expected UnitUpgrade::expected() const
{
    switch (m_step) {
    case Position:
    case StreamedPosition:
        return {Address::upgradePosition, littleEndian(firstPosition)};
    case AddressedCommand:
        return {Address::upgradeCommand, littleEndian(command) + littleEndian(addressedTarget)};
    case StartWord:
        return {Address::upgradeStartWord, littleEndian(startWord)};
    case Word:
        return {Address::upgradeWord, littleEndian(emptyWord)};
    case StreamedLength:
        return {Address::upgradeLength, littleEndian(streamedSize())};
    case StreamedSize:
        return {Address::upgradeSize, littleEndian(streamedSize())};
    default:
        return {Address::upgradeCommand, littleEndian(command) + littleEndian(streamedTarget)};
    }
}

} // namespace QuadrelUnit
