// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "descriptiontext.h"

#include "recordblock.h"
#include "replyframe.h"

#include <QtCore/QTextCodec>
#include <QtCore/QtEndian>

#include <algorithm>

namespace {

const QTextCodec& utf8Codec()
{
    static const QTextCodec* const codec = QTextCodec::codecForName("utf-8");
    return *codec;
}

/** Whether UTF-8 and back gives the very same text, so that the way there can be spared. */
bool survivesUtf8(const QString& text)
{
    const bool startsWithMark = text.startsWith(QChar::ByteOrderMark);
    return !startsWithMark && std::none_of(text.begin(), text.end(), [](QChar unit) {
        return unit.isNull() || unit.isSurrogate();
    });
}

} // namespace

QString DescriptionText::untilNul(const QString& text)
{
    return survivesUtf8(text) ? text : utf8Codec().toUnicode(text.toUtf8().constData());
}

QString DescriptionText::withNuls(const QString& text)
{
    return survivesUtf8(text) ? text : utf8Codec().toUnicode(text.toUtf8());
}

void DescriptionText::store(RecordBlock& block, int offset, const QString& text)
{
    QByteArray bytes(2 * text.size(), Qt::Uninitialized);
    qToBigEndian<quint16>(text.utf16(), text.size(), bytes.data());
    block.storeByte(offset, bytes.size());
    block.storeBytes(offset + 1, bytes);
}

QString DescriptionText::read(const ReplyFrame& frame, int offset, int byteCount)
{
    if (byteCount <= 0)
        return {};
    QString text((byteCount + 1) / 2, Qt::Uninitialized);
    QChar* unit = text.data();
    const int end = offset + byteCount;
    for (; offset + 1 < end; offset += 2)
        *unit++ = QChar(frame.payloadByte(offset) << 8 | frame.payloadByte(offset + 1));
    if (offset < end)
        *unit = QChar(frame.payloadByte(offset));

    // The codec's own way to UTF-8 is not QString's: it drops an open surrogate at the end.
    if (survivesUtf8(text))
        return text;
    return QString::fromUtf8(utf8Codec().fromUnicode(text).constData());
}
