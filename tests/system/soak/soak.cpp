// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// soak OPERATIONS SEED   runs a random mix of all operations against the simulated unit, over a
// transport that makes faults, and compares the library with its model after each. Ends with 1 at
// the first difference.

#include "faultytransport.h"
#include "librarymodel.h"
#include "randominputs.h"
#include "recordtext.h"
#include "settingsbeside.h"
#include "signallog.h"
#include "soakrun.h"
#include "unitaddresses.h"
#include "unitsample.h"

#include <QtCore/QSet>

#include <cstdio>

using namespace QuadrelUnit;

namespace {

constexpr int waitMilliseconds = 50;

/** All that an aggregate holds, as text. */
QString textOf(ModelManagement& models)
{
    return textOfModels(*models.getDeviceModel(), *models.getConfigModel(), *models.getEventModel(),
        *models.getTriggerModel(), *models.getTriggerTimeModel());
}

class Soak {
public:
    explicit Soak(quint32 seed)
        : m_random(seed)
        , m_inputs(m_random)
        , m_log(m_operations)
        , m_transport(m_operations, m_unit, seed + 1)
        , m_model(m_unit.memory())
    {
        // A clock that does not run shows what it was set to.
        m_unit.clock().setTimeSource([] { return qint64(0); });
    }
    ~Soak() { qDeleteAll(m_aggregates); }
    Soak(const Soak&) = delete;
    Soak& operator=(const Soak&) = delete;

    void runOne();
    void printSummary() const;

private:
    void placeInputs();
    void forgetModels();
    void wakeNobody();
    void begin();
    void dispatch();
    void setNetwork();
    void callDirectly();
    QVector<Exchange> closed(const std::function<bool()>& timedOut);
    void settle();
    void checkAfterwards();

    QRandomGenerator m_random;
    RandomInputs m_inputs;
    UnPackage m_operations;
    SignalLog m_log;
    ControlUnit m_unit = sampleUnit();
    FaultyTransport m_transport;
    LibraryModel m_model;
    QSet<ModelManagement*> m_aggregates;
    bool m_awaited = true;
    bool m_stalled = false;
    int m_upgrades = 0;
    int m_exchanges = 0;
    int m_stalls = 0;
    QMap<QString, int> m_endings;

