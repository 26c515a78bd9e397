// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "contentstree.h"
#include "documenttext.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSet>

#include <algorithm>
#include <limits>

namespace QuadrelDocument {

namespace {

/** Ids of triggers are only names. */
constexpr int maximumTriggerId = 65535;

QString withoutQuotes(QString text)
{
    text.remove(0, 1);
    return text.remove(text.lastIndexOf(QLatin1Char('"')), 1);
}

/** What was found, as it was written, fit for a message of one line. */
QString shown(const DocumentNode& node)
{
    switch (node.kind) {
    case DocumentNode::Kind::Scalar:
        if (node.isNull())
            return Text::tr("nothing");
        return node.isQuoted ? shownText(node.value) : withoutQuotes(shownText(node.value));
    case DocumentNode::Kind::Sequence:
        return Text::tr("a list");
    case DocumentNode::Kind::Mapping:
        return Text::tr("a record");
    }
    Q_UNREACHABLE();
}

/** A whole number without quotes. */
std::optional<qint64> wholeNumber(const DocumentNode& node)
{
    static const QRegularExpression form(QStringLiteral("\\A-?(?:0|[1-9][0-9]{0,17})\\z"));
    if (node.kind != DocumentNode::Kind::Scalar || node.isQuoted
        || !form.match(node.value).hasMatch())
        return std::nullopt;
    return node.value.toLongLong();
}

/** Collects what a document says and what is wrong with it. */
class ContentsReader {
public:
    Document read(const DocumentNode& root);

private:
    friend class RecordReader;

    void report(Position position, const QString& path, const QString& text)
    {
        if (m_document.findings.size() < maximumFindings)
            m_document.findings.append({Severity::Error, {}, position, path, text});
    }

    void readSection(Section section, const DocumentNode& node);
    template <typename Record>
    QVector<Record> readRecords(Section section, const DocumentNode& node);
    template <typename Record>
    QVector<Record> readNumbered(Section section, const DocumentNode& node);
    bool acceptList(Section section, const DocumentNode& node);

    Document m_document;
};

/** The fields of the device or of one record. */
class RecordReader {
public:
    RecordReader(ContentsReader& reader, Place place, const DocumentNode& node)
        : m_reader(reader)
        , m_place(std::move(place))
        , m_node(node)
        , m_path(pathOfRecord())
    {
        m_reader.m_document.positions.insert(m_place, node.position);
        if (node.kind != DocumentNode::Kind::Mapping)
            m_reader.report(node.position, m_path,
                Text::tr("%1 is not allowed; a record with keys is due").arg(shown(node)));
        else
            checkKeys();
    }

    /** Without keys there is nothing to read and nothing more to report. */
    bool isRecord() const { return m_node.kind == DocumentNode::Kind::Mapping; }

    bool has(const char* key) const { return m_node.member(QLatin1String(key)) != nullptr; }

    void fail(const char* key, const QString& text) const
    {
        const DocumentNode::Member* member = m_node.member(QLatin1String(key));
        m_reader.report(member ? member->value.position : m_node.position,
            m_path + QLatin1Char('.') + QLatin1String(key), text);
    }

    void read(const char* key, int least, int most, int& target) const
    {
        const DocumentNode* value = valueOf(key);
        if (!value)
            return;
        const std::optional<qint64> number = wholeNumber(*value);
        if (number && *number >= least && *number <= most)
            target = static_cast<int>(*number);
        else
            fail(key,
                Text::tr("%1 is not allowed; a whole number from %2 to %3 is")
                    .arg(shown(*value), QString::number(least), QString::number(most)));
    }

    void read(const char* key, bool& target) const
    {
        const DocumentNode* value = valueOf(key);
        if (!value)
            return;
        const bool isFlag = value->kind == DocumentNode::Kind::Scalar && !value->isQuoted
            && (value->value == QLatin1String("true") || value->value == QLatin1String("false"));
        if (isFlag)
            target = value->value == QLatin1String("true");
        else
            fail(key, Text::tr("%1 is not allowed; true or false is").arg(shown(*value)));
    }

