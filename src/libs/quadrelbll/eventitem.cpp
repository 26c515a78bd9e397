// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "eventitem.h"

int EventItem::id(const QStringRef& item)
{
    const QLatin1String opening("ID:");
    const int start = item.indexOf(opening);
    const int end = item.indexOf(QLatin1Char(')'), start);
    return item.mid(start + opening.size(), end - start - opening.size()).toInt();
}
