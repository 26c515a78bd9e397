// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "contexttranslator.h"
#include "devicemanagermodel.h"
#include "modelmanagement.h"
#include "packageevent.h"
#include "packagetimetrigger.h"
#include "packagetrigger.h"
#include "patience.h"
#include "protocolcreate.h"
#include "recordingcomm/recordedrequest.h"
#include "replyframes.h"
#include "scriptedunit.h"
#include "settingsbeside.h"
#include "signallog.h"
#include "unpackage.h"
#include "unpackageaccess.h"

#include <QtCore/QEventLoop>
#include <QtCore/QMetaMethod>
#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtTest/QtTest>

#include <memory>
#include <numeric>

namespace {

using Reaction = ScriptedUnit::Reaction;

const quint32 tableLimit = 64;

/** What a unit stores: a block for each address that a test reads. */
using Memory = QMap<quint32, QByteArray>;

/** The reply of a faithful unit: the block of a read, padded with 0, or the receipt of a write. */
QByteArray faithfulReply(const Memory& memory, const RecordedRequest& request)
{
    if (request.write)
        return replyFrame(request.address, QByteArray());
    QByteArray block = memory.value(request.address);
    block = block.leftJustified(static_cast<int>(request.length), '\0', true);
    return replyFrame(request.address, block);
}

EventInfo makeEvent(int id, const QString& instruction)
{
    EventInfo event;
    event.setEventId(id);
    event.setEventProtocol(QStringLiteral("4c 01 00 25 10 03 52 01"));
    event.setEventInstruction(instruction);
    return event;
}

EventModel makeEvents(int count)
{
    EventModel model;
    for (int i = 0; i < count; ++i)
        model.push_back(makeEvent(i + 1, QStringLiteral("event %1").arg(i)));
    return model;
}

TriggerModel makeTriggers(int count)
{
    TriggerModel model;
    for (int i = 0; i < count; ++i) {
        TriggerInfo trigger;
        trigger.setTriggerParameter(QStringLiteral("aa %1").arg(i % 256, 2, 16, QLatin1Char('0')));
        trigger.setTriggerEvent(QStringLiteral("(ID:%1)").arg(i % 256));
        model.push_back(trigger);
    }
    return model;
}

TriggerTimeModel makeTimeTriggers(int count)
{
    TriggerTimeModel model;
    for (int i = 0; i < count; ++i) {
        TriggerTimeInfo trigger;
        trigger.setStartDate(QStringLiteral("2024/03/07"));
        trigger.setEndDate(QStringLiteral("永久有效"));
        trigger.setTriggerTime(QStringLiteral("08:%1").arg(i % 60, 2, 10, QLatin1Char('0')));
        trigger.setSelectWeekly(QStringLiteral("101"));
        trigger.setTriggerEvent(QStringLiteral("(ID:3)"));
        model.push_back(trigger);
    }
    return model;
}

SystemModel makeConfiguration(int ports, int lines)
{
    QList<ComInfo> serial;
    for (int i = 0; i < ports; ++i) {
        ComInfo port;
        port.setBaudRate(9600 + i);
        serial.append(port);
    }
    QList<IOType> io;
    for (int i = 0; i < lines; ++i)
        io.append(static_cast<IOType>(i % 3));
    SystemModel model;
    model.setComInfo(serial);
    model.setIOType(io);
    return model;
}

/** The information block of a unit at the address 10.0.0.`host`. */
QByteArray informationBlock(int host)
{
    QByteArray block(32, '\0');
    block[0] = 0x09;
    block[1] = 0x72;
    block[15] = static_cast<char>(host);
    block[18] = 10;
    return block;
}

/** A unit that holds `events` events, and `triggers` and `timeTriggers` in its one table. */
Memory makeMemory(int events, int triggers, int timeTriggers)
{
    Memory memory;
    memory[0xF0000000] = informationBlock(7);
    const SystemModel configuration = makeConfiguration(9, 12);
    memory[0xF0001000] = ProtocolCreate::createComPackage(configuration);
    memory[0xF0001100] = ProtocolCreate::createIOPackage(configuration);
    memory[0xF0020000] = QByteArray(1, static_cast<char>(events));
    EventModel eventModel = makeEvents(events);
    for (int i = 0; i < events; ++i)
        memory[0xF0020001 + 512 * static_cast<quint32>(i)] =
            PackageEvent::createEventPackage(eventModel.at(i));
    memory[0xF0010000] = QByteArray(1, static_cast<char>(triggers + timeTriggers));
    quint32 slot = 0xF0010001;
    TriggerModel triggerModel = makeTriggers(triggers);
    for (int i = 0; i < triggers; ++i, slot += 512)
        memory[slot] = PackageTrigger::createTriggerPackage(triggerModel.at(i));
    TriggerTimeModel timeModel = makeTimeTriggers(timeTriggers);
    for (int i = 0; i < timeTriggers; ++i, slot += 512)
        memory[slot] = PackageTimeTrigger::createTimeTriggerPackage(timeModel.at(i));
    memory[0x02000011] = QByteArray::fromHex("260109070503");
    return memory;
}

void selectDevice(const QString& ip)
{
    DeviceModel device;
    device.setIP(ip);
    DeviceManagerModel::Instance()->setCurrentSelectDevice(device);
}

ModelManagement* selectedModels()
{
    auto* registry = DeviceManagerModel::Instance();
    return registry->getDeviceData(registry->getCurrentSelectDevice());
}

/** Each read of a unit keeps the aggregate of the one before; here someone remembers it. */
void rememberSelectedModels()
{
    static auto* const remembered = new QVector<ModelManagement*>;
    remembered->append(selectedModels());
}

/** An operations object with its own wait time, the log of its signals and a unit. */
class Bench {
public:
    explicit Bench(const Memory& memory = Memory(), int timeout = -1)
        : Bench([memory](const RecordedRequest& request,
                    int) { return ScriptedUnit::reply(faithfulReply(memory, request)); },
            timeout)
    {
    }

    explicit Bench(std::function<Reaction(const RecordedRequest&, int)> script, int timeout = -1)
    {
        writeSettingsBeside("[Communication]\ntimeout=" + QByteArray::number(timeout) + "\n");
        operations = std::make_unique<UnPackage>();
        log = std::make_unique<SignalLog>(*operations);
        QObject::connect(operations.get(), &UnPackage::signal_updateDeviced, operations.get(),
            &rememberSelectedModels, Qt::DirectConnection);
        unit = std::make_unique<ScriptedUnit>(
            *operations, [script](const QByteArray& frame, int number) {
                return script(RecordedRequest::fromFrame(frame), number);
            });
    }

    void run(DataPackageType type)
    {
        operations->slot_runReadPackage(type);
        unit->operationClosed();
    }

    bool call(bool (UnPackage::*operation)(QString&), QString& error)
    {
        const bool result = (operations.get()->*operation)(error);
        unit->operationClosed();
        return result;
    }

    QVector<RecordedRequest> requests()
    {
        QVector<RecordedRequest> all;
        for (const QByteArray& frame : unit->frames())
            all.append(RecordedRequest::fromFrame(frame));
        return all;
    }

    /** The frames in short, as in "r F0001000 63" and "w F0020000 1". */
    QStringList traffic()
    {
        QStringList lines;
        for (const RecordedRequest& request : requests())
            lines.append(QStringLiteral("%1 %2 %3")
                             .arg(request.write ? QStringLiteral("w") : QStringLiteral("r"))
                             .arg(request.address, 8, 16, QLatin1Char('0'))
                             .arg(request.length));
        return lines;
    }

    std::unique_ptr<UnPackage> operations;
    std::unique_ptr<SignalLog> log;
    std::unique_ptr<ScriptedUnit> unit;
};

/**
 * A wait that must run out is short, and on a busy machine another one may then run out too. How
 * often a test tries before it fails.
 */
constexpr int attempts = 10;

/** Whether `attempt` succeeds with one of several waits, in ms, each twice as long as the last. */
bool succeedsWithAWait(const std::function<bool(int wait)>& attempt)
{
    int wait = 40;
    for (int i = 0; i < attempts; ++i, wait *= 2) {
        if (attempt(wait))
            return true;
    }
    return false;
}

/** Answers like a unit with this memory, but fails at one frame. */
Bench failingAt(int failing, const Memory& memory)
{
    return Bench([=](const RecordedRequest& request, int number) {
        return number == failing ? ScriptedUnit::failure(QStringLiteral("断线"))
                                 : ScriptedUnit::reply(faithfulReply(memory, request));
    });
}

} // namespace

Q_DECLARE_METATYPE(Memory)

class TestUnPackage : public QObject {
    Q_OBJECT

private slots:
    void init();

    void metaObject_data();
    void metaObject();
    void metaType();
    void singleton();
    void settings_data();
    void settings();
    void labels();
    void labelsOfRequests();

    void waitTimesOut();
    void waitReplies();
    void waitFails();
    void waitBareWake();
    void waitEarlyReplyIsLost();
    void waitWithoutLimit();
    void waitOfTheLink_data();
    void waitOfTheLink();
    void registryOfItsOwn();
    void errorStaysUntilNextRun();
    void sendPackage();

    void dispatchWithoutOperation_data();
    void dispatchWithoutOperation();
    void dispatchSuccess_data();
    void dispatchSuccess();
    void dispatchResetsState();
    void dispatchTellsTheDeviceOfTheStart();
    void dispatchOnAWorkerThread();

    void readDevice();
    void readDeviceFillsThePlacedRecord();
    void readDeviceFailureChangesNothing();
    void readDeviceKeepsOldAggregate();
    void readDeviceStaleReply();

    void sendConfig();
    void sendConfigTakesLinesAfterPorts();
    void sendConfigEmptyLists();
    void sendConfigWithoutModels();
    void readConfig();
    void configNumber();
    void configNumberIsNotChecked_data();
    void configNumberIsNotChecked();
    void readConfigSecondBlockFails();

    void sendEvent_data();
    void sendEvent();
    void sendEventBlocks();
    void readEventsCounts_data();
    void readEventsCounts();
    void readEventsAppends();
    void readEventsFailureKeepsWhatWasRead();

    void sendTrigger_data();
    void sendTrigger();
    void sendTriggerMixedBatch();
    void sendTriggerManyTriggers_data();
    void sendTriggerManyTriggers();
    void sendTimeTriggerIsSendTrigger();
    void readTriggersCounts_data();
    void readTriggersCounts();
    void readTriggersNumbersEachKind();

    void readTriggersFailureLeavesThemUnnumbered();
    void readTimeTriggersFailureLeavesThemUnnumbered();
    void failedWriteLeavesTheRegistry_data();
    void failedWriteLeavesTheRegistry();

    void readDataEmptyUnit();
    void readDataFullUnit();
    void readDataTwice();
    void readDataFailingEvents();
    void readDataEmptiesListsButNotTheConfiguration();
    void unknownDeviceGetsAggregate();

    void clockRead_data();
    void clockRead();
    void clockShortReply();
    void clockForeignReplyIsAccepted();
    void clockWrite_data();
    void clockWrite();
    void clockWriteReportsBeforeReply();

