// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "packagedevice.h"

#include "devicemodel.h"
#include "framefaults.h"
#include "randomreplies.h"

#include <QtTest/QTest>

namespace {

constexpr uint deviceDataType = 0xF0000000;
constexpr int deviceDataLength = 32;

/** A block with another byte in each place. */
QByteArray deviceBlock()
{
    return hex("0972 01020304 1122334455667788 01 0a01a8c0 00ffffff 0101a8c0 01 ee 04 10 08 02");
}

DeviceModel filledDevice()
{
    DeviceModel device;
    device.setDHCPModel(true);
    device.setEthLinkState(true);
    device.setName(QStringLiteral("name"));
    device.setPattern(QStringLiteral("pattern"));
    device.setType(QStringLiteral("type"));
    return device;
}

DeviceModel networkDevice(bool dhcp, const char* ip, const char* submask, const char* gateway)
{
    DeviceModel device;
    device.setDHCPModel(dhcp);
    device.setIP(QString::fromUtf8(ip));
    device.setSubMask(QString::fromUtf8(submask));
    device.setGateWay(QString::fromUtf8(gateway));
    return device;
}

bool parse(const QByteArray& frame, DeviceModel& device, QString& error)
{
    return PackageDevice::parseDevicePackage(
        deviceDataType, frame, deviceDataLength, device, error);
}

} // namespace

class TestPackageDevice : public QObject {
    Q_OBJECT

private slots:
    void testsTheFrame();
    void readsEachField();
    void readsLargestValues();
    void keepsWhatIsNotInTheBlock();
    void flagsAreZeroOrOne_data();
    void flagsAreZeroOrOne();
    void smallestFrameReadsAsZeros();
    void shortFramesReadAsFarAsTheyGo();
    void readsInfraRedPortsBehindThePayload();
    void writesTheNetworkCell_data();
    void writesTheNetworkCell();
    void networkCellSurvives();
    void writesReset();
    void randomRepliesDoNoHarm();
    void takesAParent();
};

void TestPackageDevice::testsTheFrame()
{
    DeviceModel device = filledDevice();
    checkFrameFaults(
        [&](uint dataType, const QByteArray& frame, int dataLength, QString& error) {
            return PackageDevice::parseDevicePackage(
                dataType, frame, static_cast<uint>(dataLength), device, error);
        },
        deviceDataType, deviceDataLength);
    QVERIFY(device == filledDevice());
}

void TestPackageDevice::readsEachField()
{
    DeviceModel device;
    QString error = QStringLiteral("before");
    QVERIFY(parse(replyFrame(deviceDataType, deviceBlock(), deviceDataLength), device, error));
    QCOMPARE(error, QStringLiteral("before"));

    QCOMPARE(device.getModelId(), static_cast<unsigned short>(0x7209));
    QCOMPARE(device.getVersion(), QStringLiteral("1.2.3.4"));
    QCOMPARE(device.getSN(), 0x8877665544332211ULL);
    QCOMPARE(device.getDHCPModel(), true);
    QCOMPARE(device.getIP(), QStringLiteral("192.168.1.10"));
    QCOMPARE(device.getSubMask(), QStringLiteral("255.255.255.0"));
    QCOMPARE(device.getGateWay(), QStringLiteral("192.168.1.1"));
    QCOMPARE(device.getEthLinkState(), true);
    QCOMPARE(device.getComNumber(), 4);
    QCOMPARE(device.getIoNumber(), 16);
    QCOMPARE(device.getRelayNumber(), 8);
    QCOMPARE(device.getIRNumber(), 2);
}

void TestPackageDevice::readsLargestValues()
{
    DeviceModel device;
    QString error;
    QByteArray block(33, '\xFF');
    QVERIFY(parse(replyFrame(deviceDataType, block, deviceDataLength), device, error));
    QCOMPARE(device.getModelId(), static_cast<unsigned short>(0xFFFF));
    QCOMPARE(device.getVersion(), QStringLiteral("255.255.255.255"));
    QCOMPARE(device.getSN(), 0xFFFFFFFFFFFFFFFFULL);
    QCOMPARE(device.getIP(), QStringLiteral("255.255.255.255"));
    QCOMPARE(device.getComNumber(), 255);
    QCOMPARE(device.getIoNumber(), 255);
    QCOMPARE(device.getRelayNumber(), 255);
    QCOMPARE(device.getIRNumber(), 255);
}

void TestPackageDevice::keepsWhatIsNotInTheBlock()
{
    DeviceModel device = filledDevice();
    QString error;
    QVERIFY(parse(replyFrame(deviceDataType, deviceBlock(), deviceDataLength), device, error));
    QCOMPARE(device.getName(), QStringLiteral("name"));
    QCOMPARE(device.getPattern(), QStringLiteral("pattern"));
    QCOMPARE(device.getType(), QStringLiteral("type"));
}

void TestPackageDevice::flagsAreZeroOrOne_data()
{
    QTest::addColumn<int>("byte");
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("after");
    for (const bool before : {false, true}) {
        QTest::addRow("0 on %d", before) << 0 << before << false;
        QTest::addRow("1 on %d", before) << 1 << before << true;
        QTest::addRow("2 on %d", before) << 2 << before << before;
        QTest::addRow("255 on %d", before) << 255 << before << before;
    }
}

