// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "contentsdifference.h"
#include "samplecontents.h"
#include "unitdocument.h"

#include <QtCore/QJsonArray>
#include <QtTest/QtTest>

#include <functional>

using namespace QuadrelDocument;

using Change = std::function<void(Contents& contents)>;
Q_DECLARE_METATYPE(Change)

/** How contents differ, record by record. */
class TestContentsDifference : public QObject {
    Q_OBJECT

private slots:
    void describes_data();
    void describes();
    void ignoresWhatIsNotWritten();
    void namesWhatOneSideLacks();
    void countsAndGivesJson();
    void copesWithManyRecords();
};

void TestContentsDifference::describes_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const Change& change, const char* text) {
        QTest::newRow(name) << change << text;
    };
    row(
        "nothing", [](Contents&) {}, "");
    row(
        "an event's description",
        [](Contents& contents) { (*contents.events)[7].description = QStringLiteral("a\x1B\"b"); },
        "~ events[8]\n    description: \"Display off\" -> \"a\\u001b\\\"b\"\n");
    row(
        "a name more, a name less",
        [](Contents& contents) {
            (*contents.events)[5].name = QStringLiteral("Short");
            (*contents.events)[7].name.reset();
        },
        "~ events[6]\n    name: none -> \"Short\"\n"
        "~ events[8]\n    name: \"Display off\" -> none\n");
    row(
        "a command in place of a delay",
        [](Contents& contents) {
            (*contents.events)[3].delay.reset();
            (*contents.events)[3].command = "\x4c";
        },
        "~ events[4]\n    delay: 500 -> none\n    protocol: none -> \"4c\"\n");
    row(
        "events in another order",
        [](Contents& contents) { std::swap((*contents.events)[0], (*contents.events)[31]); }, "");
    row(
        "an event less, an event more",
        [](Contents& contents) {
            contents.events->removeAt(30);
            contents.events->append(Event{40, {}, 70, {}, QStringLiteral("Wait")});
        },
        "+ events[40]\n    delay: 70\n    description: \"Wait\"\n"
        "- events[31]\n    protocol: \"4c 01 00\"\n    description: \"A command without a "
        "class\"\n");
    row(
        "a port and a line",
        [](Contents& contents) {
            (*contents.serialPorts)[1].baudRate = 19200;
            (*contents.ioLines)[11].type = 2;
        },
        "~ serialPorts[2]\n    baudRate: 9600 -> 19200\n~ ioLines[12]\n    type: 1 -> 2\n");
    row(
        "a line more", [](Contents& contents) { contents.ioLines->append(IoLine{1}); },
        "+ ioLines[13]\n    type: 1\n");
    row(
        "a trigger's events",
        [](Contents& contents) {
            (*contents.triggers)[2].eventIds = {10, 11};
        },
        "~ triggers[2]\n    eventIds: [10] -> [10, 11]\n");
    row(
        "other ids of triggers", [](Contents& contents) { (*contents.triggers)[2].id = 77; }, "");
    row(
        "the first trigger less", [](Contents& contents) { contents.triggers->removeFirst(); },
        "- triggers[0]\n    kind: COM\n    line: COM A-1\n    parameter: \"50 41 4e 45 4c 20 31 "
        "0d\"\n"
        "    eventIds: [1, 5, 3]\n    description: \"面板：开始上课\"\n");
    row(
        "a trigger moved", [](Contents& contents) { contents.triggers->move(1, 7); },
        "~ triggers[1], moved from place 1 to 7\n");
    row(
        "a trigger moved and changed",
        [](Contents& contents) {
            contents.triggers->move(1, 7);
            (*contents.triggers)[7].description = QStringLiteral("End");
        },
        "~ triggers[1], moved from place 1 to 7\n    description: \"面板：下课\" -> \"End\"\n");
    row(
        "another trigger in the place",
        [](Contents& contents) {
            (*contents.triggers)[9] =
                Trigger{9, TriggerKind::Com, 2, "x", {}, {31}, QStringLiteral("New")};
        },
        "+ triggers[9]\n    kind: COM\n    line: COM A-3\n    parameter: \"78\"\n"
        "    eventIds: [31]\n    description: \"New\"\n"
        "- triggers[9]\n    kind: IO\n    line: IO C-1\n    parameter: \"high\"\n    eventIds: "
        "[23]\n"
        "    description: \"Window opened\"\n");
    row(
        "a time trigger",
        [](Contents& contents) {
            (*contents.timeTriggers)[1].endDate.reset();
            (*contents.timeTriggers)[2].weekdays = {6};
        },
        "~ timeTriggers[1]\n    endDate: \"2029/12/31\" -> \"forever\"\n"
        "~ timeTriggers[2]\n    weekdays: [1, 2, 3, 4, 5] -> [6]\n");
}

