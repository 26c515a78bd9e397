// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "projectxml.h"

#include "documenttext.h"
#include "documenttree.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtCore/QStringList>
#include <QtCore/QXmlStreamReader>

#include <algorithm>

namespace QuadrelDocument {

namespace {

/** The text of an element within a record. */
struct Value {
    QString name;
    QString text;
    Position elementPosition;
    Position position;
};

struct Record {
    QString name;
    Position position;
    QVector<Value> values;

    const Value* value(const char* tag) const
    {
        const auto found = std::find_if(values.begin(), values.end(),
            [tag](const Value& candidate) { return candidate.name == QLatin1String(tag); });
        return found == values.end() ? nullptr : &*found;
    }
};

/** Finds lines and columns of offsets that ascend, as the parser counts them. */
class CharacterFinder {
public:
    explicit CharacterFinder(const QString& text)
        : m_text(text)
    {
    }

    Position at(int offset)
    {
        for (; m_offset < qMin(offset, m_text.size()); ++m_offset) {
            const QChar character = m_text.at(m_offset);
            if (character == QLatin1Char('\n'))
                m_position = {m_position.line + 1, 1};
            else if (!character.isLowSurrogate())
                ++m_position.column;
        }
        return m_position;
    }

private:
    const QString& m_text;
    int m_offset = 0;
    Position m_position{1, 1};
};

/** The parser compares each attribute of an element with all the others. */
constexpr int maximumAttributes = 1000;

/** The equals sign of the first attribute that is one too many; -1 if there is none. */
int offsetOfSurplusAttribute(const QString& text)
{
    int count = 0;
    for (int i = text.indexOf(QLatin1Char('=')); i >= 0;
         i = text.indexOf(QLatin1Char('='), i + 1)) {
        int next = i + 1;
        while (next < text.size() && text.at(next).isSpace())
            ++next;
        const bool isValue = next < text.size()
            && (text.at(next) == QLatin1Char('"') || text.at(next) == QLatin1Char('\''));
        if (isValue && ++count > maximumAttributes)
            return i;
    }
    return -1;
}

/** Goes through a project file and reports all that the library's reader would mistake. */
class Surveyor {
public:
    explicit Surveyor(const QByteArray& text)
        : m_text(QString::fromUtf8(text))
        , m_finder(m_text)
        , m_xml(text)
    {
        m_xml.setNamespaceProcessing(false);
    }

    ProjectXml survey()
    {
        const int surplus = offsetOfSurplusAttribute(m_text);
        if (surplus >= 0) {
            report(m_finder.at(surplus), {},
                Text::tr("more than %1 attributes; a project file has none")
                    .arg(maximumAttributes));
            return m_result;
        }
        readRoot();
        if (m_xml.hasError())
            report(positionHere(), {},
                Text::tr("this is not well-formed XML: %1").arg(m_xml.errorString()));
        else if (!hasErrors(m_result.findings) && !m_result.hasConfig && !m_result.hasEvents
            && !m_result.hasTriggers)
            report({1, 1}, {},
                Text::tr("no section of a project file has a record; Configs, Events and Triggers "
                         "are known"));
        return m_result;
    }

private:
    Position positionHere()
    {
        // After a text the reader has looked at the bracket that ends it.
        const int offset = static_cast<int>(m_xml.characterOffset());
        const bool isAhead =
            offset > 0 && offset <= m_text.size() && m_text.at(offset - 1) == QLatin1Char('<');
        return m_finder.at(isAhead ? offset - 1 : offset);
    }

    void report(Position position, const QString& path, const QString& text,
        Severity severity = Severity::Error)
    {
        // Warnings keep no error out.
        int& count = severity == Severity::Error ? m_errors : m_warnings;
        if (++count <= maximumFindings)
            m_result.findings.append({severity, {}, position, path, text});
    }

    /** What is where only elements are looked for. */
    enum class Strays { Allowed, Refused };