    void setBytesFromInt_data();
    void setBytesFromInt();
    void network();
    void networkBadAddresses_data();
    void networkBadAddresses();
    void networkFailures();
    void networkErrorStaysSet();
    void reset_data();
    void reset();
    void resetWithoutUnit();

    void upgradeControlWords();
    void upgradeSizes_data();
    void upgradeSizes();
    void upgradeSecondRun();
    void upgradeFailsMidway();
    void upgradeNewPackageStartsOver();
    void progress_data();
    void progress();
    void remark_data();
    void remark();
    void remarkTwice();

    void faults_data();
    void faults();
    void lateReply();

    void labelsTranslated_data();
    void labelsTranslated();
    void networkLabelTranslated();
    void messagesTranslated();
};

void TestUnPackage::init()
{
    selectDevice(QStringLiteral("192.168.1.10"));
}

void TestUnPackage::metaObject_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("signature");
    QTest::addColumn<QString>("names");
    const struct {
        const char* signature;
        const char* names;
    } methods[] = {
        {"signal_errored(QString)", "error"},
        {"signal_readFinished(DeviceModel)", ""},
        {"signal_finshed(DeviceModel)", ""},
        {"signal_sendPackage(QByteArray)", "package"},
        {"signal_finshedUpgrade(QString)", ""},
        {"signal_finshedUpdateRemark()", ""},
        {"signal_updateProgress(QString)", "progress"},
        {"signal_backread(QString)", "read"},
        {"signal_ConnectDevice(QString)", "ip"},
        {"signal_updateConfiged()", ""},
        {"signal_updateEvented()", ""},
        {"signal_updateTriggered()", ""},
        {"signal_updateTimeTriggered()", ""},
        {"signal_updateDeviced()", ""},
        {"signal_updateProjected()", ""},
        {"signal_upGraded(QString)", ""},
        {"signal_reseted(bool)", ""},
        {"signal_backwardwrite()", ""},
        {"signal_backwardread()", ""},
        {"signal_finishnetwork(QString,QString,bool)", "oldIp,newIp,result"},
        {"slot_runReadPackage(DataPackageType)", "type"},
        {"slot_SendQuadrelNetWork(QString,QString,QString,QString)", "oldIp,newIp,subnet,gateway"},
    };
    int index = 0;
    for (const auto& method : methods)
        QTest::newRow(method.signature) << index++ << QString::fromLatin1(method.signature)
                                        << QString::fromLatin1(method.names);
}

void TestUnPackage::metaObject()
{
    QFETCH(int, index);
    QFETCH(QString, signature);
    QFETCH(QString, names);
    const QMetaObject& meta = UnPackage::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 22);
    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 0);
    const QMetaMethod method = meta.method(meta.methodOffset() + index);
    QCOMPARE(QString::fromLatin1(method.methodSignature()), signature);
    QCOMPARE(QString::fromLatin1(method.parameterNames().join(',')), names);
    const bool isSlot = index >= 20;
    QCOMPARE(method.methodType(), isSlot ? QMetaMethod::Slot : QMetaMethod::Signal);
    QCOMPARE(method.access(), QMetaMethod::Public);
}

void TestUnPackage::metaType()
{
    const int type = QMetaType::type("DataPackageType");
    QVERIFY(type != QMetaType::UnknownType);
    QCOMPARE(type, qMetaTypeId<DataPackageType>());
    QCOMPARE(QMetaType::sizeOf(type), 4);
}

void TestUnPackage::singleton()
{
    QVERIFY(UnPackage::Instance() != nullptr);
    QCOMPARE(UnPackage::Instance(), UnPackage::Instance());
    QVERIFY(UnPackage::Instance()->parent() == nullptr);
    QObject parent;
    auto* own = new UnPackage(&parent);
    QVERIFY(own != UnPackage::Instance());
    QCOMPARE(own->parent(), &parent);
}

void TestUnPackage::settings_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::newRow("no key") << QByteArray("[Search]\ntimeout=5000\n");
    QTest::newRow("no number") << QByteArray("[Communication]\ntimeout=soon\n");
    QTest::newRow("zero") << QByteArray("[Communication]\ntimeout=0\n");
    for (const char* value : {"-2", "-1000", "-2147483648", "4294967296", "1,2", "@Invalid()"})
        QTest::newRow(value) << "[Communication]\ntimeout=" + QByteArray(value) + "\n";
    QTest::newRow("key of another group") << QByteArray("timeout=-1\n[Upgrade]\ntimeout=-1\n");
    QTest::newRow("not a settings file") << QByteArray("\x00\xff\xfe]]=[\n", 8);
    QTest::newRow("empty") << QByteArray();
}

void TestUnPackage::settings()
{
    QFETCH(QByteArray, contents);
    writeSettingsBeside(contents);
    UnPackage operations;
    SignalLog log(operations);
    operations.slot_runReadPackage(ReadDataType);
    QCOMPARE(log.entries, QStringList{QStringLiteral("errored:回读设备信息超时！")});
}

void TestUnPackage::labels()
{
    UnPackage operations;
    for (int round = 0; round < 3; ++round) {
        for (int label = 0; label < 255; ++label)
            QCOMPARE(int(operations.getLabels()), label);
    }
}

void TestUnPackage::labelsOfRequests()
{
    Bench bench(makeMemory(3, 2, 1));
    for (int run = 0; run < 20; ++run)
        bench.run(ReadDataType);
    const auto requests = bench.requests();
    QCOMPARE(requests.size(), 20 * (3 + 4 + 4 + 4 + 1));
    for (int i = 0; i < requests.size(); ++i)
        QCOMPARE(int(requests.at(i).label), i % 255);
}

void TestUnPackage::waitTimesOut()
{
    writeSettingsBeside("[Communication]\ntimeout=0\n");
    UnPackage operations;
    QString error = QStringLiteral("before");
    QVERIFY(!operations.waitResponsed(QStringLiteral("步骤"), error));
    QCOMPARE(error, QStringLiteral("步骤超时！"));
}

void TestUnPackage::waitReplies()
{
    Bench bench;
    QString error = QStringLiteral("before");
    bench.operations->sendPackage(RecordedRequest().toFrame());
    QVERIFY(bench.operations->waitResponsed(QStringLiteral("步骤"), error));
    QCOMPARE(error, QStringLiteral("before"));
}

void TestUnPackage::waitFails()
{
    Bench bench([](const RecordedRequest&, int) {
        return ScriptedUnit::failure(QStringLiteral("连接已断开"));
    });
    QString error;
    QVERIFY(!bench.call(&UnPackage::sendConfig, error));
    QCOMPARE(error, QStringLiteral("连接已断开"));
}

void TestUnPackage::waitBareWake()
{
    Bench bench([](const RecordedRequest&, int) { return ScriptedUnit::wake(); });
    bench.run(SendConfigType);
    QCOMPARE(bench.log->entries.last(), QStringLiteral("finshed:192.168.1.10"));
    bench.log->entries.clear();
    bench.run(ReadDataType);
    QCOMPARE(
        bench.log->entries, QStringList{QStringLiteral("errored:数据包长度小于最小数据包长度！")});
}

void TestUnPackage::waitEarlyReplyIsLost()
{
    writeSettingsBeside("[Communication]\ntimeout=1\n");
    UnPackage operations;
    SignalLog log(operations);
    connect(&operations, &UnPackage::signal_sendPackage, &operations, [&](const QByteArray& frame) {
        operations.setRecvPackage(faithfulReply(Memory(), RecordedRequest::fromFrame(frame)));
    });
    operations.slot_runReadPackage(SendConfigType);
    QCOMPARE(log.entries, QStringList{QStringLiteral("errored:配置参数超时！")});
}

void TestUnPackage::waitWithoutLimit()
{
    // The wake comes only long after the time that the settings file allows.
    const auto lateWake = [](const RecordedRequest&, int) {
        QThread::msleep(20);
        return ScriptedUnit::wake();
    };
    Bench unlimited(lateWake, 0);
    UnPackageAccess::setUnlimitedWait(*unlimited.operations);
    QString error = QStringLiteral("before");
    QVERIFY(unlimited.call(&UnPackage::sendConfig, error));
    QCOMPARE(error, QStringLiteral("before"));

    // Each other object keeps its own.
    UnPackage other;
    QVERIFY(!other.sendConfig(error));
    QCOMPARE(error, QStringLiteral("配置参数超时！"));
    QVERIFY(!UnPackage::Instance()->sendConfig(error));
    QCOMPARE(error, QStringLiteral("配置参数超时！"));
}

void TestUnPackage::waitOfTheLink_data()
{
    QTest::addColumn<bool>("isWoken");
    QTest::addColumn<QString>("failure");
    QTest::addColumn<QString>("error");
    const QString before = QStringLiteral("before");
    const QString broken = QStringLiteral("线路故障");
    QTest::newRow("answered") << true << QString() << before;
    QTest::newRow("failed") << true << broken << broken;
    QTest::newRow("out of time") << false << QString() << QStringLiteral("配置参数超时！");
    QTest::newRow("failed, but out of time") << false << broken << QStringLiteral("配置参数超时！");
}

void TestUnPackage::waitOfTheLink()
{
    QFETCH(bool, isWoken);
    QFETCH(QString, failure);
    QFETCH(QString, error);
    struct Wait : ReplyWait {
        bool await(int milliseconds) override
        {
            waits.append(milliseconds);
            if (!failure.isEmpty())
                UnPackageAccess::setFailure(*operations, failure);
            return isWoken;
        }
        void wake() override { ++wakes; }

        UnPackage* operations = nullptr;
        bool isWoken = false;
        QString failure;
        QList<int> waits;
        int wakes = 0;
    };
    writeSettingsBeside("[Communication]\ntimeout=70\n");
    UnPackage operations;
    Wait wait;
    wait.operations = &operations;
    wait.isWoken = isWoken;
    wait.failure = failure;
    const UnPackageLink link{&wait, nullptr};
    UnPackageAccess::setLink(operations, &link);

    // On one thread: nobody else wakes it.
    QString result = QStringLiteral("before");
    QCOMPARE(operations.sendConfig(result), error == result);
    QCOMPARE(result, error);
    QCOMPARE(wait.waits, (isWoken && failure.isEmpty() ? QList<int>{70, 70} : QList<int>{70}));
    QCOMPARE(wait.wakes, 0);
    operations.quitWaitDelay();
    operations.setRecvPackage(QByteArray());
    operations.setError(QString());
    QCOMPARE(wait.wakes, 3);
}

void TestUnPackage::registryOfItsOwn()
{
    selectDevice(QStringLiteral("10.0.0.1"));
    DeviceManagerModel registry;
    Bench bench(makeMemory(3, 2, 1));
    const UnPackageLink link{nullptr, &registry};
    UnPackageAccess::setLink(*bench.operations, &link);
    bench.run(ReadDataType);
    DeviceModel device = registry.getCurrentSelectDevice();
    QCOMPARE(device.getIP(), QStringLiteral("10.0.0.7"));
    const std::unique_ptr<ModelManagement> models(registry.getDeviceData(device));
    QCOMPARE(models->getEventModel()->size(), 3);
    QCOMPARE(models->getTriggerTimeModel()->size(), 1);
    QCOMPARE(bench.log->entries.last(), QStringLiteral("readFinished:10.0.0.7"));
    DeviceManagerModel* const shared = DeviceManagerModel::Instance();
    QCOMPARE(shared->getCurrentSelectDevice().getIP(), QStringLiteral("10.0.0.1"));

    UnPackageAccess::setLink(*bench.operations, nullptr);
    bench.run(ReadDataType);
    QCOMPARE(shared->getCurrentSelectDevice().getIP(), QStringLiteral("10.0.0.7"));
}

