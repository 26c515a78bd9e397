// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "discoveredunit.h"
#include "networknamespaces.h"
#include "patience.h"
#include "searchdevice.h"
#include "settingsbeside.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QCoreApplication>
#include <QtCore/QDateTime>
#include <QtCore/QFile>
#include <QtCore/QRandomGenerator>
#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtTest/QtTest>

#include <initializer_list>
#include <memory>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

Q_DECLARE_METATYPE(serverData)

namespace {

using Units = QMap<QString, serverData>;

// A search that a test ends by hand, whatever the machine's load.
constexpr int longTime = 600000;

const QByteArray request = QByteArrayLiteral("Zorbe:");

struct Result {
    Units units;
    QString connectDevcie;
};

/** A device search that keeps what it reports, and closes its sockets when a test is over. */
class Search : public SearchDevice {
public:
    Search()
    {
        connect(this, &SearchDevice::signal_updateDeviceList, this,
            [this](const Units& units, const QString& connectDevcie) {
                results.append({units, connectDevcie});
            });
    }
    ~Search() override { deleteUdpObject(); }
    Q_DISABLE_COPY(Search)

    /** The units that are in the map now. Ends the search, as far as broadcasts go. */
    Units found()
    {
        stopSearchDevice();
        return results.takeLast().units;
    }

    QTimer* repeatTimer() const { return findChild<QTimer*>(); }

    QVector<Result> results;
};

QHostAddress address(const char* text)
{
    return QHostAddress(QString::fromLatin1(text));
}

const QHostAddress hostAddress = address("192.168.1.1");

/** The waits, in ms, that searches have begun and not ended; ones of earlier tests too. */
QVector<int> waitsToCome()
{
    // A timer that shoots once is the event dispatcher's own.
    QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance();
    QVector<int> waits;
    for (QObject* owner : dispatcher->children()) {
        for (const QAbstractEventDispatcher::TimerInfo& timer : dispatcher->registeredTimers(owner))
            waits.append(timer.interval);
    }
    return waits;
}

void writeTimeouts(int search, int upgrade)
{
    writeSettingsBeside("[Search]\ntimeout=" + QByteArray::number(search)
        + "\n[Upgrade]\ntimeout=" + QByteArray::number(upgrade) + '\n');
}

int countSockets(const QString& table)
{
    QFile file(table);
    return file.open(QIODevice::ReadOnly) ? file.readAll().count(":0ED8 ") : -1;
}

/** Sockets on port 3800 in the network that the test is in. */
int openSockets()
{
    return countSockets(QStringLiteral("/proc/thread-self/net/udp"));
}

int openIPv6Sockets()
{
    return countSockets(QStringLiteral("/proc/thread-self/net/udp6"));
}

bool hasIPv6()
{
    return QFile::exists(QStringLiteral("/proc/thread-self/net/if_inet6"));
}

/** Comes after all that the host sent before: whoever hears it has heard the rest. */
void sendMarker()
{
    QUdpSocket socket;
    QVERIFY(socket.bind(hostAddress));
    QCOMPARE(
        socket.writeDatagram("marker", QHostAddress(QHostAddress::Broadcast), 3800), qint64(6));
}

QByteArrayList texts(const QVector<QNetworkDatagram>& datagrams)
{
    QByteArrayList list;
    for (const QNetworkDatagram& datagram : datagrams)
        list += datagram.data();
    return list;
}

QByteArray noise(int size)
{
    QRandomGenerator generator(static_cast<quint32>(size));
    QByteArray bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(generator.bounded(256));
    return bytes;
}

/** The two searches, for what holds of both. */
enum Kind { Plain, Slot };

void addKinds()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("plain search") << int(Plain);
    QTest::newRow("slot search") << int(Slot);
}

void start(SearchDevice& search, int kind)
{
    if (kind == Plain)
        search.searchDevice();
    else
        search.slot_searchDevice(QStringLiteral("192.168.1.77"));
}

} // namespace

/**
 * Searches in networks of their own. Each test is a host in a fresh one: the process itself is in a
 * network that leads nowhere, and enters the host's with the first use of joinHost().
 */
class TestDiscovery : public QObject {
    Q_OBJECT

public:
    explicit TestDiscovery(const QString& refusal)
        : m_refusal(refusal)
    {
    }

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void constructorStartsNothing();
    void settings_data();
    void settings();
    void settingsAreReadOnce();
    void absentSettingsEndAtTheNextTurn();
    void waitLastsAsLongAsTold();

    void loopbackOnlyHostSendsNothing_data();
    void loopbackOnlyHostSendsNothing();
    void otherLoopbackAddressIsUsed();
    void socketForEachAddress();
    void socketsAreShared();
    void portInUseIsSilent_data();
    void portInUseIsSilent();
    void lostAddressIsSilent();
    void failedSendIsSilent();

    void plainSearchSendsOneSweep();
    void sweepByHandSendsAgain();
    void slotSearchSendsEveryTwoSeconds();
    void slotSearchKeepsRunningBroadcasts();
    void shortSlotSearchSendsNothing();
    void sweepTakesOneDatagramFromEachSocket();
    void replyWithinTheSweepIsReported();

    void reply_data();
    void reply();
    void replyRecord_data();
    void replyRecord();
    void replyOverIPv6_data();
    void replyOverIPv6();
    void firstReplyWins_data();
    void firstReplyWins();
    void addedServerIsKept();
    void ownRepliesAreDropped_data();
    void ownRepliesAreDropped();
    void addressGainedDuringSearchIsOwn();
    void unitOnTheSameHostIsNotFound();
    void severalUnits();
    void floodOfReplies_data();
    void floodOfReplies();
    void garbage_data();
    void garbage();

