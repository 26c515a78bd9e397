// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unpackage.h"

#include "clockcell.h"
#include "devicemanagermodel.h"
#include "kvprotocolparser.h"
#include "modelmanagement.h"
#include "packagedevice.h"
#include "packageevent.h"
#include "packagerequestproto3rd.h"
#include "packagetimetrigger.h"
#include "packagetrigger.h"
#include "packageupgrade.h"
#include "protocolcreate.h"
#include "replyframe.h"
#include "settingsfile.h"
#include "unpackageaccess.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QMutexLocker>
#include <QtCore/QSettings>
#include <QtCore/QStringList>

namespace {

constexpr unsigned int deviceAddress = 0xF0000000;
constexpr unsigned int networkAddress = 0xF000000E;
constexpr unsigned int resetAddress = 0xF000001C;
constexpr unsigned int serialAddress = 0xF0001000;
constexpr unsigned int ioAddress = 0xF0001100;
constexpr unsigned int triggerCountAddress = 0xF0010000;
constexpr unsigned int triggerTableAddress = triggerCountAddress + 1;
constexpr unsigned int eventCountAddress = 0xF0020000;
constexpr unsigned int eventTableAddress = eventCountAddress + 1;
constexpr unsigned int clockAddress = 0x02000011;
constexpr unsigned int upgradeLengthAddress = 0x01F00000;
constexpr unsigned int upgradePositionAddress = 0x01F00004;
constexpr unsigned int upgradeCommandAddress = 0x01F00008;
constexpr unsigned int upgradeSizeAddress = 0x01F0000C;
constexpr unsigned int addressedImageAddress = 0x06000000;
constexpr unsigned int streamedImageAddress = 0x18000000;
constexpr unsigned int upgradeWordAddress = 0x18200000;
constexpr unsigned int upgradeStartAddress = 0x18200002;
constexpr unsigned int remarkAddress = 0x18201000;

constexpr unsigned int maximumEvents = 128;
constexpr unsigned int maximumTableEntries = 64;
constexpr int recordsPerWrite = 4;
constexpr int remarkLength = 90;

constexpr ushort upgradeCommand = 2;
constexpr ushort addressedImageNumber = 1;
constexpr ushort streamedImageNumber = 2;
constexpr ushort upgradeStartWord = 0x7209;
/** Of all control words of an upgrade, which count for its progress as the images do. */
constexpr int upgradeControlBytes = 36;

DeviceManagerModel& registryOf(const UnPackageLink* link)
{
    return link && link->registry ? *link->registry : *DeviceManagerModel::Instance();
}

ReplyWait* waitOf(const UnPackageLink* link)
{
    return link ? link->wait : nullptr;
}

/** Lets `store` put working copies into the selected device's models, and keeps those. */
template <typename Store> void updateRegistry(DeviceManagerModel& registry, Store store)
{
    const DeviceModel device = registry.getCurrentSelectDevice();
    ModelManagement* models = registry.getDeviceData(device);
    if (models)
        store(*models);
    registry.setDeviceData(device, models);
}

/** The bytes of so many records. The number is the application's and unchecked: it wraps. */
unsigned int bytesOf(int records, int recordLength)
{
    return static_cast<unsigned int>(records) * static_cast<unsigned int>(recordLength);
}

/** Numbers the records of a list model from 0, which is all that their id says. */
template <typename Model> void numberRecords(Model& model)
{
    auto records = model.getTriggerInfo();
    int id = 0;
    for (auto& record : records)
        record.setTriggerId(id++);
    model.setTriggerInfo(records);
}

/** An image on its way to a unit. */
class UpgradeImage {
public:
    explicit UpgradeImage(const QByteArray& bytes)
        : m_bytes(bytes)
    {
    }

    uint left() const { return static_cast<uint>(m_bytes.size() - m_sent); }
    QByteArray rest() const { return m_bytes.mid(m_sent); }

