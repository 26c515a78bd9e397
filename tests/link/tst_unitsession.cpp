// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "contexttranslator.h"
#include "devicemanagermodel.h"
#include "threadedunit.h"
#include "unitaddresses.h"
#include "unitsession.h"
#include "withoutdescriptors.h"

#include <QtNetwork/QTcpServer>
#include <QtTest/QtTest>

#include <atomic>
#include <csignal>
#include <optional>
#include <thread>
#include <vector>

using namespace QuadrelUnit;

namespace {

/** Milliseconds after which a test gives up. */
constexpr int patience = 60000;

LinkOptions withTimeout(int timeout)
{
    LinkOptions options;
    options.timeout = timeout;
    return options;
}

/** What start() has brought, up to the closing signal. */
class Watch : public QObject {
public:
    explicit Watch(UnitSession& session)
    {
        connect(&session, &UnitSession::progressed, this,
            [this](const UnitProgress& step) { steps.append(step.text()); });
        connect(&session, &UnitSession::finished, this, [this](const UnitResult& end) {
            result = end;
            close();
        });
        connect(&session, &UnitSession::failed, this,
            [this](const std::error_code& error, const QString& text) {
                result.failure = {error, text};
                close();
            });
    }

    /** False if no closing signal came, or more than one. */
    bool await()
    {
        if (closings == 0) {
            QTimer::singleShot(patience, &m_loop, &QEventLoop::quit);
            m_loop.exec();
        }
        QCoreApplication::processEvents();
        return closings == 1;
    }

    QStringList steps;
    UnitResult result;
    int closings = 0;

private:
    void close()
    {
        ++closings;
        m_loop.quit();
    }

    QEventLoop m_loop;
};

/** Takes connections, and never answers. */
class SilentUnit : public QTcpServer {
public:
    SilentUnit()
    {
        if (!listen(QHostAddress::LocalHost))
            qFatal("cannot listen");
    }
    UnitAddress address() const
    {
        return {UnitAddress::Tcp, QStringLiteral("127.0.0.1"), serverPort()};
    }
};

QByteArray memoryOf(ThreadedUnit& unit, quint32 address, int length)
{
    QByteArray bytes;
    unit.at(
        [&](ControlUnit& control, UnitServer&) { bytes = control.memory().read(address, length); });
    return bytes;
}

EventModel someEvents(int count)
{
    EventModel events;
    for (int i = 0; i < count; ++i) {
        EventInfo event;
        event.setEventId(i + 1);
        event.setEventInstruction(QStringLiteral("event %1").arg(i));
        events.push_back(event);
    }
    return events;
}

std::atomic<UnitSession*> signalledSession{nullptr};

void cancelSession(int)
{
    signalledSession.load()->cancel();
}

} // namespace

class TestUnitSession : public QObject {
    Q_OBJECT

private slots:
    void readsAll_data();
    void readsAll();
    void readsAsManyPortsAsTheUnitHas();
    void readsTheDeviceAlone();
    void reportsProgress();
    void writesConfig();
    void writesEvents();
    void writesTriggers();
    void readsAndSetsTheClock();
    void refusesTimes_data();
    void refusesTimes();
    void setsTheNetwork();
    void refusesAddresses();
    void resets();
    void resetsToTheDefaultAddress();
    void awaitsTheLastReplyNoLongerThanTheLimit();
    void upgrades();
    void writesTheRemark();

    void finishesBySignals();
    void failsBySignals();
    void translatesPlaces();
    void refusesASecondOperation();
    void goesOnAfterAFailure();
    void reportsContentsThatDoNotHoldTogether();

    void cancelsFromAnotherThread();
    void cancelsFromASignalHandler();
    void cancelsWhatWasStarted();
    void cancelsTheWaitForTheLastReply();
    void forgetsACancelWithoutAnOperation();
    void abortsForGood();
    void endsWhileAnOperationRuns();

    void servesSeveralUnitsAtOnce();
    void leavesTheSharedRegistryAlone();
    void failsWithoutDescriptors();
};

void TestUnitSession::readsAll_data()
{
    QTest::addColumn<int>("protocol");
    QTest::newRow("tcp") << static_cast<int>(UnitAddress::Tcp);
    QTest::newRow("udp") << static_cast<int>(UnitAddress::Udp);
}

