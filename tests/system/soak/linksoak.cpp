// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// linksoak   runs SOAK_OPERATIONS operations of a session on a simulated unit over TCP and UDP,
// with the faults of SOAK_SEED, and compares the unit with one that had the same operations without
// a fault. Ends with 1 at the first difference.

#include "memorymap.h"
#include "patience.h"
#include "randominputs.h"
#include "recordtext.h"
#include "soakrun.h"
#include "threadedunit.h"
#include "unitsession.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QMap>
#include <QtCore/QThread>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

using namespace QuadrelUnit;

namespace {

/** Milliseconds; short, so that a lost reply takes little time. */
constexpr int timeout = 60;
constexpr int restartTime = 5;

/** A write as the unit has carried it out. */
struct Write {
    quint32 address;
    QByteArray data;

    bool operator==(const Write& other) const
    {
        return address == other.address && data == other.data;
    }
    bool mayRepeat() const { return QuadrelFrame::mayRepeatWrite(address); }
};

/** What a unit keeps. */
struct State {
    UnitMemory memory;
    QByteArray clock;

    explicit State(const ControlUnit& unit)
        : memory(unit.memory())
        , clock(unit.clock().cell())
    {
    }
    bool operator==(const State& other) const
    {
        return memory == other.memory && clock == other.clock;
    }
};

/** A unit on the loopback that remembers each write, and what it held after it. */
class RecordingUnit {
public:
    RecordingUnit()
    {
        m_unit.at([this](ControlUnit& unit, UnitServer& server) {
            // A clock that does not run shows what it was set to.
            unit.clock().setTimeSource([] { return qint64(0); });
            server.setRestartTime(restartTime);
            QObject::connect(&server, &UnitServer::served, &server,
                [this, &unit](const UnitFrame& request, const QString&, const QString& fault) {
                    if (!request.isWriteRequest() || fault == QLatin1String("lose-request"))
                        return;
                    m_writes.push_back({request.address, request.payload});
                    m_states.emplace_back(unit);
                });
        });
    }

    UnitAddress address(UnitAddress::Protocol protocol) const { return m_unit.address(protocol); }

    /** Begins again with what the unit holds now. */
    void restart(const UnitFaults& faults)
    {
        m_unit.at([&](ControlUnit& unit, UnitServer& server) {
            server.faults() = faults;
            m_writes.clear();
            m_states.assign(1, State(unit));
        });
    }
    void stopFaults()
    {
        m_unit.at([](ControlUnit&, UnitServer& server) { server.faults().clear(); });
    }
    ControlUnit contents()
    {
        return looked<ControlUnit>([](ControlUnit& unit, UnitServer&) { return unit; });
    }
    void setContents(const ControlUnit& contents)
    {
        m_unit.at([&](ControlUnit& unit, UnitServer&) { unit = contents; });
    }
    std::vector<Write> writes()
    {
        return looked<std::vector<Write>>([this](ControlUnit&, UnitServer&) { return m_writes; });
    }
    /** Before the first write, and after each. */
    std::vector<State> states()
    {
        return looked<std::vector<State>>([this](ControlUnit&, UnitServer&) { return m_states; });
    }

private:
    template <typename Value, typename Look> Value looked(Look look)
    {
        std::vector<Value> found;
        m_unit.at(
            [&](ControlUnit& unit, UnitServer& server) { found.push_back(look(unit, server)); });
        return found.front();
    }

    // Of the unit's thread.
    std::vector<Write> m_writes;
    std::vector<State> m_states;
    ThreadedUnit m_unit;
};

/** Without those that came again at once, and were allowed to. */
std::vector<Write> withoutRepeats(std::vector<Write> writes)
{
    const auto isRepeat = [](const Write& one, const Write& next) {
        return one == next && next.mayRepeat();
    };
    writes.erase(std::unique(writes.begin(), writes.end(), isRepeat), writes.end());
    return writes;
}

/** Whether the link itself has failed, and not the contents of a reply or the request. */
bool isOfLink(const UnitResult& result)
{
    return result.failure && result.failure.error != LinkError::BadContents
        && result.failure.error != LinkError::InvalidRequest;
}

LinkOptions patientOptions()
{
    LinkOptions options;
    options.timeout = 5000;
    return options;
}

QString textOf(UnitData data)
{
    return data.clock + QLatin1Char('\n')
        + textOfModels(data.device, data.config, data.events, data.triggers, data.timeTriggers);
}

/** Until a unit is up and has seen every request: none comes after one that is sent now. */
void settle(const UnitAddress& address)
{
    QElapsedTimer elapsed;
    elapsed.start();
    while (!UnitSession(address, patientOptions()).run(UnitRequest::readDevice())) {
        if (elapsed.elapsed() > patience)
            throw Difference{QStringLiteral("the unit does not come back")};
        QThread::msleep(1);
    }
}

class LinkSoak {
public:
    explicit LinkSoak(quint32 seed)
        : m_random(seed)
        , m_inputs(m_random)
    {
        connectAnew();
    }

    void runOne();
    void printSummary() const;

private:
    void connectAnew();
    UnitRequest request();
    UnitFaults faults(UnitRequest::Kind kind);
    void checkResult(const UnitResult& found, const UnitResult& expected);
    void checkUnit(const UnitRequest& request, const UnitResult& result);

