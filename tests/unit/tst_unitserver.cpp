// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitclient.h"
#include "unitserver.h"
#include "upgradewrites.h"

#include <QtCore/QElapsedTimer>
#include <QtNetwork/QNetworkDatagram>
#include <QtNetwork/QUdpSocket>

using namespace QuadrelUnit;

class TestUnitServer : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void answersOverTcp();
    void answersOverUdp();
    void answersFramesInPieces();
    void answersFramesInOneGo();
    void servesManyConnections();
    void tellsWhatItServes();
    void dropsConnectionsWithGarbage_data();
    void dropsConnectionsWithGarbage();
    void dropsGarbageDatagrams();
    void refusesLargeReadsByDatagram();
    void forgetsClosedConnections();
    void makesFaultsOverTcp_data();
    void makesFaultsOverTcp();
    void makesFaultsOverUdp_data();
    void makesFaultsOverUdp();
    void losesRequests();
    void hangs();
    void dropsADelayedReplyWithItsConnection();
    void repliesLate_data();
    void repliesLate();
    void repliesLateInOrder();
    void delaysBeyondItsLatency();
    void resets_data();
    void resets();
    void resetsOverUdp();
    void resetsWithoutReply();
    void sendsNoDatagramWhileDown();
    void waitsForItsPort();
    void restartsAfterAnUpgrade();
    void tellsOfChangesAndNotices();
    void cannotListenTwice();
    void cannotListenWhereUdpIsTaken();

private:
    std::unique_ptr<ControlUnit> m_unit;
    std::unique_ptr<UnitServer> m_server;
};

void TestUnitServer::init()
{
    m_unit = std::make_unique<ControlUnit>();
    m_server = std::make_unique<UnitServer>(m_unit.get());
    m_server->setRestartTime(1);
    QString error;
    QVERIFY2(m_server->listen(QHostAddress::LocalHost, 0, &error), qPrintable(error));
    QVERIFY(m_server->port() != 0);
    QCOMPARE(m_server->address(), QHostAddress(QHostAddress::LocalHost));
}

void TestUnitServer::cleanup()
{
    m_server.reset();
}

void TestUnitServer::answersOverTcp()
{
    UnitClient client(m_server->port());
    client.send(readInformation(254));
    TRY_COMPARE(client.bytes(), informationReply(*m_unit, 254));
    client.send(UnitFrame::writeRequest(0, 0xF0020000, "\x05"));
    TRY_COMPARE(client.bytes().size(), 52 + 20);
    QCOMPARE(m_unit->memory().read(0xF0020000, 1), QByteArray("\x05"));
}

void TestUnitServer::answersOverUdp()
{
    QUdpSocket client;
    QVERIFY(client.bind(QHostAddress(QHostAddress::LocalHost)));
    for (quint8 label = 0; label < 20; ++label) {
        client.writeDatagram(
            readInformation(label).encode(), QHostAddress::LocalHost, m_server->port());
        TRY_VERIFY(client.hasPendingDatagrams());
        const QNetworkDatagram reply = client.receiveDatagram();
        QCOMPARE(reply.data(), informationReply(*m_unit, label));
        QCOMPARE(reply.senderPort(), int(m_server->port()));
    }
}

void TestUnitServer::answersFramesInPieces()
{
    UnitClient client(m_server->port());
    const QByteArray bytes = readInformation().encode();
    for (int i = 0; i < bytes.size(); ++i) {
        client.socket().write(bytes.mid(i, 1));
        TRY_COMPARE(client.socket().bytesToWrite(), qint64(0));
    }
    TRY_COMPARE(client.bytes(), informationReply(*m_unit));
}

void TestUnitServer::answersFramesInOneGo()
{
    UnitClient client(m_server->port());
    QByteArray replies;
    for (quint8 label = 0; label < 50; ++label) {
        client.send(readInformation(label));
        replies += informationReply(*m_unit, label);
    }
    TRY_COMPARE(client.bytes(), replies);
}

void TestUnitServer::servesManyConnections()
{
    std::vector<std::unique_ptr<UnitClient>> clients;
    for (int i = 0; i < 40; ++i)
        clients.push_back(std::make_unique<UnitClient>(m_server->port()));
    for (const auto& client : clients)
        client->send(readInformation());
    for (const auto& client : clients)
        TRY_COMPARE(client->bytes(), informationReply(*m_unit));
    QCOMPARE(m_server->connectionCount(), 40);
}

