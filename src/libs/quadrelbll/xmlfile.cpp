// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "xmlfile.h"

#include <QtCore/QDebug>
#include <QtCore/QFile>
#include <QtCore/QRegExp>
#include <QtCore/QStringList>
#include <QtCore/QTextStream>
#include <QtXml/QDomDocument>

#include <functional>

#include "guardedxml.h"

namespace {

// The values of a record; one that has another number of them is skipped.
constexpr int eventChildren = 5;
constexpr int triggerChildren = 6;
constexpr int portChildren = 4;
constexpr int lineChildren = 1;

// The limits of what a unit holds; the readers keep them, the writers do not.
constexpr int maximumEvents = 128;
constexpr int maximumTriggers = 64;

constexpr int indentation = 4;

// The translated words are looked up once for each file, not for each record.

struct ProtocolWords {
    const QString hex = XmlFile::tr("Hex");
    const QString ascii = XmlFile::tr("ASCII");

    const QString& word(bool isHex) const { return isHex ? hex : ascii; }

    bool isHex(const QString& word, bool otherwise) const
    {
        if (word == hex)
            return true;
        if (word == ascii)
            return false;
        return otherwise;
    }
};

struct EventWords {
    const QString deal = XmlFile::tr("Deal");
    const QString delay = XmlFile::tr("Delay");

    QString word(EventInfo::EventType type) const
    {
        switch (type) {
        case EventInfo::EVENT_TYPE_0:
            return deal;
        case EventInfo::EVENT_DELAY:
            return delay;
        default:
            return QString();
        }
    }

    EventInfo::EventType type(const QString& word, EventInfo::EventType otherwise) const
    {
        if (word == deal)
            return EventInfo::EVENT_TYPE_0;
        if (word == delay)
            return EventInfo::EVENT_DELAY;
        return otherwise;
    }
};

struct TriggerWords {
    const QString com = XmlFile::tr("COM");
    const QString io = XmlFile::tr("IO");
    const QString eventOpening = XmlFile::tr("事件(");
    const QString eventClosing = XmlFile::tr(")");
    // Of an event text these characters are never written, wherever they are.
    const QRegExp notWritten{QStringLiteral("[事件()]")};