    void slotSearchHandsItsArgumentBack_data();
    void slotSearchHandsItsArgumentBack();
    void lateReplyIsKeptUnreported();
    void nextSearchForgets_data();
    void nextSearchForgets();
    void stopByHandReportsTwice();
    void earlierShotEndsLaterSearch();
    void shotOfPlainSearchStopsBroadcasts();
    void plainSearchDuringSlotSearch();
    void searchFromHandlerOfResult();
    void broadcastsStopBeforeTheResult();
    void deletedSocketsHearNothing();
    void destructorLeavesSockets();
    void singleton();
    void queuedResult();

private:
    void joinHost(const QStringList& addresses = {QStringLiteral("192.168.1.1/24")});
    void enter(const NetworkNamespace& network);

    const QString m_refusal;
    std::unique_ptr<TestNetwork> m_network;
    std::unique_ptr<InsideNamespace> m_inside;
};

void TestDiscovery::initTestCase()
{
    if (!m_refusal.isEmpty())
        QSKIP(qPrintable(m_refusal));
}

void TestDiscovery::init()
{
    m_network = std::make_unique<TestNetwork>();
    writeTimeouts(longTime, longTime);
}

void TestDiscovery::cleanup()
{
    m_inside.reset();
    m_network.reset();
}

void TestDiscovery::cleanupTestCase()
{
    QFile::remove(settingsFileBeside());
}

void TestDiscovery::joinHost(const QStringList& addresses)
{
    enter(m_network->addHost(addresses));
}

void TestDiscovery::enter(const NetworkNamespace& network)
{
    m_inside = std::make_unique<InsideNamespace>(network);
}

void TestDiscovery::constructorStartsNothing()
{
    joinHost();
    const Search search;
    QCOMPARE(search.findChildren<QTimer*>().size(), 1);
    QVERIFY(!search.repeatTimer()->isActive());
    QCOMPARE(search.repeatTimer()->interval(), 0);
    QCOMPARE(openSockets(), 0);
    QCoreApplication::processEvents();
    QVERIFY(search.results.isEmpty());
}

void TestDiscovery::settings_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("plainEndsAtOnce");
    QTest::addColumn<bool>("slotEndsAtOnce");

    QTest::newRow("both") << QByteArray("[Search]\ntimeout=600000\n[Upgrade]\ntimeout=600000\n")
                          << false << false;
    QTest::newRow("search only") << QByteArray("[Search]\ntimeout=600000\n") << false << true;
    QTest::newRow("upgrade only") << QByteArray("[Upgrade]\ntimeout=600000\n") << true << false;
    QTest::newRow("neither") << QByteArray("[Communication]\ntimeout=600000\n") << true << true;
    QTest::newRow("empty file") << QByteArray() << true << true;
    QTest::newRow("no INI file") << QByteArray("\x01\xFF][=;\n\n=") << true << true;
    QTest::newRow("zero") << QByteArray("[Search]\ntimeout=0\n[Upgrade]\ntimeout=0\n") << true
                          << true;
    QTest::newRow("not numeric") << QByteArray(
        "[Search]\ntimeout=600000 ms\n[Upgrade]\ntimeout=soon\n")
                                 << true << true;
    QTest::newRow("negative") << QByteArray("[Search]\ntimeout=-5\n[Upgrade]\ntimeout=-600000\n")
                              << true << true;
}

void TestDiscovery::settings()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, plainEndsAtOnce);
    QFETCH(bool, slotEndsAtOnce);
    const NetworkNamespace loopbackOnly;
    const InsideNamespace inside(loopbackOnly);

    writeSettingsBeside(text);
    Search plain;
    plain.searchDevice();
    Search slot;
    slot.slot_searchDevice({});
    QCoreApplication::processEvents();
    QCOMPARE(plain.results.size(), plainEndsAtOnce ? 1 : 0);
    QCOMPARE(slot.results.size(), slotEndsAtOnce ? 1 : 0);
}

void TestDiscovery::settingsAreReadOnce()
{
    joinHost();
    Search search;
    writeTimeouts(0, 0);
    search.searchDevice();
    search.slot_searchDevice({});
    QCoreApplication::processEvents();
    QVERIFY(search.results.isEmpty());
}

void TestDiscovery::absentSettingsEndAtTheNextTurn()
{
    joinHost();
    DiscoveredUnit unit(
        m_network->addHost({QStringLiteral("192.168.1.10/24")}), address("192.168.1.10"));
    QVERIFY(QFile::remove(settingsFileBeside()));
    Search search;
    search.searchDevice();
    QVERIFY(search.results.isEmpty());
    unit.send("Zorbe:3100", hostAddress);
    // The end of the search was posted before the reply could be looked at.
    QCoreApplication::sendPostedEvents();
    QCOMPARE(search.results.size(), 1);
    QVERIFY(search.results.first().units.isEmpty());
}

void TestDiscovery::waitLastsAsLongAsTold()
{
    const NetworkNamespace loopbackOnly;
    const InsideNamespace inside(loopbackOnly);
    writeTimeouts(41, 97);
    Search search;
    search.searchDevice();
    QVERIFY(waitsToCome().contains(41));
    TRY_COMPARE(search.results.size(), 1);
    QVERIFY(!waitsToCome().contains(41));
    search.slot_searchDevice({});
    QVERIFY(waitsToCome().contains(97));
    TRY_COMPARE(search.results.size(), 2);
    QVERIFY(!waitsToCome().contains(97));
}

void TestDiscovery::loopbackOnlyHostSendsNothing_data()
{
    addKinds();
}

void TestDiscovery::loopbackOnlyHostSendsNothing()
{
    QFETCH(int, kind);
    const NetworkNamespace loopbackOnly;
    enter(loopbackOnly);
    writeTimeouts(20, 20);
    Search search;
    start(search, kind);
    QCOMPARE(openSockets(), 0);
    QCOMPARE(openIPv6Sockets(), hasIPv6() ? 0 : -1);
    search.slot_timeout();
    TRY_COMPARE(search.results.size(), 1);
    QVERIFY(search.results.first().units.isEmpty());
    QCOMPARE(search.results.first().connectDevcie,
        kind == Plain ? QString() : QStringLiteral("192.168.1.77"));
}