void TestUnitServer::tellsWhatItServes()
{
    QSignalSpy served(m_server.get(), &UnitServer::served);
    m_server->faults().addNth(FaultKind::WrongLabel, 2);
    UnitClient client(m_server->port());
    client.send(readInformation(7));
    TRY_COMPARE(served.size(), 1);
    QCOMPARE(served[0][1].toString(),
        QStringLiteral("tcp 127.0.0.1:%1").arg(client.socket().localPort()));
    QCOMPARE(served[0][2].toString(), QString());
    client.send(readInformation(8));
    TRY_COMPARE(served.size(), 2);
    QCOMPARE(served[1][2].toString(), QStringLiteral("wrong-label"));
}

void TestUnitServer::dropsConnectionsWithGarbage_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    const QByteArray good = readInformation().encode();
    QTest::newRow("magic") << QByteArray("GET / HTTP/1.0\r\n\r\n")
                           << "the bytes do not begin as a frame does";
    QTest::newRow("one wrong byte") << QByteArray("x") << "the bytes do not begin as a frame does";
    QTest::newRow("kind") << QByteArray("QDRL\x03") << "unknown kind of frame 0x03";
    QTest::newRow("oversize") << good.left(8) + QByteArray(4, '\xFF')
                              << "a payload of 4294967295 bytes is over the limit of 65535";
    QTest::newRow("CRC") << good.left(18) + "??"
                         << "the CRC is 0x3f3f and should be 0x"
            + QString::fromLatin1(good.mid(19, 1).toHex() + good.mid(18, 1).toHex());
}

void TestUnitServer::dropsConnectionsWithGarbage()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    QSignalSpy refused(m_server.get(), &UnitServer::refused);
    UnitClient other(m_server->port());
    UnitClient client(m_server->port());
    client.send(readInformation());
    TRY_COMPARE(client.bytes(), informationReply(*m_unit));
    const QString peer = QStringLiteral("tcp 127.0.0.1:%1").arg(client.socket().localPort());
    client.socket().write(bytes);
    TRY_VERIFY(client.isClosed());
    QCOMPARE(refused.size(), 1);
    QCOMPARE(refused[0][0].toString(), peer + ": " + reason + "; connection dropped");

    // Nobody else is disturbed.
    other.send(readInformation());
    TRY_COMPARE(other.bytes(), informationReply(*m_unit));
    TRY_COMPARE(m_server->connectionCount(), 1);
}

void TestUnitServer::dropsGarbageDatagrams()
{
    QSignalSpy refused(m_server.get(), &UnitServer::refused);
    QUdpSocket client;
    QVERIFY(client.bind(QHostAddress(QHostAddress::LocalHost)));
    const QByteArray good = readInformation().encode();
    const QList<QByteArray> bad = {"x", good.left(19), good + "y", QByteArray(60000, 'z'), ""};
    for (int i = 0; i < bad.size(); ++i) {
        client.writeDatagram(bad[i], QHostAddress::LocalHost, m_server->port());
        TRY_COMPARE(refused.size(), i + 1);
        QVERIFY(refused[i][0].toString().endsWith(QStringLiteral("; datagram dropped")));
        QVERIFY(refused[i][0].toString().startsWith(
            QStringLiteral("udp 127.0.0.1:%1: ").arg(client.localPort())));
    }
    client.writeDatagram(good, QHostAddress::LocalHost, m_server->port());
    TRY_VERIFY(client.hasPendingDatagrams());
    QCOMPARE(client.receiveDatagram().data(), informationReply(*m_unit));
    QVERIFY(!client.hasPendingDatagrams());
}