void TestUnitSession::readsAll()
{
    QFETCH(int, protocol);
    const ThreadedUnit unit;
    UnitSession session(unit.address(static_cast<UnitAddress::Protocol>(protocol)));
    for (int i = 0; i < 3; ++i) {
        UnitResult result = session.run(UnitRequest::readAll());
        QCOMPARE(result.failure.text, QString());
        QVERIFY(result);
        QCOMPARE(result.data.device.getSN(), Q_UINT64_C(310000001));
        QCOMPARE(result.data.config.getComInfo().size(), 9);
        QCOMPARE(result.data.config.getIOType().size(), 12);
        QCOMPARE(result.data.events.size(), sampleEvents);
        QCOMPARE(result.data.triggers.size(), sampleTriggers);
        QCOMPARE(result.data.timeTriggers.size(), sampleTimeTriggers);
        QVERIFY(result.data.clock.startsWith(QStringLiteral("20")));
    }
    QVERIFY(session.isConnected());
    QVERIFY(!session.isRunning());
}

void TestUnitSession::readsAsManyPortsAsTheUnitHas()
{
    ThreadedUnit unit;
    unit.at([](ControlUnit& control, UnitServer&) {
        UnitSettings settings = control.settings();
        settings.serialPorts = 3;
        settings.ioLines = 0;
        control.setSettings(settings);
    });
    UnitSession session(unit.address());
    UnitResult result = session.run(UnitRequest::readAll());
    QCOMPARE(result.failure.text, QString());
    QCOMPARE(result.data.config.getComInfo().size(), 3);
    QCOMPARE(result.data.config.getIOType().size(), 0);
}

void TestUnitSession::readsTheDeviceAlone()
{
    ThreadedUnit unit;
    UnitSession session(unit.address());
    UnitResult result = session.run(UnitRequest::readDevice());
    QCOMPARE(result.data.device.getSN(), Q_UINT64_C(310000001));
    QCOMPARE(result.data.events.size(), 0);
    unit.at([](ControlUnit&, UnitServer& server) { QCOMPARE(server.faults().replies(), 1U); });
}

void TestUnitSession::reportsProgress()
{
    const ThreadedUnit unit;
    UnitSession session(unit.address());
    const QThread* const here = QThread::currentThread();
    QVector<UnitProgress> steps;
    session.run(UnitRequest::readAll(), [&](const UnitProgress& step) {
        QCOMPARE(QThread::currentThread(), here);
        steps.append(step);
    });
    // Steps may be passed over, but never the last of a part.
    QStringList ends;
    for (int i = 0; i < steps.size(); ++i) {
        const bool isLast = i + 1 == steps.size() || steps.at(i + 1).part != steps.at(i).part;
        if (isLast)
            ends.append(steps.at(i).text());
        QCOMPARE(isLast, steps.at(i).isPartDone());
    }
    QCOMPARE(ends,
        QStringList({QStringLiteral("device information"), QStringLiteral("serial ports"),
            QStringLiteral("IO lines"), QStringLiteral("event 32 of 32"),
            QStringLiteral("trigger 17 of 17"), QStringLiteral("time triggers: entry 17 of 17"),
            QStringLiteral("clock")}));
}

void TestUnitSession::writesConfig()
{
    ThreadedUnit unit;
    UnitSession session(unit.address());
    SystemModel config;
    ComInfo port;
    port.setBaudRate(115200);
    config.setComInfo({port});
    config.setIOType({IO_TYPE_1});
    QVERIFY(session.run(UnitRequest::writeConfig(config)));
    QCOMPARE(memoryOf(unit, Address::serialPorts, 4).toHex(), QByteArray("00c20100"));
    QCOMPARE(memoryOf(unit, Address::ioLines, 2).toHex(), QByteArray("0001"));
}

