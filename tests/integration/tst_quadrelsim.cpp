// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "controlunit.h"
#include "patience.h"
#include "programs.h"
#include "unitframe.h"
#include "unitframereader.h"
#include "unitsettings.h"
#include "upgradewrites.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtCore/QTemporaryDir>
#include <QtNetwork/QNetworkDatagram>
#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>
#include <QtNetwork/QUdpSocket>
#include <QtTest/QtTest>

#include <algorithm>
#include <csignal>

using namespace QuadrelUnit;

namespace {

class Client {
public:
    explicit Client(quint16 port)
    {
        m_socket.connectToHost(QHostAddress::LocalHost, port);
        m_socket.waitForConnected(patience);
    }

    QTcpSocket& socket() { return m_socket; }

    std::optional<UnitFrame> ask(const UnitFrame& request)
    {
        m_socket.write(request.encode());
        return reply();
    }
    std::optional<UnitFrame> reply()
    {
        std::optional<UnitFrame> frame = m_reader.next();
        while (!frame && !m_reader.isBroken() && m_socket.waitForReadyRead(patience)) {
            m_reader.feed(m_socket.readAll());
            frame = m_reader.next();
        }
        return frame;
    }
    QByteArray read(quint32 address, quint16 length)
    {
        const std::optional<UnitFrame> frame = ask(UnitFrame::readRequest(1, address, length));
        return frame ? frame->payload : QByteArray("none");
    }
    bool write(quint32 address, const QByteArray& data)
    {
        return ask(UnitFrame::writeRequest(2, address, data)).has_value();
    }
    bool waitForClosed()
    {
        return m_socket.state() == QAbstractSocket::UnconnectedState
            || m_socket.waitForDisconnected(patience);
    }

private:
    QTcpSocket m_socket;
    UnitFrameReader m_reader{UnitFrameReader::Replies};
};

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

bool upgrade(Client& client, const QByteArray& streamed, const QByteArray& addressed)
{
    const QList<UpgradeWrite> writes = upgradeWrites(streamed, addressed);
    return std::all_of(writes.begin(), writes.end(),
        [&client](const UpgradeWrite& write) { return client.write(write.address, write.data); });
}

} // namespace

class TestQuadrelsim : public QObject {
    Q_OBJECT

private slots:
    void servesItsInformation();
    void reportsItsSettings();
    void servesUdp();
    void endsCleanly_data();
    void endsCleanly();
    void tellsItsUsage_data();
    void tellsItsUsage();
    void refusesWrongUsage_data();
    void refusesWrongUsage();
    void cannotTakeAPortTwice();
    void refusesGarbage();
    void tellsOfTenRefusalsASecond();
    void servesOnWithoutAReaderOfItsErrors_data();
    void servesOnWithoutAReaderOfItsErrors();
    void limitsItsConnections();
    void dropsIdleConnections();
    void limitsItsMemory();
    void repliesLate();
    void servesManyUnits();
    void servesAThousandUnits();
    void numbersUnitsOnPortsOfTheirOwn();
    void keepsAMemoryForEachUnit();
    void makesFaultsInSomeUnits();
    void namesTheUnitThatTells();
    void needsEnoughOpenFiles();
    void refusesAMemoryInUse();
    void tellsEachRequest();
    void servesTheSample();
    void keepsItsMemory();
    void laysOptionsOverItsMemory();
    void refusesAForeignMemory();
    void cannotSaveItsMemory();
    void resetsAndComesBack();
    void takesUpgrades();
    void tellsOfABrokenUpgrade();
    void makesFaults();
    void answersSearches();
    void answersSearchesOddly();
    void cannotAnswerSearchesEverywhere();

private:
    const QTemporaryDir m_directory;
};

void TestQuadrelsim::servesItsInformation()
{
    Simulator simulator;
    const quint16 port = simulator.port();
    QVERIFY(port != 0);
    Client client(port);
    const std::optional<UnitFrame> reply = client.ask(UnitFrame::readRequest(200, 0xF0000000, 32));
    QVERIFY(reply);
    QCOMPARE(reply->label, quint8(200));
    QCOMPARE(reply->address, quint32(0xF0000000));
    QCOMPARE(int(reply->dataLength), 32);
    QCOMPARE(reply->payload, UnitSettings().informationBlock());
    QCOMPARE(client.read(0xF0010000, 1), QByteArray(1, '\0'));
}

