// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "librarymodel.h"

#include "packagedevice.h"
#include "packageevent.h"
#include "packagetimetrigger.h"
#include "packagetrigger.h"
#include "protocolcreate.h"
#include "unitbytes.h"
#include "unitframe.h"

#include <algorithm>

using QuadrelUnit::UnitFrame;

namespace {

QByteArray word16(quint16 value)
{
    return QuadrelUnit::littleEndian(value);
}

QByteArray word32(int value)
{
    return QuadrelUnit::littleEndian(value);
}

QString progress(int value, int total)
{
    return QStringLiteral("updateProgress:升级中\n%1%")
        .arg(QString::number(100.0 * value / total, 'f', 0));
}

} // namespace

LibraryModel::LibraryModel(const QuadrelUnit::UnitMemory& delivered)
    : m_unit(delivered)
{
}

void LibraryModel::setUpgrade(
    const QByteArray& first, const QByteArray& second, const QString& name)
{
    m_streamed = first;
    m_addressed = second;
    m_upgradeName = name;
    m_remark = first.left(90);
    m_remark.append(QByteArray(90 - m_remark.size(), '\0'));
}

void LibraryModel::setError(const QString& error)
{
    m_errorText = error;
    m_hasError = true;
}

void LibraryModel::begin(const QVector<Exchange>& exchanges)
{
    m_exchanges = exchanges;
    m_next = 0;
    m_signals.clear();
}

void LibraryModel::finish()
{
    if (m_next < m_exchanges.size())
        throw Difference{QStringLiteral("a frame too many: ")
            + QString::fromLatin1(m_exchanges.at(m_next).frame.toHex(' '))};
}

void LibraryModel::dispatch(DataPackageType type, const QVector<Exchange>& exchanges)
{
    begin(exchanges);
    m_errorText.clear();
    m_hasError = false;
    m_buffer.clear();
    const QString selected = m_registry.getCurrentSelectDevice().getIP();
    QString error;
    m_signals.append(
        run(type, error) ? closingSignal(type, selected) : QStringLiteral("errored:") + error);
    finish();
}

bool LibraryModel::run(DataPackageType type, QString& error)
{
    switch (type) {
    case SendConfigType:
        return sendConfig(error);
    case SendEventType:
        return sendEvents(error);
    case SendTriggerType:
    case SendTimeTriggerType:
        return sendTriggers(error);
    case ReadDataType:
        events.clear();
        triggers.clear();
        timeTriggers.clear();
        return readAll(error);
    case SendResetType:
        return sendReset(error);
    case UpgradeDeviceType:
        return upgrade(error);
    case UpdateRemarkType:
        return updateRemark(error);
    case BackwordReadType:
        return readClock(error);
    case BackwordWriteType:
        return sendClock(error);
    default:
        return true;
    }
}

QString LibraryModel::closingSignal(DataPackageType type, const QString& selected)
{
    switch (type) {
    case ReadDataType:
        return QStringLiteral("readFinished:") + m_registry.getCurrentSelectDevice().getIP();
    case UpgradeDeviceType:
        return QStringLiteral("finshedUpgrade:") + m_upgradeName;
    case UpdateRemarkType:
        return QStringLiteral("finshedUpdateRemark");
    default:
        return QStringLiteral("finshed:") + selected;
    }
}

bool LibraryModel::callDirectly(
    Operation operation, QString& error, const QVector<Exchange>& exchanges)
{
    begin(exchanges);
    const bool result = (this->*operation)(error);
    finish();
    return result;
}

const Exchange& LibraryModel::nextExchange(const QByteArray& frame)
{
    m_label = (m_label + 1) % 255;
    if (m_next == m_exchanges.size())
        throw Difference{QStringLiteral("missing frame: ") + QString::fromLatin1(frame.toHex(' '))};
    const Exchange& exchange = m_exchanges.at(m_next++);
    if (exchange.frame != frame)
        throw Difference{QStringLiteral("frame %1\n  instead of %2")
                             .arg(QString::fromLatin1(exchange.frame.toHex(' ')),
                                 QString::fromLatin1(frame.toHex(' ')))};
    if (!exchange.early.isNull())
        m_buffer = exchange.early;
    return exchange;
}

