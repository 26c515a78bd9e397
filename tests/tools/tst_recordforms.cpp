#include "recordforms.h"

#include <QtTest/QtTest>

namespace {

EventInfo makeEvent(
    int id, EventInfo::EventType type, const char* protocol, const QString& text = {})
{
    EventInfo info;
    info.setEventId(id);
    info.setEventType(type);
    info.setEventProtocol(QString::fromLatin1(protocol));
    info.setEventInstruction(text);
    return info;
}

EventModel makeEvents(const QList<EventInfo>& list)
{
    EventModel model;
    model.setEventInfo(list);
    return model;
}

TriggerModel triggers(const QList<TriggerInfo>& list)
{
    TriggerModel model;
    model.setTriggerInfo(list);
    return model;
}

TriggerInfo serialTrigger(COMSelect line, const char* parameter, bool isHex)
{
    TriggerInfo trigger;
    trigger.setCOMSelect(line);
    trigger.setTriggerParameter(QString::fromLatin1(parameter));
    trigger.setTriggerProtocolType(isHex);
    trigger.setTriggerEvent(QStringLiteral("(ID:1)"));
    return trigger;
}

QString field(const RecordForms& forms, int record, int number)
{
    return forms.at(record).fields.at(number).second;
}

RecordForms letters(const QString& text)
{
    RecordForms forms;
    for (const QChar letter : text)
        forms.append(
            {QString::number(forms.size()), {{QStringLiteral("letter"), QString(letter)}}});
    return forms;
}

} // namespace

class TestRecordForms : public QObject {
    Q_OBJECT

private slots:
    void readsEventIds_data();
    void readsEventIds();
    void labelsLines_data();
    void labelsLines();
    void comparesCommandsByTheirBytes_data();
    void comparesCommandsByTheirBytes();
    void cutsTheNameOffADescription();
    void comparesParametersByTheirBytes();
    void knowsWhatReadsBackOtherwise();
    void comparesLists_data();
    void comparesLists();
    void comparesPositions();
    void countsLosses();
    void findsTextsBeyondTheLimits();
    void findsTooManyRecords();
};

void TestRecordForms::readsEventIds_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<int>>("ids");
    QTest::newRow("none") << QString() << QList<int>{};
    QTest::newRow("as read from a unit") << QStringLiteral("(ID:3);(ID:7)") << QList<int>{3, 7};
    QTest::newRow("as loaded from a file")
        << QStringLiteral("事件(ID:3);事件(ID:12)") << QList<int>{3, 12};
    QTest::newRow("empty in a file") << QStringLiteral("事件()") << QList<int>{0};
    QTest::newRow("a name in front") << QStringLiteral("事件(名称01ID:3)") << QList<int>{3};
    QTest::newRow("no bracket behind") << QStringLiteral("ID:7") << QList<int>{7};
    QTest::newRow("no number") << QStringLiteral("(ID:x)") << QList<int>{0};
    QTest::newRow("eight bits") << QStringLiteral("(ID:259)") << QList<int>{3};
    QTest::newRow("an empty item") << QStringLiteral("(ID:1);") << QList<int>{1, 0};
}

void TestRecordForms::readsEventIds()
{
    QFETCH(QString, text);
    QTEST(eventIds(text), "ids");
}

void TestRecordForms::labelsLines_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("label");
    QTest::newRow("first") << 0 << QStringLiteral("COM A-1");
    QTest::newRow("end of A") << 3 << QStringLiteral("COM A-4");
    QTest::newRow("start of B") << 4 << QStringLiteral("COM B-1");
    QTest::newRow("last") << 15 << QStringLiteral("COM D-4");
    QTest::newRow("behind the last") << 16 << QStringLiteral("16");
    QTest::newRow("before the first") << -1 << QStringLiteral("-1");
}

void TestRecordForms::labelsLines()
{
    QFETCH(int, line);
    QTEST(lineLabel(QStringLiteral("COM"), line), "label");
}

void TestRecordForms::comparesCommandsByTheirBytes_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("read");
    QTest::addColumn<QString>("sent");
    const auto row = [](const char* protocol, int type, const char* read, const char* sent) {
        QTest::newRow(protocol) << QString::fromLatin1(protocol) << type
                                << QString::fromLatin1(read) << QString::fromLatin1(sent);
    };
    row("4C0100", EventInfo::EVENT_TYPE_0, "4c 01 00", "4c 01 00");
    row("4c 01 00", EventInfo::EVENT_TYPE_4, "4c 01 00", "4c 01 00");
    row("25*10ms", EventInfo::EVENT_DELAY, "4c 01 00 a5 a5 00 fa", "4c 01 00 a5 a5 00 fa");
    row("25.5*10ms", EventInfo::EVENT_DELAY, "4c 01 00 a5 a5 00 ff", "4c 01 00 a5 a5 00 00");
    row("7000*10ms", EventInfo::EVENT_DELAY, "4c 01 00 a5 a5 11 70", "4c 01 00 a5 a5 11 70");
    row("25", EventInfo::EVENT_DELAY, "4c 01 00 a5 a5 00 fa", "4c 01 00 a5 a5 00 fa");
    row("12345", EventInfo::EVENT_DELAY, "4c 01 00 a5 a5 00 00", "4c 01 00 a5 a5 00 00");
}

