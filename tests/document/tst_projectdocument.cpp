// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "projectdocument.h"
#include "samplecontents.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

using namespace QuadrelDocument;

namespace {

const QByteArray project =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<DataPackage>\n"
    "<Device>Zorbe 3100</Device>\n"
    "<Configs>\n"
    "<COM><BaudRate>9600</BaudRate><DataBits>8</DataBits>"
    "<StopBits>1</StopBits><InspectionType>2</InspectionType></COM>\n"
    "<IO><Model>1</Model></IO>\n"
    "</Configs>\n"
    "<Events>\n"
    "<EventInfo><ID>3</ID><EventType>Deal</EventType>"
    "<ProtocolType>Hex</ProtocolType><Protocol>4c 01 00</Protocol>"
    "<Instruction>打开</Instruction></EventInfo>\n"
    "<EventInfo><ID>4</ID><EventType>Delay</EventType>"
    "<ProtocolType>Hex</ProtocolType><Protocol>25.5*10ms</Protocol>"
    "<Instruction/></EventInfo>\n"
    "</Events>\n"
    "<Triggers>\n"
    "<TriggerInfo><TriggerType>COM</TriggerType><COM>COM A-2</COM>"
    "<ProtocolType>ASCII</ProtocolType><Protocol>OK</Protocol>"
    "<Instruction/><Event>ID:3;ID:4</Event></TriggerInfo>\n"
    "<TriggerInfo><TriggerType>IO</TriggerType><IO>IO B-1</IO>"
    "<ProtocolType>Hex</ProtocolType><Protocol>输入-高电平</Protocol>"
    "<Instruction/><Event>名称01ID:3</Event></TriggerInfo>\n"
    "<TriggerInfo><ProtocolType>Hex</ProtocolType><Protocol>01 03 02 00 18 b8 4e</Protocol>"
    "<Instruction/><Event>ID:3</Event></TriggerInfo>\n"
    "</Triggers>\n"
    "</DataPackage>\n";

/** The text with the first `from` as `to`. */
QByteArray changed(const QByteArray& from, const QByteArray& to)
{
    QByteArray text = project;
    return text.replace(text.indexOf(from), from.size(), to);
}

LoadedFile loaded(const QByteArray& text)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.xml"));
    saveText(path, text);
    return loadFile(path);
}

Contents savedAndLoaded(const Contents& contents, QString* messages)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.xml"));
    *messages = saveFile(path, contents);
    const LoadedFile file = loadFile(path);
    for (const Finding& finding : file.findings) {
        if (finding.severity == Severity::Error
            && !finding.text.contains(QStringLiteral("event 0")))
            *messages += messageOf(finding);
    }
    return file.contents;
}

} // namespace

/** Project files, looked at more strictly than the library's reader does. */
class TestProjectDocument : public QObject {
    Q_OBJECT

private slots:
    void readsProjects();
    void takesWhatItWrites();
    void accepts_data();
    void accepts();
    void refuses_data();
    void refuses();
    void boundsFaults_data();
    void boundsFaults();
    void tellsLosses();
    void keepsWhatItDoesNotCallLost();
};

void TestProjectDocument::readsProjects()
{
    const LoadedFile file = loaded(project);
    QCOMPARE(messagesOf(file.findings, QStringLiteral("FILE")),
        QStringLiteral("FILE:15:1: note: triggers[2].line: it is not known; a project file has no "
                       "place for that of a Modbus trigger"));
    const Contents& contents = file.contents;
    QVERIFY(!contents.device && !contents.timeTriggers && !contents.clock);
    QCOMPARE(contents.serialPorts->first().baudRate, 9600);
    QCOMPARE(contents.ioLines->first().type, 1);
    QCOMPARE(contents.events->at(0).command, QByteArray::fromHex("4c0100"));
    QVERIFY(!contents.events->at(0).name);
    QCOMPARE(*contents.events->at(1).delay, 255);
    QCOMPARE(contents.triggers->size(), 3);
    QCOMPARE(contents.triggers->at(0).parameter, QByteArray("OK"));
    QCOMPARE(contents.triggers->at(0).eventIds, (QVector<int>{3, 4}));
    QCOMPARE(*contents.triggers->at(1).level, Level::High);
    QCOMPARE(contents.triggers->at(2).kind, TriggerKind::ComModbus);
    QCOMPARE(contents.triggers->at(2).line, unknownLine);
    QCOMPARE(contents.triggers->at(2).parameter, QByteArray::fromHex("0103020018b84e"));
    QCOMPARE(contents.triggers->at(2).id, 2);
}