void TestUnitSession::writesEvents()
{
    ThreadedUnit unit;
    UnitSession session(unit.address());
    QString last;
    const UnitResult result = session.run(UnitRequest::writeEvents(someEvents(10)),
        [&last](const UnitProgress& step) { last = step.text(); });
    QCOMPARE(result.failure.text, QString());
    QCOMPARE(last, QStringLiteral("event 10 of 10"));
    UnitData data = session.run(UnitRequest::readAll()).data;
    QCOMPARE(data.events.size(), 10);
    QCOMPARE(data.events.at(9).getEventInstruction(), QStringLiteral("event 9"));
    QCOMPARE(data.triggers.size(), sampleTriggers);
}

void TestUnitSession::writesTriggers()
{
    ThreadedUnit unit;
    UnitSession session(unit.address());
    UnitData before = session.run(UnitRequest::readAll()).data;
    TriggerModel triggers;
    triggers.push_back(before.triggers.at(0));
    QString last;
    QVERIFY(session.run(UnitRequest::writeTriggers(triggers, before.timeTriggers),
        [&last](const UnitProgress& step) { last = step.text(); }));
    QCOMPARE(last, QStringLiteral("trigger 8 of 8"));
    UnitData after = session.run(UnitRequest::readAll()).data;
    QCOMPARE(after.triggers.size(), 1);
    QCOMPARE(after.timeTriggers.size(), sampleTimeTriggers);
}

void TestUnitSession::readsAndSetsTheClock()
{
    const ThreadedUnit unit;
    UnitSession session(unit.address());
    const QDateTime time(QDate(2031, 2, 3), QTime(4, 5, 0));
    QVERIFY(session.run(UnitRequest::setClock(time)));
    const QString clock = session.run(UnitRequest::readClock()).data.clock;
    QVERIFY2(clock.startsWith(QStringLiteral("2031/02/03 04:0")), qPrintable(clock));
}

void TestUnitSession::refusesTimes_data()
{
    QTest::addColumn<QDateTime>("time");
    QTest::newRow("none") << QDateTime();
    QTest::newRow("before") << QDateTime(QDate(1999, 12, 31), QTime(23, 59, 59));
    QTest::newRow("after") << QDateTime(QDate(2100, 1, 1), QTime(0, 0));
}

void TestUnitSession::refusesTimes()
{
    QFETCH(QDateTime, time);
    ThreadedUnit unit;
    UnitSession session(unit.address());
    const UnitResult result = session.run(UnitRequest::setClock(time));
    QCOMPARE(result.failure.error, make_error_code(LinkError::InvalidRequest));
    QCOMPARE(result.failure.text, QStringLiteral("a unit's clock runs from 2000 to 2099"));
    unit.at([](ControlUnit&, UnitServer& server) { QCOMPARE(server.faults().replies(), 0U); });
}

void TestUnitSession::setsTheNetwork()
{
    ThreadedUnit unit;
    UnitSession session(unit.address());
    const QString gateway = QStringLiteral("10.1.2.1");
    QVERIFY(session.run(UnitRequest::setNetwork(
        QStringLiteral("10.1.2.3"), QStringLiteral("255.255.255.0"), gateway)));
    DeviceModel device = session.run(UnitRequest::readDevice()).data.device;
    QCOMPARE(device.getIP(), QStringLiteral("10.1.2.3"));
    QCOMPARE(device.getGateWay(), gateway);
}

void TestUnitSession::refusesAddresses()
{
    const ThreadedUnit unit;
    UnitSession session(unit.address());
    const QString good = QStringLiteral("10.1.2.3");
    for (const char* text :
        {"", "10.1.2", "10.1.2.256", "10.1.2.3.4", "::1", "unit", "10.1.2.３"}) {
        const QString bad = QString::fromUtf8(text);
        for (const UnitRequest& request :
            {UnitRequest::setNetwork(bad, good, good), UnitRequest::setNetwork(good, bad, good),
                UnitRequest::setNetwork(good, good, bad)}) {
            const UnitResult result = session.run(request);
            QCOMPARE(result.failure.error, make_error_code(LinkError::InvalidRequest));
            QCOMPARE(result.failure.text, QStringLiteral("\"%1\" is not an IPv4 address").arg(bad));
        }
    }
}