    /**
     * Goes to the next element within the one that is open, whose start is then `position`; false
     * at its end.
     */
    bool nextChild(Position& position, Strays comments)
    {
        for (;;) {
            position = positionHere();
            switch (m_xml.readNext()) {
            case QXmlStreamReader::StartElement:
                return true;
            case QXmlStreamReader::Characters:
                if (!m_xml.isWhitespace())
                    report(position, {}, Text::tr("text is not allowed here; only elements are"));
                break;
            case QXmlStreamReader::Comment:
            case QXmlStreamReader::ProcessingInstruction:
                if (comments == Strays::Refused)
                    report(position, {},
                        Text::tr("a comment within a record makes the reader skip the record; "
                                 "between records it is allowed"));
                break;
            case QXmlStreamReader::EndElement:
            case QXmlStreamReader::EndDocument:
            case QXmlStreamReader::Invalid:
                return false;
            default:
                break;
            }
        }
    }

    void readRoot()
    {
        while (!m_xml.atEnd() && !m_xml.isStartElement()) {
            const Position position = positionHere();
            m_xml.readNext();
            if (m_xml.isDTD()) {
                report(position, {}, Text::tr("a document type has no place in a project file"));
                return;
            }
        }
        QStringList seen;
        Position position;
        while (!m_xml.atEnd() && nextChild(position, Strays::Allowed)) {
            const QString name = m_xml.qualifiedName().toString();
            const bool isSection = QStringList{QStringLiteral("Configs"), QStringLiteral("Events"),
                QStringLiteral("Triggers")}
                                       .contains(name);
            if (isSection && seen.contains(name)) {
                report(position, name,
                    Text::tr("this section is here already; a second one is never read"));
                m_xml.skipCurrentElement();
            } else if (isSection) {
                seen.append(name);
                readSection(name);
            } else {
                if (name != QLatin1String("Device"))
                    report(position, {},
                        Text::tr("the element %1 is never read; Device, Configs, Events and "
                                 "Triggers are known")
                            .arg(shownText(name)),
                        Severity::Warning);
                m_xml.skipCurrentElement();
            }
        }
    }

    void readSection(const QString& section)
    {
        Position position;
        while (nextChild(position, Strays::Allowed)) {
            const Record record = readRecord(position);
            if (section == QLatin1String("Configs"))
                checkConfig(record);
            else if (section == QLatin1String("Events"))
                checkEvent(record);
            else
                checkTrigger(record);
        }
    }

    Record readRecord(Position position)
    {
        Record record;
        record.name = m_xml.qualifiedName().toString();
        record.position = position;
        Position child;
        while (nextChild(child, Strays::Refused)) {
            Value value;
            value.name = m_xml.qualifiedName().toString();
            value.elementPosition = child;
            value.position = positionHere();
            value.text = readText();
            record.values.append(value);
        }
        return record;
    }

    /** The text of the open element up to its end; blanks alone count as none. */
    QString readText()
    {
        QString text;
        for (;;) {
            const Position position = positionHere();
            switch (m_xml.readNext()) {
            case QXmlStreamReader::Characters:
                text += m_xml.text();
                break;
            case QXmlStreamReader::StartElement:
                report(position, {},
                    Text::tr("the element %1 is not allowed here; only text is")
                        .arg(shownText(m_xml.qualifiedName().toString())));
                m_xml.skipCurrentElement();
                break;
            case QXmlStreamReader::EndElement:
            case QXmlStreamReader::EndDocument:
            case QXmlStreamReader::Invalid:
                return text.trimmed().isEmpty() ? QString() : text;
            default:
                break;
            }
        }
    }

    /** Whether the record has exactly these elements; reports what is wrong. */
    bool acceptElements(const Record& record, const QString& path, const QStringList& due)
    {
        const int before = m_errors;
        QStringList seen;
        for (const Value& value : record.values) {
            if (!due.contains(value.name))
                report(value.elementPosition, path,
                    Text::tr("the element %1 makes the reader skip the record; allowed are %2")
                        .arg(shownText(value.name), due.join(QStringLiteral(", "))));
            else if (seen.contains(value.name))
                report(value.elementPosition, path,
                    Text::tr("the element \"%1\" is here already; once is allowed")
                        .arg(value.name));
            else
                seen.append(value.name);
        }
        for (const QString& name : due) {
            if (!seen.contains(name))
                report(record.position, path,
                    Text::tr("the element \"%1\" is missing, and the reader would skip the record")
                        .arg(name));
        }
        return m_errors == before;
    }

