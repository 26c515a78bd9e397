// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "contentscheck.h"

#include "documenttext.h"
#include "documenttree.h"
#include "modelconversion.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSet>

namespace QuadrelDocument {

namespace {

/** The last two serial lines of triggers read back as others than were written. */
constexpr int firstUnsafeSerialLine = 14;

/** The shortest message with a checksum. */
constexpr int checksumBytes = 2;
constexpr int shortestModbusMessage = checksumBytes + 2;

QByteArray modbusChecksum(const QByteArray& message)
{
    quint16 sum = 0xFFFF;
    for (const char byte : message) {
        sum ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = static_cast<quint16>(sum & 1 ? (sum >> 1) ^ 0xA001 : sum >> 1);
    }
    return QByteArray(1, static_cast<char>(sum)) + static_cast<char>(sum >> 8);
}

bool hasLoneSurrogate(const QString& text)
{
    for (int i = 0; i < text.size(); ++i) {
        const bool isPair =
            text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (isPair)
            ++i;
        else if (text.at(i).isSurrogate())
            return true;
    }
    return false;
}

/** The UTF-16 units that the text takes on the unit: a mark at its start goes out twice. */
int storedSize(const QString& text)
{
    return text.size() + (text.startsWith(QChar(QChar::ByteOrderMark)) ? 1 : 0);
}

QString separator()
{
    return QStringLiteral("$$");
}

/** Makes the places of one record's fields. */
auto placeOf(Section section, int index)
{
    return [section, index](const char* field) {
        return Place{section, index, QString::fromLatin1(field)};
    };
}

class Checker {
public:
    Checker(const Contents& contents, const Positions& positions)
        : m_contents(contents)
        , m_positions(positions)
    {
        if (m_contents.events) {
            for (const Event& event : *m_contents.events)
                m_eventIds.insert(event.id);
        }
    }

    Findings check()
    {
        checkConfig();
        checkEvents();
        checkTableSize();
        checkTriggers();
        checkTimeTriggers();
        noteUnusedEvents();
        return m_findings;
    }

private:
    void report(Severity severity, const Place& place, const QString& text)
    {
        m_findings.append(
            {severity, place, m_positions.of(place), pathOf(place, m_contents), text});
    }
    void fail(const Place& place, const QString& text) { report(Severity::Error, place, text); }

    void failCarried(const Place& place, const QString& text)
    {
        fail(place, text);
        m_findings.last().isCarried = true;
    }

    void checkRange(const Place& place, int value, int least, int most)
    {
        if (value < least || value > most)
            fail(place,
                Text::tr("%1 is out of range; %2 to %3 are allowed")
                    .arg(value)
                    .arg(least)
                    .arg(most));
    }

    void checkConfig()
    {
        checkCount(Section::SerialPorts, m_contents.serialPorts, &Device::serialPortCount);
        checkCount(Section::IoLines, m_contents.ioLines, &Device::ioLineCount);
        const QVector<SerialPort> ports = m_contents.serialPorts.value_or(QVector<SerialPort>());
        for (int i = 0; i < ports.size(); ++i) {
            const auto place = placeOf(Section::SerialPorts, i);
            checkRange(place("dataBits"), ports.at(i).dataBits, -128, 127);
            checkRange(place("stopBits"), ports.at(i).stopBits, -128, 127);
            checkRange(place("inspection"), ports.at(i).inspection, 0, 2);
        }
        const QVector<IoLine> lines = m_contents.ioLines.value_or(QVector<IoLine>());
        for (int i = 0; i < lines.size(); ++i)
            checkRange(placeOf(Section::IoLines, i)("type"), lines.at(i).type, 0, 2);
    }

    template <typename Records>
    void checkCount(
        Section section, const std::optional<Records>& records, int Device::*countOfDevice)
    {
        if (!records || !m_contents.device)
            return;
        const int count = (*m_contents.device).*countOfDevice;
        if (records->size() != count)
            fail({section, -1, {}},
                Text::tr("there are %1, but the device has %2; as many as it has are allowed")
                    .arg(records->size())
                    .arg(count));
    }