/** What the library writes of a unit is never called wrong. */
void TestProjectDocument::takesWhatItWrites()
{
    Contents contents = sampleContents();
    contents.triggers->append(Trigger{10, TriggerKind::Com, 3, {}, {}, {}, {}});
    contents.triggers->append(Trigger{11, TriggerKind::Io, 3, {}, {}, {1}, {}});
    contents.triggers->append(Trigger{12, TriggerKind::ComModbus, 3, {}, {}, {}, {}});
    (*contents.serialPorts)[0] = SerialPort{-1, -128, 127, 0};
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.xml"));
    QCOMPARE(saveFile(path, contents), QString());
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(messagesOf(parseProject(path, file.readAll()).findings), QString());
}

void TestProjectDocument::accepts_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::newRow("comment between records")
        << QByteArray("<Events>") << QByteArray("<!-- a --><Events><!-- b -->");
    QTest::newRow("comment within a value") << QByteArray("<ID>3") << QByteArray("<ID>3<!-- c -->");
    QTest::newRow("blanks around a number") << QByteArray("<ID>3<") << QByteArray("<ID> 3\n<");
    QTest::newRow("another order") << QByteArray("<ID>3</ID><EventType>Deal</EventType>")
                                   << QByteArray("<EventType>Deal</EventType><ID>3</ID>");
    QTest::newRow("hex without blanks") << QByteArray("4c 01 00") << QByteArray("4C0100");
    QTest::newRow("no word for the type") << QByteArray(">Deal<") << QByteArray("><");
    QTest::newRow("no level") << QByteArray("输入-高电平") << QByteArray();
    QTest::newRow("marked text") << QByteArray("打开") << QByteArray("<![CDATA[打开]]>");
    QTest::newRow("attributes") << QByteArray("<EventInfo>") << QByteArray("<EventInfo a='1'>");
    QTest::newRow("line ends") << QByteArray() << QByteArray();
}

void TestProjectDocument::accepts()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QByteArray text = changed(from, to);
    if (from.isEmpty())
        text.replace("\n", "\r\n");
    const LoadedFile file = loaded(text);
    const Contents expected = loaded(project).contents;
    QVERIFY(!hasErrors(file.findings) || file.contents.triggers->at(1).level != Level::High);
    QCOMPARE(file.contents.events, expected.events);
    QCOMPARE(file.contents.serialPorts, expected.serialPorts);
    QCOMPARE(file.contents.triggers->size(), 3);
}

