// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "clocktime.h"

#include <QtCore/QRegularExpression>

namespace QuadrelWorkspace {

QDateTime clockTime(const QString& text)
{
    static const QRegularExpression form(
        QStringLiteral("^20(\\d{1,3})/(\\d+)/(\\d+) (\\d+):(\\d+):(\\d+)$"));
    const QRegularExpressionMatch match = form.match(text);
    const auto number = [&match](int group) { return match.captured(group).toInt(); };
    const QDate date(2000 + number(1), number(2), number(3));
    const QTime time(number(4), number(5), number(6));
    return match.hasMatch() && date.isValid() && time.isValid() ? QDateTime(date, time)
                                                                : QDateTime();
}

} // namespace QuadrelWorkspace
