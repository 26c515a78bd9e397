// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "addresscheck.h"

#include <QtTest/QtTest>

using namespace QuadrelWorkspace;

class TestAddressCheck : public QObject {
    Q_OBJECT

private slots:
    void knowsIpv4Texts_data();
    void knowsIpv4Texts();
    void findsNetworkFaults_data();
    void findsNetworkFaults();
};

void TestAddressCheck::knowsIpv4Texts_data()
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

void TestAddressCheck::knowsIpv4Texts()
{
    QFETCH(QString, text);
    QTEST(isIpv4Text(text), "isIpv4");
}

void TestAddressCheck::findsNetworkFaults_data()
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
    row("10.0.0.1", "255.255.255.254", "10.0.0.0",
        "255.255.255.254 is not a subnet mask for a unit");
    row("10.0.0.1", "255.0.255.0", "10.0.0.2", "255.0.255.0 is not a subnet mask for a unit");
    row("10.0.0.1", "0.0.0.0", "10.0.0.2", "0.0.0.0 is not a subnet mask for a unit");
    row("10.0.0.1", "0.0.0.255", "10.0.0.2", "0.0.0.255 is not a subnet mask for a unit");
    row("224.0.0.1", "255.255.255.0", "0.0.0.0", "224.0.0.1 is not an address for a unit");
    row("0.0.0.1", "255.255.255.0", "0.0.0.0", "0.0.0.1 is not an address for a unit");
    row("10.0.0.0", "255.255.255.0", "0.0.0.0",
        "10.0.0.0 is the network or the broadcast address of its subnet");
    row("10.0.0.255", "255.255.255.0", "0.0.0.0",
        "10.0.0.255 is the network or the broadcast address of its subnet");
    row("10.0.0.5", "255.255.255.0", "10.0.1.1",
        "the gateway 10.0.1.1 is not in the subnet of 10.0.0.5");
}

void TestAddressCheck::findsNetworkFaults()
{
    QFETCH(QString, ip);
    QFETCH(QString, mask);
    QFETCH(QString, gateway);
    QTEST(networkFault(ip, mask, gateway), "fault");
}

QTEST_APPLESS_MAIN(TestAddressCheck)
#include "tst_addresscheck.moc"
