// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "threadedunit.h"
#include "unitaddresses.h"
#include "unitsession.h"

#include <QtTest/QtTest>

#include <algorithm>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

using namespace QuadrelUnit;

namespace {

/** Milliseconds; shorter than a real unit would be given, so that many losses take little time. */
constexpr int timeout = 60;
constexpr int seeds = 20;

LinkOptions withRetries(int retries)
{
    LinkOptions options;
    options.timeout = timeout;
    options.retries = retries;
    return options;
}

/** A unit over UDP that loses what it is asked to, and counts the writes that reach it. */
class LossyUnit {
public:
    explicit LossyUnit(quint32 seed)
    {
        m_unit.at([this, seed](ControlUnit&, UnitServer& server) {
            server.faults() = UnitFaults(seed);
            QObject::connect(&server, &UnitServer::served, &server,
                [this](const UnitFrame& request, const QString&, const QString& fault) {
                    const bool isLost = fault == QStringLiteral("lose-request");
                    if (request.isWriteRequest() && !isLost)
                        m_writes.append(request);
                });
        });
    }

    void add(FaultKind kind, double share, int delay = 0)
    {
        m_unit.at([=](ControlUnit&, UnitServer& server) {
            server.faults().addShare(kind, share, delay);
        });
    }
    void addNth(FaultKind kind, quint64 reply, int delay = 0)
    {
        m_unit.at(
            [=](ControlUnit&, UnitServer& server) { server.faults().addNth(kind, reply, delay); });
    }
    void addLoss(double share)
    {
        add(FaultKind::LoseRequest, share);
        add(FaultKind::Drop, share);
    }

    UnitAddress address() const { return m_unit.address(UnitAddress::Udp); }
    quint64 replies()
    {
        quint64 count = 0;
        m_unit.at([&](ControlUnit&, UnitServer& server) { count = server.faults().replies(); });
        return count;
    }
    /** How often the writes to this address have reached the unit. */
    int writesTo(quint32 address)
    {
        int count = 0;
        m_unit.at([&](ControlUnit&, UnitServer&) {
            count = static_cast<int>(std::count_if(m_writes.begin(), m_writes.end(),
                [address](const UnitFrame& write) { return write.address == address; }));
        });
        return count;
    }
    ThreadedUnit& thread() { return m_unit; }

private:
    /** Of the unit's thread. */
    QList<UnitFrame> m_writes;
    ThreadedUnit m_unit;
};

/** Runs a job for each seed at the same time, and returns what they complain of. */
QStringList forEachSeed(const std::function<QString(quint32 seed)>& job)
{
    std::vector<std::thread> threads;
    std::vector<QString> complaints(seeds);
    for (quint32 seed = 0; seed < seeds; ++seed)
        threads.emplace_back([&, seed] { complaints[seed] = job(seed + 1); });
    for (std::thread& thread : threads)
        thread.join();
    QStringList all;
    for (const QString& complaint : complaints) {
        if (!complaint.isEmpty())
            all.append(complaint);
    }
    return all;
}

bool isWholeSample(UnitData data)
{
    return data.device.getSN() == 310000001 && data.config.getComInfo().size() == 9
        && data.config.getIOType().size() == 12 && data.events.size() == sampleEvents
        && data.triggers.size() == sampleTriggers && data.timeTriggers.size() == sampleTimeTriggers;
}

} // namespace

class TestLostDatagrams : public QObject {
    Q_OBJECT

private slots:
    void readsThroughLoss_data();
    void readsThroughLoss();
    void saysWhatHasFailed_data();
    void saysWhatHasFailed();
    void writesThroughLoss();
    void takesDuplicates();
    void dropsLateReplies();
    void readsDamagedRepliesAgain();
    void repeatsAsOftenAsItIsTold_data();
    void repeatsAsOftenAsItIsTold();
    void repeatsNothingThatMayNotBe_data();
    void repeatsNothingThatMayNotBe();
    void repeatsByItselfOverUdpOnly();
    void connectsAnewToRepeatOverTcp();
};

void TestLostDatagrams::readsThroughLoss_data()
{
    QTest::addColumn<double>("share");
    QTest::newRow("2 %") << 0.02;
    QTest::newRow("10 %") << 0.1;
}