    QRandomGenerator m_random;
    RandomInputs m_inputs;
    RecordingUnit m_unit;
    /** The same operations reach it without a fault. */
    RecordingUnit m_model;
    UnitAddress m_address;
    std::unique_ptr<UnitSession> m_session;
    double m_share = 0;
    int m_stalls = 0;
    QMap<QString, int> m_endings;
};

void LinkSoak::connectAnew()
{
    LinkOptions options;
    options.timeout = timeout;
    options.retries = m_inputs.chance(0.3) ? LinkOptions::usualRetries : m_inputs.below(6);
    m_address = m_unit.address(m_inputs.chance(0.5) ? UnitAddress::Udp : UnitAddress::Tcp);
    m_session = std::make_unique<UnitSession>(m_address, options);
}

void LinkSoak::runOne()
{
    if (m_inputs.chance(0.1))
        connectAnew();
    const UnitRequest request = this->request();
    m_model.setContents(m_unit.contents());
    m_model.restart(UnitFaults());
    m_unit.restart(faults(request.kind()));

    const UnitResult expected =
        UnitSession(m_model.address(UnitAddress::Tcp), patientOptions()).run(request);
    if (isOfLink(expected))
        throw Difference{QStringLiteral("without a fault: ") + expected.failure.text};
    const UnitResult found = m_session->run(request);
    m_unit.stopFaults();
    settle(m_address);
    settle(m_model.address(UnitAddress::Tcp));
    checkResult(found, expected);
    checkUnit(request, found);
    ++m_endings[found ? QStringLiteral("done")
                      : QString::fromStdString(found.failure.error.message())];
}

UnitRequest LinkSoak::request()
{
    switch (m_inputs.below(11)) {
    case UnitRequest::ReadDevice:
        return UnitRequest::readDevice();
    case UnitRequest::WriteConfig:
        return UnitRequest::writeConfig(m_inputs.config());
    case UnitRequest::WriteEvents:
        return UnitRequest::writeEvents(m_inputs.events());
    case UnitRequest::WriteTriggers:
        return UnitRequest::writeTriggers(m_inputs.triggers(), m_inputs.timeTriggers());
    case UnitRequest::ReadClock:
        return UnitRequest::readClock();
    case UnitRequest::SetClock:
        return UnitRequest::setClock(
            QDateTime(QDate(2000 + m_inputs.below(100), 1 + m_inputs.below(12), 1), QTime(7, 0)));
    case UnitRequest::SetNetwork:
        return UnitRequest::setNetwork(m_inputs.address(), m_inputs.address(), m_inputs.address());
    case UnitRequest::Reset:
        return UnitRequest::reset(m_inputs.chance(0.5));
    case UnitRequest::Upgrade:
        return UnitRequest::upgrade(
            m_inputs.bytes(m_inputs.below(20'000)), m_inputs.bytes(m_inputs.below(20'000)));
    case UnitRequest::WriteRemark:
        return UnitRequest::writeRemark(m_inputs.bytes(m_inputs.below(200)));
    default:
        return UnitRequest::readAll();
    }
}

/** Up to three kinds for the next operation, or none. */
UnitFaults LinkSoak::faults(UnitRequest::Kind kind)
{
    UnitFaults faults(m_random.generate());
    constexpr double shares[] = {0, 0.01, 0.05, 0.2};
    m_share = shares[m_inputs.below(4)];
    const bool restarts = kind == UnitRequest::Reset || kind == UnitRequest::Upgrade;
    for (int i = m_inputs.below(3); i >= 0; --i) {
        const auto fault =
            static_cast<FaultKind>(m_inputs.below(static_cast<int>(FaultKind::Hang)));
        // The unit would go down in the middle of the next operation.
        if (fault != FaultKind::Delay || !restarts)
            faults.addShare(fault, m_share, 2 * timeout);
    }
    return faults;
}

void LinkSoak::checkResult(const UnitResult& found, const UnitResult& expected)
{
    if (isOfLink(found)) {
        if (!found.failure.text.startsWith(m_address.toText()))
            throw Difference{QStringLiteral("no unit named: ") + found.failure.text};
        // A machine that pauses is as good as a loss.
        if (m_share == 0 && found.failure.error == LinkError::NoReply)
            ++m_stalls;
        else if (m_share == 0)
            throw Difference{QStringLiteral("failed without a fault: ") + found.failure.text};
        return;
    }
    compare("failure", found.failure.text, expected.failure.text);
    compare("data", textOf(found.data), textOf(expected.data));
}

/** The unit has had the writes of the operation in their order: all of them, or the first few. */
void LinkSoak::checkUnit(const UnitRequest& request, const UnitResult& result)
{
    const std::vector<Write> expected = m_model.writes();
    const std::vector<Write> found = withoutRepeats(m_unit.writes());
    if (found.size() > expected.size() || !std::equal(found.begin(), found.end(), expected.begin()))
        throw Difference{QStringLiteral("other writes than without a fault")};
    // A reset to the default address is not waited for.
    if (result && found.size() < expected.size() && request.kind() != UnitRequest::Reset)
        throw Difference{QStringLiteral("done, with %1 of %2 writes")
                             .arg(QString::number(found.size()), QString::number(expected.size()))};
    if (!(State(m_unit.contents()) == m_model.states().at(found.size())))
        throw Difference{QStringLiteral("the unit's memory or clock")};
}

void LinkSoak::printSummary() const
{
    std::printf("%d stalls of the machine\n", m_stalls);
    for (auto it = m_endings.begin(); it != m_endings.end(); ++it)
        std::printf("%8d %s\n", it.value(), qPrintable(it.key()));
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    return runSoak<LinkSoak>("100");
}