    QByteArray takeChunk(int length)
    {
        // Cutting each chunk from the front would move the rest every time.
        QByteArray chunk = m_bytes.mid(m_sent, length);
        m_sent += chunk.size();
        return chunk;
    }

private:
    QByteArray m_bytes;
    int m_sent = 0;
};

} // namespace

UnPackage* UnPackage::m_unPackageInstance = new UnPackage(nullptr);

UnPackage::UnPackage(QObject* parent)
    : QObject(parent)
    , m_errorText(QLatin1String(""))
    , m_upgradeName(QLatin1String(""))
    , m_timingCheck(QLatin1String(""))
{
    qRegisterMetaType<DataPackageType>("DataPackageType");
    const QSettings settings(settingsFilePath(), QSettings::IniFormat);
    m_timeout = settings.value(QStringLiteral("Communication/timeout")).toInt();
}

UnPackage* UnPackage::Instance()
{
    return m_unPackageInstance;
}

void UnPackage::setConfigNumber(int comNumber, int ioNumber)
{
    m_comNumber = comNumber;
    m_ioNumber = ioNumber;
}

void UnPackage::setEventModel(EventModel model)
{
    m_eventModel = model;
}

void UnPackage::setTriggerModel(TriggerModel model)
{
    m_triggerModel = model;
}

void UnPackage::setTimeTriggerModel(TriggerTimeModel model)
{
    m_timeTriggerModel = model;
}

void UnPackage::setConfigModel(SystemModel model)
{
    m_configModel = model;
}

void UnPackage::setDeviceModel(DeviceModel model)
{
    m_deviceModel = model;
}

void UnPackage::setRetainIP(bool retain)
{
    m_retainIP = retain;
}

void UnPackage::setTimingCheck(QString time)
{
    m_timingCheck = time;
}

void UnPackage::setUpgradePackage(QByteArray first, QByteArray second, QString name)
{
    m_streamedImage = first;
    m_addressedImage = second;
    m_upgradeName = name;
    m_upgradeRemark = first.leftJustified(remarkLength, '\0', true);
}

unsigned char UnPackage::getLabels()
{
    constexpr unsigned char neverHandedOut = 255;
    if (m_labels == neverHandedOut)
        m_labels = 0;
    return m_labels++;
}

void UnPackage::sendPackage(QByteArray package)
{
    Q_EMIT signal_sendPackage(package);
}

bool UnPackage::waitResponsed(QString label, QString& error)
{
    if (!sleepUntilWoken()) {
        error = label + tr("超时！");
        return false;
    }
    if (m_hasError) {
        error = m_errorText;
        return false;
    }
    return true;
}

bool UnPackage::sleepUntilWoken()
{
    if (ReplyWait* const wait = waitOf(m_link))
        return wait->await(m_timeout);
    const QMutexLocker locker(&m_mutex);
    return m_waitCondition.wait(&m_mutex, QDeadlineTimer(m_timeout));
}

void UnPackage::setRecvPackage(QByteArray package)
{
    m_recvPackage = package;
    quitWaitDelay();
}

void UnPackage::setError(QString error)
{
    m_errorText = error;
    m_hasError = true;
    quitWaitDelay();
}

void UnPackage::quitWaitDelay()
{
    if (ReplyWait* const wait = waitOf(m_link))
        wait->wake();
    const QMutexLocker locker(&m_mutex);
    m_waitCondition.wakeAll();
}

void UnPackage::slot_runReadPackage(DataPackageType type)
{
    m_errorText = QLatin1String("");
    m_hasError = false;
    m_recvPackage.clear();
    QString error = QLatin1String("");
    const DeviceModel device = registryOf(m_link).getCurrentSelectDevice();
    if (runOperation(type, error))
        emitFinished(type, device);
    else
        Q_EMIT signal_errored(error);
}

