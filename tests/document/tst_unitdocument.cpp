// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "memorycontents.h"
#include "schemacheck.h"
#include "unitdocument.h"

#include "controlunit.h"
#include "unitsample.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

using namespace QuadrelDocument;
using namespace QuadrelUnit;

Q_DECLARE_METATYPE(QuadrelDocument::Form)
Q_DECLARE_METATYPE(QuadrelDocument::Contents)

namespace {

Contents sample()
{
    ControlUnit unit;
    writeSample(unit.memory());
    return MemoryContents::read(unit.memory());
}

QString messagesOf(const Findings& findings)
{
    QStringList lines;
    for (const Finding& finding : findings)
        lines.append(messageOf(finding, QStringLiteral("FILE")));
    return lines.join(QLatin1Char('\n'));
}

const QByteArray format = "format: quadrel-unit/1\n";

/** An event in two lines, after the format. */
QByteArray eventText(const QByteArray& fields)
{
    return format + "events:\n  - {id: 8, " + fields + "}\n";
}

QByteArray triggerText(const QByteArray& fields)
{
    return format + "triggers:\n  - {eventIds: [1], " + fields + "}\n";
}

QByteArray timeTriggerText(const QByteArray& fields)
{
    return format + "timeTriggers:\n  - {eventIds: [1], " + fields + "}\n";
}

/** The device of the sample with one text in place of another. */
QByteArray deviceText(const QByteArray& from, const QByteArray& to)
{
    Contents contents;
    contents.device = sample().device;
    return writeDocument(contents, Form::Yaml).replace(from, to);
}

} // namespace

/** Contents as YAML and JSON: what is written, what is read, and what is wrong with a text. */
class TestUnitDocument : public QObject {
    Q_OBJECT

private slots:
    void knowsForms_data();
    void knowsForms();
    void writesYaml();
    void writesJson();
    void readsWhatItWrote_data();
    void readsWhatItWrote();
    void fitsTheSchema_data();
    void fitsTheSchema();
    void readsOtherWays_data();
    void readsOtherWays();
    void reportsErrors_data();
    void reportsErrors();
    void refusesHostileTexts_data();
    void refusesHostileTexts();
    void boundsFaults();
    void keepsEachCharacter_data();
    void keepsEachCharacter();
    void savesAndLoads();
    void reportsFaultsOnce();
    void reportsFiles();
};

void TestUnitDocument::knowsForms_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("form");
    QTest::newRow("yaml") << "a/b.yaml" << int(Form::Yaml);
    QTest::newRow("yml") << "b.YML" << int(Form::Yaml);
    QTest::newRow("json") << "b.x.json" << int(Form::Json);
    QTest::newRow("xml") << "b.xml" << int(Form::Project);
    QTest::newRow("text") << "b.txt" << -1;
    QTest::newRow("none") << "a.yaml/b" << -1;
}

void TestUnitDocument::knowsForms()
{
    QFETCH(QString, path);
    const std::optional<Form> form = formOfFile(path);
    QTEST(form ? int(*form) : -1, "form");
}

void TestUnitDocument::writesYaml()
{
    Contents contents = sample();
    contents.serialPorts->resize(1);
    contents.ioLines->clear();
    contents.events = contents.events->mid(5, 2);
    contents.triggers = QVector<Trigger>{contents.triggers->at(3), contents.triggers->at(6)};
    contents.timeTriggers = contents.timeTriggers->mid(4, 1);
    contents.clock = QStringLiteral("2026/01/09 07:05:03");
    QCOMPARE(QString::fromUtf8(writeDocument(contents, Form::Yaml)),
        QStringLiteral("format: quadrel-unit/1\n"
                       "device:\n"
                       "  modelId: 29193\n"
                       "  serialNumber: \"310000001\"\n"
                       "  version: \"1.0.0.0\"\n"
                       "  dhcp: false\n"
                       "  ip: \"192.168.1.100\"\n"
                       "  mask: \"255.255.255.0\"\n"
                       "  gateway: \"192.168.1.1\"\n"
                       "  ethernetLink: true\n"
                       "  serialPortCount: 9\n"
                       "  ioLineCount: 12\n"
                       "  relayCount: 8\n"
                       "  infraredPortCount: 4\n"
                       "serialPorts:\n"
                       "  - port: 1\n"
                       "    baudRate: 115200\n"
                       "    dataBits: 8\n"
                       "    stopBits: 1\n"
                       "    inspection: 2\n"
                       "ioLines: []\n"
                       "events:\n"
                       "  - id: 6\n"
                       "    type: 5\n"
                       "    isHex: true\n"
                       "    delay: 255\n"
                       "    description: \"A delay between two steps of ten milliseconds\"\n"
                       "  - id: 7\n"
                       "    name: \"Display on\"\n"
                       "    type: 0\n"
                       "    isHex: true\n"
                       "    protocol: \"4c 01 00 25 10 01 52 01 20 00 08 2a 50 4f 57 3d 4f 4e 23\""
                       "  # L\\x01\\0%\\x10\\x01R\\x01 \\0\\x08*POW=ON#\n"
                       "    description: \"Display on\"\n"
                       "triggers:\n"
                       "  - id: 3\n"
                       "    kind: COM\n"
                       "    line: COM C-1\n"
                       "    isHex: true\n"
                       "    parameter: \"aa 01\"\n"
                       "    eventIds: [9, 4, 10]\n"
                       "    description: \"Mute for a moment\"\n"
                       "  - id: 6\n"
                       "    kind: IO\n"
                       "    line: IO A-1\n"
                       "    isHex: true\n"
                       "    parameter: high\n"
                       "    eventIds: [25, 7]\n"
                       "    description: \"有人进入大厅\"\n"
                       "timeTriggers:\n"
                       "  - id: 4\n"
                       "    repeat: WEEKLY\n"
                       "    startDate: \"2024/03/07\"\n"
                       "    endDate: forever\n"
                       "    weekdays: [1, 3, 5]\n"
                       "    time: \"12:00\"\n"
                       "    eventIds: [11]\n"
                       "    description: \"\"\n"
                       "clock: \"2026/01/09 07:05:03\"\n"));
}