void TestUnPackage::errorStaysUntilNextRun()
{
    Bench bench;
    bench.operations->setError(QStringLiteral("线路故障"));
    QString error;
    QVERIFY(!bench.call(&UnPackage::sendConfig, error));
    QCOMPARE(error, QStringLiteral("线路故障"));
    QVERIFY(!bench.call(&UnPackage::backwordread, error));
    QCOMPARE(error, QStringLiteral("线路故障"));
    bench.run(SendConfigType);
    QCOMPARE(bench.log->entries.last(), QStringLiteral("finshed:192.168.1.10"));

    writeSettingsBeside("[Communication]\ntimeout=0\n");
    UnPackage impatient;
    impatient.setError(QStringLiteral("线路故障"));
    QVERIFY(!impatient.sendConfig(error));
    QCOMPARE(error, QStringLiteral("配置参数超时！"));
}

void TestUnPackage::sendPackage()
{
    UnPackage operations;
    QByteArray sent;
    connect(&operations, &UnPackage::signal_sendPackage, &operations,
        [&](const QByteArray& frame) { sent = frame; });
    operations.sendPackage(QByteArray("any bytes"));
    QCOMPARE(sent, QByteArray("any bytes"));
}

void TestUnPackage::dispatchWithoutOperation_data()
{
    QTest::addColumn<int>("value");
    for (int value : {5, 11, 12, 255, -1, 0x7FFFFFFF})
        QTest::newRow(qPrintable(QString::number(value))) << value;
}

void TestUnPackage::dispatchWithoutOperation()
{
    QFETCH(int, value);
    selectDevice(QStringLiteral("10.1.2.3"));
    Bench bench;
    const int raw = value;
    DataPackageType type = ReservedType;
    memcpy(&type, &raw, sizeof type);
    bench.run(type);
    QCOMPARE(bench.log->entries, QStringList{QStringLiteral("finshed:10.1.2.3")});
    QVERIFY(bench.unit->frames().isEmpty());
}

void TestUnPackage::dispatchSuccess_data()
{
    QTest::addColumn<DataPackageType>("type");
    QTest::addColumn<QString>("closing");
    QTest::addColumn<QString>("firstFrame");
    const QString finished = QStringLiteral("finshed:192.168.1.10");
    QTest::newRow("0") << SendConfigType << finished << "w f0001000 0";
    QTest::newRow("1") << SendEventType << finished << "w f0020000 1";
    QTest::newRow("2") << SendTriggerType << finished << "w f0010000 1";
    QTest::newRow("3") << SendTimeTriggerType << finished << "w f0010000 1";
    QTest::newRow("4") << ReadDataType << "readFinished:10.0.0.7"
                       << "r f0000000 32";
    QTest::newRow("6") << SendResetType << finished << "w f000001c 1";
    QTest::newRow("7") << UpgradeDeviceType << "finshedUpgrade:name"
                       << "w 01f00000 4";
    QTest::newRow("8") << UpdateRemarkType << "finshedUpdateRemark"
                       << "w 18201000 90";
    QTest::newRow("9") << BackwordReadType << finished << "r 02000011 6";
    QTest::newRow("10") << BackwordWriteType << finished << "w 02000011 6";
}

void TestUnPackage::dispatchSuccess()
{
    QFETCH(DataPackageType, type);
    QFETCH(QString, closing);
    QFETCH(QString, firstFrame);
    Bench bench(makeMemory(0, 0, 0));
    bench.operations->setUpgradePackage(QByteArray(), QByteArray(), QStringLiteral("name"));
    bench.run(type);
    QCOMPARE(bench.log->entries.last(), closing);
    QCOMPARE(bench.log->entries.filter(QStringLiteral("errored")), QStringList());
    QCOMPARE(bench.traffic().first(), firstFrame);
    for (const RecordedRequest& request : bench.requests()) {
        QVERIFY(request.text.isEmpty());
        if (request.write)
            QCOMPARE(int(request.length), request.data.size());
    }
}

void TestUnPackage::dispatchTellsTheDeviceOfTheStart()
{
    const Memory memory = makeMemory(0, 0, 0);
    Bench bench([memory](const RecordedRequest& request, int) {
        selectDevice(QStringLiteral("10.3.3.3"));
        return ScriptedUnit::reply(faithfulReply(memory, request));
    });
    bench.run(BackwordReadType);
    QCOMPARE(bench.log->entries.last(), QStringLiteral("finshed:192.168.1.10"));
    QCOMPARE(DeviceManagerModel::Instance()->getCurrentSelectDevice().getIP(),
        QStringLiteral("10.3.3.3"));
}

/** As an application does it: slots reached and signals taken through queued connections. */
void TestUnPackage::dispatchOnAWorkerThread()
{
    Bench bench(makeMemory(2, 1, 1));
    UnPackage* operations = bench.operations.get();
    QThread worker;
    operations->moveToThread(&worker);
    worker.start();

    const QThread* emitter = nullptr;
    connect(
        operations, &UnPackage::signal_readFinished, operations,
        [&] { emitter = QThread::currentThread(); }, Qt::DirectConnection);
    QString closing;
    QEventLoop loop;
    connect(operations, &UnPackage::signal_readFinished, &loop, [&](DeviceModel device) {
        closing = device.getIP();
        loop.quit();
    });
    connect(operations, &UnPackage::signal_errored, &loop, [&](const QString& error) {
        closing = error;
        loop.quit();
    });
    QVERIFY(QMetaObject::invokeMethod(operations, "slot_runReadPackage", Qt::QueuedConnection,
        Q_ARG(DataPackageType, ReadDataType)));
    QTimer::singleShot(patience, &loop, &QEventLoop::quit);
    loop.exec();
    bench.unit->operationClosed();
    worker.quit();
    worker.wait();
    QCOMPARE(closing, QStringLiteral("10.0.0.7"));
    QCOMPARE(emitter, &worker);
    QCOMPARE(selectedModels()->getEventModel()->size(), 2);
}

void TestUnPackage::dispatchResetsState()
{
    // A wake without a reply decodes the buffer: the slot must have emptied it, and cleared the
    // error.
    Bench bench([](const RecordedRequest&, int) { return ScriptedUnit::wake(); });
    bench.operations->setRecvPackage(replyFrame(0xF0000000, informationBlock(9)));
    bench.operations->setError(QStringLiteral("alt"));
    bench.run(ReadDataType);
    QCOMPARE(
        bench.log->entries, QStringList{QStringLiteral("errored:数据包长度小于最小数据包长度！")});
}

void TestUnPackage::readDevice()
{
    Bench bench(makeMemory(0, 0, 0));
    QString error = QStringLiteral("before");
    QVERIFY(bench.call(&UnPackage::readDeviceParameter, error));
    QCOMPARE(error, QStringLiteral("before"));
    QCOMPARE(bench.traffic(), QStringList{QStringLiteral("r f0000000 32")});
    QCOMPARE(bench.log->entries, QStringList{QStringLiteral("updateDeviced")});
    DeviceModel device = DeviceManagerModel::Instance()->getCurrentSelectDevice();
    QCOMPARE(device.getIP(), QStringLiteral("10.0.0.7"));
    QCOMPARE(device.getModelId(), quint16(0x7209));
    QVERIFY(*selectedModels()->getDeviceModel() == device);
}

void TestUnPackage::readDeviceFillsThePlacedRecord()
{
    Bench bench(makeMemory(0, 0, 0));
    DeviceModel placed;
    placed.setName(QStringLiteral("Halle 3"));
    placed.setPattern(QStringLiteral("pattern"));
    placed.setType(QStringLiteral("type"));
    bench.operations->setDeviceModel(placed);
    QString error;
    QVERIFY(bench.call(&UnPackage::readDeviceParameter, error));
    DeviceModel device = DeviceManagerModel::Instance()->getCurrentSelectDevice();
    QCOMPARE(device.getName(), QStringLiteral("Halle 3"));
    QCOMPARE(device.getPattern(), QStringLiteral("pattern"));
    QCOMPARE(device.getType(), QStringLiteral("type"));
    QCOMPARE(device.getIP(), QStringLiteral("10.0.0.7"));
}

void TestUnPackage::readDeviceFailureChangesNothing()
{
    Bench bench([](const RecordedRequest& request, int) {
        return ScriptedUnit::reply(replyFrame(request.address, informationBlock(7).left(31)));
    });
    QString error;
    QVERIFY(!bench.call(&UnPackage::readDeviceParameter, error));
    QCOMPARE(error, QStringLiteral("数据包长度与实际的数据包长度不一致！"));
    QVERIFY(bench.log->entries.isEmpty());
    QCOMPARE(DeviceManagerModel::Instance()->getCurrentSelectDevice().getIP(),
        QStringLiteral("192.168.1.10"));
}

void TestUnPackage::readDeviceKeepsOldAggregate()
{
    Bench bench(makeMemory(0, 0, 0));
    QString error;
    QVERIFY(bench.call(&UnPackage::readDeviceParameter, error));
    ModelManagement* first = selectedModels();
    first->setTriggerType(true);
    QVERIFY(bench.call(&UnPackage::readDeviceParameter, error));
    QVERIFY(selectedModels() != first);
    QVERIFY(first->getTriggerType());
    QCOMPARE(first->getDeviceModel()->getIP(), QStringLiteral("10.0.0.7"));
}

void TestUnPackage::readDeviceStaleReply()
{
    // The reply of the step before is still in the buffer when a bare wake ends the next one.
    const Memory memory = makeMemory(0, 0, 0);
    Bench bench([memory](const RecordedRequest& request, int number) {
        return number == 0 ? ScriptedUnit::reply(faithfulReply(memory, request))
                           : ScriptedUnit::wake();
    });
    bench.run(ReadDataType);
    QCOMPARE(bench.log->entries,
        (QStringList{QStringLiteral("updateDeviced"),
            QStringLiteral("errored:请求数据类型与返回数据类型不一致！")}));
}

void TestUnPackage::sendConfig()
{
    Bench bench;
    SystemModel configuration = makeConfiguration(2, 3);
    bench.operations->setConfigModel(configuration);
    bench.run(SendConfigType);
    QCOMPARE(bench.traffic(),
        (QStringList{QStringLiteral("w f0001000 14"), QStringLiteral("w f0001100 6")}));
    const auto requests = bench.requests();
    QCOMPARE(requests.at(0).data, ProtocolCreate::createComPackage(configuration));
    QCOMPARE(requests.at(1).data, ProtocolCreate::createIOPackage(configuration));
    QVERIFY(requests.at(0).text.isEmpty());
    QCOMPARE(bench.log->entries,
        (QStringList{QStringLiteral("updateConfiged"), QStringLiteral("finshed:192.168.1.10")}));
    QVERIFY(*selectedModels()->getConfigModel() == configuration);
}