void TestQuadrelsim::reportsItsSettings()
{
    Simulator simulator(words("--model 0x1234 --serial 18446744073709551615 --firmware 4.3.2.1 "
                              "--ports 4 --io 8 --relays 255 --ip 10.0.0.7 --mask 255.0.0.0 "
                              "--infrared 254 --gateway 10.0.0.1 --dhcp --link-down"));
    Client client(simulator.port());
    QCOMPARE(client.read(0xF0000000, 32),
        QByteArray::fromHex("3412 04030201 ffffffffffffffff 01 0700000a 000000ff 0100000a"
                            "00 00 04 08 ff"));
    // Four ports and eight lines have their settings; the others have none.
    QCOMPARE(
        client.read(0xF0001000 + 3 * 7, 14), QByteArray::fromHex("00c20100080100 00000000000000"));
    QCOMPARE(client.read(0xF0001100 + 7 * 2, 4), QByteArray::fromHex("01000000"));
}

void TestQuadrelsim::servesUdp()
{
    Simulator simulator;
    const quint16 port = simulator.port();
    QUdpSocket client;
    QVERIFY(client.bind(QHostAddress(QHostAddress::LocalHost)));
    const UnitFrame request = UnitFrame::readRequest(1, 0xF0000000, 32);
    client.writeDatagram(request.encode(), QHostAddress::LocalHost, port);
    QVERIFY(client.waitForReadyRead(patience));
    QCOMPARE(
        client.receiveDatagram().data(), QuadrelUnit::ControlUnit().answer(request).reply.encode());
}

void TestQuadrelsim::endsCleanly_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
}

void TestQuadrelsim::endsCleanly()
{
    QFETCH(int, signal);
    Simulator simulator;
    Client client(simulator.port());
    QCOMPARE(simulator.stop(signal), 0);
    QCOMPARE(simulator.errors(), QString());
    QVERIFY(client.waitForClosed());
}

void TestQuadrelsim::tellsItsUsage_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("text");
    QTest::newRow("help") << "--help"
                          << "--print-digests";
    QTest::newRow("short help") << "-h"
                                << "Usage: ";
    QTest::newRow("version") << "--version"
                             << "quadrelsim 0.";
}

void TestQuadrelsim::tellsItsUsage()
{
    QFETCH(QString, option);
    QFETCH(QString, text);
    Simulator simulator({option});
    QCOMPARE(simulator.waitForExit(), 0);
    QVERIFY(simulator.readAllStandardOutput().contains(text.toUtf8()));
    QCOMPARE(simulator.errors(), QString());
}