void TestUnitDocument::writesJson()
{
    Contents contents;
    contents.events = sample().events->mid(5, 1);
    contents.triggers = QVector<Trigger>{};
    QCOMPARE(QString::fromUtf8(writeDocument(contents, Form::Json)),
        QStringLiteral("{\n"
                       "    \"format\": \"quadrel-unit/1\",\n"
                       "    \"events\": [\n"
                       "        {\n"
                       "            \"id\": 6,\n"
                       "            \"type\": 5,\n"
                       "            \"isHex\": true,\n"
                       "            \"delay\": 255,\n"
                       "            \"description\": \"A delay between two steps of ten "
                       "milliseconds\"\n"
                       "        }\n"
                       "    ],\n"
                       "    \"triggers\": []\n"
                       "}\n"));
}

void TestUnitDocument::readsWhatItWrote_data()
{
    QTest::addColumn<Form>("form");
    QTest::newRow("yaml") << Form::Yaml;
    QTest::newRow("json") << Form::Json;
}

void TestUnitDocument::readsWhatItWrote()
{
    QFETCH(Form, form);
    Contents contents = sample();
    contents.clock = QStringLiteral("2026/01/09 07:05:03");
    const QByteArray text = writeDocument(contents, form);
    const Document document = parseDocument(text, form);
    QCOMPARE(messagesOf(document.findings), QString());
    QVERIFY(document.contents == contents);
    QCOMPARE(writeDocument(document.contents, form), text);
}

void TestUnitDocument::fitsTheSchema_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<Contents>("contents");
    QTest::newRow("nothing") << "json" << Contents();
    QTest::newRow("sample as JSON") << "json" << sample();
    QTest::newRow("sample as YAML") << "yaml" << sample();
    Contents odd = sample();
    odd.triggers->append(Trigger{11, TriggerKind::Io, 3, {}, {}, {}, {}});
    odd.triggers->append(Trigger{12, TriggerKind::ComModbus, unknownLine, {}, {}, {}, {}});
    odd.timeTriggers->append(TimeTrigger{7, Repeat::Once, QStringLiteral("20165/165/165"),
        QStringLiteral("200/00/00"), {8}, QStringLiteral("165:99"), {255}, {}});
    QTest::newRow("what a unit can't store as JSON") << "json" << odd;
    QTest::newRow("what a unit can't store as YAML") << "yaml" << odd;
}

/** Other programs read what is written, and find it as the published schema says. */
void TestUnitDocument::fitsTheSchema()
{
    QFETCH(QString, form);
    QFETCH(Contents, contents);
    const QByteArray text =
        writeDocument(contents, form == QStringLiteral("json") ? Form::Json : Form::Yaml);
    QCOMPARE(schemaErrors(QStringLiteral("unit-document.schema.json"), form, text), QByteArray());
}