void TestUnPackage::sendConfigTakesLinesAfterPorts()
{
    // The IO list is taken only once the unit has answered the serial block.
    UnPackage* operations = nullptr;
    Bench bench([&](const RecordedRequest& request, int number) {
        if (number == 0)
            operations->setConfigModel(makeConfiguration(5, 4));
        return ScriptedUnit::reply(replyFrame(request.address, QByteArray()));
    });
    operations = bench.operations.get();
    operations->setConfigModel(makeConfiguration(2, 3));
    bench.run(SendConfigType);
    QCOMPARE(bench.traffic(),
        (QStringList{QStringLiteral("w f0001000 14"), QStringLiteral("w f0001100 8")}));
}

void TestUnPackage::sendConfigEmptyLists()
{
    Bench bench;
    bench.run(SendConfigType);
    QCOMPARE(bench.traffic(),
        (QStringList{QStringLiteral("w f0001000 0"), QStringLiteral("w f0001100 0")}));
}

void TestUnPackage::sendConfigWithoutModels()
{
    selectDevice(QStringLiteral("192.168.1.99"));
    rememberSelectedModels();
    DeviceManagerModel* const registry = DeviceManagerModel::Instance();
    registry->setDeviceData(registry->getCurrentSelectDevice(), nullptr);
    Bench bench;
    bench.run(SendConfigType);
    QCOMPARE(bench.log->entries,
        (QStringList{QStringLiteral("updateConfiged"), QStringLiteral("finshed:192.168.1.99")}));
    QVERIFY(selectedModels() == nullptr);
}

void TestUnPackage::readConfig()
{
    Bench bench(makeMemory(0, 0, 0));
    QString error;
    QVERIFY(bench.call(&UnPackage::readConfigParameter, error));
    QCOMPARE(bench.traffic(),
        (QStringList{QStringLiteral("r f0001000 63"), QStringLiteral("r f0001100 24")}));
    QCOMPARE(bench.log->entries, QStringList{QStringLiteral("updateConfiged")});
    QVERIFY(*selectedModels()->getConfigModel() == makeConfiguration(9, 12));
}

void TestUnPackage::configNumber()
{
    Bench bench(makeMemory(0, 0, 0));
    bench.operations->setConfigNumber(4, 8);
    QString error;
    QVERIFY(bench.call(&UnPackage::readConfigParameter, error));
    QCOMPARE(bench.traffic(),
        (QStringList{QStringLiteral("r f0001000 28"), QStringLiteral("r f0001100 16")}));
    QVERIFY(*selectedModels()->getConfigModel() == makeConfiguration(4, 8));

    bench.operations->setConfigModel(makeConfiguration(9, 12));
    QVERIFY(bench.call(&UnPackage::sendConfig, error));
    QCOMPARE(bench.traffic().mid(2),
        (QStringList{QStringLiteral("w f0001000 63"), QStringLiteral("w f0001100 24")}));
}

void TestUnPackage::configNumberIsNotChecked_data()
{
    QTest::addColumn<int>("ports");
    QTest::addColumn<int>("lines");
    QTest::addColumn<QStringList>("traffic");
    QTest::newRow("none") << 0 << 0 << QStringList{"r f0001000 0", "r f0001100 0"};
    QTest::newRow("most") << 9362 << 32767 << QStringList{"r f0001000 65534", "r f0001100 65534"};
    QTest::newRow("below 0") << -1 << 12 << QStringList{"r f0001000 4294967289"};
    QTest::newRow("too many") << 10000 << 12 << QStringList{"r f0001000 70000"};
    QTest::newRow("largest") << 0x7FFFFFFF << 12 << QStringList{"r f0001000 2147483641"};
}

void TestUnPackage::configNumberIsNotChecked()
{
    QFETCH(int, ports);
    QFETCH(int, lines);
    QFETCH(QStringList, traffic);
    // A unit gives what its 16-bit length field can hold.
    Bench bench([](const RecordedRequest& request, int) {
        return ScriptedUnit::reply(
            replyFrame(request.address, QByteArray(int(request.length & 0xFFFF), '\0')));
    });
    bench.operations->setConfigNumber(ports, lines);
    QString error;
    const bool read = bench.call(&UnPackage::readConfigParameter, error);
    QCOMPARE(bench.traffic(), traffic);
    QCOMPARE(read, traffic.size() == 2);
    QCOMPARE(error, read ? QString() : QStringLiteral("数据包长度与请求数据长度不一致！"));
    if (read) {
        QCOMPARE(selectedModels()->getConfigModel()->getComInfo().size(), ports);
        QCOMPARE(selectedModels()->getConfigModel()->getIOType().size(), lines);
    }
}

void TestUnPackage::readConfigSecondBlockFails()
{
    selectDevice(QStringLiteral("10.9.9.9"));
    Bench bench = failingAt(1, makeMemory(0, 0, 0));
    SystemModel old = makeConfiguration(1, 1);
    bench.operations->setConfigModel(old);
    QString error;
    QVERIFY(!bench.call(&UnPackage::readConfigParameter, error));
    QCOMPARE(error, QStringLiteral("断线"));
    QVERIFY(bench.log->entries.isEmpty());
    const std::unique_ptr<ModelManagement> fresh(selectedModels());
    QVERIFY(*fresh->getConfigModel() == SystemModel());

    // The working copy holds the new serial list and the old IO list, and that is what a write
    // sends.
    bench.run(SendConfigType);
    QCOMPARE(bench.traffic().mid(2),
        (QStringList{QStringLiteral("w f0001000 63"), QStringLiteral("w f0001100 2")}));
}

void TestUnPackage::sendEvent_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("traffic");
    const QString countFrame = QStringLiteral("w f0020000 1");
    QTest::newRow("0") << 0 << QStringList{countFrame};
    QTest::newRow("1") << 1 << QStringList{countFrame, "w f0020001 512"};
    QTest::newRow("3") << 3 << QStringList{countFrame, "w f0020001 1536"};
    QTest::newRow("4") << 4 << QStringList{countFrame, "w f0020001 2048"};
    QTest::newRow("5") << 5 << QStringList{countFrame, "w f0020001 2048", "w f0020801 512"};
    QTest::newRow("8") << 8 << QStringList{countFrame, "w f0020001 2048", "w f0020801 2048"};
}

void TestUnPackage::sendEvent()
{
    QFETCH(int, count);
    QFETCH(QStringList, traffic);
    Bench bench;
    bench.operations->setEventModel(makeEvents(count));
    bench.run(SendEventType);
    QCOMPARE(bench.traffic(), traffic);
    QCOMPARE(bench.requests().first().data, QByteArray(1, static_cast<char>(count)));
    QCOMPARE(bench.log->entries,
        (QStringList{QStringLiteral("updateEvented"), QStringLiteral("finshed:192.168.1.10")}));
    QVERIFY(*selectedModels()->getEventModel() == makeEvents(count));
}

void TestUnPackage::sendEventBlocks()
{
    Bench bench;
    EventModel events = makeEvents(300);
    bench.operations->setEventModel(events);
    bench.run(SendEventType);
    const auto requests = bench.requests();
    QCOMPARE(requests.size(), 1 + 75);
    QCOMPARE(requests.first().data, hex("2c"));
    QByteArray table;
    for (int i = 1; i < requests.size(); ++i) {
        QCOMPARE(requests.at(i).address, 0xF0020001 + 2048 * static_cast<quint32>(i - 1));
        table += requests.at(i).data;
    }
    for (int i = 0; i < events.size(); ++i)
        QCOMPARE(table.mid(512 * i, 512), PackageEvent::createEventPackage(events.at(i)));
}

void TestUnPackage::readEventsCounts_data()
{
    QTest::addColumn<int>("cell");
    QTest::addColumn<int>("read");
    for (const auto& row : {std::pair<int, int>{0, 0}, {1, 1}, {128, 128}, {129, 0}, {255, 0}})
        QTest::newRow(qPrintable(QString::number(row.first))) << row.first << row.second;
}

void TestUnPackage::readEventsCounts()
{
    QFETCH(int, cell);
    QFETCH(int, read);
    Bench bench(makeMemory(cell, 0, 0));
    QString error;
    QVERIFY(bench.call(&UnPackage::readEventParameter, error));
    const auto requests = bench.requests();
    QCOMPARE(requests.size(), 1 + read);
    for (int i = 0; i < read; ++i) {
        QCOMPARE(requests.at(i + 1).address, 0xF0020001 + 512 * static_cast<quint32>(i));
        QCOMPARE(requests.at(i + 1).length, 512U);
    }
    QVERIFY(*selectedModels()->getEventModel() == makeEvents(read));
    QCOMPARE(bench.log->entries, QStringList{QStringLiteral("updateEvented")});
}

void TestUnPackage::readEventsAppends()
{
    Bench bench(makeMemory(2, 0, 0));
    QString error;
    QVERIFY(bench.call(&UnPackage::readEventParameter, error));
    QVERIFY(bench.call(&UnPackage::readEventParameter, error));
    QCOMPARE(selectedModels()->getEventModel()->size(), 4);
}

void TestUnPackage::readEventsFailureKeepsWhatWasRead()
{
    Bench bench = failingAt(3, makeMemory(4, 0, 0));
    QString error;
    QVERIFY(!bench.call(&UnPackage::readEventParameter, error));
    QCOMPARE(error, QStringLiteral("断线"));
    QVERIFY(bench.log->entries.isEmpty());

    bench.run(SendEventType);
    QCOMPARE(bench.requests().at(4).data, hex("02"));
    QVERIFY(*selectedModels()->getEventModel() == makeEvents(2));
}

void TestUnPackage::sendTrigger_data()
{
    QTest::addColumn<int>("triggers");
    QTest::addColumn<int>("timeTriggers");
    QTest::addColumn<QStringList>("traffic");
    const QString countFrame = QStringLiteral("w f0010000 1");
    QTest::newRow("none") << 0 << 0 << QStringList{countFrame};
    QTest::newRow("3 and 2") << 3 << 2
                             << QStringList{countFrame, "w f0010001 2048", "w f0010801 512"};
    QTest::newRow("4 and 0") << 4 << 0 << QStringList{countFrame, "w f0010001 2048"};
    QTest::newRow("0 and 1") << 0 << 1 << QStringList{countFrame, "w f0010001 512"};
    QTest::newRow("6 and 3") << 6 << 3
                             << QStringList{countFrame, "w f0010001 2048", "w f0010801 2048",
                                    "w f0011001 512"};
}

void TestUnPackage::sendTrigger()
{
    QFETCH(int, triggers);
    QFETCH(int, timeTriggers);
    QFETCH(QStringList, traffic);
    for (DataPackageType type : {SendTriggerType, SendTimeTriggerType}) {
        Bench bench;
        bench.operations->setTriggerModel(makeTriggers(triggers));
        bench.operations->setTimeTriggerModel(makeTimeTriggers(timeTriggers));
        bench.run(type);
        QCOMPARE(bench.traffic(), traffic);
        QCOMPARE(bench.requests().first().data,
            QByteArray(1, static_cast<char>(triggers + timeTriggers)));
        QCOMPARE(bench.log->entries,
            (QStringList{QStringLiteral("updateTriggered"), QStringLiteral("updateTimeTriggered"),
                QStringLiteral("finshed:192.168.1.10")}));
        QVERIFY(*selectedModels()->getTriggerModel() == makeTriggers(triggers));
        QVERIFY(*selectedModels()->getTriggerTimeModel() == makeTimeTriggers(timeTriggers));
    }
}

