// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "devicemanagermodel.h"
#include "modelmanagement.h"
#include "patience.h"
#include "settingsbeside.h"
#include "unitconnector.h"
#include "unitsample.h"
#include "unitserver.h"
#include "unittransport.h"
#include "unpackage.h"
#include "withoutdescriptors.h"

#include <QtCore/QEventLoop>
#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>
#include <QtNetwork/QUdpSocket>
#include <QtTest/QtTest>

#include <atomic>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace QuadrelUnit;

namespace {

constexpr int longWait = 20000;
constexpr int shortWait = 1000;
const QString noError = QStringLiteral("no error");

/** An UnPackage on a worker thread, with the transport. */
class Operations : public QObject {
public:
    Operations(int wait, const UnitAddress& address)
    {
        // The transport keeps the time; the library's own wait is for what no frame belongs to.
        writeSettingsBeside(QStringLiteral("[Communication]\ntimeout=%1\n")
                                .arg(wait < 0 ? -1 : 2 * wait)
                                .toLatin1());
        m_unit = std::make_unique<UnPackage>();
        LinkOptions options;
        options.timeout = wait;
        options.retries = 0;
        m_transport = std::make_unique<UnitTransport>(m_unit.get(), address, options);
        connect(m_unit.get(), &UnPackage::signal_errored, this,
            [this](const QString& error) { finish(error); });
        connect(m_unit.get(), &UnPackage::signal_finshed, this, [this] { finish(noError); });
        connect(m_unit.get(), &UnPackage::signal_readFinished, this, [this] { finish(noError); });
        m_unit->moveToThread(&m_worker);
        m_worker.start();
    }

    ~Operations() override
    {
        m_worker.quit();
        m_worker.wait();
    }

    UnPackage& unit() { return *m_unit; }
    UnitTransport& transport() { return *m_transport; }

    /** The error of one operation, or `noError`. */
    QString run(DataPackageType type)
    {
        return await([this, type] { m_unit->slot_runReadPackage(type); });
    }

    QString readDevice()
    {
        return await([this] {
            m_unit->blockSignals(true);
            m_unit->slot_runReadPackage(ReservedType);
            m_unit->blockSignals(false);
            QString error;
            const bool isRead = m_unit->readDeviceParameter(error);
            m_transport->finishOperation();
            QMetaObject::invokeMethod(
                this, [this, isRead, error] { finish(isRead ? noError : error); });
        });
    }

private:
    QString await(const std::function<void()>& operation)
    {
        m_results.clear();
        QMetaObject::invokeMethod(m_unit.get(), operation, Qt::QueuedConnection);
        QTimer limit;
        connect(&limit, &QTimer::timeout, &m_loop, &QEventLoop::quit);
        limit.start(patience);
        m_loop.exec();
        forgetDevice();
        // Whatever else is on its way would be a second closing signal.
        QCoreApplication::processEvents();
        return m_results.size() == 1 ? m_results.first() : m_results.join(QStringLiteral(" and "));
    }

    /** Each read leaves the models of the one before it. */
    static void forgetDevice()
    {
        DeviceManagerModel* registry = DeviceManagerModel::Instance();
        const DeviceModel device = registry->getCurrentSelectDevice();
        const std::unique_ptr<ModelManagement> models(registry->getDeviceData(device));
        registry->deleteDeviceData(device);
    }

    void finish(const QString& error)
    {
        m_results.append(error);
        m_loop.quit();
    }

    std::unique_ptr<UnPackage> m_unit;
    std::unique_ptr<UnitTransport> m_transport;
    QThread m_worker;
    QEventLoop m_loop;
    QStringList m_results;
};

/** The simulated unit in this thread. */
struct SampleUnit {
    ControlUnit unit;
    UnitServer server{&unit};

    SampleUnit()
    {
        writeSample(unit.memory());
        QString error;
        if (!server.listen(QHostAddress::LocalHost, 0, &error))
            qFatal("%s", qPrintable(error));
    }

