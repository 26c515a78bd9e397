// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "recordblock.h"

#include "replyframes.h"

#include <QtTest/QTest>

class TestRecordBlock : public QObject {
    Q_OBJECT

private slots:
    void startsAsAnEmptySlot();
    void keepsLowBits();
    void growsWithZeros();
    void storesNothingInPlace();
};

void TestRecordBlock::startsAsAnEmptySlot()
{
    QCOMPARE(RecordBlock().bytes(), QByteArray(512, '\0'));
}

void TestRecordBlock::keepsLowBits()
{
    RecordBlock block;
    block.storeByte(0, 0x1FE);
    block.storeByte(1, -1);
    block.storeWord(2, 0x12345);
    block.storeBytes(4, {0x4C, 0xA5});
    block.storeBytes(6, QByteArray("ab"));
    QCOMPARE(block.bytes(), slotOf(hex("feff4523 4ca5 6162")));
}

void TestRecordBlock::growsWithZeros()
{
    RecordBlock block;
    block.storeByte(511, 1);
    QCOMPARE(block.bytes().size(), 512);
    block.storeWord(511, 0x0203);
    QCOMPARE(block.bytes(), QByteArray(511, '\0') + hex("0302"));
    block.storeByte(600, 7);
    QCOMPARE(block.bytes(), QByteArray(511, '\0') + hex("0302") + QByteArray(87, '\0') + '\x07');
    block.storeByte(0, 9);
    QCOMPARE(block.bytes().size(), 601);
}

void TestRecordBlock::storesNothingInPlace()
{
    RecordBlock block;
    block.storeBytes(5, QByteArray());
    QCOMPARE(block.bytes(), QByteArray(512, '\0'));
}

QTEST_APPLESS_MAIN(TestRecordBlock)
#include "tst_recordblock.moc"
