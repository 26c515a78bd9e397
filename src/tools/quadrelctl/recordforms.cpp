#include "recordforms.h"

#include "tool.h"

#include <algorithm>

namespace {

constexpr int maximumEvents = 128;
constexpr int maximumTableEntries = 64;
constexpr int maximumCommandBytes = 319;
constexpr int maximumParameterBytes = 305;
constexpr int maximumEventsOfTrigger = 128;
constexpr int maximumTriggerDescription = 32;
/** Its length byte counts bytes, two to a code unit. */
constexpr int maximumEventDescription = 127;

QString idText(const QList<int>& ids)
{
    QStringList texts;
    for (const int id : ids)
        texts.append(QString::number(id));
    return texts.join(QLatin1Char(' '));
}

/** An empty event text is sent as one item without an id. */
QList<int> storedEventIds(const QString& eventText, FormSide side)
{
    return side == FormSide::Sent && eventText.isEmpty() ? QList<int>{0} : eventIds(eventText);
}

/** Texts end at a zero character on the unit. */
QString storedText(const QString& text)
{
    return text.section(QChar(0), 0, 0);
}

QByteArray hexBytes(const QString& text)
{
    return QByteArray::fromHex(text.toLatin1());
}

QString hexText(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.toHex(' '));
}

/** The delay that an event's text such as "25*10ms" means, in milliseconds. */
int delayOf(const QString& text, FormSide side)
{
    const QString number = text.size() < 5 ? text : text.left(text.size() - 5);
    // A unit may hold a fraction of 10 ms, but none can be sent.
    const double tens = side == FormSide::Sent ? number.toUShort() : number.toDouble();
    return static_cast<int>(tens * 10 + 0.5) & 0xFFFF;
}

QByteArray commandOf(EventInfo event, FormSide side)
{
    if (event.getEventType() != EventInfo::EVENT_DELAY)
        return hexBytes(event.getEventProtocal());
    const int delay = delayOf(event.getEventProtocal(), side);
    QByteArray command = QByteArray::fromHex("4c0100a5a5");
    command.append(static_cast<char>(delay >> 8));
    command.append(static_cast<char>(delay));
    return command;
}

QByteArray parameterBytes(TriggerInfo trigger)
{
    const QString text = trigger.getTriggerParameter();
    return trigger.getTriggerProtocolType() ? hexBytes(text) : text.toLatin1();
}

QString highLevel()
{
    return QCoreApplication::translate("PackageTrigger", "输入-高电平");
}

QString lowLevel()
{
    return QCoreApplication::translate("PackageTrigger", "输入-低电平");
}

QString parameterOf(TriggerInfo trigger, FormSide side)
{
    if (trigger.getTriggerType() != TriggerInfo::IO)
        return hexText(parameterBytes(trigger));
    const QString level = trigger.getTriggerParameter();
    return side == FormSide::Read || level == highLevel() ? level : lowLevel();
}

/** The last two serial lines read back as others than were written. */
QString lineOf(TriggerInfo trigger, FormSide side)
{
    if (side == FormSide::Sent && trigger.getTriggerType() != TriggerInfo::IO) {
        if (trigger.getCOMSelect() == COM_D_3)
            trigger.setCOMSelect(COM_D_4);
        else if (trigger.getCOMSelect() == COM_D_4)
            trigger.setCOMSelect(COM_A_1);
    }
    return triggerLine(trigger);
}

QString describeFields(const RecordForm& form)
{
    QStringList texts;
    for (const auto& field : form.fields)
        texts.append(QStringLiteral("%1 \"%2\"").arg(field.first, field.second));
    return texts.join(QStringLiteral(", "));
}

QString describeChange(const RecordForm& before, const RecordForm& after)
{
    QStringList texts;
    for (int i = 0; i < after.fields.size(); ++i) {
        const auto& field = after.fields.at(i);
        const QString old = before.fields.value(i).second;
        if (old != field.second)
            texts.append(QStringLiteral("%1 \"%2\" -> \"%3\"").arg(field.first, old, field.second));
    }
    return texts.join(QStringLiteral(", "));
}

QString eventFault(EventInfo event)
{
    const QString name = Tool::tr("event %1").arg(event.getEventId());
    if (commandOf(event, FormSide::Sent).size() > maximumCommandBytes)
        return Tool::tr("%1: its command has more than %2 bytes")
            .arg(name, QString::number(maximumCommandBytes));
    if (storedText(event.getEventInstruction()).size() > maximumEventDescription)
        return Tool::tr("%1: its description has more than %2 characters")
            .arg(name, QString::number(maximumEventDescription));
    return QString();
}

QString triggerFault(TriggerInfo trigger, int position)
{
    const QString name = Tool::tr("trigger %1").arg(position);
    if (trigger.getTriggerType() != TriggerInfo::IO
        && parameterBytes(trigger).size() > maximumParameterBytes)
        return Tool::tr("%1: its parameter has more than %2 bytes")
            .arg(name, QString::number(maximumParameterBytes));
    if (eventIds(trigger.getTriggerEvent()).size() > maximumEventsOfTrigger)
        return Tool::tr("%1: it runs more than %2 events")
            .arg(name, QString::number(maximumEventsOfTrigger));
    if (storedText(trigger.getTriggerInstruction()).size() > maximumTriggerDescription)
        return Tool::tr("%1: its description has more than %2 characters")
            .arg(name, QString::number(maximumTriggerDescription));
    return QString();
}

} // namespace