void TestUnitServer::refusesLargeReadsByDatagram()
{
    QSignalSpy refused(m_server.get(), &UnitServer::refused);
    QUdpSocket client;
    QVERIFY(client.bind(QHostAddress(QHostAddress::LocalHost)));
    const auto send = [&](const UnitFrame& request) {
        client.writeDatagram(request.encode(), QHostAddress::LocalHost, m_server->port());
    };
    send(UnitFrame::readRequest(1, 0, 2049));
    TRY_COMPARE(refused.size(), 1);
    QCOMPARE(refused[0][0].toString(),
        QStringLiteral("udp 127.0.0.1:%1: a read of 2049 bytes is over the 2048 of a datagram; "
                       "datagram dropped")
            .arg(client.localPort()));

    send(UnitFrame::readRequest(2, 0, 2048));
    TRY_VERIFY(client.hasPendingDatagrams());
    QCOMPARE(client.receiveDatagram().data().size(), 2068);
    // A write is answered with a few bytes, and may be as long as a datagram.
    send(UnitFrame::writeRequest(3, 0, QByteArray(60000, 'w')));
    TRY_VERIFY(client.hasPendingDatagrams());
    QCOMPARE(client.receiveDatagram().data().size(), 20);
    QCOMPARE(refused.size(), 1);

    UnitClient tcp(m_server->port());
    tcp.send(UnitFrame::readRequest(1, 0, 65535));
    TRY_COMPARE(tcp.bytes().size(), 65555);
}

void TestUnitServer::forgetsClosedConnections()
{
    {
        UnitClient client(m_server->port());
        client.send(readInformation());
        TRY_COMPARE(m_server->connectionCount(), 1);
        client.socket().abort();
    }
    TRY_COMPARE(m_server->connectionCount(), 0);
}

void TestUnitServer::makesFaultsOverTcp_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("closes");
    const ControlUnit unit;
    const QByteArray first = informationReply(unit, 1);
    const QByteArray second = informationReply(unit, 2);
    QTest::newRow("drop") << "drop@1" << second << false;
    QTest::newRow("delay") << "delay:1@1" << second + first << false;
    QTest::newRow("duplicate") << "duplicate@1" << first + first + second << false;
    QTest::newRow("truncate") << "truncate@1" << first.left(26) + second << false;
    QTest::newRow("cut") << "cut@1" << first.left(26) << true;
    QTest::newRow("close") << "close@1" << QByteArray() << true;
}

void TestUnitServer::makesFaultsOverTcp()
{
    QFETCH(QString, fault);
    QFETCH(QByteArray, bytes);
    QFETCH(bool, closes);
    QString error;
    QVERIFY(m_server->faults().add(fault, &error));
    UnitClient client(m_server->port());
    // Both at once, so that a delayed first reply comes second.
    client.socket().write(readInformation(1).encode() + readInformation(2).encode());
    TRY_COMPARE(client.bytes(), bytes);
    if (closes)
        TRY_VERIFY(client.isClosed());
    else
        QVERIFY(client.isConnected());
}

void TestUnitServer::makesFaultsOverUdp_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QList<QByteArray>>("datagrams");
    const ControlUnit unit;
    const QByteArray first = informationReply(unit, 1);
    const QByteArray second = informationReply(unit, 2);
    using Datagrams = QList<QByteArray>;
    QTest::newRow("drop") << "drop@1" << Datagrams{second};
    QTest::newRow("close") << "close@1" << Datagrams{second};
    QTest::newRow("cut") << "cut@1" << Datagrams{first.left(26), second};
    QTest::newRow("duplicate") << "duplicate@1" << Datagrams{first, first, second};
    QTest::newRow("delay") << "delay:1@1" << Datagrams{second, first};
}

void TestUnitServer::makesFaultsOverUdp()
{
    QFETCH(QString, fault);
    QFETCH(QList<QByteArray>, datagrams);
    QString error;
    QVERIFY(m_server->faults().add(fault, &error));
    QUdpSocket client;
    QVERIFY(client.bind(QHostAddress(QHostAddress::LocalHost)));
    for (const quint8 label : {quint8(1), quint8(2)})
        client.writeDatagram(
            readInformation(label).encode(), QHostAddress::LocalHost, m_server->port());
    for (const QByteArray& datagram : datagrams) {
        TRY_VERIFY(client.hasPendingDatagrams());
        QCOMPARE(client.receiveDatagram().data(), datagram);
    }
}