void TestUnPackage::sendTriggerMixedBatch()
{
    Bench bench;
    TriggerModel triggers = makeTriggers(3);
    TriggerTimeModel timeTriggers = makeTimeTriggers(2);
    bench.operations->setTriggerModel(triggers);
    bench.operations->setTimeTriggerModel(timeTriggers);
    bench.run(SendTriggerType);
    const auto requests = bench.requests();
    QByteArray first;
    for (int i = 0; i < 3; ++i)
        first += PackageTrigger::createTriggerPackage(triggers.at(i));
    first += PackageTimeTrigger::createTimeTriggerPackage(timeTriggers.at(0));
    QCOMPARE(requests.at(1).data, first);
    QCOMPARE(requests.at(2).data, PackageTimeTrigger::createTimeTriggerPackage(timeTriggers.at(1)));
}

void TestUnPackage::sendTriggerManyTriggers_data()
{
    QTest::addColumn<int>("triggers");
    for (int triggers : {255, 256, 257, 300, 512})
        QTest::newRow(qPrintable(QString::number(triggers))) << triggers;
}

void TestUnPackage::sendTriggerManyTriggers()
{
    QFETCH(int, triggers);
    Bench bench;
    TriggerModel model = makeTriggers(triggers);
    TriggerTimeModel timeModel = makeTimeTriggers(2);
    bench.operations->setTriggerModel(model);
    bench.operations->setTimeTriggerModel(timeModel);
    bench.run(SendTriggerType);
    const auto requests = bench.requests();
    QCOMPARE(requests.first().data, QByteArray(1, static_cast<char>(triggers + 2)));
    QByteArray table;
    for (int i = 1; i < requests.size(); ++i)
        table += requests.at(i).data;
    QByteArray expected;
    for (int i = 0; i < triggers; ++i)
        expected += PackageTrigger::createTriggerPackage(model.at(i));
    for (int i = 0; i < 2; ++i)
        expected += PackageTimeTrigger::createTimeTriggerPackage(timeModel.at(i));
    QCOMPARE(table, expected);
}

void TestUnPackage::sendTimeTriggerIsSendTrigger()
{
    Bench bench;
    bench.operations->setTriggerModel(makeTriggers(1));
    QString error;
    QVERIFY(bench.call(&UnPackage::sendTimeTrigger, error));
    QCOMPARE(bench.traffic(),
        (QStringList{QStringLiteral("w f0010000 1"), QStringLiteral("w f0010001 512")}));
    QCOMPARE(bench.log->entries,
        (QStringList{QStringLiteral("updateTriggered"), QStringLiteral("updateTimeTriggered")}));
}

void TestUnPackage::readTriggersCounts_data()
{
    QTest::addColumn<int>("cell");
    QTest::addColumn<int>("read");
    for (const auto& row : {std::pair<int, int>{0, 0}, {1, 1}, {64, 64}, {65, 0}, {255, 0}})
        QTest::newRow(qPrintable(QString::number(row.first))) << row.first << row.second;
}

void TestUnPackage::readTriggersCounts()
{
    QFETCH(int, cell);
    QFETCH(int, read);
    const int timeTriggers = cell / 2;
    const int readTime = cell > int(tableLimit) ? 0 : timeTriggers;
    Bench bench(makeMemory(0, cell - timeTriggers, timeTriggers));
    QString error;
    QVERIFY(bench.call(&UnPackage::readTriggerParameter, error));
    QCOMPARE(bench.unit->frames().size(), 1 + read);
    QCOMPARE(selectedModels()->getTriggerModel()->size(), read - readTime);
    QCOMPARE(bench.log->entries, QStringList{QStringLiteral("updateTriggered")});

    QVERIFY(bench.call(&UnPackage::readTimeTriggerParameter, error));
    const auto requests = bench.requests();
    QCOMPARE(requests.size(), 2 * (1 + read));
    for (int i = 0; i < requests.size(); ++i) {
        const int slot = i % (1 + read) - 1;
        QCOMPARE(requests.at(i).address,
            slot < 0 ? 0xF0010000 : 0xF0010001 + 512 * static_cast<quint32>(slot));
        QCOMPARE(requests.at(i).length, slot < 0 ? 1U : 512U);
    }
    QCOMPARE(selectedModels()->getTriggerTimeModel()->size(), readTime);
    QCOMPARE(bench.log->entries.last(), QStringLiteral("updateTimeTriggered"));
}

void TestUnPackage::readTriggersNumbersEachKind()
{
    Memory memory = makeMemory(0, 3, 2);
    // A time trigger between the others: each list still counts from 0 by itself.
    std::swap(memory[0xF0010001], memory[0xF0010001 + 512 * 3]);
    Bench bench(memory);
    QString error;
    QVERIFY(bench.call(&UnPackage::readTriggerParameter, error));
    QVERIFY(bench.call(&UnPackage::readTimeTriggerParameter, error));
    TriggerModel* triggers = selectedModels()->getTriggerModel();
    TriggerTimeModel* timeTriggers = selectedModels()->getTriggerTimeModel();
    QCOMPARE(triggers->size(), 3);
    QCOMPARE(timeTriggers->size(), 2);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(triggers->at(i).getTriggerId(), i);
    for (int i = 0; i < 2; ++i)
        QCOMPARE(timeTriggers->at(i).getTriggerId(), i);
    QCOMPARE(triggers->at(2).getTriggerEvent(), QStringLiteral("(ID:0)"));
}

void TestUnPackage::readTriggersFailureLeavesThemUnnumbered()
{
    Bench bench = failingAt(4, makeMemory(0, 5, 0));
    QString error;
    QVERIFY(!bench.call(&UnPackage::readTriggerParameter, error));
    QVERIFY(bench.log->entries.isEmpty());
    bench.run(SendTriggerType);
    TriggerModel* triggers = selectedModels()->getTriggerModel();
    QCOMPARE(triggers->size(), 3);
    for (int i = 0; i < triggers->size(); ++i)
        QCOMPARE(triggers->at(i).getTriggerId(), TriggerInfo().getTriggerId());
}

void TestUnPackage::readTimeTriggersFailureLeavesThemUnnumbered()
{
    Bench bench = failingAt(4, makeMemory(0, 0, 5));
    QString error;
    QVERIFY(!bench.call(&UnPackage::readTimeTriggerParameter, error));
    QVERIFY(bench.log->entries.isEmpty());
    bench.run(SendTimeTriggerType);
    TriggerTimeModel* triggers = selectedModels()->getTriggerTimeModel();
    QCOMPARE(triggers->size(), 3);
    for (int i = 0; i < triggers->size(); ++i)
        QCOMPARE(triggers->at(i).getTriggerId(), TriggerTimeInfo().getTriggerId());
}

void TestUnPackage::failedWriteLeavesTheRegistry_data()
{
    QTest::addColumn<DataPackageType>("type");
    QTest::addColumn<int>("failing");
    const auto rows = [](const char* name, DataPackageType type, int steps) {
        for (int step = 0; step < steps; ++step)
            QTest::addRow("%s, step %d", name, step) << type << step;
    };
    rows("configuration", SendConfigType, 2);
    rows("events", SendEventType, 3);
    rows("triggers", SendTriggerType, 3);
    rows("time triggers", SendTimeTriggerType, 3);
}

void TestUnPackage::failedWriteLeavesTheRegistry()
{
    QFETCH(DataPackageType, type);
    QFETCH(int, failing);
    selectDevice(QStringLiteral("10.4.%1.%2").arg(type).arg(failing));
    auto* stored = new ModelManagement;
    auto* registry = DeviceManagerModel::Instance();
    registry->setDeviceData(registry->getCurrentSelectDevice(), stored);

    Bench bench = failingAt(failing, Memory());
    bench.operations->setConfigModel(makeConfiguration(2, 2));
    bench.operations->setEventModel(makeEvents(5));
    bench.operations->setTriggerModel(makeTriggers(3));
    bench.operations->setTimeTriggerModel(makeTimeTriggers(2));
    bench.run(type);
    QCOMPARE(bench.log->entries, QStringList{QStringLiteral("errored:断线")});
    QCOMPARE(bench.unit->frames().size(), failing + 1);
    QCOMPARE(selectedModels(), stored);
    QVERIFY(*stored->getConfigModel() == SystemModel());
    QCOMPARE(stored->getEventModel()->size(), 0);
    QCOMPARE(stored->getTriggerModel()->size(), 0);
    QCOMPARE(stored->getTriggerTimeModel()->size(), 0);
}

void TestUnPackage::readDataEmptyUnit()
{
    Bench bench(makeMemory(0, 0, 0));
    bench.run(ReadDataType);
    QCOMPARE(bench.traffic(),
        (QStringList{QStringLiteral("r f0000000 32"), QStringLiteral("r f0001000 63"),
            QStringLiteral("r f0001100 24"), QStringLiteral("r f0020000 1"),
            QStringLiteral("r f0010000 1"), QStringLiteral("r f0010000 1"),
            QStringLiteral("r 02000011 6")}));
    QCOMPARE(bench.log->entries,
        (QStringList{QStringLiteral("updateDeviced"), QStringLiteral("updateConfiged"),
            QStringLiteral("updateEvented"), QStringLiteral("updateTriggered"),
            QStringLiteral("updateTimeTriggered"), QStringLiteral("backread:2026/01/09 07:05:03"),
            QStringLiteral("readFinished:10.0.0.7")}));
}

void TestUnPackage::readDataFullUnit()
{
    Bench bench(makeMemory(128, 40, 24));
    bench.run(ReadDataType);
    QCOMPARE(bench.unit->frames().size(), 263);
    ModelManagement* models = selectedModels();
    QVERIFY(*models->getEventModel() == makeEvents(128));
    QCOMPARE(models->getTriggerModel()->size(), 40);
    QCOMPARE(models->getTriggerTimeModel()->size(), 24);
    QVERIFY(*models->getConfigModel() == makeConfiguration(9, 12));
}

void TestUnPackage::readDataTwice()
{
    Bench bench(makeMemory(5, 2, 1));
    bench.run(ReadDataType);
    bench.run(ReadDataType);
    ModelManagement* models = selectedModels();
    QCOMPARE(models->getEventModel()->size(), 5);
    QCOMPARE(models->getTriggerModel()->size(), 2);
    QCOMPARE(models->getTriggerTimeModel()->size(), 1);
    QCOMPARE(models->getConfigModel()->getComInfo().size(), 9);
}

void TestUnPackage::readDataFailingEvents()
{
    const Memory memory = makeMemory(3, 0, 0);
    Bench bench([memory](const RecordedRequest& request, int) {
        return request.address == 0xF0020001 + 512
            ? ScriptedUnit::failure(QStringLiteral("断线"))
            : ScriptedUnit::reply(faithfulReply(memory, request));
    });
    bench.run(ReadDataType);
    QCOMPARE(bench.log->entries,
        (QStringList{QStringLiteral("updateDeviced"), QStringLiteral("updateConfiged"),
            QStringLiteral("errored:断线")}));
    QCOMPARE(selectedModels()->getDeviceModel()->getIP(), QStringLiteral("10.0.0.7"));
    QVERIFY(*selectedModels()->getConfigModel() == makeConfiguration(9, 12));
    QCOMPARE(selectedModels()->getEventModel()->size(), 0);
}

