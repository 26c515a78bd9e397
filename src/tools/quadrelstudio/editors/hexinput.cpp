// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "hexinput.h"

namespace {

bool isHexDigit(QChar character)
{
    const ushort code = character.unicode();
    return (code >= '0' && code <= '9') || (code >= 'a' && code <= 'f')
        || (code >= 'A' && code <= 'F');
}

/** The "0x" or "\x" at `position` and before a digit. */
bool hasPrefix(const QString& text, int position)
{
    const QStringRef mark = text.midRef(position, 2);
    const bool isMark = mark.compare(QLatin1String("0x"), Qt::CaseInsensitive) == 0
        || mark.compare(QLatin1String("\\x"), Qt::CaseInsensitive) == 0;
    return isMark && position + 2 < text.size() && isHexDigit(text.at(position + 2));
}

int endOfDigits(const QString& text, int position)
{
    while (position < text.size() && isHexDigit(text.at(position)) && !hasPrefix(text, position))
        ++position;
    return position;
}

} // namespace

HexInput HexInput::fromText(const QString& text)
{
    HexInput input;
    int position = 0;
    while (position < text.size()) {
        const bool isMarked = hasPrefix(text, position);
        if (isMarked)
            position += 2;
        const int end = endOfDigits(text, position);
        const int count = end - position;
        const bool isOneByte = isMarked && count == 1;
        if (count % 2 != 0 && !isOneByte) {
            input.bytes += QByteArray::fromHex(text.midRef(position, count - 1).toLatin1());
            return {input.bytes, end - 1, 1, true};
        }
        if (count == 0 && text.at(position).isLetterOrNumber())
            return {input.bytes, position, 1, false};
        const QByteArray digits = text.midRef(position, count).toLatin1();
        input.bytes += QByteArray::fromHex(isOneByte ? '0' + digits : digits);
        position = count == 0 ? position + 1 : end;
    }
    return input;
}