void TestUnitServer::losesRequests()
{
    QSignalSpy served(m_server.get(), &UnitServer::served);
    m_server->faults().addNth(FaultKind::LoseRequest, 1);
    m_server->faults().addNth(FaultKind::Drop, 2);
    UnitClient client(m_server->port());
    client.send(UnitFrame::writeRequest(1, 0x10, "lost"));
    client.send(UnitFrame::writeRequest(2, 0x20, "kept"));
    client.send(readInformation(3));
    TRY_COMPARE(client.bytes(), informationReply(*m_unit, 3));
    QCOMPARE(m_unit->memory().read(0x10, 4), QByteArray(4, '\0'));
    QCOMPARE(m_unit->memory().read(0x20, 4), QByteArray("kept"));
    QCOMPARE(served.size(), 3);
    QCOMPARE(served[0][2].toString(), QStringLiteral("lose-request"));
}

void TestUnitServer::hangs()
{
    QSignalSpy served(m_server.get(), &UnitServer::served);
    m_server->faults().addNth(FaultKind::Hang, 2);
    UnitClient client(m_server->port());
    for (quint8 label = 1; label <= 5; ++label)
        client.send(readInformation(label));
    TRY_COMPARE(served.size(), 5);
    TRY_COMPARE(client.bytes(), informationReply(*m_unit, 1));
    QVERIFY(client.isConnected());
}

void TestUnitServer::dropsADelayedReplyWithItsConnection()
{
    m_server->faults().addNth(FaultKind::Delay, 1, 1);
    m_server->faults().addNth(FaultKind::Delay, 2, 20);
    QSignalSpy down(m_server.get(), &UnitServer::wentDown);
    {
        UnitClient client(m_server->port());
        client.send(readInformation());
        TRY_COMPARE(m_server->faults().replies(), quint64(1));
        client.socket().abort();
    }
    // The second reply is due later than the first, so that the first is past when the unit resets.
    UnitClient client(m_server->port());
    client.send(reset(true));
    TRY_COMPARE(down.size(), 1);
    TRY_COMPARE(client.bytes().size(), 20);
    QVERIFY(m_server->connectionCount() <= 1);
}

void TestUnitServer::repliesLate_data()
{
    QTest::addColumn<int>("latency");
    QTest::addColumn<int>("jitter");
    QTest::newRow("latency") << 20 << 0;
    QTest::newRow("latency and jitter") << 20 << 5;
}

void TestUnitServer::repliesLate()
{
    QFETCH(int, latency);
    QFETCH(int, jitter);
    m_server->setLatency(latency, jitter, 3);
    QElapsedTimer clock;
    UnitClient client(m_server->port());
    TRY_VERIFY(client.isConnected());
    clock.start();
    client.send(readInformation());
    TRY_COMPARE(client.bytes(), informationReply(*m_unit));
    QVERIFY(clock.elapsed() >= latency);

    QUdpSocket datagrams;
    QVERIFY(datagrams.bind(QHostAddress(QHostAddress::LocalHost)));
    clock.start();
    datagrams.writeDatagram(readInformation().encode(), QHostAddress::LocalHost, m_server->port());
    TRY_VERIFY(datagrams.hasPendingDatagrams());
    QVERIFY(clock.elapsed() >= latency);
    QCOMPARE(datagrams.receiveDatagram().data(), informationReply(*m_unit));
}

void TestUnitServer::repliesLateInOrder()
{
    m_server->setLatency(0, 20, 1);
    UnitClient client(m_server->port());
    QByteArray replies;
    for (quint8 label = 0; label < 100; ++label) {
        client.send(readInformation(label));
        replies += informationReply(*m_unit, label);
    }
    TRY_COMPARE(client.bytes(), replies);
}

void TestUnitServer::delaysBeyondItsLatency()
{
    m_server->setLatency(1);
    m_server->faults().addNth(FaultKind::Delay, 1, 5);
    UnitClient client(m_server->port());
    client.socket().write(readInformation(1).encode() + readInformation(2).encode());
    TRY_COMPARE(client.bytes(), informationReply(*m_unit, 2) + informationReply(*m_unit, 1));
}

void TestUnitServer::resets_data()
{
    QTest::addColumn<bool>("keepsAddress");
    QTest::newRow("keep the address") << true;
    QTest::newRow("default address") << false;
}

