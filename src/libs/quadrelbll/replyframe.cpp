// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "replyframe.h"

namespace {

constexpr int dataTypeOffset = 12;
constexpr int dataLengthOffset = 16;
constexpr int minimumSize = 20;

} // namespace

ReplyFrame::Fault ReplyFrame::check(quint32 dataType, qint64 dataLength) const
{
    if (m_size < minimumSize)
        return Fault::TooShort;

    const quint32 lowHalf = wordAt(dataTypeOffset);
    const quint32 highHalf = wordAt(dataTypeOffset + 2);
    if ((highHalf << 16 | lowHalf) != dataType)
        return Fault::OtherDataType;

    if (wordAt(dataLengthOffset) != dataLength)
        return Fault::OtherDataLength;

    return Fault::None;
}

bool ReplyFrame::accept(quint32 dataType, qint64 dataLength, const QMetaObject& context,
    const FaultTexts& texts, QString& error) const
{
    switch (check(dataType, dataLength)) {
    case Fault::None:
        return true;
    case Fault::TooShort:
        error = context.tr(texts.tooShort, nullptr);
        return false;
    case Fault::OtherDataType:
        error = context.tr(texts.otherDataType, nullptr);
        return false;
    case Fault::OtherDataLength:
        error = context.tr(texts.otherDataLength, nullptr);
        return false;
    }
    Q_UNREACHABLE();
}

int ReplyFrame::payloadSize() const
{
    return m_size - minimumSize;
}

quint32 ReplyFrame::payloadDoubleWord(int offset) const
{
    return payloadWord(offset) | quint32(payloadWord(offset + 2)) << 16;
}

quint64 ReplyFrame::payloadQuadWord(int offset) const
{
    return payloadDoubleWord(offset) | quint64(payloadDoubleWord(offset + 4)) << 32;
}

QString ReplyFrame::payloadHexText(int offset, int count) const
{
    if (count <= 0)
        return {};
    constexpr char digits[] = "0123456789abcdef";
    QString text(3 * count - 1, QLatin1Char(' '));
    QChar* pair = text.data();
    for (int i = 0; i < count; ++i, pair += 3) {
        const quint8 byte = payloadByte(offset + i);
        pair[0] = QLatin1Char(digits[byte >> 4]);
        pair[1] = QLatin1Char(digits[byte & 0x0F]);
    }
    return text;
}