    UnitAddress address(UnitAddress::Protocol protocol = UnitAddress::Tcp) const
    {
        return {protocol, QStringLiteral("127.0.0.1"), server.port()};
    }
};

/** A TCP server that does to each request what a test wants. */
class OddUnit : public QTcpServer {
public:
    using Answer = std::function<void(QTcpSocket& socket, const QByteArray& request)>;

    explicit OddUnit(Answer answer)
    {
        if (!listen(QHostAddress::LocalHost, 0))
            qFatal("cannot listen");
        connect(this, &QTcpServer::newConnection, this, [this, answer] {
            QTcpSocket* socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket,
                [socket, answer] { answer(*socket, socket->readAll()); });
        });
    }

    UnitAddress address() const
    {
        return {UnitAddress::Tcp, QStringLiteral("127.0.0.1"), serverPort()};
    }
};

/** A reply with the label of `request`, as a unit makes it. */
QByteArray replyTo(const QByteArray& request, const QByteArray& payload = QByteArray(32, 1))
{
    const UnitFrame read = UnitFrame::readRequest(
        static_cast<quint8>(request.at(5)), 0xF0000000, static_cast<quint16>(payload.size()));
    return UnitFrame::replyTo(read, payload).encode();
}

QString unanswered(const UnitAddress& address)
{
    return address.toText()
        + QStringLiteral(" has not answered the read of device information within 1000 ms");
}

/** Keeps the processor busy on every core. */
class BusyCores {
public:
    BusyCores()
    {
        for (unsigned i = 0; i < std::max(2U, std::thread::hardware_concurrency()); ++i)
            m_threads.emplace_back([this] {
                while (!m_stopping)
                    m_count.fetch_add(1, std::memory_order_relaxed);
            });
    }
    ~BusyCores()
    {
        m_stopping = true;
        for (std::thread& thread : m_threads)
            thread.join();
    }

private:
    std::atomic<bool> m_stopping{false};
    std::atomic<quint64> m_count{0};
    std::vector<std::thread> m_threads;
};

using Wake = std::function<void(UnPackage&)>;

} // namespace

Q_DECLARE_METATYPE(Wake)

class TestUnitTransport : public QObject {
    Q_OBJECT

private slots:
    void readsOverBothProtocols_data();
    void readsOverBothProtocols();
    void namesTheFault_data();
    void namesTheFault();
    void namesOddStreams_data();
    void namesOddStreams();
    void takesFramesInPieces();
    void takesSeveralFramesAtOnce();
    void dropsLateReplies();
    void givesAReplyThatCameBeforeTheWait_data();
    void givesAReplyThatCameBeforeTheWait();
    void givesAFailureThatCameBeforeTheWait();
    void wakesNobodyAfterTheOperation();
    void isWokenByTheApplication_data();
    void isWokenByTheApplication();
    void keepsTheWaitOfTheUnPackage();
    void givesTheUnPackageItsWaitBack();
    void dropsWhatCameBetweenOperations_data();
    void dropsWhatCameBetweenOperations();
    void seesThatTheUnitHasClosed();
    void isRefused_data();
    void isRefused();
    void givesUpOnAnUnknownHost();
    void givesUpConnecting();
    void givesUpWaiting();
    void connectsAnewAfterALoss();
    void leavesAConnectionThatStoppedInMidFrame();
    void abortsTheWait();
    void abortsConnecting();
    void refusesOperationsOnceAborted();
    void awaitsTheLastReply();
    void endsWithoutHavingBeenUsed();
    void isNotMadeWithoutDescriptors();
    void triesEachAddress();
    void neverTimesOut_data();
    void neverTimesOut();
};

void TestUnitTransport::readsOverBothProtocols_data()
{
    QTest::addColumn<int>("protocol");
    QTest::newRow("tcp") << static_cast<int>(UnitAddress::Tcp);
    QTest::newRow("udp") << static_cast<int>(UnitAddress::Udp);
}