/** A thousand exchanges in a row for each seed. */
void TestLostDatagrams::readsThroughLoss()
{
    QFETCH(double, share);
    const QStringList complaints = forEachSeed([share](quint32 seed) -> QString {
        LossyUnit unit(seed);
        unit.addLoss(share);
        UnitSession session(unit.address(), withRetries(8));
        // A whole read has more than 70 exchanges.
        for (int i = 0; i < 15; ++i) {
            const UnitResult result = session.run(UnitRequest::readAll());
            if (!result || !isWholeSample(result.data))
                return QStringLiteral("seed %1, read %2: %3")
                    .arg(QString::number(seed), QString::number(i), result.failure.text);
        }
        return unit.replies() < 1000 ? QStringLiteral("seed %1: too few").arg(seed) : QString();
    });
    QCOMPARE(complaints, QStringList());
}

void TestLostDatagrams::saysWhatHasFailed_data()
{
    QTest::addColumn<int>("retries");
    QTest::newRow("three retries") << 3;
    QTest::newRow("eight retries") << 8;
}

/** At 30 % loss each way, a read ends well or says what has failed. */
void TestLostDatagrams::saysWhatHasFailed()
{
    QFETCH(int, retries);
    const QStringList complaints = forEachSeed([retries](quint32 seed) -> QString {
        LossyUnit unit(seed);
        unit.addLoss(0.3);
        UnitSession session(unit.address(), withRetries(retries));
        const UnitResult result = session.run(UnitRequest::readAll());
        if (result)
            return isWholeSample(result.data) ? QString() : QStringLiteral("not the whole unit");
        const bool isClear = result.failure.error == LinkError::NoReply
            && result.failure.text.startsWith(unit.address().toText())
            && result.failure.text.contains(QStringLiteral("has not answered"));
        return isClear ? QString() : result.failure.text;
    });
    QCOMPARE(complaints, QStringList());
}

void TestLostDatagrams::writesThroughLoss()
{
    const QStringList complaints = forEachSeed([](quint32 seed) -> QString {
        LossyUnit unit(seed);
        UnitSession session(unit.address(), withRetries(8));
        const UnitData before = session.run(UnitRequest::readAll()).data;
        unit.addLoss(0.1);
        unit.add(FaultKind::Duplicate, 0.1);
        for (const UnitRequest& request :
            {UnitRequest::writeConfig(before.config), UnitRequest::writeEvents(before.events),
                UnitRequest::writeTriggers(before.triggers, before.timeTriggers),
                UnitRequest::writeRemark("image")}) {
            const UnitResult result = session.run(request);
            if (!result)
                return result.failure.text;
        }
        const UnitResult after = session.run(UnitRequest::readAll());
        return after && isWholeSample(after.data) ? QString() : after.failure.text;
    });
    QCOMPARE(complaints, QStringList());
}

void TestLostDatagrams::takesDuplicates()
{
    LossyUnit unit(1);
    unit.add(FaultKind::Duplicate, 1);
    UnitSession session(unit.address());
    for (int i = 0; i < 5; ++i)
        QVERIFY(isWholeSample(session.run(UnitRequest::readAll()).data));
}

/** A reply that comes after its request was sent again, and one after all was given up. */
void TestLostDatagrams::dropsLateReplies()
{
    LossyUnit unit(1);
    for (quint64 reply : {3, 9, 40, 70})
        unit.addNth(FaultKind::Delay, reply, 3 * timeout);
    UnitSession session(unit.address(), withRetries(8));
    QVERIFY(isWholeSample(session.run(UnitRequest::readAll()).data));

    LossyUnit other(1);
    other.addNth(FaultKind::Delay, 1, 2 * timeout);
    UnitSession impatient(other.address(), withRetries(0));
    QCOMPARE(
        impatient.run(UnitRequest::readAll()).failure.error, make_error_code(LinkError::NoReply));
    QVERIFY(isWholeSample(impatient.run(UnitRequest::readAll()).data));
}

void TestLostDatagrams::readsDamagedRepliesAgain()
{
    for (const FaultKind kind :
        {FaultKind::Corrupt, FaultKind::Truncate, FaultKind::WrongAddress, FaultKind::WrongLabel}) {
        LossyUnit unit(7);
        unit.add(kind, 0.05);
        UnitSession session(unit.address(), withRetries(8));
        const UnitResult result = session.run(UnitRequest::readAll());
        QCOMPARE(result.failure.text, QString());
        QVERIFY(isWholeSample(result.data));
    }
}

