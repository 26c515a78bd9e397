// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "contentscheck.h"
#include "samplecontents.h"
#include "unitdocument.h"

#include <QtTest/QtTest>

#include <functional>

using namespace QuadrelDocument;

using Change = std::function<void(Contents& contents)>;
Q_DECLARE_METATYPE(Change)

namespace {

const QByteArray format = "format: quadrel-unit/1\n";
const QByteArray events = "events:\n  - {id: 1, delay: 10}\n";
const QByteArray device =
    "device: {modelId: 1, serialNumber: \"1\", version: 1.0.0.0, dhcp: false, ip: 1.1.1.1, "
    "mask: 1.1.1.1, gateway: 1.1.1.1, ethernetLink: true, serialPortCount: 1, ioLineCount: 2, "
    "relayCount: 0, infraredPortCount: 0}\n";

QByteArray manyEvents(int count)
{
    QByteArray text;
    for (int i = 0; i < count; ++i)
        text += "  - {id: " + QByteArray::number(i) + ", delay: 1}\n";
    return text;
}

} // namespace

/** What is wrong with contents, and where. */
class TestContentsCheck : public QObject {
    Q_OBJECT

private slots:
    void findsFaultsOfDocuments_data();
    void findsFaultsOfDocuments();
    void findsFaultsOfContents_data();
    void findsFaultsOfContents();
    void acceptsTheSample();
};