void TestDiscovery::otherLoopbackAddressIsUsed()
{
    const NetworkNamespace loopbackOnly;
    loopbackOnly.ip({QStringLiteral("address add 127.0.0.2/8 dev lo")});
    enter(loopbackOnly);
    Search search;
    search.searchDevice();
    QCOMPARE(openSockets(), 1);
}

void TestDiscovery::socketForEachAddress()
{
    QStringList addresses{QStringLiteral("192.168.1.1/24"), QStringLiteral("10.1.2.3/8")};
    if (hasIPv6())
        addresses << QStringLiteral("fd00::1/64") << QStringLiteral("fe80::1/64");
    joinHost(addresses);
    Search search;
    search.slot_searchDevice({});
    QCOMPARE(openSockets(), 2);
    QCOMPARE(openIPv6Sockets(), hasIPv6() ? 2 : -1);
    search.slot_searchDevice({});
    QCOMPARE(openSockets(), 2);
    QCOMPARE(openIPv6Sockets(), hasIPv6() ? 2 : -1);
    search.stopSearchDevice();
    QCOMPARE(openSockets(), 2);
    search.searchDevice();
    QCOMPARE(openSockets(), 2);
    search.deleteUdpObject();
    QCOMPARE(openSockets(), 0);
    QCOMPARE(openIPv6Sockets(), hasIPv6() ? 0 : -1);
}

void TestDiscovery::socketsAreShared()
{
    joinHost();
    Search first;
    first.searchDevice();
    Search second;
    second.searchDevice();
    QCOMPARE(openSockets(), 2);
}

void TestDiscovery::portInUseIsSilent_data()
{
    addKinds();
}

void TestDiscovery::portInUseIsSilent()
{
    QFETCH(int, kind);
    joinHost();
    QUdpSocket owner;
    QVERIFY(owner.bind(hostAddress, 3800, QAbstractSocket::DontShareAddress));
    writeTimeouts(0, 0);
    Search search;
    start(search, kind);
    search.slot_timeout();
    search.slot_timeout();
    QCOMPARE(openSockets(), 1);
    TRY_COMPARE(search.results.size(), 1);
    QVERIFY(search.results.first().units.isEmpty());
}

void TestDiscovery::lostAddressIsSilent()
{
    const NetworkNamespace& host = m_network->addHost({QStringLiteral("192.168.1.1/24")});
    enter(host);
    writeTimeouts(0, 0);
    Search search;
    search.searchDevice();
    host.ip({QStringLiteral("address flush dev eth0")});
    search.slot_timeout();
    search.slot_timeout();
    TRY_COMPARE(search.results.size(), 1);
    QVERIFY(search.results.first().units.isEmpty());
}

void TestDiscovery::failedSendIsSilent()
{
    if (!hasIPv6())
        QSKIP("this machine has no IPv6");
    const NetworkNamespace& host =
        m_network->addHost({QStringLiteral("fd00::1/64"), QStringLiteral("192.168.1.1/24")});
    host.ip({QStringLiteral("route add default via 192.168.1.10")});
    enter(host);
    DiscoveredUnit unit(m_network->addHost({QStringLiteral("192.168.1.10/24")}));
    unit.answerWith("Zorbe:3100");
    Search search;
    search.searchDevice();
    for (int sweep = 0; sweep < 3; ++sweep)
        search.slot_timeout();
    TRY_COMPARE(search.found().keys(), QStringList(QStringLiteral("192.168.1.10")));
}

void TestDiscovery::plainSearchSendsOneSweep()
{
    QStringList addresses{QStringLiteral("192.168.1.1/24"), QStringLiteral("192.168.1.2/24")};
    if (hasIPv6())
        addresses << QStringLiteral("fd00::1/64");
    joinHost(addresses);
    const DiscoveredUnit unit(m_network->addHost({QStringLiteral("192.168.1.10/24")}));
    Search search;
    search.searchDevice();
    QVERIFY(!search.repeatTimer()->isActive());
    sendMarker();

    TRY_COMPARE(texts(unit.heard()), QByteArrayList({request, request, "marker"}));
    for (int i = 0; i < 2; ++i) {
        const QNetworkDatagram& datagram = unit.heard().at(i);
        QCOMPARE(datagram.data().toHex(), QByteArray("5a6f7262653a"));
        QCOMPARE(datagram.senderPort(), 3800);
        QCOMPARE(datagram.destinationAddress(), QHostAddress(QHostAddress::Broadcast));
        QCOMPARE(datagram.destinationPort(), 3800);
    }
    QCOMPARE(unit.heard().at(0).senderAddress(), hostAddress);
    QCOMPARE(unit.heard().at(1).senderAddress(), address("192.168.1.2"));
}

void TestDiscovery::sweepByHandSendsAgain()
{
    joinHost();
    const DiscoveredUnit unit(m_network->addHost({QStringLiteral("192.168.1.10/24")}));
    Search search;
    search.slot_timeout();
    search.searchDevice();
    search.slot_timeout();
    search.stopSearchDevice();
    search.slot_timeout();
    search.deleteUdpObject();
    search.slot_timeout();
    sendMarker();
    TRY_COMPARE(texts(unit.heard()), QByteArrayList({request, request, request, "marker"}));
}

void TestDiscovery::slotSearchSendsEveryTwoSeconds()
{
    joinHost();
    const DiscoveredUnit unit(m_network->addHost({QStringLiteral("192.168.1.10/24")}));
    Search search;
    search.slot_searchDevice(QStringLiteral("unit"));
    QVERIFY(search.repeatTimer()->isActive());
    QCOMPARE(search.repeatTimer()->interval(), 2000);
    sendMarker();

    TRY_COMPARE(texts(unit.heard()), QByteArrayList({"marker", request}));
    TRY_COMPARE(texts(unit.heard()), QByteArrayList({"marker", request, request}));

    search.stopSearchDevice();
    QVERIFY(!search.repeatTimer()->isActive());
    QCOMPARE(search.results.size(), 1);
}

