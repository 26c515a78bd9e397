#include "contentsjson.h"

#include "console.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

namespace {

QJsonArray idsToJson(const QString& eventText)
{
    QJsonArray ids;
    const QList<int> stored = eventIds(eventText);
    for (const int id : stored)
        ids.append(id);
    return ids;
}

QJsonArray serialPortsToJson(SystemModel config)
{
    QJsonArray ports;
    const QList<ComInfo> records = config.getComInfo();
    for (ComInfo port : records)
        ports.append(QJsonObject{{QStringLiteral("port"), ports.size() + 1},
            {QStringLiteral("baudRate"), port.getBaudRate()},
            {QStringLiteral("dataBits"), port.getDataBits()},
            {QStringLiteral("stopBits"), port.getStopBits()},
            {QStringLiteral("inspection"), port.getInspectionType()}});
    return ports;
}

QJsonArray ioLinesToJson(SystemModel config)
{
    QJsonArray lines;
    const QList<IOType> types = config.getIOType();
    for (const IOType type : types)
        lines.append(QJsonObject{
            {QStringLiteral("line"), lines.size() + 1}, {QStringLiteral("type"), type}});
    return lines;
}

QJsonArray eventsToJson(EventModel model)
{
    QJsonArray events;
    const QList<EventInfo> records = model.getEventInfo();
    for (EventInfo event : records)
        events.append(QJsonObject{{QStringLiteral("id"), event.getEventId()},
            {QStringLiteral("name"), event.getEventName()},
            {QStringLiteral("type"), event.getEventType()},
            {QStringLiteral("isHex"), event.getEventProtocolType()},
            {QStringLiteral("protocol"), event.getEventProtocal()},
            {QStringLiteral("description"), event.getEventInstruction()}});
    return events;
}

QJsonArray triggersToJson(TriggerModel model)
{
    QJsonArray triggers;
    const QList<TriggerInfo> records = model.getTriggerInfo();
    for (TriggerInfo trigger : records)
        triggers.append(QJsonObject{{QStringLiteral("id"), trigger.getTriggerId()},
            {QStringLiteral("kind"), triggerKind(trigger)},
            {QStringLiteral("line"), triggerLine(trigger)},
            {QStringLiteral("isHex"), trigger.getTriggerProtocolType()},
            {QStringLiteral("parameter"), trigger.getTriggerParameter()},
            {QStringLiteral("eventIds"), idsToJson(trigger.getTriggerEvent())},
            {QStringLiteral("description"), trigger.getTriggerInstruction()}});
    return triggers;
}

QJsonArray timeTriggersToJson(TriggerTimeModel model)
{
    QJsonArray triggers;
    const QList<TriggerTimeInfo> records = model.getTriggerInfo();
    for (TriggerTimeInfo trigger : records)
        triggers.append(QJsonObject{{QStringLiteral("id"), trigger.getTriggerId()},
            {QStringLiteral("repeat"), repeatMode(trigger)},
            {QStringLiteral("startDate"), trigger.getStartDate()},
            {QStringLiteral("endDate"), trigger.getEndDate()},
            {QStringLiteral("weekdays"), trigger.getSelectWeekly()},
            {QStringLiteral("time"), trigger.getTriggerTime()},
            {QStringLiteral("eventIds"), idsToJson(trigger.getTriggerEvent())},
            {QStringLiteral("description"), trigger.getTriggerInstruction()}});
    return triggers;
}

} // namespace

QJsonObject deviceToJson(DeviceModel device)
{
    return {{QStringLiteral("modelId"), device.getModelId()},
        // A number of JSON would lose digits of the 64 bits.
        {QStringLiteral("serialNumber"), QString::number(device.getSN())},
        {QStringLiteral("version"), device.getVersion()},
        {QStringLiteral("dhcp"), device.getDHCPModel()}, {QStringLiteral("ip"), device.getIP()},
        {QStringLiteral("mask"), device.getSubMask()},
        {QStringLiteral("gateway"), device.getGateWay()},
        {QStringLiteral("ethernetLink"), device.getEthLinkState()},
        {QStringLiteral("serialPortCount"), device.getComNumber()},
        {QStringLiteral("ioLineCount"), device.getIoNumber()},
        {QStringLiteral("relayCount"), device.getRelayNumber()},
        {QStringLiteral("infraredPortCount"), device.getIRNumber()}};
}

QJsonObject contentsToJson(const Contents& contents)
{
    QJsonObject object;
    if (contents.device)
        object.insert(QStringLiteral("device"), deviceToJson(*contents.device));
    if (contents.config) {
        object.insert(QStringLiteral("serialPorts"), serialPortsToJson(*contents.config));
        object.insert(QStringLiteral("ioLines"), ioLinesToJson(*contents.config));
    }
    if (contents.events)
        object.insert(QStringLiteral("events"), eventsToJson(*contents.events));
    if (contents.triggers)
        object.insert(QStringLiteral("triggers"), triggersToJson(*contents.triggers));
    if (contents.timeTriggers)
        object.insert(QStringLiteral("timeTriggers"), timeTriggersToJson(*contents.timeTriggers));
    if (!contents.clock.isEmpty())
        object.insert(QStringLiteral("clock"), contents.clock);
    return object;
}

void printJson(const QJsonObject& object)
{
    Console::print(QString::fromUtf8(QJsonDocument(object).toJson()));
}

void printJson(const QJsonArray& array)
{
    Console::print(QString::fromUtf8(QJsonDocument(array).toJson()));
}