void TestUnitServer::resets()
{
    QFETCH(bool, keepsAddress);
    QSignalSpy down(m_server.get(), &UnitServer::wentDown);
    QSignalSpy back(m_server.get(), &UnitServer::cameBack);
    const QByteArray network = QByteArray::fromHex("00 01020304 05060708 090a0b0c");
    m_unit->memory().write(0xF000000E, network);

    UnitClient bystander(m_server->port());
    TRY_VERIFY(bystander.isConnected());
    TRY_COMPARE(m_server->connectionCount(), 1);
    UnitClient client(m_server->port());
    client.send(reset(keepsAddress));
    TRY_COMPARE(client.bytes(), UnitFrame::replyTo(reset(keepsAddress)).encode());
    TRY_VERIFY(client.isClosed());
    TRY_VERIFY(bystander.isClosed());
    QCOMPARE(down.size(), 1);
    TRY_COMPARE(back.size(), 1);

    const QByteArray expected = keepsAddress ? network : UnitSettings().networkCell();
    QCOMPARE(m_unit->memory().read(0xF000000E, 13), expected);
    UnitClient again(m_server->port());
    again.send(readInformation());
    TRY_COMPARE(again.bytes(), informationReply(*m_unit));
}

void TestUnitServer::resetsOverUdp()
{
    QSignalSpy back(m_server.get(), &UnitServer::cameBack);
    QUdpSocket client;
    QVERIFY(client.bind(QHostAddress(QHostAddress::LocalHost)));
    client.writeDatagram(reset(true).encode(), QHostAddress::LocalHost, m_server->port());
    TRY_VERIFY(client.hasPendingDatagrams());
    QCOMPARE(client.receiveDatagram().data(), UnitFrame::replyTo(reset(true)).encode());
    TRY_COMPARE(back.size(), 1);
    QVERIFY(m_server->isUp());
    client.writeDatagram(readInformation().encode(), QHostAddress::LocalHost, m_server->port());
    TRY_VERIFY(client.hasPendingDatagrams());
    QCOMPARE(client.receiveDatagram().data(), informationReply(*m_unit));
}

void TestUnitServer::resetsWithoutReply()
{
    QSignalSpy back(m_server.get(), &UnitServer::cameBack);
    m_server->faults().addNth(FaultKind::Drop, 1);
    UnitClient client(m_server->port());
    // What follows the reset at once is lost with the connection.
    client.socket().write(reset(true).encode() + readInformation().encode());
    TRY_COMPARE(back.size(), 1);
    TRY_VERIFY(client.isClosed());
    QVERIFY(client.bytes().isEmpty());
    QCOMPARE(m_server->faults().replies(), quint64(1));
}

void TestUnitServer::sendsNoDatagramWhileDown()
{
    m_server->setRestartTime(60000);
    m_server->faults().addNth(FaultKind::Delay, 1, 1);
    QSignalSpy refused(m_server.get(), &UnitServer::refused);
    QSignalSpy down(m_server.get(), &UnitServer::wentDown);
    QUdpSocket client;
    QVERIFY(client.bind(QHostAddress(QHostAddress::LocalHost)));
    // Both are taken at once: the second puts the unit down, the delayed first finds it so.
    for (int i = 0; i < 2; ++i)
        client.writeDatagram(reset(true).encode(), QHostAddress::LocalHost, m_server->port());
    TRY_COMPARE(down.size(), 2);
    QVERIFY(!m_server->isUp());
    TRY_VERIFY(client.hasPendingDatagrams());
    client.receiveDatagram();
    QVERIFY(!client.hasPendingDatagrams());
    QVERIFY(refused.isEmpty());
}

void TestUnitServer::waitsForItsPort()
{
    QSignalSpy down(m_server.get(), &UnitServer::wentDown);
    QSignalSpy back(m_server.get(), &UnitServer::cameBack);
    QSignalSpy notices(m_server.get(), &UnitServer::notice);
    QTcpServer squatter;
    // The port is taken the moment the unit leaves it.
    connect(m_server.get(), &UnitServer::wentDown, &squatter,
        [&] { squatter.listen(QHostAddress::LocalHost, m_server->port()); });
    for (int restart = 0; restart < 2; ++restart) {
        UnitClient client(m_server->port());
        client.send(reset(true));
        TRY_COMPARE(notices.size(), restart + 1);
        QVERIFY(squatter.isListening());
        const QString notice = notices[restart][0].toString();
        QVERIFY(notice.startsWith(
            QStringLiteral("cannot listen on 127.0.0.1:%1: ").arg(m_server->port())));
        QVERIFY(notice.endsWith(QStringLiteral("; trying again")));
        // It tries again in the meantime, and does not say so again.
        QTest::qWait(350);
        QCOMPARE(notices.size(), restart + 1);
        QCOMPARE(back.size(), restart);
        squatter.close();
        TRY_COMPARE(back.size(), restart + 1);
    }
}