    void checkEvents()
    {
        if (!m_contents.events)
            return;
        const QVector<Event>& events = *m_contents.events;
        if (events.size() > Limit::events)
            fail({Section::Events, -1, {}},
                Text::tr("there are %1; a unit has room for %2")
                    .arg(events.size())
                    .arg(Limit::events));
        checkIds(Section::Events, events);
        for (int i = 0; i < events.size(); ++i)
            checkEvent(i, events.at(i));
    }

    void checkEvent(int index, const Event& event)
    {
        const auto place = placeOf(Section::Events, index);
        checkRange(place("id"), event.id, 0, Limit::id);
        if (event.delay)
            checkRange(place("delay"), *event.delay, 0, Limit::delay);
        else if (isDelayCommand(event.command))
            fail(place("protocol"),
                Text::tr("a unit takes this command for a delay and forgets its first three bytes; "
                         "\"delay\" is due instead"));
        if (event.command.size() > Limit::commandBytes)
            fail(place("protocol"),
                Text::tr("%1 bytes are too many; %2 are allowed")
                    .arg(event.command.size())
                    .arg(Limit::commandBytes));
        checkText(place("description"), event.description);
        if (event.name)
            checkName(index, event);
        if (event.description.contains(separator()))
            fail(place("description"),
                Text::tr("\"$$\" is not allowed; what follows it would be read as the name"));
        checkEventSize(index, event);
    }

    void checkName(int index, const Event& event)
    {
        const auto place = placeOf(Section::Events, index);
        checkText(place("name"), *event.name);
        if (event.name->contains(separator()))
            fail(place("name"), Text::tr("\"$$\" is not allowed; a unit drops what follows it"));
        if (*event.name == EventInfo().getEventName())
            fail(place("name"),
                Text::tr(
                    "this name is read as none; another one is allowed, or leave the key out"));
        if (event.description.endsWith(separator().at(0)))
            fail(place("description"),
                Text::tr("\"$\" is not allowed at the end ahead of a name; it would be read as "
                         "part of that"));
    }

    void checkEventSize(int index, const Event& event)
    {
        const Place place = placeOf(Section::Events, index)("description");
        const QString text =
            event.name ? event.description + separator() + *event.name : event.description;
        const int size = storedSize(text);
        const int commandBytes = event.delay ? delayCommand(0).size() : event.command.size();
        if (size > Limit::eventText)
            fail(place,
                Text::tr("description and name take %1 UTF-16 units, with 2 between them if there "
                         "is a name; %2 are allowed")
                    .arg(size)
                    .arg(Limit::eventText));
        else if (commandBytes <= Limit::commandBytes && commandBytes + 2 * size > Limit::eventBytes)
            fail(place,
                Text::tr("command, description and name take %1 bytes; %2 are allowed")
                    .arg(commandBytes + 2 * size)
                    .arg(Limit::eventBytes));
    }

    void checkTableSize()
    {
        const int triggers = m_contents.triggers ? m_contents.triggers->size() : 0;
        const int timeTriggers = m_contents.timeTriggers ? m_contents.timeTriggers->size() : 0;
        if (triggers + timeTriggers > Limit::tableEntries)
            fail({triggers > 0 ? Section::Triggers : Section::TimeTriggers, -1, {}},
                Text::tr("%1 records with time triggers are too many; %2 are allowed")
                    .arg(triggers + timeTriggers)
                    .arg(Limit::tableEntries));
    }

    void checkTriggers()
    {
        const QVector<Trigger> triggers = m_contents.triggers.value_or(QVector<Trigger>());
        checkIds(Section::Triggers, triggers);
        for (int i = 0; i < triggers.size(); ++i)
            checkTrigger(i, triggers.at(i));
    }