void TestQuadrelsim::refusesWrongUsage_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("reason");
    QTest::newRow("unknown option") << "--nonsense"
                                    << "--nonsense";
    QTest::newRow("stray word") << "nonsense"
                                << "nonsense";
    QTest::newRow("listen") << "--listen nowhere"
                            << "nowhere is not an IP address";
    QTest::newRow("port") << "--port 65536"
                          << "65536";
    QTest::newRow("port text") << "--port http"
                               << "http";
    QTest::newRow("model") << "--model 65536"
                           << "65536";
    QTest::newRow("serial") << "--serial -1"
                            << "-1";
    QTest::newRow("firmware") << "--firmware 1.2.3"
                              << "1.2.3 is not of the form 1.2.3.4";
    QTest::newRow("ports") << "--ports 37"
                           << "37 not in range 0 to 36";
    QTest::newRow("io") << "--io 256"
                        << "256 not in range 0 to 255";
    QTest::newRow("relays") << "--relays x"
                            << "x not in range";
    QTest::newRow("ip") << "--ip 1.2.3.256"
                        << "1.2.3.256 is not of the form 1.2.3.4";
    QTest::newRow("reset time") << "--reset-time -1"
                                << "-1 not in range";
    QTest::newRow("upgrade version") << "--upgrade-version 5"
                                     << "5 is not of the form 1.2.3.4";
    QTest::newRow("fault") << "--fault melt@1"
                           << "\"melt@1\" is not a fault";
    QTest::newRow("second fault") << "--fault drop@1 --fault melt@1"
                                  << "\"melt@1\" is not a fault";
    QTest::newRow("fault of no unit") << "--fault 2:drop@1"
                                      << "\"2:drop@1\": units are numbered from 1 to 1";
    QTest::newRow("fault of unit 0") << "--count 3 --fault 0:drop@1"
                                     << "\"0:drop@1\": units are numbered from 1 to 3";
    QTest::newRow("fault of units beyond") << "--count 3 --fault 2-4:drop@1"
                                           << "\"2-4:drop@1\": units are numbered from 1 to 3";
    QTest::newRow("fault of units in reverse") << "--count 3 --fault 3-2:drop@1"
                                               << "\"3-2:drop@1\": units are numbered";
    QTest::newRow("fault of a unit") << "--count 3 --fault 2:melt@1"
                                     << "\"melt@1\" is not a fault";
    QTest::newRow("count") << "--count 0"
                           << "0 not in range 1 to 10000";
    QTest::newRow("count and port") << "--count 3 --port 65534"
                                    << "3 units do not fit between port 65534 and 65535";
    QTest::newRow("connections") << "--max-connections 0"
                                 << "0 not in range 1 to 10000";
    QTest::newRow("idle time") << "--idle-timeout -1"
                               << "-1 not in range 0 to 86400000";
    QTest::newRow("memory") << "--max-memory 0"
                            << "0 not in range 1 to 1024";
    QTest::newRow("latency") << "--latency -1"
                             << "-1 not in range 0 to 3600000";
    QTest::newRow("jitter") << "--jitter x"
                            << "x not in range 0 to 3600000";
    QTest::newRow("seed") << "--seed x"
                          << "x";
    QTest::newRow("discovery address") << "--discovery-listen x"
                                       << "x is not an IP address";
    QTest::newRow("hexadecimal payload") << "--discovery-payload-hex 0g"
                                         << "0g is not pairs of hexadecimal digits";
    QTest::newRow("half a byte") << "--discovery-payload-hex 012"
                                 << "012 is not pairs of hexadecimal digits";
    QTest::newRow("two payloads") << "--discovery-payload a --discovery-payload-hex 00"
                                  << "excludes";
    QTest::newRow("garbage") << "--discovery-garbage 65508"
                             << "not in range 0 to 65507";
}

void TestQuadrelsim::refusesWrongUsage()
{
    QFETCH(QString, options);
    QFETCH(QString, reason);
    Simulator simulator(options.split(QLatin1Char(' ')));
    QCOMPARE(simulator.waitForExit(), 2);
    QVERIFY2(simulator.errors().contains(reason), qPrintable(simulator.errors()));
    QVERIFY(simulator.readAllStandardOutput().isEmpty());
}

void TestQuadrelsim::cannotTakeAPortTwice()
{
    Simulator simulator;
    const QString port = QString::number(simulator.port());
    Simulator second({QStringLiteral("--port"), port});
    QCOMPARE(second.waitForExit(), 1);
    QVERIFY(second.errors().startsWith(
        QStringLiteral("quadrelsim: cannot listen on 127.0.0.1:%1: ").arg(port)));
    QVERIFY(second.readAllStandardOutput().isEmpty());
}

void TestQuadrelsim::refusesGarbage()
{
    Simulator simulator;
    const quint16 port = simulator.port();
    Client client(port);
    client.socket().write("what is this?");
    QVERIFY(client.waitForClosed());
    QVERIFY(simulator.waitForError(
        QStringLiteral("the bytes do not begin as a frame does; connection dropped\n")));
    Client other(port);
    QCOMPARE(other.read(0xF0000000, 32), UnitSettings().informationBlock());
}

void TestQuadrelsim::tellsOfTenRefusalsASecond()
{
    constexpr int refusals = 200;
    Simulator simulator;
    const quint16 port = simulator.port();
    QUdpSocket client;
    for (int i = 0; i < refusals; ++i)
        client.writeDatagram("garbage", QHostAddress::LocalHost, port);
    QVERIFY(simulator.waitForError(QStringLiteral(" more like these in this second\n")));
    int reported = 0;
    int keptBack = 0;
    const QRegularExpression summary(
        QStringLiteral("^quadrelsim: (\\d+) more like these in this second$"));
    // All of it may take more than a second on a busy machine.
    const auto count = [&] {
        reported = 0;
        keptBack = 0;
        const QStringList lines = simulator.errors().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        for (const QString& line : lines) {
            const QRegularExpressionMatch match = summary.match(line);
            if (match.hasMatch())
                keptBack += match.captured(1).toInt();
            else
                reported += line.endsWith(QStringLiteral("; datagram dropped")) ? 1 : 1000;
        }
        return reported + keptBack;
    };
    TRY_COMPARE(count(), refusals);
    QVERIFY(reported >= 10);
    QVERIFY(reported < refusals / 2);
}

