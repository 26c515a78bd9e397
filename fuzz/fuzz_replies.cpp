// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "exchange.h"
#include "fuzzinput.h"
#include "fuzzsetup.h"
#include "replyreader.h"
#include "unitframe.h"

#include <QtCore/QVector>

using namespace QuadrelFrame;
using QuadrelUnit::UnitFrame;

namespace {

QByteArray bytesOf(const FrameView& frame)
{
    return QByteArray(frame.bytes(), static_cast<int>(frame.size()));
}

/** Replies with a checksum that is right, which no mutation would find. */
QByteArray soundReplies(FuzzInput& input)
{
    QByteArray stream;
    while (!input.isEmpty()) {
        UnitFrame frame;
        frame.kind = (input.byte() & 1) != 0 ? ReadReply : WriteReply;
        frame.label = input.byte();
        frame.address = 0xF0000000U + input.word();
        frame.dataLength = input.byte();
        frame.payload = input.bytes(input.byte());
        stream += frame.encode();
    }
    return stream;
}

QVector<QByteArray> framesOf(const QByteArray& stream, int pieceSize, ReplyReader::Fault& fault)
{
    ReplyReader reader;
    QVector<QByteArray> frames;
    for (int position = 0; position < stream.size(); position += pieceSize) {
        const QByteArray piece = stream.mid(position, pieceSize);
        reader.append(piece.constData(), piece.size());
        while (const auto frame = reader.takeFrame())
            frames.append(bytesOf(*frame));
    }
    fault = reader.fault();
    return frames;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    const quint8 form = input.byte();
    const Exchange exchange(
        UnitFrame::readRequest(input.byte(), 0xF0000000U + input.word(), input.byte()).encode());
    const QByteArray stream = (form & 1) != 0 ? soundReplies(input) : input.rest();

    ReplyReader::Fault fault = ReplyReader::NoFault;
    ReplyReader::Fault faultInPieces = ReplyReader::NoFault;
    const QVector<QByteArray> frames = framesOf(stream, qMax(1, stream.size()), fault);
    require(frames == framesOf(stream, 1 + (form >> 1), faultInPieces) && fault == faultInPieces,
        "the pieces of a stream make no difference");
    for (const QByteArray& frame : frames) {
        const FrameView view(frame.constData(), static_cast<std::size_t>(frame.size()));
        if (exchange.judge(view) == Exchange::Verdict::Answer)
            require(view.payloadSize() == exchange.view().dataLength()
                    && frame.size() == headSize + exchange.view().dataLength() + trailerSize,
                "an answer has as many bytes as were asked for");
    }

    ReplyReader datagram;
    datagram.appendDatagram(stream.constData(), stream.size());
    if (const auto frame = datagram.takeFrame())
        require(bytesOf(*frame) == stream, "a datagram is one frame");
    return 0;
}