bool UnPackage::runOperation(DataPackageType type, QString& error)
{
    switch (type) {
    case SendConfigType:
        return sendConfig(error);
    case SendEventType:
        return sendEvent(error);
    case SendTriggerType:
    case SendTimeTriggerType:
        return sendTrigger(error);
    case ReadDataType:
        return readEverything(error);
    case SendResetType:
        return sendReset(error);
    case UpgradeDeviceType:
        return upgradeDevcie(error);
    case UpdateRemarkType:
        return updateRemark(error);
    case BackwordReadType:
        return backwordread(error);
    case BackwordWriteType:
        return backwordwrite(error);
    case ReservedType:
        break;
    }
    return true;
}

void UnPackage::emitFinished(DataPackageType type, const DeviceModel& device)
{
    switch (type) {
    case ReadDataType:
        Q_EMIT signal_readFinished(registryOf(m_link).getCurrentSelectDevice());
        break;
    case UpgradeDeviceType:
        Q_EMIT signal_finshedUpgrade(m_upgradeName);
        break;
    case UpdateRemarkType:
        Q_EMIT signal_finshedUpdateRemark();
        break;
    default:
        Q_EMIT signal_finshed(device);
        break;
    }
}

void UnPackage::slot_SendQuadrelNetWork(
    QString oldIp, QString newIp, QString subnet, QString gateway)
{
    const bool result = sendNetWork(newIp, subnet, gateway);
    Q_EMIT signal_finishnetwork(oldIp, newIp, result);
}

bool UnPackage::readBlock(
    unsigned int address, unsigned int length, const QString& label, QString& error)
{
    PackageRequestProto3rd* request =
        KVProtocolParser::Get_CommonRead(getLabels(), address, length);
    sendPackage(request->ParseSendRequest());
    return waitResponsed(label, error);
}

bool UnPackage::writeBlock(
    unsigned int address, const QByteArray& data, const QString& label, QString& error)
{
    sendWrite(address, data);
    return waitResponsed(label, error);
}

void UnPackage::sendWrite(unsigned int address, const QByteArray& data)
{
    PackageRequestProto3rd* request = KVProtocolParser::Set_CommonWrite(
        getLabels(), address, static_cast<unsigned int>(data.size()), data, QLatin1String(""));
    sendPackage(request->ParseSendRequest());
}

bool UnPackage::readDeviceParameter(QString& error)
{
    if (!readBlock(deviceAddress, bytesOf(1, m_deviceLength), tr("回读设备信息"), error)
        || !PackageDevice::parseDevicePackage(
            deviceAddress, m_recvPackage, static_cast<uint>(m_deviceLength), m_deviceModel, error))
        return false;

    // The registry keeps the pointer and nothing deletes it: an application may still edit the
    // models of an earlier read.
    auto* models = new ModelManagement(nullptr);
    models->setDeviceModel(m_deviceModel);
    registryOf(m_link).setCurrentSelectDevice(m_deviceModel);
    registryOf(m_link).setDeviceData(m_deviceModel, models);
    Q_EMIT signal_updateDeviced();
    return true;
}

bool UnPackage::sendConfig(QString& error)
{
    const QByteArray serialBlock = ProtocolCreate::createComPackage(m_configModel.getComInfo());
    if (!writeBlock(serialAddress, serialBlock, tr("配置参数"), error))
        return false;
    const QByteArray ioBlock = ProtocolCreate::createIOPackage(m_configModel.getIOType());
    if (!writeBlock(ioAddress, ioBlock, tr("配置参数"), error))
        return false;

    updateRegistry(registryOf(m_link),
        [this](ModelManagement& models) { models.setConfigModel(m_configModel); });
    Q_EMIT signal_updateConfiged();
    return true;
}

bool UnPackage::readConfigParameter(QString& error)
{
    const auto readPart = [&](unsigned int address, unsigned int length) {
        return readBlock(address, length, tr("回读配置参数"), error)
            && ProtocolCreate::parseConfigPackage(
                address, m_recvPackage, length, m_configModel, error);
    };
    if (!readPart(serialAddress, bytesOf(m_comNumber, m_comLength))
        || !readPart(ioAddress, bytesOf(m_ioNumber, m_ioLength)))
        return false;

    updateRegistry(registryOf(m_link),
        [this](ModelManagement& models) { models.setConfigModel(m_configModel); });
    Q_EMIT signal_updateConfiged();
    return true;
}