void TestUnitDocument::readsOtherWays_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("same");
    QTest::newRow("text of a command")
        << eventText("protocolText: \"PWR ON\\r\"") << eventText("protocol: 50 57 52 20 4f 4e 0d");
    QTest::newRow("plain text of a command")
        << eventText("protocolText: PWR ON\\r") << eventText("protocol: 505752204F4E0d");
    QTest::newRow("other escapes") << eventText(R"(protocolText: 'a\\b\n\t\0\x7f\xFF')")
                                   << eventText("protocol: 61 5c 62 0a 09 00 7f ff");
    QTest::newRow("Latin-1") << eventText("protocolText: é") << eventText("protocol: e9");
    QTest::newRow("keys left out") << eventText(
        "delay: 250") << eventText("type: 5, isHex: true, delay: 250, description: ''");
    QTest::newRow("a delay as its command")
        << eventText("protocol: 4c 01 00 a5 a5 00 ff") << eventText("delay: 255");
    QTest::newRow("plain texts") << eventText("delay: 0, name: 45, description: true")
                                 << eventText("delay: 0, name: \"45\", description: \"true\"");
    QTest::newRow("text of a parameter")
        << triggerText("kind: COM, line: COM A-1, parameterText: OK#")
        << triggerText("kind: COM, line: COM A-1, parameter: 4f 4b 23");
    QTest::newRow("no parameter") << triggerText("kind: COM, line: COM A-1")
                                  << triggerText("kind: COM, line: COM A-1, parameter: ''");
    const QByteArray time = format
        + "timeTriggers:\n- {repeat: ONCE, startDate: 2006/9/27, endDate: 206/09/27, "
          "time: 7:5, eventIds: [1], weekdays: [8, 1]}\n";
    QTest::newRow("dates, times and weekdays") << time
                                               << format
            + "timeTriggers:\n- {repeat: ONCE, startDate: 206/09/27, endDate: 2006/09/27, "
              "time: '07:05', eventIds: [1], weekdays: [1, 8]}\n";
    QTest::newRow("ports in any order")
        << format + "ioLines: [{line: 2, type: 1}, {line: 1, type: 0}]"
        << format + "ioLines: [{line: 1, type: 0}, {line: 2, type: 1}]";
    QTest::newRow("order of keys")
        << QByteArray("events: []\nformat: quadrel-unit/1\n") << format + "events: []\n";
    QTest::newRow("line ends and mark")
        << "\xEF\xBB\xBF" + eventText("delay: 1").replace("\n", "\r\n") << eventText("delay: 1");
    QTest::newRow("directive") << "%YAML 1.2\n---\n" + eventText("delay: 1")
                               << eventText("delay: 1");
}

void TestUnitDocument::readsOtherWays()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, same);
    const Document document = parseDocument(text, Form::Yaml);
    QCOMPARE(messagesOf(document.findings), QString());
    const Document other = parseDocument(same, Form::Yaml);
    QCOMPARE(messagesOf(other.findings), QString());
    QVERIFY(document.contents == other.contents);
}