void TestUnPackage::readDataEmptiesListsButNotTheConfiguration()
{
    Bench bench = failingAt(0, makeMemory(0, 0, 0));
    bench.operations->setConfigModel(makeConfiguration(1, 2));
    bench.operations->setEventModel(makeEvents(5));
    bench.operations->setTriggerModel(makeTriggers(3));
    bench.operations->setTimeTriggerModel(makeTimeTriggers(2));
    bench.run(ReadDataType);
    QCOMPARE(bench.log->entries, QStringList{QStringLiteral("errored:断线")});

    bench.run(SendConfigType);
    bench.run(SendEventType);
    bench.run(SendTriggerType);
    QCOMPARE(bench.traffic().mid(1),
        (QStringList{QStringLiteral("w f0001000 7"), QStringLiteral("w f0001100 4"),
            QStringLiteral("w f0020000 1"), QStringLiteral("w f0010000 1")}));
    QCOMPARE(bench.requests().at(3).data, hex("00"));
    QCOMPARE(bench.requests().at(4).data, hex("00"));
}

void TestUnPackage::unknownDeviceGetsAggregate()
{
    selectDevice(QStringLiteral("10.7.7.7"));
    const std::unique_ptr<ModelManagement> fresh(selectedModels());
    const std::unique_ptr<ModelManagement> another(selectedModels());
    QVERIFY(fresh != another);
    Bench bench;
    bench.operations->setConfigModel(makeConfiguration(1, 2));
    bench.run(SendConfigType);
    ModelManagement* stored = selectedModels();
    QCOMPARE(selectedModels(), stored);
    QVERIFY(*stored->getConfigModel() == makeConfiguration(1, 2));
}

void TestUnPackage::clockRead_data()
{
    QTest::addColumn<QByteArray>("cell");
    QTest::addColumn<QString>("text");
    QTest::newRow("leading zeros") << hex("260109070503") << "2026/01/09 07:05:03";
    QTest::newRow("two digits") << hex("991231235959") << "2099/12/31 23:59:59";
    QTest::newRow("year below 10") << hex("050101000000") << "205/01/01 00:00:00";
    QTest::newRow("year 0") << hex("000101000000") << "200/01/01 00:00:00";
    QTest::newRow("nibbles above 9") << hex("1affffffffff") << "2020/165/165 165:165:165";
}

void TestUnPackage::clockRead()
{
    QFETCH(QByteArray, cell);
    QFETCH(QString, text);
    Memory memory;
    memory[0x02000011] = cell;
    Bench bench(memory);
    bench.run(BackwordReadType);
    QCOMPARE(bench.traffic(), QStringList{QStringLiteral("r 02000011 6")});
    QCOMPARE(bench.log->entries,
        (QStringList{QStringLiteral("backread:") + text, QStringLiteral("finshed:192.168.1.10")}));
}

void TestUnPackage::clockShortReply()
{
    const QByteArray whole = replyFrame(0x02000011, hex("260109070503"));
    for (int size : {0, 1, 20, 23}) {
        Bench bench(
            [&](const RecordedRequest&, int) { return ScriptedUnit::reply(whole.left(size)); });
        bench.run(BackwordReadType);
        QCOMPARE(bench.log->entries,
            QStringList{QStringLiteral("errored:数据包长度小于最小数据包长度！")});
    }
    Bench bench([&](const RecordedRequest&, int) { return ScriptedUnit::reply(whole.left(24)); });
    bench.run(BackwordReadType);
    QCOMPARE(bench.log->entries.first(), QStringLiteral("backread:2026/01/09 07:05:03"));
}

void TestUnPackage::clockForeignReplyIsAccepted()
{
    Bench bench([&](const RecordedRequest&, int) {
        return ScriptedUnit::reply(replyFrame(0x12345678, hex("2601090705030000")));
    });
    bench.run(BackwordReadType);
    QCOMPARE(bench.log->entries.first(), QStringLiteral("backread:2026/01/09 07:05:03"));
}

void TestUnPackage::clockWrite_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("cell");
    QTest::newRow("usual") << "2026/11/14  06:05:49" << hex("261114060549");
    QTest::newRow("no leading zeros") << "2026/1/4  6:5:9" << hex("260104060509");
    QTest::newRow("not numbers") << "20xx/aa/bb  cc:dd:ee" << hex("000000000000");
    // No behaviour is promised for the rest: it must only do no harm.
    QTest::newRow("one blank") << "2026/11/14 06:05:49" << hex("261100000000");
    QTest::newRow("empty") << "" << hex("000000000000");
    QTest::newRow("date alone") << "2026/11/14" << hex("261114000000");
    QTest::newRow("too few parts") << "2026  06" << hex("260000060000");
}

void TestUnPackage::clockWrite()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, cell);
    Bench bench;
    bench.operations->setTimingCheck(text);
    bench.run(BackwordWriteType);
    QCOMPARE(bench.traffic(), QStringList{QStringLiteral("w 02000011 6")});
    QCOMPARE(bench.requests().first().data, cell);
    QCOMPARE(bench.log->entries,
        (QStringList{QStringLiteral("backread:") + text, QStringLiteral("finshed:192.168.1.10")}));
}

void TestUnPackage::clockWriteReportsBeforeReply()
{
    Bench bench = failingAt(0, Memory());
    bench.operations->setTimingCheck(QStringLiteral("2026/11/14  06:05:49"));
    bench.run(BackwordWriteType);
    QCOMPARE(bench.log->entries,
        (QStringList{
            QStringLiteral("backread:2026/11/14  06:05:49"), QStringLiteral("errored:断线")}));

    writeSettingsBeside("[Communication]\ntimeout=0\n");
    UnPackage operations;
    QStringList order;
    connect(&operations, &UnPackage::signal_sendPackage, &operations,
        [&] { order.append(QStringLiteral("frame")); });
    connect(&operations, &UnPackage::signal_backread, &operations,
        [&] { order.append(QStringLiteral("backread")); });
    QString error;
    QVERIFY(!operations.backwordwrite(error));
    QCOMPARE(error, QStringLiteral("同步本地时间超时！"));
    QCOMPARE(order, (QStringList{QStringLiteral("frame"), QStringLiteral("backread")}));
}

void TestUnPackage::setBytesFromInt_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("next");
    QTest::newRow("one byte") << 3 << 1 << 1 << 0x1FF << true << hex("00ff00") << 2;
    QTest::newRow("most significant first")
        << 4 << 0 << 4 << 0x01020304 << true << hex("01020304") << 4;
    QTest::newRow("inside") << 4 << 1 << 2 << 0x0102 << true << hex("00010200") << 3;
    QTest::newRow("grows by one") << 2 << 2 << 1 << 7 << true << hex("000007") << 3;
    QTest::newRow("last byte grows it") << 2 << 1 << 2 << 0x0708 << true << hex("000708") << 3;
    QTest::newRow("one past that") << 2 << 3 << 1 << 7 << false << hex("0000") << 4;
    QTest::newRow("start beyond the end") << 2 << 9 << 1 << 7 << false << hex("0000") << 10;
    QTest::newRow("length 0") << 2 << 1 << 0 << 7 << false << hex("0000") << 1;
    QTest::newRow("length below 0") << 2 << 1 << -1 << 7 << false << hex("0000") << 0;
    QTest::newRow("start below 0") << 2 << -1 << 2 << 7 << false << hex("0000") << 1;
    QTest::newRow("negative value") << 2 << 0 << 2 << -2 << true << hex("fffe") << 2;
    QTest::newRow("longer than the value") << 6 << 0 << 6 << 1 << true << hex("000000000001") << 6;
}

void TestUnPackage::setBytesFromInt()
{
    QFETCH(int, size);
    QFETCH(int, start);
    QFETCH(int, length);
    QFETCH(int, value);
    QFETCH(bool, result);
    QFETCH(QByteArray, bytes);
    QFETCH(int, next);
    UnPackage operations;
    QByteArray array(size, '\0');
    int position = -77;
    QCOMPARE(operations.setBytesFromInt(&array, start, length, value, &position), result);
    QCOMPARE(array, bytes);
    QCOMPARE(position, next);
}

void TestUnPackage::network()
{
    Bench bench;
    bench.operations->slot_SendQuadrelNetWork(QStringLiteral("10.0.0.1"),
        QStringLiteral("192.168.1.10"), QStringLiteral("255.255.255.0"),
        QStringLiteral("192.168.1.1"));
    QCOMPARE(bench.traffic(), QStringList{QStringLiteral("w f000000e 13")});
    QCOMPARE(bench.requests().first().data, hex("000a01a8c000ffffff0101a8c0"));
    QCOMPARE(
        bench.log->entries, QStringList{QStringLiteral("finishnetwork:10.0.0.1,192.168.1.10,1")});
}

void TestUnPackage::networkBadAddresses_data()
{
    QTest::addColumn<QString>("ip");
    QTest::addColumn<QString>("mask");
    QTest::addColumn<QString>("gateway");
    QTest::addColumn<QByteArray>("block");
    const QString good = QStringLiteral("1.2.3.4");
    QTest::newRow("three parts of the address") << "1.2.3" << good << good << QByteArray();
    QTest::newRow("three parts of the mask") << good << "1.2.3" << good << QByteArray();
    QTest::newRow("three parts of the gateway") << good << good << "1.2.3" << QByteArray();
    QTest::newRow("empty") << ""
                           << ""
                           << "" << QByteArray();
    QTest::newRow("five parts") << "1.2.3.4.5" << good << good << hex("00040302010403020104030201");
    QTest::newRow("empty parts") << "..." << good << good << hex("00000000000403020104030201");
    QTest::newRow("not numbers") << "a.b.c.d" << good << good << hex("00000000000403020104030201");
    QTest::newRow("beyond a byte")
        << "256.257.-1.4" << good << good << hex("0004ff01000403020104030201");
}

void TestUnPackage::networkBadAddresses()
{
    QFETCH(QString, ip);
    QFETCH(QString, mask);
    QFETCH(QString, gateway);
    QFETCH(QByteArray, block);
    Bench bench;
    const bool result = bench.operations->sendNetWork(ip, mask, gateway);
    bench.unit->operationClosed();
    QCOMPARE(result, !block.isEmpty());
    QCOMPARE(bench.requests().size(), block.isEmpty() ? 0 : 1);
    if (result)
        QCOMPARE(bench.requests().first().data, block);
    QVERIFY(bench.log->entries.isEmpty());
}