void TestUnitSession::resets()
{
    ThreadedUnit unit;
    bool isDown = false;
    unit.at([&isDown](ControlUnit&, UnitServer& server) {
        QObject::connect(&server, &UnitServer::wentDown, &server, [&isDown] { isDown = true; });
    });
    UnitSession session(unit.address());
    QVERIFY(session.run(UnitRequest::reset(true)));
    unit.at([&isDown](ControlUnit&, UnitServer&) { QVERIFY(isDown); });
}

void TestUnitSession::resetsToTheDefaultAddress()
{
    ThreadedUnit unit;
    UnitSession session(unit.address());
    const UnitResult result = session.run(UnitRequest::reset(false));
    QCOMPARE(result.failure.text, QString());
    unit.at([](ControlUnit&, UnitServer& server) { QCOMPARE(server.faults().replies(), 1U); });
}

void TestUnitSession::awaitsTheLastReplyNoLongerThanTheLimit()
{
    const SilentUnit silent;
    UnitSession session(silent.address(), withTimeout(100));
    QVERIFY(session.run(UnitRequest::reset(false)));

    // What did not even go out is not a success.
    QTcpServer port;
    QVERIFY(port.listen(QHostAddress::LocalHost));
    const UnitAddress closed{UnitAddress::Tcp, QStringLiteral("127.0.0.1"), port.serverPort()};
    port.close();
    UnitSession other(closed);
    QCOMPARE(other.run(UnitRequest::reset(false)).failure.text,
        closed.toText() + QStringLiteral(" refused the connection"));
}

void TestUnitSession::upgrades()
{
    ThreadedUnit unit;
    UnitSession session(unit.address());
    const QByteArray streamed = QByteArray("streamed ").repeated(1000);
    const QByteArray addressed = QByteArray("addressed ").repeated(700);
    QVector<UnitProgress> steps;
    const UnitResult result = session.run(UnitRequest::upgrade(streamed, addressed),
        [&steps](const UnitProgress& step) { steps.append(step); });
    QCOMPARE(result.failure.text, QString());
    QCOMPARE(steps.last().text(), QStringLiteral("100 % sent"));
    QCOMPARE(steps.last().total, qint64(streamed.size() + addressed.size()));
    unit.at([&](ControlUnit& control, UnitServer&) {
        QCOMPARE(control.upgrade().streamedImage(), streamed);
        QCOMPARE(control.upgrade().addressedImage(), addressed);
    });
}

void TestUnitSession::writesTheRemark()
{
    ThreadedUnit unit;
    UnitSession session(unit.address());
    QVERIFY(session.run(UnitRequest::writeRemark("remark")));
    QCOMPARE(memoryOf(unit, Address::remark, 90), QByteArray("remark").leftJustified(90, '\0'));
}

void TestUnitSession::finishesBySignals()
{
    const ThreadedUnit unit;
    UnitSession session(unit.address());
    Watch watch(session);
    QVERIFY(session.start(UnitRequest::readAll()));
    QVERIFY(session.isRunning());
    QVERIFY(watch.await());
    QVERIFY(!session.isRunning());
    QCOMPARE(watch.result.failure.text, QString());
    QCOMPARE(watch.result.data.events.size(), sampleEvents);
    QVERIFY(watch.steps.contains(QStringLiteral("event 32 of 32")));
    QCOMPARE(watch.steps.last(), QStringLiteral("clock"));
}

void TestUnitSession::failsBySignals()
{
    const SilentUnit silent;
    UnitSession session(silent.address(), withTimeout(50));
    Watch watch(session);
    QVERIFY(session.start(UnitRequest::readAll()));
    QVERIFY(watch.await());
    QCOMPARE(watch.result.failure.error, make_error_code(LinkError::NoReply));
    QCOMPARE(watch.result.failure.text,
        silent.address().toText()
            + QStringLiteral(" has not answered the read of device information within 50 ms"));
}

void TestUnitSession::translatesPlaces()
{
    ThreadedUnit unit;
    unit.at([](ControlUnit&, UnitServer& server) { server.faults().addNth(FaultKind::Drop, 6); });
    UnitSession session(unit.address(), withTimeout(1000));
    ContextTranslator translator;
    QCoreApplication::installTranslator(&translator);
    const UnitResult result = session.run(UnitRequest::readAll());
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(result.failure.text,
        QStringLiteral("UnitTransport|%1 has not answered the read of Place|event 2 within 1000 ms")
            .arg(unit.address().toText()));
}