RecordForms configForms(SystemModel model)
{
    RecordForms forms;
    int number = 0;
    for (ComInfo port : model.getComInfo())
        forms.append({Tool::tr("serial port %1").arg(++number),
            {{Tool::tr("baud rate"), QString::number(port.getBaudRate())},
                {Tool::tr("data bits"), QString::number(port.getDataBits())},
                {Tool::tr("stop bits"), QString::number(port.getStopBits())},
                {Tool::tr("inspection"), QString::number(port.getInspectionType())}}});
    number = 0;
    for (const IOType type : model.getIOType())
        forms.append(
            {Tool::tr("IO line %1").arg(++number), {{Tool::tr("type"), QString::number(type)}}});
    return forms;
}

RecordForms eventForms(EventModel model, FormSide side)
{
    RecordForms forms;
    for (EventInfo event : model.getEventInfo()) {
        const QString description = event.getEventInstruction();
        // Behind "$$" stands a name.
        const QString stored =
            side == FormSide::Sent ? description.section(QStringLiteral("$$"), 0, 0) : description;
        forms.append({Tool::tr("event %1").arg(forms.size()),
            {{Tool::tr("id"), QString::number(event.getEventId() & 0xFF)},
                {Tool::tr("command"), hexText(commandOf(event, side))},
                {Tool::tr("description"), storedText(stored)}}});
    }
    return forms;
}

RecordForms triggerForms(TriggerModel model, FormSide side)
{
    RecordForms forms;
    for (TriggerInfo trigger : model.getTriggerInfo())
        forms.append({Tool::tr("trigger %1").arg(forms.size()),
            {{Tool::tr("kind"), triggerKind(trigger)}, {Tool::tr("line"), lineOf(trigger, side)},
                {Tool::tr("parameter"), parameterOf(trigger, side)},
                {Tool::tr("events"), idText(storedEventIds(trigger.getTriggerEvent(), side))},
                {Tool::tr("description"), storedText(trigger.getTriggerInstruction())}}});
    return forms;
}

RecordForms timeTriggerForms(TriggerTimeModel model, FormSide side)
{
    RecordForms forms;
    for (TriggerTimeInfo trigger : model.getTriggerInfo())
        forms.append({Tool::tr("time trigger %1").arg(forms.size()),
            {{Tool::tr("repeat"), repeatMode(trigger)}, {Tool::tr("from"), trigger.getStartDate()},
                {Tool::tr("until"), trigger.getEndDate()},
                {Tool::tr("weekdays"), trigger.getSelectWeekly()},
                {Tool::tr("time"), trigger.getTriggerTime()},
                {Tool::tr("events"), idText(storedEventIds(trigger.getTriggerEvent(), side))},
                {Tool::tr("description"), storedText(trigger.getTriggerInstruction())}}});
    return forms;
}

Difference compareForms(const RecordForms& before, const RecordForms& after)
{
    Difference difference;
    for (int i = 0; i < std::max(before.size(), after.size()); ++i) {
        if (i >= before.size()) {
            ++difference.added;
            difference.lines.append(
                QStringLiteral("+ %1: %2").arg(after.at(i).title, describeFields(after.at(i))));
        } else if (i >= after.size()) {
            ++difference.removed;
            difference.lines.append(
                QStringLiteral("- %1: %2").arg(before.at(i).title, describeFields(before.at(i))));
        } else if (before.at(i).fields != after.at(i).fields) {
            ++difference.changed;
            difference.lines.append(
                QStringLiteral("~ %1: %2")
                    .arg(after.at(i).title, describeChange(before.at(i), after.at(i))));
        }
    }
    return difference;
}

QString limitFault(const Contents& contents)
{
    EventModel events = contents.events.value_or(EventModel());
    TriggerModel triggers = contents.triggers.value_or(TriggerModel());
    TriggerTimeModel timeTriggers = contents.timeTriggers.value_or(TriggerTimeModel());
    if (events.size() > maximumEvents)
        return Tool::tr("a unit has room for %1 events").arg(maximumEvents);
    if (triggers.size() + timeTriggers.size() > maximumTableEntries)
        return Tool::tr("a unit has room for %1 triggers and time triggers together, not for %2")
            .arg(QString::number(maximumTableEntries),
                QString::number(triggers.size() + timeTriggers.size()));
    for (const EventInfo& event : events.getEventInfo()) {
        const QString fault = eventFault(event);
        if (!fault.isEmpty())
            return fault;
    }
    for (int i = 0; i < triggers.size(); ++i) {
        const QString fault = triggerFault(triggers.at(i), i);
        if (!fault.isEmpty())
            return fault;
    }
    return QString();
}