void TestContentsCheck::findsFaultsOfDocuments_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("messages");
    const auto row = [](const char* name, const QByteArray& text, const char* messages) {
        QTest::newRow(name) << text << messages;
    };
    row("sound",
        format + events
            + "triggers: [{kind: COM, line: COM D-2, eventIds: [1]}]\ntimeTriggers: []\n",
        "");
    row("missing event",
        format + events + "triggers:\n  - {kind: COM, line: COM A-1, eventIds: [1, 99, 7, 99]}\n",
        "FILE:5:42: triggers[0].eventIds: there is no event 99; only those in \"events\" are "
        "allowed\n"
        "FILE:5:42: triggers[0].eventIds: there is no event 7; only those in \"events\" are "
        "allowed");
    row("missing event of a time trigger",
        format + events
            + "timeTriggers:\n  - {repeat: ONCE, startDate: 2024/03/07, endDate: 2024/03/07, time: "
              "08:05, eventIds: [2]}\n",
        "FILE:5:87: timeTriggers[0].eventIds: there is no event 2; only those in \"events\" are "
        "allowed");
    row("events not given", format + "triggers: [{kind: COM, line: COM A-1, eventIds: [99]}]\n",
        "");
    row("doubled ids",
        format + events
            + "  - {id: 1, delay: 10}\n  - {id: 1, delay: 10}\ntriggers:\n  - {id: 4, kind: COM, "
              "line: COM A-1, eventIds: [1]}\n  - {id: 4, kind: COM, line: COM A-1, eventIds: "
              "[1]}\n",
        "FILE:4:10: events[1].id: the id 1 is here already; once is allowed\n"
        "FILE:5:10: events[1].id: the id 1 is here already; once is allowed\n"
        "FILE:8:10: triggers[4].id: the id 4 is here already; once is allowed");
    row("no events", format + events + "triggers:\n  - {kind: COM, line: COM A-1, eventIds: []}\n",
        "FILE:5:42: triggers[0].eventIds: a trigger without events comes back with event 0; at "
        "least one is due");
    row("too many events of a trigger",
        format + events + "triggers:\n  - {kind: COM, line: COM A-1, eventIds: ["
            + QByteArray("1, ").repeated(128) + "1]}\n",
        "FILE:5:42: triggers[0].eventIds: there are 129; 128 are allowed");
    row("too many events", format + "events:\n" + manyEvents(129),
        "FILE:2:1: events: there are 129; a unit has room for 128");
    row("too many triggers",
        format + "events:\n  - {id: 1, delay: 10}\ntriggers:\n"
            + QByteArray("  - {kind: COM, line: COM A-1, eventIds: [1]}\n").repeated(40)
            + "timeTriggers:\n"
            + QByteArray("  - {repeat: EVERYDAY, startDate: 2024/03/07, endDate: forever, time: "
                         "08:05, eventIds: [1]}\n")
                  .repeated(25),
        "FILE:4:1: triggers: 65 records with time triggers are too many; 64 are "
        "allowed");
    row("COM D-3 and COM D-4",
        format + events
            + "triggers:\n  - {kind: COM, line: COM D-3, eventIds: [1]}\n  - {id: 1, kind: "
              "COM_MODBUS, line: COM D-4, parameter: 01 03 02 00 18 b8 4e, eventIds: [1]}\n  - "
              "{id: 2, kind: IO, line: IO D-4, parameter: low, eventIds: [1]}\n",
        "FILE:5:23: triggers[0].line: COM D-3 is read back as another line; COM A-1 to COM D-2 are "
        "allowed\n"
        "FILE:6:37: triggers[1].line: COM D-4 is read back as another line; COM A-1 to COM D-2 are "
        "allowed");
    row("no level", format + events + "triggers:\n  - {kind: IO, line: IO A-1, eventIds: [1]}\n",
        "FILE:5:5: triggers[0].parameter: it is missing, and a unit can't store that; high or low "
        "is allowed");
    row("lines beyond the device",
        format + device + events
            + "triggers:\n  - {kind: COM, line: COM A-2, eventIds: [1]}\n  - {kind: IO, line: IO "
              "A-2, parameter: low, eventIds: [1]}\n  - {kind: IO, line: IO A-3, parameter: low, "
              "eventIds: [1]}\n",
        "FILE:6:23: warning: triggers[0].line: COM A-2 is beyond the lines of the device, which "
        "has 1\n"
        "FILE:8:22: warning: triggers[2].line: IO A-3 is beyond the lines of the device, which has "
        "2");
    row("ports and lines",
        format + device
            + "serialPorts: [{port: 1, baudRate: 1, dataBits: 8, stopBits: 1, inspection: 2}, "
              "{port: 2, baudRate: 1, dataBits: 8, stopBits: 1, inspection: 2}]\nioLines: [{line: "
              "1, type: 0}]\n",
        "FILE:3:1: serialPorts: there are 2, but the device has 1; as many as it has are allowed\n"
        "FILE:4:1: ioLines: there are 1, but the device has 2; as many as it has are allowed");
    row("checksum",
        format + events
            + "triggers:\n  - {kind: COM_MODBUS, line: COM A-1, parameter: 01 03 02 00 18 b8 4f, "
              "eventIds: [1]}\n  - {id: 1, kind: COM_MODBUS, line: COM A-1, parameter: 01 03, "
              "eventIds: [1]}\n  - {id: 2, kind: COM, line: COM A-1, parameter: 01 03, eventIds: "
              "[1]}\n",
        "FILE:5:50: warning: triggers[0].parameter: the Modbus checksum is wrong; b8 4e would be "
        "right\n"
        "FILE:6:57: warning: triggers[1].parameter: it is too short for a Modbus message "
        "with a checksum");
    row("long parameter",
        format + events + "triggers:\n  - {kind: COM, line: COM A-1, parameterText: "
            + QByteArray(306, 'x') + ", eventIds: [1]}\n",
        "FILE:5:47: triggers[0].parameter: 306 bytes are too many; 305 are allowed");
    row("long trigger description",
        format + events + "triggers:\n  - {kind: COM, line: COM A-1, description: "
            + QByteArray(33, 'x') + ", eventIds: [1]}\n",
        "FILE:5:45: triggers[0].description: 33 UTF-16 units are too many; 32 are allowed");
    row("description of pairs",
        format + events + "triggers:\n  - {kind: COM, line: COM A-1, description: \""
            + QByteArray("😀").repeated(17) + "\", eventIds: [1]}\n",
        "FILE:5:45: triggers[0].description: 34 UTF-16 units are too many; 32 are allowed");
    row("longest parameter and description",
        format + events + "triggers:\n  - {kind: COM, line: COM A-1, parameterText: "
            + QByteArray(305, 'x') + ", description: " + QByteArray(32, 'x') + ", eventIds: [1]}\n",
        "");
    row("long command",
        format + "events:\n  - {id: 1, protocolText: " + QByteArray(320, 'x') + "}\n",
        "FILE:3:27: events[1].protocol: 320 bytes are too many; 319 are allowed");
    row("long description",
        format + "events:\n  - {id: 1, delay: 1, description: " + QByteArray(128, 'x') + "}\n",
        "FILE:3:36: events[1].description: description and name take 128 UTF-16 units, with 2 "
        "between them if there is a name; 127 are allowed");
    row("long description and name",
        format + "events:\n  - {id: 1, delay: 1, description: " + QByteArray(100, 'x')
            + ", name: " + QByteArray(26, 'y') + "}\n",
        "FILE:3:36: events[1].description: description and name take 128 UTF-16 units, with 2 "
        "between them if there is a name; 127 are allowed");
    row("longest description and name",
        format + "events:\n  - {id: 1, delay: 1, description: " + QByteArray(100, 'x')
            + ", name: " + QByteArray(25, 'y') + "}\n",
        "");
    row("block too small",
        format + "events:\n  - {id: 1, protocolText: " + QByteArray(300, 'x')
            + ", description: " + QByteArray(105, 'x') + "}\n",
        "FILE:3:342: events[1].description: command, description and name take 510 bytes; 508 are "
        "allowed");
    row("block just large enough",
        format + "events:\n  - {id: 1, protocolText: " + QByteArray(300, 'x')
            + ", description: " + QByteArray(104, 'x') + "}\n",
        "");
    row("mark at the start",
        format + "events:\n  - {id: 1, delay: 1, description: \"\\uFEFF" + QByteArray(126, 'x')
            + "\"}\n",
        "FILE:3:36: events[1].description: description and name take 128 UTF-16 units, with 2 "
        "between them if there is a name; 127 are allowed");
    row("separator in the description",
        format + "events:\n  - {id: 1, delay: 1, description: a$$b}\n",
        "FILE:3:36: events[1].description: \"$$\" is not allowed; what follows it would be read as "
        "the name");
    row("separator in the name", format + "events:\n  - {id: 1, delay: 1, name: a$$b}\n",
        "FILE:3:29: events[1].name: \"$$\" is not allowed; a unit drops what follows it");
    row("dollar ahead of a name",
        format + "events:\n  - {id: 1, delay: 1, description: a$, name: b}\n",
        "FILE:3:36: events[1].description: \"$\" is not allowed at the end ahead of a name; it "
        "would be read as part of that");
    row("dollar without a name", format + "events:\n  - {id: 1, delay: 1, description: a$}\n", "");
    row("name of a new event", format + "events:\n  - {id: 1, delay: 1, name: 事件名称01}\n",
        "FILE:3:29: events[1].name: this name is read as none; another one is allowed, or leave "
        "the key out");
    row("zero", format + "events:\n  - {id: 1, delay: 1, description: \"a\\0b\"}\n",
        "FILE:3:36: events[1].description: U+0000 is not allowed; a unit drops it and all that "
        "follows");
    row("foreign head of a delay",
        format + "events:\n  - {id: 1, protocol: 00 00 00 a5 a5 00 ff}\n",
        "FILE:3:23: events[1].protocol: a unit takes this command for a delay and forgets its "
        "first three bytes; \"delay\" is due instead");
    row("dates",
        format + events
            + "timeTriggers:\n  - {repeat: EVERYDAY, startDate: 2026/02/30, endDate: 1999/12/31, "
              "time: 08:05, eventIds: [1]}\n",
        "FILE:5:35: timeTriggers[0].startDate: there is no day \"2026/02/30\"; days from 2000 to "
        "2099 are allowed, such as \"2024/03/07\"\n"
        "FILE:5:56: timeTriggers[0].endDate: there is no day \"1999/12/31\"; days from 2000 to "
        "2099 are allowed, such as \"2024/03/07\"");
    row("another form of a date",
        format + events
            + "timeTriggers:\n  - {repeat: EVERYDAY, startDate: 2026-02-03, endDate: never, time: "
              "08:05, eventIds: [1]}\n",
        "FILE:5:35: timeTriggers[0].startDate: there is no day \"2026-02-03\"; days from 2000 to "
        "2099 are allowed, such as \"2024/03/07\"\n"
        "FILE:5:56: timeTriggers[0].endDate: there is no day \"never\"; days from 2000 to 2099 are "
        "allowed, such as \"2024/03/07\"");
    row("dates as a unit reports them",
        format + events
            + "timeTriggers:\n  - {repeat: EVERYDAY, startDate: 206/09/27, endDate: 200/02/29, "
              "time: 08:05, eventIds: [1]}\n",
        "");
    row("times",
        format + events
            + "timeTriggers:\n  - {repeat: EVERYDAY, startDate: 2024/03/07, endDate: forever, "
              "time: \"24:00\", eventIds: [1]}\n  - {id: 1, repeat: EVERYDAY, startDate: "
              "2024/03/07, endDate: forever, time: 8h, eventIds: [1]}\n",
        "FILE:5:71: timeTriggers[0].time: there is no time \"24:00\"; \"00:00\" to \"23:59\" are "
        "allowed\n"
        "FILE:6:78: timeTriggers[1].time: there is no time \"8h\"; \"00:00\" to \"23:59\" are "
        "allowed");
    row("end of a trigger that runs once",
        format + events
            + "timeTriggers:\n  - {repeat: ONCE, startDate: 2024/03/07, endDate: forever, time: "
              "08:05, eventIds: [1]}\n",
        "FILE:5:52: timeTriggers[0].endDate: a trigger that runs once is read back with the day "
        "that it starts on; \"2024/03/07\" is allowed");
    row("doubled weekday",
        format + events
            + "timeTriggers:\n  - {repeat: WEEKLY, startDate: 2024/03/07, endDate: forever, "
              "weekdays: [2, 1, 2], time: 08:05, eventIds: [1]}\n",
        "FILE:5:73: timeTriggers[0].weekdays: 2 is here already; once is allowed");
    row("unused events",
        format + events
            + "  - {id: 2, delay: 10}\n  - {id: 3, delay: 10}\ntriggers: [{kind: COM, line: COM "
              "A-1, eventIds: [1]}]\ntimeTriggers: [{repeat: EVERYDAY, startDate: 2024/03/07, "
              "endDate: forever, time: 08:05, eventIds: [3]}]\n",
        "FILE:4:5: note: events[2]: nothing uses it");
}