void TestDiscovery::slotSearchKeepsRunningBroadcasts()
{
    joinHost();
    Search search;
    search.slot_searchDevice(QStringLiteral("first"));
    const int timer = search.repeatTimer()->timerId();
    search.slot_searchDevice(QStringLiteral("second"));
    QVERIFY(search.repeatTimer()->isActive());
    // A timer that is started again gets another number.
    QCOMPARE(search.repeatTimer()->timerId(), timer);
    search.stopSearchDevice();
    QCOMPARE(search.results.first().connectDevcie, QStringLiteral("second"));
}

void TestDiscovery::shortSlotSearchSendsNothing()
{
    joinHost();
    const DiscoveredUnit unit(m_network->addHost({QStringLiteral("192.168.1.10/24")}));
    writeTimeouts(0, 1);
    Search search;
    search.slot_searchDevice(QStringLiteral("unit"));
    TRY_COMPARE(search.results.size(), 1);
    QVERIFY(!search.repeatTimer()->isActive());
    sendMarker();
    TRY_COMPARE(texts(unit.heard()), QByteArrayList({"marker"}));
}

void TestDiscovery::sweepTakesOneDatagramFromEachSocket()
{
    joinHost();
    const NetworkNamespace& network =
        m_network->addHost({QStringLiteral("192.168.1.10/24"), QStringLiteral("192.168.1.11/24"),
            QStringLiteral("192.168.1.12/24"), QStringLiteral("192.168.1.13/24")});
    std::vector<std::unique_ptr<DiscoveredUnit>> units;
    for (const char* text : {"192.168.1.10", "192.168.1.11", "192.168.1.12", "192.168.1.13"})
        units.push_back(std::make_unique<DiscoveredUnit>(network, address(text)));

    Search search;
    search.slot_searchDevice({});
    units.front()->send("Zorbe:", hostAddress);
    TRY_COMPARE(search.found().size(), 1);

    // All wait in the socket when the other one has heard what was sent after them.
    QUdpSocket other;
    QVERIFY(other.bind(hostAddress, 3801));
    for (const auto& unit : units)
        unit->send("Zorbe:", hostAddress);
    QUdpSocket sender;
    {
        const InsideNamespace inside(network);
        QVERIFY(sender.bind(address("192.168.1.13")));
    }
    QCOMPARE(sender.writeDatagram("last", hostAddress, 3801), qint64(4));
    QVERIFY(other.waitForReadyRead(patience));

    for (const int found : {1, 2, 3, 4}) {
        search.slot_timeout();
        QCOMPARE(search.found().size(), found);
    }
}

void TestDiscovery::replyWithinTheSweepIsReported()
{
    // The sweep waits on each of the sockets. A unit that answers the first broadcast has until the
    // turn of the last socket comes: a second, where 10 ms would depend on the machine's load.
    QStringList addresses;
    for (int i = 1; i <= 100; ++i)
        addresses += QStringLiteral("192.168.1.%1/24").arg(i);
    joinHost(addresses);
    auto* const unit = new DiscoveredUnit(m_network->addHost({QStringLiteral("192.168.1.200/24")}));
    unit->answerWith("Zorbe:3100 in time", address("192.168.1.100"));
    QThread thread;
    unit->moveToThread(&thread);
    connect(&thread, &QThread::finished, unit, &QObject::deleteLater);
    thread.start();

    writeTimeouts(0, 0);
    Search search;
    search.searchDevice();
    QVERIFY(search.results.isEmpty());
    QCoreApplication::sendPostedEvents();
    thread.quit();
    thread.wait();
    QCOMPARE(search.results.size(), 1);
    QCOMPARE(search.results.first().units.value(QStringLiteral("192.168.1.200")).data,
        QByteArray("Zorbe:3100 in time"));
}

void TestDiscovery::reply_data()
{
    QTest::addColumn<QByteArray>("datagram");
    QTest::addColumn<bool>("plainTakes");
    QTest::addColumn<bool>("slotTakes");
    QTest::addColumn<QByteArray>("data");

    const auto row = [](const char* name, const QByteArray& datagram, bool plain, bool slot,
                         const QByteArray& data = QByteArray()) {
        QTest::newRow(name) << datagram << plain << slot << data;
    };
    const QByteArray longText(3000, 'x');

    row("tag alone", "Zorbe:3100", true, true, "Zorbe:3100");
    row("text after the tag", "Zorbe:3100;rack 7", true, true, "Zorbe:3100;rack 7");
    row("tag at offset 1", "xZorbe:3100", true, true, "xZorbe:3100");
    row("tag in the middle", "My name is Zorbe:3100.", true, true, "My name is Zorbe:3100.");
    row("tag far after", longText + "Zorbe:3100", true, true, longText + "Zorbe:3100");
    row("tag after a broken one", "Zorbe:31Zorbe:3100", true, true, "Zorbe:31Zorbe:3100");
    row("tag at the end of the largest datagram", QByteArray(65497, 'x') + "Zorbe:3100", true, true,
        QByteArray(65497, 'x') + "Zorbe:3100");
    row("longer number", "Zorbe:31007", true, true, "Zorbe:31007");
    row("bytes that are no text", "\xFF\x01Zorbe:3100\x80", true, true, "\xFF\x01Zorbe:3100\x80");

    row("zero byte after the tag", QByteArray("Zorbe:3100\0abc", 14), true, true, "Zorbe:3100");
    row("zero byte at the end", QByteArray("Zorbe:3100\0", 11), true, true, "Zorbe:3100");
    row("zero byte before the tag", QByteArray("ab\0Zorbe:3100", 13), true, true, "ab");
    row("zero byte first", QByteArray("\0Zorbe:3100", 11), true, true, "");
    row("zero byte after the family", QByteArray("Zorbe:\0003100", 11), false, true, "Zorbe:");

    row("family alone", "Zorbe:", false, true, "Zorbe:");
    row("family far after", longText + "Zorbe:", false, true, longText + "Zorbe:");
    row("another model", "Zorbe:2200", false, true, "Zorbe:2200");
    row("number cut short", "Zorbe:310", false, true, "Zorbe:310");
    row("space before the number", "Zorbe: 3100", false, true, "Zorbe: 3100");

    row("empty", "", false, false);
    row("one byte", "Z", false, false);
    row("family without its colon", "Zorbe", false, false);
    row("colon apart", "Zorbe :3100", false, false);
    row("lower case", "zorbe:3100", false, false);
    row("model name", "Zorbe3100", false, false);
    row("name of the files", "Zorbe 3100", false, false);
    row("zero byte in the tag", QByteArray("Zor\0be:3100", 11), false, false);
    row("UTF-16", QByteArray("Z\0o\0r\0b\0e\0:\0", 12), false, false);
    row("zero bytes", QByteArray(100, '\0'), false, false);
}