/** The stride of both tables is the event record's, at four records to a write. */
template <typename Encode>
bool UnPackage::writeRecords(unsigned int address, int count, Encode encode, QString& error)
{
    QByteArray batch;
    for (int i = 0; i < count; ++i) {
        batch.append(encode(i));
        const bool full = i % recordsPerWrite == recordsPerWrite - 1;
        if (!full && i != count - 1)
            continue;
        if (!writeBlock(address, batch, tr("配置参数"), error))
            return false;
        address += static_cast<unsigned int>(recordsPerWrite * m_eventLength);
        batch.clear();
    }
    return true;
}

bool UnPackage::sendEvent(QString& error)
{
    const int count = m_eventModel.size();
    const auto encode = [this](
                            int i) { return PackageEvent::createEventPackage(m_eventModel.at(i)); };
    if (!writeBlock(
            eventCountAddress, QByteArray(1, static_cast<char>(count)), tr("配置参数"), error)
        || !writeRecords(eventTableAddress, count, encode, error))
        return false;

    updateRegistry(registryOf(m_link),
        [this](ModelManagement& models) { models.setEventModel(m_eventModel); });
    Q_EMIT signal_updateEvented();
    return true;
}

/** A count cell with the records right after it. */
struct UnPackage::RecordTable {
    unsigned int countAddress;
    int countLength;
    int recordLength;
    unsigned int maximum;
    QString label;
};

/** Reads the count and appends the records; a count over the maximum reads as an empty table. */
template <typename Length, typename Model>
bool UnPackage::readTable(const RecordTable& table, int& count,
    bool (*parseCount)(uint, QByteArray, Length, int&, QString&),
    bool (*parseRecord)(uint, QByteArray, Length, Model&, QString&), Model& model, QString& error)
{
    if (!readBlock(table.countAddress, bytesOf(1, table.countLength), table.label, error)
        || !parseCount(table.countAddress, m_recvPackage, static_cast<Length>(table.countLength),
            count, error))
        return false;
    if (static_cast<unsigned int>(count) > table.maximum)
        count = 0;

    const auto length = static_cast<Length>(table.recordLength);
    for (int n = 0; n < count; ++n) {
        const unsigned int address = table.countAddress + 1 + bytesOf(n, table.recordLength);
        if (!readBlock(address, bytesOf(1, table.recordLength), table.label, error)
            || !parseRecord(address, m_recvPackage, length, model, error))
            return false;
    }
    return true;
}

bool UnPackage::readEventParameter(QString& error)
{
    const RecordTable table{
        eventCountAddress, m_eventHeadLength, m_eventLength, maximumEvents, tr("回读事件参数")};
    if (!readTable(table, m_eventCount, &PackageEvent::parseEventCount,
            &PackageEvent::parseEventPackage, m_eventModel, error))
        return false;

    updateRegistry(registryOf(m_link),
        [this](ModelManagement& models) { models.setEventModel(m_eventModel); });
    Q_EMIT signal_updateEvented();
    return true;
}

/** All triggers come before all time triggers. */
QByteArray UnPackage::encodeTableEntry(int index)
{
    const int triggers = m_triggerModel.size();
    if (index < triggers)
        return PackageTrigger::createTriggerPackage(m_triggerModel.at(index));
    return PackageTimeTrigger::createTimeTriggerPackage(m_timeTriggerModel.at(index - triggers));
}

bool UnPackage::sendTrigger(QString& error)
{
    const int total = m_triggerModel.size() + m_timeTriggerModel.size();
    const auto encode = [this](int i) { return encodeTableEntry(i); };
    if (!writeBlock(
            triggerCountAddress, QByteArray(1, static_cast<char>(total)), tr("配置参数"), error)
        || !writeRecords(triggerTableAddress, total, encode, error))
        return false;

    updateRegistry(registryOf(m_link), [this](ModelManagement& models) {
        models.setTriggerModel(m_triggerModel);
        models.setTriggerTimeModel(m_timeTriggerModel);
    });
    Q_EMIT signal_updateTriggered();
    Q_EMIT signal_updateTimeTriggered();
    return true;
}