    bool acceptName(const Record& record, const QStringList& allowed)
    {
        if (allowed.contains(record.name))
            return true;
        report(record.position, {},
            Text::tr("%1 is not a record of this section; allowed are %2")
                .arg(shownText(record.name), allowed.join(QStringLiteral(", "))));
        return false;
    }

    /** Notes where a value is. */
    void place(const Record& record, const Place& place, const char* element)
    {
        m_result.positions.insert({place.section, -1, {}}, record.position);
        m_result.positions.insert({place.section, place.index, {}}, record.position);
        if (const Value* value = record.value(element))
            m_result.positions.insert(place, value->position);
    }

    void checkNumber(
        const Record& record, const QString& path, const char* element, qint64 least, qint64 most)
    {
        static const QRegularExpression form(QStringLiteral("\\A[-+]?[0-9]{1,10}\\z"));
        const Value* value = record.value(element);
        if (!value)
            return;
        const QString text = value->text.trimmed();
        const qint64 number = text.toLongLong();
        if (!form.match(text).hasMatch() || number < least || number > most)
            report(value->position, path,
                Text::tr("%1 in %2 is not allowed; a whole number from %3 to %4 is")
                    .arg(shownText(value->text), QLatin1String(element), QString::number(least),
                        QString::number(most)));
    }

    void checkWord(
        const Record& record, const QString& path, const char* element, const QStringList& allowed)
    {
        const Value* value = record.value(element);
        if (!value || allowed.contains(value->text))
            return;
        QStringList words;
        for (const QString& word : allowed)
            words.append(shownText(word));
        report(value->position, path,
            Text::tr("%1 in %2 is not allowed; allowed are %3")
                .arg(shownText(value->text), QLatin1String(element),
                    words.join(QStringLiteral(", "))));
    }

    void checkHex(const Record& record, const QString& path)
    {
        const Value* value = record.value("Protocol");
        if (value && !bytesOfHex(value->text))
            report(value->position, path,
                Text::tr("%1 in Protocol is not allowed; pairs of the digits 0 to 9 and a to f "
                         "are, such as \"4c 01 00\"")
                    .arg(shownText(value->text)));
    }

    void checkConfig(const Record& record)
    {
        if (!acceptName(record, {QStringLiteral("COM"), QStringLiteral("IO")}))
            return;
        m_result.hasConfig = true;
        if (record.name == QLatin1String("COM"))
            checkPort(record);
        else
            checkLine(record);
    }

    void checkPort(const Record& record)
    {
        const int index = m_ports++;
        const QString path = QStringLiteral("serialPorts[%1]").arg(index + 1);
        acceptElements(record, path,
            {QStringLiteral("BaudRate"), QStringLiteral("DataBits"), QStringLiteral("StopBits"),
                QStringLiteral("InspectionType")});
        checkNumber(record, path, "BaudRate", -2147483648LL, 2147483647LL);
        checkNumber(record, path, "DataBits", -128, 127);
        checkNumber(record, path, "StopBits", -128, 127);
        checkNumber(record, path, "InspectionType", 0, 2);
        place(record, {Section::SerialPorts, index, QStringLiteral("baudRate")}, "BaudRate");
        place(record, {Section::SerialPorts, index, QStringLiteral("dataBits")}, "DataBits");
        place(record, {Section::SerialPorts, index, QStringLiteral("stopBits")}, "StopBits");
        place(
            record, {Section::SerialPorts, index, QStringLiteral("inspection")}, "InspectionType");
    }

    void checkLine(const Record& record)
    {
        const int index = m_lines++;
        const QString path = QStringLiteral("ioLines[%1]").arg(index + 1);
        acceptElements(record, path, {QStringLiteral("Model")});
        checkNumber(record, path, "Model", 0, 2);
        place(record, {Section::IoLines, index, QStringLiteral("type")}, "Model");
    }