void TestRecordForms::comparesCommandsByTheirBytes()
{
    QFETCH(QString, protocol);
    QFETCH(int, type);
    const EventModel model =
        makeEvents({makeEvent(1, static_cast<EventInfo::EventType>(type), protocol.toLatin1())});
    QTEST(field(eventForms(model, FormSide::Read), 0, 1), "read");
    QTEST(field(eventForms(model, FormSide::Sent), 0, 1), "sent");
}

void TestRecordForms::cutsTheNameOffADescription()
{
    const EventModel model =
        makeEvents({makeEvent(300, EventInfo::EVENT_TYPE_0, "", QStringLiteral("a$$b"))});
    QCOMPARE(field(eventForms(model, FormSide::Sent), 0, 2), QStringLiteral("a"));
    QCOMPARE(field(eventForms(model, FormSide::Read), 0, 2), QStringLiteral("a$$b"));
    QCOMPARE(field(eventForms(model, FormSide::Sent), 0, 0), QStringLiteral("44"));
}

void TestRecordForms::comparesParametersByTheirBytes()
{
    const RecordForms forms = triggerForms(
        triggers({serialTrigger(COM_A_1, "AA01", true), serialTrigger(COM_A_1, "AB", false)}),
        FormSide::Sent);
    QCOMPARE(field(forms, 0, 2), QStringLiteral("aa 01"));
    QCOMPARE(field(forms, 1, 2), QStringLiteral("41 42"));
}

void TestRecordForms::knowsWhatReadsBackOtherwise()
{
    TriggerInfo input;
    input.setTriggerType(TriggerInfo::IO);
    input.setIOSelect(IO_D_3);
    input.setTriggerParameter(QStringLiteral("something"));
    const TriggerModel model = triggers({serialTrigger(COM_D_3, "", true),
        serialTrigger(COM_D_4, "", true), serialTrigger(COM_D_2, "", true), input});
    const RecordForms read = triggerForms(model, FormSide::Read);
    const RecordForms sent = triggerForms(model, FormSide::Sent);
    QCOMPARE(field(read, 0, 1), QStringLiteral("COM D-3"));
    QCOMPARE(field(sent, 0, 1), QStringLiteral("COM D-4"));
    QCOMPARE(field(sent, 1, 1), QStringLiteral("COM A-1"));
    QCOMPARE(field(sent, 2, 1), QStringLiteral("COM D-2"));
    QCOMPARE(field(sent, 3, 1), QStringLiteral("IO D-3"));
    QCOMPARE(field(sent, 3, 2), QStringLiteral("输入-低电平"));
    QCOMPARE(field(read, 3, 3), QString());
    QCOMPARE(field(sent, 3, 3), QStringLiteral("0"));
}

void TestRecordForms::comparesLists_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QStringList>("lines");
    const auto row = [](const char* before, const char* after, const QStringList& lines) {
        QTest::addRow("%s to %s", before, after)
            << QString::fromLatin1(before) << QString::fromLatin1(after) << lines;
    };
    row("", "", {});
    row("abc", "abc", {});
    row("abc", "ac", {QStringLiteral("- 1: letter \"b\"")});
    row("ac", "abc", {QStringLiteral("+ 1: letter \"b\"")});
    row("abc", "axc", {QStringLiteral("~ 1: letter \"b\" -> \"x\"")});
    row("", "a", {QStringLiteral("+ 0: letter \"a\"")});
    row("a", "", {QStringLiteral("- 0: letter \"a\"")});
    row("abcd", "xbcd", {QStringLiteral("~ 0: letter \"a\" -> \"x\"")});
    row("abcd", "acdx", {QStringLiteral("- 1: letter \"b\""), QStringLiteral("+ 3: letter \"x\"")});
}

void TestRecordForms::comparesLists()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    QFETCH(QStringList, lines);
    const Difference difference = compareLists(letters(before), letters(after));
    QCOMPARE(difference.lines, lines);
    QCOMPARE(difference.changed + difference.added + difference.removed, lines.size());
    QCOMPARE(difference.isEmpty(), lines.isEmpty());
}

