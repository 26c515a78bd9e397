#include "recordblock.h"

#include <algorithm>

RecordBlock::RecordBlock()
    : m_bytes(slotSize, '\0')
{
}

void RecordBlock::storeByte(int offset, int value)
{
    *room(offset, 1) = static_cast<uchar>(value);
}

void RecordBlock::storeWord(int offset, int value)
{
    uchar* bytes = room(offset, 2);
    bytes[0] = static_cast<uchar>(value);
    bytes[1] = static_cast<uchar>(value >> 8);
}

void RecordBlock::storeBytes(int offset, std::initializer_list<quint8> bytes)
{
    std::copy(bytes.begin(), bytes.end(), room(offset, static_cast<int>(bytes.size())));
}

void RecordBlock::storeBytes(int offset, const QByteArray& bytes)
{
    std::copy(bytes.begin(), bytes.end(), room(offset, bytes.size()));
}

uchar* RecordBlock::room(int offset, int count)
{
    // A plain resize would leave the new bytes as they come.
    const int missing = offset + count - m_bytes.size();
    if (missing > 0)
        m_bytes.append(missing, '\0');
    return reinterpret_cast<uchar*>(m_bytes.data()) + offset;
}

QByteArray RecordBlock::bytes() const
{
    return m_bytes;
}
