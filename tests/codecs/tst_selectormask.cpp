// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "selectormask.h"

#include <QtTest/QTest>

class TestSelectorMask : public QObject {
    Q_OBJECT

private slots:
    void linesHaveOneBitEach_data();
    void linesHaveOneBitEach();
    void otherValuesHaveNoBit_data();
    void otherValuesHaveNoBit();
    void lastSerialLinesAreReportedInAnotherWay_data();
    void lastSerialLinesAreReportedInAnotherWay();
    void otherMasksAreTheFirstLine();
};

void TestSelectorMask::linesHaveOneBitEach_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");
    QTest::newRow("A-1") << 0 << 0x10 << 0x00;
    QTest::newRow("A-2") << 1 << 0x20 << 0x00;
    QTest::newRow("A-3") << 2 << 0x40 << 0x00;
    QTest::newRow("A-4") << 3 << 0x80 << 0x00;
    QTest::newRow("B-1") << 4 << 0x01 << 0x00;
    QTest::newRow("B-2") << 5 << 0x02 << 0x00;
    QTest::newRow("B-3") << 6 << 0x04 << 0x00;
    QTest::newRow("B-4") << 7 << 0x08 << 0x00;
    QTest::newRow("C-1") << 8 << 0x00 << 0x10;
    QTest::newRow("C-2") << 9 << 0x00 << 0x20;
    QTest::newRow("C-3") << 10 << 0x00 << 0x40;
    QTest::newRow("C-4") << 11 << 0x00 << 0x80;
    QTest::newRow("D-1") << 12 << 0x00 << 0x01;
    QTest::newRow("D-2") << 13 << 0x00 << 0x02;
    QTest::newRow("D-3") << 14 << 0x00 << 0x04;
    QTest::newRow("D-4") << 15 << 0x00 << 0x08;
}

void TestSelectorMask::linesHaveOneBitEach()
{
    QFETCH(int, line);
    QFETCH(int, first);
    QFETCH(int, second);
    const SelectorMask mask = SelectorMask::ofLine(line);
    QCOMPARE(int(mask.first), first);
    QCOMPARE(int(mask.second), second);
    QCOMPARE(mask.inputLine(), line);
    if (line < 14)
        QCOMPARE(mask.serialLine(), line);
}

void TestSelectorMask::otherValuesHaveNoBit_data()
{
    QTest::addColumn<int>("line");
    for (const int line : {-1, 16, 255, 0x7FFFFFFF})
        QTest::addRow("%d", line) << line;
}

void TestSelectorMask::otherValuesHaveNoBit()
{
    QFETCH(int, line);
    QVERIFY((SelectorMask::ofLine(line) == SelectorMask{0, 0}));
}

void TestSelectorMask::lastSerialLinesAreReportedInAnotherWay_data()
{
    QTest::addColumn<int>("second");
    QTest::addColumn<int>("serialLine");
    QTest::addColumn<int>("inputLine");
    QTest::newRow("D-3") << 0x03 << 14 << 0;
    QTest::newRow("D-4") << 0x04 << 15 << 14;
    QTest::newRow("no port") << 0x08 << 0 << 15;
}

void TestSelectorMask::lastSerialLinesAreReportedInAnotherWay()
{
    QFETCH(int, second);
    QFETCH(int, serialLine);
    QFETCH(int, inputLine);
    const SelectorMask mask = {0, static_cast<quint8>(second)};
    QCOMPARE(mask.serialLine(), serialLine);
    QCOMPARE(mask.inputLine(), inputLine);
}

void TestSelectorMask::otherMasksAreTheFirstLine()
{
    int inputs = 0;
    int serials = 0;
    for (int bits = 0; bits <= 0xFFFF; ++bits) {
        const SelectorMask mask = {static_cast<quint8>(bits >> 8), static_cast<quint8>(bits)};
        inputs += mask.inputLine() != 0;
        serials += mask.serialLine() != 0;
    }
    // All lines but the first, each by one mask.
    QCOMPARE(inputs, 15);
    QCOMPARE(serials, 15);
    QCOMPARE((SelectorMask{0x10, 0x10}.inputLine()), 0);
    QCOMPARE((SelectorMask{0x01, 0x04}.serialLine()), 0);
}

QTEST_APPLESS_MAIN(TestSelectorMask)
#include "tst_selectormask.moc"