void TestContentsCheck::findsFaultsOfDocuments()
{
    QFETCH(QByteArray, text);
    const Document document = parseDocument(text, Form::Yaml);
    QCOMPARE(messagesOf(document.findings), QString());
    QTEST(messagesOf(checkContents(document.contents, document.positions), QStringLiteral("FILE")),
        "messages");
}

/** What no document can say, but a program that makes contents can. */
void TestContentsCheck::findsFaultsOfContents_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("messages");
    const auto row = [](const char* name, const Change& change, const char* messages) {
        QTest::newRow(name) << change << messages;
    };
    row(
        "id", [](Contents& contents) { (*contents.events)[31].id = 256; },
        "events[256].id: 256 is out of range; 0 to 255 are allowed");
    row(
        "delay", [](Contents& contents) { (*contents.events)[3].delay = -1; },
        "events[4].delay: -1 is out of range; 0 to 65535 are allowed");
    row(
        "port",
        [](Contents& contents) {
            contents.serialPorts->last() = SerialPort{9600, 128, -129, 3};
        },
        "serialPorts[9].dataBits: 128 is out of range; -128 to 127 are allowed\n"
        "serialPorts[9].stopBits: -129 is out of range; -128 to 127 are allowed\n"
        "serialPorts[9].inspection: 3 is out of range; 0 to 2 are allowed");
    row(
        "line", [](Contents& contents) { contents.ioLines->first().type = -1; },
        "ioLines[1].type: -1 is out of range; 0 to 2 are allowed");
    row(
        "line of a trigger", [](Contents& contents) { (*contents.triggers)[0].line = 16; },
        "triggers[0].line: 16 is out of range; 0 to 15 are allowed");
    row(
        "event of a trigger", [](Contents& contents) { (*contents.triggers)[0].eventIds = {-1}; },
        "triggers[0].eventIds: -1 is out of range; 0 to 255 are allowed\n"
        "triggers[0].eventIds: there is no event -1; only those in \"events\" are allowed");
    row(
        "weekday",
        [](Contents& contents) {
            (*contents.timeTriggers)[0].weekdays = {0, 9};
        },
        "timeTriggers[0].weekdays: 0 is out of range; 1 to 8 are allowed\n"
        "timeTriggers[0].weekdays: 9 is out of range; 1 to 8 are allowed");
    row(
        "half a pair",
        [](Contents& contents) { (*contents.events)[3].description = QChar(0xD83D); },
        "events[4].description: half a surrogate pair is not allowed; only whole ones are");
    row(
        "the other half",
        [](Contents& contents) {
            (*contents.triggers)[0].description = QString(QChar(0xDE00)) + QChar(0xD83D);
        },
        "triggers[0].description: half a surrogate pair is not allowed; only whole ones are");
    row(
        "a text for a terminal",
        [](Contents& contents) { (*contents.timeTriggers)[0].time = QStringLiteral("\x1B[31m"); },
        "timeTriggers[0].time: there is no time \"\\u001b[31m\"; \"00:00\" to \"23:59\" are "
        "allowed");
    row(
        "a line that nobody knows",
        [](Contents& contents) { (*contents.triggers)[4].line = unknownLine; },
        "note: triggers[4].line: it is not known; a project file has no place for that of a Modbus "
        "trigger");
}

void TestContentsCheck::findsFaultsOfContents()
{
    QFETCH(Change, change);
    Contents contents = sampleContents();
    change(contents);
    Findings findings = checkContents(contents);
    findings.erase(std::remove_if(findings.begin(), findings.end(),
                       [](const Finding& finding) {
                           return finding.text == QLatin1String("nothing uses it");
                       }),
        findings.end());
    QTEST(messagesOf(findings), "messages");
}

void TestContentsCheck::acceptsTheSample()
{
    const Findings findings = checkContents(sampleContents());
    QVERIFY(std::all_of(findings.begin(), findings.end(),
        [](const Finding& finding) { return finding.severity == Severity::Note; }));
}

QTEST_GUILESS_MAIN(TestContentsCheck)
#include "tst_contentscheck.moc"