bool LibraryModel::wait(const Exchange& exchange, const QString& label, QString& error)
{
    switch (exchange.reaction.kind) {
    case ScriptedUnit::Reaction::Silence:
        error = label + QStringLiteral("超时！");
        return false;
    case ScriptedUnit::Reaction::Failure:
        setError(exchange.reaction.failure);
        break;
    case ScriptedUnit::Reaction::Reply:
        m_buffer = exchange.reaction.reply;
        break;
    case ScriptedUnit::Reaction::Wake:
        break;
    }
    if (m_hasError)
        error = m_errorText;
    return !m_hasError;
}

bool LibraryModel::read(quint32 address, int length, const QString& label, QString& error)
{
    const UnitFrame request =
        UnitFrame::readRequest(static_cast<quint8>(m_label), address, static_cast<quint16>(length));
    return wait(nextExchange(request.encode()), label, error);
}

const Exchange& LibraryModel::sendWrite(quint32 address, const QByteArray& data)
{
    const UnitFrame request = UnitFrame::writeRequest(static_cast<quint8>(m_label), address, data);
    const Exchange& exchange = nextExchange(request.encode());
    if (exchange.executed)
        m_unit.write(address, data);
    return exchange;
}

bool LibraryModel::write(
    quint32 address, const QByteArray& data, const QString& label, QString& error)
{
    return wait(sendWrite(address, data), label, error);
}

bool LibraryModel::writeRecords(quint32 address, const QList<QByteArray>& records, QString& error)
{
    for (int i = 0; i < records.size(); i += 4) {
        QByteArray batch;
        for (const QByteArray& record : records.mid(i, 4))
            batch += record;
        if (!write(address, batch, QStringLiteral("配置参数"), error))
            return false;
        address += 2048;
    }
    return true;
}

bool LibraryModel::readRecords(quint32 countAddress, int maximum, const QString& label,
    QString& error, const ParseCount& parseCount, const ParseRecord& parseRecord)
{
    int count = 0;
    if (!read(countAddress, 1, label, error) || !parseCount(count, error))
        return false;
    if (count > maximum)
        count = 0;
    for (int i = 0; i < count; ++i) {
        const quint32 address = countAddress + 1 + 512 * static_cast<quint32>(i);
        if (!read(address, 512, label, error) || !parseRecord(address, error))
            return false;
    }
    return true;
}

bool LibraryModel::owns(const ModelManagement* models) const
{
    return std::any_of(m_models.begin(), m_models.end(),
        [models](const auto& known) { return known.get() == models; });
}

ModelManagement* LibraryModel::newModels()
{
    m_models.push_back(std::make_unique<ModelManagement>());
    return m_models.back().get();
}

void LibraryModel::store(const std::function<void(ModelManagement&)>& change, const char* signal)
{
    const DeviceModel device = m_registry.getCurrentSelectDevice();
    ModelManagement* models = m_registry.getDeviceData(device);
    // A device that the registry does not know gets an aggregate, which is stored.
    if (models && !owns(models))
        m_models.emplace_back(models);
    if (models)
        change(*models);
    m_registry.setDeviceData(device, models);
    m_signals.append(QLatin1String(signal));
}

bool LibraryModel::readDevice(QString& error)
{
    constexpr quint32 address = 0xF0000000;
    if (!read(address, 32, QStringLiteral("回读设备信息"), error)
        || !PackageDevice::parseDevicePackage(address, m_buffer, 32, m_device, error))
        return false;
    ModelManagement* models = newModels();
    models->setDeviceModel(m_device);
    m_registry.setCurrentSelectDevice(m_device);
    m_registry.setDeviceData(m_device, models);
    m_signals.append(QStringLiteral("updateDeviced"));
    return true;
}

bool LibraryModel::sendConfig(QString& error)
{
    const QString label = QStringLiteral("配置参数");
    if (!write(0xF0001000, ProtocolCreate::createComPackage(config), label, error)
        || !write(0xF0001100, ProtocolCreate::createIOPackage(config), label, error))
        return false;
    store([this](ModelManagement& models) { models.setConfigModel(config); }, "updateConfiged");
    return true;
}

bool LibraryModel::readConfig(QString& error)
{
    const auto readPart = [&](quint32 address, int length) {
        return read(address, length, QStringLiteral("回读配置参数"), error)
            && ProtocolCreate::parseConfigPackage(
                address, m_buffer, static_cast<uint>(length), config, error);
    };
    if (!readPart(0xF0001000, 7 * comNumber) || !readPart(0xF0001100, 2 * ioNumber))
        return false;
    store([this](ModelManagement& models) { models.setConfigModel(config); }, "updateConfiged");
    return true;
}

