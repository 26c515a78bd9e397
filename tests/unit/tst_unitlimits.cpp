// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// What a client that means no good, or means well and has too much to say, can take of a unit.
#include "unitclient.h"
#include "unitserver.h"
#include "withoutdescriptors.h"

#include <QtNetwork/QUdpSocket>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace QuadrelUnit;

namespace {

constexpr int hour = 3600000;

UnitFrame largeRead()
{
    return UnitFrame::readRequest(1, 0, 65535);
}

} // namespace

class TestUnitLimits : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void refusesClientsBeyondItsMaximum();
    void takesClientsAgainWhenFilesAreFree_data();
    void takesClientsAgainWhenFilesAreFree();
    void dropsIdleConnections();
    void keepsIdleConnectionsWithoutALimit();
    void stopsReadingWhoDoesNotRead();
    void abandonsWhoDoesNotRead();
    void boundsLateRepliesOfAConnection();
    void boundsLateRepliesWithoutBytes();
    void goesOnAfterLateReplies();
    void goesOnAfterLateRepliesWithoutBytes();
    void boundsLateDatagrams();
    void answersWhoSendsNoMore_data();
    void answersWhoSendsNoMore();
    void servesOthersBetweenManyRequests();
    void servesConnectionsBetweenManyDatagrams();
    void refusesWritesBeyondItsMemory();

private:
    /** Asks for something else, until requests of others have had many a chance to be served. */
    void giveOthersTurns();

    std::unique_ptr<ControlUnit> m_unit;
    std::unique_ptr<UnitServer> m_server;
    std::unique_ptr<QSignalSpy> m_served;
    std::unique_ptr<QSignalSpy> m_notices;
    std::unique_ptr<QSignalSpy> m_refused;
};

void TestUnitLimits::init()
{
    m_unit = std::make_unique<ControlUnit>();
    m_server = std::make_unique<UnitServer>(m_unit.get());
    m_server->setRestartTime(1);
    m_served = std::make_unique<QSignalSpy>(m_server.get(), &UnitServer::served);
    m_notices = std::make_unique<QSignalSpy>(m_server.get(), &UnitServer::notice);
    m_refused = std::make_unique<QSignalSpy>(m_server.get(), &UnitServer::refused);
    QString error;
    QVERIFY2(m_server->listen(QHostAddress::LocalHost, 0, &error), qPrintable(error));
}

void TestUnitLimits::cleanup()
{
    m_server.reset();
}

void TestUnitLimits::giveOthersTurns()
{
    constexpr int turns = 50;
    UnitClient other(m_server->port());
    for (int i = 0; i < turns; ++i) {
        const int before = m_served->size();
        other.send(UnitFrame::readRequest(77, 0, 0));
        TRY_VERIFY(std::any_of(
            m_served->begin() + before, m_served->end(), [](const QList<QVariant>& served) {
                return served[0].value<UnitFrame>().label == 77;
            }));
    }
}

void TestUnitLimits::refusesClientsBeyondItsMaximum()
{
    m_server->tcp().setMaximumConnections(2);
    UnitClient first(m_server->port());
    first.send(readInformation());
    TRY_COMPARE(first.bytes(), informationReply(*m_unit));
    auto second = std::make_unique<UnitClient>(m_server->port());
    second->send(readInformation());
    TRY_COMPARE(second->bytes(), informationReply(*m_unit));
    QVERIFY(m_notices->isEmpty());

    for (int i = 0; i < 2; ++i) {
        UnitClient third(m_server->port());
        QSignalSpy closed(&third.socket(), &QTcpSocket::disconnected);
        TRY_VERIFY(!closed.isEmpty());
        QCOMPARE(m_server->connectionCount(), 2);
    }
    QCOMPARE(m_notices->size(), 1);
    QCOMPARE(m_notices->at(0)[0].toString(),
        QStringLiteral(
            "2 clients are connected; further ones are refused until one of them leaves"));

    // One that leaves makes room, and the next time is reported again.
    second.reset();
    TRY_COMPARE(m_server->connectionCount(), 1);
    UnitClient fourth(m_server->port());
    fourth.send(readInformation());
    TRY_COMPARE(fourth.bytes(), informationReply(*m_unit));
    UnitClient fifth(m_server->port());
    TRY_COMPARE(m_notices->size(), 2);
}