    static ControlUnit sampleUnit()
    {
        ControlUnit unit;
        writeSample(unit.memory());
        return unit;
    }
};

void Soak::runOne()
{
    placeInputs();
    wakeNobody();
    m_log.entries.clear();
    const int kind = m_inputs.below(10);
    if (kind < 7)
        dispatch();
    else if (kind < 8)
        setNetwork();
    else
        callDirectly();
    checkAfterwards();
    settle();
}

void Soak::placeInputs()
{
    if (m_inputs.chance(0.3)) {
        m_model.config = m_inputs.config();
        m_operations.setConfigModel(m_model.config);
    }
    if (m_inputs.chance(0.3)) {
        m_model.events = m_inputs.events();
        m_operations.setEventModel(m_model.events);
    }
    if (m_inputs.chance(0.3)) {
        m_model.triggers = m_inputs.triggers();
        m_operations.setTriggerModel(m_model.triggers);
    }
    if (m_inputs.chance(0.3)) {
        m_model.timeTriggers = m_inputs.timeTriggers();
        m_operations.setTimeTriggerModel(m_model.timeTriggers);
    }
    if (m_inputs.chance(0.1)) {
        m_model.comNumber = m_inputs.chance(0.7) ? 9 : m_inputs.below(12);
        m_model.ioNumber = m_inputs.chance(0.7) ? 12 : m_inputs.below(16);
        m_operations.setConfigNumber(m_model.comNumber, m_model.ioNumber);
    }
    if (m_inputs.chance(0.05)) {
        DeviceModel device;
        device.setName(m_inputs.text(8));
        m_operations.setDeviceModel(device);
        m_model.setDevice(device);
    }
    if (m_inputs.chance(0.01))
        forgetModels();
    m_model.retainIp = m_inputs.chance(0.7);
    m_operations.setRetainIP(m_model.retainIp);
    m_model.clock = m_inputs.clock();
    m_operations.setTimingCheck(m_model.clock);
}

/** The application stores no models for the selected device; the library must live with that. */
void Soak::forgetModels()
{
    for (DeviceManagerModel* registry : {DeviceManagerModel::Instance(), &m_model.registry()})
        registry->setDeviceData(registry->getCurrentSelectDevice(), nullptr);
}

/** What a transport may do between operations; all of it but the failure flag goes unnoticed. */
void Soak::wakeNobody()
{
    if (m_inputs.chance(0.1))
        m_operations.quitWaitDelay();
    if (m_inputs.chance(0.1)) {
        const QByteArray reply = m_inputs.bytes(m_inputs.below(60));
        m_operations.setRecvPackage(reply);
        m_model.setReply(reply);
    }
    if (m_inputs.chance(0.05)) {
        m_operations.setError(QStringLiteral("failed between operations"));
        m_model.setError(QStringLiteral("failed between operations"));
    }
}

void Soak::begin()
{
    constexpr double shares[] = {0, 0.01, 0.05, 0.2, 0.5};
    m_transport.begin(shares[m_inputs.below(5)], m_awaited);
}

/** The exchanges of the operation that has just ended, once what the machine did is sorted out. */
QVector<Exchange> Soak::closed(const std::function<bool()>& timedOut)
{
    const auto now = std::chrono::steady_clock::now();
    QVector<Exchange> exchanges = m_transport.end();
    m_exchanges += exchanges.size();
    // On a busy machine a reply may miss its wait: the library is right to time out then, provided
    // that the time is really over.
    if (!exchanges.isEmpty() && exchanges.last().reaction.kind != ScriptedUnit::Reaction::Silence
        && now - exchanges.last().sent >= std::chrono::milliseconds(waitMilliseconds)
        && timedOut()) {
        exchanges.last().reaction = ScriptedUnit::silence();
        m_stalled = true;
        ++m_stalls;
    }
    return exchanges;
}

/** After a stall nobody knows whether the reply has still come: say what lies there. */
void Soak::settle()
{
    if (!m_stalled)
        return;
    m_stalled = false;
    m_operations.setRecvPackage(QByteArray());
    m_model.setReply(QByteArray());
    m_operations.setError(QStringLiteral("stalled"));
    m_model.setError(QStringLiteral("stalled"));
}

void Soak::dispatch()
{
    // 5 and everything above 10 has no operation.
    const auto type = static_cast<DataPackageType>(m_inputs.below(12));
    if (type == UpgradeDeviceType || type == UpdateRemarkType) {
        // Either the sizes differ from those of the upgrade before, or a cut-off upgrade could be
        // taken for going on.
        ++m_upgrades;
        const bool bothImages = m_inputs.chance(0.8);
        const QByteArray streamed =
            m_inputs.bytes(bothImages ? m_inputs.below(4000) : 4001 + m_upgrades % 4000);
        const QByteArray addressed = m_inputs.bytes(bothImages ? 8000 + m_inputs.below(9000) : 0);
        const QString name = m_inputs.text(10);
        m_operations.setUpgradePackage(streamed, addressed, name);
        m_model.setUpgrade(streamed, addressed, name);
    }
    m_awaited = type != SendResetType || m_model.retainIp;
    begin();
    m_operations.slot_runReadPackage(type);
    const QVector<Exchange> exchanges = closed([this] {
        return m_log.entries.last().startsWith(QLatin1String("errored:"))
            && m_log.entries.last().endsWith(QStringLiteral("超时！"));
    });
    m_model.dispatch(type, exchanges);
    const QString ending = m_log.entries.value(m_log.entries.size() - 1);
    ++m_endings[ending.section(QLatin1Char(':'), 0, 0)];
}

void Soak::setNetwork()
{
    const QString oldIp = m_inputs.address();
    const QString newIp = m_inputs.address();
    const QString subnet = m_inputs.address();
    const QString gateway = m_inputs.address();
    m_awaited = true;
    begin();
    m_operations.slot_SendQuadrelNetWork(oldIp, newIp, subnet, gateway);
    const QVector<Exchange> exchanges =
        closed([this] { return m_log.entries.last().endsWith(QLatin1String(",0")); });
    m_model.setNetwork(oldIp, newIp, subnet, gateway, exchanges);
    ++m_endings[QStringLiteral("finishnetwork")];
}

void Soak::callDirectly()
{
    struct Call {
        bool (UnPackage::*operation)(QString& error);
        LibraryModel::Operation model;
    };
    constexpr Call calls[] = {
        {&UnPackage::readDeviceParameter, &LibraryModel::readDevice},
        {&UnPackage::readConfigParameter, &LibraryModel::readConfig},
        {&UnPackage::sendConfig, &LibraryModel::sendConfig},
        {&UnPackage::readEventParameter, &LibraryModel::readEvents},
        {&UnPackage::sendEvent, &LibraryModel::sendEvents},
        {&UnPackage::readTriggerParameter, &LibraryModel::readTriggers},
        {&UnPackage::readTimeTriggerParameter, &LibraryModel::readTimeTriggers},
        {&UnPackage::sendTrigger, &LibraryModel::sendTriggers},
        {&UnPackage::sendTimeTrigger, &LibraryModel::sendTriggers},
        {&UnPackage::readData, &LibraryModel::readAll},
        {&UnPackage::backwordread, &LibraryModel::readClock},
        {&UnPackage::backwordwrite, &LibraryModel::sendClock},
    };
    const Call& call = calls[m_inputs.below(static_cast<int>(std::size(calls)))];
    QString error = QStringLiteral("as it was");
    QString expectedError = error;
    m_awaited = true;
    begin();
    const bool result = (m_operations.*call.operation)(error);
    const QVector<Exchange> exchanges =
        closed([&] { return !result && error.endsWith(QStringLiteral("超时！")); });
    const bool expected = m_model.callDirectly(call.model, expectedError, exchanges);
    compare("result", QString::number(result), QString::number(expected));
    compare("error", error, expectedError);
    ++m_endings[QStringLiteral("direct call")];
}

void Soak::checkAfterwards()
{
    compare("signals", m_log.entries.join(QLatin1Char('\n')),
        m_model.signalEntries().join(QLatin1Char('\n')));

    DeviceManagerModel& registry = *DeviceManagerModel::Instance();
    const DeviceModel selected = registry.getCurrentSelectDevice();
    compare(
        "selected device", textOf(selected), textOf(m_model.registry().getCurrentSelectDevice()));
    ModelManagement* models = registry.getDeviceData(selected);
    m_aggregates.insert(models);
    ModelManagement* expected = m_model.registry().getDeviceData(selected);
    const std::unique_ptr<ModelManagement> unknown(m_model.owns(expected) ? nullptr : expected);
    compare(
        "models", models ? textOf(*models) : QString(), expected ? textOf(*expected) : QString());

    if (m_unit.memory() != m_model.unit().memory())
        throw Difference{QStringLiteral("the unit's memory")};
    if (!m_model.unit().clock().isEmpty())
        compare("clock", QString::fromLatin1(m_unit.clock().cell().toHex()),
            QString::fromLatin1(m_model.unit().clock().toHex()));
}

void Soak::printSummary() const
{
    std::printf("%d exchanges, %d stalls of the machine\n", m_exchanges, m_stalls);
    for (auto it = m_endings.begin(); it != m_endings.end(); ++it)
        std::printf("%8d %s\n", it.value(), qPrintable(it.key()));
    for (auto it = m_transport.faults().begin(); it != m_transport.faults().end(); ++it)
        std::printf("%8d fault: %s\n", it.value(), it.key().constData());
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    writeSettingsBeside("[Communication]\ntimeout=" + QByteArray::number(waitMilliseconds) + '\n');
    return runSoak<Soak>("200");
}
