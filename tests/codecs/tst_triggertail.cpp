#include "triggertail.h"

#include "recordblock.h"
#include "replyframe.h"
#include "replyframes.h"

#include <QtTest/QTest>

namespace {

const EventIdList::Words words = {QStringLiteral("(ID:"), QStringLiteral(")"), QStringLiteral(";")};

} // namespace

class TestTriggerTail : public QObject {
    Q_OBJECT

private slots:
    void limitsFillASlot();
    void testsLimitsInOrder_data();
    void testsLimitsInOrder();
    void storesAndReads();
    void storesMoreThanItReads();
    void isEmptyPastTheEnd();
};

void TestTriggerTail::limitsFillASlot()
{
    QCOMPARE(2 + TriggerTail::maximumBodyLength + 1 + TriggerTail::maximumEventCount + 1
            + TriggerTail::maximumDescriptionLength,
        RecordBlock::slotSize);
}

void TestTriggerTail::testsLimitsInOrder_data()
{
    QTest::addColumn<int>("events");
    QTest::addColumn<int>("descriptionLength");
    QTest::addColumn<int>("fault");
    const auto row = [](int events, int length, TriggerTail::Fault fault) {
        QTest::addRow("%d events, %d bytes", events, length)
            << events << length << static_cast<int>(fault);
    };
    row(0, 0, TriggerTail::Fault::None);
    row(127, 63, TriggerTail::Fault::None);
    row(128, 64, TriggerTail::Fault::None);
    row(129, 64, TriggerTail::Fault::TooManyEvents);
    row(255, 255, TriggerTail::Fault::TooManyEvents);
    row(128, 65, TriggerTail::Fault::DescriptionTooLong);
    row(0, 255, TriggerTail::Fault::DescriptionTooLong);
}

void TestTriggerTail::testsLimitsInOrder()
{
    QFETCH(int, events);
    QFETCH(int, descriptionLength);
    QFETCH(int, fault);
    QByteArray payload(3, '\x01');
    payload += static_cast<char>(events);
    payload += QByteArray(events, '\x01');
    payload += static_cast<char>(descriptionLength);
    const QByteArray bytes = replyFrame(0, payload);
    const ReplyFrame frame(bytes);
    QCOMPARE(static_cast<int>(TriggerTail(frame, 3).check()), fault);
}

void TestTriggerTail::storesAndReads()
{
    RecordBlock block;
    TriggerTail::store(block, 19, hex("030c"), QStringLiteral("灯A"));
    QCOMPARE(block.bytes(), slotOf(QByteArray(19, '\0') + hex("02 030c 04 706f 0041")));

    const QByteArray bytes = replyFrame(0, block.bytes());
    const ReplyFrame frame(bytes);
    const TriggerTail tail(frame, 19);
    QCOMPARE(tail.eventCount(), 2);
    QCOMPARE(tail.events(words), QStringLiteral("(ID:3);(ID:12)"));
    QCOMPARE(tail.description(), QStringLiteral("灯A"));
}

void TestTriggerTail::storesMoreThanItReads()
{
    // Lengths wrap, the bytes keep their places.
    RecordBlock block;
    const QByteArray ids(300, '\x07');
    TriggerTail::store(block, 300, ids, QString(130, QLatin1Char('A')));
    const QByteArray bytes = block.bytes();
    QCOMPARE(bytes.size(), 300 + 1 + 300 + 1 + 260);
    QCOMPARE(bytes.mid(300, 302), '\x2C' + ids + '\x04');
    QCOMPARE(bytes.right(2), hex("0041"));
}

void TestTriggerTail::isEmptyPastTheEnd()
{
    const QByteArray bytes = replyFrame(0, {});
    const ReplyFrame frame(bytes);
    const TriggerTail tail(frame, 300);
    QCOMPARE(static_cast<int>(tail.check()), static_cast<int>(TriggerTail::Fault::None));
    QCOMPARE(tail.events(words), QString());
    QCOMPARE(tail.description(), QString());
}

QTEST_APPLESS_MAIN(TestTriggerTail)
#include "tst_triggertail.moc"