void TestUnPackage::networkFailures()
{
    // Neither the reason nor any other signal than the closing one goes out.
    writeSettingsBeside("[Communication]\ntimeout=0\n");
    UnPackage operations;
    SignalLog log(operations);
    int frames = 0;
    connect(&operations, &UnPackage::signal_sendPackage, &operations, [&] { ++frames; });
    const QString ip = QStringLiteral("1.2.3.4");
    operations.slot_SendQuadrelNetWork(QStringLiteral("old"), ip, ip, ip);
    QCOMPARE(frames, 1);
    operations.slot_SendQuadrelNetWork(
        QStringLiteral("old"), QStringLiteral("1.2.3"), QStringLiteral("m"), QString());
    QCOMPARE(frames, 1);
    QCOMPARE(log.entries,
        (QStringList{QStringLiteral("finishnetwork:old,1.2.3.4,0"),
            QStringLiteral("finishnetwork:old,1.2.3,0")}));
}

void TestUnPackage::networkErrorStaysSet()
{
    Bench bench;
    bench.operations->setError(QStringLiteral("断线"));
    const QString ip = QStringLiteral("1.2.3.4");
    bench.operations->slot_SendQuadrelNetWork(ip, ip, ip, ip);
    bench.unit->operationClosed();
    QCOMPARE(bench.log->entries, QStringList{QStringLiteral("finishnetwork:1.2.3.4,1.2.3.4,0")});
}

void TestUnPackage::reset_data()
{
    QTest::addColumn<bool>("retain");
    QTest::addColumn<QByteArray>("byte");
    QTest::newRow("keeps its address") << true << hex("01");
    QTest::newRow("default address") << false << hex("00");
}

void TestUnPackage::reset()
{
    QFETCH(bool, retain);
    QFETCH(QByteArray, byte);
    Bench bench;
    bench.operations->setRetainIP(retain);
    bench.run(SendResetType);
    QCOMPARE(bench.traffic(), QStringList{QStringLiteral("w f000001c 1")});
    QCOMPARE(bench.requests().first().data, byte);
    QCOMPARE(bench.log->entries, QStringList{QStringLiteral("finshed:192.168.1.10")});
}

void TestUnPackage::resetWithoutUnit()
{
    writeSettingsBeside("[Communication]\ntimeout=0\n");
    UnPackage operations;
    SignalLog log(operations);
    operations.slot_runReadPackage(SendResetType);
    QCOMPARE(log.entries, QStringList{QStringLiteral("errored:配置参数超时！")});
    operations.setRetainIP(false);
    QString error;
    QVERIFY(operations.sendReset(error));
    QVERIFY(error.isEmpty());
    log.entries.clear();
    operations.slot_runReadPackage(SendResetType);
    QCOMPARE(log.entries, QStringList{QStringLiteral("finshed:192.168.1.10")});
}

void TestUnPackage::upgradeControlWords()
{
    Bench bench;
    bench.operations->setUpgradePackage(
        QByteArray(2048, 's'), QByteArray(2048, 'a'), QStringLiteral("v2"));
    bench.run(UpgradeDeviceType);
    const struct {
        quint32 address;
        QByteArray data;
        const char* percentage;
    } steps[] = {
        {0x01F00000, hex("00100000"), "0"},
        {0x01F00004, hex("00000000"), "0"},
        {0x01F0000C, hex("00080000"), "0"},
        {0x01F00008, hex("02000100"), "0"},
        {0x06000000, QByteArray(2048, 'a'), "50"},
        {0x18200002, hex("0972"), "50"},
        {0x18200000, hex("0000"), "50"},
        {0x01F00000, hex("00080000"), "50"},
        {0x01F00004, hex("00000000"), "50"},
        {0x01F0000C, hex("00080000"), "50"},
        {0x01F00008, hex("02000200"), "50"},
        {0x18000000, QByteArray(2048, 's'), "100"},
    };
    const auto requests = bench.requests();
    QCOMPARE(requests.size(), int(std::size(steps)));
    for (int i = 0; i < requests.size(); ++i) {
        QVERIFY(requests.at(i).write);
        QCOMPARE(requests.at(i).address, steps[i].address);
        QCOMPARE(requests.at(i).data, steps[i].data);
        QCOMPARE(bench.log->entries.at(i),
            QStringLiteral("updateProgress:升级中\n%1%").arg(QLatin1String(steps[i].percentage)));
    }
    QCOMPARE(bench.log->entries.mid(requests.size()),
        (QStringList{
            QStringLiteral("updateProgress:重连设备中"), QStringLiteral("finshedUpgrade:v2")}));
}

void TestUnPackage::upgradeSizes_data()
{
    QTest::addColumn<int>("streamed");
    QTest::addColumn<int>("addressed");
    const int sizes[] = {0, 1, 2047, 2048, 2049, 4096, 5000, 1 << 20};
    for (int streamed : sizes) {
        for (int addressed : sizes)
            QTest::newRow(qPrintable(QStringLiteral("%1 and %2").arg(streamed).arg(addressed)))
                << streamed << addressed;
    }
}

void TestUnPackage::upgradeSizes()
{
    QFETCH(int, streamed);
    QFETCH(int, addressed);
    QByteArray first(streamed, '\0');
    std::iota(first.begin(), first.end(), 1);
    QByteArray second(addressed, '\0');
    std::iota(second.begin(), second.end(), 77);
    Bench bench;
    bench.operations->setUpgradePackage(first, second, QStringLiteral("v2"));
    bench.run(UpgradeDeviceType);

    QByteArray streamedGot;
    QByteArray addressedGot;
    double written = 0;
    const auto requests = bench.requests();
    for (int i = 0; i < requests.size(); ++i) {
        const RecordedRequest& request = requests.at(i);
        QVERIFY(request.data.size() <= 2048);
        QCOMPARE(int(request.length), request.data.size());
        if (request.address == 0x18000000) {
            streamedGot += request.data;
        } else if (request.address >= 0x06000000 && request.address < 0x18000000) {
            QCOMPARE(request.address, 0x06000000 + static_cast<quint32>(addressedGot.size()));
            addressedGot += request.data;
        }
        written += request.data.size();
        const double percentage = written / (streamed + addressed + 36) * 100;
        QCOMPARE(bench.log->entries.at(i),
            QStringLiteral("updateProgress:升级中\n%1%").arg(QString::number(percentage, 'f', 0)));
    }
    QCOMPARE(streamedGot, first);
    QCOMPARE(addressedGot, second);
    QCOMPARE(int(written), streamed + addressed + 36);
    QCOMPARE(requests.size(), 10 + (streamed + 2047) / 2048 + (addressed + 2047) / 2048);
    QCOMPARE(bench.log->entries.last(), QStringLiteral("finshedUpgrade:v2"));
}

void TestUnPackage::upgradeSecondRun()
{
    Bench bench;
    bench.operations->setUpgradePackage(
        QByteArray(5000, 's'), QByteArray(5000, 'a'), QStringLiteral("v2"));
    bench.run(UpgradeDeviceType);
    const int first = bench.unit->frames().size();
    bench.run(UpgradeDeviceType);
    const auto requests = bench.requests().mid(first);
    QCOMPARE(requests.size(), 10);
    for (int step : {0, 1, 2, 7, 8})
        QCOMPARE(requests.at(step).data, QByteArray(requests.at(step).data.size(), '\0'));
    QCOMPARE(bench.log->entries.last(), QStringLiteral("finshedUpgrade:v2"));
}

void TestUnPackage::upgradeFailsMidway()
{
    // What was sent is gone: the next run has the rest only, and its control words say so.
    Bench bench = failingAt(5, Memory());
    bench.operations->setUpgradePackage(
        QByteArray(100, 's'), QByteArray(5000, 'a'), QStringLiteral("v2"));
    bench.run(UpgradeDeviceType);
    QCOMPARE(bench.log->entries.last(), QStringLiteral("errored:断线"));
    QCOMPARE(bench.unit->frames().size(), 6);
    bench.run(UpgradeDeviceType);
    const auto requests = bench.requests().mid(6);
    QCOMPARE(requests.at(0).data, hex("ec030000"));
    QCOMPARE(requests.at(2).data, hex("88030000"));
    QCOMPARE(requests.at(4).address, 0x06000000U);
    QCOMPARE(requests.at(4).data, QByteArray(904, 'a'));
    QCOMPARE(bench.log->entries.last(), QStringLiteral("finshedUpgrade:v2"));
}

void TestUnPackage::upgradeNewPackageStartsOver()
{
    Bench bench = failingAt(5, Memory());
    bench.operations->setUpgradePackage(
        QByteArray(100, 's'), QByteArray(5000, 'a'), QStringLiteral("v2"));
    bench.run(UpgradeDeviceType);
    QCOMPARE(bench.log->entries.last(), QStringLiteral("errored:断线"));
    bench.operations->setUpgradePackage(
        QByteArray(10, 't'), QByteArray(3000, 'b'), QStringLiteral("v3"));
    bench.run(UpgradeDeviceType);
    const auto requests = bench.requests().mid(6);
    QCOMPARE(requests.size(), 10 + 2 + 1);
    QCOMPARE(requests.at(0).data, hex("c20b0000"));
    QCOMPARE(requests.at(2).data, hex("b80b0000"));
    QCOMPARE(requests.at(4).data, QByteArray(2048, 'b'));
    QCOMPARE(requests.at(5).data, QByteArray(952, 'b'));
    QCOMPARE(requests.last().data, QByteArray(10, 't'));
    QCOMPARE(bench.log->entries.last(), QStringLiteral("finshedUpgrade:v3"));
}

void TestUnPackage::progress_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("total");
    QTest::addColumn<QString>("number");
    QTest::newRow("first of two chunks") << 4.0 << 4132.0 << "0";
    QTest::newRow("rounded up") << 666.0 << 1000.0 << "67";
    QTest::newRow("rounded down") << 664.0 << 1000.0 << "66";
    QTest::newRow("all") << 36.0 << 36.0 << "100";
}

void TestUnPackage::progress()
{
    QFETCH(double, value);
    QFETCH(double, total);
    QFETCH(QString, number);
    UnPackage operations;
    SignalLog log(operations);
    operations.updateProgressBar(value, total);
    QCOMPARE(log.entries, QStringList{QStringLiteral("updateProgress:升级中\n%1%").arg(number)});
}

void TestUnPackage::remark_data()
{
    QTest::addColumn<int>("size");
    for (int size : {0, 1, 89, 90, 91, 5000})
        QTest::newRow(qPrintable(QString::number(size))) << size;
}

void TestUnPackage::remark()
{
    QFETCH(int, size);
    Bench bench;
    bench.operations->setUpgradePackage(QByteArray(size, 'r'), QByteArray(), QString());
    bench.run(UpdateRemarkType);
    QCOMPARE(bench.traffic(), QStringList{QStringLiteral("w 18201000 90")});
    QByteArray expected(qMin(size, 90), 'r');
    expected += QByteArray(90 - expected.size(), '\0');
    QCOMPARE(bench.requests().first().data, expected);
    QCOMPARE(bench.log->entries, QStringList{QStringLiteral("finshedUpdateRemark")});
}

void TestUnPackage::remarkTwice()
{
    Bench bench;
    bench.run(UpdateRemarkType);
    QCOMPARE(bench.traffic(), QStringList{QStringLiteral("w 18201000 0")});
    bench.operations->setUpgradePackage(QByteArray(200, 'r'), QByteArray(), QString());
    bench.run(UpgradeDeviceType);
    const int before = bench.unit->frames().size();
    bench.run(UpdateRemarkType);
    bench.run(UpdateRemarkType);
    const auto requests = bench.requests().mid(before);
    QCOMPARE(requests.size(), 2);
    QCOMPARE(requests.at(0).data, QByteArray(90, 'r'));
    QCOMPARE(requests.at(1).data, QByteArray(90, 'r'));
}