void TestProjectDocument::refuses_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("messages");
    const auto row = [](const char* name, const QByteArray& from, const QByteArray& to,
                         const char* messages) {
        QTest::newRow(name) << changed(from, to) << messages;
    };
    row("event type", ">Deal<", ">Dela<",
        "FILE:9:33: events[3]: \"Dela\" in EventType is not allowed; allowed are \"Deal\", "
        "\"Delay\", \"\"");
    row("protocol type", "<ProtocolType>Hex", "<ProtocolType>hex",
        "FILE:9:63: events[3]: \"hex\" in ProtocolType is not allowed; allowed are \"Hex\", "
        "\"ASCII\"");
    row("hex", "4c 01 00", "POWER ON",
        "FILE:9:91: events[3]: \"POWER ON\" in Protocol is not allowed; pairs of the digits 0 to 9 "
        "and a to f are, such as \"4c 01 00\"");
    row("ASCII of an event", "<ProtocolType>Hex</ProtocolType><Protocol>4c 01 00",
        "<ProtocolType>ASCII</ProtocolType><Protocol>PWR",
        "FILE:9:93: events[3]: \"PWR\" in Protocol is not allowed; pairs of the digits 0 to 9 and "
        "a to f are, such as \"4c 01 00\"");
    row("delay", "25.5*10ms", "255ms",
        "FILE:10:92: events[4]: \"255ms\" in Protocol is not a delay; \"0*10ms\" to "
        "\"6553.5*10ms\" "
        "are allowed");
    row("long delay", "25.5*10ms", "6553.6*10ms",
        "FILE:10:92: events[4]: \"6553.6*10ms\" in Protocol is not a delay; \"0*10ms\" to "
        "\"6553.5*10ms\" are allowed");
    row("id", "<ID>3<", "<ID>256<",
        "FILE:9:16: events[256]: \"256\" in ID is not allowed; a whole number from 0 to 255 is");
    row("no id", "<ID>3<", "<ID><",
        "FILE:9:16: events[]: \"\" in ID is not allowed; a whole number from 0 to 255 is");
    row("id in hex", "<ID>3<", "<ID>0x3<",
        "FILE:9:16: events[0x3]: \"0x3\" in ID is not allowed; a whole number from 0 to 255 is");
    row("doubled id", "<ID>4<", "<ID>3<",
        "FILE:10:16: events[3]: the id 3 is here already; once is allowed");
    row("missing element", "<EventType>Deal</EventType>", "",
        "FILE:9:1: events[3]: the element \"EventType\" is missing, and the reader would skip the "
        "record");
    row("comment within a record", "<ID>3</ID>", "<ID>3</ID><!-- the first -->",
        "FILE:9:22: a comment within a record makes the reader skip the record; between records it "
        "is allowed");
    row("element more", "<ID>3</ID>", "<ID>3</ID><Name>a</Name>",
        "FILE:9:22: events[3]: the element \"Name\" makes the reader skip the record; allowed are "
        "ID, EventType, ProtocolType, Protocol, Instruction");
    row("element twice", "<ID>3</ID>", "<ID>3</ID><ID>3</ID>",
        "FILE:9:22: events[3]: the element \"ID\" is here already; once is allowed");
    row("element in a value", "<ID>3<", "<ID><b>3</b><",
        "FILE:9:16: the element \"b\" is not allowed here; only text is\n"
        "FILE:9:16: events[]: \"\" in ID is not allowed; a whole number from 0 to 255 is");
    row("text in a record", "<ID>3</ID>", "a<ID>3</ID>",
        "FILE:9:12: text is not allowed here; only elements are");
    row("text in a section", "<Events>", "<Events>a",
        "FILE:8:9: text is not allowed here; only elements are");
    row("instruction of XML", "<ID>3</ID>", "<?a b?><ID>3</ID>",
        "FILE:9:12: a comment within a record makes the reader skip the record; between records it "
        "is allowed");
    row("another record", "<EventInfo>", "<Event>",
        "FILE:9:1: \"Event\" is not a record of this section; allowed are EventInfo\n"
        "FILE:9:147: this is not well-formed XML: Opening and ending tag mismatch.");
    row("level", "输入-高电平", "input-high",
        "FILE:14:100: triggers[1]: \"input-high\" in Protocol is not allowed; allowed are "
        "\"输入-高电平\", \"输入-低电平\", \"\"");
    row("line", "COM A-2", "COM Z-9",
        "FILE:13:49: triggers[0]: \"COM Z-9\" in COM is not allowed; COM A-1 to COM D-4 are");
    row("line of the other kind", "<COM>COM A-2</COM>", "<IO>IO A-1</IO>",
        "FILE:13:1: triggers[0]: the element \"COM\" is missing, and the reader would skip the "
        "record\n"
        "FILE:13:44: triggers[0]: the element \"IO\" makes the reader skip the record; allowed are "
        "TriggerType, COM, ProtocolType, Protocol, Instruction, Event");
    row("no line", "<COM>COM A-2</COM>", "<COM></COM>",
        "FILE:13:49: triggers[0]: \"\" in COM is not allowed; COM A-1 to COM D-4 are");
    row("kind", "<TriggerType>COM", "<TriggerType>RS232",
        "FILE:13:27: triggers[0]: \"RS232\" in TriggerType is not allowed; allowed are \"COM\", "
        "\"IO\"");
    row("no kind", "<TriggerType>COM</TriggerType>", "",
        "FILE:13:1: triggers[0]: the element \"TriggerType\" is missing, and the reader would skip "
        "the record");
    row("no Latin-1", ">OK<", ">开<",
        "FILE:13:106: triggers[0]: \"开\" in Protocol is not allowed; characters up to U+00FF are");
    row("missing event", "ID:3;ID:4", "ID:3;ID:9",
        "FILE:13:140: triggers[0].eventIds: there is no event 9; only those in \"events\" are "
        "allowed\n"
        "FILE:15:1: note: triggers[2].line: it is not known; a project file has no place for that "
        "of a Modbus trigger");
    row("event beyond 255", "ID:3;ID:4", "ID:256",
        "FILE:13:140: triggers[0]: \"ID:256\" in Event is not allowed; items from \"ID:0\" to "
        "\"ID:255\" with \";\" between them are");
    row("no event id", "ID:3;ID:4", "ID:3;4",
        "FILE:13:140: triggers[0]: \"4\" in Event is not allowed; items from \"ID:0\" to "
        "\"ID:255\" with \";\" between them are");
    row("empty item", "ID:3;ID:4", "ID:3;",
        "FILE:13:140: triggers[0]: \"\" in Event is not allowed; items from \"ID:0\" to \"ID:255\" "
        "with \";\" between them are");
    row("no events", "ID:3;ID:4", "",
        "FILE:13:140: triggers[0].eventIds: a trigger without events comes back with event 0; at "
        "least one is due\n"
        "FILE:15:1: note: triggers[2].line: it is not known; a project file has no place for that "
        "of a Modbus trigger");
    row("Modbus hex", ">01 03 02 00", ">01 03 02 0",
        "FILE:15:56: triggers[2]: \"01 03 02 0 18 b8 4e\" in Protocol is not allowed; pairs of the "
        "digits 0 to 9 and a to f are, such as \"4c 01 00\"");
    row("Modbus element", "<Protocol>01 03 02 00 18 b8 4e</Protocol>", "<Parameter>aa</Parameter>",
        "FILE:15:1: triggers[2]: the element \"Protocol\" is missing, and the reader would skip "
        "the record\n"
        "FILE:15:46: triggers[2]: the element \"Parameter\" makes the reader skip the record; "
        "allowed are ProtocolType, Protocol, Instruction, Event");
    row("comment in a port", "<BaudRate>", "<!-- first --><BaudRate>",
        "FILE:5:6: a comment within a record makes the reader skip the record; between records it "
        "is allowed");
    row("baud rate", "9600", "9k6",
        "FILE:5:16: serialPorts[1]: \"9k6\" in BaudRate is not allowed; a whole number from "
        "-2147483648 to 2147483647 is");
    row("data bits", "<DataBits>8", "<DataBits>200",
        "FILE:5:41: serialPorts[1]: \"200\" in DataBits is not allowed; a whole number from -128 "
        "to 127 is");
    row("inspection", "<InspectionType>2", "<InspectionType>3",
        "FILE:5:91: serialPorts[1]: \"3\" in InspectionType is not allowed; a whole number from 0 "
        "to 2 is");
    row("model", "<Model>1", "<Model>7",
        "FILE:6:12: ioLines[1]: \"7\" in Model is not allowed; a whole number from 0 to 2 is");
    row("line with more", "<Model>1</Model>", "<Model>1</Model><Model>1</Model>",
        "FILE:6:21: ioLines[1]: the element \"Model\" is here already; once is allowed");
    row("another config", "<IO><Model>1</Model></IO>", "<RELAY/>",
        "FILE:6:1: \"RELAY\" is not a record of this section; allowed are COM, IO");
    row("section twice", "<Triggers>", "<Events/><Triggers>",
        "FILE:12:1: Events: this section is here already; a second one is never read");
    row("unknown section", "<Triggers>", "<Trigers/><Triggers>",
        "FILE:12:1: warning: the element \"Trigers\" is never read; Device, Configs, Events and "
        "Triggers are known\n"
        "FILE:15:1: note: triggers[2].line: it is not known; a project file has no place for that "
        "of a Modbus trigger");
    row("document type", "<DataPackage>", "<!DOCTYPE a><DataPackage>",
        "FILE:1:39: a document type has no place in a project file");
    row("not well-formed", "</Events>", "</Event>",
        "FILE:11:9: this is not well-formed XML: Opening and ending tag mismatch.");
    row("cut off", "</Triggers>\n</DataPackage>\n", "",
        "FILE:16:1: this is not well-formed XML: Premature end of document.");
    row("a text for a terminal", ">Deal<", ">&#155;31m<",
        "FILE:9:33: events[3]: \"\\u009b31m\" in EventType is not allowed; allowed are \"Deal\", "
        "\"Delay\", \"\"");
}