void TestUnitDocument::reportsErrors_data()
{
    QTest::addColumn<Form>("form");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("messages");
    const auto yaml = [](const char* name, const QByteArray& text, const char* messages) {
        QTest::newRow(name) << Form::Yaml << text << messages;
    };
    const auto json = [](const char* name, const QByteArray& text, const char* messages) {
        QTest::newRow(name) << Form::Json << text << messages;
    };
    yaml("nothing", QByteArray(),
        "FILE:1:1: found nothing instead of a unit document; it starts with \"format: "
        "quadrel-unit/1\"");
    yaml("blanks", "  \n# c\n",
        "FILE:1:1: found nothing instead of a unit document; it starts with \"format: "
        "quadrel-unit/1\"");
    yaml("a text", "hello",
        "FILE:1:1: found hello instead of a unit document; it starts with \"format: "
        "quadrel-unit/1\"");
    yaml("a list", "- 1\n",
        "FILE:1:1: found a list instead of a unit document; it starts with \"format: "
        "quadrel-unit/1\"");
    json("no JSON", QByteArray(), "FILE:1:1: a value of JSON is due here");
    yaml(
        "no format", "events: []\n", "FILE:1:1: format: nothing is not allowed; quadrel-unit/1 is");
    yaml("another format", "format: quadrel-unit/2\n",
        "FILE:1:9: format: quadrel-unit/2 is not allowed; quadrel-unit/1 is");
    yaml("unknown sections", format + "evnts: []\nother: 1\n",
        "FILE:2:1: \"evnts\" is not a key here; allowed are format, device, serialPorts, ioLines, "
        "events, triggers, timeTriggers, clock\n"
        "FILE:3:1: \"other\" is not a key here; allowed are format, device, serialPorts, ioLines, "
        "events, triggers, timeTriggers, clock");
    yaml("doubled section", format + "events: []\nevents: []\n",
        "FILE:3:1: the key \"events\" is here already; once is allowed");
    yaml("sections of another kind",
        format + "events: 1\ntriggers:\nioLines: {}\ndevice: []\nclock: [1]\n",
        "FILE:2:9: events: 1 is not allowed; a list of records is, [] for none\n"
        "FILE:4:1: triggers: nothing is not allowed; a list of records is, [] for none\n"
        "FILE:4:10: ioLines: a record is not allowed; a list of records is, [] for none\n"
        "FILE:5:9: device: a list is not allowed; a record with keys is due\n"
        "FILE:6:8: clock: a list is not allowed; a text is");
    yaml("records of another kind", format + "events: [1, [], null]\n",
        "FILE:2:10: events: 1 is not allowed; a record with keys is due\n"
        "FILE:2:13: events: a list is not allowed; a record with keys is due\n"
        "FILE:2:17: events: nothing is not allowed; a record with keys is due");
    yaml("all at once",
        format
            + "events:\n  - id: 300\n    delay: 1\n    delay: 2\n    colour: red\n  - id: 9\n    "
              "protocol: 4g\ntriggers:\n  - kind: RELAY\n    eventIds: [1, 256]\n",
        "FILE:3:9: events[300].id: 300 is not allowed; a whole number from 0 to 255 is\n"
        "FILE:5:5: events[300]: the key \"delay\" is here already; once is allowed\n"
        "FILE:6:5: events[300]: \"colour\" is not a key here; allowed are id, name, type, isHex, "
        "delay, protocol, protocolText, description\n"
        "FILE:8:15: events[9].protocol: \"4g\" is not allowed; pairs of the digits 0 to 9 and a to "
        "f are, such as \"4c 01 00\"\n"
        "FILE:10:5: triggers: the key \"line\" is missing\n"
        "FILE:10:11: triggers.kind: \"RELAY\" is not allowed; COM, COM_MODBUS or IO is\n"
        "FILE:11:19: triggers.eventIds: 256 is not allowed; whole numbers from 0 to 255 are");
    yaml("no id", format + "events:\n  - {delay: 1}\n",
        "FILE:3:5: events: the key \"id\" is missing");
    yaml("id no number",
        format
            + "events:\n  - {id: \"8\", delay: 1}\n  - {id: 08, delay: 1}\n  - {id: 1.0, delay: "
              "1}\n  - {id: -1, delay: 1}\n  - {id: 99999999999999999999, delay: 1}\n",
        "FILE:3:10: events.id: \"8\" is not allowed; a whole number from 0 to 255 is\n"
        "FILE:4:10: events.id: 08 is not allowed; a whole number from 0 to 255 is\n"
        "FILE:5:10: events.id: 1.0 is not allowed; a whole number from 0 to 255 is\n"
        "FILE:6:10: events[-1].id: -1 is not allowed; a whole number from 0 to 255 is\n"
        "FILE:7:10: events.id: 99999999999999999999 is not allowed; a whole number from 0 to 255 "
        "is");
    yaml("no command", eventText("description: a"),
        "FILE:3:5: events[8].protocol: it is missing; this, \"protocolText\" or \"delay\" is due");
    yaml("command and text", eventText("protocol: \"\", protocolText: \"\""),
        "FILE:3:41: events[8].protocolText: \"protocol\" and \"protocolText\" are not allowed "
        "together; one of them is");
    yaml("command and delay", eventText("delay: 1, protocol: \"\", protocolText: \"\""),
        "FILE:3:33: events[8].protocol: an event with a delay has no command; one of them is "
        "allowed\n"
        "FILE:3:51: events[8].protocolText: an event with a delay has no command; one of them is "
        "allowed");
    yaml("hex", eventText("protocol: POWER ON"),
        "FILE:3:23: events[8].protocol: \"POWER ON\" is not allowed; pairs of the digits 0 to 9 "
        "and a to f are, such as \"4c 01 00\"");
    yaml("odd hex", eventText("protocol: 4c 0"),
        "FILE:3:23: events[8].protocol: \"4c 0\" is not allowed; pairs of the digits 0 to 9 and a "
        "to f are, such as \"4c 01 00\"");
    yaml("split pair", eventText("protocol: 4 c"),
        "FILE:3:23: events[8].protocol: \"4 c\" is not allowed; pairs of the digits 0 to 9 and a "
        "to f are, such as \"4c 01 00\"");
    yaml("unknown escape", eventText("protocolText: 'a\\q'"),
        "FILE:3:27: events[8].protocolText: \"a\\\\q\" is not allowed; characters up to U+00FF "
        "are, and the escapes \\\\ \\r \\n \\t \\0 \\xHH");
    yaml("short escape", eventText("protocolText: 'a\\x1'"),
        "FILE:3:27: events[8].protocolText: \"a\\\\x1\" is not allowed; characters up to U+00FF "
        "are, and the escapes \\\\ \\r \\n \\t \\0 \\xHH");
    yaml("no Latin-1", eventText("protocolText: 开"),
        "FILE:3:27: events[8].protocolText: \"开\" is not allowed; characters up to U+00FF are, "
        "and the escapes \\\\ \\r \\n \\t \\0 \\xHH");
    yaml("delay", eventText("delay: 65536"),
        "FILE:3:20: events[8].delay: 65536 is not allowed; a whole number from 0 to 65535 is");
    yaml("delay with unit", eventText("delay: 25*10ms"),
        "FILE:3:20: events[8].delay: 25*10ms is not allowed; a whole number from 0 to 65535 is");
    yaml("another type", eventText("delay: 5, type: 0"),
        "FILE:3:29: events[8].type: 0 is not what the command makes it; 5 is, or leave the key "
        "out");
    yaml("type", eventText("delay: 5, type: 7"),
        "FILE:3:29: events[8].type: 7 is not allowed; a whole number from 0 to 6 is");
    yaml("no hex", eventText("delay: 5, isHex: false"),
        "FILE:3:30: events[8].isHex: false is not allowed; texts have a key of their own");
    yaml("no flag", eventText("delay: 5, isHex: yes"),
        "FILE:3:30: events[8].isHex: yes is not allowed; true or false is");
    yaml("no text", eventText("delay: 5, name: , description: [a]"),
        "FILE:3:29: events[8].name: nothing is not allowed; a text is, \"\" for none\n"
        "FILE:3:44: events[8].description: a list is not allowed; a text is, \"\" for none");
    yaml("direction of writing", eventText("delay: 5, \"\u202Ex\": 1"),
        "FILE:3:23: events[8]: \"\\u202ex\" is not a key here; allowed are id, name, type, isHex, "
        "delay, protocol, protocolText, description");
    yaml("kind", triggerText("kind: com, line: COM A-1"),
        "FILE:3:27: triggers.kind: \"com\" is not allowed; COM, COM_MODBUS or IO is");
    yaml("line", triggerText("kind: COM, line: COM Z-9"),
        "FILE:3:38: triggers.line: \"COM Z-9\" is not allowed; COM A-1 to COM D-4 are");
    yaml("line of the other kind", triggerText("kind: IO, line: COM A-1"),
        "FILE:3:37: triggers.line: \"COM A-1\" is not allowed; IO A-1 to IO D-4 are");
    yaml("level", triggerText("kind: IO, line: IO A-1, parameter: input-high"),
        "FILE:3:56: triggers.parameter: \"input-high\" is not allowed; high or low is");
    yaml("text of a level", triggerText("kind: IO, line: IO A-1, parameterText: high"),
        "FILE:3:60: triggers.parameterText: it is not allowed for an IO line; \"parameter\" with "
        "high or low is");
    yaml("parameter", triggerText("kind: COM, line: COM A-1, parameter: OK#"),
        "FILE:3:58: triggers.parameter: \"OK#\" is not allowed; pairs of the digits 0 to 9 and a "
        "to f are, such as \"4c 01 00\"");
    yaml("parameter and text",
        triggerText("kind: COM, line: COM A-1, parameter: 41, parameterText: A"),
        "FILE:3:77: triggers.parameterText: \"parameter\" and \"parameterText\" are not allowed "
        "together; one of them is");
    yaml("event ids",
        format
            + "triggers:\n  - {kind: COM, line: COM A-1, eventIds: 1}\n  - {kind: COM, line: COM "
              "A-1, eventIds: [a, \"1\", -1]}\n  - {kind: COM, line: COM A-1}\n",
        "FILE:3:42: triggers.eventIds: 1 is not allowed; a list such as [1, 2] is\n"
        "FILE:4:43: triggers.eventIds: a is not allowed; whole numbers from 0 to 255 are\n"
        "FILE:4:46: triggers.eventIds: \"1\" is not allowed; whole numbers from 0 to 255 are\n"
        "FILE:4:51: triggers.eventIds: -1 is not allowed; whole numbers from 0 to 255 are\n"
        "FILE:5:5: triggers: the key \"eventIds\" is missing");
    yaml("repeat",
        timeTriggerText("repeat: DAILY, startDate: 2024/03/07, endDate: forever, time: 08:05"),
        "FILE:3:29: timeTriggers.repeat: \"DAILY\" is not allowed; EVERYDAY, WEEKLY or ONCE is");
    yaml("missing keys of a time trigger", format + "timeTriggers:\n  - {id: 3}\n",
        "FILE:3:5: timeTriggers[3]: the key \"repeat\" is missing\n"
        "FILE:3:5: timeTriggers[3]: the key \"startDate\" is missing\n"
        "FILE:3:5: timeTriggers[3]: the key \"endDate\" is missing\n"
        "FILE:3:5: timeTriggers[3]: the key \"time\" is missing\n"
        "FILE:3:5: timeTriggers[3]: the key \"eventIds\" is missing");
    yaml("weekdays",
        timeTriggerText("repeat: WEEKLY, startDate: 2024/03/07, endDate: forever, time: 08:05, "
                        "weekdays: [0, 9, Mo]"),
        "FILE:3:102: timeTriggers.weekdays: 0 is not allowed; whole numbers from 1 to 8 are\n"
        "FILE:3:105: timeTriggers.weekdays: 9 is not allowed; whole numbers from 1 to 8 are\n"
        "FILE:3:108: timeTriggers.weekdays: Mo is not allowed; whole numbers from 1 to 8 are");
    yaml("ports",
        format
            + "serialPorts:\n  - {port: 1, baudRate: 1, dataBits: 8, stopBits: 1, inspection: 3}\n "
              " - {port: 1, baudRate: 1, dataBits: 128, stopBits: 1, inspection: 2}\n  - {port: 4, "
              "baudRate: 2147483648, dataBits: 8, stopBits: -129, inspection: 2}\n  - {port: 0, "
              "baudRate: 1, dataBits: 8, stopBits: 1, inspection: 2}\n",
        "FILE:3:3: serialPorts: number 2 is missing; they run from 1 without a gap\n"
        "FILE:3:3: serialPorts: number 3 is missing; they run from 1 without a gap\n"
        "FILE:3:66: serialPorts[1].inspection: 3 is not allowed; a whole number from 0 to 2 is\n"
        "FILE:4:12: serialPorts[1].port: 1 is here already; once is allowed\n"
        "FILE:4:38: serialPorts[1].dataBits: 128 is not allowed; a whole number from -128 to 127 "
        "is\n"
        "FILE:5:25: serialPorts[4].baudRate: 2147483648 is not allowed; a whole number from "
        "-2147483648 to 2147483647 is\n"
        "FILE:5:60: serialPorts[4].stopBits: -129 is not allowed; a whole number from -128 to 127 "
        "is\n"
        "FILE:6:12: serialPorts[0].port: 0 is not allowed; a whole number from 1 to 255 is");
    yaml("lines", format + "ioLines: [{line: 256, type: 3}, {type: 1}]\n",
        "FILE:2:18: ioLines[256].line: 256 is not allowed; a whole number from 1 to 255 is\n"
        "FILE:2:29: ioLines[256].type: 3 is not allowed; a whole number from 0 to 2 is\n"
        "FILE:2:33: ioLines: the key \"line\" is missing");
    yaml(
        "anchor", format + "events: &a []\n", "FILE:2:9: anchors have no place in a unit document");
    yaml("alias", format + "events: *a\n",
        "FILE:2:9: this is not YAML: the referenced anchor is not defined");
    yaml("alias of an anchor", format + "clock: &b x\nevents: *b\n",
        "FILE:2:8: anchors have no place in a unit document");
    yaml("tag", format + "events: !!seq []\n", "FILE:2:9: tags have no place in a unit document");
    yaml("tag of a text", format + "clock: !x y\n",
        "FILE:2:8: tags have no place in a unit document");
    yaml("merge key", eventText("delay: 1, <<: {}"),
        "FILE:3:23: events[8]: \"<<\" is not a key here; allowed are id, name, type, isHex, delay, "
        "protocol, protocolText, description");
    yaml("key of another kind", format + "? [a]\n: b\n", "FILE:2:3: a key is a single word");
    yaml("second document", format + "---\n" + format, "FILE:2:1: nothing may follow the document");
    yaml("tab", format + "events:\n	- a\n", "FILE:3:2: this is not YAML: illegal block entry");
    yaml("open bracket", format + "events: [\n",
        "FILE:3:1: this is not YAML: end of sequence flow not found");
    yaml("column in characters", format + "clock: \"打开\"\n事件: 1\n",
        "FILE:3:1: \"事件\" is not a key here; allowed are format, device, serialPorts, ioLines, "
        "events, triggers, timeTriggers, clock");
    json("open", "{\"format\": \"quadrel-unit/1\"", "FILE:1:28: \"}\" is due here");
    json("two values", "{\"format\": \"quadrel-unit/1\"} {}",
        "FILE:1:30: nothing may follow the document");
    json("single quotes", "{'format': 1}", "FILE:1:2: a text in quotes is due here");
    json("bare word", "{\"format\": quadrel}", "FILE:1:12: a value of JSON is due here");
    json("trailing comma", "{\"format\": \"quadrel-unit/1\",}",
        "FILE:1:29: a text in quotes is due here");
    json("comment", "{\"format\": \"quadrel-unit/1\" /* */}", "FILE:1:29: \"}\" is due here");
    json("escape", "{\"format\": \"\\q\"}", "FILE:1:14: JSON has no such escape");
    json("short escape", "{\"format\": \"\\u12\"}", "FILE:1:14: JSON has no such escape");
    json("line end in a text", "{\"format\": \"a\nb\"}",
        "FILE:1:14: the text does not end in its line");
    json("quoted number",
        "{\"format\": \"quadrel-unit/1\",\n\"events\": [{\"id\": \"8\", \"delay\": 1e3}]}",
        "FILE:2:19: events.id: \"8\" is not allowed; a whole number from 0 to 255 is\n"
        "FILE:2:33: events.delay: 1e3 is not allowed; a whole number from 0 to 65535 is");
    json("null",
        "{\"format\": \"quadrel-unit/1\",\n\"events\": [{\"id\": 8, \"delay\": 1, \"name\": "
        "null}]}",
        "FILE:2:42: events[8].name: nothing is not allowed; a text is, \"\" for none");
    json("doubled key",
        "{\"format\": \"quadrel-unit/1\",\n\"events\": [{\"id\": 8, \"delay\": 1, \"id\": 9}]}",
        "FILE:2:34: events[8]: the key \"id\" is here already; once is allowed");
    yaml("a text for a terminal",
        format
            + "events: "
              "\"\\u001b[31mxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx\"\n",
        "FILE:2:9: events: \"\\u001b[31mxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx\"… is not allowed; a "
        "list of records is, [] for none");
    yaml("device: modelId: 65536", deviceText("modelId: 29193", "modelId: 65536"),
        "FILE:3:12: device.modelId: 65536 is not allowed; a whole number from 0 to 65535 is");
    yaml("device: \"18446744073709551616\"",
        deviceText("\"310000001\"", "\"18446744073709551616\""),
        "FILE:4:17: device.serialNumber: \"18446744073709551616\" is not allowed; a text of "
        "decimal digits is");
    yaml("device: \"-1\"", deviceText("\"310000001\"", "\"-1\""),
        "FILE:4:17: device.serialNumber: \"-1\" is not allowed; a text of decimal digits is");
    yaml("device: \"1.0.0\"", deviceText("\"1.0.0.0\"", "\"1.0.0\""),
        "FILE:5:12: device.version: \"1.0.0\" is not allowed; four numbers from 0 to 255 with dots "
        "between them are");
    yaml("device: dhcp: 0", deviceText("dhcp: false", "dhcp: 0"),
        "FILE:6:9: device.dhcp: 0 is not allowed; true or false is");
    yaml("device: \"192.168.1.256\"", deviceText("\"192.168.1.100\"", "\"192.168.1.256\""),
        "FILE:7:7: device.ip: \"192.168.1.256\" is not allowed; four numbers from 0 to 255 with "
        "dots between them are");
    yaml("device: \"255.255.255.0.\"", deviceText("\"255.255.255.0\"", "\"255.255.255.0.\""),
        "FILE:8:9: device.mask: \"255.255.255.0.\" is not allowed; four numbers from 0 to 255 with "
        "dots between them are");
    yaml("device: serialPortCount: -1", deviceText("serialPortCount: 9", "serialPortCount: -1"),
        "FILE:11:20: device.serialPortCount: -1 is not allowed; a whole number from 0 to 255 is");
    yaml("device: missing key", deviceText("  relayCount: 8\n", ""),
        "FILE:3:3: device: the key \"relayCount\" is missing");
}

