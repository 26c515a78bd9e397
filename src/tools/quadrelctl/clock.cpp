// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "commands.h"
#include "consent.h"
#include "console.h"
#include "json.h"
#include "tool.h"
#include "unitaccess.h"

#include <clocktime.h>

#include <QtCore/QDateTime>
#include <QtCore/QRegularExpression>

#include <cstdlib>

namespace {

const QString now = QStringLiteral("now");

/** A time as it is typed; the framework's parser does not get along with two blanks. */
QDateTime typedTime(const QString& text)
{
    return QDateTime::fromString(text.simplified(), QStringLiteral("yyyy/MM/dd hh:mm:ss"));
}

QString describeDifference(qint64 seconds)
{
    if (seconds == 0)
        return Tool::tr("the same as this machine's");
    constexpr qint64 secondsPerDay = 86400;
    const qint64 amount = std::abs(seconds);
    const qint64 days = amount / secondsPerDay;
    const QString time = QTime(0, 0)
                             .addSecs(static_cast<int>(amount % secondsPerDay))
                             .toString(QStringLiteral("hh:mm:ss"));
    const QString length =
        days == 0 ? time : Tool::tr("%n day(s) %1", nullptr, static_cast<int>(days)).arg(time);
    return (
        seconds > 0 ? Tool::tr("%1 ahead of this machine's") : Tool::tr("%1 behind this machine's"))
        .arg(length);
}

void print(const QString& text, bool json)
{
    const QDateTime time = QuadrelWorkspace::clockTime(text);
    const qint64 difference = QDateTime::currentDateTime().secsTo(time);
    if (json) {
        QJsonObject object{{QStringLiteral("clock"), text}};
        if (time.isValid())
            object.insert(QStringLiteral("differenceSeconds"), difference);
        printJson(object);
        return;
    }
    Console::print(
        QStringLiteral("%1  (%2)\n")
            .arg(text,
                time.isValid() ? describeDifference(difference) : Tool::tr("not a real time")));
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