void TestQuadrelsim::servesOnWithoutAReaderOfItsErrors_data()
{
    QTest::addColumn<QString>("preparation");
    QTest::addColumn<QString>("redirection");
    QTest::newRow("closed") << ":"
                            << "2>&-";
    QTest::newRow("input closed, too") << ":"
                                       << "0<&- 2>&-";
    QTest::newRow("a reader that is gone") << ":"
                                           << "2> >(exec true)";
    QTest::newRow("a reader that does not read") << "mkfifo $0/pipe; exec 3<>$0/pipe"
                                                 << "2>&3";
}

void TestQuadrelsim::servesOnWithoutAReaderOfItsErrors()
{
    QFETCH(QString, preparation);
    QFETCH(QString, redirection);
    Program shell;
    QVERIFY(shell.launch(QStringLiteral("bash"),
        {QStringLiteral("-c"),
            QStringLiteral("%1; exec " QUADRELSIM_PATH " --port 0 --verbose %2")
                .arg(preparation, redirection),
            m_directory.path()}));
    const QByteArray beginning = "listening on 127.0.0.1:";
    Client client(shell.waitForLine(beginning).mid(beginning.size()).toUShort());
    // Each request is reported in a line of some 60 bytes, and a pipe takes 64 KiB.
    for (int i = 0; i < 3000; ++i)
        QCOMPARE(client.read(0xF0000000, 32), UnitSettings().informationBlock());
    QCOMPARE(shell.stop(SIGTERM), 0);
}

void TestQuadrelsim::limitsItsConnections()
{
    Simulator simulator(words("--max-connections 1"));
    const quint16 port = simulator.port();
    Client first(port);
    QCOMPARE(first.read(0xF0000000, 32), UnitSettings().informationBlock());
    Client second(port);
    QVERIFY(second.waitForClosed());
    QVERIFY(simulator.waitForError(QStringLiteral(
        "quadrelsim: 1 clients are connected; further ones are refused until one of them "
        "leaves\n")));
    QCOMPARE(first.read(0xF0000000, 32), UnitSettings().informationBlock());
}

void TestQuadrelsim::dropsIdleConnections()
{
    Simulator simulator(words("--idle-timeout 1"));
    Client client(simulator.port());
    QVERIFY(client.waitForClosed());
    QVERIFY(simulator.waitForError(QStringLiteral("idle for 1 ms; connection dropped\n")));
}

void TestQuadrelsim::limitsItsMemory()
{
    Simulator simulator(words("--max-memory 1"));
    const quint16 port = simulator.port();
    Client client(port);
    int written = 0;
    // A byte in each page takes the whole page.
    while (written < 1000 && client.write(0x10000000 + static_cast<quint32>(written) * 4096, "x"))
        ++written;
    // A page for the information block, and one for ports and lines.
    QCOMPARE(written, 256 - 2);
    QVERIFY(client.waitForClosed());
    QVERIFY(simulator.waitForError(
        QStringLiteral(": a write of 1 byte at 0x100fe000 is over the memory limit of 1048576 "
                       "bytes; connection dropped\n")));
    Client again(port);
    QCOMPARE(again.read(0x10000000, 1), QByteArray("x"));
}

void TestQuadrelsim::repliesLate()
{
    Simulator simulator(words("--latency 30 --jitter 5"));
    Client client(simulator.port());
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(client.read(0xF0000000, 32), UnitSettings().informationBlock());
    QVERIFY(clock.elapsed() >= 30);
}