void TestUnitDocument::reportsErrors()
{
    QFETCH(Form, form);
    QFETCH(QByteArray, text);
    const Document document = parseDocument(text, form);
    QTEST(messagesOf(document.findings), "messages");
}

void TestUnitDocument::refusesHostileTexts_data()
{
    QTest::addColumn<Form>("form");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("message");
    const int size = maximumDocumentSize;
    const QString values = QStringLiteral("more than 100000 values");
    const QString levels = QStringLiteral("more than 32 levels; a unit needs 4");
    const auto yaml = [](const char* name, const QByteArray& text, const QString& message) {
        QTest::newRow(name) << Form::Yaml << text << message;
    };
    yaml("size", QByteArray(size + 1, '#'),
        QStringLiteral("more than 4194304 bytes; a unit needs a tenth of that"));
    yaml("brackets", QByteArray(size, '['), values);
    yaml("braces", QByteArray(size, '{'), values);
    yaml("commas", '[' + QByteArray("1,").repeated(size / 2 - 1), values);
    yaml("dashes", QByteArray("- ").repeated(size / 2), levels);
    yaml("question marks", QByteArray("? ").repeated(size / 2), values);
    yaml("lines", QByteArray("a: b\n").repeated(size / 5), values);
    yaml("levels", QByteArray("[").repeated(33) + QByteArray("]").repeated(33), levels);
    yaml("items", QByteArray("- a\n").repeated(size / 4), values);
    yaml("documents", QByteArray("---\n").repeated(size / 4),
        QStringLiteral("nothing may follow the document"));
    yaml("a long text", '"' + QByteArray(size - 2, 'x') + '"',
        QStringLiteral("instead of a unit document"));
    yaml("a long comment", '#' + QByteArray(size - 1, 'x'),
        QStringLiteral("instead of a unit document"));
    yaml("an open text", '"' + QByteArray("a\n").repeated(size / 2 - 1),
        QStringLiteral("has no closing quote"));
    yaml("an open text at the end", format + "a: \"b\n", QStringLiteral("has no closing quote"));
    yaml("an open text at the end, other quotes", format + "a: 'b''\n",
        QStringLiteral("has no closing quote"));
    yaml("bytes", format + "a: \xFF", QStringLiteral("this is not text in UTF-8"));
    yaml("control characters", format + "a: \x1B[31m", QStringLiteral("control characters"));
    yaml("zeros", QByteArray(size, '\0'), QStringLiteral("control characters"));
    const QByteArray comment = '#' + QByteArray(size - 500000, 'x');
    yaml("keys without a colon", QByteArray("? a\n").repeated(90000) + comment, values);
    QTest::newRow("levels of JSON") << Form::Json << QByteArray(size, '[') << levels;
    QTest::newRow("values of JSON")
        << Form::Json << '[' + QByteArray("1,").repeated(size / 2 - 1) << values;
    QTest::newRow("a long text of JSON")
        << Form::Json << '"' + QByteArray(size - 2, 'x') + '"' << "instead of a unit document";
    QTest::newRow("keys of JSON") << Form::Json << '{' + QByteArray("\"a\":1,").repeated(size / 7)
                                  << values;
}