void TestUnitServer::restartsAfterAnUpgrade()
{
    QSignalSpy upgraded(m_server.get(), &UnitServer::upgraded);
    QSignalSpy back(m_server.get(), &UnitServer::cameBack);
    const QByteArray streamed(3000, 's');
    const QList<UpgradeWrite> writes = upgradeWrites(streamed, "addrdata");
    UnitClient client(m_server->port());
    QByteArray replies;
    for (const UpgradeWrite& write : writes) {
        QVERIFY(upgraded.isEmpty());
        const UnitFrame request = UnitFrame::writeRequest(3, write.address, write.data);
        client.send(request);
        replies += UnitFrame::replyTo(request).encode();
        TRY_COMPARE(client.bytes(), replies);
    }
    QCOMPARE(upgraded.size(), 1);
    QVERIFY(m_unit->upgrade().streamedImage() == streamed);
    QCOMPARE(m_unit->upgrade().addressedImage(), QByteArray("addrdata"));
    TRY_VERIFY(client.isClosed());
    TRY_COMPARE(back.size(), 1);
    UnitClient again(m_server->port());
    again.send(readInformation());
    TRY_COMPARE(again.bytes().mid(20, 4), QByteArray::fromHex("01000001"));
}

void TestUnitServer::tellsOfChangesAndNotices()
{
    QSignalSpy changed(m_server.get(), &UnitServer::changed);
    QSignalSpy notices(m_server.get(), &UnitServer::notice);
    UnitClient client(m_server->port());
    client.send(readInformation());
    TRY_COMPARE(client.bytes().size(), 52);
    QVERIFY(changed.isEmpty());
    client.send(UnitFrame::writeRequest(1, 0xF0001000, "x"));
    TRY_COMPARE(changed.size(), 1);
    QVERIFY(notices.isEmpty());
    client.send(UnitFrame::writeRequest(1, 0x18000000, "x"));
    TRY_COMPARE(notices.size(), 1);
    QCOMPARE(notices[0][0].toString(),
        QStringLiteral("upgrade out of order: a write at 0x18000000, and no upgrade was begun"));
}

void TestUnitServer::cannotListenTwice()
{
    ControlUnit unit;
    UnitServer second(&unit);
    QString error;
    QVERIFY(!second.listen(QHostAddress::LocalHost, m_server->port(), &error));
    QVERIFY2(
        error.startsWith(QStringLiteral("cannot listen on 127.0.0.1:%1: ").arg(m_server->port())),
        qPrintable(error));
    QCOMPARE(second.port(), quint16(0));

    QVERIFY(!second.listen(QHostAddress(QStringLiteral("2001:db8::1")), 1, &error));
    QVERIFY2(
        error.startsWith(QStringLiteral("cannot listen on [2001:db8::1]:1: ")), qPrintable(error));
}

void TestUnitServer::cannotListenWhereUdpIsTaken()
{
    // A port that is free for TCP.
    QUdpSocket squatter;
    QTcpServer probe;
    for (int i = 0; i < 100 && !probe.isListening(); ++i) {
        squatter.close();
        QVERIFY(squatter.bind(QHostAddress::LocalHost, 0, QAbstractSocket::DontShareAddress));
        probe.listen(QHostAddress::LocalHost, squatter.localPort());
    }
    QVERIFY(probe.isListening());
    probe.close();

    ControlUnit unit;
    UnitServer second(&unit);
    QString error;
    QVERIFY(!second.listen(QHostAddress::LocalHost, squatter.localPort(), &error));
    QVERIFY2(error.contains(QStringLiteral("cannot listen on ")), qPrintable(error));
    // What it had of the port is free again.
    QVERIFY2(second.listen(QHostAddress::LocalHost, 0, &error), qPrintable(error));
    QVERIFY(second.isUp());
}

QTEST_GUILESS_MAIN(TestUnitServer)
#include "tst_unitserver.moc"