namespace {

enum Fault { NoReply, ShortReply, WrongAddress, WrongLength, TransportError };

struct Operation {
    DataPackageType type;
    const char* name;
    QVector<QString> steps; ///< the label of each exchange
};

const Memory& faultMemory()
{
    static const Memory memory = makeMemory(2, 1, 1);
    return memory;
}

void placeInputs(UnPackage& operations)
{
    operations.setConfigModel(makeConfiguration(9, 12));
    operations.setEventModel(makeEvents(5));
    operations.setTriggerModel(makeTriggers(3));
    operations.setTimeTriggerModel(makeTimeTriggers(2));
    operations.setTimingCheck(QStringLiteral("2026/11/14  06:05:49"));
    operations.setUpgradePackage(
        QByteArray(3000, 's'), QByteArray(3000, 'a'), QStringLiteral("v2"));
}

QVector<Operation> faultOperations()
{
    const QString event = QStringLiteral("回读事件参数");
    const QString trigger = QStringLiteral("回读触发参数");
    const QString configuration = QStringLiteral("配置参数");
    const QString upgrade = QStringLiteral("升级");
    return {
        {SendConfigType, "configuration", {2, configuration}},
        {SendEventType, "events", {3, configuration}},
        {SendTriggerType, "triggers", {3, configuration}},
        {SendTimeTriggerType, "time triggers", {3, configuration}},
        {ReadDataType, "read",
            {QStringLiteral("回读设备信息"), QStringLiteral("回读配置参数"),
                QStringLiteral("回读配置参数"), event, event, event, trigger, trigger, trigger,
                trigger, trigger, trigger, QStringLiteral("校时回读")}},
        {SendResetType, "reset", {1, configuration}},
        {UpgradeDeviceType, "upgrade", {14, upgrade}},
        {UpdateRemarkType, "remark", {1, upgrade}},
        {BackwordReadType, "clock", {1, QStringLiteral("校时回读")}},
        {BackwordWriteType, "set clock", {1, QStringLiteral("同步本地时间")}},
    };
}

QByteArray faultyReply(Fault fault, const RecordedRequest& request)
{
    const QByteArray good = faithfulReply(faultMemory(), request);
    if (fault == ShortReply)
        return good.left(19);
    if (fault == WrongAddress)
        return replyFrame(request.address + 1, good.mid(18, good.size() - 20));
    return replyFrame(request.address, good.mid(18, good.size() - 20) + "!");
}

/** The text that a fault at a step ends the operation with, or nothing if the step does not mind.
 */
QString faultText(Fault fault, const QString& label, bool write)
{
    const bool clock = label == QStringLiteral("校时回读");
    switch (fault) {
    case NoReply:
        return label + QStringLiteral("超时！");
    case TransportError:
        return QStringLiteral("连接已断开");
    case ShortReply:
        return write ? QString() : QStringLiteral("数据包长度小于最小数据包长度！");
    case WrongAddress:
        return write || clock ? QString() : QStringLiteral("请求数据类型与返回数据类型不一致！");
    case WrongLength:
        if (write || clock)
            return QString();
        return label == QStringLiteral("回读配置参数")
            ? QStringLiteral("数据包长度与请求数据长度不一致！")
            : QStringLiteral("数据包长度与实际的数据包长度不一致！");
    }
    return QString();
}

} // namespace

void TestUnPackage::faults_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("fault");
    const char* names[] = {"no reply", "short", "wrong address", "wrong length", "transport error"};
    const auto operations = faultOperations();
    for (int i = 0; i < operations.size(); ++i) {
        for (int step = 0; step < operations.at(i).steps.size(); ++step) {
            for (int fault = NoReply; fault <= TransportError; ++fault)
                QTest::newRow(qPrintable(QStringLiteral("%1, step %2, %3")
                                             .arg(QLatin1String(operations.at(i).name))
                                             .arg(step)
                                             .arg(QLatin1String(names[fault]))))
                    << i << step << fault;
        }
    }
}

void TestUnPackage::faults()
{
    QFETCH(int, operation);
    QFETCH(int, step);
    QFETCH(int, fault);
    const Operation faulty = faultOperations().at(operation);
    bool armed = true;
    bool write = false;
    const auto script = [&](const RecordedRequest& request, int number) {
        if (!armed || number != step)
            return ScriptedUnit::reply(faithfulReply(faultMemory(), request));
        write = request.write;
        if (fault == NoReply)
            return ScriptedUnit::silence();
        if (fault == TransportError)
            return ScriptedUnit::failure(QStringLiteral("连接已断开"));
        return ScriptedUnit::reply(faultyReply(static_cast<Fault>(fault), request));
    };
    std::unique_ptr<Bench> bench;
    const bool reachesTheStep = succeedsWithAWait([&](int wait) {
        bench = std::make_unique<Bench>(script, fault == NoReply ? wait : -1);
        placeInputs(*bench->operations);
        bench->run(faulty.type);
        return bench->unit->frames().size() > step;
    });
    QVERIFY(reachesTheStep);

    const QStringList closings = bench->log->entries.filter(
        QRegularExpression(QStringLiteral("^(errored|readFinished|finshed)")));
    QCOMPARE(closings.size(), 1);
    QCOMPARE(bench->log->entries.last(), closings.first());
    const QString text = faultText(static_cast<Fault>(fault), faulty.steps.at(step), write);
    if (text.isEmpty()) {
        QVERIFY(!closings.first().startsWith(QStringLiteral("errored")));
        QCOMPARE(bench->unit->frames().size(), faulty.steps.size());
    } else {
        QCOMPARE(closings.first(), QStringLiteral("errored:") + text);
        QCOMPARE(bench->unit->frames().size(), step + 1);
    }

    // The next operation knows nothing of it. Its waits are those of the one that failed.
    armed = false;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        bench->log->entries.clear();
        bench->run(BackwordReadType);
        if (fault != NoReply || !bench->log->entries.last().endsWith(QStringLiteral("超时！")))
            break;
    }
    QCOMPARE(bench->log->entries.size(), 2);
    QVERIFY(bench->log->entries.last().startsWith(QStringLiteral("finshed:")));
}

void TestUnPackage::lateReply()
{
    Bench bench(
        [](const RecordedRequest& request, int number) {
            return number == 0 ? ScriptedUnit::silence()
                               : ScriptedUnit::reply(faithfulReply(faultMemory(), request));
        },
        200);
    bench.run(BackwordReadType);
    QCOMPARE(bench.log->entries, QStringList{QStringLiteral("errored:校时回读超时！")});
    bench.operations->setRecvPackage(replyFrame(0x02000011, hex("990101000000")));
    for (int attempt = 0; attempt < attempts; ++attempt) {
        bench.log->entries.clear();
        bench.run(BackwordReadType);
        if (!bench.log->entries.last().startsWith(QStringLiteral("errored")))
            break;
    }
    QCOMPARE(bench.log->entries.first(), QStringLiteral("backread:2026/01/09 07:05:03"));
}

namespace {

const struct {
    const char* name;
    bool (UnPackage::*operation)(QString&);
    const char* label;
} labelledOperations[] = {
    {"readDeviceParameter", &UnPackage::readDeviceParameter, "回读设备信息"},
    {"readConfigParameter", &UnPackage::readConfigParameter, "回读配置参数"},
    {"readEventParameter", &UnPackage::readEventParameter, "回读事件参数"},
    {"readTriggerParameter", &UnPackage::readTriggerParameter, "回读触发参数"},
    {"readTimeTriggerParameter", &UnPackage::readTimeTriggerParameter, "回读触发参数"},
    {"readData", &UnPackage::readData, "回读设备信息"},
    {"sendConfig", &UnPackage::sendConfig, "配置参数"},
    {"sendEvent", &UnPackage::sendEvent, "配置参数"},
    {"sendTrigger", &UnPackage::sendTrigger, "配置参数"},
    {"sendTimeTrigger", &UnPackage::sendTimeTrigger, "配置参数"},
    {"sendReset", &UnPackage::sendReset, "配置参数"},
    {"backwordread", &UnPackage::backwordread, "校时回读"},
    {"backwordwrite", &UnPackage::backwordwrite, "同步本地时间"},
    {"upgradeDevcie", &UnPackage::upgradeDevcie, "升级"},
    {"updateRemark", &UnPackage::updateRemark, "升级"},
};

/** Remembers what was looked up, for texts that nobody is shown. */
class LookupRecorder : public ContextTranslator {
public:
    QString translate(
        const char* context, const char* source, const char* disambiguation, int n) const override
    {
        lookups.append(ContextTranslator::translate(context, source, disambiguation, n));
        return lookups.last();
    }

    mutable QStringList lookups;
};

} // namespace

void TestUnPackage::labelsTranslated_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < int(std::size(labelledOperations)); ++i)
        QTest::newRow(labelledOperations[i].name) << i;
}

void TestUnPackage::labelsTranslated()
{
    QFETCH(int, index);
    const auto& labelled = labelledOperations[index];
    const QString label = QString::fromUtf8(labelled.label);
    writeSettingsBeside("[Communication]\ntimeout=0\n");
    UnPackage operations;
    QString error;
    QVERIFY(!(operations.*labelled.operation)(error));
    QCOMPARE(error, label + QStringLiteral("超时！"));

    ContextTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QVERIFY(!(operations.*labelled.operation)(error));
    QCOMPARE(error, QStringLiteral("UnPackage|") + label + QStringLiteral("UnPackage|超时！"));
}

void TestUnPackage::networkLabelTranslated()
{
    writeSettingsBeside("[Communication]\ntimeout=0\n");
    UnPackage operations;
    LookupRecorder translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    const QString ip = QStringLiteral("1.2.3.4");
    QVERIFY(!operations.sendNetWork(ip, ip, ip));
    QCOMPARE(translator.lookups,
        (QStringList{QStringLiteral("UnPackage|网络设置"), QStringLiteral("UnPackage|超时！")}));
}

void TestUnPackage::messagesTranslated()
{
    ContextTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));

    Bench upgraded;
    upgraded.run(UpgradeDeviceType);
    QCOMPARE(upgraded.log->entries.first(),
        QStringLiteral("updateProgress:UnPackage|升级中\n11UnPackage|%"));
    QCOMPARE(upgraded.log->entries.at(10), QStringLiteral("updateProgress:UnPackage|重连设备中"));

    Bench shortClock(
        [](const RecordedRequest&, int) { return ScriptedUnit::reply(QByteArray(23, '\0')); });
    shortClock.run(BackwordReadType);
    QCOMPARE(shortClock.log->entries,
        QStringList{QStringLiteral("errored:UnPackage|数据包长度小于最小数据包长度！")});

    // What the transport says is not the library's to translate.
    Bench failing = failingAt(0, Memory());
    failing.run(BackwordReadType);
    QCOMPARE(failing.log->entries, QStringList{QStringLiteral("errored:断线")});
}

QTEST_GUILESS_MAIN(TestUnPackage)
#include "tst_unpackage.moc"
