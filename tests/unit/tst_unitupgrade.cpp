// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitupgrade.h"

#include "upgradewrites.h"

#include <QtTest/QtTest>

using namespace QuadrelUnit;

namespace {

QByteArray image(int size, int seed)
{
    QByteArray bytes(size, '\0');
    QRandomGenerator random(static_cast<quint32>(seed));
    for (char& byte : bytes)
        byte = static_cast<char>(random.bounded(256));
    return bytes;
}

/** The outcome of the last of the writes; all before it must be taken. */
UnitUpgrade::Outcome run(UnitUpgrade& upgrade, const QList<UpgradeWrite>& writes)
{
    for (int i = 0; i < writes.size() - 1; ++i) {
        const UnitUpgrade::Outcome outcome = upgrade.write(writes[i].address, writes[i].data);
        if (outcome != UnitUpgrade::Taken)
            return outcome;
    }
    return upgrade.write(writes.last().address, writes.last().data);
}

} // namespace

class TestUnitUpgrade : public QObject {
    Q_OBJECT

private slots:
    void takesBothImages_data();
    void takesBothImages();
    void leavesOtherWritesAlone();
    void tellsImagesFromMemory();
    void breaksAtEachMissingWrite();
    void breaksAtEachRepeatedWrite();
    void breaksAtEachChangedWrite();
    void tellsWhatIsWrong_data();
    void tellsWhatIsWrong();
    void startsAnewAfterABreak();
    void startsAnewInTheMiddle();
};

void TestUnitUpgrade::takesBothImages_data()
{
    QTest::addColumn<int>("streamedSize");
    QTest::addColumn<int>("addressedSize");
    for (const int streamed : {0, 1, 2047, 2048, 2049, 4096, 5000, 1 << 20}) {
        for (const int addressed : {0, 1, 2048, 2049, 5000}) {
            QTest::addRow("%d and %d bytes", streamed, addressed) << streamed << addressed;
        }
    }
}

void TestUnitUpgrade::takesBothImages()
{
    QFETCH(int, streamedSize);
    QFETCH(int, addressedSize);
    const QByteArray streamed = image(streamedSize, 1);
    const QByteArray addressed = image(addressedSize, 2);
    UnitUpgrade upgrade;
    QCOMPARE(run(upgrade, upgradeWrites(streamed, addressed)), UnitUpgrade::Complete);
    QVERIFY(upgrade.streamedImage() == streamed);
    QVERIFY(upgrade.addressedImage() == addressed);
    QCOMPARE(upgrade.problem(), QString());

    // And once more, at once.
    QCOMPARE(run(upgrade, upgradeWrites(addressed, streamed)), UnitUpgrade::Complete);
    QVERIFY(upgrade.streamedImage() == addressed);
    QVERIFY(upgrade.addressedImage() == streamed);
}

void TestUnitUpgrade::leavesOtherWritesAlone()
{
    UnitUpgrade upgrade;
    const QList<UpgradeWrite> writes = upgradeWrites(image(100, 1), image(3000, 2));
    for (int i = 0; i < writes.size(); ++i) {
        QCOMPARE(upgrade.write(0x18201000, QByteArray(90, 'r')), UnitUpgrade::Elsewhere);
        QCOMPARE(upgrade.write(0xF0000000, "x"), UnitUpgrade::Elsewhere);
        QCOMPARE(upgrade.write(0x01F00001, littleEndian(0)), UnitUpgrade::Elsewhere);
        const bool isLast = i == writes.size() - 1;
        QCOMPARE(upgrade.write(writes[i].address, writes[i].data),
            isLast ? UnitUpgrade::Complete : UnitUpgrade::Taken);
    }
}

void TestUnitUpgrade::tellsImagesFromMemory()
{
    QVERIFY(!UnitUpgrade::isImage(0x05FFFFFF));
    QVERIFY(UnitUpgrade::isImage(0x06000000));
    QVERIFY(UnitUpgrade::isImage(0x06FFF800));
    QVERIFY(UnitUpgrade::isImage(0x18000000));
    QVERIFY(!UnitUpgrade::isImage(0x18200000));
    QVERIFY(!UnitUpgrade::isImage(0x18201000));
    QVERIFY(!UnitUpgrade::isImage(0xF0000000));
}

void TestUnitUpgrade::breaksAtEachMissingWrite()
{
    const QList<UpgradeWrite> writes = upgradeWrites(image(5000, 1), image(4097, 2));
    for (int left = 0; left < writes.size() - 1; ++left) {
        QList<UpgradeWrite> some = writes;
        some.removeAt(left);
        UnitUpgrade upgrade;
        QCOMPARE(run(upgrade, some), UnitUpgrade::Broken);
        QVERIFY(!upgrade.problem().isEmpty());
    }
}

void TestUnitUpgrade::breaksAtEachRepeatedWrite()
{
    const QList<UpgradeWrite> writes = upgradeWrites(image(2100, 1), image(4097, 2));
    for (int twice = 1; twice < writes.size() - 1; ++twice) {
        QList<UpgradeWrite> more = writes;
        more.insert(twice, writes[twice]);
        UnitUpgrade upgrade;
        QCOMPARE(run(upgrade, more), UnitUpgrade::Broken);
    }
}

