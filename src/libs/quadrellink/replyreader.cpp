#include "replyreader.h"

#include "framechecksum.h"
#include "quadrelframe.h"

#include <QtCore/QtEndian>

#include <algorithm>

namespace {

using namespace QuadrelFrame;

constexpr int smallestFrame = headSize + trailerSize;

/** Tests what is there, so that a stream of something else is found out before 18 bytes of it. */
bool beginsLikeReply(const QByteArray& bytes)
{
    const int compared = std::min<int>(bytes.size(), sizeof(magic));
    if (!std::equal(magic, magic + compared, bytes.begin()))
        return false;
    if (bytes.size() <= kindOffset)
        return true;
    const auto kind = static_cast<quint8>(bytes.at(kindOffset));
    return kind == ReadReply || kind == WriteReply;
}

quint32 payloadLength(const QByteArray& bytes)
{
    return qFromLittleEndian<quint32>(bytes.constData() + payloadLengthOffset);
}

bool hasRightChecksum(const QByteArray& frame)
{
    const int checkedSize = frame.size() - trailerSize;
    return checksum(frame.constData(), checkedSize)
        == qFromLittleEndian<quint16>(frame.constData() + checkedSize);
}

} // namespace

void ReplyReader::append(const char* bytes, int size)
{
    m_bytes.append(bytes, size);
}

void ReplyReader::appendDatagram(const char* bytes, int size)
{
    m_bytes = QByteArray(bytes, size);
    const bool isWhole = size >= smallestFrame && payloadLength(m_bytes) <= maximumPayload
        && static_cast<int>(payloadLength(m_bytes)) == size - smallestFrame;
    if (!isWhole)
        m_fault = NotAFrame;
}

std::optional<QByteArray> ReplyReader::takeFrame()
{
    if (m_fault == NoFault && !beginsLikeReply(m_bytes))
        m_fault = NotAFrame;
    if (m_fault != NoFault || m_bytes.size() < headSize)
        return std::nullopt;
    if (payloadLength(m_bytes) > maximumPayload) {
        m_fault = NotAFrame;
        return std::nullopt;
    }

    const int size = smallestFrame + static_cast<int>(payloadLength(m_bytes));
    if (m_bytes.size() < size)
        return std::nullopt;
    const QByteArray frame = m_bytes.left(size);
    if (!hasRightChecksum(frame)) {
        m_fault = WrongChecksum;
        return std::nullopt;
    }
    // Mostly nothing is left, and nothing is copied.
    m_bytes = m_bytes.mid(size);
    return frame;
}

unsigned char ReplyReader::labelOf(const QByteArray& frame)
{
    return frame.size() > labelOffset ? static_cast<unsigned char>(frame.at(labelOffset)) : 0;
}
