// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "bcd.h"

#include <QtTest/QTest>

#include <limits>

class TestBcd : public QObject {
    Q_OBJECT

private slots:
    void numbersOfTwoDigitsSurvive();
    void otherNumbersKeepLowBits_data();
    void otherNumbersKeepLowBits();
    void nibblesAboveNineAreNoError_data();
    void nibblesAboveNineAreNoError();
};

void TestBcd::numbersOfTwoDigitsSurvive()
{
    for (int number = 0; number <= 99; ++number) {
        const quint8 byte = Bcd::fromNumber(number);
        QCOMPARE(int(byte >> 4), number / 10);
        QCOMPARE(int(byte & 0x0F), number % 10);
        QCOMPARE(int(Bcd::toNumber(byte)), number);
    }
}

void TestBcd::otherNumbersKeepLowBits_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("byte");
    QTest::newRow("hour") << 23 << 0x23;
    QTest::newRow("minute") << 59 << 0x59;
    QTest::newRow("100") << 100 << 0xA0;
    QTest::newRow("165") << 165 << 0x05;
    QTest::newRow("256") << 256 << 0x96;
    QTest::newRow("-1") << -1 << 0xFF;
    QTest::newRow("-10") << -10 << 0xF0;
    QTest::newRow("largest") << std::numeric_limits<int>::max() << 0xC7;
    QTest::newRow("smallest") << std::numeric_limits<int>::min() << 0x38;
}

void TestBcd::otherNumbersKeepLowBits()
{
    QFETCH(int, number);
    QFETCH(int, byte);
    QCOMPARE(int(Bcd::fromNumber(number)), byte);
}

void TestBcd::nibblesAboveNineAreNoError_data()
{
    QTest::addColumn<int>("byte");
    QTest::addColumn<int>("number");
    QTest::newRow("low nibble") << 0x1A << 20;
    QTest::newRow("both nibbles") << 0xFF << 165;
    QTest::newRow("high nibble") << 0xA0 << 100;
}

void TestBcd::nibblesAboveNineAreNoError()
{
    QFETCH(int, byte);
    QFETCH(int, number);
    QCOMPARE(int(Bcd::toNumber(static_cast<quint8>(byte))), number);
}

QTEST_APPLESS_MAIN(TestBcd)
#include "tst_bcd.moc"
