// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitaddress.h"

#include <QtTest/QtTest>

class TestUnitAddress : public QObject {
    Q_OBJECT

private slots:
    void readsUnitAddresses_data();
    void readsUnitAddresses();
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

QTEST_APPLESS_MAIN(TestUnitAddress)
#include "tst_unitaddress.moc"
