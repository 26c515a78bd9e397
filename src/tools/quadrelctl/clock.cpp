// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "clocktext.h"
#include "commands.h"
#include "consent.h"
#include "console.h"
#include "json.h"
#include "tool.h"
#include "unitaccess.h"

#include <QtCore/QDateTime>
#include <QtCore/QRegularExpression>

namespace {

const QString now = QStringLiteral("now");

/** A time as it is typed; the framework's parser does not get along with two blanks. */
QDateTime typedTime(const QString& text)
{
    return QDateTime::fromString(text.simplified(), QStringLiteral("yyyy/MM/dd hh:mm:ss"));
}

void print(const QString& text, bool json)
{
    if (json) {
        printJson(clockToJson(text));
        return;
    }
    Console::print(clockLine(text) + QLatin1Char('\n'));
}

} // namespace

bool isClockText(const QString& text)
{
    static const QRegularExpression form(
        QStringLiteral("^20\\d\\d/\\d\\d/\\d\\d  \\d\\d:\\d\\d:\\d\\d\\z"));
    return text == now || (form.match(text).hasMatch() && typedTime(text).isValid());
}

void runClock(const ClockOptions& options)
{
    const bool isSet = !options.time.isEmpty();
    if (isSet) {
        Console::outliveReader();
        Consent::requirePossible(options.dryRun);
    }
    UnitAccess unit(options.unit);
    const QString before = *unit.run(UnitRequest::readClock()).contents.clock;
    if (!isSet) {
        print(before, options.json);
        return;
    }
    if (!options.json)
        Console::remark(Tool::tr("The clock says %1.").arg(before));
    const QString question = options.time == now ? Tool::tr("Set it to the time of this machine?")
                                                 : Tool::tr("Set it to %1?").arg(options.time);
    if (!Consent::given(question, options.dryRun))
        return;
    const QDateTime time =
        options.time == now ? QDateTime::currentDateTime() : typedTime(options.time);
    unit.run(UnitRequest::setClock(time));
    print(*unit.run(UnitRequest::readClock()).contents.clock, options.json);
}