void TestQuadrelsim::servesManyUnits()
{
    constexpr int units = 3;
    Simulator simulator(words("--count 3 --serial 500 --discovery-listen 127.0.0.1 "
                              "--discovery-port 0 --max-connections 1"));
    QSet<quint16> ports;
    std::vector<std::unique_ptr<Client>> clients;
    for (quint64 i = 0; i < units; ++i) {
        const quint16 port = simulator.port();
        QVERIFY(port != 0);
        ports.insert(port);
        UnitSettings settings;
        settings.serialNumber = 500 + i;
        // Each unit has its own client, and room for no other.
        clients.push_back(std::make_unique<Client>(port));
        QCOMPARE(clients.back()->read(0xF0000000, 32), settings.informationBlock());
    }
    QCOMPARE(ports.size(), units);
    for (quint64 i = 0; i < units; ++i)
        ports.insert(simulator.port("answering searches on 127.0.0.1:"));
    QCOMPARE(ports.size(), 2 * units);

    // What is written to one is not on the others.
    QVERIFY(clients[1]->write(0xF0020000, "\x07"));
    QCOMPARE(clients[0]->read(0xF0020000, 1), QByteArray(1, '\0'));
    QCOMPARE(clients[1]->read(0xF0020000, 1), QByteArray("\x07"));
    QCOMPARE(clients[2]->read(0xF0020000, 1), QByteArray(1, '\0'));
}

void TestQuadrelsim::servesAThousandUnits()
{
    constexpr int units = 1000;
    Simulator simulator(words("--count 1000 --sample"));
    std::vector<quint16> ports;
    for (int i = 0; i < units; ++i) {
        ports.push_back(simulator.port());
        QVERIFY(ports.back() != 0);
    }
    for (const int i : {0, 499, 999}) {
        Client client(ports.at(static_cast<std::size_t>(i)));
        UnitSettings settings;
        settings.serialNumber += static_cast<quint64>(i);
        QCOMPARE(client.read(0xF0000000, 32), settings.informationBlock());
    }
    QFile status(QStringLiteral("/proc/%1/status").arg(simulator.processId()));
    QVERIFY(status.open(QIODevice::ReadOnly));
    const QRegularExpressionMatch peak = QRegularExpression(QStringLiteral("VmHWM:\\s+(\\d+) kB"))
                                             .match(QString::fromLatin1(status.readAll()));
    QVERIFY(peak.hasMatch());
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    // Sanitizers keep memory of their own.
    QVERIFY2(peak.captured(1).toInt() < 300 * 1024, qPrintable(peak.captured(1)));
#endif
    QCOMPARE(simulator.stop(SIGTERM), 0);
}

void TestQuadrelsim::numbersUnitsOnPortsOfTheirOwn()
{
    // Two free ports that follow each other are not promised: a few tries find them.
    for (int attempt = 0; attempt < 20; ++attempt) {
        quint16 first = 0;
        {
            QTcpServer probe;
            QVERIFY(probe.listen(QHostAddress::LocalHost));
            first = probe.serverPort();
        }
        if (first == 65535)
            continue;
        Simulator simulator({QStringLiteral("--count"), QStringLiteral("2"),
            QStringLiteral("--port"), QString::number(first)});
        if (simulator.port() == 0)
            continue;
        QCOMPARE(simulator.port(), quint16(first + 1));
        return;
    }
    QFAIL("no two free ports");
}

void TestQuadrelsim::keepsAMemoryForEachUnit()
{
    const QString folder = m_directory.filePath(QStringLiteral("site"));
    const QStringList options = {
        QStringLiteral("--count"), QStringLiteral("2"), QStringLiteral("--memory"), folder};
    {
        Simulator simulator(options + words("--serial 7"));
        simulator.port();
        Client second(simulator.port());
        QVERIFY(second.write(0xF0020000, "\x07"));
        QCOMPARE(simulator.stop(SIGTERM), 0);
    }
    const QStringList files = {QStringLiteral("unit-1.memory"), QStringLiteral("unit-2.memory")};
    QCOMPARE(QDir(folder).entryList(QDir::Files, QDir::Name), files);
    // Without an option for it each unit keeps the number from its file.
    Simulator simulator(options);
    for (const quint64 serialNumber : {quint64(7), quint64(8)}) {
        Client client(simulator.port());
        UnitSettings settings;
        settings.serialNumber = serialNumber;
        QCOMPARE(client.read(0xF0000000, 32), settings.informationBlock());
        QCOMPARE(client.read(0xF0020000, 1), QByteArray(1, serialNumber == 8 ? '\7' : '\0'));
    }
}