void TestDiscovery::reply()
{
    QFETCH(QByteArray, datagram);
    QFETCH(QByteArray, data);
    QFETCH(bool, plainTakes);
    QFETCH(bool, slotTakes);
    joinHost();
    const NetworkNamespace& network =
        m_network->addHost({QStringLiteral("192.168.1.10/24"), QStringLiteral("192.168.1.11/24")});
    DiscoveredUnit unit(network, address("192.168.1.10"));
    DiscoveredUnit next(network, address("192.168.1.11"));

    for (const Kind kind : {Plain, Slot}) {
        const bool taken = kind == Plain ? plainTakes : slotTakes;
        Search search;
        start(search, kind);
        unit.send(datagram, hostAddress);
        // What follows a reply that is dropped shows that it was.
        next.send("Zorbe:3100", hostAddress);
        TRY_VERIFY(search.found().contains(QStringLiteral("192.168.1.11")));
        if (taken)
            TRY_VERIFY(search.found().contains(QStringLiteral("192.168.1.10")));
        const Units units = search.found();
        QCOMPARE(units.size(), taken ? 2 : 1);
        const serverData record = units.value(QStringLiteral("192.168.1.10"));
        QCOMPARE(QByteArray(record.data), taken ? data : QByteArray());
    }
}

void TestDiscovery::replyRecord_data()
{
    addKinds();
}

void TestDiscovery::replyRecord()
{
    QFETCH(int, kind);
    joinHost();
    DiscoveredUnit unit(
        m_network->addHost({QStringLiteral("192.168.1.10/24")}), address("192.168.1.10"), 41234);
    Search search;
    start(search, kind);
    const qint64 before = QDateTime::currentMSecsSinceEpoch();
    unit.send("Zorbe:3100;rack 7", hostAddress);
    TRY_COMPARE(search.found().size(), 1);
    const qint64 after = QDateTime::currentMSecsSinceEpoch();

    const Units units = search.found();
    QCOMPARE(units.firstKey(), QStringLiteral("192.168.1.10"));
    const serverData record = units.first();
    QCOMPARE(QString(record.ip), QStringLiteral("192.168.1.10"));
    QCOMPARE(QString(record.name), kind == Plain ? QStringLiteral("Zorbe3100") : QString());
    QCOMPARE(int(record.port), 41234);
    QVERIFY(record.lastSeen >= before && record.lastSeen <= after);
    QCOMPARE(QByteArray(record.data), QByteArray("Zorbe:3100;rack 7"));
    QCOMPARE(int(record.spare1), 0);
    QCOMPARE(int(record.spare2), 0);
    QCOMPARE(int(record.spare3), 0);
}

void TestDiscovery::replyOverIPv6_data()
{
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("scope");
    QTest::newRow("global") << QStringLiteral("fd00::1") << QStringLiteral("fd00::10") << QString();
    QTest::newRow("link-local") << QStringLiteral("fe80::1") << QStringLiteral("fe80::10")
                                << QStringLiteral("%eth0");
}

void TestDiscovery::replyOverIPv6()
{
    QFETCH(QString, host);
    QFETCH(QString, unit);
    QFETCH(QString, scope);
    if (!hasIPv6())
        QSKIP("this machine has no IPv6");
    joinHost({host + QStringLiteral("/64")});
    const NetworkNamespace& network = m_network->addHost({unit + QStringLiteral("/64")});
    DiscoveredUnit there(network, QHostAddress(unit + scope));
    QUdpSocket here;
    QVERIFY(here.bind(QHostAddress(host + scope), 0));

    // The broadcast is one of IPv4: the first attempt to send it closes a socket of IPv6.
    Search search;
    search.slot_searchDevice({});
    QCOMPARE(here.writeDatagram("Zorbe:3100 own", QHostAddress(host + scope), 3800), qint64(14));
    there.send("Zorbe:3100", QHostAddress(host + scope));
    TRY_COMPARE(search.found().keys(), QStringList(unit + scope));
}

void TestDiscovery::firstReplyWins_data()
{
    addKinds();
}

void TestDiscovery::firstReplyWins()
{
    QFETCH(int, kind);
    joinHost();
    const NetworkNamespace& network =
        m_network->addHost({QStringLiteral("192.168.1.10/24"), QStringLiteral("192.168.1.11/24")});
    DiscoveredUnit unit(network, address("192.168.1.10"), 3800);
    DiscoveredUnit unitOnOtherPort(network, address("192.168.1.10"), 3801);
    DiscoveredUnit next(network, address("192.168.1.11"));
    Search search;
    start(search, kind);
    unit.send("Zorbe:3100 first", hostAddress);
    TRY_COMPARE(search.found().size(), 1);
    const serverData first = search.found().first();
    // The clock must have moved, or a renewed time would look like the old one.
    TRY_VERIFY(QDateTime::currentMSecsSinceEpoch() > first.lastSeen);

    unit.send("Zorbe:3100 second, and longer", hostAddress);
    unitOnOtherPort.send("Zorbe:3100 third", hostAddress);
    next.send("Zorbe:3100", hostAddress);
    TRY_COMPARE(search.found().size(), 2);
    const serverData kept = search.found().first();
    QCOMPARE(QByteArray(kept.data), QByteArray("Zorbe:3100 first"));
    QCOMPARE(int(kept.port), 3800);
    QCOMPARE(qint64(kept.lastSeen), qint64(first.lastSeen));
}