void TestUnitTransport::readsOverBothProtocols()
{
    QFETCH(int, protocol);
    SampleUnit sample;
    Operations operations(longWait, sample.address(static_cast<UnitAddress::Protocol>(protocol)));
    QCOMPARE(operations.run(ReadDataType), noError);
    QCOMPARE(
        DeviceManagerModel::Instance()->getCurrentSelectDevice().getSN(), Q_UINT64_C(310000001));
    QCOMPARE(operations.transport().lastFailure().text, QString());
    QCOMPARE(operations.run(BackwordReadType), noError);
}

void TestUnitTransport::namesTheFault_data()
{
    QTest::addColumn<int>("protocol");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, UnitAddress::Protocol protocol, FaultKind kind,
                         const QString& error) {
        QTest::newRow(name) << static_cast<int>(protocol) << static_cast<int>(kind) << error;
    };
    const auto tcp = UnitAddress::Tcp;
    const auto udp = UnitAddress::Udp;
    const QString timeout =
        QStringLiteral("UNIT has not answered the read of device information within 1000 ms");
    const QString damaged = QStringLiteral("UNIT sent a damaged reply: its checksum is wrong");
    row("tcp, drop", tcp, FaultKind::Drop, timeout);
    row("tcp, duplicate", tcp, FaultKind::Duplicate, noError);
    row("tcp, corrupt", tcp, FaultKind::Corrupt, damaged);
    row("tcp, wrong address", tcp, FaultKind::WrongAddress, timeout);
    const QString otherLength =
        QStringLiteral("UNIT sent a reply of another length than was asked for");
    row("tcp, wrong length", tcp, FaultKind::WrongLength, otherLength);
    row("tcp, short", tcp, FaultKind::Short, otherLength);
    row("tcp, wrong label", tcp, FaultKind::WrongLabel, timeout);
    row("tcp, cut", tcp, FaultKind::Cut,
        QStringLiteral("UNIT closed the connection in the middle of a reply"));
    row("tcp, close", tcp, FaultKind::Close,
        QStringLiteral("UNIT closed the connection without an answer"));
    row("udp, drop", udp, FaultKind::Drop, timeout);
    row("udp, duplicate", udp, FaultKind::Duplicate, noError);
    row("udp, corrupt", udp, FaultKind::Corrupt, damaged);
    row("udp, truncate", udp, FaultKind::Truncate,
        QStringLiteral("UNIT sent something that is not a reply of a unit"));
    row("udp, wrong label", udp, FaultKind::WrongLabel, timeout);
}

void TestUnitTransport::namesTheFault()
{
    QFETCH(int, protocol);
    QFETCH(int, kind);
    QFETCH(QString, error);
    SampleUnit sample;
    sample.server.faults().addNth(static_cast<FaultKind>(kind), 1);
    const UnitAddress address = sample.address(static_cast<UnitAddress::Protocol>(protocol));
    Operations operations(shortWait, address);
    QCOMPARE(operations.run(ReadDataType), error.replace(QStringLiteral("UNIT"), address.toText()));
    QCOMPARE(operations.run(ReadDataType), noError);
}

void TestUnitTransport::namesOddStreams_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<QString>("error");
    const QString noReply = QStringLiteral("%1 sent something that is not a reply of a unit");
    const QString noAnswer =
        QStringLiteral("%1 has not answered the read of device information within 1000 ms");
    const QByteArray request = UnitFrame::readRequest(0, 0xF0000000, 32).encode();
    QByteArray oversize = replyTo(request);
    oversize[10] = 1;
    QTest::newRow("a byte of something else") << QByteArray("H") << false << noReply;
    QTest::newRow("a web server") << QByteArray("HTTP/1.1 400 Bad Request\r\n\r\n") << true
                                  << noReply;
    QTest::newRow("the request itself") << request << false << noReply;
    QTest::newRow("more than any frame holds") << oversize << false << noReply;
    QTest::newRow("closed after a byte") << QByteArray(
        "Q") << true << QStringLiteral("%1 closed the connection in the middle of a reply");
    QTest::newRow("closed before the trailer") << replyTo(request).chopped(
        2) << true << QStringLiteral("%1 closed the connection in the middle of a reply");
    QTest::newRow("stops in the middle") << replyTo(request).left(20) << false << noAnswer;
}