bool LibraryModel::sendEvents(QString& error)
{
    QList<QByteArray> records;
    for (int i = 0; i < events.size(); ++i)
        records.append(PackageEvent::createEventPackage(events.at(i)));
    const QByteArray count(1, static_cast<char>(records.size()));
    if (!write(0xF0020000, count, QStringLiteral("配置参数"), error)
        || !writeRecords(0xF0020001, records, error))
        return false;
    store([this](ModelManagement& models) { models.setEventModel(events); }, "updateEvented");
    return true;
}

bool LibraryModel::readEvents(QString& error)
{
    const auto parseCount = [this](int& count, QString& reason) {
        return PackageEvent::parseEventCount(0xF0020000, m_buffer, 1, count, reason);
    };
    const auto parseRecord = [this](quint32 address, QString& reason) {
        return PackageEvent::parseEventPackage(address, m_buffer, 512, events, reason);
    };
    if (!readRecords(
            0xF0020000, 128, QStringLiteral("回读事件参数"), error, parseCount, parseRecord))
        return false;
    store([this](ModelManagement& models) { models.setEventModel(events); }, "updateEvented");
    return true;
}

bool LibraryModel::sendTriggers(QString& error)
{
    QList<QByteArray> records;
    for (int i = 0; i < triggers.size(); ++i)
        records.append(PackageTrigger::createTriggerPackage(triggers.at(i)));
    for (int i = 0; i < timeTriggers.size(); ++i)
        records.append(PackageTimeTrigger::createTimeTriggerPackage(timeTriggers.at(i)));
    const QByteArray count(1, static_cast<char>(records.size()));
    if (!write(0xF0010000, count, QStringLiteral("配置参数"), error)
        || !writeRecords(0xF0010001, records, error))
        return false;
    store(
        [this](ModelManagement& models) {
            models.setTriggerModel(triggers);
            models.setTriggerTimeModel(timeTriggers);
        },
        "updateTriggered");
    m_signals.append(QStringLiteral("updateTimeTriggered"));
    return true;
}

bool LibraryModel::readTriggers(QString& error)
{
    const auto parseCount = [this](int& count, QString& reason) {
        return PackageTrigger::parseTriggerCount(0xF0010000, m_buffer, 1, count, reason);
    };
    const auto parseRecord = [this](quint32 address, QString& reason) {
        return PackageTrigger::parseTriggerPackage(address, m_buffer, 512, triggers, reason);
    };
    if (!readRecords(
            0xF0010000, 64, QStringLiteral("回读触发参数"), error, parseCount, parseRecord))
        return false;
    for (int i = 0; i < triggers.size(); ++i) {
        TriggerInfo trigger = triggers.at(i);
        trigger.setTriggerId(i);
        triggers.replace(i, trigger);
    }
    store([this](ModelManagement& models) { models.setTriggerModel(triggers); }, "updateTriggered");
    return true;
}

bool LibraryModel::readTimeTriggers(QString& error)
{
    const auto parseCount = [this](int& count, QString& reason) {
        return PackageTimeTrigger::parseTimeTriggerCount(0xF0010000, m_buffer, 1, count, reason);
    };
    const auto parseRecord = [this](quint32 address, QString& reason) {
        return PackageTimeTrigger::parseTimeTriggerPackage(
            address, m_buffer, 512, timeTriggers, reason);
    };
    if (!readRecords(
            0xF0010000, 64, QStringLiteral("回读触发参数"), error, parseCount, parseRecord))
        return false;
    for (int i = 0; i < timeTriggers.size(); ++i) {
        TriggerTimeInfo trigger = timeTriggers.at(i);
        trigger.setTriggerId(i);
        timeTriggers.replace(i, trigger);
    }
    store([this](ModelManagement& models) { models.setTriggerTimeModel(timeTriggers); },
        "updateTimeTriggered");
    return true;
}

bool LibraryModel::readAll(QString& error)
{
    return readDevice(error) && readConfig(error) && readEvents(error) && readTriggers(error)
        && readTimeTriggers(error) && readClock(error);
}