void TestDiscovery::addedServerIsKept()
{
    joinHost();
    const NetworkNamespace& network =
        m_network->addHost({QStringLiteral("192.168.1.10/24"), QStringLiteral("192.168.1.11/24")});
    DiscoveredUnit unit(network, address("192.168.1.10"));
    DiscoveredUnit next(network, address("192.168.1.11"));
    Search search;
    search.searchDevice();
    search.AddServer(QStringLiteral("192.168.1.10"), 7);
    unit.send("Zorbe:3100", hostAddress);
    next.send("Zorbe:3100", hostAddress);
    TRY_COMPARE(search.found().size(), 2);
    const serverData added = search.found().first();
    QCOMPARE(int(added.port), 7);
    QCOMPARE(QString(added.name), QString());
    QCOMPARE(QByteArray(added.data), QByteArray());
    QCOMPARE(qint64(added.lastSeen), qint64(0));
}

void TestDiscovery::ownRepliesAreDropped_data()
{
    QTest::addColumn<QString>("sender");
    QTest::newRow("the address of the socket") << QStringLiteral("192.168.1.1");
    QTest::newRow("another address") << QStringLiteral("192.168.1.2");
    QTest::newRow("an address of another network") << QStringLiteral("10.0.0.1");
    QTest::newRow("loopback") << QStringLiteral("127.0.0.1");
}

void TestDiscovery::ownRepliesAreDropped()
{
    QFETCH(QString, sender);
    joinHost({QStringLiteral("192.168.1.1/24"), QStringLiteral("192.168.1.2/24"),
        QStringLiteral("10.0.0.1/8")});
    DiscoveredUnit unit(
        m_network->addHost({QStringLiteral("192.168.1.10/24")}), address("192.168.1.10"));
    QUdpSocket own;
    QVERIFY(own.bind(QHostAddress(sender), 0));

    for (const Kind kind : {Plain, Slot}) {
        Search search;
        start(search, kind);
        QCOMPARE(own.writeDatagram("Zorbe:3100", hostAddress, 3800), qint64(10));
        unit.send("Zorbe:3100", hostAddress);
        TRY_COMPARE(search.found().keys(), QStringList(QStringLiteral("192.168.1.10")));
    }
}

void TestDiscovery::addressGainedDuringSearchIsOwn()
{
    const NetworkNamespace& host = m_network->addHost({QStringLiteral("192.168.1.1/24")});
    enter(host);
    DiscoveredUnit unit(
        m_network->addHost({QStringLiteral("192.168.1.10/24")}), address("192.168.1.10"));
    Search search;
    search.searchDevice();
    host.ip({QStringLiteral("address add 192.168.1.3/24 dev eth0")});
    QUdpSocket own;
    QVERIFY(own.bind(address("192.168.1.3"), 0));
    QCOMPARE(own.writeDatagram("Zorbe:3100", hostAddress, 3800), qint64(10));
    unit.send("Zorbe:3100", hostAddress);
    TRY_COMPARE(search.found().keys(), QStringList(QStringLiteral("192.168.1.10")));
}

void TestDiscovery::unitOnTheSameHostIsNotFound()
{
    const NetworkNamespace& host = m_network->addHost({QStringLiteral("192.168.1.1/24")});
    enter(host);
    DiscoveredUnit local(host);
    local.answerWith("Zorbe:3100 local");
    DiscoveredUnit remote(m_network->addHost({QStringLiteral("192.168.1.10/24")}));
    remote.answerWith("Zorbe:3100 remote");
    Search search;
    search.searchDevice();
    TRY_VERIFY(!local.heard().isEmpty());
    TRY_COMPARE(search.found().keys(), QStringList(QStringLiteral("192.168.1.10")));
}

void TestDiscovery::severalUnits()
{
    joinHost();
    DiscoveredUnit nine(m_network->addHost({QStringLiteral("192.168.1.9/24")}));
    DiscoveredUnit ten(m_network->addHost({QStringLiteral("192.168.1.10/24")}));
    DiscoveredUnit hundred(m_network->addHost({QStringLiteral("192.168.1.100/24")}));
    DiscoveredUnit stranger(m_network->addHost({QStringLiteral("192.168.1.50/24")}));
    nine.answerWith("Zorbe:3100 nine");
    ten.answerWith("Zorbe:3100 ten");
    hundred.answerWith("Zorbe:3100 hundred");
    stranger.answerWith("Something:else");

    Search search;
    search.searchDevice();
    TRY_COMPARE(search.found().size(), 3);
    const Units units = search.found();
    QCOMPARE(units.keys(),
        QStringList({QStringLiteral("192.168.1.10"), QStringLiteral("192.168.1.100"),
            QStringLiteral("192.168.1.9")}));
    QByteArrayList data;
    for (const serverData& record : units)
        data += record.data;
    QCOMPARE(data, QByteArrayList({"Zorbe:3100 ten", "Zorbe:3100 hundred", "Zorbe:3100 nine"}));
    TRY_COMPARE(texts(stranger.heard()), QByteArrayList({request}));
}

void TestDiscovery::floodOfReplies_data()
{
    addKinds();
}

