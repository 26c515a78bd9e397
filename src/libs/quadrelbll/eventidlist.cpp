// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "eventidlist.h"

#include "eventitem.h"
#include "replyframe.h"

#include <QtCore/QVector>

QByteArray EventIdList::fromText(const QString& text)
{
    QByteArray ids;
    const QVector<QStringRef> items = text.splitRef(QLatin1Char(';'));
    for (const QStringRef& item : items)
        ids.append(static_cast<char>(EventItem::id(item)));
    return ids;
}

QString EventIdList::read(const ReplyFrame& frame, int offset, int count, const Words& words)
{
    QString text;
    for (int i = 0; i < count; ++i) {
        if (i > 0)
            text += words.separator;
        text += words.opening;
        text += QString::number(frame.payloadByte(offset + i));
        text += words.closing;
    }
    return text;
}