void TestProjectDocument::refuses()
{
    QFETCH(QByteArray, text);
    const LoadedFile file = loaded(text);
    QTEST(messagesOf(file.findings, QStringLiteral("FILE")), "messages");
}

void TestProjectDocument::boundsFaults_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("findings");
    const QByteArray record = "<Triggers><TriggerInfo>";
    const QByteArray recordEnd = "</TriggerInfo></Triggers>";
    QByteArray attributes;
    for (int i = 0; i < 200000; ++i)
        attributes += " a" + QByteArray::number(i) + "=''";
    QTest::newRow("sections after elements that nobody reads")
        << QByteArray("<a/>").repeated(400000) + QByteArray("<Events/>").repeated(200000)
        << 2 * maximumFindings;
    QTest::newRow("elements of a record") << record + QByteArray("<a/>").repeated(400000)
            + QByteArray("<Event/>").repeated(200000)
            + recordEnd << maximumFindings;
    QTest::newRow("events of a trigger") << record + "<Event>" + QByteArray("a;").repeated(1500000)
            + "</Event>" + recordEnd << maximumFindings;
    QTest::newRow("triggers after too many faults") << "<Triggers>"
            + QByteArray("<b/>").repeated(2000)
            + QByteArray("<TriggerInfo><a/><a/><a/><a/></TriggerInfo>").repeated(100)
            + "</Triggers>" << maximumFindings;
    QTest::newRow("attributes") << "<Device" + attributes + "/>" << 1;
}

