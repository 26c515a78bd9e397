// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "patience.h"
#include "unitdiscovery.h"

#include <QtNetwork/QNetworkDatagram>
#include <QtTest/QtTest>

#include <set>

using namespace QuadrelUnit;

class TestUnitDiscovery : public QObject {
    Q_OBJECT

private slots:
    void init();
    void makesDatagrams_data();
    void makesDatagrams();
    void makesGarbage();
    void answersTheSearcher();
    void answersEachSearch();
    void leavesTurnsToOthers();
    void answersNothingElse_data();
    void answersNothingElse();
    void repeatsAndFloods_data();
    void repeatsAndFloods();
    void sendsGarbageFirst();
    void staysSilent();
    void tellsWhoSearched();
    void cannotListenEverywhere();

private:
    void search(const QByteArray& text = "Zorbe:");
    QByteArray nextReply();

    std::unique_ptr<UnitDiscovery> m_discovery;
    std::unique_ptr<QUdpSocket> m_searcher;
};

void TestUnitDiscovery::init()
{
    m_discovery = std::make_unique<UnitDiscovery>();
    QString error;
    QVERIFY2(m_discovery->listen(QHostAddress::LocalHost, 0, &error), qPrintable(error));
    QVERIFY(m_discovery->port() != 0);
    m_searcher = std::make_unique<QUdpSocket>();
    QVERIFY(m_searcher->bind(QHostAddress(QHostAddress::LocalHost)));
}

void TestUnitDiscovery::search(const QByteArray& text)
{
    QCOMPARE(m_searcher->writeDatagram(text, QHostAddress::LocalHost, m_discovery->port()),
        qint64(text.size()));
}

QByteArray TestUnitDiscovery::nextReply()
{
    const auto hasReply = [this] { return m_searcher->hasPendingDatagrams(); };
    return QTest::qWaitFor(hasReply, patience) ? m_searcher->receiveDatagram().data() : "none";
}

void TestUnitDiscovery::makesDatagrams_data()
{
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<int>("zeros");
    QTest::addColumn<int>("offset");
    QTest::addColumn<QByteArray>("datagram");
    QTest::newRow("name alone") << QByteArray() << 0 << 0 << QByteArray("Zorbe:3100");
    QTest::newRow("payload") << QByteArray(";x=1") << 0 << 0 << QByteArray("Zorbe:3100;x=1");
    QTest::newRow("zeros ahead") << QByteArray() << 2 << 0 << QByteArray("\0\0Zorbe:3100", 12);
    QTest::newRow("dots ahead") << QByteArray() << 0 << 3 << QByteArray("...Zorbe:3100");
    QTest::newRow("both ahead") << QByteArray("!") << 1 << 1 << QByteArray("\0.Zorbe:3100!", 13);
}

void TestUnitDiscovery::makesDatagrams()
{
    QFETCH(QByteArray, payload);
    QFETCH(int, zeros);
    QFETCH(int, offset);
    QFETCH(QByteArray, datagram);
    DiscoveryReply reply;
    reply.payload = payload;
    reply.zeros = zeros;
    reply.offset = offset;
    QCOMPARE(reply.datagram(), datagram);
    m_discovery->setReply(reply);
    search();
    QCOMPARE(nextReply(), datagram);
}

void TestUnitDiscovery::makesGarbage()
{
    DiscoveryReply reply;
    QCOMPARE(reply.garbageDatagram(), QByteArray());
    reply.garbage = 65507;
    const QByteArray garbage = reply.garbageDatagram();
    QCOMPARE(garbage.size(), 65507);
    QVERIFY(!garbage.contains("Zorbe"));
    QVERIFY(garbage.count(garbage.at(0)) < 1000);
    // All of 0x80 to 0xFF, and none below.
    const std::set<quint8> bytes(garbage.begin(), garbage.end());
    QCOMPARE(bytes.size(), std::size_t(128));
    QCOMPARE(int(*bytes.begin()), 0x80);
    QCOMPARE(reply.garbageDatagram(), garbage);
}

void TestUnitDiscovery::answersTheSearcher()
{
    search();
    TRY_VERIFY(m_searcher->hasPendingDatagrams());
    const QNetworkDatagram reply = m_searcher->receiveDatagram();
    QCOMPARE(reply.data(), QByteArray("Zorbe:3100"));
    QCOMPARE(reply.senderPort(), int(m_discovery->port()));
}

