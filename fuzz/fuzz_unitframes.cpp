// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "controlunit.h"
#include "fuzzinput.h"
#include "fuzzsetup.h"
#include "unitaddresses.h"
#include "unitframereader.h"

#include <QtCore/QVector>

using namespace QuadrelUnit;

namespace {

/** Requests with a CRC that is right, which no mutation would find. */
QByteArray soundRequests(FuzzInput& input)
{
    constexpr quint32 places[] = {Address::information, Address::network, Address::reset,
        Address::serialPorts, Address::ioLines, Address::triggerCount, Address::events,
        Address::clock, Address::upgradeLength, Address::upgradePosition, Address::upgradeCommand,
        Address::upgradeSize, Address::addressedImage, Address::streamedImage, Address::upgradeWord,
        Address::upgradeStartWord, Address::remark};
    QByteArray stream;
    while (!input.isEmpty()) {
        const quint8 form = input.byte();
        quint32 address = places[(form >> 1) % std::size(places)] + input.byte();
        if ((form & 0x80) != 0)
            address += static_cast<quint32>(input.word()) << 16;
        const quint8 label = input.byte();
        const quint16 length = input.word();
        stream += (form & 1) != 0
            ? UnitFrame::writeRequest(label, address, input.bytes(length)).encode()
            : UnitFrame::readRequest(label, address, length).encode();
    }
    return stream;
}

QVector<QByteArray> framesOf(const QByteArray& stream, int pieceSize, QString& error)
{
    UnitFrameReader reader;
    QVector<QByteArray> frames;
    for (int position = 0; position < stream.size(); position += pieceSize) {
        reader.feed(stream.mid(position, pieceSize));
        while (const std::optional<UnitFrame> frame = reader.next())
            frames.append(frame->encode());
    }
    error = reader.error();
    return frames;
}

void answerAll(const QByteArray& stream)
{
    // Little, so that a short input reaches the limit.
    constexpr qint64 memoryLimit = 16 * UnitMemory::pageSize;
    ControlUnit unit;
    unit.setMemoryLimit(memoryLimit);
    UnitFrameReader requests;
    requests.feed(stream);
    while (const std::optional<UnitFrame> request = requests.next()) {
        const qint64 sizeBefore = unit.memory().size();
        const UnitAnswer answer = unit.answer(*request);
        require(unit.memory().size() <= memoryLimit, "the memory keeps within its limit");
        if (!answer.refusal.isEmpty()) {
            require(request->isWriteRequest() && unit.memory().size() == sizeBefore,
                "only a write is refused, and takes no memory");
            continue;
        }
        require(answer.reply.address == request->address && answer.reply.label == request->label,
            "a reply bears the address and the label of its request");
        require(answer.reply.payload.size() == (request->isReadRequest() ? request->dataLength : 0),
            "a read is answered with as many bytes as it asks for, a write with none");
        UnitFrameReader replies(UnitFrameReader::Replies);
        replies.feed(answer.reply.encode());
        require(replies.next().has_value(), "a reply can be read");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    const quint8 form = input.byte();
    const QByteArray stream = (form & 1) != 0 ? soundRequests(input) : input.rest();

    QString error;
    QString errorInPieces;
    const QVector<QByteArray> frames = framesOf(stream, qMax(1, stream.size()), error);
    const QVector<QByteArray> framesInPieces = framesOf(stream, 1 + (form >> 1), errorInPieces);
    require(frames == framesInPieces && error == errorInPieces,
        "the pieces of a stream make no difference");

    QString reason;
    UnitFrameReader::datagram(stream, &reason);
    answerAll(stream);
    return 0;
}