bool UnPackage::sendTimeTrigger(QString& error)
{
    return sendTrigger(error);
}

bool UnPackage::readTriggerParameter(QString& error)
{
    const RecordTable table{triggerCountAddress, m_triggerHeadLength, m_triggerLength,
        maximumTableEntries, tr("回读触发参数")};
    if (!readTable(table, m_triggerCount, &PackageTrigger::parseTriggerCount,
            &PackageTrigger::parseTriggerPackage, m_triggerModel, error))
        return false;

    numberRecords(m_triggerModel);
    updateRegistry(registryOf(m_link),
        [this](ModelManagement& models) { models.setTriggerModel(m_triggerModel); });
    Q_EMIT signal_updateTriggered();
    return true;
}

bool UnPackage::readTimeTriggerParameter(QString& error)
{
    const RecordTable table{triggerCountAddress, m_timeTriggerHeadLength, m_timeTriggerLength,
        maximumTableEntries, tr("回读触发参数")};
    if (!readTable(table, m_timeTriggerCount, &PackageTimeTrigger::parseTimeTriggerCount,
            &PackageTimeTrigger::parseTimeTriggerPackage, m_timeTriggerModel, error))
        return false;

    numberRecords(m_timeTriggerModel);
    updateRegistry(registryOf(m_link),
        [this](ModelManagement& models) { models.setTriggerTimeModel(m_timeTriggerModel); });
    Q_EMIT signal_updateTimeTriggered();
    return true;
}

bool UnPackage::readEverything(QString& error)
{
    // The configuration stays: its reads replace both lists, while the others append.
    m_eventModel.clear();
    m_triggerModel.clear();
    m_timeTriggerModel.clear();
    return readData(error);
}

bool UnPackage::readData(QString& error)
{
    return readDeviceParameter(error) && readConfigParameter(error) && readEventParameter(error)
        && readTriggerParameter(error) && readTimeTriggerParameter(error) && backwordread(error);
}

bool UnPackage::backwordread(QString& error)
{
    if (!readBlock(clockAddress, bytesOf(1, m_clockLength), tr("校时回读"), error))
        return false;
    const QByteArray reply = m_recvPackage;
    if (reply.size() < ReplyFrame::payloadOffset + m_clockLength) {
        error = tr("数据包长度小于最小数据包长度！");
        return false;
    }
    Q_EMIT signal_backread(ClockCell::text(ReplyFrame(reply)));
    return true;
}

bool UnPackage::backwordwrite(QString& error)
{
    sendWrite(clockAddress, ClockCell::fromText(m_timingCheck));
    Q_EMIT signal_backread(m_timingCheck);
    return waitResponsed(tr("同步本地时间"), error);
}

bool UnPackage::sendReset(QString& error)
{
    const QByteArray command = PackageDevice::createResetPackage(m_retainIP);
    if (m_retainIP)
        return writeBlock(resetAddress, command, tr("配置参数"), error);
    // Applications know it so: a reply, if there is one, is not awaited.
    sendWrite(resetAddress, command);
    return true;
}

bool UnPackage::sendNetWork(QString ip, QString subnet, QString gateway)
{
    constexpr int octets = 4;
    // One byte short of the block: the last octet makes it grow to its 13 bytes.
    QByteArray block(12, '\0');
    int position = 0;
    setBytesFromInt(&block, position, 1, 0, &position);

    const QStringList addresses[] = {ip.split(QLatin1Char('.')), subnet.split(QLatin1Char('.')),
        gateway.split(QLatin1Char('.'))};
    for (const QStringList& parts : addresses) {
        if (parts.size() < octets)
            return false;
    }
    for (const QStringList& parts : addresses) {
        for (int i = octets - 1; i >= 0; --i)
            setBytesFromInt(&block, position, 1, parts.at(i).toInt(), &position);
    }
    QString error;
    return writeBlock(networkAddress, block, tr("网络设置"), error);
}