    void checkTrigger(int index, const Trigger& trigger)
    {
        const auto place = placeOf(Section::Triggers, index);
        checkLine(place("line"), trigger);
        if (trigger.kind == TriggerKind::Io && !trigger.level)
            fail(place("parameter"),
                Text::tr("it is missing, and a unit can't store that; high or low is allowed"));
        if (trigger.parameter.size() > Limit::parameterBytes)
            fail(place("parameter"),
                Text::tr("%1 bytes are too many; %2 are allowed")
                    .arg(trigger.parameter.size())
                    .arg(Limit::parameterBytes));
        if (trigger.kind == TriggerKind::ComModbus)
            warnOfChecksum(place("parameter"), trigger.parameter);
        checkEventIds(place("eventIds"), trigger.eventIds);
        checkTriggerText(place("description"), trigger.description);
    }

    void checkLine(const Place& place, const Trigger& trigger)
    {
        const bool isSerial = trigger.kind != TriggerKind::Io;
        if (isSerial && trigger.line == unknownLine) {
            report(Severity::Note, place,
                Text::tr("it is not known; a project file has no place for that of a Modbus "
                         "trigger"));
            return;
        }
        checkRange(place, trigger.line, 0, triggerLineCount - 1);
        if (isSerial && trigger.line >= firstUnsafeSerialLine && trigger.line < triggerLineCount)
            fail(place,
                Text::tr("%1 is read back as another line; COM A-1 to COM D-2 are allowed")
                    .arg(lineLabel(trigger.kind, trigger.line)));
        else if (m_contents.device)
            warnOfLine(place, trigger,
                isSerial ? m_contents.device->serialPortCount : m_contents.device->ioLineCount);
    }

    void warnOfLine(const Place& place, const Trigger& trigger, int count)
    {
        if (trigger.line >= count && trigger.line < triggerLineCount)
            report(Severity::Warning, place,
                Text::tr("%1 is beyond the lines of the device, which has %2")
                    .arg(lineLabel(trigger.kind, trigger.line))
                    .arg(count));
    }

    void warnOfChecksum(const Place& place, const QByteArray& message)
    {
        if (message.size() < shortestModbusMessage) {
            report(Severity::Warning, place,
                Text::tr("it is too short for a Modbus message with a checksum"));
            return;
        }
        const QByteArray due = modbusChecksum(message.chopped(checksumBytes));
        if (!message.endsWith(due))
            report(Severity::Warning, place,
                Text::tr("the Modbus checksum is wrong; %1 would be right").arg(hexText(due)));
    }

    void checkTimeTriggers()
    {
        const QVector<TimeTrigger> triggers =
            m_contents.timeTriggers.value_or(QVector<TimeTrigger>());
        checkIds(Section::TimeTriggers, triggers);
        for (int i = 0; i < triggers.size(); ++i)
            checkTimeTrigger(i, triggers.at(i));
    }

    void checkTimeTrigger(int index, const TimeTrigger& trigger)
    {
        const auto place = placeOf(Section::TimeTriggers, index);
        checkDate(place("startDate"), trigger.startDate);
        if (trigger.endDate)
            checkDate(place("endDate"), *trigger.endDate);
        if (trigger.repeat == Repeat::Once && trigger.endDate != trigger.startDate)
            fail(place("endDate"),
                Text::tr("a trigger that runs once is read back with the day that it starts on; "
                         "%1 is allowed")
                    .arg(shownText(trigger.startDate)));
        if (normalTime(trigger.time) != trigger.time)
            failUnlessCarried(place("time"), trigger.time,
                Text::tr("there is no time %1; \"00:00\" to \"23:59\" are allowed")
                    .arg(shownText(trigger.time)));
        checkWeekdays(place("weekdays"), trigger.weekdays);
        checkEventIds(place("eventIds"), trigger.eventIds);
        checkTriggerText(place("description"), trigger.description);
    }

