// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "contentscheck.h"
#include "documentedit.h"
#include "samplecontents.h"

#include <QtTest/QtTest>

using namespace QuadrelDocument;

Q_DECLARE_METATYPE(QuadrelDocument::Form)

namespace {

const QByteArray yaml = "# The hall\n"
                        "format: quadrel-unit/1   # never changes\n"
                        "events:\n"
                        "  # On and off\n"
                        "  - id: 8\n"
                        "    description: Screen off   # in the hall\n"
                        "    protocol: \"4c 01 00 41 42 43\"  # L\\x01\\0ABC\n"
                        "    type: 0\n"
                        "\n"
                        "  - {id: 9, delay: 500}   # a moment\n"
                        "  - id: 10\n"
                        "    name: >\n"
                        "      A name\n"
                        "      in lines\n"
                        "    delay: 1\n"
                        "# The rest\n"
                        "triggers:\n"
                        "- kind: COM\n"
                        "  line: COM A-1\n"
                        "  eventIds:\n"
                        "    - 8\n"
                        "    - 9\n"
                        "timeTriggers: []  # none\n";

const QByteArray json = "{\n"
                        "    \"format\": \"quadrel-unit/1\",\n"
                        "    \"events\": [\n"
                        "        {\n"
                        "            \"id\": 8,\n"
                        "            \"delay\": 500\n"
                        "        },\n"
                        "        {\"id\": 9, \"delay\": 1, \"description\": \"x\"}\n"
                        "    ],\n"
                        "    \"triggers\": []\n"
                        "}\n";

/** The lines that one text has more than another, after "+", or less, after "-". */
QString changedLines(const QByteArray& before, const QByteArray& after)
{
    const QStringList old = QString::fromUtf8(before).split(QLatin1Char('\n'));
    const QStringList now = QString::fromUtf8(after).split(QLatin1Char('\n'));
    int head = 0;
    while (head < old.size() && head < now.size() && old.at(head) == now.at(head))
        ++head;
    int tail = 0;
    while (tail < old.size() - head && tail < now.size() - head
        && old.at(old.size() - 1 - tail) == now.at(now.size() - 1 - tail))
        ++tail;
    QStringList lines;
    for (const QString& line : old.mid(head, old.size() - head - tail))
        lines.append(QLatin1Char('-') + line);
    for (const QString& line : now.mid(head, now.size() - head - tail))
        lines.append(QLatin1Char('+') + line);
    return lines.join(QLatin1Char('\n'));
}

} // namespace

/** Changes to a document's text that leave the rest of it as it is. */
class TestDocumentEdit : public QObject {
    Q_OBJECT

private slots:
    void sets_data();
    void sets();
    void unsets_data();
    void unsets();
    void refuses_data();
    void refuses();
    void gets_data();
    void gets();
    void changesWhatItWrote_data();
    void changesWhatItWrote();
    void keepsLineEndsAndMark();
    void refusesProjects();
    void putsErrorsIntoComments();
};