void TestQuadrelsim::makesFaultsInSomeUnits()
{
    Simulator simulator(
        words("--count 4 --fault 2-3:wrong-label@1 --fault 4:short@1 --fault wrong-address@2"));
    for (int unit = 1; unit <= 4; ++unit) {
        Client client(simulator.port());
        const UnitFrame request = UnitFrame::readRequest(1, 0xF0000000, 32);
        const std::optional<UnitFrame> first = client.ask(request);
        QVERIFY(first);
        QCOMPARE(int(first->label), unit == 2 || unit == 3 ? 2 : 1);
        QCOMPARE(first->payload.size(), unit == 4 ? 0 : 32);
        const std::optional<UnitFrame> second = client.ask(request);
        QVERIFY(second);
        QCOMPARE(second->address, quint32(0xF0000001));
    }
}

void TestQuadrelsim::namesTheUnitThatTells()
{
    Simulator simulator(words("--count 2"));
    simulator.port();
    Client client(simulator.port());
    QVERIFY(client.write(0x18200002, QByteArray::fromHex("0972")));
    QVERIFY(simulator.waitForError(QStringLiteral("quadrelsim: unit 2: upgrade out of order: ")));
}

void TestQuadrelsim::needsEnoughOpenFiles()
{
    Program shell;
    QVERIFY(shell.launch(QStringLiteral("bash"),
        {QStringLiteral("-c"),
            QStringLiteral("ulimit -n 100; exec " QUADRELSIM_PATH " --port 0 --count 40")}));
    QCOMPARE(shell.waitForExit(), 1);
    QCOMPARE(shell.errors(),
        QStringLiteral("quadrelsim: the units need 112 open files, and 100 are allowed: lower "
                       "--count, or raise the limit (ulimit -n)\n"));
}

void TestQuadrelsim::refusesAMemoryInUse()
{
    const QString path = m_directory.filePath(QStringLiteral("unit.memory"));
    const QStringList options = {QStringLiteral("--memory"), path};
    Simulator first(options);
    QVERIFY(first.port() != 0);
    Simulator second(options);
    QCOMPARE(second.waitForExit(), 1);
    QCOMPARE(second.errors(),
        QStringLiteral("quadrelsim: %1 is in use by process %2\n")
            .arg(path)
            .arg(first.processId()));
    QVERIFY(second.readAllStandardOutput().isEmpty());
    QCOMPARE(first.stop(SIGKILL), -1);
    // The dead hold nothing.
    Simulator third(options);
    QVERIFY(third.port() != 0);
}

void TestQuadrelsim::tellsEachRequest()
{
    Simulator simulator(words("--verbose --fault wrong-label@2 --reset-time 1"));
    Client client(simulator.port());
    const QString peer =
        QStringLiteral("quadrelsim: tcp 127.0.0.1:%1: ").arg(client.socket().localPort());
    client.read(0xF0020001, 512);
    client.write(0xF0020000, "x");
    client.write(0xF000001C, "\x01");
    QVERIFY(simulator.waitForError(QStringLiteral("back again\n")));
    QVERIFY(simulator.errors().contains(
        peer + QStringLiteral("label 1, read 512 bytes at 0xf0020001\n")));
    QVERIFY(simulator.errors().contains(
        peer + QStringLiteral("label 2, write 1 byte at 0xf0020000, fault: wrong-label\n")));
    QVERIFY(simulator.errors().contains(QStringLiteral("quadrelsim: going down\n")));
}

void TestQuadrelsim::servesTheSample()
{
    Simulator simulator(words("--sample"));
    Client client(simulator.port());
    const QByteArray events = client.read(0xF0020000, 1);
    QVERIFY(events.at(0) >= 24);
    QCOMPARE(client.read(0xF0020001, 12), QByteArray::fromHex("01 1200 4c01002510 0152 01 10"));
    QVERIFY(client.read(0xF0010000, 1).at(0) > 10);
    QCOMPARE(client.read(0xF0001000, 7), QByteArray::fromHex("00c20100080100"));
}