    // The position of a label is the value of its line.
    const QStringList comLabels{
        XmlFile::tr("COM A-1"),
        XmlFile::tr("COM A-2"),
        XmlFile::tr("COM A-3"),
        XmlFile::tr("COM A-4"),
        XmlFile::tr("COM B-1"),
        XmlFile::tr("COM B-2"),
        XmlFile::tr("COM B-3"),
        XmlFile::tr("COM B-4"),
        XmlFile::tr("COM C-1"),
        XmlFile::tr("COM C-2"),
        XmlFile::tr("COM C-3"),
        XmlFile::tr("COM C-4"),
        XmlFile::tr("COM D-1"),
        XmlFile::tr("COM D-2"),
        XmlFile::tr("COM D-3"),
        XmlFile::tr("COM D-4"),
    };
    const QStringList ioLabels{
        XmlFile::tr("IO A-1"),
        XmlFile::tr("IO A-2"),
        XmlFile::tr("IO A-3"),
        XmlFile::tr("IO A-4"),
        XmlFile::tr("IO B-1"),
        XmlFile::tr("IO B-2"),
        XmlFile::tr("IO B-3"),
        XmlFile::tr("IO B-4"),
        XmlFile::tr("IO C-1"),
        XmlFile::tr("IO C-2"),
        XmlFile::tr("IO C-3"),
        XmlFile::tr("IO C-4"),
        XmlFile::tr("IO D-1"),
        XmlFile::tr("IO D-2"),
        XmlFile::tr("IO D-3"),
        XmlFile::tr("IO D-4"),
    };
};

void appendValue(
    QDomDocument& document, QDomElement& record, const QString& name, const QString& text)
{
    QDomElement element = document.createElement(name);
    element.appendChild(document.createTextNode(text));
    record.appendChild(element);
}

void appendNumber(QDomDocument& document, QDomElement& record, const QString& name, int number)
{
    appendValue(document, record, name, QString::number(number, 10));
}

QString textOf(const QDomNode& record, const QString& name)
{
    return record.namedItem(name).toElement().text();
}

int numberOf(const QDomNode& record, const QString& name)
{
    return textOf(record, name).toInt(nullptr, 10);
}

// The framework logs a warning of its own about a path that no file can have.
bool openFile(QFile& file, QIODevice::OpenMode mode)
{
    const QString path = file.fileName();
    return !path.isEmpty() && !path.contains(QChar(QChar::Null)) && file.open(mode);
}

bool parse(QDomDocument& document, QFile& file, QString* error)
{
    return setContentGuarded(document, file,
        {XmlFile::tr("XML嵌套层数过多！"), XmlFile::tr("XML实体过大！"),
            XmlFile::tr("XML节点过多！")},
        error);
}

QDomElement appendFrame(QDomDocument& document)
{
    document.appendChild(document.createProcessingInstruction(
        QStringLiteral("xml"), QStringLiteral("version=\"1.0\" encoding=\"UTF-8\"")));

    QDomElement root = document.createElement(QStringLiteral("DataPackage"));
    root.setAttribute(
        QStringLiteral("xmlns:xsi"), QStringLiteral("http://www.w3.org/2001/XMLSchema-instance"));
    root.setAttribute(
        QStringLiteral("xmlns:xsd"), QStringLiteral("http://www.w3.org/2001/XMLSchema"));
    document.appendChild(root);

    appendValue(document, root, QStringLiteral("Device"), QStringLiteral("Zorbe 3100"));
    return root;
}

using FillSection = std::function<void(QDomDocument& document, QDomElement& section)>;

bool writeSection(const QString& path, bool append, const QString& name, const FillSection& fill)
{
    QDomDocument document;
    QDomElement root;
    QFile file(path);
    if (append) {
        if (!openFile(file, QIODevice::ReadOnly))
            return false;
        const bool parsed = parse(document, file, nullptr);
        file.close();
        if (!parsed)
            return false;
        root = document.documentElement();
    } else {
        if (!openFile(file, QIODevice::WriteOnly | QIODevice::Truncate))
            return false;
        root = appendFrame(document);
    }

    QDomElement section = document.createElement(name);
    fill(document, section);
    root.appendChild(section);

    if (append && !openFile(file, QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    QTextStream stream(&file);
    document.save(stream, indentation, QDomNode::EncodingFromDocument);
    stream.flush();
    file.close();
    return true;
}

bool loadDocument(
    const QString& path, const QString& emptyRoot, QDomDocument& document, QString& error)
{
    QFile file(path);
    if (!openFile(file, QIODevice::ReadOnly | QIODevice::Text)) {
        error = XmlFile::tr("打开文件失败！");
        return false;
    }
    if (!parse(document, file, &error))
        return false;
    // GCOVR_EXCL_START: no document is null that this framework's parser has accepted.
    if (document.isNull()) {
        error = XmlFile::tr("XML节点为空！");
        return false;
    }
    // GCOVR_EXCL_STOP
    if (!document.documentElement().hasChildNodes()) {
        error = emptyRoot;
        return false;
    }
    return true;
}

struct SectionTexts {
    QString name;
    QString emptyRoot;
    QString noSection;
};

// The nodes of a section live as long as its document.
bool loadSection(const QString& path, const SectionTexts& texts, QDomDocument& document,
    QDomNode& section, QString& error)
{
    if (!loadDocument(path, texts.emptyRoot, document, error))
        return false;
    section = document.documentElement().namedItem(texts.name);
    if (!section.hasChildNodes()) {
        error = texts.noSection;
        return false;
    }
    return true;
}

void appendEvent(QDomDocument& document, QDomElement& section, EventInfo event,
    const EventWords& words, const ProtocolWords& protocolWords)
{
    QDomElement record = document.createElement(QStringLiteral("EventInfo"));
    appendNumber(document, record, QStringLiteral("ID"), event.getEventId());
    appendValue(document, record, QStringLiteral("EventType"), words.word(event.getEventType()));
    appendValue(document, record, QStringLiteral("ProtocolType"),
        protocolWords.word(event.getEventProtocolType()));
    appendValue(document, record, QStringLiteral("Protocol"), event.getEventProtocal());
    appendValue(document, record, QStringLiteral("Instruction"), event.getEventInstruction());
    section.appendChild(record);
}

// A kind without a word leaves both values out, so that no reader takes the record.
void appendSelector(
    QDomDocument& document, QDomElement& record, TriggerInfo& trigger, const TriggerWords& words)
{
    if (trigger.getTriggerType() == TriggerInfo::COM) {
        appendValue(document, record, QStringLiteral("TriggerType"), words.com);
        appendValue(
            document, record, QStringLiteral("COM"), words.comLabels.value(trigger.getCOMSelect()));
    } else if (trigger.getTriggerType() == TriggerInfo::IO) {
        appendValue(document, record, QStringLiteral("TriggerType"), words.io);
        appendValue(
            document, record, QStringLiteral("IO"), words.ioLabels.value(trigger.getIOSelect()));
    }
}

void appendTrigger(QDomDocument& document, QDomElement& section, TriggerInfo trigger,
    const TriggerWords& words, const ProtocolWords& protocolWords)
{
    QDomElement record = document.createElement(QStringLiteral("TriggerInfo"));
    appendSelector(document, record, trigger, words);
    appendValue(document, record, QStringLiteral("ProtocolType"),
        protocolWords.word(trigger.getTriggerProtocolType()));
    appendValue(document, record, QStringLiteral("Protocol"), trigger.getTriggerParameter());
    appendValue(document, record, QStringLiteral("Instruction"), trigger.getTriggerInstruction());
    appendValue(document, record, QStringLiteral("Event"),
        trigger.getTriggerEvent().replace(words.notWritten, QString()));
    section.appendChild(record);
}

void appendPort(QDomDocument& document, QDomElement& section, ComInfo port)
{
    QDomElement record = document.createElement(QStringLiteral("COM"));
    appendNumber(document, record, QStringLiteral("BaudRate"), port.getBaudRate());
    appendNumber(document, record, QStringLiteral("DataBits"), port.getDataBits());
    appendNumber(document, record, QStringLiteral("StopBits"), port.getStopBits());
    appendNumber(document, record, QStringLiteral("InspectionType"), port.getInspectionType());
    section.appendChild(record);
}

void appendLine(QDomDocument& document, QDomElement& section, IOType line)
{
    QDomElement record = document.createElement(QStringLiteral("IO"));
    appendNumber(document, record, QStringLiteral("Model"), line);
    section.appendChild(record);
}

EventInfo eventFrom(
    const QDomNode& record, const EventWords& words, const ProtocolWords& protocolWords)
{
    EventInfo event;
    event.setEventId(numberOf(record, QStringLiteral("ID")));
    event.setEventType(
        words.type(textOf(record, QStringLiteral("EventType")), event.getEventType()));
    event.setEventProtocolType(protocolWords.isHex(
        textOf(record, QStringLiteral("ProtocolType")), event.getEventProtocolType()));
    event.setEventProtocol(textOf(record, QStringLiteral("Protocol")));
    event.setEventInstruction(textOf(record, QStringLiteral("Instruction")));
    return event;
}

void readSelector(const QDomNode& record, const TriggerWords& words, TriggerInfo& trigger)
{
    const QString kind = textOf(record, QStringLiteral("TriggerType"));
    if (kind == words.com) {
        trigger.setTriggerType(TriggerInfo::COM);
        const int line = words.comLabels.indexOf(textOf(record, QStringLiteral("COM")));
        if (line >= 0)
            trigger.setCOMSelect(static_cast<COMSelect>(line));
    } else if (kind == words.io) {
        trigger.setTriggerType(TriggerInfo::IO);
        const int line = words.ioLabels.indexOf(textOf(record, QStringLiteral("IO")));
        if (line >= 0)
            trigger.setIOSelect(static_cast<IOSelect>(line));
    }
}

// An empty text has one item too: an empty one. A list of the items would fill many times as much.
QString eventListFrom(const QString& text, const TriggerWords& words)
{
    const QString between = words.eventClosing + QLatin1Char(';') + words.eventOpening;
    QString list = words.eventOpening;
    for (const QChar c : text) {
        if (c == QLatin1Char(';'))
            list += between;
        else
            list += c;
    }
    return list + words.eventClosing;
}

TriggerInfo triggerFrom(
    const QDomNode& record, const TriggerWords& words, const ProtocolWords& protocolWords)
{
    TriggerInfo trigger;
    readSelector(record, words, trigger);
    trigger.setTriggerProtocolType(protocolWords.isHex(
        textOf(record, QStringLiteral("ProtocolType")), trigger.getTriggerProtocolType()));
    trigger.setTriggerParameter(textOf(record, QStringLiteral("Protocol")));
    trigger.setTriggerInstruction(textOf(record, QStringLiteral("Instruction")));
    trigger.setTriggerEvent(eventListFrom(textOf(record, QStringLiteral("Event")), words));
    return trigger;
}

ComInfo portFrom(const QDomNode& record)
{
    ComInfo port;
    port.setBaudRate(numberOf(record, QStringLiteral("BaudRate")));
    port.setDataBits(numberOf(record, QStringLiteral("DataBits")));
    port.setStopBits(numberOf(record, QStringLiteral("StopBits")));
    switch (numberOf(record, QStringLiteral("InspectionType"))) {
    case INSPECTION_1:
        port.setInspectionType(INSPECTION_1);
        break;
    case INSPECTION_2:
        port.setInspectionType(INSPECTION_2);
        break;
    default:
        port.setInspectionType(INSPECTION_NONE);
        break;
    }
    return port;
}

// A line with an unknown setting keeps its place in the list, as the one with both bytes 0.
IOType lineFrom(const QDomNode& record)
{
    switch (numberOf(record, QStringLiteral("Model"))) {
    case IO_TYPE_0:
        return IO_TYPE_0;
    case IO_TYPE_1:
        return IO_TYPE_1;
    default:
        return IO_TYPE_2;
    }
}

} // namespace

XmlFile::XmlFile(QObject* parent)
    : QObject(parent)
{
}

bool XmlFile::writeEventXmlFile(const QString& path, EventModel model, bool append)
{
    const auto fill = [&model](QDomDocument& document, QDomElement& section) {
        const EventWords words;
        const ProtocolWords protocolWords;
        const QList<EventInfo> events = model.getEventInfo();
        for (const EventInfo& event : events)
            appendEvent(document, section, event, words, protocolWords);
    };
    return writeSection(path, append, QStringLiteral("Events"), fill);
}

bool XmlFile::readEventXmlFile(const QString& path, EventModel& model, QString& error)
{
    const SectionTexts texts{
        QStringLiteral("Events"), tr("文件中无事件数据！"), tr("文件中不存在事件数据！")};
    QDomDocument document;
    QDomNode section;
    if (!loadSection(path, texts, document, section, error))
        return false;

    const EventWords words;
    const ProtocolWords protocolWords;
    QList<EventInfo> events;
    QList<int> ids;
    for (QDomNode record = section.firstChild(); !record.isNull() && events.size() < maximumEvents;
         record = record.nextSibling()) {
        if (record.childNodes().size() != eventChildren)
            continue;
        EventInfo event = eventFrom(record, words, protocolWords);
        if (ids.contains(event.getEventId())) {
            error = tr("事件ID重复！");
            return false;
        }
        ids.append(event.getEventId());
        events.append(event);
    }
    model.setEventInfo(events);
    return true;
}

bool XmlFile::writeTriggerXmlFile(const QString& path, TriggerModel model, bool append)
{
    const auto fill = [&model](QDomDocument& document, QDomElement& section) {
        const TriggerWords words;
        const ProtocolWords protocolWords;
        const QList<TriggerInfo> triggers = model.getTriggerInfo();
        for (const TriggerInfo& trigger : triggers)
            appendTrigger(document, section, trigger, words, protocolWords);
    };
    return writeSection(path, append, QStringLiteral("Triggers"), fill);
}

bool XmlFile::readTriggerXmlFile(const QString& path, TriggerModel& model, QString& error)
{
    const SectionTexts texts{
        QStringLiteral("Triggers"), tr("文件中无触发数据！"), tr("文件中不存在触发数据！")};
    QDomDocument document;
    QDomNode section;
    if (!loadSection(path, texts, document, section, error))
        return false;

    QMessageLogger("src/libs/quadrelbll/xmlfile", 0,
        "static bool XmlFile::readTriggerXmlFile(const QString&, TriggerModel&, QString&)")
            .debug()
        << "Trigger Num:" << section.childNodes().size();

    const TriggerWords words;
    const ProtocolWords protocolWords;
    QList<TriggerInfo> triggers;
    for (QDomNode record = section.firstChild();
         !record.isNull() && triggers.size() < maximumTriggers; record = record.nextSibling()) {
        if (record.childNodes().size() == triggerChildren)
            triggers.append(triggerFrom(record, words, protocolWords));
    }
    model.setTriggerInfo(triggers);
    return true;
}

bool XmlFile::writeConfigXmlFile(const QString& path, SystemModel model, bool append)
{
    const auto fill = [&model](QDomDocument& document, QDomElement& section) {
        const QList<ComInfo> ports = model.getComInfo();
        for (const ComInfo& port : ports)
            appendPort(document, section, port);
        const QList<IOType> lines = model.getIOType();
        for (const IOType line : lines)
            appendLine(document, section, line);
    };
    return writeSection(path, append, QStringLiteral("Configs"), fill);
}

bool XmlFile::readConfigXmlFile(const QString& path, SystemModel& model, QString& error)
{
    // The words of the trigger reader; this section has none of its own.
    const SectionTexts texts{
        QStringLiteral("Configs"), tr("文件中无触发数据！"), tr("文件中不存在触发数据！")};
    QDomDocument document;
    QDomNode section;
    if (!loadSection(path, texts, document, section, error))
        return false;

    QList<ComInfo> ports;
    QList<IOType> lines;
    for (QDomNode record = section.firstChild(); !record.isNull(); record = record.nextSibling()) {
        const QString name = record.nodeName();
        if (name == QLatin1String("COM")) {
            if (record.childNodes().size() == portChildren)
                ports.append(portFrom(record));
        } else if (name == QLatin1String("IO")) {
            if (record.childNodes().size() == lineChildren)
                lines.append(lineFrom(record));
        }
    }
    model.setComInfo(ports);
    model.setIOType(lines);
    return true;
}

bool XmlFile::readUpdateConfigFile(
    const QString& path, QString& moduleId, QString& version, QString& error)
{
    QDomDocument document;
    // The words of the trigger reader; a descriptor has none of its own.
    if (!loadDocument(path, tr("文件中无触发数据！"), document, error))
        return false;
    for (QDomNode node = document.documentElement().firstChild(); !node.isNull();
         node = node.nextSibling()) {
        const QString name = node.nodeName();
        if (name == QLatin1String("ModuleID"))
            moduleId = node.toElement().text();
        else if (name == QLatin1String("Version"))
            version = node.toElement().text();
    }
    return true;
}
