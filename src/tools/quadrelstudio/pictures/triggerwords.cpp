// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "triggerwords.h"

#include "editors/unitdates.h"
#include "editors/weekdays.h"

#include <readabletext.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>

using namespace QuadrelDocument;

namespace TriggerWords {

namespace {

/** Tool tips and boxes show no more of a command. */
constexpr int shownBytes = 48;
constexpr int shownEvents = 16;

class Words {
    Q_DECLARE_TR_FUNCTIONS(TriggerWords)
};

/** "2024-03-07"; what is no day as it is. */
QString day(const QString& stamp)
{
    const QDate date = UnitDates::dateOf(stamp);
    return date.isValid() ? date.toString(Qt::ISODate) : stamp;
}

/** What of the bytes reads as text, or else all of them as digits. */
QString shortened(const QByteArray& bytes)
{
    const QByteArray text = longestText(bytes);
    const QByteArray shown = text.isEmpty() ? bytes : text;
    const QByteArray start = shown.left(shownBytes);
    const QString words = text.isEmpty() ? hexText(start) : escapedText(start);
    return shown.size() > shownBytes ? words + QStringLiteral("…") : words;
}

QStringList eventLines(const QVector<int>& ids, const EventNames& names)
{
    if (ids.isEmpty())
        return {Words::tr("Runs nothing")};
    QStringList lines{Words::tr("Runs:")};
    for (const int id : ids.mid(0, shownEvents))
        lines.append(QStringLiteral("    ") + names.title(id));
    if (ids.size() > shownEvents)
        lines.append(Words::tr("    and %n more", "events", ids.size() - shownEvents));
    return lines;
}

QString joined(QStringList lines)
{
    lines.removeAll(QString());
    return lines.join(QLatin1Char('\n'));
}

QString levelText(const std::optional<Level>& level)
{
    if (!level)
        return Words::tr("no level");
    return *level == Level::High ? Words::tr("high") : Words::tr("low");
}

} // namespace

QString days(const TimeTrigger& trigger, Qt::DayOfWeek firstWeekday)
{
    switch (trigger.repeat) {
    case Repeat::EveryDay:
        return Words::tr("every day");
    case Repeat::Once:
        return Words::tr("once");
    case Repeat::Weekly:
        break;
    }
    QStringList names;
    for (const int number : trigger.weekdays)
        names.append(Weekdays::isDay(number)
                ? Weekdays::shortName(Weekdays::dayOf(number, firstWeekday))
                : QString::number(number));
    return names.isEmpty() ? Words::tr("weekly, on no day") : names.join(QStringLiteral(", "));
}

QString range(const TimeTrigger& trigger)
{
    if (trigger.repeat == Repeat::Once)
        return Words::tr("on %1").arg(day(trigger.startDate));
    return trigger.endDate
        ? Words::tr("from %1 until %2").arg(day(trigger.startDate), day(*trigger.endDate))
        : Words::tr("from %1, forever").arg(day(trigger.startDate));
}

QString title(const TimeTrigger& trigger, const EventNames& names)
{
    const QString description = trigger.description.simplified();
    if (!description.isEmpty())
        return description;
    QStringList titles;
    for (const int id : trigger.eventIds.mid(0, shownEvents))
        titles.append(names.title(id));
    return titles.join(QStringLiteral(", "));
}

QString toolTip(const TimeTrigger& trigger, const EventNames& names, Qt::DayOfWeek firstWeekday)
{
    const QString times =
        QStringLiteral("%1, %2, %3").arg(trigger.time, days(trigger, firstWeekday), range(trigger));
    return joined(QStringList{trigger.description, times} + eventLines(trigger.eventIds, names));
}

QString cause(const Trigger& trigger)
{
    QString label = lineLabel(trigger.kind, trigger.line);
    if (label.isEmpty())
        label = Words::tr("%1, unknown line").arg(lineKind(trigger.kind));
    switch (trigger.kind) {
    case TriggerKind::Com:
        return label;
    case TriggerKind::ComModbus:
        return Words::tr("%1 Modbus").arg(label);
    case TriggerKind::Io:
        return QStringLiteral("%1 %2").arg(label, levelText(trigger.level));
    }
    Q_UNREACHABLE();
}

QString detail(const Trigger& trigger)
{
    const QString description = trigger.description.simplified();
    if (!description.isEmpty() || trigger.kind == TriggerKind::Io)
        return description;
    return shortened(trigger.parameter);
}

QString toolTip(const Trigger& trigger, const EventNames& names)
{
    const bool waitsForBytes = trigger.kind != TriggerKind::Io;
    const QString awaited =
        waitsForBytes ? Words::tr("Waits for: %1").arg(shortened(trigger.parameter)) : QString();
    return joined(QStringList{cause(trigger), trigger.description, awaited}
        + eventLines(trigger.eventIds, names));
}

QString action(const Event& event)
{
    const Event normal = normalEvent(event);
    return normal.delay ? Words::tr("waits %1 ms").arg(*normal.delay) : shortened(event.command);
}

QString toolTip(const Event& event)
{
    return joined({EventNames({event}).title(event.id), event.description, action(event)});
}

QString drive(TriggerMap::Drive drive)
{
    switch (drive) {
    case TriggerMap::Drive::Serial:
        return Words::tr("Serial ports");
    case TriggerMap::Drive::Modbus:
        return Words::tr("Modbus");
    case TriggerMap::Drive::Io:
        return Words::tr("IO lines");
    case TriggerMap::Drive::Infrared:
        return Words::tr("Infra-red");
    case TriggerMap::Drive::Relay:
        return Words::tr("Relays");
    case TriggerMap::Drive::Control:
        return Words::tr("The unit itself");
    case TriggerMap::Drive::Wait:
        return Words::tr("A delay");
    case TriggerMap::Drive::Other:
        return Words::tr("Other commands");
    }
    Q_UNREACHABLE();
}

QString reason(WeekPlan::Reason reason, const TimeTrigger& trigger)
{
    switch (reason) {
    case WeekPlan::Reason::NoSuchTime:
        return Words::tr("never: there is no time “%1”").arg(trigger.time);
    case WeekPlan::Reason::NoSuchStart:
        return Words::tr("never: there is no day “%1”").arg(trigger.startDate);
    case WeekPlan::Reason::NoSuchEnd:
        return Words::tr("unknown: there is no day “%1”").arg(trigger.endDate.value_or(QString()));
    case WeekPlan::Reason::EndsBeforeItBegins:
        return Words::tr("never: it ends before it begins");
    case WeekPlan::Reason::NoWeekday:
        return Words::tr("never: it has no weekday");
    case WeekPlan::Reason::BeginsLater:
        return Words::tr("begins later, on %1").arg(day(trigger.startDate));
    case WeekPlan::Reason::HasEnded:
        return Words::tr("has ended, on %1")
            .arg(day(trigger.repeat == Repeat::Once ? trigger.startDate
                                                    : trigger.endDate.value_or(QString())));
    case WeekPlan::Reason::OtherDays:
        return Words::tr("on none of its days");
    }
    Q_UNREACHABLE();
}

} // namespace TriggerWords