void TestUnitDocument::refusesHostileTexts()
{
    QFETCH(Form, form);
    QFETCH(QByteArray, text);
    QFETCH(QString, message);
    const Document document = parseDocument(text, form);
    QCOMPARE(document.findings.size(), 1);
    QVERIFY2(document.findings.first().text.contains(message),
        qPrintable(document.findings.first().text));
    QVERIFY(document.findings.first().text.size() < 200);
}

/** Faults without end, in a time and a memory that follow from the size. */
void TestUnitDocument::boundsFaults()
{
    const QByteArray comment = '#' + QByteArray(3000000, 'x');
    for (const QByteArray& keys : {QByteArray("a,"), QByteArray("a: 1,"), QByteArray("? ,")}) {
        const Document document =
            parseDocument('{' + keys.repeated(40000) + "}\n" + comment, Form::Yaml);
        QCOMPARE(document.findings.size(), maximumFindings);
    }
}

void TestUnitDocument::keepsEachCharacter_data()
{
    readsWhatItWrote_data();
}

void TestUnitDocument::keepsEachCharacter()
{
    QFETCH(Form, form);
    Contents contents;
    contents.events.emplace();
    QString text;
    for (uint character = 1; character < 0x11000; ++character) {
        if (character < 0xD800 || character > 0xDFFF)
            text += QString::fromUcs4(&character, 1);
        if (text.size() < 4096)
            continue;
        contents.events->append(Event{contents.events->size(), text, 0, {}, text});
        text.clear();
    }
    const Document document = parseDocument(writeDocument(contents, form), form);
    QCOMPARE(messagesOf(document.findings), QString());
    QVERIFY(document.contents == contents);
}

