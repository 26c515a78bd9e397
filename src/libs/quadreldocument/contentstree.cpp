// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "contentstree.h"

namespace QuadrelDocument {

namespace {

/** So many letters in a row make a comment worth reading. */
constexpr int shortestWord = 3;

DocumentNode flag(bool value)
{
    return DocumentNode::bare(value ? QStringLiteral("true") : QStringLiteral("false"));
}

DocumentNode numbers(const QVector<int>& values)
{
    DocumentNode node = DocumentNode::sequence();
    for (const int value : values)
        node.items.push_back(DocumentNode::number(value));
    return node;
}

DocumentNode hex(const QByteArray& bytes)
{
    DocumentNode node = DocumentNode::text(hexText(bytes));
    node.comment = commentOf(bytes);
    return node;
}

DocumentNode nodeOf(const Device& device)
{
    DocumentNode node = DocumentNode::mapping();
    node.add(QStringLiteral("modelId"), DocumentNode::number(device.modelId));
    // A number of JSON would lose digits of the 64 bits.
    node.add(
        QStringLiteral("serialNumber"), DocumentNode::text(QString::number(device.serialNumber)));
    node.add(QStringLiteral("version"), DocumentNode::text(device.version));
    node.add(QStringLiteral("dhcp"), flag(device.dhcp));
    node.add(QStringLiteral("ip"), DocumentNode::text(device.ip));
    node.add(QStringLiteral("mask"), DocumentNode::text(device.mask));
    node.add(QStringLiteral("gateway"), DocumentNode::text(device.gateway));
    node.add(QStringLiteral("ethernetLink"), flag(device.ethernetLink));
    node.add(QStringLiteral("serialPortCount"), DocumentNode::number(device.serialPortCount));
    node.add(QStringLiteral("ioLineCount"), DocumentNode::number(device.ioLineCount));
    node.add(QStringLiteral("relayCount"), DocumentNode::number(device.relayCount));
    node.add(QStringLiteral("infraredPortCount"), DocumentNode::number(device.infraredPortCount));
    return node;
}

DocumentNode nodeOf(const SerialPort& port, int index)
{
    DocumentNode node = DocumentNode::mapping();
    node.add(QStringLiteral("port"), DocumentNode::number(index + 1));
    node.add(QStringLiteral("baudRate"), DocumentNode::number(port.baudRate));
    node.add(QStringLiteral("dataBits"), DocumentNode::number(port.dataBits));
    node.add(QStringLiteral("stopBits"), DocumentNode::number(port.stopBits));
    node.add(QStringLiteral("inspection"), DocumentNode::number(port.inspection));
    return node;
}

DocumentNode nodeOf(const IoLine& line, int index)
{
    DocumentNode node = DocumentNode::mapping();
    node.add(QStringLiteral("line"), DocumentNode::number(index + 1));
    node.add(QStringLiteral("type"), DocumentNode::number(line.type));
    return node;
}

DocumentNode nodeOf(const Event& event, int)
{
    DocumentNode node = DocumentNode::mapping();
    node.add(QStringLiteral("id"), DocumentNode::number(event.id));
    if (event.name)
        node.add(QStringLiteral("name"), DocumentNode::text(*event.name));
    node.add(QStringLiteral("type"), DocumentNode::number(event.type()));
    node.add(QStringLiteral("isHex"), flag(true));
    if (event.delay)
        node.add(QStringLiteral("delay"), DocumentNode::number(*event.delay));
    else
        node.add(QStringLiteral("protocol"), hex(event.command));
    node.add(QStringLiteral("description"), DocumentNode::text(event.description));
    return node;
}

DocumentNode nodeOf(const Trigger& trigger, int)
{
    DocumentNode node = DocumentNode::mapping();
    node.add(QStringLiteral("id"), DocumentNode::number(trigger.id));
    node.add(QStringLiteral("kind"), DocumentNode::word(kindWord(trigger.kind)));
    if (trigger.line != unknownLine)
        node.add(QStringLiteral("line"), DocumentNode::word(lineLabel(trigger.kind, trigger.line)));
    node.add(QStringLiteral("isHex"), flag(true));
    if (trigger.kind != TriggerKind::Io)
        node.add(QStringLiteral("parameter"), hex(trigger.parameter));
    else if (trigger.level)
        node.add(QStringLiteral("parameter"), DocumentNode::word(levelWord(*trigger.level)));
    node.add(QStringLiteral("eventIds"), numbers(trigger.eventIds));
    node.add(QStringLiteral("description"), DocumentNode::text(trigger.description));
    return node;
}

DocumentNode nodeOf(const TimeTrigger& trigger, int)
{
    DocumentNode node = DocumentNode::mapping();
    node.add(QStringLiteral("id"), DocumentNode::number(trigger.id));
    node.add(QStringLiteral("repeat"), DocumentNode::word(repeatWord(trigger.repeat)));
    node.add(QStringLiteral("startDate"), DocumentNode::text(trigger.startDate));
    node.add(QStringLiteral("endDate"),
        trigger.endDate ? DocumentNode::text(*trigger.endDate)
                        : DocumentNode::word(QStringLiteral("forever")));
    node.add(QStringLiteral("weekdays"), numbers(trigger.weekdays));
    node.add(QStringLiteral("time"), DocumentNode::text(trigger.time));
    node.add(QStringLiteral("eventIds"), numbers(trigger.eventIds));
    node.add(QStringLiteral("description"), DocumentNode::text(trigger.description));
    return node;
}

template <typename Records>
void addRecords(DocumentNode& root, Section section, const std::optional<Records>& records)
{
    if (!records)
        return;
    DocumentNode sequence = DocumentNode::sequence();
    for (int i = 0; i < records->size(); ++i)
        sequence.items.push_back(nodeOf(records->at(i), i));
    root.add(sectionName(section), std::move(sequence));
}

/** Calls visit() with the optional list of a section of records. */
template <typename Visit> auto visitRecords(const Contents& contents, Section section, Visit visit)
{
    switch (section) {
    case Section::SerialPorts:
        return visit(contents.serialPorts);
    case Section::IoLines:
        return visit(contents.ioLines);
    case Section::Events:
        return visit(contents.events);
    case Section::Triggers:
        return visit(contents.triggers);
    case Section::TimeTriggers:
        return visit(contents.timeTriggers);
    default:
        return visit(std::optional<QVector<IoLine>>());
    }
}

} // namespace

QString commentOf(const QByteArray& bytes)
{
    int letters = 0;
    for (const char byte : bytes) {
        letters = byte >= ' ' && byte <= '~' ? letters + 1 : 0;
        if (letters >= shortestWord)
            return escapedText(bytes);
    }
    return {};
}

QString documentFormat()
{
    return QStringLiteral("quadrel-unit/1");
}

const QVector<Section>& documentSections()
{
    static const QVector<Section> sections{Section::Device, Section::SerialPorts, Section::IoLines,
        Section::Events, Section::Triggers, Section::TimeTriggers, Section::Clock};
    return sections;
}

bool isList(Section section)
{
    return !recordKey(section).isEmpty();
}

QString recordKey(Section section)
{
    switch (section) {
    case Section::SerialPorts:
        return QStringLiteral("port");
    case Section::IoLines:
        return QStringLiteral("line");
    case Section::Events:
    case Section::Triggers:
    case Section::TimeTriggers:
        return QStringLiteral("id");
    default:
        return {};
    }
}

const QVector<Field>& fieldsOf(Section section)
{
    static const QVector<Field> none;
    static const QVector<Field> device{{QStringLiteral("modelId"), FieldType::Number, true},
        {QStringLiteral("serialNumber"), FieldType::Text, true},
        {QStringLiteral("version"), FieldType::Text, true},
        {QStringLiteral("dhcp"), FieldType::Flag, true},
        {QStringLiteral("ip"), FieldType::Text, true},
        {QStringLiteral("mask"), FieldType::Text, true},
        {QStringLiteral("gateway"), FieldType::Text, true},
        {QStringLiteral("ethernetLink"), FieldType::Flag, true},
        {QStringLiteral("serialPortCount"), FieldType::Number, true},
        {QStringLiteral("ioLineCount"), FieldType::Number, true},
        {QStringLiteral("relayCount"), FieldType::Number, true},
        {QStringLiteral("infraredPortCount"), FieldType::Number, true}};
    static const QVector<Field> serialPort{{QStringLiteral("port"), FieldType::Number, true},
        {QStringLiteral("baudRate"), FieldType::Number, true},
        {QStringLiteral("dataBits"), FieldType::Number, true},
        {QStringLiteral("stopBits"), FieldType::Number, true},
        {QStringLiteral("inspection"), FieldType::Number, true}};
    static const QVector<Field> ioLine{{QStringLiteral("line"), FieldType::Number, true},
        {QStringLiteral("type"), FieldType::Number, true}};
    static const QVector<Field> event{{QStringLiteral("id"), FieldType::Number, true},
        {QStringLiteral("name"), FieldType::Text, false},
        {QStringLiteral("type"), FieldType::Number, false},
        {QStringLiteral("isHex"), FieldType::Flag, false},
        {QStringLiteral("delay"), FieldType::Number, false},
        {QStringLiteral("protocol"), FieldType::Text, false},
        {QStringLiteral("protocolText"), FieldType::Text, false},
        {QStringLiteral("description"), FieldType::Text, false}};
    static const QVector<Field> trigger{{QStringLiteral("id"), FieldType::Number, false},
        {QStringLiteral("kind"), FieldType::Word, true},
        {QStringLiteral("line"), FieldType::Word, true},
        {QStringLiteral("isHex"), FieldType::Flag, false},
        {QStringLiteral("parameter"), FieldType::Text, false},
        {QStringLiteral("parameterText"), FieldType::Text, false},
        {QStringLiteral("eventIds"), FieldType::Numbers, true},
        {QStringLiteral("description"), FieldType::Text, false}};
    static const QVector<Field> timeTrigger{{QStringLiteral("id"), FieldType::Number, false},
        {QStringLiteral("repeat"), FieldType::Word, true},
        {QStringLiteral("startDate"), FieldType::Text, true},
        {QStringLiteral("endDate"), FieldType::Text, true},
        {QStringLiteral("weekdays"), FieldType::Numbers, false},
        {QStringLiteral("time"), FieldType::Text, true},
        {QStringLiteral("eventIds"), FieldType::Numbers, true},
        {QStringLiteral("description"), FieldType::Text, false}};
    switch (section) {
    case Section::Device:
        return device;
    case Section::SerialPorts:
        return serialPort;
    case Section::IoLines:
        return ioLine;
    case Section::Events:
        return event;
    case Section::Triggers:
        return trigger;
    case Section::TimeTriggers:
        return timeTrigger;
    case Section::None:
    case Section::Clock:
        return none;
    }
    Q_UNREACHABLE();
}

DocumentNode treeOf(const Contents& contents)
{
    DocumentNode root = DocumentNode::mapping();
    root.add(QStringLiteral("format"), DocumentNode::word(documentFormat()));
    if (contents.device)
        root.add(sectionName(Section::Device), nodeOf(*contents.device));
    addRecords(root, Section::SerialPorts, contents.serialPorts);
    addRecords(root, Section::IoLines, contents.ioLines);
    addRecords(root, Section::Events, contents.events);
    addRecords(root, Section::Triggers, contents.triggers);
    addRecords(root, Section::TimeTriggers, contents.timeTriggers);
    if (contents.clock)
        root.add(sectionName(Section::Clock), DocumentNode::text(*contents.clock));
    return root;
}

int recordCount(const Contents& contents, Section section)
{
    return visitRecords(
        contents, section, [](const auto& records) { return records ? records->size() : 0; });
}

bool hasSection(const Contents& contents, Section section)
{
    return visitRecords(contents, section, [](const auto& records) { return records.has_value(); });
}

DocumentNode recordNode(const Contents& contents, Section section, int index)
{
    return visitRecords(contents, section, [index](const auto& records) {
        const bool isThere = records && index < records->size();
        return isThere ? nodeOf(records->at(index), index) : DocumentNode::mapping();
    });
}

} // namespace QuadrelDocument