bool UnPackage::setBytesFromInt(QByteArray* bytes, int start, int length, int value, int* next)
{
    const qint64 end = static_cast<qint64>(start) + length;
    *next = static_cast<int>(end);
    const qint64 last = end - 1;
    if (start < 0 || length <= 0 || last > bytes->size())
        return false;

    if (last == bytes->size())
        bytes->append('\0');
    qint64 rest = value;
    for (int i = 0; i < length; ++i) {
        bytes->data()[last - i] = static_cast<char>(rest);
        rest >>= 8;
    }
    return true;
}

void UnPackage::updateProgressBar(double value, double total)
{
    const QString percentage = QString::number(value / total * 100, 'f', 0);
    Q_EMIT signal_updateProgress(tr("升级中\n") + percentage + tr("%"));
}

/** One run: what is left of both images, and the progress over their bytes and control words. */
class UnPackage::Upgrade {
public:
    explicit Upgrade(UnPackage& operations)
        : m_operations(operations)
        , m_streamed(operations.m_streamedImage)
        , m_addressed(operations.m_addressedImage)
        , m_total(double(bytesLeft()) + upgradeControlBytes)
    {
    }

    bool run(QString& error)
    {
        return announce(m_addressed, 0, addressedImageNumber, error)
            && writeImage(m_addressed, addressedImageAddress, chunkLength(), error)
            && writeStartWords(error)
            && announce(m_streamed, m_addressed.left(), streamedImageNumber, error)
            && writeImage(m_streamed, streamedImageAddress, 0, error);
    }

    QByteArray streamedRest() const { return m_streamed.rest(); }
    QByteArray addressedRest() const { return m_addressed.rest(); }

private:
    int chunkLength() const { return m_operations.m_upgradeChunkLength; }
    uint bytesLeft() const { return m_streamed.left() + m_addressed.left(); }

    /** The control words in front of an image. */
    bool announce(const UpgradeImage& image, uint position, ushort number, QString& error)
    {
        const QByteArray length = PackageUpgrade::createLengthPackage(bytesLeft());
        const QByteArray start = PackageUpgrade::createPositionPackage(position);
        const QByteArray size = PackageUpgrade::createSizePackage(image.left());
        const QByteArray command = PackageUpgrade::createCommandPackage(upgradeCommand, number);
        return write(upgradeLengthAddress, length, error)
            && write(upgradePositionAddress, start, error) && write(upgradeSizeAddress, size, error)
            && write(upgradeCommandAddress, command, error);
    }

    bool writeStartWords(QString& error)
    {
        const QByteArray start = PackageUpgrade::createStartWordPackage(upgradeStartWord);
        return write(upgradeStartAddress, start, error)
            && write(upgradeWordAddress, PackageUpgrade::createWordPackage(0), error);
    }

    bool writeImage(UpgradeImage& image, uint address, int step, QString& error)
    {
        for (; image.left() > 0; address += static_cast<uint>(step)) {
            if (!write(address, image.takeChunk(chunkLength()), error))
                return false;
        }
        return true;
    }

    bool write(uint address, const QByteArray& data, QString& error)
    {
        if (!m_operations.writeBlock(address, data, UnPackage::tr("升级"), error))
            return false;
        m_written += data.size();
        m_operations.updateProgressBar(m_written, m_total);
        return true;
    }

    UnPackage& m_operations;
    UpgradeImage m_streamed;
    UpgradeImage m_addressed;
    const double m_total;
    double m_written = 0;
};

bool UnPackage::upgradeDevcie(QString& error)
{
    Upgrade upgrade(*this);
    const bool isDone = upgrade.run(error);
    m_streamedImage = upgrade.streamedRest();
    m_addressedImage = upgrade.addressedRest();
    if (isDone)
        Q_EMIT signal_updateProgress(tr("重连设备中"));
    return isDone;
}

bool UnPackage::updateRemark(QString& error)
{
    return writeBlock(remarkAddress, m_upgradeRemark, tr("升级"), error);
}