void TestLostDatagrams::repeatsAsOftenAsItIsTold_data()
{
    QTest::addColumn<int>("retries");
    QTest::addColumn<quint64>("requests");
    QTest::newRow("never") << 0 << Q_UINT64_C(1);
    QTest::newRow("twice") << 2 << Q_UINT64_C(3);
    QTest::newRow("the usual number") << LinkOptions::usualRetries << Q_UINT64_C(4);
}

void TestLostDatagrams::repeatsAsOftenAsItIsTold()
{
    QFETCH(int, retries);
    QFETCH(quint64, requests);
    const QString times =
        requests == 1 ? QString() : QStringLiteral(" (sent %1 times)").arg(requests);
    LossyUnit unit(1);
    unit.add(FaultKind::Drop, 1);
    UnitSession session(unit.address(), withRetries(retries));
    const UnitResult result = session.run(UnitRequest::readDevice());
    QCOMPARE(result.failure.error, make_error_code(LinkError::NoReply));
    QCOMPARE(result.failure.text,
        unit.address().toText()
            + QStringLiteral(" has not answered the read of device information within 60 ms")
            + times);
    QCOMPARE(unit.replies(), requests);
}

void TestLostDatagrams::repeatsNothingThatMayNotBe_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<quint32>("address");
    QTest::addColumn<quint64>("lost");
    const auto row = [](const char* name, UnitRequest::Kind kind, quint32 address, quint64 lost) {
        QTest::newRow(name) << static_cast<int>(kind) << address << lost;
    };
    row("network", UnitRequest::SetNetwork, Address::network, 1);
    row("reset", UnitRequest::Reset, Address::reset, 1);
    row("clock", UnitRequest::SetClock, Address::clock, 1);
    row("upgrade command", UnitRequest::Upgrade, Address::upgradeCommand, 4);
    row("addressed image", UnitRequest::Upgrade, Address::addressedImage, 5);
    row("start word", UnitRequest::Upgrade, Address::upgradeStartWord, 6);
    row("streamed image", UnitRequest::Upgrade, Address::streamedImage, 12);
}

void TestLostDatagrams::repeatsNothingThatMayNotBe()
{
    QFETCH(int, kind);
    QFETCH(quint32, address);
    QFETCH(quint64, lost);
    LossyUnit unit(1);
    unit.addNth(FaultKind::Drop, lost);
    UnitSession session(unit.address(), withRetries(8));
    const QString ip = QStringLiteral("10.1.2.3");
    const auto request = [&] {
        switch (kind) {
        case UnitRequest::SetNetwork:
            return UnitRequest::setNetwork(ip, QStringLiteral("255.255.255.0"), ip);
        case UnitRequest::Reset:
            return UnitRequest::reset(true);
        case UnitRequest::SetClock:
            return UnitRequest::setClock(QDateTime(QDate(2030, 1, 1), QTime(0, 0)));
        default:
            return UnitRequest::upgrade("streamed", "addressed");
        }
    };
    const UnitResult result = session.run(request());
    QCOMPARE(result.failure.error, make_error_code(LinkError::NoReply));
    QVERIFY2(result.failure.text.contains(QStringLiteral("has not answered the write of ")),
        qPrintable(result.failure.text));
    QCOMPARE(unit.replies(), lost);
    QCOMPARE(unit.writesTo(address), 1);
}

void TestLostDatagrams::repeatsByItselfOverUdpOnly()
{
    ThreadedUnit unit;
    unit.at([](ControlUnit&, UnitServer& server) { server.faults().addShare(FaultKind::Drop, 1); });
    UnitSession session(unit.address(), withRetries(LinkOptions::usualRetries));
    QCOMPARE(
        session.run(UnitRequest::readDevice()).failure.error, make_error_code(LinkError::NoReply));
    unit.at([](ControlUnit&, UnitServer& server) { QCOMPARE(server.faults().replies(), 1U); });
}

void TestLostDatagrams::connectsAnewToRepeatOverTcp()
{
    for (const FaultKind kind :
        {FaultKind::Drop, FaultKind::Close, FaultKind::Cut, FaultKind::Corrupt}) {
        ThreadedUnit unit;
        unit.at([kind](ControlUnit&, UnitServer& server) { server.faults().addNth(kind, 5); });
        UnitSession session(unit.address(), withRetries(2));
        const UnitResult result = session.run(UnitRequest::readAll());
        QCOMPARE(result.failure.text, QString());
        QVERIFY(isWholeSample(result.data));
    }
}

QTEST_GUILESS_MAIN(TestLostDatagrams)
#include "tst_lostdatagrams.moc"
