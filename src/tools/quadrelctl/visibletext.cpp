// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "visibletext.h"

namespace {

bool changesDirection(QChar character)
{
    const ushort code = character.unicode();
    return code == 0x61C || code == 0x200E || code == 0x200F || (code >= 0x202A && code <= 0x202E)
        || (code >= 0x2066 && code <= 0x2069);
}

bool isHarmless(QChar character)
{
    const QChar::Category category = character.category();
    return category != QChar::Other_Control && category != QChar::Separator_Line
        && category != QChar::Separator_Paragraph && !changesDirection(character);
}

QString escape(QChar character)
{
    switch (character.unicode()) {
    case '\n':
        return QStringLiteral("\\n");
    case '\r':
        return QStringLiteral("\\r");
    case '\t':
        return QStringLiteral("\\t");
    default:
        return QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
    }
}

template <typename Test> QString escapeUnless(Test stays, const QString& text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar character : text) {
        if (stays(character))
            result += character;
        else
            result += escape(character);
    }
    return result;
}

} // namespace

QString visible(const QString& text)
{
    return escapeUnless(isHarmless, text);
}

QString visibleLines(const QString& text)
{
    return escapeUnless(
        [](QChar character) { return character == QLatin1Char('\n') || isHarmless(character); },
        text);
}
