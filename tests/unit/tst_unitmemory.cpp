// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "owncost.h"
#include "unitmemory.h"

#include <QtTest/QtTest>

using namespace QuadrelUnit;

class TestUnitMemory : public QObject {
    Q_OBJECT

private slots:
    void readsZeroWhereNothingWasWritten();
    void readsWhatWasWritten_data();
    void readsWhatWasWritten();
    void overwritesInPart();
    void listsItsPages();
    void comparesBytesNotPages();
    void behavesAsOneArray();
    void keepsWithinItsLimit();
    void hasRoomUpToItsLimit_data();
    void hasRoomUpToItsLimit();
    void copiesStayAsTheyWere();
    void copiesCopyNoPage();
};

void TestUnitMemory::readsZeroWhereNothingWasWritten()
{
    const UnitMemory memory;
    QCOMPARE(memory.read(0xF0000000, 32), QByteArray(32, '\0'));
    QCOMPARE(memory.read(0xFFFFFFFF, 65535), QByteArray(65535, '\0'));
    QCOMPARE(memory.read(0, 0), QByteArray());
    QVERIFY(memory.pages().isEmpty());
}

void TestUnitMemory::readsWhatWasWritten_data()
{
    QTest::addColumn<quint32>("address");
    QTest::addColumn<int>("length");
    QTest::newRow("one byte") << quint32(0xF0020000) << 1;
    QTest::newRow("a record at an odd address") << quint32(0xF0020001) << 512;
    QTest::newRow("a whole page") << quint32(0xF0020000) << 4096;
    QTest::newRow("over the edge of a page") << quint32(0xF0020FFF) << 2;
    QTest::newRow("over several pages") << quint32(0xF0020801) << 65535;
    QTest::newRow("first address") << quint32(0) << 16;
    QTest::newRow("last address") << quint32(0xFFFFFFFF) << 1;
    QTest::newRow("round the end") << quint32(0xFFFFFFF0) << 40;
    QTest::newRow("nothing") << quint32(0x1000) << 0;
}

void TestUnitMemory::readsWhatWasWritten()
{
    QFETCH(quint32, address);
    QFETCH(int, length);
    QByteArray bytes(length, '\0');
    for (int i = 0; i < length; ++i)
        bytes[i] = static_cast<char>(i % 251 + 1);

    UnitMemory memory;
    memory.write(address, bytes);
    QCOMPARE(memory.read(address, length), bytes);
    QCOMPARE(memory.read(address - 1, length + 2), '\0' + bytes + '\0');
}

void TestUnitMemory::overwritesInPart()
{
    UnitMemory memory;
    memory.write(0xF00, "abcdefgh");
    memory.write(0xF02, "XY");
    QCOMPARE(memory.read(0xF00, 8), QByteArray("abXYefgh"));
    memory.write(0xF02, "");
    QCOMPARE(memory.read(0xF00, 8), QByteArray("abXYefgh"));
}

void TestUnitMemory::listsItsPages()
{
    UnitMemory memory;
    memory.write(0xF0020FFF, "ab");
    memory.write(0x10, "c");
    const QList<quint32> pages = {0, 0xF0020000, 0xF0021000};
    QCOMPARE(memory.pages(), pages);
}

void TestUnitMemory::comparesBytesNotPages()
{
    UnitMemory one;
    UnitMemory other;
    one.write(0x5000, QByteArray(3, '\0'));
    QVERIFY(one == other);
    QVERIFY(other == one);
    other.write(0x5000, "abc");
    QVERIFY(one != other);
    QVERIFY(other != one);
    one.write(0x5000, "abc");
    QVERIFY(one == other);
    one.write(0x9000, "d");
    QVERIFY(one != other);
    QVERIFY(other != one);
}