void TestQuadrelsim::keepsItsMemory()
{
    const QTemporaryDir directory;
    const QStringList options = {QStringLiteral("--memory"),
        directory.filePath(QStringLiteral("unit.memory")), QStringLiteral("--sample")};
    QByteArray table;
    {
        Simulator simulator(options);
        Client client(simulator.port());
        QVERIFY(client.write(0xF0020000, "\x01"));
        QVERIFY(client.write(0xF0020001, QByteArray(512, 'e')));
        QVERIFY(client.write(0x02000011, QByteArray::fromHex("000101000000")));
        table = client.read(0xF0010000, 5000);
        QCOMPARE(simulator.stop(SIGTERM), 0);
    }
    {
        // The sample fills a new memory only.
        Simulator simulator(options);
        Client client(simulator.port());
        QCOMPARE(client.read(0xF0020000, 1), QByteArray("\x01"));
        QCOMPARE(client.read(0xF0020001, 512), QByteArray(512, 'e'));
        QCOMPARE(client.read(0xF0010000, 5000), table);
        QCOMPARE(client.read(0x02000011, 3), QByteArray::fromHex("000101"));
        QCOMPARE(simulator.stop(SIGTERM), 0);
    }
}

void TestQuadrelsim::laysOptionsOverItsMemory()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("unit.memory"));
    const QStringList memory = {QStringLiteral("--memory"), path};
    {
        Simulator simulator(memory + words("--model 5 --serial 77"));
        QVERIFY(simulator.port() != 0);
        QCOMPARE(simulator.stop(SIGTERM), 0);
    }
    Simulator simulator(memory + words("--serial 78 --ip 10.0.0.9"));
    Client client(simulator.port());
    UnitSettings settings;
    settings.model = 5;
    settings.serialNumber = 78;
    settings.ip = {10, 0, 0, 9};
    QCOMPARE(client.read(0xF0000000, 32), settings.informationBlock());
}

void TestQuadrelsim::refusesAForeignMemory()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("diary.txt"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("Dear diary\n");
    file.close();
    Simulator simulator({QStringLiteral("--memory"), path});
    QCOMPARE(simulator.waitForExit(), 1);
    QCOMPARE(simulator.errors(),
        QStringLiteral("quadrelsim: %1 is not a memory file of a simulated unit\n").arg(path));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("Dear diary\n"));
}

void TestQuadrelsim::cannotSaveItsMemory()
{
    QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("folder/unit.memory"));
    Simulator refused({QStringLiteral("--memory"), path});
    QCOMPARE(refused.waitForExit(), 1);
    QVERIFY(refused.errors().startsWith(QStringLiteral("quadrelsim: cannot save ") + path));

    QVERIFY(QDir(directory.path()).mkdir(QStringLiteral("folder")));
    Simulator simulator({QStringLiteral("--memory"), path});
    Client client(simulator.port());
    QVERIFY(directory.remove());
    QVERIFY(client.write(0xF0020000, "\x01"));
    QVERIFY(simulator.waitForError(QStringLiteral("cannot save ") + path));
    QCOMPARE(client.read(0xF0020000, 1), QByteArray("\x01"));
    QVERIFY(client.write(0xF0020000, "\x02"));
    QCOMPARE(simulator.stop(SIGTERM), 1);
}

void TestQuadrelsim::resetsAndComesBack()
{
    Simulator simulator(words("--reset-time 1 --ip 10.0.0.9 --verbose"));
    const quint16 port = simulator.port();
    Client client(port);
    QVERIFY(client.write(0xF000000E, QByteArray::fromHex("00 01010101 02020202 03030303")));
    QCOMPARE(client.read(0xF000000F, 4), QByteArray::fromHex("01010101"));
    QVERIFY(client.write(0xF000001C, QByteArray(1, '\0')));
    QVERIFY(client.waitForClosed());
    QVERIFY(simulator.waitForError(QStringLiteral("back again")));
    Client again(port);
    QCOMPARE(again.read(0xF000000F, 4), QByteArray::fromHex("0900000a"));
}

void TestQuadrelsim::takesUpgrades()
{
    Simulator simulator(
        words("--reset-time 1 --print-digests --verbose --upgrade-version 9.9.9.9"));
    const quint16 port = simulator.port();
    const QByteArray streamed = QByteArray("streamed").repeated(700);
    const QByteArray addressed = QByteArray("addressed").repeated(555);
    Client client(port);
    QVERIFY(upgrade(client, streamed, addressed));
    QVERIFY(client.waitForClosed());
    QCOMPARE(simulator.waitForLine(), digestLine("addressed", addressed));
    QCOMPARE(simulator.waitForLine(), digestLine("streamed", streamed));
    QVERIFY(simulator.waitForError(QStringLiteral("back again")));
    Client again(port);
    QCOMPARE(again.read(0xF0000002, 4), QByteArray::fromHex("09090909"));
    QVERIFY(upgrade(again, QByteArray(), QByteArray()));
    QVERIFY(again.waitForClosed());
    QCOMPARE(simulator.waitForLine(), digestLine("addressed", QByteArray()));
    QCOMPARE(simulator.waitForLine(), digestLine("streamed", QByteArray()));
}