void TestDiscovery::floodOfReplies()
{
    QFETCH(int, kind);
    joinHost();
    QStringList addresses;
    for (int i = 2; i <= 121; ++i)
        addresses += QStringLiteral("192.168.1.%1/24").arg(i);
    const NetworkNamespace& network = m_network->addHost(addresses);
    DiscoveredUnit unit(network, address("192.168.1.2"));
    std::vector<std::unique_ptr<DiscoveredUnit>> others;
    for (int i = 3; i <= 121; ++i) {
        others.push_back(std::make_unique<DiscoveredUnit>(
            network, QHostAddress(QStringLiteral("192.168.1.%1").arg(i))));
    }

    Search search;
    start(search, kind);
    unit.send("Zorbe:3100 number 0", hostAddress);
    TRY_COMPARE(search.found().size(), 1);
    for (int i = 1; i <= 2000; ++i)
        unit.send("Zorbe:3100 number " + QByteArray::number(i), hostAddress);
    // A full socket drops what comes on top, so each of the others says it until it's heard.
    for (const auto& other : others) {
        const int found = search.found().size();
        other->send("Zorbe:3100", hostAddress);
        TRY_VERIFY((other->send("Zorbe:3100", hostAddress), search.found().size() > found));
    }
    const Units units = search.found();
    QCOMPARE(units.size(), 120);
    QCOMPARE(units.value(QStringLiteral("192.168.1.2")).data, QByteArray("Zorbe:3100 number 0"));
}

void TestDiscovery::garbage_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 2, 5, 6, 7, 9, 10, 11, 255, 1024, 1472, 1473, 9000, 65506, 65507})
        QTest::addRow("%d bytes", size) << size;
}

void TestDiscovery::garbage()
{
    QFETCH(int, size);
    joinHost();
    DiscoveredUnit unit(
        m_network->addHost({QStringLiteral("192.168.1.10/24")}), address("192.168.1.10"));
    for (const Kind kind : {Plain, Slot}) {
        Search search;
        start(search, kind);
        unit.send(noise(size), hostAddress);
        unit.send(QByteArray(size, '\0'), hostAddress);
        unit.send("Zorbe:3100", hostAddress);
        TRY_COMPARE(search.found().size(), 1);
        QCOMPARE(search.found().first().data, QByteArray("Zorbe:3100"));
    }
}

void TestDiscovery::slotSearchHandsItsArgumentBack_data()
{
    QTest::addColumn<QString>("argument");
    QTest::newRow("address") << QStringLiteral("192.168.1.10");
    QTest::newRow("empty") << QString();
    QTest::newRow("no address") << QStringLiteral(" 单元\n7 ");
}

void TestDiscovery::slotSearchHandsItsArgumentBack()
{
    QFETCH(QString, argument);
    const NetworkNamespace loopbackOnly;
    enter(loopbackOnly);
    writeTimeouts(0, 0);
    Search search;
    search.stopSearchDevice();
    QCOMPARE(search.results.takeFirst().connectDevcie, QString());

    search.slot_searchDevice(argument);
    TRY_COMPARE(search.results.size(), 1);
    QCOMPARE(search.results.first().connectDevcie, argument);
    search.stopSearchDevice();
    QCOMPARE(search.results.last().connectDevcie, argument);

    search.searchDevice();
    TRY_COMPARE(search.results.size(), 3);
    QCOMPARE(search.results.last().connectDevcie, QString());
}

void TestDiscovery::lateReplyIsKeptUnreported()
{
    joinHost();
    DiscoveredUnit unit(
        m_network->addHost({QStringLiteral("192.168.1.10/24")}), address("192.168.1.10"));
    writeTimeouts(0, 0);
    Search search;
    search.searchDevice();
    TRY_COMPARE(search.results.size(), 1);
    QVERIFY(search.results.first().units.isEmpty());

    unit.send("Zorbe:3100 late", hostAddress);
    TRY_COMPARE(search.found().size(), 1);
    QCOMPARE(search.results.size(), 1);
    QCOMPARE(search.found().size(), 1);
    search.searchDevice();
    QVERIFY(search.found().isEmpty());
}

void TestDiscovery::nextSearchForgets_data()
{
    addKinds();
}

void TestDiscovery::nextSearchForgets()
{
    QFETCH(int, kind);
    joinHost();
    DiscoveredUnit unit(
        m_network->addHost({QStringLiteral("192.168.1.10/24")}), address("192.168.1.10"));
    Search search;
    start(search, kind);
    unit.send("Zorbe:3100 once", hostAddress);
    TRY_COMPARE(search.found().size(), 1);
    start(search, kind);
    QVERIFY(search.found().isEmpty());
    unit.send("Zorbe:3100 again", hostAddress);
    TRY_COMPARE(search.found().size(), 1);
    QCOMPARE(search.found().first().data, QByteArray("Zorbe:3100 again"));
}

void TestDiscovery::stopByHandReportsTwice()
{
    joinHost();
    writeTimeouts(30, 0);
    Search search;
    search.searchDevice();
    search.stopSearchDevice();
    QCOMPARE(search.results.size(), 1);
    TRY_COMPARE(search.results.size(), 2);
}

void TestDiscovery::earlierShotEndsLaterSearch()
{
    joinHost();
    DiscoveredUnit first(
        m_network->addHost({QStringLiteral("192.168.1.10/24")}), address("192.168.1.10"));
    DiscoveredUnit second(
        m_network->addHost({QStringLiteral("192.168.1.11/24")}), address("192.168.1.11"));
    writeTimeouts(300, 0);
    Search search;
    search.searchDevice();
    first.send("Zorbe:3100", hostAddress);
    TRY_VERIFY(search.found().contains(QStringLiteral("192.168.1.10")));
    search.results.clear();

    search.searchDevice();
    second.send("Zorbe:3100", hostAddress);
    TRY_COMPARE(search.results.size(), 2);
    QVERIFY(!search.results.first().units.contains(QStringLiteral("192.168.1.10")));
    QCOMPARE(search.results.last().units.keys(), QStringList(QStringLiteral("192.168.1.11")));
}

void TestDiscovery::shotOfPlainSearchStopsBroadcasts()
{
    joinHost();
    const DiscoveredUnit unit(m_network->addHost({QStringLiteral("192.168.1.10/24")}));
    writeTimeouts(0, 2500);
    Search search;
    search.searchDevice();
    search.slot_searchDevice(QStringLiteral("unit"));
    QVERIFY(search.repeatTimer()->isActive());

    TRY_COMPARE(search.results.size(), 1);
    QVERIFY(!search.repeatTimer()->isActive());
    QCOMPARE(search.results.first().connectDevcie, QStringLiteral("unit"));
    TRY_COMPARE(search.results.size(), 2);
    QCOMPARE(search.results.last().connectDevcie, QStringLiteral("unit"));
    sendMarker();
    TRY_COMPARE(texts(unit.heard()), QByteArrayList({request, "marker"}));
}

