// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitclock.h"

#include <QtCore/QDateTime>
#include <QtTest/QtTest>

using namespace QuadrelUnit;

class TestUnitClock : public QObject {
    Q_OBJECT

private slots:
    void showsLocalTimeUntilSet();
    void usesThisMachinesTime();
    void runsOnFromWhatItWasSetTo_data();
    void runsOnFromWhatItWasSetTo();
    void refusesNoDateOrTime_data();
    void refusesNoDateOrTime();
    void keepsItsLead();
};

void TestUnitClock::showsLocalTimeUntilSet()
{
    UnitClock clock;
    const QDateTime local({2026, 1, 9}, {7, 5, 3});
    clock.setTimeSource([&local] { return local.toMSecsSinceEpoch(); });
    QCOMPARE(clock.cell().toHex(), QByteArray("260109070503"));
    QVERIFY(!clock.ahead());
}

void TestUnitClock::usesThisMachinesTime()
{
    const UnitClock clock;
    const auto moment = [](const QDateTime& time) {
        return time.toString(QStringLiteral("yyMMddHHmmss")).toLatin1();
    };
    const QByteArray before = moment(QDateTime::currentDateTime());
    const QByteArray shown = clock.cell().toHex();
    const QByteArray after = moment(QDateTime::currentDateTime());
    QVERIFY(before <= shown);
    QVERIFY(shown <= after);
}

void TestUnitClock::runsOnFromWhatItWasSetTo_data()
{
    QTest::addColumn<QByteArray>("cell");
    QTest::addColumn<qint64>("seconds");
    QTest::addColumn<QByteArray>("later");
    QTest::newRow("at once") << QByteArray("261114060549") << qint64(0)
                             << QByteArray("261114060549");
    QTest::newRow("a second") << QByteArray("261114060559") << qint64(1)
                              << QByteArray("261114060600");
    QTest::newRow("over new year")
        << QByteArray("991231235959") << qint64(1) << QByteArray("000101000000");
    QTest::newRow("leap day") << QByteArray("240228235900") << qint64(60)
                              << QByteArray("240229000000");
    QTest::newRow("year 0") << QByteArray("000101000000") << qint64(86400)
                            << QByteArray("000102000000");
    // A night in which many machines change to or from summer time: the unit's clock does not.
    QTest::newRow("summer time") << QByteArray("260329015959") << qint64(3601)
                                 << QByteArray("260329030000");
}

void TestUnitClock::runsOnFromWhatItWasSetTo()
{
    QFETCH(QByteArray, cell);
    QFETCH(qint64, seconds);
    QFETCH(QByteArray, later);
    qint64 now = 1700000000123;
    UnitClock clock;
    clock.setTimeSource([&now] { return now; });
    QVERIFY(clock.setCell(QByteArray::fromHex(cell)));
    now += seconds * 1000;
    QCOMPARE(clock.cell().toHex(), later);
}

void TestUnitClock::refusesNoDateOrTime_data()
{
    QTest::addColumn<QByteArray>("cell");
    QTest::newRow("month 0") << QByteArray("260014060549");
    QTest::newRow("month 13") << QByteArray("261314060549");
    QTest::newRow("30 February") << QByteArray("260230060549");
    QTest::newRow("hour 24") << QByteArray("261114240549");
    QTest::newRow("minute 60") << QByteArray("261114066049");
    QTest::newRow("second 60") << QByteArray("261114060560");
    QTest::newRow("year no decimal") << QByteArray("1a1114060549");
    QTest::newRow("year no decimal, high") << QByteArray("a01114060549");
    QTest::newRow("second no decimal") << QByteArray("26111406050f");
    QTest::newRow("all ones") << QByteArray("ffffffffffff");
    QTest::newRow("five bytes") << QByteArray("2611140605");
    QTest::newRow("seven bytes") << QByteArray("26111406054900");
    QTest::newRow("nothing") << QByteArray();
}

void TestUnitClock::refusesNoDateOrTime()
{
    QFETCH(QByteArray, cell);
    UnitClock clock;
    clock.setTimeSource([] { return qint64(1700000000000); });
    QVERIFY(clock.setCell(QByteArray::fromHex("261114060549")));
    QVERIFY(!clock.setCell(QByteArray::fromHex(cell)));
    QCOMPARE(clock.cell().toHex(), QByteArray("261114060549"));
}

void TestUnitClock::keepsItsLead()
{
    UnitClock clock;
    clock.setTimeSource([] { return qint64(0); });
    QVERIFY(clock.setCell(QByteArray::fromHex("000101000000")));
    QCOMPARE(*clock.ahead(), qint64(946684800000));

    UnitClock other;
    other.setTimeSource([] { return qint64(5000); });
    other.setAhead(clock.ahead());
    QCOMPARE(other.cell().toHex(), QByteArray("000101000005"));
}

QTEST_APPLESS_MAIN(TestUnitClock)
#include "tst_unitclock.moc"