void TestUnitDocument::savesAndLoads()
{
    const QTemporaryDir folder;
    Contents contents = sample();
    contents.triggers->removeLast();
    Contents saved = contents;
    contents.clock = QStringLiteral("2026/01/09 07:05:03");
    for (const char* name : {"a.yaml", "a.yml", "a.json"}) {
        const QString path = folder.filePath(QLatin1String(name));
        QFile(path).open(QIODevice::WriteOnly);
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner));
        const QString link = folder.filePath(QLatin1String("link-") + QLatin1String(name));
        QVERIFY(QFile::link(path, link));
        QCOMPARE(saveFile(link, contents), QString());
        QVERIFY(QFileInfo(link).isSymLink());
        QCOMPARE(QFile::permissions(path) & 0xFFF,
            (QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser) & 0xFFF);
        const LoadedFile file = loadFile(path);
        QVERIFY(file.contents == saved);
        QVERIFY(!hasErrors(file.findings));
    }
}

/** What a wrong value leads to is not a second fault. */
void TestUnitDocument::reportsFaultsOnce()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.yaml"));
    saveText(path,
        format
            + "events:\r\n- {id: 1, delay: 1}\r\n- {id: 300, delay: 1}\r\n"
              "triggers:\r\n- {kind: IO, line: IO A-1, parameter: input-high, eventIds: 1}\r\n");
    QCOMPARE(messagesOf(loadFile(path).findings),
        QStringLiteral(
            "FILE:4:8: events[300].id: 300 is not allowed; a whole number from 0 to 255 is\n"
            "FILE:6:39: triggers.parameter: \"input-high\" is not allowed; high or low is\n"
            "FILE:6:61: triggers.eventIds: 1 is not allowed; a list such as [1, 2] is"));
}