void TestDocumentEdit::sets_data()
{
    QTest::addColumn<Form>("form");
    QTest::addColumn<QString>("assignment");
    QTest::addColumn<QString>("lines");
    const auto inYaml = [](const char* assignment, const char* lines) {
        QTest::newRow(assignment) << Form::Yaml << assignment << lines;
    };
    const auto inJson = [](const char* assignment, const char* lines) {
        QTest::addRow("JSON: %s", assignment) << Form::Json << assignment << lines;
    };
    inYaml("events[8].description=Display: \"off\" # x",
        "-    description: Screen off   # in the hall\n"
        "+    description: \"Display: \\\"off\\\" # x\"   # in the hall");
    inYaml("events[8].description=\"a\\tb\"",
        "-    description: Screen off   # in the hall\n"
        "+    description: \"a\\tb\"   # in the hall");
    inYaml("events[8].description=",
        "-    description: Screen off   # in the hall\n+    description: \"\"   # in the hall");
    inYaml("events[8].name=Off", "+    name: \"Off\"");
    inYaml("events[8].protocol=4c 01 00 44 45 46",
        "-    protocol: \"4c 01 00 41 42 43\"  # L\\x01\\0ABC\n"
        "+    protocol: \"4c 01 00 44 45 46\"  # L\\x01\\0DEF");
    inYaml("events[8].protocol=4c",
        "-    protocol: \"4c 01 00 41 42 43\"  # L\\x01\\0ABC\n+    protocol: \"4c\"");
    inYaml("events[8].delay=500",
        "-    protocol: \"4c 01 00 41 42 43\"  # L\\x01\\0ABC\n-    type: 0\n"
        "+    type: 5\n+    delay: 500");
    inYaml("events[9].delay=255",
        "-  - {id: 9, delay: 500}   # a moment\n+  - {id: 9, delay: 255}   # a moment");
    inYaml("events[9].description=Wait",
        "-  - {id: 9, delay: 500}   # a moment\n"
        "+  - {id: 9, delay: 500, description: \"Wait\"}   # a moment");
    inYaml("events[10].name=Short",
        "-    name: >\n-      A name\n-      in lines\n+    name: \"Short\"");
    inYaml("events[40]={delay: 500, description: Wait}",
        "+  - id: 40\n+    delay: 500\n+    description: \"Wait\"");
    inYaml("events[9]={protocol: '41 42 43', description: x}",
        "-  - {id: 9, delay: 500}   # a moment\n"
        "+  - {id: 9, protocol: \"41 42 43\", description: \"x\"}   # a moment");
    inYaml("triggers[0].eventIds=[9, 8]", "-    - 8\n-    - 9\n+    [9, 8]");
    inYaml("triggers[0].line=COM B-2", "-  line: COM A-1\n+  line: COM B-2");
    inYaml("triggers[0].parameterText=OK\\r", "+  parameterText: \"OK\\\\r\"");
    inYaml("triggers[1]={kind: IO, line: IO A-1, parameter: high, eventIds: [8]}",
        "+- id: 1\n+  kind: IO\n+  line: IO A-1\n+  parameter: high\n+  eventIds: [8]");
    inYaml("timeTriggers[0]={repeat: ONCE, startDate: 2024/03/07, endDate: forever, time: 08:05, "
           "eventIds: [8]}",
        "-timeTriggers: []  # none\n+timeTriggers:\n+  - id: 0\n+    repeat: ONCE\n"
        "+    startDate: \"2024/03/07\"\n+    endDate: forever\n+    time: \"08:05\"\n"
        "+    eventIds: [8]  # none");
    inYaml("ioLines[1]={type: 2}", "+ioLines:\n+  - line: 1\n+    type: 2");
    inJson("events[8].delay=600", "-            \"delay\": 500\n+            \"delay\": 600");
    inJson("events[8].description=Off",
        "-            \"delay\": 500\n"
        "+            \"delay\": 500,\n+            \"description\": \"Off\"");
    inJson("events[9].name=y",
        "-        {\"id\": 9, \"delay\": 1, \"description\": \"x\"}\n"
        "+        {\"id\": 9, \"name\": \"y\", \"delay\": 1, \"description\": \"x\"}");
    inJson("events[40]={delay: 5}",
        "-        {\"id\": 9, \"delay\": 1, \"description\": \"x\"}\n"
        "+        {\"id\": 9, \"delay\": 1, \"description\": \"x\"},\n"
        "+        {\n+            \"id\": 40,\n+            \"delay\": 5\n+        }");
    inJson("triggers[0]={kind: IO, line: IO A-1, parameter: low, eventIds: [8]}",
        "-    \"triggers\": []\n"
        "+    \"triggers\": [\n+        {\n+            \"id\": 0,\n+            \"kind\": "
        "\"IO\",\n"
        "+            \"line\": \"IO A-1\",\n+            \"parameter\": \"low\",\n"
        "+            \"eventIds\": [8]\n+        }\n+    ]");
    inJson("ioLines[1]={type: 2}",
        "+    \"ioLines\": [\n+        {\n+            \"line\": 1,\n+            \"type\": 2\n"
        "+        }\n+    ],");
}

void TestDocumentEdit::sets()
{
    QFETCH(Form, form);
    QFETCH(QString, assignment);
    const QByteArray before = form == Form::Json ? json : yaml;
    const EditedText result = setValue(before, form, assignment);
    QCOMPARE(result.error, QString());
    QTEST(changedLines(before, result.text), "lines");
}

void TestDocumentEdit::unsets_data()
{
    QTest::addColumn<Form>("form");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("lines");
    const auto inYaml = [](const char* path, const char* lines) {
        QTest::newRow(path) << Form::Yaml << path << lines;
    };
    const auto inJson = [](const char* path, const char* lines) {
        QTest::addRow("JSON: %s", path) << Form::Json << path << lines;
    };
    inYaml("events[8].description", "-    description: Screen off   # in the hall");
    inYaml("events[10].name", "-    name: >\n-      A name\n-      in lines");
    inYaml("events[9].delay", "-  - {id: 9, delay: 500}   # a moment\n+  - {id: 9}   # a moment");
    inYaml("events[8]",
        "-  - id: 8\n-    description: Screen off   # in the hall\n"
        "-    protocol: \"4c 01 00 41 42 43\"  # L\\x01\\0ABC\n-    type: 0");
    inYaml("events[9]", "-  - {id: 9, delay: 500}   # a moment");
    inYaml(
        "events[10]", "-  - id: 10\n-    name: >\n-      A name\n-      in lines\n-    delay: 1");
    inYaml("triggers[0]",
        "-triggers:\n-- kind: COM\n-  line: COM A-1\n-  eventIds:\n-    - 8\n-    - 9\n"
        "+triggers: []");
    inJson("events[9].description",
        "-        {\"id\": 9, \"delay\": 1, \"description\": \"x\"}\n"
        "+        {\"id\": 9, \"delay\": 1}");
    inJson("events[9]",
        "-        },\n-        {\"id\": 9, \"delay\": 1, \"description\": \"x\"}\n+        }");
    inJson("events[8]",
        "-        {\n-            \"id\": 8,\n-            \"delay\": 500\n-        },");
}

