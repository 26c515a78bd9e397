// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "usagetext.h"

#include "tool.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>

namespace {

/** Puts the parts in the place of %1 to %9, and nothing in the place of a "%1" within a part. */
QString fillIn(const QString& text, const QStringList& parts)
{
    QString result;
    for (int i = 0; i < text.size(); ++i) {
        const int number = text.at(i) == QLatin1Char('%') ? text.midRef(i + 1, 1).toInt() : 0;
        if (number == 0) {
            result += text.at(i);
            continue;
        }
        result += parts.value(number - 1);
        ++i;
    }
    return result;
}

} // namespace

QString usageText(const QString& complaint)
{
    struct Form {
        const char* pattern;
        QString text;
    };
    const Form forms[] = {
        {"^A subcommand is required$", Tool::tr("a command is required")},
        {"^Exactly 1 option from \\[(.+)\\] is required.*",
            Tool::tr("exactly one of these is required: %1")},
        {"^--unit is required$",
            Tool::tr("--unit is missing: the address of the unit, as in --unit 192.168.1.10 "
                     "(\"quadrelctl discover\" lists the units of the network)")},
        {"^(.+) is required$", Tool::tr("%1 is required")},
        {"^(.+): 1 required .+ missing$", Tool::tr("%1: its argument is missing")},
        {"^The following arguments? .+ not expected: (.+)$", Tool::tr("not expected: %1")},
        {"^(.+): (.+) not in \\{(.+)\\}$", Tool::tr("%1: %2 is none of %3")},
    };
    for (const Form& form : forms) {
        const auto match = QRegularExpression(QString::fromLatin1(form.pattern)).match(complaint);
        if (!match.hasMatch())
            continue;
        return fillIn(form.text, match.capturedTexts().mid(1));
    }
    return complaint;
}