void TestUnitTransport::namesOddStreams()
{
    QFETCH(QByteArray, stream);
    QFETCH(bool, closes);
    QFETCH(QString, error);
    OddUnit unit([stream, closes](QTcpSocket& socket, const QByteArray&) {
        socket.write(stream);
        if (closes)
            socket.disconnectFromHost();
    });
    Operations operations(shortWait, unit.address());
    QCOMPARE(operations.readDevice(), error.replace(QStringLiteral("%1"), unit.address().toText()));
}

void TestUnitTransport::takesFramesInPieces()
{
    OddUnit unit([](QTcpSocket& socket, const QByteArray& request) {
        const QByteArray reply = replyTo(request);
        for (int i = 0; i < reply.size(); ++i) {
            socket.write(reply.mid(i, 1));
            socket.flush();
        }
    });
    Operations operations(longWait, unit.address());
    QCOMPARE(operations.readDevice(), noError);
}

void TestUnitTransport::takesSeveralFramesAtOnce()
{
    // Replies of other labels come along with the right one, before it and after it.
    OddUnit unit([](QTcpSocket& socket, const QByteArray& request) {
        QByteArray other = request;
        other[5] = static_cast<char>(other.at(5) + 1);
        socket.write(replyTo(other, QByteArray(7, 7)) + replyTo(request) + replyTo(request)
            + replyTo(other));
    });
    Operations operations(longWait, unit.address());
    for (int i = 0; i < 10; ++i)
        QCOMPARE(operations.readDevice(), noError);
}

void TestUnitTransport::dropsLateReplies()
{
    // The first request is answered together with the second: by then its reply is late.
    QByteArray first;
    OddUnit unit([&first](QTcpSocket& socket, const QByteArray& request) {
        if (first.isEmpty())
            first = request;
        else
            socket.write(replyTo(first, QByteArray(7, 7)) + replyTo(request));
    });
    Operations operations(shortWait, unit.address());
    QCOMPARE(operations.readDevice(), unanswered(unit.address()));
    QCOMPARE(operations.readDevice(), noError);
}

void TestUnitTransport::givesAReplyThatCameBeforeTheWait_data()
{
    readsOverBothProtocols_data();
}

void TestUnitTransport::givesAReplyThatCameBeforeTheWait()
{
    QFETCH(int, protocol);
    SampleUnit sample;
    Operations operations(longWait, sample.address(static_cast<UnitAddress::Protocol>(protocol)));
    // At each exchange of a whole read.
    connect(
        &operations.unit(), &UnPackage::signal_sendPackage, &operations.unit(),
        [&operations] { operations.transport().awaitLastReply(); }, Qt::DirectConnection);
    QCOMPARE(operations.run(ReadDataType), noError);
}

void TestUnitTransport::givesAFailureThatCameBeforeTheWait()
{
    OddUnit unit([](QTcpSocket& socket, const QByteArray&) { socket.disconnectFromHost(); });
    Operations operations(longWait, unit.address());
    connect(
        &operations.unit(), &UnPackage::signal_sendPackage, &operations.unit(),
        [&operations] { operations.transport().awaitLastReply(); }, Qt::DirectConnection);
    QCOMPARE(operations.run(BackwordReadType),
        unit.address().toText() + QStringLiteral(" closed the connection without an answer"));
}

void TestUnitTransport::wakesNobodyAfterTheOperation()
{
    SampleUnit sample;
    Operations operations(shortWait, sample.address());
    QCOMPARE(operations.run(BackwordReadType), noError);
    // Nothing was sent for this wait, so nothing may end it.
    QString error;
    QVERIFY(!operations.unit().waitResponsed(QStringLiteral("alone"), error));
    QCOMPARE(error, QStringLiteral("alone超时！"));
}