void TestDocumentEdit::unsets()
{
    QFETCH(Form, form);
    QFETCH(QString, path);
    const QByteArray before = form == Form::Json ? json : yaml;
    const EditedText result = unsetValue(before, form, path);
    QCOMPARE(result.error, QString());
    QTEST(changedLines(before, result.text), "lines");
}

void TestDocumentEdit::refuses_data()
{
    QTest::addColumn<QString>("assignment");
    QTest::addColumn<QString>("error");
    const QString noPath = QStringLiteral(
        " is not a path; paths are such as events[8], events[8].description and device.ip");
    QTest::newRow("no sign") << "events[8].description"
                             << "\"events[8].description\" has no \"=\"; an assignment is such as "
                                "events[8].description=Display off";
    for (const char* path : {"", "event[8].name", "events[8]name", "events[x].name", "events.name",
             "device[1].ip", "events[8].name.first", "format", "events[\x1B].name"})
        QTest::addRow("path %s", path) << path + QStringLiteral("=1")
                                       << QLatin1Char('"')
                + QString::fromLatin1(path).replace(QChar(0x1B), QStringLiteral("\\u001b"))
                + QLatin1Char('"') + noPath;
    QTest::newRow("unknown field")
        << "events[8].colour=red"
        << "events[8].colour: there is no such field; there are id, name, type, isHex, delay, "
           "protocol, protocolText, description";
    QTest::newRow("no such record") << "events[99].name=x"
                                    << "events[99]: it is not there";
    QTest::newRow("no such section") << "device.ip=1.2.3.4"
                                     << "device: it is not there";
    QTest::newRow("a section") << "events=[]"
                               << "events: only records and fields can be set, such as events[8]";
    QTest::newRow("no record") << "events[40]=5"
                               << "events[40]: a record is written in braces, such as {delay: 500}";
    QTest::newRow("unknown key")
        << "events[40]={colour: red}"
        << "events[40].colour: there is no such field; there are id, name, type, isHex, delay, "
           "protocol, protocolText, description";
    QTest::newRow("another id") << "events[40]={id: 41, delay: 5}"
                                << "events[40]: the record says id 41";
    QTest::newRow("open braces") << "events[40]={delay: 5"
                                 << "events[40]: \"{delay: 5\" is not a value";
    QTest::newRow("no value") << "events[9].delay=]"
                              << "events[9].delay: \"]\" is not a value";
    QTest::newRow("alias") << "events[9].delay=*a"
                           << "events[9].delay: \"*a\" is not a value";
}

void TestDocumentEdit::refuses()
{
    QFETCH(QString, assignment);
    const EditedText result = setValue(yaml, Form::Yaml, assignment);
    QTEST(result.error, "error");
    QCOMPARE(result.text, QByteArray());
}

void TestDocumentEdit::gets_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("error");
    QTest::newRow("text") << "events[8].description"
                          << "Screen off"
                          << "";
    QTest::newRow("lines") << "events[10].name"
                           << "A name in lines\n"
                           << "";
    QTest::newRow("list") << "triggers[0].eventIds"
                          << "[8, 9]"
                          << "";
    QTest::newRow("record") << "events[9]"
                            << "id: 9\ndelay: 500"
                            << "";
    QTest::newRow("section") << "triggers"
                             << "- kind: COM\n  line: COM A-1\n  eventIds: [8, 9]"
                             << "";
    QTest::newRow("empty section") << "timeTriggers"
                                   << "[]"
                                   << "";
    QTest::newRow("no field") << "events[8].name"
                              << ""
                              << "events[8].name: it is not there";
    QTest::newRow("no record") << "events[7]"
                               << ""
                               << "events[7]: it is not there";
    QTest::newRow("no section") << "device.ip"
                                << ""
                                << "device.ip: it is not there";
    QTest::newRow("no path") << "x"
                             << ""
                             << "\"x\" is not a path; paths are such as events[8], "
                                "events[8].description and device.ip";
}

void TestDocumentEdit::gets()
{
    QFETCH(QString, path);
    const FoundValue found = getValue(yaml, Form::Yaml, path);
    QTEST(found.value, "value");
    QTEST(found.error, "error");
}

