// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "replyframes.h"

#include <QtCore/QRandomGenerator>
#include <QtCore/QString>

/** Random bytes that are the same in each run. */
inline QByteArray randomBytes(QRandomGenerator& random, int size)
{
    QByteArray bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random.bounded(256));
    return bytes;
}

/** A description of up to so many characters, of one code unit each, that survives a unit. */
inline QString randomDescription(QRandomGenerator& random, int longest)
{
    const QString letters = QStringLiteral("aZ0 打开灯光;:()é€");
    QString text;
    for (int i = random.bounded(longest + 1); i > 0; --i)
        text += letters.at(random.bounded(letters.size()));
    return text;
}

/**
 * Feeds a parser with replies of every size from 0 to 600: random ones, ones with a valid head, and
 * ones whose payload begins like a record of the unit, cut or prolonged to that size.
 */
template <typename Parse>
void feedRandomReplies(uint dataType, int dataLength, const QByteArray& record, Parse parse)
{
    QRandomGenerator random(20240307);
    for (int size = 0; size <= 600; ++size) {
        parse(randomBytes(random, size));

        parse(replyFrame(dataType, randomBytes(random, size), dataLength).left(size));

        QByteArray payload = record + randomBytes(random, size);
        for (int change = random.bounded(4); change > 0; --change)
            payload[random.bounded(payload.size())] = static_cast<char>(random.bounded(256));
        parse(replyFrame(dataType, payload, dataLength).left(size));
    }
}