void TestUnitTransport::isWokenByTheApplication_data()
{
    QTest::addColumn<Wake>("wake");
    QTest::addColumn<QString>("error");
    QTest::newRow("failure") << Wake([](UnPackage& unit) { unit.setError(QStringLiteral("stop")); })
                             << QStringLiteral("stop");
    QTest::newRow("bare wake") << Wake([](UnPackage& unit) { unit.quitWaitDelay(); }) << noError;
    QTest::newRow("reply") << Wake([](UnPackage& unit) { unit.setRecvPackage(QByteArray()); })
                           << noError;
}

/** Again and again: a wake that comes before the operation waits is lost. */
void TestUnitTransport::isWokenByTheApplication()
{
    QFETCH(Wake, wake);
    QFETCH(QString, error);
    OddUnit unit([](QTcpSocket&, const QByteArray&) {});
    Operations operations(-1, unit.address());
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] { wake(operations.unit()); });
    timer.start(5);
    QCOMPARE(operations.run(BackwordWriteType), error);
}

void TestUnitTransport::keepsTheWaitOfTheUnPackage()
{
    writeSettingsBeside("[Communication]\ntimeout=50\n");
    const OddUnit unit([](QTcpSocket&, const QByteArray&) {});
    UnPackage unPackage;
    LinkOptions options;
    options.timeout = longWait;
    const UnitTransport transport(&unPackage, unit.address(), options);
    QString error;
    QVERIFY(!unPackage.backwordread(error));
    QCOMPARE(error, QStringLiteral("校时回读超时！"));
}

void TestUnitTransport::givesTheUnPackageItsWaitBack()
{
    writeSettingsBeside("[Communication]\ntimeout=0\n");
    UnPackage unPackage;
    {
        const UnitTransport transport(&unPackage, UnitAddress());
    }
    QString error;
    QVERIFY(!unPackage.waitResponsed(QStringLiteral("alone"), error));
    QCOMPARE(error, QStringLiteral("alone超时！"));
    unPackage.quitWaitDelay();
}

void TestUnitTransport::dropsWhatCameBetweenOperations_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<int>("connections");
    const QByteArray late = replyTo(UnitFrame::readRequest(0, 0xF0000000, 32).encode());
    QTest::newRow("late reply") << late << 1;
    QTest::newRow("half a reply") << late.left(25) << 2;
    QTest::newRow("no reply") << QByteArray("HTTP/1.1 400 Bad Request\r\n\r\n") << 2;
}

void TestUnitTransport::dropsWhatCameBetweenOperations()
{
    QFETCH(QByteArray, stream);
    QFETCH(int, connections);
    QTcpSocket* connection = nullptr;
    OddUnit unit([&connection](QTcpSocket& socket, const QByteArray& request) {
        connection = &socket;
        socket.write(replyTo(request));
    });
    int connected = 0;
    connect(&unit, &QTcpServer::newConnection, this, [&connected] { ++connected; });
    Operations operations(longWait, unit.address());
    QCOMPARE(operations.readDevice(), noError);
    connection->write(stream);
    connection->flush();
    QCOMPARE(operations.readDevice(), noError);
    QCOMPARE(connected, connections);
}

void TestUnitTransport::seesThatTheUnitHasClosed()
{
    QTcpSocket* connection = nullptr;
    OddUnit unit([&connection](QTcpSocket& socket, const QByteArray& request) {
        connection = &socket;
        socket.write(replyTo(request));
    });
    Operations operations(longWait, unit.address());
    QCOMPARE(operations.readDevice(), noError);
    QVERIFY(operations.transport().isConnected());
    connection->disconnectFromHost();
    TRY_VERIFY(!operations.transport().isConnected());
}

void TestUnitTransport::isRefused_data()
{
    readsOverBothProtocols_data();
}