void TestContentsDifference::describes()
{
    QFETCH(Change, change);
    const Contents before = sampleContents();
    Contents after = before;
    change(after);
    const Difference difference = compareContents(before, after);
    QTEST(differenceText(difference), "text");
    QCOMPARE(difference.isEmpty(), differenceText(difference).isEmpty());
    QCOMPARE(differenceText(compareContents(before, before)), QString());
}

void TestContentsDifference::ignoresWhatIsNotWritten()
{
    const Contents before = sampleContents();
    Contents after = before;
    after.device->serialNumber = 5;
    after.clock = QStringLiteral("2026/01/09 07:05:03");
    const Difference difference = compareContents(before, after);
    QVERIFY(difference.isEmpty());
    QVERIFY(difference.notCompared.isEmpty());
}

void TestContentsDifference::namesWhatOneSideLacks()
{
    Contents after = sampleContents();
    after.timeTriggers.reset();
    after.ioLines.reset();
    const Difference difference = compareContents(sampleContents(), after);
    QVERIFY(difference.isEmpty());
    QCOMPARE(difference.notCompared, (QVector<Section>{Section::IoLines, Section::TimeTriggers}));
}

void TestContentsDifference::countsAndGivesJson()
{
    const Contents before = sampleContents();
    Contents after = before;
    (*after.events)[7].name.reset();
    after.events->removeAt(8);
    after.triggers->move(0, 3);
    const Difference difference = compareContents(before, after);
    QVERIFY(difference.concerns(Section::Events));
    QVERIFY(!difference.concerns(Section::TimeTriggers));
    QCOMPARE(difference.count(Section::Events, ChangeKind::Changed), 1);
    QCOMPARE(difference.count(Section::Events, ChangeKind::Removed), 1);
    QCOMPARE(difference.count(Section::Events, ChangeKind::Added), 0);
    QCOMPARE(difference.count(Section::Triggers, ChangeKind::Moved), 1);
    const QJsonObject json = differenceJson(difference);
    QCOMPARE(json.value(QStringLiteral("same")), QJsonValue(false));
    const QJsonArray changes = json.value(QStringLiteral("changes")).toArray();
    QCOMPARE(changes.size(), 3);
    const QJsonObject first = changes.first().toObject();
    QCOMPARE(first.value(QStringLiteral("change")), QJsonValue(QStringLiteral("changed")));
    QCOMPARE(first.value(QStringLiteral("path")), QJsonValue(QStringLiteral("events[8]")));
    const QJsonObject field = first.value(QStringLiteral("fields")).toArray().first().toObject();
    QCOMPARE(field.value(QStringLiteral("before")), QJsonValue(QStringLiteral("Display off")));
    QVERIFY(field.value(QStringLiteral("after")).isNull());
    QCOMPARE(differenceJson(compareContents(before, before)).value(QStringLiteral("same")),
        QJsonValue(true));
}

/** As many as are read from a file, which are more than any unit has. */
void TestContentsDifference::copesWithManyRecords()
{
    Contents before;
    Contents after;
    before.triggers.emplace();
    after.triggers.emplace();
    for (int i = 0; i < maximumRecords; ++i) {
        before.triggers->append(Trigger{i, TriggerKind::Com, i % 16, {}, {}, {i % 256}, {}});
        after.triggers->prepend(Trigger{i, TriggerKind::Com, i % 16, {}, {}, {(i + 7) % 256}, {}});
    }
    QVERIFY(!compareContents(before, after).isEmpty());
}

QTEST_GUILESS_MAIN(TestContentsDifference)
#include "tst_contentsdifference.moc"