void TestQuadrelsim::tellsOfABrokenUpgrade()
{
    Simulator simulator(words("--print-digests"));
    Client client(simulator.port());
    QVERIFY(client.write(0x18200002, QByteArray::fromHex("0972")));
    QVERIFY(simulator.waitForError(QStringLiteral(
        "quadrelsim: upgrade out of order: a write at 0x18200002, and no upgrade was begun\n")));
    QCOMPARE(client.read(0xF0000002, 4), QByteArray::fromHex("01000000"));
}

void TestQuadrelsim::makesFaults()
{
    Simulator simulator(words("--fault wrong-address@2 --fault cut@3 --fault short%0 --seed 9"));
    const quint16 port = simulator.port();
    Client client(port);
    const UnitFrame request = UnitFrame::readRequest(1, 0xF0000000, 32);
    QCOMPARE(client.ask(request)->address, quint32(0xF0000000));
    QCOMPARE(client.ask(request)->address, quint32(0xF0000001));
    QVERIFY(!client.ask(request));
    QVERIFY(client.waitForClosed());
    Client again(port);
    QVERIFY(again.ask(request));
}

void TestQuadrelsim::answersSearches()
{
    Simulator simulator(words("--serial 42 --discovery-listen 127.0.0.1 --discovery-port 0"));
    const quint16 port = simulator.port();
    const quint16 searchPort = simulator.port("answering searches on 127.0.0.1:");
    QVERIFY(searchPort != 0);
    QUdpSocket searcher;
    QVERIFY(searcher.bind(QHostAddress(QHostAddress::LocalHost)));
    searcher.writeDatagram("Zorbe:", QHostAddress::LocalHost, searchPort);
    QVERIFY(searcher.waitForReadyRead(patience));
    QCOMPARE(searcher.receiveDatagram().data(),
        QStringLiteral("Zorbe:3100;port=%1;sn=42;version=1.0.0.0").arg(port).toLatin1());
}

void TestQuadrelsim::answersSearchesOddly()
{
    Simulator simulator(words("--discovery-listen 127.0.0.1 --discovery-port 0 --verbose "
                              "--discovery-name Zorbe:9 --discovery-payload-hex 00ff41 "
                              "--discovery-zeros 2 --discovery-offset 1 --discovery-repeat 2 "
                              "--discovery-garbage 100"));
    QVERIFY(simulator.port() != 0);
    const quint16 searchPort = simulator.port("answering searches on 127.0.0.1:");
    QUdpSocket searcher;
    QVERIFY(searcher.bind(QHostAddress(QHostAddress::LocalHost)));
    searcher.writeDatagram("Zorbe:", QHostAddress::LocalHost, searchPort);
    QList<QByteArray> replies;
    while (replies.size() < 3) {
        QVERIFY(searcher.hasPendingDatagrams() || searcher.waitForReadyRead(patience));
        replies.append(searcher.receiveDatagram().data());
    }
    const QByteArray reply("\0\0.Zorbe:9\0\xFF"
                           "A",
        13);
    QCOMPARE(replies[0].size(), 100);
    QCOMPARE(replies[1], reply);
    QCOMPARE(replies[2], reply);
    QVERIFY(simulator.waitForError(
        QStringLiteral("quadrelsim: searched by 127.0.0.1:%1\n").arg(searcher.localPort())));
}

void TestQuadrelsim::cannotAnswerSearchesEverywhere()
{
    Simulator simulator(words("--discovery-listen 192.0.2.1"));
    QCOMPARE(simulator.waitForExit(), 1);
    QVERIFY(simulator.errors().startsWith(
        QStringLiteral("quadrelsim: cannot answer searches on 192.0.2.1:3800: ")));
    QVERIFY(simulator.readAllStandardOutput().isEmpty());
}

QTEST_GUILESS_MAIN(TestQuadrelsim)
#include "tst_quadrelsim.moc"
