#include "recordforms.h"

#include "tool.h"

#include <algorithm>
#include <vector>

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
    // A unit may hold a fraction of 10 ms, but none can be sent, and 16 bits are all it keeps.
    return side == FormSide::Sent ? number.toUShort() * 10 & 0xFFFF
                                  : qRound(number.toDouble() * 10);
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

/** Turns the records of one place into others. */
void replaceRecords(Difference& difference, const RecordForms& gone, const RecordForms& come)
{
    for (int i = 0; i < std::max(gone.size(), come.size()); ++i) {
        if (i >= gone.size()) {
            ++difference.added;
            difference.lines.append(
                QStringLiteral("+ %1: %2").arg(come.at(i).title, describeFields(come.at(i))));
        } else if (i >= come.size()) {
            ++difference.removed;
            difference.lines.append(
                QStringLiteral("- %1: %2").arg(gone.at(i).title, describeFields(gone.at(i))));
        } else if (gone.at(i).fields != come.at(i).fields) {
            ++difference.changed;
            difference.lines.append(
                QStringLiteral("~ %1: %2")
                    .arg(gone.at(i).title, describeChange(gone.at(i), come.at(i))));
        }
    }
}

using CommonLengths = std::vector<std::vector<int>>;

/** At [i][j] the length of the longest common subsequence of both lists from there on. */
CommonLengths commonLengths(const RecordForms& before, const RecordForms& after)
{
    const auto rows = static_cast<size_t>(before.size());
    const auto columns = static_cast<size_t>(after.size());
    CommonLengths lengths(rows + 1, std::vector<int>(columns + 1));
    for (size_t i = rows; i-- > 0;) {
        for (size_t j = columns; j-- > 0;) {
            const bool isSame =
                before.at(static_cast<int>(i)).fields == after.at(static_cast<int>(j)).fields;
            lengths[i][j] =
                isSame ? lengths[i + 1][j + 1] + 1 : std::max(lengths[i + 1][j], lengths[i][j + 1]);
        }
    }
    return lengths;
}

/** What an empty event text becomes on its way through a file or to the unit. */
bool runsOnlyEventZero(const QString& eventText)
{
    return storedEventIds(eventText, FormSide::Sent) == QList<int>{0};
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
    const QList<ComInfo> ports = model.getComInfo();
    for (ComInfo port : ports)
        forms.append({Tool::tr("serial port %1").arg(++number),
            {{Tool::tr("baud rate"), QString::number(port.getBaudRate())},
                {Tool::tr("data bits"), QString::number(port.getDataBits())},
                {Tool::tr("stop bits"), QString::number(port.getStopBits())},
                {Tool::tr("inspection"), QString::number(port.getInspectionType())}}});
    number = 0;
    const QList<IOType> types = model.getIOType();
    for (const IOType type : types)
        forms.append(
            {Tool::tr("IO line %1").arg(++number), {{Tool::tr("type"), QString::number(type)}}});
    return forms;
}

RecordForms eventForms(EventModel model, FormSide side)
{
    RecordForms forms;
    const QList<EventInfo> records = model.getEventInfo();
    for (EventInfo event : records) {
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
    const QList<TriggerInfo> records = model.getTriggerInfo();
    for (TriggerInfo trigger : records)
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
    const QList<TriggerTimeInfo> records = model.getTriggerInfo();
    for (TriggerTimeInfo trigger : records)
        forms.append({Tool::tr("time trigger %1").arg(forms.size()),
            {{Tool::tr("repeat"), repeatMode(trigger)}, {Tool::tr("from"), trigger.getStartDate()},
                {Tool::tr("until"), trigger.getEndDate()},
                {Tool::tr("weekdays"), trigger.getSelectWeekly()},
                {Tool::tr("time"), trigger.getTriggerTime()},
                {Tool::tr("events"), idText(storedEventIds(trigger.getTriggerEvent(), side))},
                {Tool::tr("description"), storedText(trigger.getTriggerInstruction())}}});
    return forms;
}

Difference comparePositions(const RecordForms& before, const RecordForms& after)
{
    Difference difference;
    replaceRecords(difference, before, after);
    return difference;
}

Difference compareLists(const RecordForms& before, const RecordForms& after)
{
    const CommonLengths common = commonLengths(before, after);
    Difference difference;
    RecordForms gone;
    RecordForms come;
    int i = 0;
    int j = 0;
    while (i < before.size() || j < after.size()) {
        const bool bothLeft = i < before.size() && j < after.size();
        if (bothLeft && before.at(i).fields == after.at(j).fields) {
            replaceRecords(difference, gone, come);
            gone.clear();
            come.clear();
            ++i;
            ++j;
        } else if (!bothLeft
                ? i < before.size()
                : common[size_t(i) + 1][size_t(j)] >= common[size_t(i)][size_t(j) + 1]) {
            gone.append(before.at(i++));
        } else {
            come.append(after.at(j++));
        }
    }
    replaceRecords(difference, gone, come);
    return difference;
}

QStringList lossesOnUnit(const Contents& contents)
{
    EventModel events = contents.events.value_or(EventModel());
    TriggerModel triggers = contents.triggers.value_or(TriggerModel());
    TriggerTimeModel timeTriggers = contents.timeTriggers.value_or(TriggerTimeModel());
    int delays = 0;
    int lines = 0;
    int empty = 0;
    const QList<EventInfo> eventRecords = events.getEventInfo();
    for (EventInfo event : eventRecords) {
        const QString text = event.getEventProtocal();
        delays += event.getEventType() == EventInfo::EVENT_DELAY
            && delayOf(text, FormSide::Sent) != delayOf(text, FormSide::Read);
    }
    const QList<TriggerInfo> triggerRecords = triggers.getTriggerInfo();
    for (TriggerInfo trigger : triggerRecords) {
        lines += lineOf(trigger, FormSide::Sent) != lineOf(trigger, FormSide::Read);
        empty += runsOnlyEventZero(trigger.getTriggerEvent());
    }
    const QList<TriggerTimeInfo> timeTriggerRecords = timeTriggers.getTriggerInfo();
    for (TriggerTimeInfo trigger : timeTriggerRecords)
        empty += runsOnlyEventZero(trigger.getTriggerEvent());

    QStringList sentences;
    const auto add = [&sentences](const QString& text, int records) {
        if (records > 0)
            sentences.append(text.arg(records));
    };
    add(Tool::tr("delays that are no whole number of 10 ms, up to 65530 ms, can't be written as "
                 "they are: %1 records"),
        delays);
    add(Tool::tr("serial triggers on COM D-3 and COM D-4 read back as COM D-4 and COM A-1: "
                 "%1 records"),
        lines);
    add(Tool::tr("triggers and time triggers without an event are written with the event 0: "
                 "%1 records"),
        empty);
    return sentences;
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
    const QList<EventInfo> eventRecords = events.getEventInfo();
    for (const EventInfo& event : eventRecords) {
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