    /** Absent if the key is missing or its value is not text. */
    std::optional<QString> text(const char* key) const
    {
        const DocumentNode* value = valueOf(key);
        if (!value)
            return std::nullopt;
        if (value->kind != DocumentNode::Kind::Scalar || value->isNull()) {
            fail(key, Text::tr("%1 is not allowed; a text is, \"\" for none").arg(shown(*value)));
            return std::nullopt;
        }
        return value->value;
    }

    void read(const char* key, QString& target) const { target = text(key).value_or(target); }

    /** A text that `parse` turns into a value, or else `allowed` says what it should be. */
    template <typename Value, typename Parse>
    bool read(const char* key, Parse parse, const QString& allowed, Value& target) const
    {
        const std::optional<QString> given = text(key);
        if (!given)
            return false;
        const std::optional<Value> value = parse(*given);
        if (value)
            target = *value;
        else
            fail(key, Text::tr("%1 is not allowed; %2").arg(shownText(*given), allowed));
        return value.has_value();
    }

    void read(const char* key, int least, int most, QVector<int>& target) const
    {
        const DocumentNode* value = valueOf(key);
        if (!value)
            return;
        if (value->kind != DocumentNode::Kind::Sequence) {
            fail(key, Text::tr("%1 is not allowed; a list such as [1, 2] is").arg(shown(*value)));
            return;
        }
        for (const DocumentNode& item : value->items) {
            const std::optional<qint64> number = wholeNumber(item);
            if (number && *number >= least && *number <= most)
                target.append(static_cast<int>(*number));
            else
                m_reader.report(item.position, m_path + QLatin1Char('.') + QLatin1String(key),
                    Text::tr("%1 is not allowed; whole numbers from %2 to %3 are")
                        .arg(shown(item), QString::number(least), QString::number(most)));
        }
    }

    /** The bytes of `hexKey` or of `textKey`. */
    void readBytes(const char* hexKey, const char* textKey, QByteArray& target) const
    {
        if (has(hexKey) && has(textKey))
            fail(textKey,
                Text::tr("\"%1\" and \"%2\" are not allowed together; one of them is")
                    .arg(QLatin1String(hexKey), QLatin1String(textKey)));
        read(hexKey, bytesOfHex,
            Text::tr("pairs of the digits 0 to 9 and a to f are, such as \"4c 01 00\""), target);
        read(textKey, bytesOfEscapedText,
            Text::tr("characters up to U+00FF are, and the escapes \\\\ \\r \\n \\t \\0 \\xHH"),
            target);
    }

    /** The value is always hexadecimal, and says so. */
    void readIsHex() const
    {
        bool isHex = true;
        read("isHex", isHex);
        if (!isHex)
            fail("isHex", Text::tr("false is not allowed; texts have a key of their own"));
    }

private:
    QString pathOfRecord() const
    {
        const QString name = sectionName(m_place.section);
        const DocumentNode::Member* key = m_node.member(recordKey(m_place.section));
        const std::optional<qint64> number = key ? wholeNumber(key->value) : std::nullopt;
        return number ? QStringLiteral("%1[%2]").arg(name).arg(*number) : name;
    }

    void checkKeys()
    {
        const QVector<Field>& fields = fieldsOf(m_place.section);
        QStringList allowed;
        for (const Field& field : fields) {
            allowed.append(field.key);
            if (field.isRequired && !m_node.member(field.key))
                m_reader.report(
                    m_node.position, m_path, Text::tr("the key \"%1\" is missing").arg(field.key));
        }
        QSet<QString> seen;
        for (const DocumentNode::Member& member : m_node.members) {
            if (!allowed.contains(member.key))
                m_reader.report(member.keyPosition, m_path,
                    Text::tr("%1 is not a key here; allowed are %2")
                        .arg(shownText(member.key), allowed.join(QStringLiteral(", "))));
            else if (seen.contains(member.key))
                m_reader.report(member.keyPosition, m_path,
                    Text::tr("the key \"%1\" is here already; once is allowed").arg(member.key));
            else
                m_reader.m_document.positions.insert(
                    {m_place.section, m_place.index, meaningOf(member.key)}, member.value.position);
            // Hostile keys may all have the same hash.
            if (allowed.contains(member.key))
                seen.insert(member.key);
        }
    }