void TestDocumentEdit::changesWhatItWrote_data()
{
    QTest::addColumn<Form>("form");
    QTest::newRow("yaml") << Form::Yaml;
    QTest::newRow("json") << Form::Json;
}

/** A text that was written is changed to the text of the changed contents. */
void TestDocumentEdit::changesWhatItWrote()
{
    QFETCH(Form, form);
    Contents contents = sampleContents();
    QByteArray text = writeDocument(contents, form);
    const auto set = [&](const char* assignment) {
        const EditedText result = setValue(text, form, QString::fromUtf8(assignment));
        QCOMPARE(result.error, QString());
        text = result.text;
    };
    set("events[8].description=Screen off");
    (*contents.events)[7].description = QStringLiteral("Screen off");
    set("events[8].delay=255");
    (*contents.events)[7].delay = 255;
    (*contents.events)[7].command.clear();
    set("events[4].protocolText=Off\\r");
    set("events[9].name=Quiet");
    (*contents.events)[8].name = QStringLiteral("Quiet");
    set("triggers[6].parameter=low");
    (*contents.triggers)[6].level = Level::Low;
    set("triggers[10]={kind: COM, line: COM A-2, isHex: true, parameter: 4f 4b 21, eventIds: [3], "
        "description: x}");
    contents.triggers->append(
        Trigger{10, TriggerKind::Com, 1, "OK!", {}, {3}, QStringLiteral("x")});
    set("serialPorts[2].baudRate=19200");
    (*contents.serialPorts)[1].baudRate = 19200;
    set("timeTriggers[1].endDate=forever");
    (*contents.timeTriggers)[1].endDate.reset();
    const EditedText removed = unsetValue(text, form, QStringLiteral("events[32]"));
    QCOMPARE(removed.error, QString());
    contents.events->removeLast();

    const Document document = parseDocument(removed.text, form);
    QCOMPARE(messagesOf(document.findings), QString());
    (*contents.events)[3].delay.reset();
    (*contents.events)[3].command = "Off\r";
    QVERIFY(document.contents == contents);
    const QByteArray written = writeDocument(contents, form);
    const QByteArray rewritten =
        setValue(removed.text, form, QStringLiteral("events[4].protocol=4f 66 66 0d")).text;
    QCOMPARE(QString::fromUtf8(rewritten), QString::fromUtf8(written));
}

void TestDocumentEdit::keepsLineEndsAndMark()
{
    const QByteArray text = "\xEF\xBB\xBF" + QByteArray(yaml).replace("\n", "\r\n");
    QByteArray changed = setValue(text, Form::Yaml, QStringLiteral("events[40]={delay: 5}")).text;
    changed = setValue(changed, Form::Yaml, QStringLiteral("events[10].name=x")).text;
    changed = unsetValue(changed, Form::Yaml, QStringLiteral("events[8]")).text;
    QVERIFY(changed.startsWith("\xEF\xBB\xBF# The hall\r\n"));
    QCOMPARE(changed.count('\n'), changed.count("\r\n"));
    const Document document = parseDocument(changed, Form::Yaml);
    QCOMPARE(messagesOf(document.findings), QString());
    QCOMPARE(document.contents.events->size(), 3);
}

void TestDocumentEdit::refusesProjects()
{
    const QString error =
        QStringLiteral("a project file can't be changed in place; .yaml and .json can");
    QCOMPARE(setValue("<a/>", Form::Project, QStringLiteral("events[8].name=x")).error, error);
    QCOMPARE(getValue("<a/>", Form::Project, QStringLiteral("events[8].name")).error, error);
    QCOMPARE(setValue("a: [", Form::Yaml, QStringLiteral("events[8].name=x")).error,
        QStringLiteral("line 1: this is not YAML: end of sequence flow not found"));
}

void TestDocumentEdit::putsErrorsIntoComments()
{
    const QByteArray text = QByteArray(yaml).replace("COM A-1", "COM D-3");
    const Document document = parseDocument(text, Form::Yaml);
    QCOMPARE(messagesOf(document.findings), QString());
    Findings findings = checkContents(document.contents, document.positions);
    findings.prepend({Severity::Error, {}, {}, {}, QStringLiteral("the unit is gone"), false});
    const QByteArray commented = withComments(text, findings);
    QVERIFY(commented.startsWith("#! the unit is gone\n# The hall\n"));
    QVERIFY(commented.contains("- kind: COM\n#! triggers[0].line: COM D-3 is read back as another "
                               "line; COM A-1 to COM D-2 are allowed\n  line: COM D-3\n"));
    QVERIFY(parseDocument(commented, Form::Yaml).contents == document.contents);
    QCOMPARE(withoutComments(commented), text);
}

QTEST_GUILESS_MAIN(TestDocumentEdit)
#include "tst_documentedit.moc"
