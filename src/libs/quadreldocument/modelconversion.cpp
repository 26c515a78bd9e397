// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "modelconversion.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>

namespace QuadrelDocument {

namespace {

/** A delay counts in units of 10 ms. */
constexpr int delayUnit = 10;

QString delaySuffix()
{
    return QStringLiteral("*10ms");
}

QString nameOfNewEvent()
{
    return EventInfo().getEventName();
}

QString highLevel()
{
    return QCoreApplication::translate("PackageTrigger", "输入-高电平");
}

QString lowLevel()
{
    return QCoreApplication::translate("PackageTrigger", "输入-低电平");
}

QString forEver()
{
    return QStringLiteral("永久有效");
}

int delayOf(QString text)
{
    if (text.endsWith(delaySuffix()))
        text.chop(delaySuffix().size());
    return qBound(0, qRound(text.toDouble() * delayUnit), Limit::delay);
}

QString delayText(int milliseconds)
{
    const int fraction = milliseconds % delayUnit;
    QString text = QString::number(milliseconds / delayUnit);
    if (fraction != 0)
        text += QLatin1Char('.') + QString::number(fraction);
    return text + delaySuffix();
}

Event eventOf(EventInfo info)
{
    Event event;
    event.id = info.getEventId();
    if (info.getEventName() != nameOfNewEvent())
        event.name = info.getEventName();
    // Whatever the protocol type says: the library sends each command as hexadecimal.
    if (info.getEventType() == EventInfo::EVENT_DELAY)
        event.delay = delayOf(info.getEventProtocal());
    else
        event.command = QByteArray::fromHex(info.getEventProtocal().toLatin1());
    event.description = info.getEventInstruction();
    return normalEvent(event);
}

/** The ids in texts such as "(ID:3);(ID:7)"; an item without one runs event 0. */
QVector<int> eventIdsOf(const QString& text)
{
    const QString word = QStringLiteral("ID:");
    QVector<int> ids;
    if (!text.contains(word) && !text.contains(QLatin1Char(';')))
        return ids;
    const QStringList items = text.split(QLatin1Char(';'));
    for (const QString& item : items) {
        const int start = item.indexOf(word);
        const int end = item.indexOf(QLatin1Char(')'), start);
        const int first = start + word.size();
        ids.append(start < 0 ? 0 : item.midRef(first, end < 0 ? -1 : end - first).toInt() & 0xFF);
    }
    return ids;
}

QString eventText(const QVector<int>& ids)
{
    QStringList items;
    for (const int id : ids)
        items.append(QStringLiteral("(ID:%1)").arg(id));
    return items.join(QLatin1Char(';'));
}

TriggerKind kindOf(TriggerInfo::TriggerType type)
{
    switch (type) {
    case TriggerInfo::COM_MODBUS:
        return TriggerKind::ComModbus;
    case TriggerInfo::IO:
        return TriggerKind::Io;
    case TriggerInfo::COM:
        break;
    }
    return TriggerKind::Com;
}

TriggerInfo::TriggerType typeOf(TriggerKind kind)
{
    switch (kind) {
    case TriggerKind::Com:
        return TriggerInfo::COM;
    case TriggerKind::ComModbus:
        return TriggerInfo::COM_MODBUS;
    case TriggerKind::Io:
        return TriggerInfo::IO;
    }
    Q_UNREACHABLE();
}

std::optional<Level> levelOf(const QString& text)
{
    if (text == highLevel())
        return Level::High;
    if (text == lowLevel())
        return Level::Low;
    return std::nullopt;
}

QString levelText(const std::optional<Level>& level)
{
    if (!level)
        return {};
    return *level == Level::High ? highLevel() : lowLevel();
}

Trigger triggerOf(TriggerInfo info, int place)
{
    Trigger trigger;
    trigger.id = info.getTriggerId() < 0 ? place : info.getTriggerId();
    trigger.kind = kindOf(info.getTriggerType());
    const QString parameter = info.getTriggerParameter();
    if (trigger.kind == TriggerKind::Io) {
        trigger.line = info.getIOSelect();
        trigger.level = levelOf(parameter);
    } else {
        trigger.line = info.getCOMSelect();
        trigger.parameter = info.getTriggerProtocolType()
            ? QByteArray::fromHex(parameter.toLatin1())
            : parameter.toLatin1();
    }
    trigger.eventIds = eventIdsOf(info.getTriggerEvent());
    trigger.description = info.getTriggerInstruction();
    return trigger;
}

TriggerInfo infoOf(const Trigger& trigger)
{
    TriggerInfo info;
    info.setTriggerId(trigger.id);
    info.setTriggerType(typeOf(trigger.kind));
    const int line = qMax(0, trigger.line);
    if (trigger.kind == TriggerKind::Io) {
        info.setIOSelect(static_cast<IOSelect>(line));
        info.setTriggerParameter(levelText(trigger.level));
    } else {
        info.setCOMSelect(static_cast<COMSelect>(line));
        info.setTriggerParameter(hexText(trigger.parameter));
    }
    info.setTriggerEvent(eventText(trigger.eventIds));
    info.setTriggerInstruction(trigger.description);
    return info;
}

Repeat repeatOf(TriggerTimeInfo::RepetMode mode)
{
    switch (mode) {
    case TriggerTimeInfo::WEEKLY:
        return Repeat::Weekly;
    case TriggerTimeInfo::ONCE:
        return Repeat::Once;
    case TriggerTimeInfo::EVERYDAY:
        break;
    }
    return Repeat::EveryDay;
}

TriggerTimeInfo::RepetMode modeOf(Repeat repeat)
{
    switch (repeat) {
    case Repeat::EveryDay:
        return TriggerTimeInfo::EVERYDAY;
    case Repeat::Weekly:
        return TriggerTimeInfo::WEEKLY;
    case Repeat::Once:
        return TriggerTimeInfo::ONCE;
    }
    Q_UNREACHABLE();
}

QVector<int> weekdaysOf(const QString& text)
{
    QVector<int> days;
    for (int i = 0; i < qMin(text.size(), Limit::weekdays); ++i) {
        if (text.at(i) == QLatin1Char('1'))
            days.append(i + 1);
    }
    return days;
}

QString weekdayText(const QVector<int>& days)
{
    QString text;
    for (int day = 1; day <= Limit::weekdays; ++day)
        text += days.contains(day) ? QLatin1Char('1') : QLatin1Char('0');
    while (text.size() > 1 && text.endsWith(QLatin1Char('0')))
        text.chop(1);
    return text;
}

TimeTrigger timeTriggerOf(TriggerTimeInfo info, int place)
{
    TimeTrigger trigger;
    trigger.id = info.getTriggerId() < 0 ? place : info.getTriggerId();
    trigger.repeat = repeatOf(info.getTriggerType());
    trigger.startDate = info.getStartDate();
    if (info.getEndDate() != forEver())
        trigger.endDate = info.getEndDate();
    trigger.weekdays = weekdaysOf(info.getSelectWeekly());
    trigger.time = info.getTriggerTime();
    trigger.eventIds = eventIdsOf(info.getTriggerEvent());
    trigger.description = info.getTriggerInstruction();
    return trigger;
}

TriggerTimeInfo infoOf(const TimeTrigger& trigger)
{
    TriggerTimeInfo info;
    info.setTriggerId(trigger.id);
    info.setTriggerType(modeOf(trigger.repeat));
    info.setStartDate(trigger.startDate);
    info.setEndDate(trigger.endDate.value_or(forEver()));
    info.setSelectWeekly(weekdayText(trigger.weekdays));
    info.setTriggerTime(trigger.time);
    info.setTriggerEvent(eventText(trigger.eventIds));
    info.setTriggerInstruction(trigger.description);
    return info;
}

EventInfo infoOf(const Event& event)
{
    EventInfo info;
    info.setEventId(event.id);
    info.setEventName(event.name.value_or(nameOfNewEvent()));
    info.setEventType(static_cast<EventInfo::EventType>(event.type()));
    info.setEventProtocol(event.delay ? delayText(*event.delay) : hexText(event.command));
    info.setEventInstruction(event.description);
    return info;
}

/**
 * A text that the library writes and reads back as `text`: each of the two takes one mark away from
 * the start.
 */
QString sendable(const QString& text)
{
    const QChar mark(QChar::ByteOrderMark);
    return text.startsWith(mark) ? QString(2, mark) + text : text;
}

EventInfo infoToSend(const Event& event)
{
    EventInfo info = infoOf(event);
    if (event.delay && *event.delay % delayUnit != 0) {
        info.setEventType(EventInfo::EVENT_TYPE_0);
        info.setEventProtocol(hexText(delayCommand(*event.delay)));
    }
    const QString name = event.name ? QStringLiteral("$$") + *event.name : QString();
    info.setEventInstruction(sendable(event.description + name));
    return info;
}

template <typename Record, typename Info, typename Convert>
QVector<Record> recordsOf(const QList<Info>& infos, Convert convert)
{
    QVector<Record> records;
    records.reserve(infos.size());
    for (const Info& info : infos)
        records.append(convert(info, records.size()));
    return records;
}

template <typename Info, typename Record, typename Convert>
QList<Info> infosOf(const QVector<Record>& records, Convert convert)
{
    QList<Info> infos;
    infos.reserve(records.size());
    for (const Record& record : records)
        infos.append(convert(record));
    return infos;
}

} // namespace

Device deviceOf(DeviceModel model)
{
    Device device;
    device.modelId = model.getModelId();
    device.serialNumber = model.getSN();
    device.version = model.getVersion();
    device.dhcp = model.getDHCPModel();
    device.ip = model.getIP();
    device.mask = model.getSubMask();
    device.gateway = model.getGateWay();
    device.ethernetLink = model.getEthLinkState();
    device.serialPortCount = model.getComNumber();
    device.ioLineCount = model.getIoNumber();
    device.relayCount = model.getRelayNumber();
    device.infraredPortCount = model.getIRNumber();
    return device;
}

QVector<SerialPort> serialPortsOf(SystemModel model)
{
    return recordsOf<SerialPort>(model.getComInfo(), [](ComInfo info, int) {
        return SerialPort{
            info.getBaudRate(), info.getDataBits(), info.getStopBits(), info.getInspectionType()};
    });
}

QVector<IoLine> ioLinesOf(SystemModel model)
{
    return recordsOf<IoLine>(model.getIOType(), [](IOType type, int) { return IoLine{type}; });
}

QVector<Event> eventsOf(EventModel model)
{
    return recordsOf<Event>(
        model.getEventInfo(), [](EventInfo info, int) { return eventOf(info); });
}

QVector<Trigger> triggersOf(TriggerModel model)
{
    return recordsOf<Trigger>(model.getTriggerInfo(), triggerOf);
}

QVector<TimeTrigger> timeTriggersOf(TriggerTimeModel model)
{
    return recordsOf<TimeTrigger>(model.getTriggerInfo(), timeTriggerOf);
}

DeviceModel asRead(const Device& device)
{
    DeviceModel model;
    model.setModelId(static_cast<unsigned short>(device.modelId));
    model.setSN(device.serialNumber);
    model.setVersion(device.version);
    model.setDHCPModel(device.dhcp);
    model.setIP(device.ip);
    model.setSubMask(device.mask);
    model.setGateWay(device.gateway);
    model.setEthLinkState(device.ethernetLink);
    model.setComNumber(device.serialPortCount);
    model.setIoNumber(device.ioLineCount);
    model.setRelayNumber(device.relayCount);
    model.setIRNumber(device.infraredPortCount);
    return model;
}

SystemModel asRead(
    const std::optional<QVector<SerialPort>>& ports, const std::optional<QVector<IoLine>>& lines)
{
    SystemModel model;
    model.setComInfo(
        infosOf<ComInfo>(ports.value_or(QVector<SerialPort>()), [](const SerialPort& port) {
            ComInfo info;
            info.setBaudRate(port.baudRate);
            info.setDataBits(port.dataBits);
            info.setStopBits(port.stopBits);
            info.setInspectionType(static_cast<inspectionType>(port.inspection));
            return info;
        }));
    model.setIOType(infosOf<IOType>(lines.value_or(QVector<IoLine>()),
        [](const IoLine& line) { return static_cast<IOType>(line.type); }));
    return model;
}

EventModel asRead(const QVector<Event>& events)
{
    EventModel model;
    model.setEventInfo(
        infosOf<EventInfo>(events, [](const Event& event) { return infoOf(event); }));
    return model;
}

TriggerModel asRead(const QVector<Trigger>& triggers)
{
    TriggerModel model;
    model.setTriggerInfo(
        infosOf<TriggerInfo>(triggers, [](const Trigger& trigger) { return infoOf(trigger); }));
    return model;
}

TriggerTimeModel asRead(const QVector<TimeTrigger>& triggers)
{
    TriggerTimeModel model;
    model.setTriggerInfo(infosOf<TriggerTimeInfo>(
        triggers, [](const TimeTrigger& trigger) { return infoOf(trigger); }));
    return model;
}

EventModel toSend(const QVector<Event>& events)
{
    EventModel model;
    model.setEventInfo(infosOf<EventInfo>(events, infoToSend));
    return model;
}

TriggerModel toSend(const QVector<Trigger>& triggers)
{
    TriggerModel model;
    model.setTriggerInfo(infosOf<TriggerInfo>(triggers, [](const Trigger& trigger) {
        TriggerInfo info = infoOf(trigger);
        info.setTriggerInstruction(sendable(trigger.description));
        return info;
    }));
    return model;
}

TriggerTimeModel toSend(const QVector<TimeTrigger>& triggers)
{
    TriggerTimeModel model;
    model.setTriggerInfo(infosOf<TriggerTimeInfo>(triggers, [](const TimeTrigger& trigger) {
        TriggerTimeInfo info = infoOf(trigger);
        info.setTriggerInstruction(sendable(trigger.description));
        return info;
    }));
    return model;
}

} // namespace QuadrelDocument
