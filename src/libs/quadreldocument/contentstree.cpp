#include "contentstree.h"

namespace QuadrelDocument {

namespace {

/** So many letters in a row make a comment worth reading. */
constexpr int shortestWord = 3;

Node flag(bool value)
{
    return Node::bare(value ? QStringLiteral("true") : QStringLiteral("false"));
}

Node numbers(const QVector<int>& values)
{
    Node node = Node::sequence();
    for (const int value : values)
        node.items.push_back(Node::number(value));
    return node;
}

Node hex(const QByteArray& bytes)
{
    Node node = Node::text(hexText(bytes));
    node.comment = commentOf(bytes);
    return node;
}

Node nodeOf(const Device& device)
{
    Node node = Node::mapping();
    node.add(QStringLiteral("modelId"), Node::number(device.modelId));
    // A number of JSON would lose digits of the 64 bits.
    node.add(QStringLiteral("serialNumber"), Node::text(QString::number(device.serialNumber)));
    node.add(QStringLiteral("version"), Node::text(device.version));
    node.add(QStringLiteral("dhcp"), flag(device.dhcp));
    node.add(QStringLiteral("ip"), Node::text(device.ip));
    node.add(QStringLiteral("mask"), Node::text(device.mask));
    node.add(QStringLiteral("gateway"), Node::text(device.gateway));
    node.add(QStringLiteral("ethernetLink"), flag(device.ethernetLink));
    node.add(QStringLiteral("serialPortCount"), Node::number(device.serialPortCount));
    node.add(QStringLiteral("ioLineCount"), Node::number(device.ioLineCount));
    node.add(QStringLiteral("relayCount"), Node::number(device.relayCount));
    node.add(QStringLiteral("infraredPortCount"), Node::number(device.infraredPortCount));
    return node;
}

Node nodeOf(const SerialPort& port, int index)
{
    Node node = Node::mapping();
    node.add(QStringLiteral("port"), Node::number(index + 1));
    node.add(QStringLiteral("baudRate"), Node::number(port.baudRate));
    node.add(QStringLiteral("dataBits"), Node::number(port.dataBits));
    node.add(QStringLiteral("stopBits"), Node::number(port.stopBits));
    node.add(QStringLiteral("inspection"), Node::number(port.inspection));
    return node;
}

Node nodeOf(const IoLine& line, int index)
{
    Node node = Node::mapping();
    node.add(QStringLiteral("line"), Node::number(index + 1));
    node.add(QStringLiteral("type"), Node::number(line.type));
    return node;
}

Node nodeOf(const Event& event, int)
{
    Node node = Node::mapping();
    node.add(QStringLiteral("id"), Node::number(event.id));
    if (event.name)
        node.add(QStringLiteral("name"), Node::text(*event.name));
    node.add(QStringLiteral("type"), Node::number(event.type()));
    node.add(QStringLiteral("isHex"), flag(true));
    if (event.delay)
        node.add(QStringLiteral("delay"), Node::number(*event.delay));
    else
        node.add(QStringLiteral("protocol"), hex(event.command));
    node.add(QStringLiteral("description"), Node::text(event.description));
    return node;
}

Node nodeOf(const Trigger& trigger, int)
{
    Node node = Node::mapping();
    node.add(QStringLiteral("id"), Node::number(trigger.id));
    node.add(QStringLiteral("kind"), Node::word(kindWord(trigger.kind)));
    if (trigger.line != unknownLine)
        node.add(QStringLiteral("line"), Node::word(lineLabel(trigger.kind, trigger.line)));
    node.add(QStringLiteral("isHex"), flag(true));
    if (trigger.kind != TriggerKind::Io)
        node.add(QStringLiteral("parameter"), hex(trigger.parameter));
    else if (trigger.level)
        node.add(QStringLiteral("parameter"), Node::word(levelWord(*trigger.level)));
    node.add(QStringLiteral("eventIds"), numbers(trigger.eventIds));
    node.add(QStringLiteral("description"), Node::text(trigger.description));
    return node;
}

Node nodeOf(const TimeTrigger& trigger, int)
{
    Node node = Node::mapping();
    node.add(QStringLiteral("id"), Node::number(trigger.id));
    node.add(QStringLiteral("repeat"), Node::word(repeatWord(trigger.repeat)));
    node.add(QStringLiteral("startDate"), Node::text(trigger.startDate));
    node.add(QStringLiteral("endDate"),
        trigger.endDate ? Node::text(*trigger.endDate) : Node::word(QStringLiteral("forever")));
    node.add(QStringLiteral("weekdays"), numbers(trigger.weekdays));
    node.add(QStringLiteral("time"), Node::text(trigger.time));
    node.add(QStringLiteral("eventIds"), numbers(trigger.eventIds));
    node.add(QStringLiteral("description"), Node::text(trigger.description));
    return node;
}

template <typename Records>
void addRecords(Node& root, Section section, const std::optional<Records>& records)
{
    if (!records)
        return;
    Node sequence = Node::sequence();
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

Node treeOf(const Contents& contents)
{
    Node root = Node::mapping();
    root.add(QStringLiteral("format"), Node::word(documentFormat()));
    if (contents.device)
        root.add(sectionName(Section::Device), nodeOf(*contents.device));
    addRecords(root, Section::SerialPorts, contents.serialPorts);
    addRecords(root, Section::IoLines, contents.ioLines);
    addRecords(root, Section::Events, contents.events);
    addRecords(root, Section::Triggers, contents.triggers);
    addRecords(root, Section::TimeTriggers, contents.timeTriggers);
    if (contents.clock)
        root.add(sectionName(Section::Clock), Node::text(*contents.clock));
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

Node recordNode(const Contents& contents, Section section, int index)
{
    return visitRecords(contents, section, [index](const auto& records) {
        const bool isThere = records && index < records->size();
        return isThere ? nodeOf(records->at(index), index) : Node::mapping();
    });
}

} // namespace QuadrelDocument