    void checkEvent(const Record& record)
    {
        if (!acceptName(record, {QStringLiteral("EventInfo")}))
            return;
        m_result.hasEvents = true;
        const int index = m_events++;
        const Value* id = record.value("ID");
        const QString path = id ? QStringLiteral("events[%1]").arg(id->text.trimmed().left(8))
                                : QStringLiteral("events");
        if (index == Limit::events)
            report(record.position, QStringLiteral("events"),
                Text::tr("the reader skips all records from here on; %1 are allowed")
                    .arg(Limit::events));
        acceptElements(record, path,
            {QStringLiteral("ID"), QStringLiteral("EventType"), QStringLiteral("ProtocolType"),
                QStringLiteral("Protocol"), QStringLiteral("Instruction")});
        checkNumber(record, path, "ID", 0, Limit::id);
        checkDoubledId(record, path);
        checkWord(record, path, "EventType",
            {QStringLiteral("Deal"), QStringLiteral("Delay"), QString()});
        checkProtocolType(record, path);
        const Value* type = record.value("EventType");
        const bool isDelay = type && type->text == QLatin1String("Delay");
        if (isDelay)
            checkDelay(record, path);
        else
            checkHex(record, path);
        place(record, {Section::Events, index, QStringLiteral("id")}, "ID");
        place(record, {Section::Events, index, QStringLiteral("type")}, "EventType");
        place(record,
            {Section::Events, index,
                isDelay ? QStringLiteral("delay") : QStringLiteral("protocol")},
            "Protocol");
        place(record, {Section::Events, index, QStringLiteral("description")}, "Instruction");
    }

    void checkDoubledId(const Record& record, const QString& path)
    {
        const Value* value = record.value("ID");
        if (!value)
            return;
        const int id = value->text.trimmed().toInt();
        if (m_eventIds.contains(id))
            report(value->position, path,
                Text::tr("the id %1 is here already; once is allowed").arg(id));
        m_eventIds.insert(id);
    }

    void checkProtocolType(const Record& record, const QString& path)
    {
        checkWord(record, path, "ProtocolType", {QStringLiteral("Hex"), QStringLiteral("ASCII")});
    }

    void checkDelay(const Record& record, const QString& path)
    {
        static const QRegularExpression form(
            QStringLiteral("\\A([0-9]{1,4}(?:\\.[0-9])?)\\*10ms\\z"));
        const Value* value = record.value("Protocol");
        if (!value)
            return;
        const QRegularExpressionMatch match = form.match(value->text);
        if (!match.hasMatch() || qRound(match.captured(1).toDouble() * 10) > Limit::delay)
            report(value->position, path,
                Text::tr("%1 in Protocol is not a delay; \"0*10ms\" to \"6553.5*10ms\" are allowed")
                    .arg(shownText(value->text)));
    }

    void checkTrigger(const Record& record)
    {
        if (!acceptName(record, {QStringLiteral("TriggerInfo")}))
            return;
        m_result.hasTriggers = true;
        const int index = m_triggers++;
        const QString path = QStringLiteral("triggers[%1]").arg(index);
        if (isModbus(record))
            takeModbus(record, path, index);
        else
            checkPlainTrigger(record, path);
        checkProtocolType(record, path);
        checkEventList(record, path);
        place(record, {Section::Triggers, index, QStringLiteral("kind")}, "TriggerType");
        place(record, {Section::Triggers, index, QStringLiteral("line")}, "COM");
        place(record, {Section::Triggers, index, QStringLiteral("line")}, "IO");
        place(record, {Section::Triggers, index, QStringLiteral("parameter")}, "Protocol");
        place(record, {Section::Triggers, index, QStringLiteral("eventIds")}, "Event");
        place(record, {Section::Triggers, index, QStringLiteral("description")}, "Instruction");
    }

    /** The library writes such a record without the elements that distinguish the others. */
    static bool isModbus(const Record& record)
    {
        return record.values.size() == 4 && !record.value("TriggerType") && !record.value("COM")
            && !record.value("IO");
    }

    void takeModbus(const Record& record, const QString& path, int index)
    {
        const bool isWhole = acceptElements(record, path, elementsOfAllTriggers());
        checkParameter(record, path);
        if (!isWhole)
            return;
        TriggerInfo trigger;
        trigger.setTriggerType(TriggerInfo::COM_MODBUS);
        trigger.setTriggerProtocolType(
            record.value("ProtocolType")->text != QLatin1String("ASCII"));
        trigger.setTriggerParameter(record.value("Protocol")->text);
        trigger.setTriggerEvent(record.value("Event")->text);
        trigger.setTriggerInstruction(record.value("Instruction")->text);
        m_result.modbusTriggers.insert(index, trigger);
    }