void TestUnitTransport::isRefused()
{
    QFETCH(int, protocol);
    quint16 port = 0;
    {
        const SampleUnit sample;
        port = sample.server.port();
    }
    const UnitAddress address{
        static_cast<UnitAddress::Protocol>(protocol), QStringLiteral("127.0.0.1"), port};
    Operations operations(longWait, address);
    QCOMPARE(operations.readDevice(), address.toText() + QStringLiteral(" refused the connection"));
    QCOMPARE(operations.transport().lastFailure().error, std::errc::connection_refused);
    QCOMPARE(operations.transport().lastFailure().text,
        address.toText() + QStringLiteral(" refused the connection"));
}

void TestUnitTransport::givesUpOnAnUnknownHost()
{
    // No name server is asked for a name that can't be one.
    const QString name(64, QLatin1Char('x'));
    Operations operations(shortWait, {UnitAddress::Tcp, name, 3801});
    QCOMPARE(operations.readDevice(), QStringLiteral("tcp://%1:3801: no such host").arg(name));
}

/** A port whose queue of connections is full: the system lets further ones wait. */
class FullPort {
public:
    FullPort()
    {
        m_listener = socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        auto* generic = reinterpret_cast<sockaddr*>(&address);
        socklen_t size = sizeof(address);
        bind(m_listener, generic, size);
        listen(m_listener, 0);
        getsockname(m_listener, generic, &size);
        m_port = ntohs(address.sin_port);
        for (int& filler : m_fillers) {
            filler = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
            connect(filler, generic, size);
        }
    }
    ~FullPort()
    {
        for (const int filler : m_fillers)
            close(filler);
        close(m_listener);
    }

    UnitAddress address() const { return {UnitAddress::Tcp, QStringLiteral("127.0.0.1"), m_port}; }

private:
    int m_listener = -1;
    int m_fillers[4] = {};
    quint16 m_port = 0;
};

void TestUnitTransport::givesUpConnecting()
{
    const FullPort port;
    Operations operations(shortWait, port.address());
    QCOMPARE(operations.readDevice(), port.address().toText() + QStringLiteral(" does not answer"));
}

void TestUnitTransport::givesUpWaiting()
{
    OddUnit unit([](QTcpSocket&, const QByteArray&) {});
    Operations operations(shortWait, unit.address());
    QCOMPARE(operations.run(ReadDataType), unanswered(unit.address()));
}

void TestUnitTransport::connectsAnewAfterALoss()
{
    int answered = 0;
    OddUnit unit([&answered](QTcpSocket& socket, const QByteArray& request) {
        socket.write(replyTo(request));
        socket.disconnectFromHost();
        ++answered;
    });
    Operations operations(longWait, unit.address());
    for (int i = 1; i <= 20; ++i) {
        QCOMPARE(operations.readDevice(), noError);
        QCOMPARE(answered, i);
    }
}

void TestUnitTransport::leavesAConnectionThatStoppedInMidFrame()
{
    int requests = 0;
    OddUnit unit([&requests](QTcpSocket& socket, const QByteArray& request) {
        socket.write(requests++ == 0 ? replyTo(request).left(25) : replyTo(request));
    });
    Operations operations(shortWait, unit.address());
    QCOMPARE(operations.readDevice(), unanswered(unit.address()));
    QCOMPARE(operations.readDevice(), noError);
}

void TestUnitTransport::abortsTheWait()
{
    UnitTransport* transport = nullptr;
    OddUnit unit([&transport](QTcpSocket&, const QByteArray&) { transport->cancel(); });
    Operations operations(-1, unit.address());
    transport = &operations.transport();
    QCOMPARE(operations.run(ReadDataType), QStringLiteral("cancelled"));
}

void TestUnitTransport::abortsConnecting()
{
    const FullPort port;
    Operations operations(-1, port.address());
    QTimer::singleShot(50, &operations, [&operations] { operations.transport().cancel(); });
    QCOMPARE(operations.run(ReadDataType), QStringLiteral("cancelled"));
}

