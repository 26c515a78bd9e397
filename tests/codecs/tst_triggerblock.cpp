// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "triggerblock.h"

#include "recordblock.h"
#include "replyframe.h"
#include "replyframes.h"

#include <QtTest/QTest>

namespace {

constexpr TriggerBlock::EventWords words = {"(ID:", ")", ";"};
constexpr TriggerBlock::FaultTexts faults = {"too many events", "description too long"};

} // namespace

class TestTriggerBlock : public QObject {
    Q_OBJECT

private slots:
    void limitsFillASlot();
    void testsLimitsInOrder_data();
    void testsLimitsInOrder();
    void storesAndReads();
    void storesMoreThanItReads();
    void isEmptyPastTheEnd();
};

void TestTriggerBlock::limitsFillASlot()
{
    QCOMPARE(2 + TriggerBlock::maximumBodyLength + 1 + TriggerBlock::maximumEventCount + 1
            + TriggerBlock::maximumDescriptionLength,
        RecordBlock::slotSize);
}

void TestTriggerBlock::testsLimitsInOrder_data()
{
    QTest::addColumn<int>("events");
    QTest::addColumn<int>("descriptionLength");
    QTest::addColumn<int>("fault");
    const auto row = [](int events, int length, TriggerBlock::Fault fault) {
        QTest::addRow("%d events, %d bytes", events, length)
            << events << length << static_cast<int>(fault);
    };
    row(0, 0, TriggerBlock::Fault::None);
    row(127, 63, TriggerBlock::Fault::None);
    row(128, 64, TriggerBlock::Fault::None);
    row(129, 64, TriggerBlock::Fault::TooManyEvents);
    row(255, 255, TriggerBlock::Fault::TooManyEvents);
    row(128, 65, TriggerBlock::Fault::DescriptionTooLong);
    row(0, 255, TriggerBlock::Fault::DescriptionTooLong);
}

void TestTriggerBlock::testsLimitsInOrder()
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
    const TriggerBlock trigger(frame, 3);
    QCOMPARE(static_cast<int>(trigger.check()), fault);

    const char* const texts[] = {"before", faults.tooManyEvents, faults.descriptionTooLong};
    QString error = QStringLiteral("before");
    QCOMPARE(trigger.accept(QObject::staticMetaObject, faults, error), fault == 0);
    QCOMPARE(error, QLatin1String(texts[fault]));
}

void TestTriggerBlock::storesAndReads()
{
    RecordBlock block;
    TriggerBlock::store(block, 19, hex("030c"), QStringLiteral("灯A"));
    QCOMPARE(block.bytes(), slotOf(QByteArray(19, '\0') + hex("02 030c 04 706f 0041")));

    const QByteArray bytes = replyFrame(0, block.bytes());
    const ReplyFrame frame(bytes);
    const TriggerBlock tail(frame, 19);
    QCOMPARE(tail.events(QObject::staticMetaObject, words), QStringLiteral("(ID:3);(ID:12)"));
    QCOMPARE(tail.description(), QStringLiteral("灯A"));
}

void TestTriggerBlock::storesMoreThanItReads()
{
    // Lengths wrap, the bytes keep their places.
    RecordBlock block;
    const QByteArray ids(300, '\x07');
    TriggerBlock::store(block, 300, ids, QString(130, QLatin1Char('A')));
    const QByteArray bytes = block.bytes();
    QCOMPARE(bytes.size(), 300 + 1 + 300 + 1 + 260);
    QCOMPARE(bytes.mid(300, 302), '\x2C' + ids + '\x04');
    QCOMPARE(bytes.right(2), hex("0041"));
}

void TestTriggerBlock::isEmptyPastTheEnd()
{
    const QByteArray bytes = replyFrame(0, {});
    const ReplyFrame frame(bytes);
    const TriggerBlock tail(frame, 300);
    QCOMPARE(static_cast<int>(tail.check()), static_cast<int>(TriggerBlock::Fault::None));
    QCOMPARE(tail.events(QObject::staticMetaObject, words), QString());
    QCOMPARE(tail.description(), QString());
}

QTEST_APPLESS_MAIN(TestTriggerBlock)
#include "tst_triggerblock.moc"