bool LibraryModel::readClock(QString& error)
{
    if (!read(0x02000011, 6, QStringLiteral("校时回读"), error))
        return false;
    if (m_buffer.size() < 24) {
        error = QStringLiteral("数据包长度小于最小数据包长度！");
        return false;
    }
    const auto field = [this](int offset) {
        const auto byte = static_cast<quint8>(m_buffer.at(18 + offset));
        return (byte >> 4) * 10 + (byte & 0x0F);
    };
    const auto two = [&](int offset) {
        return QString::number(field(offset)).rightJustified(2, QLatin1Char('0'));
    };
    m_signals.append(QStringLiteral("backread:20%1/%2/%3 %4:%5:%6")
                         .arg(field(0))
                         .arg(two(1), two(2), two(3), two(4), two(5)));
    return true;
}

bool LibraryModel::sendClock(QString& error)
{
    QByteArray cell;
    // The input is always well formed: "2026/11/14  06:05:49".
    for (const int position : {2, 5, 8, 12, 15, 18})
        cell.append(QuadrelUnit::toBcd(clock.mid(position, 2).toInt()));
    const Exchange& exchange = sendWrite(0x02000011, cell);
    m_signals.append(QStringLiteral("backread:") + clock);
    return wait(exchange, QStringLiteral("同步本地时间"), error);
}

bool LibraryModel::sendReset(QString& error)
{
    const Exchange& exchange = sendWrite(0xF000001C, QByteArray(1, retainIp ? 1 : 0));
    return !retainIp || wait(exchange, QStringLiteral("配置参数"), error);
}

void LibraryModel::setNetwork(const QString& oldIp, const QString& newIp, const QString& subnet,
    const QString& gateway, const QVector<Exchange>& exchanges)
{
    begin(exchanges);
    QByteArray cell(1, '\0');
    bool complete = true;
    for (const QString& address : {newIp, subnet, gateway}) {
        const QStringList octets = address.split(QLatin1Char('.'));
        complete = complete && octets.size() == 4;
        for (int i = 3; i >= 0; --i)
            cell.append(static_cast<char>(octets.value(i).toInt()));
    }
    QString error;
    const bool result = complete && write(0xF000000E, cell, QStringLiteral("网络设置"), error);
    m_signals.append(QStringLiteral("finishnetwork:%1,%2,%3").arg(oldIp, newIp).arg(result));
    finish();
}

bool LibraryModel::upgrade(QString& error)
{
    const int total = m_streamed.size() + m_addressed.size() + 36;
    bool allExecuted = true;
    int value = 0;
    enum Place { Within, Last };
    const auto step = [&](quint32 address, const QByteArray& data, Place place = Within) {
        const Exchange& exchange = sendWrite(address, data);
        allExecuted = allExecuted && exchange.executed;
        if (place == Last && allExecuted)
            m_unit.upgraded();
        if (!wait(exchange, QStringLiteral("升级"), error))
            return false;
        value += data.size();
        m_signals.append(progress(value, total));
        return true;
    };
    const auto takeChunk = [](QByteArray& image) {
        const QByteArray chunk = image.left(2048);
        image.remove(0, 2048);
        return chunk;
    };
    const auto sum = [&] { return word32(m_streamed.size() + m_addressed.size()); };

    if (!step(0x01F00000, sum()) || !step(0x01F00004, word32(0))
        || !step(0x01F0000C, word32(m_addressed.size()))
        || !step(0x01F00008, word16(2) + word16(1)))
        return false;
    for (quint32 address = 0x06000000; !m_addressed.isEmpty(); address += 2048) {
        if (!step(address, takeChunk(m_addressed)))
            return false;
    }
    if (!step(0x18200002, word16(0x7209)) || !step(0x18200000, word16(0))
        || !step(0x01F00000, sum()) || !step(0x01F00004, word32(m_addressed.size()))
        || !step(0x01F0000C, word32(m_streamed.size()))
        || !step(0x01F00008, word16(2) + word16(2), m_streamed.isEmpty() ? Last : Within))
        return false;
    while (!m_streamed.isEmpty()) {
        const QByteArray chunk = takeChunk(m_streamed);
        if (!step(0x18000000, chunk, m_streamed.isEmpty() ? Last : Within))
            return false;
    }
    m_signals.append(QStringLiteral("updateProgress:重连设备中"));
    return true;
}

bool LibraryModel::updateRemark(QString& error)
{
    return write(0x18201000, m_remark, QStringLiteral("升级"), error);
}
