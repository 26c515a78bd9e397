// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "clockcell.h"

#include "replyframe.h"
#include "replyframes.h"

#include <QtTest/QTest>

class TestClockCell : public QObject {
    Q_OBJECT

private slots:
    void reads_data();
    void reads();
    void writes_data();
    void writes();
};

void TestClockCell::reads_data()
{
    QTest::addColumn<QByteArray>("cell");
    QTest::addColumn<QString>("text");
    QTest::newRow("ordinary") << hex("260109070503") << "2026/01/09 07:05:03";
    QTest::newRow("two digits") << hex("991231235959") << "2099/12/31 23:59:59";
    QTest::newRow("year below 10") << hex("050101000000") << "205/01/01 00:00:00";
    QTest::newRow("zero") << hex("000000000000") << "200/00/00 00:00:00";
    QTest::newRow("no digits") << hex("ffffffffffff") << "20165/165/165 165:165:165";
    QTest::newRow("short") << hex("2601") << "2026/01/00 00:00:00";
}

void TestClockCell::reads()
{
    QFETCH(const QByteArray, cell);
    QFETCH(const QString, text);
    const QByteArray bytes = replyFrame(0x02000011, cell).chopped(2) + QByteArray(10, '\0');
    QCOMPARE(ClockCell::text(ReplyFrame(bytes)), text);
}

void TestClockCell::writes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("cell");
    QTest::newRow("ordinary") << "2026/11/14  06:05:49" << hex("261114060549");
    QTest::newRow("other century") << "1999/12/31  23:59:59" << hex("991231235959");
    QTest::newRow("one blank") << "2026/11/14 06:05:49" << hex("261100000000");
    QTest::newRow("date only") << "2026/11/14" << hex("261114000000");
    QTest::newRow("no numbers") << "yyyy/mm/dd  hh:mm:ss" << hex("000000000000");
    QTest::newRow("empty") << "" << hex("000000000000");
}

void TestClockCell::writes()
{
    QFETCH(const QString, text);
    QFETCH(const QByteArray, cell);
    QCOMPARE(ClockCell::fromText(text), cell);
}

QTEST_APPLESS_MAIN(TestClockCell)
#include "tst_clockcell.moc"