/** Faults without end, in a time and a memory that follow from the size. */
void TestProjectDocument::boundsFaults()
{
    QFETCH(QByteArray, text);
    QFETCH(int, findings);
    const LoadedFile file = loaded("<R>" + text + "</R>");
    QCOMPARE(file.findings.size(), findings);
    QVERIFY(hasErrors(file.findings));
}

void TestProjectDocument::tellsLosses()
{
    Contents contents = sampleContents();
    contents.events = contents.events->mid(7, 3);
    (*contents.events)[1].description = QStringLiteral("a\x07"
                                                       "b")
        + QChar(0xFFFE) + QChar(0x1B);
    (*contents.events)[2].description = QStringLiteral(" \t");
    contents.triggers = contents.triggers->mid(5, 1);
    contents.timeTriggers = contents.timeTriggers->mid(0, 1);
    QCOMPARE(messagesOf(lossesInProject(contents)),
        QStringLiteral(
            "warning: device: a project file has no place for it\n"
            "warning: events[8].name: a project file has no place for it\n"
            "warning: events[9].description: a project file has no place for the character U+0007\n"
            "warning: events[9].description: a project file has no place for the character U+FFFE\n"
            "warning: events[9].description: a project file has no place for the character U+001B\n"
            "warning: events[10].description: a project file has no place for blanks alone\n"
            "warning: triggers[5]: a project file has no place for kind and line of a Modbus "
            "trigger\n"
            "warning: timeTriggers[0]: a project file has no place for it"));
    contents = Contents();
    contents.events = QVector<Event>();
    contents.triggers = QVector<Trigger>();
    QCOMPARE(messagesOf(lossesInProject(contents)),
        QStringLiteral("warning: events: a project file can't say that there are none\n"
                       "warning: triggers: a project file can't say that there are none"));
}

/** Each character that is not called lost comes back; all others are, and are left out. */
void TestProjectDocument::keepsWhatItDoesNotCallLost()
{
    Contents contents;
    contents.events.emplace();
    QStringList expected;
    for (uint character = 1; character < 0x10100; ++character) {
        const QString middle = character < 0x10000 ? QString(QChar(static_cast<ushort>(character)))
                                                   : QString::fromUcs4(&character, 1);
        const QString text = QStringLiteral("a%1b").arg(middle);
        contents.events = QVector<Event>{Event{0, {}, 0, {}, text}};
        const bool isLost = !lossesInProject(contents).isEmpty();
        QVERIFY2(isLost == (textInProject(text) != text), qPrintable(QString::number(character)));
        expected.append(text);
    }
    // As many as one file holds at a time.
    while (!expected.isEmpty()) {
        contents.events->clear();
        for (int i = 0; i < Limit::events && !expected.isEmpty(); ++i) {
            QString text;
            while (text.size() < 3000 && !expected.isEmpty())
                text += expected.takeFirst();
            contents.events->append(Event{i, {}, 0, {}, text});
        }
        QString messages;
        const Contents back = savedAndLoaded(contents, &messages);
        QCOMPARE(back.events->size(), contents.events->size());
        for (int i = 0; i < back.events->size(); ++i)
            QCOMPARE(
                back.events->at(i).description, textInProject(contents.events->at(i).description));
    }
}

QTEST_GUILESS_MAIN(TestProjectDocument)
#include "tst_projectdocument.moc"
