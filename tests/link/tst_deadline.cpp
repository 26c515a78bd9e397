// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "deadline.h"

#include <QtTest/QTest>

#include <limits>

namespace {

constexpr int hour = 3600000;

} // namespace

class TestDeadline : public QObject {
    Q_OBJECT

private slots:
    void neverComes_data();
    void neverComes();
    void hasPassed();
    void isStillToCome();
    void isShared();
    void keepsWithinTheRangeOfPoll();
};

void TestDeadline::neverComes_data()
{
    QTest::addColumn<int>("milliseconds");
    QTest::newRow("-1") << -1;
    QTest::newRow("least") << std::numeric_limits<int>::min();
}

void TestDeadline::neverComes()
{
    QFETCH(int, milliseconds);
    const Deadline endless(milliseconds);
    QVERIFY(endless.isEndless());
    QVERIFY(!endless.isOver());
    QVERIFY(endless.left() == Deadline::Clock::duration::max());
    QCOMPARE(endless.remaining(), -1);
    QVERIFY(endless.share(3).isEndless());
}

void TestDeadline::hasPassed()
{
    const Deadline now(0);
    QVERIFY(!now.isEndless());
    QVERIFY(now.isOver());
    QVERIFY(now.left() == Deadline::Clock::duration::zero());
    QCOMPARE(now.remaining(), 0);
    QVERIFY(now.share(3).isOver());
}

void TestDeadline::isStillToCome()
{
    const Deadline late(hour);
    QVERIFY(!late.isEndless());
    QVERIFY(!late.isOver());
    QVERIFY(late.left() <= std::chrono::hours(1));
    QVERIFY(late.left() > std::chrono::minutes(50));
    QVERIFY(late.remaining() <= hour);
    QVERIFY(late.remaining() > hour - 600000);
}

void TestDeadline::isShared()
{
    const Deadline quarter = Deadline(hour).share(4);
    QVERIFY(!quarter.isOver());
    QVERIFY(quarter.remaining() <= hour / 4);
    QVERIFY(quarter.remaining() > hour / 4 - 600000);
}

void TestDeadline::keepsWithinTheRangeOfPoll()
{
    constexpr int most = std::numeric_limits<int>::max();
    const int remaining = Deadline(most).remaining();
    QVERIFY(remaining > most - 600000);
}

QTEST_APPLESS_MAIN(TestDeadline)
#include "tst_deadline.moc"