void TestUnitTransport::refusesOperationsOnceAborted()
{
    SampleUnit sample;
    Operations operations(longWait, sample.address());
    operations.transport().cancel();
    QCOMPARE(operations.run(BackwordReadType), QStringLiteral("cancelled"));
    QCOMPARE(sample.server.faults().replies(), Q_UINT64_C(0));
}

void TestUnitTransport::awaitsTheLastReply()
{
    SampleUnit sample;
    Operations operations(longWait, sample.address());
    operations.unit().setRetainIP(false);
    QCOMPARE(operations.run(SendResetType), noError);
    QEventLoop loop;
    std::thread waiter([&operations, &loop] {
        operations.transport().awaitLastReply();
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    QTimer::singleShot(patience, &loop, &QEventLoop::quit);
    loop.exec();
    waiter.join();
    QVERIFY(operations.transport().wasSent());
    QCOMPARE(sample.server.faults().replies(), Q_UINT64_C(1));
}

void TestUnitTransport::endsWithoutHavingBeenUsed()
{
    const SampleUnit sample;
    const Operations operations(longWait, sample.address());
}

void TestUnitTransport::isNotMadeWithoutDescriptors()
{
    UnPackage unPackage;
    std::error_code error;
    try {
        const WithoutDescriptors none;
        const UnitTransport transport(&unPackage, UnitAddress());
    } catch (const std::system_error& failure) {
        error = failure.code();
    }
    QCOMPARE(error, std::errc::too_many_files_open);
    // Nothing is left that would take it.
    unPackage.sendPackage(QByteArray(20, '\0'));
}

void TestUnitTransport::triesEachAddress()
{
    QTcpServer listening;
    QVERIFY(listening.listen(QHostAddress::LocalHost));
    QTcpServer closed;
    QVERIFY(closed.listen(QHostAddress::LocalHost));
    const FullPort silent;
    const WakeSignal cancel;
    std::error_code error;
    std::vector<Endpoint> endpoints;
    const auto add = [&](quint16 port) {
        const UnitAddress address{UnitAddress::Tcp, QStringLiteral("127.0.0.1"), port};
        const auto found = findEndpoints(address, Deadline(shortWait), cancel, error);
        endpoints.insert(endpoints.end(), found.begin(), found.end());
    };
    add(closed.serverPort());
    add(silent.address().port);
    add(listening.serverPort());
    closed.close();

    UnitConnector connector(UnitAddress(), endpoints);
    // The one that does not answer has only its share of the time.
    const auto socket = connector.connectNext(Deadline(shortWait), cancel, error);
    QVERIFY(socket);
    QVERIFY(!error);
    QVERIFY(!connector.hasMore());

    UnitConnector hopeless(UnitAddress(), {endpoints.at(0), endpoints.at(0)});
    QVERIFY(!hopeless.connectNext(Deadline(shortWait), cancel, error));
    QCOMPARE(error, std::errc::connection_refused);
}

void TestUnitTransport::neverTimesOut_data()
{
    QTest::addColumn<int>("protocol");
    QTest::addColumn<bool>("busy");
    QTest::newRow("tcp") << static_cast<int>(UnitAddress::Tcp) << false;
    QTest::newRow("tcp, busy cores") << static_cast<int>(UnitAddress::Tcp) << true;
    QTest::newRow("udp") << static_cast<int>(UnitAddress::Udp) << false;
    QTest::newRow("udp, busy cores") << static_cast<int>(UnitAddress::Udp) << true;
}

void TestUnitTransport::neverTimesOut()
{
    QFETCH(int, protocol);
    QFETCH(bool, busy);
    SampleUnit sample;
    Operations operations(longWait, sample.address(static_cast<UnitAddress::Protocol>(protocol)));
    const std::unique_ptr<BusyCores> load = busy ? std::make_unique<BusyCores>() : nullptr;
    for (int i = 0; i < 1000; ++i)
        QCOMPARE(operations.readDevice(), noError);
}

QTEST_GUILESS_MAIN(TestUnitTransport)
#include "tst_unittransport.moc"
