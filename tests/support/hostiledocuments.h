// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "hostilefiles.h"

/** Documents and project files that cost their reader far more than their size, each of `size`. */
inline QVector<HostileFile> hostileDocuments(int size)
{
    const QByteArray format = "format: quadrel-unit/1\n";
    /** A long comment makes up for what the reader's bound on values leaves. */
    const auto padded = [size](const QByteArray& text) {
        return text + '#' + QByteArray(qMax(0, size - text.size() - 1), 'x');
    };
    const int keys = 40000;
    const EqualHashes equal;
    QString equalKeys;
    for (int i = 0; i < keys; ++i)
        equalKeys += equal.name(i) + QStringLiteral(": 1\n");
    QByteArray attributes;
    for (int i = 0; i < size / 12; ++i)
        attributes += " b" + QByteArray::number(i) + "=''";
    return {
        {"brackets.yaml", QByteArray(size, '[')},
        {"keys without a value.yaml", padded('{' + QByteArray("a,").repeated(keys) + "}\n")},
        {"keys without a colon.yaml", padded(QByteArray("? a\n").repeated(keys))},
        {"keys with equal hashes.yaml", padded(format + equalKeys.toUtf8())},
        {"lines of a text.yaml", format + "a: |\n" + QByteArray("  x\n").repeated(size / 4)},
        {"quotes.yaml", format + "a: '" + QByteArray("''").repeated(size / 2 - 20) + "'\n"},
        {"escapes.json", "{\"format\":\"" + QByteArray("\\u0041").repeated(size / 6 - 4) + "\"}"},
        {"sections.xml",
            filledXml(size / 2, "<a/>", "<R>", "") + filledXml(size / 2, "<Events/>", "", "</R>")},
        {"elements.xml",
            filledXml(size / 2, "<a/>", "<R><Events><EventInfo>", "")
                + filledXml(size / 2, "<ID/>", "", "</EventInfo></Events></R>")},
        {"events.xml",
            filledXml(size, "a;", "<R><Triggers><TriggerInfo><Event>",
                "</Event></TriggerInfo></Triggers></R>")},
        {"attributes.xml", "<R" + attributes + "/>"},
    };
}