void TestUnitUpgrade::breaksAtEachChangedWrite()
{
    const QList<UpgradeWrite> writes = upgradeWrites(image(2100, 1), image(4097, 2));
    for (int changed = 0; changed < writes.size(); ++changed) {
        QList<UpgradeWrite> longer = writes;
        longer[changed].data.append('x');
        UnitUpgrade upgrade;
        QCOMPARE(run(upgrade, longer), UnitUpgrade::Broken);

        QList<UpgradeWrite> empty = writes;
        empty[changed].data.clear();
        UnitUpgrade other;
        QCOMPARE(run(other, empty), UnitUpgrade::Broken);
    }
}

void TestUnitUpgrade::tellsWhatIsWrong_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<quint32>("address");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("problem");

    // `before` writes of an upgrade with 10 and 2049 bytes go first.
    QTest::newRow("nothing was begun") << 0 << quint32(0x01F00004) << littleEndian(0)
                                       << "a write at 0x01f00004, and no upgrade was begun";
    QTest::newRow("image without an upgrade") << 0 << quint32(0x06000000) << QByteArray(2048, 'x')
                                              << "a write at 0x06000000, and no upgrade was begun";
    QTest::newRow("length word of 2 bytes")
        << 0 << quint32(0x01F00000) << QByteArray(2, '\0') << "a length word of 2 bytes";
    QTest::newRow("position")
        << 1 << quint32(0x01F00004) << littleEndian(1)
        << "got 01 00 00 00 at 0x01f00004 where 00 00 00 00 at 0x01f00004 was due";
    QTest::newRow("no size")
        << 2 << quint32(0x01F00008) << QByteArray::fromHex("02000100")
        << "got 02 00 01 00 at 0x01f00008 where the size of an image at 0x01f0000c was due";
    QTest::newRow("more than all") << 2 << quint32(0x01F0000C) << littleEndian(2060)
                                   << "an image of 2060 bytes in an upgrade of 2059";
    QTest::newRow("command of the other half")
        << 3 << quint32(0x01F00008) << QByteArray::fromHex("02000200")
        << "got 02 00 02 00 at 0x01f00008 where 02 00 01 00 at 0x01f00008 was due";
    QTest::newRow("second chunk first")
        << 4 << quint32(0x06000800) << QByteArray(2048, 'x')
        << "got 2048 bytes at 0x06000800 instead of 2048 bytes of image at 0x06000000";
    QTest::newRow("too much")
        << 5 << quint32(0x06000800) << QByteArray(2, 'x')
        << "got 2 bytes at 0x06000800 instead of 1 byte of image at 0x06000800";
    QTest::newRow("data instead of a start word")
        << 6 << quint32(0x18000000) << QByteArray(10, 'x')
        << "got 78 78 78 78 78 78 78 78 ... at 0x18000000 where 09 72 at 0x18200002 was due";
    QTest::newRow("as much data as is shown")
        << 6 << quint32(0x18000000) << QByteArray(8, 'x')
        << "got 78 78 78 78 78 78 78 78 at 0x18000000 where 09 72 at 0x18200002 was due";
    QTest::newRow("start word") << 6 << quint32(0x18200002) << QByteArray::fromHex("7209")
                                << "got 72 09 at 0x18200002 where 09 72 at 0x18200002 was due";
    QTest::newRow("second length") << 8 << quint32(0x01F00000) << littleEndian(11)
                                   << "a new upgrade began before the last one was whole";
}

void TestUnitUpgrade::tellsWhatIsWrong()
{
    QFETCH(int, before);
    QFETCH(quint32, address);
    QFETCH(QByteArray, data);
    QFETCH(QString, problem);
    UnitUpgrade upgrade;
    QList<UpgradeWrite> writes = upgradeWrites(image(10, 1), image(2049, 2)).mid(0, before);
    writes.append({address, data});
    QCOMPARE(run(upgrade, writes), UnitUpgrade::Broken);
    QCOMPARE(upgrade.problem(), problem);
}

void TestUnitUpgrade::startsAnewAfterABreak()
{
    const QList<UpgradeWrite> writes = upgradeWrites(image(10, 1), image(5000, 2));
    UnitUpgrade upgrade;
    QList<UpgradeWrite> broken = writes;
    broken.removeAt(4);
    QCOMPARE(run(upgrade, broken), UnitUpgrade::Broken);
    // The rest of the broken one is accepted without a further report.
    QCOMPARE(upgrade.write(0x06001000, "x"), UnitUpgrade::Taken);
    QCOMPARE(upgrade.write(0x18200002, "xy"), UnitUpgrade::Taken);
    QCOMPARE(run(upgrade, writes), UnitUpgrade::Complete);
}

void TestUnitUpgrade::startsAnewInTheMiddle()
{
    const QByteArray streamed = image(5000, 1);
    const QByteArray addressed = image(5000, 2);
    const QList<UpgradeWrite> writes = upgradeWrites(streamed, addressed);
    for (int done = 1; done < writes.size(); ++done) {
        UnitUpgrade upgrade;
        for (const UpgradeWrite& write : writes.mid(0, done))
            QCOMPARE(upgrade.write(write.address, write.data), UnitUpgrade::Taken);
        QCOMPARE(upgrade.write(writes[0].address, writes[0].data), UnitUpgrade::Broken);
        QCOMPARE(run(upgrade, writes.mid(1)), UnitUpgrade::Complete);
        QVERIFY(upgrade.streamedImage() == streamed);
        QVERIFY(upgrade.addressedImage() == addressed);
    }
}

QTEST_APPLESS_MAIN(TestUnitUpgrade)
#include "tst_unitupgrade.moc"