    /** The key under which the contents hold the value. */
    static QString meaningOf(QString key)
    {
        if (key == QLatin1String("protocolText") || key == QLatin1String("parameterText"))
            key.chop(4);
        return key;
    }

    const DocumentNode* valueOf(const char* key) const
    {
        const DocumentNode::Member* member = m_node.member(QLatin1String(key));
        return member ? &member->value : nullptr;
    }

    ContentsReader& m_reader;
    const Place m_place;
    const DocumentNode& m_node;
    const QString m_path;
};

std::optional<quint64> serialNumberOf(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("\\A[0-9]{1,20}\\z"));
    bool isNumber = false;
    const quint64 number = text.toULongLong(&isNumber);
    return isNumber && form.match(text).hasMatch() ? std::optional<quint64>(number) : std::nullopt;
}

std::optional<QString> dottedBytes(const QString& text)
{
    static const QRegularExpression form(QStringLiteral(
        "\\A(?:(?:25[0-5]|2[0-4][0-9]|1[0-9][0-9]|[1-9]?[0-9])(?:\\.(?!\\z)|\\z)){4}\\z"));
    return form.match(text).hasMatch() ? std::optional<QString>(text) : std::nullopt;
}

/** The value whose word is given. */
template <typename Value>
auto amongWords(QString (*wordOf)(Value value), std::initializer_list<Value> values)
{
    const QVector<Value> known(values);
    return [wordOf, known](const QString& word) -> std::optional<Value> {
        for (const Value value : known) {
            if (wordOf(value) == word)
                return value;
        }
        return std::nullopt;
    };
}

void readInto(Device& device, const RecordReader& record)
{
    const QString fourNumbers = Text::tr("four numbers from 0 to 255 with dots between them are");
    record.read("modelId", 0, 65535, device.modelId);
    record.read("serialNumber", serialNumberOf, Text::tr("a text of decimal digits is"),
        device.serialNumber);
    record.read("version", dottedBytes, fourNumbers, device.version);
    record.read("dhcp", device.dhcp);
    record.read("ip", dottedBytes, fourNumbers, device.ip);
    record.read("mask", dottedBytes, fourNumbers, device.mask);
    record.read("gateway", dottedBytes, fourNumbers, device.gateway);
    record.read("ethernetLink", device.ethernetLink);
    record.read("serialPortCount", 0, 255, device.serialPortCount);
    record.read("ioLineCount", 0, 255, device.ioLineCount);
    record.read("relayCount", 0, 255, device.relayCount);
    record.read("infraredPortCount", 0, 255, device.infraredPortCount);
}

void readInto(SerialPort& port, const RecordReader& record)
{
    using Bits = std::numeric_limits<qint32>;
    record.read("baudRate", Bits::min(), Bits::max(), port.baudRate);
    record.read("dataBits", -128, 127, port.dataBits);
    record.read("stopBits", -128, 127, port.stopBits);
    record.read("inspection", 0, 2, port.inspection);
}

void readInto(IoLine& line, const RecordReader& record)
{
    record.read("type", 0, 2, line.type);
}

void readDelay(Event& event, const RecordReader& record)
{
    int delay = 0;
    record.read("delay", 0, Limit::delay, delay);
    event.delay = delay;
    for (const char* key : {"protocol", "protocolText"}) {
        if (record.has(key))
            record.fail(
                key, Text::tr("an event with a delay has no command; one of them is allowed"));
    }
}

void readInto(Event& event, const RecordReader& record)
{
    record.read("id", 0, Limit::id, event.id);
    event.name = record.text("name");
    record.readIsHex();
    if (record.has("delay"))
        readDelay(event, record);
    else if (record.has("protocol") || record.has("protocolText"))
        record.readBytes("protocol", "protocolText", event.command);
    else
        record.fail(
            "protocol", Text::tr("it is missing; this, \"protocolText\" or \"delay\" is due"));
    event = normalEvent(event);
    record.read("description", event.description);

    int type = event.type();
    record.read("type", 0, 6, type);
    if (type != event.type())
        record.fail("type",
            Text::tr("%1 is not what the command makes it; %2 is, or leave the key out")
                .arg(type)
                .arg(event.type()));
}

void readLine(Trigger& trigger, const RecordReader& record)
{
    const auto lineOf = [&trigger](const QString& label) -> std::optional<int> {
        for (int line = 0; line < triggerLineCount; ++line) {
            if (lineLabel(trigger.kind, line) == label)
                return line;
        }
        return std::nullopt;
    };
    if (!record.has("line"))
        trigger.line = unknownLine;
    record.read("line", lineOf,
        Text::tr("%1 to %2 are")
            .arg(lineLabel(trigger.kind, 0), lineLabel(trigger.kind, triggerLineCount - 1)),
        trigger.line);
}

void readLevel(Trigger& trigger, const RecordReader& record)
{
    if (record.has("parameterText"))
        record.fail("parameterText",
            Text::tr("it is not allowed for an IO line; \"parameter\" with high or low is"));
    Level level = Level::Low;
    const auto parse = amongWords(levelWord, {Level::High, Level::Low});
    if (record.read("parameter", parse, Text::tr("high or low is"), level))
        trigger.level = level;
}

void readInto(Trigger& trigger, const RecordReader& record)
{
    record.read("id", 0, maximumTriggerId, trigger.id);
    const bool hasKind = record.read("kind",
        amongWords(kindWord, {TriggerKind::Com, TriggerKind::ComModbus, TriggerKind::Io}),
        Text::tr("COM, COM_MODBUS or IO is"), trigger.kind);
    record.readIsHex();
    // What line and parameter may be depends on the kind.
    if (hasKind) {
        readLine(trigger, record);
        if (trigger.kind == TriggerKind::Io)
            readLevel(trigger, record);
        else
            record.readBytes("parameter", "parameterText", trigger.parameter);
    }
    record.read("eventIds", 0, Limit::id, trigger.eventIds);
    record.read("description", trigger.description);
}

/** The text in its normal form, or as it is: what a unit reports need not exist. */
void readNormal(const RecordReader& record, const char* key,
    std::optional<QString> (*normal)(const QString& text), QString& target)
{
    const std::optional<QString> text = record.text(key);
    if (text)
        target = normal(*text).value_or(*text);
}

void readInto(TimeTrigger& trigger, const RecordReader& record)
{
    record.read("id", 0, maximumTriggerId, trigger.id);
    record.read("repeat", amongWords(repeatWord, {Repeat::EveryDay, Repeat::Weekly, Repeat::Once}),
        Text::tr("EVERYDAY, WEEKLY or ONCE is"), trigger.repeat);
    readNormal(record, "startDate", normalDate, trigger.startDate);
    QString end;
    readNormal(record, "endDate", normalDate, end);
    if (end != QLatin1String("forever"))
        trigger.endDate = end;
    record.read("weekdays", 1, Limit::weekdays, trigger.weekdays);
    std::sort(trigger.weekdays.begin(), trigger.weekdays.end());
    readNormal(record, "time", normalTime, trigger.time);
    record.read("eventIds", 0, Limit::id, trigger.eventIds);
    record.read("description", trigger.description);
}

template <typename Value> void readIfRecord(Value& value, const RecordReader& record)
{
    if (record.isRecord())
        readInto(value, record);
}

bool ContentsReader::acceptList(Section section, const DocumentNode& node)
{
    if (node.kind != DocumentNode::Kind::Sequence) {
        report(node.position, sectionName(section),
            Text::tr("%1 is not allowed; a list of records is, [] for none").arg(shown(node)));
        return false;
    }
    if (node.items.size() > maximumRecords)
        report(node.position, sectionName(section),
            Text::tr("%1 records are more than any unit has; only the first %2 are looked at")
                .arg(node.items.size())
                .arg(maximumRecords));
    return true;
}

template <typename Record>
QVector<Record> ContentsReader::readRecords(Section section, const DocumentNode& node)
{
    QVector<Record> records;
    if (!acceptList(section, node))
        return records;
    for (const DocumentNode& item : node.items) {
        if (records.size() >= maximumRecords)
            break;
        Record record;
        record.id = records.size();
        readIfRecord(record, RecordReader(*this, {section, records.size(), {}}, item));
        records.append(record);
    }
    return records;
}

/** Ports and lines are where their numbers say. */
template <typename Record>
QVector<Record> ContentsReader::readNumbered(Section section, const DocumentNode& node)
{
    constexpr int mostRecords = 255;
    QVector<Record> records;
    if (!acceptList(section, node))
        return records;
    const QByteArray key = recordKey(section).toLatin1();
    QSet<int> seen;
    for (const DocumentNode& item : node.items) {
        const DocumentNode::Member* member = item.member(recordKey(section));
        const qint64 given = member ? wholeNumber(member->value).value_or(0) : 0;
        const int index = given >= 1 && given <= mostRecords ? static_cast<int>(given) - 1 : 0;
        const RecordReader record(*this, {section, index, {}}, item);
        int number = 0;
        record.read(key.constData(), 1, mostRecords, number);
        if (seen.contains(number) && number > 0)
            record.fail(
                key.constData(), Text::tr("%1 is here already; once is allowed").arg(number));
        seen.insert(number);
        records.resize(qMax(records.size(), number));
        Record ignored;
        readIfRecord(number > 0 ? records[number - 1] : ignored, record);
    }
    for (int number = 1; number <= records.size(); ++number) {
        if (!seen.contains(number))
            report(node.position, sectionName(section),
                Text::tr("number %1 is missing; they run from 1 without a gap").arg(number));
    }
    return records;
}

void ContentsReader::readSection(Section section, const DocumentNode& node)
{
    Contents& contents = m_document.contents;
    switch (section) {
    case Section::Device:
        contents.device.emplace();
        readIfRecord(*contents.device, RecordReader(*this, {section, -1, {}}, node));
        break;
    case Section::SerialPorts:
        contents.serialPorts = readNumbered<SerialPort>(section, node);
        break;
    case Section::IoLines:
        contents.ioLines = readNumbered<IoLine>(section, node);
        break;
    case Section::Events:
        contents.events = readRecords<Event>(section, node);
        break;
    case Section::Triggers:
        contents.triggers = readRecords<Trigger>(section, node);
        break;
    case Section::TimeTriggers:
        contents.timeTriggers = readRecords<TimeTrigger>(section, node);
        break;
    case Section::Clock:
        if (node.kind == DocumentNode::Kind::Scalar)
            contents.clock = node.value;
        else
            report(node.position, sectionName(section),
                Text::tr("%1 is not allowed; a text is").arg(shown(node)));
        break;
    case Section::None:
        break;
    }
}

Document ContentsReader::read(const DocumentNode& root)
{
    if (root.kind != DocumentNode::Kind::Mapping) {
        report(root.position.line > 0 ? root.position : Position{1, 1}, {},
            Text::tr("found %1 instead of a unit document; it starts with \"format: %2\"")
                .arg(shown(root), documentFormat()));
        return m_document;
    }
    const QString formatKey = QStringLiteral("format");
    const DocumentNode::Member* format = root.member(formatKey);
    if (!format || format->value.value != documentFormat())
        report(format ? format->value.position : root.position, formatKey,
            Text::tr("%1 is not allowed; %2 is")
                .arg(format ? shown(format->value) : Text::tr("nothing"), documentFormat()));

    QStringList allowed{formatKey};
    for (const Section section : documentSections())
        allowed.append(sectionName(section));
    QSet<QString> seen;
    for (const DocumentNode::Member& member : root.members) {
        const int index = allowed.indexOf(member.key);
        if (index < 0)
            report(member.keyPosition, {},
                Text::tr("%1 is not a key here; allowed are %2")
                    .arg(shownText(member.key), allowed.join(QStringLiteral(", "))));
        else if (seen.contains(member.key))
            report(member.keyPosition, {},
                Text::tr("the key \"%1\" is here already; once is allowed").arg(member.key));
        else if (index > 0) {
            const Section section = documentSections().at(index - 1);
            m_document.positions.insert({section, -1, {}}, member.keyPosition);
            readSection(section, member.value);
        }
        if (index >= 0)
            seen.insert(member.key);
    }
    return m_document;
}

} // namespace

Document documentOf(const DocumentNode& root)
{
    Document document = ContentsReader().read(root);
    sortByPosition(document.findings);
    return document;
}

} // namespace QuadrelDocument
