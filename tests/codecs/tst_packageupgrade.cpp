// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "packageupgrade.h"

#include "replyframes.h"

#include <QtTest/QTest>

class TestPackageUpgrade : public QObject {
    Q_OBJECT

private slots:
    void wordsAreLittleEndian_data();
    void wordsAreLittleEndian();
    void doubleWordsAreLittleEndian_data();
    void doubleWordsAreLittleEndian();
    void commandHasItsFirstWordFirst();
    void takesAParent();
};

void TestPackageUpgrade::wordsAreLittleEndian_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("zero") << 0 << hex("0000");
    QTest::newRow("start word") << 0x7209 << hex("0972");
    QTest::newRow("largest") << 0xFFFF << hex("ffff");
}

void TestPackageUpgrade::wordsAreLittleEndian()
{
    QFETCH(int, value);
    QFETCH(QByteArray, bytes);
    QCOMPARE(PackageUpgrade::createWordPackage(static_cast<ushort>(value)), bytes);
    QCOMPARE(PackageUpgrade::createStartWordPackage(static_cast<ushort>(value)), bytes);
}

void TestPackageUpgrade::doubleWordsAreLittleEndian_data()
{
    QTest::addColumn<uint>("value");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("zero") << 0U << hex("00000000");
    QTest::newRow("each byte") << 0x12345678U << hex("78563412");
    QTest::newRow("largest") << 0xFFFFFFFFU << hex("ffffffff");
}

void TestPackageUpgrade::doubleWordsAreLittleEndian()
{
    QFETCH(uint, value);
    QFETCH(QByteArray, bytes);
    QCOMPARE(PackageUpgrade::createLengthPackage(value), bytes);
    QCOMPARE(PackageUpgrade::createPositionPackage(value), bytes);
    QCOMPARE(PackageUpgrade::createSizePackage(value), bytes);
}

void TestPackageUpgrade::commandHasItsFirstWordFirst()
{
    QCOMPARE(PackageUpgrade::createCommandPackage(2, 1), hex("02000100"));
    QCOMPARE(PackageUpgrade::createCommandPackage(2, 2), hex("02000200"));
    QCOMPARE(PackageUpgrade::createCommandPackage(0x1234, 0xABCD), hex("3412cdab"));
}

void TestPackageUpgrade::takesAParent()
{
    QObject parent;
    const auto* made = new PackageUpgrade(&parent);
    QCOMPARE(made->parent(), &parent);
}

QTEST_APPLESS_MAIN(TestPackageUpgrade)
#include "tst_packageupgrade.moc"
