// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "differenceview.h"

#include <QtCore/QStringList>

using namespace QuadrelDocument;

namespace {

/** Of a record's head line; the lines of its fields look the same. */
Style styleOf(const QString& head)
{
    if (head.startsWith(QLatin1Char('+')))
        return Style::Added;
    return head.startsWith(QLatin1Char('-')) ? Style::Removed : Style::Changed;
}

} // namespace

Page differencePage(const Difference& difference)
{
    return differencePage(differenceText(difference));
}

Page differencePage(const QString& text)
{
    Page page;
    const QStringList lines = text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    Style style = Style::Plain;
    for (const QString& line : lines) {
        if (!line.startsWith(QLatin1Char(' ')))
            style = styleOf(line);
        page.append({line, style});
    }
    return page;
}