void TestPackageDevice::flagsAreZeroOrOne()
{
    QFETCH(int, byte);
    QFETCH(bool, before);
    QFETCH(bool, after);
    QString error;

    QByteArray block = deviceBlock();
    block[14] = static_cast<char>(byte);
    DeviceModel device;
    device.setDHCPModel(before);
    QVERIFY(parse(replyFrame(deviceDataType, block, deviceDataLength), device, error));
    QCOMPARE(device.getDHCPModel(), after);

    block = deviceBlock();
    block[27] = static_cast<char>(byte);
    device.setEthLinkState(before);
    QVERIFY(parse(replyFrame(deviceDataType, block, deviceDataLength), device, error));
    QCOMPARE(device.getEthLinkState(), after);
}

void TestPackageDevice::smallestFrameReadsAsZeros()
{
    DeviceModel device = filledDevice();
    QString error;
    QVERIFY(parse(replyFrame(deviceDataType, {}, deviceDataLength), device, error));
    QCOMPARE(device.getModelId(), static_cast<unsigned short>(0));
    QCOMPARE(device.getVersion(), QStringLiteral("0.0.0.0"));
    QCOMPARE(device.getSN(), 0ULL);
    QCOMPARE(device.getDHCPModel(), false);
    QCOMPARE(device.getIP(), QStringLiteral("0.0.0.0"));
    QCOMPARE(device.getSubMask(), QStringLiteral("0.0.0.0"));
    QCOMPARE(device.getGateWay(), QStringLiteral("0.0.0.0"));
    QCOMPARE(device.getEthLinkState(), false);
    QCOMPARE(device.getComNumber(), 0);
    QCOMPARE(device.getIoNumber(), 0);
    QCOMPARE(device.getRelayNumber(), 0);
    QCOMPARE(device.getIRNumber(), 0);
}

void TestPackageDevice::shortFramesReadAsFarAsTheyGo()
{
    const QByteArray whole = replyFrame(deviceDataType, deviceBlock(), deviceDataLength);
    for (int size = 20; size < whole.size(); ++size) {
        DeviceModel device;
        DeviceModel padded;
        QString error;
        QVERIFY(parse(whole.left(size), device, error));
        QVERIFY(parse(slotOf(whole.left(size), 60), padded, error));
        QVERIFY(device == padded);
    }
}

void TestPackageDevice::readsInfraRedPortsBehindThePayload()
{
    // With a frame of the announced length, the number is where the trailer begins.
    QByteArray frame = replyFrame(deviceDataType, deviceBlock().left(deviceDataLength));
    QCOMPARE(frame.size(), 52);
    frame[50] = 7;
    DeviceModel device;
    QString error;
    QVERIFY(parse(frame, device, error));
    QCOMPARE(device.getIRNumber(), 7);
}

void TestPackageDevice::writesTheNetworkCell_data()
{
    QTest::addColumn<DeviceModel>("device");
    QTest::addColumn<QByteArray>("bytes");
    const auto row = [](const char* name, const DeviceModel& device, const QByteArray& bytes) {
        QTest::newRow(name) << device << bytes;
    };
    row("fixed address", networkDevice(false, "192.168.1.10", "255.255.255.0", "192.168.1.1"),
        hex("00 0a01a8c0 00ffffff 0101a8c0"));
    row("DHCP", networkDevice(true, "1.2.3.4", "5.6.7.8", "9.10.11.12"),
        hex("01 04030201 08070605 0c0b0a09"));
    row("default", DeviceModel(), {});
    row("low 8 bits", networkDevice(false, "256.300.-1.4", "0.0.0.0", "0.0.0.0"),
        hex("00 04ff2c00 00000000 00000000"));
    row("no numbers", networkDevice(false, "a..1x. 7 ", "99999999999.0.0.0", "..."),
        hex("00 07000000 00000000 00000000"));
    row("three items", networkDevice(false, "1.2.3", "5.6.7.8", "9.10.11.12"), {});
    row("five items", networkDevice(false, "1.2.3.4.", "5.6.7.8", "9.10.11.12"), {});
    row("no mask", networkDevice(false, "1.2.3.4", "", "9.10.11.12"), {});
    row("short gateway", networkDevice(false, "1.2.3.4", "5.6.7.8", "9"), {});
}

void TestPackageDevice::writesTheNetworkCell()
{
    QFETCH(DeviceModel, device);
    QFETCH(QByteArray, bytes);
    QCOMPARE(PackageDevice::createNetWorkPackage(device), bytes);
}

void TestPackageDevice::networkCellSurvives()
{
    QRandomGenerator random(7);
    for (int run = 0; run < 500; ++run) {
        const QByteArray block = deviceBlock().left(14) + char(run % 2) + randomBytes(random, 12);
        DeviceModel device;
        QString error;
        QVERIFY(parse(replyFrame(deviceDataType, block, deviceDataLength), device, error));
        QCOMPARE(PackageDevice::createNetWorkPackage(device), block.mid(14, 13));
    }
}

void TestPackageDevice::writesReset()
{
    QCOMPARE(PackageDevice::createResetPackage(false), hex("00"));
    QCOMPARE(PackageDevice::createResetPackage(true), hex("01"));
}

void TestPackageDevice::randomRepliesDoNoHarm()
{
    feedRandomReplies(deviceDataType, deviceDataLength, deviceBlock(), [](const QByteArray& frame) {
        DeviceModel device;
        QString error;
        const bool read = parse(frame, device, error);
        QCOMPARE(error.isEmpty(), read);
        if (read)
            QCOMPARE(device.getIP().count(QLatin1Char('.')), 3);
    });
}

void TestPackageDevice::takesAParent()
{
    QObject parent;
    const auto* made = new PackageDevice(&parent);
    QCOMPARE(made->parent(), &parent);
}

QTEST_APPLESS_MAIN(TestPackageDevice)
#include "tst_packagedevice.moc"