void TestRecordForms::comparesPositions()
{
    const Difference difference =
        comparePositions(letters(QStringLiteral("abc")), letters(QStringLiteral("ac")));
    QCOMPARE(difference.changed, 1);
    QCOMPARE(difference.removed, 1);
    QCOMPARE(difference.added, 0);
}

void TestRecordForms::countsLosses()
{
    Contents contents;
    QVERIFY(lossesOnUnit(contents).isEmpty());
    contents.events = makeEvents({makeEvent(1, EventInfo::EVENT_DELAY, "25*10ms"),
        makeEvent(2, EventInfo::EVENT_DELAY, "1.5*10ms"),
        makeEvent(3, EventInfo::EVENT_DELAY, "7000*10ms")});
    TriggerInfo empty;
    contents.triggers = triggers({serialTrigger(COM_D_3, "", true), empty});
    TriggerTimeModel times;
    times.push_back(TriggerTimeInfo());
    contents.timeTriggers = times;
    const QStringList losses = lossesOnUnit(contents);
    QCOMPARE(losses.size(), 3);
    QVERIFY(losses.at(0).endsWith(QStringLiteral(": 2 records")));
    QVERIFY(losses.at(1).endsWith(QStringLiteral(": 1 records")));
    QVERIFY(losses.at(2).endsWith(QStringLiteral(": 2 records")));
}

void TestRecordForms::findsTextsBeyondTheLimits()
{
    Contents contents;
    const auto setEvent = [&contents](
                              const EventInfo& info) { contents.events = makeEvents({info}); };
    setEvent(makeEvent(9, EventInfo::EVENT_TYPE_0, QByteArray(2 * 319, 'a')));
    QCOMPARE(limitFault(contents), QString());
    setEvent(makeEvent(9, EventInfo::EVENT_TYPE_0, QByteArray(2 * 320, 'a')));
    QCOMPARE(limitFault(contents), QStringLiteral("event 9: its command has more than 319 bytes"));
    setEvent(makeEvent(9, EventInfo::EVENT_TYPE_0, "", QString(127, QLatin1Char('a'))));
    QCOMPARE(limitFault(contents), QString());
    setEvent(makeEvent(9, EventInfo::EVENT_TYPE_0, "", QString(128, QLatin1Char('a'))));
    QCOMPARE(limitFault(contents),
        QStringLiteral("event 9: its description has more than 127 characters"));

    contents = Contents();
    const auto setTrigger = [&contents](
                                const TriggerInfo& info) { contents.triggers = triggers({info}); };
    setTrigger(serialTrigger(COM_A_1, QByteArray(305, 'a'), false));
    QCOMPARE(limitFault(contents), QString());
    setTrigger(serialTrigger(COM_A_1, QByteArray(306, 'a'), false));
    QCOMPARE(
        limitFault(contents), QStringLiteral("trigger 0: its parameter has more than 305 bytes"));
    TriggerInfo trigger = serialTrigger(COM_A_1, "", true);
    trigger.setTriggerInstruction(QString(32, QLatin1Char('a')));
    trigger.setTriggerEvent(QStringLiteral("(ID:1);").repeated(127));
    setTrigger(trigger);
    QCOMPARE(limitFault(contents), QString());
    trigger.setTriggerEvent(QStringLiteral("(ID:1);").repeated(128));
    setTrigger(trigger);
    QCOMPARE(limitFault(contents), QStringLiteral("trigger 0: it runs more than 128 events"));
    trigger = serialTrigger(COM_A_1, "", true);
    trigger.setTriggerInstruction(QString(33, QLatin1Char('a')));
    setTrigger(trigger);
    QCOMPARE(limitFault(contents),
        QStringLiteral("trigger 0: its description has more than 32 characters"));
}

void TestRecordForms::findsTooManyRecords()
{
    Contents contents;
    TriggerModel model;
    for (int i = 0; i < 60; ++i)
        model.push_back(TriggerInfo());
    TriggerTimeModel times;
    for (int i = 0; i < 4; ++i)
        times.push_back(TriggerTimeInfo());
    contents.triggers = model;
    contents.timeTriggers = times;
    QCOMPARE(limitFault(contents), QString());
    times.push_back(TriggerTimeInfo());
    contents.timeTriggers = times;
    QCOMPARE(limitFault(contents),
        QStringLiteral("a unit has room for 64 triggers and time triggers together, not for 65"));
}

QTEST_APPLESS_MAIN(TestRecordForms)
#include "tst_recordforms.moc"