    /** Numbers of two digits go to a unit and back, whether or not there is such a day. */
    void failUnlessCarried(const Place& place, const QString& stamp, const QString& text)
    {
        static const QRegularExpression form(
            QStringLiteral("\\A(?:20(?:0|[1-9][0-9]?)/[0-9]{2}/[0-9]{2}|[0-9]{2}:[0-9]{2})\\z"));
        fail(place, text);
        m_findings.last().isCarried = form.match(stamp).hasMatch();
    }

    void checkDate(const Place& place, const QString& date)
    {
        if (normalDate(date) != date)
            failUnlessCarried(place, date,
                Text::tr("there is no day %1; days from 2000 to 2099 are allowed, such as "
                         "\"2024/03/07\"")
                    .arg(shownText(date)));
    }

    void checkWeekdays(const Place& place, const QVector<int>& weekdays)
    {
        for (int i = 0; i < weekdays.size(); ++i) {
            checkRange(place, weekdays.at(i), 1, Limit::weekdays);
            if (weekdays.indexOf(weekdays.at(i)) < i)
                fail(place, Text::tr("%1 is here already; once is allowed").arg(weekdays.at(i)));
        }
    }

    void checkEventIds(const Place& place, const QVector<int>& ids)
    {
        if (ids.isEmpty())
            fail(place,
                Text::tr("a trigger without events comes back with event 0; at least one is due"));
        if (ids.size() > Limit::eventsOfTrigger)
            fail(place,
                Text::tr("there are %1; %2 are allowed")
                    .arg(ids.size())
                    .arg(Limit::eventsOfTrigger));
        QSet<int> reported;
        for (const int id : ids) {
            const bool isNew = !reported.contains(id);
            reported.insert(id);
            if (!isNew)
                continue;
            checkRange(place, id, 0, Limit::id);
            if (m_contents.events && !m_eventIds.contains(id))
                failCarried(place,
                    Text::tr("there is no event %1; only those in \"events\" are allowed").arg(id));
        }
    }

    void checkTriggerText(const Place& place, const QString& text)
    {
        checkText(place, text);
        if (storedSize(text) > Limit::triggerDescription)
            fail(place,
                Text::tr("%1 UTF-16 units are too many; %2 are allowed")
                    .arg(storedSize(text))
                    .arg(Limit::triggerDescription));
    }

    void checkText(const Place& place, const QString& text)
    {
        if (text.contains(QChar(QChar::Null)))
            fail(place, Text::tr("U+0000 is not allowed; a unit drops it and all that follows"));
        if (hasLoneSurrogate(text))
            fail(place, Text::tr("half a surrogate pair is not allowed; only whole ones are"));
    }

    template <typename Records> void checkIds(Section section, const Records& records)
    {
        QSet<int> seen;
        for (int i = 0; i < records.size(); ++i) {
            const int id = records.at(i).id;
            if (seen.contains(id))
                failCarried(placeOf(section, i)("id"),
                    Text::tr("the id %1 is here already; once is allowed").arg(id));
            seen.insert(id);
        }
    }

    void noteUnusedEvents()
    {
        if (!m_contents.events || !m_contents.triggers || !m_contents.timeTriggers)
            return;
        QSet<int> used;
        for (const Trigger& trigger : *m_contents.triggers)
            for (const int id : trigger.eventIds)
                used.insert(id);
        for (const TimeTrigger& trigger : *m_contents.timeTriggers)
            for (const int id : trigger.eventIds)
                used.insert(id);
        for (int i = 0; i < m_contents.events->size(); ++i) {
            if (!used.contains(m_contents.events->at(i).id))
                report(Severity::Note, {Section::Events, i, {}}, Text::tr("nothing uses it"));
        }
    }

    const Contents& m_contents;
    const Positions& m_positions;
    QSet<int> m_eventIds;
    Findings m_findings;
};

} // namespace

Findings checkContents(const Contents& contents, const Positions& positions)
{
    return Checker(contents, positions).check();
}

} // namespace QuadrelDocument