void TestUnitMemory::behavesAsOneArray()
{
    QRandomGenerator random(4);
    QByteArray model(20000, '\0');
    UnitMemory memory;
    for (int round = 0; round < 1000; ++round) {
        const int start = random.bounded(model.size() - 5000);
        const QByteArray bytes(random.bounded(5000), static_cast<char>(random.bounded(256)));
        model.replace(start, bytes.size(), bytes);
        memory.write(0xF0010000 + static_cast<quint32>(start), bytes);
        const int from = random.bounded(model.size());
        const int length = random.bounded(model.size() - from);
        QCOMPARE(
            memory.read(0xF0010000 + static_cast<quint32>(from), length), model.mid(from, length));
    }
}

void TestUnitMemory::keepsWithinItsLimit()
{
    UnitMemory memory;
    QCOMPARE(memory.limit(), qint64(64) * 1024 * 1024);
    memory.setLimit(3 * UnitMemory::pageSize);
    QVERIFY(memory.write(0x1000, "a"));
    QVERIFY(memory.write(0x2FFF, "bc"));
    QCOMPARE(memory.size(), qint64(3 * UnitMemory::pageSize));
    QVERIFY(memory.write(0x1FFF, "d"));

    // Nothing is written, not even what has room.
    QVERIFY(!memory.write(0x3FFF, "ef"));
    QCOMPARE(memory.read(0x3FFF, 2), QByteArray(2, '\0'));
    QVERIFY(!memory.write(0, "g"));
    QCOMPARE(memory.size(), qint64(3 * UnitMemory::pageSize));
    memory.setLimit(4 * UnitMemory::pageSize);
    QVERIFY(memory.write(0x3FFF, "ef"));
    QCOMPARE(memory.read(0x3FFF, 2), QByteArray("ef"));
}

void TestUnitMemory::hasRoomUpToItsLimit_data()
{
    QTest::addColumn<quint32>("address");
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("hasRoom");
    QTest::newRow("nothing") << quint32(0x9000) << 0 << true;
    QTest::newRow("what is there") << quint32(0x1000) << 4096 << true;
    QTest::newRow("one page more") << quint32(0x1000) << 4097 << true;
    QTest::newRow("two pages more") << quint32(0x1000) << 2 * 4096 + 1 << false;
    QTest::newRow("one page elsewhere") << quint32(0x9000) << 4096 << true;
    QTest::newRow("two pages elsewhere") << quint32(0x9001) << 4096 << false;
    QTest::newRow("round the end") << quint32(0xFFFFFFFF) << 2 << false;
}

void TestUnitMemory::hasRoomUpToItsLimit()
{
    QFETCH(quint32, address);
    QFETCH(int, length);
    QFETCH(bool, hasRoom);
    UnitMemory memory;
    memory.setLimit(2 * UnitMemory::pageSize);
    QVERIFY(memory.write(0x1000, "a"));
    QCOMPARE(memory.hasRoomFor(address, length), hasRoom);
}

void TestUnitMemory::copiesStayAsTheyWere()
{
    UnitMemory memory;
    memory.write(0x1000, "old");
    const UnitMemory copy = memory;
    memory.write(0x1000, "new");
    memory.write(0x2000, "more");
    QCOMPARE(copy.read(0x1000, 3), QByteArray("old"));
    QCOMPARE(copy.pages(), QList<quint32>{0x1000});
    QCOMPARE(memory.read(0x1000, 3), QByteArray("new"));
}

void TestUnitMemory::copiesCopyNoPage()
{
    constexpr int pages = 16000;
    UnitMemory memory;
    for (quint32 i = 0; i < pages; ++i)
        QVERIFY(memory.write(i * UnitMemory::pageSize, "x"));
    const OwnCost cost;
    const UnitMemory copy = memory;
    QCOMPARE(copy.size(), memory.size());
    // Where the pages are takes some 1.5 MB, the pages themselves 65 MB.
    const double megabytes = cost.peakMegabytes();
    QVERIFY2(megabytes < 10, qPrintable(QString::number(megabytes)));
}

QTEST_APPLESS_MAIN(TestUnitMemory)
#include "tst_unitmemory.moc"