    static QStringList elementsOfAllTriggers()
    {
        return {QStringLiteral("ProtocolType"), QStringLiteral("Protocol"),
            QStringLiteral("Instruction"), QStringLiteral("Event")};
    }

    void checkPlainTrigger(const Record& record, const QString& path)
    {
        if (m_plainTriggers++ == Limit::tableEntries)
            report(record.position, QStringLiteral("triggers"),
                Text::tr("the reader skips all records from here on; %1 are allowed")
                    .arg(Limit::tableEntries));
        const Value* type = record.value("TriggerType");
        const QString io = QStringLiteral("IO");
        const bool isIo = type ? type->text == io : record.value("IO") != nullptr;
        const QString selector = isIo ? io : QStringLiteral("COM");
        acceptElements(record, path,
            QStringList{QStringLiteral("TriggerType"), selector} + elementsOfAllTriggers());
        checkWord(record, path, "TriggerType", {QStringLiteral("COM"), io});
        checkLabel(record, path, isIo ? "IO" : "COM", isIo ? TriggerKind::Io : TriggerKind::Com);
        if (isIo)
            checkWord(record, path, "Protocol",
                {QStringLiteral("输入-高电平"), QStringLiteral("输入-低电平"), QString()});
        else
            checkParameter(record, path);
    }

    void checkLabel(
        const Record& record, const QString& path, const char* element, TriggerKind kind)
    {
        const Value* value = record.value(element);
        if (!value)
            return;
        for (int line = 0; line < triggerLineCount; ++line) {
            if (value->text == lineLabel(kind, line))
                return;
        }
        report(value->position, path,
            Text::tr("%1 in %2 is not allowed; %3 to %4 are")
                .arg(shownText(value->text), QLatin1String(element), lineLabel(kind, 0),
                    lineLabel(kind, triggerLineCount - 1)));
    }

    /** Bytes, or characters that are bytes. */
    void checkParameter(const Record& record, const QString& path)
    {
        const Value* type = record.value("ProtocolType");
        const Value* value = record.value("Protocol");
        if (!type || type->text != QLatin1String("ASCII")) {
            checkHex(record, path);
            return;
        }
        const auto isByte = [](QChar character) { return character.unicode() <= 0xFF; };
        if (value && !std::all_of(value->text.begin(), value->text.end(), isByte))
            report(value->position, path,
                Text::tr("%1 in Protocol is not allowed; characters up to U+00FF are")
                    .arg(shownText(value->text)));
    }

    /** Items with an id after "ID:"; a name may come before it. */
    void checkEventList(const Record& record, const QString& path)
    {
        static const QRegularExpression form(QStringLiteral("\\A[^;]*?ID:([0-9]{1,3})\\z"));
        const Value* value = record.value("Event");
        if (!value || value->text.isEmpty())
            return;
        const QStringList items = value->text.split(QLatin1Char(';'));
        for (const QString& item : items) {
            const QRegularExpressionMatch match = form.match(item);
            if (!match.hasMatch() || match.captured(1).toInt() > Limit::id)
                report(value->position, path,
                    Text::tr("%1 in Event is not allowed; items from \"ID:0\" to \"ID:255\" with "
                             "\";\" between them are")
                        .arg(shownText(item)));
        }
    }

    const QString m_text;
    CharacterFinder m_finder;
    QXmlStreamReader m_xml;
    ProjectXml m_result;
    QSet<int> m_eventIds;
    int m_errors = 0;
    int m_warnings = 0;
    int m_ports = 0;
    int m_lines = 0;
    int m_events = 0;
    int m_triggers = 0;
    int m_plainTriggers = 0;
};

} // namespace

ProjectXml surveyProject(const QByteArray& text)
{
    return Surveyor(text).survey();
}

int sizeOfXmlCharacter(const QString& text, int index)
{
    const QChar character = text.at(index);
    const bool isPair = character.isHighSurrogate() && index + 1 < text.size()
        && text.at(index + 1).isLowSurrogate();
    if (isPair)
        return 2;
    const ushort unit = character.unicode();
    const bool isBlank = unit == '\t' || unit == '\n' || unit == '\r';
    return isBlank || (unit >= ' ' && unit <= 0xFFFD && !character.isSurrogate()) ? 1 : 0;
}

} // namespace QuadrelDocument