void TestDiscovery::plainSearchDuringSlotSearch()
{
    joinHost();
    const DiscoveredUnit listener(m_network->addHost({QStringLiteral("192.168.1.9/24")}));
    const NetworkNamespace& network =
        m_network->addHost({QStringLiteral("192.168.1.10/24"), QStringLiteral("192.168.1.11/24")});
    DiscoveredUnit unit(network, address("192.168.1.10"));
    DiscoveredUnit otherModel(network, address("192.168.1.11"));
    writeTimeouts(2500, longTime);
    Search search;
    search.slot_searchDevice(QStringLiteral("unit"));
    search.searchDevice();
    sendMarker();
    QVERIFY(search.repeatTimer()->isActive());
    otherModel.send("Zorbe:", hostAddress);
    unit.send("Zorbe:3100", hostAddress);

    TRY_COMPARE(search.results.size(), 1);
    QVERIFY(!search.repeatTimer()->isActive());
    QCOMPARE(search.results.first().connectDevcie, QString());
    QCOMPARE(search.results.first().units.keys(), QStringList(QStringLiteral("192.168.1.10")));
    QCOMPARE(search.results.first().units.first().name, QStringLiteral("Zorbe3100"));
    TRY_VERIFY(listener.heard().size() >= 2);
    QCOMPARE(texts(listener.heard()).mid(0, 2), QByteArrayList({"marker", request}));
}

void TestDiscovery::searchFromHandlerOfResult()
{
    joinHost();
    DiscoveredUnit unit(
        m_network->addHost({QStringLiteral("192.168.1.10/24")}), address("192.168.1.10"));
    writeTimeouts(0, 0);
    Search search;
    int results = 0;
    connect(&search, &SearchDevice::signal_updateDeviceList, &search, [&] {
        if (++results >= 3)
            return;
        search.deleteUdpObject();
        search.searchDevice();
    });
    search.slot_searchDevice(QStringLiteral("unit"));
    TRY_COMPARE(results, 3);
    QCOMPARE(openSockets(), 1);
    unit.send("Zorbe:3100", hostAddress);
    TRY_COMPARE(search.found().size(), 1);
}

// A handler may search again: what it starts must not be stopped without its knowledge.
void TestDiscovery::broadcastsStopBeforeTheResult()
{
    joinHost();
    Search search;
    QVector<bool> broadcasting;
    connect(&search, &SearchDevice::signal_updateDeviceList, &search, [&] {
        broadcasting += search.repeatTimer()->isActive();
        if (broadcasting.size() == 1)
            search.slot_searchDevice(QStringLiteral("again"));
    });
    search.slot_searchDevice(QStringLiteral("unit"));
    search.stopSearchDevice();
    QVERIFY(search.repeatTimer()->isActive());
    search.stopSearchDevice();
    QVERIFY(!search.repeatTimer()->isActive());
    QCOMPARE(broadcasting, QVector<bool>({false, false}));
}

void TestDiscovery::deletedSocketsHearNothing()
{
    joinHost();
    Search search;
    search.deleteUdpObject();
    search.slot_searchDevice({});
    QCOMPARE(openSockets(), 1);
    search.deleteUdpObject();
    QCOMPARE(openSockets(), 0);
    search.deleteUdpObject();
    search.slot_timeout();
    QVERIFY(search.repeatTimer()->isActive());
    QVERIFY(search.found().isEmpty());
}

void TestDiscovery::destructorLeavesSockets()
{
    joinHost();
#if defined(__SANITIZE_ADDRESS__)
    const __lsan::ScopedDisabler leakIsIntended;
#endif
    {
        SearchDevice search;
        search.searchDevice();
    }
    QCOMPARE(openSockets(), 1);
}

void TestDiscovery::singleton()
{
    // The program was loaded before there was an application: its settings are at the root.
    if (QFile::exists(QStringLiteral("/configWidget.ini")))
        QSKIP("there are settings at the root of this machine");
    joinHost();
    SearchDevice* const search = SearchDevice::Instance();
    QVERIFY(search);
    QVERIFY(!search->parent());
    int results = 0;
    const QMetaObject::Connection connection =
        connect(search, &SearchDevice::signal_updateDeviceList, this, [&results] { ++results; });
    search->searchDevice();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(results, 1);
    search->slot_searchDevice({});
    QCoreApplication::sendPostedEvents();
    QCOMPARE(results, 2);
    disconnect(connection);
    search->deleteUdpObject();
    QCOMPARE(SearchDevice::Instance(), search);
}

void TestDiscovery::queuedResult()
{
    joinHost();
    DiscoveredUnit unit(
        m_network->addHost({QStringLiteral("192.168.1.10/24")}), address("192.168.1.10"));
    // The library leaves the type to the application.
    QCOMPARE(QMetaType::type("QMap<QString,serverData>"), int(QMetaType::UnknownType));
    qRegisterMetaType<Units>("QMap<QString,serverData>");

    Search search;
    Units received;
    connect(
        &search, &SearchDevice::signal_updateDeviceList, &search,
        [&received](const Units& units) { received = units; }, Qt::QueuedConnection);
    search.searchDevice();
    unit.send("Zorbe:3100", hostAddress);
    TRY_COMPARE(search.found().size(), 1);
    TRY_COMPARE(received.keys(), QStringList(QStringLiteral("192.168.1.10")));
}

int main(int argc, char** argv)
{
    const QString refusal = enterPrivateNetwork();
    QCoreApplication application(argc, argv);
    TestDiscovery test(refusal);
    return QTest::qExec(&test, argc, argv);
}

#include "tst_discovery.moc"