void TestUnitLimits::takesClientsAgainWhenFilesAreFree_data()
{
    QTest::addColumn<int>("clientsBefore");
    QTest::newRow("the first client") << 0;
    QTest::newRow("after another client") << 1;
}

void TestUnitLimits::takesClientsAgainWhenFilesAreFree()
{
    QFETCH(int, clientsBefore);
    for (int i = 0; i < clientsBefore; ++i) {
        UnitClient before(m_server->port());
        before.send(readInformation());
        TRY_COMPARE(before.bytes(), informationReply(*m_unit));
    }
    TRY_COMPARE(m_server->connectionCount(), 0);
    const int client = ::socket(AF_INET, SOCK_STREAM, 0);
    QVERIFY(client >= 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(m_server->port());
    {
        const WithoutDescriptors noMoreFiles;
        QCOMPARE(
            ::connect(client, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
        TRY_VERIFY(!m_notices->isEmpty());
        // It tries again in the meantime, and does not say so again.
        QTest::qWait(350);
        QCOMPARE(m_notices->size(), 1);
        QCOMPARE(m_notices->at(0)[0].toString(),
            QStringLiteral("a client cannot connect: Too many open files; trying again"));
    }
    QTcpSocket socket;
    QVERIFY(socket.setSocketDescriptor(client));
    socket.write(readInformation().encode());
    TRY_COMPARE(socket.bytesAvailable(), qint64(52));
    QCOMPARE(m_notices->size(), 1);

    for (int i = 0; i < 3; ++i) {
        UnitClient next(m_server->port());
        next.send(readInformation());
        TRY_COMPARE(next.bytes(), informationReply(*m_unit));
        QCOMPARE(m_notices->size(), 1);
    }
}

void TestUnitLimits::dropsIdleConnections()
{
    qint64 now = 1000;
    m_server->tcp().setTimeSource([&now] { return now; });
    m_server->tcp().setIdleTime(10);
    UnitClient first(m_server->port());
    UnitClient second(m_server->port());
    TRY_COMPARE(m_server->connectionCount(), 2);
    now += 9;
    // Half a request is a sign of life, too.
    second.socket().write(readInformation().encode().left(5));
    giveOthersTurns();
    QVERIFY(first.isConnected());
    now += 1;
    TRY_VERIFY(first.isClosed());
    QVERIFY(second.isConnected());
    const QString text = QStringLiteral(": idle for 10 ms; connection dropped");
    QCOMPARE(m_notices->size(), 1);
    QVERIFY(m_notices->at(0)[0].toString().endsWith(text));

    const QString peer = second.peer();
    now += 9;
    TRY_VERIFY(second.isClosed());
    QCOMPARE(m_notices->at(1)[0].toString(), peer + text);
    TRY_COMPARE(m_server->connectionCount(), 0);

    // The watch goes on with the next client.
    UnitClient third(m_server->port());
    TRY_COMPARE(m_server->connectionCount(), 1);
    now += 10;
    TRY_VERIFY(third.isClosed());
}

void TestUnitLimits::keepsIdleConnectionsWithoutALimit()
{
    qint64 now = 1000;
    m_server->tcp().setTimeSource([&now] { return now; });
    m_server->tcp().setIdleTime(0);
    UnitClient client(m_server->port());
    TRY_COMPARE(m_server->connectionCount(), 1);
    now += hour;
    giveOthersTurns();
    QVERIFY(client.isConnected());
}

void TestUnitLimits::stopsReadingWhoDoesNotRead()
{
    // Far more than the buffers of the system take.
    constexpr int requests = 400;
    UnitClient client(m_server->port());
    client.socket().setReadBufferSize(1);
    for (int i = 0; i < requests; ++i)
        client.send(largeRead());
    int before = 0;
    int after = 0;
    do {
        before = m_served->size();
        giveOthersTurns();
        after = m_served->size();
        QVERIFY(after < requests);
    } while (after > before + 50);

    client.socket().setReadBufferSize(0);
    TRY_COMPARE(client.bytes().size(), requests * 65555);
}

void TestUnitLimits::abandonsWhoDoesNotRead()
{
    QSignalSpy back(m_server.get(), &UnitServer::cameBack);
    UnitClient silent(m_server->port());
    silent.socket().setReadBufferSize(1);
    for (int i = 0; i < 400; ++i)
        silent.send(largeRead());
    giveOthersTurns();
    UnitClient client(m_server->port());
    client.send(reset(true));
    TRY_COMPARE(back.size(), 1);
    TRY_COMPARE(m_server->connectionCount(), 0);
}

void TestUnitLimits::boundsLateRepliesOfAConnection()
{
    m_server->setLatency(hour);
    UnitClient client(m_server->port());
    for (int i = 0; i < 100; ++i)
        client.send(largeRead());
    giveOthersTurns();
    // Four replies are the first that are more than 256 KiB together.
    QCOMPARE(std::count_if(m_served->begin(), m_served->end(),
                 [](const QList<QVariant>& served) {
                     return served[0].value<UnitFrame>().dataLength == 65535;
                 }),
        4);
}

void TestUnitLimits::boundsLateRepliesWithoutBytes()
{
    m_server->setLatency(hour);
    m_server->faults().addShare(FaultKind::Drop, 1);
    UnitClient client(m_server->port());
    client.socket().write(UnitFrame::readRequest(1, 0, 0).encode().repeated(20000));
    const auto taken = [this] {
        return std::count_if(m_served->begin(), m_served->end(),
            [](const QList<QVariant>& served) { return served[0].value<UnitFrame>().label == 1; });
    };
    // Each counts as the 20 bytes of an empty reply.
    constexpr int most = 256 * 1024 / 20 + 1;
    TRY_VERIFY(taken() >= most);
    giveOthersTurns();
    QCOMPARE(taken(), most);
}

void TestUnitLimits::goesOnAfterLateReplies()
{
    m_server->setLatency(1);
    UnitClient client(m_server->port());
    for (int i = 0; i < 20; ++i)
        client.send(largeRead());
    TRY_COMPARE(client.bytes().size(), 20 * 65555);
}

void TestUnitLimits::goesOnAfterLateRepliesWithoutBytes()
{
    constexpr int requests = 20000;
    // Time enough for all that it takes before the first reply is due.
    m_server->setLatency(500);
    m_server->faults().addShare(FaultKind::Drop, 1);
    UnitClient client(m_server->port());
    client.socket().write(UnitFrame::readRequest(1, 0, 0).encode().repeated(requests));
    TRY_COMPARE(m_served->size(), requests);
    QVERIFY(client.isConnected());
    QVERIFY(client.bytes().isEmpty());
}

void TestUnitLimits::boundsLateDatagrams()
{
    m_server->setLatency(hour);
    QUdpSocket client;
    QVERIFY(client.bind(QHostAddress(QHostAddress::LocalHost)));
    constexpr int taken = 256 * 1024 / 2068 + 1;
    for (int i = 0; i < taken; ++i) {
        client.writeDatagram(
            UnitFrame::readRequest(1, 0, 2048).encode(), QHostAddress::LocalHost, m_server->port());
        TRY_COMPARE(m_served->size(), i + 1);
    }
    QVERIFY(m_refused->isEmpty());
    client.writeDatagram(readInformation().encode(), QHostAddress::LocalHost, m_server->port());
    TRY_COMPARE(m_refused->size(), 1);
    QCOMPARE(m_refused->at(0)[0].toString(),
        QStringLiteral("udp 127.0.0.1:%1: %2 bytes of replies wait already; datagram dropped")
            .arg(client.localPort())
            .arg(taken * 2068));
    QCOMPARE(m_served->size(), taken);
}

void TestUnitLimits::answersWhoSendsNoMore_data()
{
    QTest::addColumn<int>("requests");
    QTest::newRow("one request") << 1;
    QTest::newRow("as many as a turn takes") << 16;
}

void TestUnitLimits::answersWhoSendsNoMore()
{
    QFETCH(int, requests);
    UnitClient client(m_server->port());
    TRY_VERIFY(client.isConnected());
    client.socket().write(readInformation().encode().repeated(requests));
    client.socket().flush();
    QCOMPARE(::shutdown(static_cast<int>(client.socket().socketDescriptor()), SHUT_WR), 0);
    TRY_VERIFY(client.isClosed());
    QCOMPARE(client.bytes(), informationReply(*m_unit).repeated(requests));
    TRY_COMPARE(m_server->connectionCount(), 0);
}

void TestUnitLimits::servesOthersBetweenManyRequests()
{
    constexpr int requests = 200000;
    UnitClient busy(m_server->port());
    busy.socket().write(UnitFrame::readRequest(1, 0, 0).encode().repeated(requests));
    TRY_VERIFY(m_served->size() > 0);
    UnitClient other(m_server->port());
    TRY_VERIFY(other.isConnected());
    const int before = m_served->size();
    other.send(readInformation(99));
    TRY_COMPARE(other.bytes(), informationReply(*m_unit, 99));
    int position = before;
    while (m_served->at(position)[0].value<UnitFrame>().label != 99)
        ++position;
    // A few turns for the way there, of a few requests each.
    QVERIFY2(position - before < 50 * 16, qPrintable(QString::number(position - before)));
    TRY_COMPARE(busy.bytes().size(), requests * 20);
}

void TestUnitLimits::servesConnectionsBetweenManyDatagrams()
{
    QUdpSocket busy;
    QVERIFY(busy.bind(QHostAddress(QHostAddress::LocalHost)));
    UnitClient other(m_server->port());
    TRY_VERIFY(other.isConnected());
    TRY_COMPARE(m_server->connectionCount(), 1);
    // All of it lies there before the unit looks the first time.
    other.send(readInformation(99));
    other.socket().flush();
    constexpr int requests = 100;
    for (int i = 0; i < requests; ++i)
        busy.writeDatagram(readInformation().encode(), QHostAddress::LocalHost, m_server->port());
    TRY_COMPARE(m_served->size(), requests + 1);
    int position = 0;
    while (m_served->at(position)[0].value<UnitFrame>().label != 99)
        ++position;
    QVERIFY2(position <= 16, qPrintable(QString::number(position)));
}

void TestUnitLimits::refusesWritesBeyondItsMemory()
{
    m_unit->setMemoryLimit(m_unit->memory().size());
    UnitClient client(m_server->port());
    TRY_VERIFY(client.isConnected());
    const QString peer = client.peer();
    const UnitFrame request = UnitFrame::writeRequest(1, 0x1000, "x");
    const QString reason = QStringLiteral(
        ": a write of 1 byte at 0x00001000 is over the memory limit of 8192 bytes; ");
    client.send(request);
    TRY_VERIFY(client.isClosed());
    QVERIFY(client.bytes().isEmpty());
    QCOMPARE(m_refused->size(), 1);
    QCOMPARE(m_refused->at(0)[0].toString(), peer + reason + QStringLiteral("connection dropped"));

    QUdpSocket datagrams;
    QVERIFY(datagrams.bind(QHostAddress(QHostAddress::LocalHost)));
    datagrams.writeDatagram(request.encode(), QHostAddress::LocalHost, m_server->port());
    TRY_COMPARE(m_refused->size(), 2);
    QCOMPARE(m_refused->at(1)[0].toString(),
        QStringLiteral("udp 127.0.0.1:%1").arg(datagrams.localPort()) + reason
            + QStringLiteral("datagram dropped"));
    QVERIFY(m_served->isEmpty());

    // What is there can still be written.
    UnitClient again(m_server->port());
    again.send(UnitFrame::writeRequest(1, 0xF0000FFF, "x"));
    TRY_COMPARE(again.bytes().size(), 20);
}

QTEST_GUILESS_MAIN(TestUnitLimits)
#include "tst_unitlimits.moc"