void TestUnitDiscovery::answersEachSearch()
{
    for (int i = 0; i < 5; ++i)
        search();
    for (int i = 0; i < 5; ++i)
        QCOMPARE(nextReply(), QByteArray("Zorbe:3100"));
}

void TestUnitDiscovery::leavesTurnsToOthers()
{
    constexpr int searches = 100;
    int searched = 0;
    int mostInATurn = 0;
    int inThisTurn = 0;
    connect(m_discovery.get(), &UnitDiscovery::searched, this, [&] {
        ++searched;
        mostInATurn = std::max(mostInATurn, ++inThisTurn);
    });
    for (int i = 0; i < searches; ++i)
        search();
    for (int turn = 0; turn < 1000 && searched < searches; ++turn) {
        inThisTurn = 0;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    QCOMPARE(searched, searches);
    QCOMPARE(mostInATurn, 16);
}

void TestUnitDiscovery::answersNothingElse_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("short") << QByteArray("Zorbe");
    QTest::newRow("terminated") << QByteArray("Zorbe:\0", 7);
    QTest::newRow("another unit's reply") << QByteArray("Zorbe:3100");
    QTest::newRow("small letters") << QByteArray("zorbe:");
    QTest::newRow("large") << QByteArray(65507, 'Z');
}

void TestUnitDiscovery::answersNothingElse()
{
    QFETCH(QByteArray, text);
    QSignalSpy searched(m_discovery.get(), &UnitDiscovery::searched);
    search(text);
    // Datagrams stay in order: when the second one is answered, the first one was not.
    search();
    QCOMPARE(nextReply(), QByteArray("Zorbe:3100"));
    QVERIFY(!m_searcher->hasPendingDatagrams());
    QCOMPARE(searched.size(), 1);
}

void TestUnitDiscovery::repeatsAndFloods_data()
{
    QTest::addColumn<int>("repeats");
    QTest::newRow("never") << 0;
    QTest::newRow("twice") << 2;
    QTest::newRow("a hundred times") << 100;
}

void TestUnitDiscovery::repeatsAndFloods()
{
    QFETCH(int, repeats);
    DiscoveryReply reply;
    reply.repeats = repeats;
    m_discovery->setReply(reply);
    QSignalSpy searched(m_discovery.get(), &UnitDiscovery::searched);
    search();
    TRY_COMPARE(searched.size(), 1);
    for (int i = 0; i < repeats; ++i)
        QCOMPARE(nextReply(), QByteArray("Zorbe:3100"));
    QVERIFY(!m_searcher->hasPendingDatagrams());
}

void TestUnitDiscovery::sendsGarbageFirst()
{
    DiscoveryReply reply;
    reply.garbage = 40000;
    m_discovery->setReply(reply);
    search();
    QCOMPARE(nextReply(), reply.garbageDatagram());
    QCOMPARE(nextReply(), QByteArray("Zorbe:3100"));
}

void TestUnitDiscovery::staysSilent()
{
    QSignalSpy searched(m_discovery.get(), &UnitDiscovery::searched);
    m_discovery->setSilent(true);
    search();
    QCoreApplication::processEvents();
    // A second unit on the port's neighbour shows that time enough has passed for the first.
    UnitDiscovery other;
    QString error;
    QVERIFY(other.listen(QHostAddress::LocalHost, 0, &error));
    m_searcher->writeDatagram("Zorbe:", QHostAddress::LocalHost, other.port());
    TRY_VERIFY(m_searcher->hasPendingDatagrams());
    QCOMPARE(m_searcher->receiveDatagram().senderPort(), int(other.port()));
    QVERIFY(searched.isEmpty());
    m_discovery->setSilent(false);
    search();
    QCOMPARE(nextReply(), QByteArray("Zorbe:3100"));
}

void TestUnitDiscovery::tellsWhoSearched()
{
    QSignalSpy searched(m_discovery.get(), &UnitDiscovery::searched);
    search();
    TRY_COMPARE(searched.size(), 1);
    QCOMPARE(
        searched[0][0].toString(), QStringLiteral("127.0.0.1:%1").arg(m_searcher->localPort()));
}

void TestUnitDiscovery::cannotListenEverywhere()
{
    UnitDiscovery other;
    QString error;
    QVERIFY(!other.listen(QHostAddress(QStringLiteral("192.0.2.1")), 3800, &error));
    QVERIFY2(error.startsWith(QStringLiteral("cannot answer searches on 192.0.2.1:3800: ")),
        qPrintable(error));
}

QTEST_GUILESS_MAIN(TestUnitDiscovery)
#include "tst_unitdiscovery.moc"