void TestUnitSession::refusesASecondOperation()
{
    const SilentUnit silent;
    UnitSession session(silent.address(), withTimeout(-1));
    Watch watch(session);
    QVERIFY(session.start(UnitRequest::readAll()));
    QVERIFY(!session.start(UnitRequest::readClock()));
    const UnitResult second = session.run(UnitRequest::readClock());
    QCOMPARE(second.failure.error, make_error_code(LinkError::Busy));
    QCOMPARE(second.failure.text,
        QStringLiteral("another operation on %1 runs").arg(silent.address().toText()));
    session.cancel();
    QVERIFY(watch.await());
}

void TestUnitSession::goesOnAfterAFailure()
{
    ThreadedUnit unit;
    unit.at([](ControlUnit&, UnitServer& server) { server.faults().addNth(FaultKind::Close, 20); });
    UnitSession session(unit.address());
    const UnitResult failed = session.run(UnitRequest::readAll());
    QCOMPARE(failed.failure.error, make_error_code(LinkError::ConnectionLost));
    QVERIFY(!session.isConnected());
    UnitResult good = session.run(UnitRequest::readAll());
    QCOMPARE(good.failure.text, QString());
    QCOMPARE(good.data.events.size(), sampleEvents);
}

void TestUnitSession::reportsContentsThatDoNotHoldTogether()
{
    ThreadedUnit unit;
    // The first event claims more command bytes than a record has.
    unit.at([](ControlUnit& control, UnitServer&) {
        control.memory().write(Address::events + 1, QByteArray("\xff\xff"));
    });
    UnitSession session(unit.address());
    const UnitResult result = session.run(UnitRequest::readAll());
    QCOMPARE(result.failure.error, make_error_code(LinkError::BadContents));
    QVERIFY(!result.failure.text.isEmpty());
}

void TestUnitSession::cancelsFromAnotherThread()
{
    const SilentUnit silent;
    UnitSession session(silent.address(), withTimeout(-1));
    std::thread canceller([&session] {
        while (!session.isRunning())
            std::this_thread::yield();
        session.cancel();
    });
    const UnitResult result = session.run(UnitRequest::readAll());
    canceller.join();
    QCOMPARE(result.failure.error, make_error_code(LinkError::Cancelled));
    QCOMPARE(result.failure.text, QStringLiteral("cancelled"));
}

void TestUnitSession::cancelsFromASignalHandler()
{
    const SilentUnit silent;
    UnitSession session(silent.address(), withTimeout(-1));
    signalledSession = &session;
    struct sigaction action = {};
    struct sigaction before = {};
    action.sa_handler = cancelSession;
    sigaction(SIGUSR1, &action, &before);
    const pthread_t here = pthread_self();
    std::thread sender([&session, here] {
        while (!session.isRunning())
            std::this_thread::yield();
        pthread_kill(here, SIGUSR1);
    });
    const UnitResult result = session.run(UnitRequest::readAll());
    sender.join();
    sigaction(SIGUSR1, &before, nullptr);
    QCOMPARE(result.failure.error, make_error_code(LinkError::Cancelled));
}

void TestUnitSession::cancelsWhatWasStarted()
{
    const SilentUnit silent;
    UnitSession session(silent.address(), withTimeout(-1));
    for (int i = 0; i < 20; ++i) {
        Watch watch(session);
        QVERIFY(session.start(UnitRequest::readAll()));
        session.cancel();
        QVERIFY(watch.await());
        QCOMPARE(watch.result.failure.error, make_error_code(LinkError::Cancelled));
    }
}

void TestUnitSession::cancelsTheWaitForTheLastReply()
{
    SilentUnit silent;
    UnitSession session(silent.address(), withTimeout(-1));
    Watch watch(session);
    QVERIFY(session.start(UnitRequest::reset(false)));
    // The request is there, and its reply will never come.
    QVERIFY(silent.waitForNewConnection(patience));
    QVERIFY(silent.nextPendingConnection()->waitForReadyRead(patience));
    session.cancel();
    QVERIFY(watch.await());
    QCOMPARE(watch.result.failure.error, make_error_code(LinkError::Cancelled));
}