void TestUnitDocument::reportsFiles()
{
    const QTemporaryDir folder;
    const auto messages = [](const QString& path) { return messagesOf(loadFile(path).findings); };
    QCOMPARE(messages(folder.filePath(QStringLiteral("a.txt"))),
        QStringLiteral("FILE: the ending says nothing; .yaml, .yml, .json and .xml are known"));
    QCOMPARE(messages(folder.filePath(QStringLiteral("a.yaml"))),
        QStringLiteral("FILE: the file can't be read: No such file or directory"));
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("b.yaml")));
    QCOMPARE(messages(folder.filePath(QStringLiteral("b.yaml"))),
        QStringLiteral("FILE: not a regular file"));
    QCOMPARE(saveFile(folder.filePath(QStringLiteral("b.yaml")), Contents()),
        QStringLiteral("not a regular file"));
    QCOMPARE(saveFile(folder.filePath(QStringLiteral("a.txt")), Contents()),
        QStringLiteral("the ending says nothing; .yaml, .yml, .json and .xml are known"));
    QVERIFY(!saveFile(folder.filePath(QStringLiteral("none/a.yaml")), Contents()).isEmpty());
    const QString large = folder.filePath(QStringLiteral("large.xml"));
    QFile file(large);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(maximumDocumentSize + 1));
    QCOMPARE(messages(large),
        QStringLiteral("FILE: more than 4194304 bytes; a unit needs a tenth of that"));
}

QTEST_GUILESS_MAIN(TestUnitDocument)
#include "tst_unitdocument.moc"
