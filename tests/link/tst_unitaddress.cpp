#include "addresscheck.h"
#include "unitaddress.h"

#include <QtTest/QtTest>

class TestUnitAddress : public QObject {
    Q_OBJECT

private slots:
    void readsUnitAddresses_data();
    void readsUnitAddresses();
    void knowsIpv4Texts_data();
    void knowsIpv4Texts();
    void findsNetworkFaults_data();
    void findsNetworkFaults();
};

void TestUnitAddress::readsUnitAddresses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("read");
    const auto row = [](const char* text, const char* read) {
        QTest::newRow(text) << QString::fromLatin1(text) << QString::fromLatin1(read);
    };
    row("tcp://127.0.0.1:4000", "tcp://127.0.0.1:4000");
    row("udp://127.0.0.1:4000", "udp://127.0.0.1:4000");
    row("tcp://unit:1", "tcp://unit:1");
    row("tcp://unit:65535", "tcp://unit:65535");
    row("tcp://192.168.1.10", "tcp://192.168.1.10:3801");
    row("192.168.1.10", "tcp://192.168.1.10:3801");
    row("192.168.1.10:5", "tcp://192.168.1.10:5");
    row("tcp://[::1]:4000", "tcp://[::1]:4000");
    row("", "");
    row("tcp://", "");
    row("tcp://:4000", "");
    row("tcp://unit:0", "");
    row("tcp://unit:65536", "");
    row("tcp://unit:-1", "");
    row("tcp://unit:port", "");
    row("http://unit:80", "");
    row("tcp://unit:80/", "");
    row("tcp://me@unit:80", "");
    row("tcp://unit:80?a", "");
    row("tcp://unit:80#a", "");
    row("tcp://two words:80", "");
}

void TestUnitAddress::readsUnitAddresses()
{
    QFETCH(QString, text);
    QFETCH(QString, read);
    const std::optional<UnitAddress> address = UnitAddress::fromText(text);
    QCOMPARE(address ? address->toText() : QString(), read);
}

void TestUnitAddress::knowsIpv4Texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isIpv4");
    const auto row = [](const char* text, bool isIpv4) {
        QTest::newRow(text) << QString::fromLatin1(text) << isIpv4;
    };
    row("0.0.0.0", true);
    row("192.168.1.10", true);
    row("255.255.255.255", true);
    row("", false);
    row("1.2.3", false);
    row("1.2.3.4.5", false);
    row("1.2.3.256", false);
    row("1.2.3.-4", false);
    row("1.2.3.", false);
    row("1.2.3.04", false);
    row(" 1.2.3.4", false);
    row("1.2.3.4\n", false);
    row("1.2.3.x", false);
    row("::1", false);
}

void TestUnitAddress::knowsIpv4Texts()
{
    QFETCH(QString, text);
    QTEST(isIpv4Text(text), "isIpv4");
}

void TestUnitAddress::findsNetworkFaults_data()
{
    QTest::addColumn<QString>("ip");
    QTest::addColumn<QString>("mask");
    QTest::addColumn<QString>("gateway");
    QTest::addColumn<QString>("fault");
    const auto row = [](const char* ip, const char* mask, const char* gateway, const char* fault) {
        const QByteArray name = QByteArray(ip) + ' ' + mask + ' ' + gateway;
        QTest::newRow(name) << QString::fromLatin1(ip) << QString::fromLatin1(mask)
                            << QString::fromLatin1(gateway) << QString::fromLatin1(fault);
    };
    row("192.168.1.10", "255.255.255.0", "192.168.1.1", "");
    row("192.168.1.10", "255.255.255.0", "0.0.0.0", "");
    row("10.0.0.1", "255.0.0.0", "10.255.0.1", "");
    row("10.0.0.1", "255.255.255.252", "10.0.0.2", "");
    row("10.0.0.1", "255.255.255.254", "10.0.0.0", "255.255.255.254 is no subnet mask for a unit");
    row("10.0.0.1", "255.0.255.0", "10.0.0.2", "255.0.255.0 is no subnet mask for a unit");
    row("10.0.0.1", "0.0.0.0", "10.0.0.2", "0.0.0.0 is no subnet mask for a unit");
    row("10.0.0.1", "0.0.0.255", "10.0.0.2", "0.0.0.255 is no subnet mask for a unit");
    row("224.0.0.1", "255.255.255.0", "0.0.0.0", "224.0.0.1 is no address for a unit");
    row("0.0.0.1", "255.255.255.0", "0.0.0.0", "0.0.0.1 is no address for a unit");
    row("10.0.0.0", "255.255.255.0", "0.0.0.0",
        "10.0.0.0 is the network or the broadcast address of its subnet");
    row("10.0.0.255", "255.255.255.0", "0.0.0.0",
        "10.0.0.255 is the network or the broadcast address of its subnet");
    row("10.0.0.5", "255.255.255.0", "10.0.1.1",
        "the gateway 10.0.1.1 is not in the subnet of 10.0.0.5");
}

void TestUnitAddress::findsNetworkFaults()
{
    QFETCH(QString, ip);
    QFETCH(QString, mask);
    QFETCH(QString, gateway);
    QTEST(networkFault(ip, mask, gateway), "fault");
}

QTEST_APPLESS_MAIN(TestUnitAddress)
#include "tst_unitaddress.moc"