void TestUnitSession::forgetsACancelWithoutAnOperation()
{
    const ThreadedUnit unit;
    UnitSession session(unit.address());
    session.cancel();
    QVERIFY(session.run(UnitRequest::readDevice()));
    session.cancel();
    QVERIFY(session.run(UnitRequest::readDevice()));
}

void TestUnitSession::abortsForGood()
{
    ThreadedUnit unit;
    UnitSession session(unit.address());
    session.abort();
    for (int i = 0; i < 2; ++i) {
        const UnitResult result = session.run(UnitRequest::readDevice());
        QCOMPARE(result.failure.error, make_error_code(LinkError::Cancelled));
    }
    unit.at([](ControlUnit&, UnitServer& server) { QCOMPARE(server.faults().replies(), 0U); });
}

void TestUnitSession::endsWhileAnOperationRuns()
{
    const SilentUnit silent;
    for (int i = 0; i < 20; ++i) {
        auto session = std::make_unique<UnitSession>(silent.address(), withTimeout(-1));
        const Watch watch(*session);
        QVERIFY(session->start(UnitRequest::readAll()));
        session.reset();
        QCoreApplication::processEvents();
        QCOMPARE(watch.closings, 0);
    }
}

void TestUnitSession::servesSeveralUnitsAtOnce()
{
    constexpr int count = 6;
    std::vector<std::unique_ptr<ThreadedUnit>> units;
    std::vector<std::unique_ptr<UnitSession>> sessions;
    std::vector<std::unique_ptr<Watch>> watches;
    for (int i = 0; i < count; ++i) {
        units.push_back(std::make_unique<ThreadedUnit>());
        units.back()->at([i](ControlUnit& control, UnitServer&) {
            UnitSettings settings = control.settings();
            settings.serialNumber = static_cast<quint64>(i) + 1;
            control.setSettings(settings);
            control.memory().write(Address::eventCount, QByteArray(1, static_cast<char>(i + 1)));
        });
        sessions.push_back(std::make_unique<UnitSession>(units.back()->address()));
    }
    for (int round = 0; round < 5; ++round) {
        watches.clear();
        for (const auto& session : sessions) {
            watches.push_back(std::make_unique<Watch>(*session));
            QVERIFY(session->start(UnitRequest::readAll()));
        }
        for (int i = 0; i < count; ++i) {
            QVERIFY(watches.at(i)->await());
            UnitData data = watches.at(i)->result.data;
            QCOMPARE(data.device.getSN(), static_cast<quint64>(i) + 1);
            QCOMPARE(data.events.size(), i + 1);
            QCOMPARE(data.triggers.size(), sampleTriggers);
        }
    }
}

void TestUnitSession::leavesTheSharedRegistryAlone()
{
    DeviceManagerModel* const shared = DeviceManagerModel::Instance();
    DeviceModel selected;
    selected.setIP(QStringLiteral("10.9.8.7"));
    shared->setCurrentSelectDevice(selected);
    const ThreadedUnit unit;
    UnitSession session(unit.address());
    QVERIFY(session.run(UnitRequest::readAll()));
    QCOMPARE(shared->getCurrentSelectDevice().getIP(), QStringLiteral("10.9.8.7"));
}

void TestUnitSession::failsWithoutDescriptors()
{
    const ThreadedUnit unit;
    std::optional<WithoutDescriptors> none(std::in_place);
    UnitSession session(unit.address());
    const UnitResult result = session.run(UnitRequest::readAll());
    Watch watch(session);
    const bool isStarted = session.start(UnitRequest::readAll());
    none.reset();

    QCOMPARE(result.failure.error, std::errc::too_many_files_open);
    const QString text =
        QStringLiteral("there is no link to %1: Too many open files").arg(unit.address().toText());
    QCOMPARE(result.failure.text, text);
    QVERIFY(isStarted);
    QVERIFY(watch.await());
    QCOMPARE(watch.result.failure.text, text);
    session.cancel();
    QVERIFY(!session.isConnected());
}

QTEST_GUILESS_MAIN(TestUnitSession)
#include "tst_unitsession.moc"
