#include "contentstables.h"

#include "table.h"
#include "tool.h"

#include <QtCore/QHash>

namespace {

QString yesOrNo(bool value)
{
    return value ? Tool::tr("yes") : Tool::tr("no");
}

QString section(const QString& title, const Table& table)
{
    const QString body = table.isEmpty() ? Tool::tr("(none)") + QLatin1Char('\n') : table.toText();
    return title + QLatin1Char('\n') + body + QLatin1Char('\n');
}

using EventNames = QHash<int, QString>;

/** The first event of an id gives the name, as on the unit. */
EventNames eventNames(const Contents& contents)
{
    EventNames names;
    EventModel events = contents.events.value_or(EventModel());
    const QList<EventInfo> records = events.getEventInfo();
    for (EventInfo event : records) {
        if (!names.contains(event.getEventId()))
            names.insert(event.getEventId(), event.getEventName());
    }
    return names;
}

/** As in "3 lights on, 7 curtain". */
QString namedEvents(const QString& eventText, const EventNames& names)
{
    QStringList items;
    const QList<int> ids = eventIds(eventText);
    for (const int id : ids)
        items.append(QStringLiteral("%1 %2").arg(QString::number(id), names.value(id)).trimmed());
    return items.join(QStringLiteral(", "));
}

QString inspection(inspectionType type)
{
    return type == INSPECTION_NONE ? Tool::tr("none") : QString::number(type);
}

QString eventType(EventInfo::EventType type)
{
    return type == EventInfo::EVENT_DELAY ? Tool::tr("delay") : Tool::tr("command %1").arg(type);
}

QString protocolText(bool isHex, const QString& text)
{
    return isHex ? text : Tool::tr("text: %1").arg(text);
}

Table serialPortTable(SystemModel config)
{
    Table table({Tool::tr("Port"), Tool::tr("Baud rate"), Tool::tr("Data bits"),
        Tool::tr("Stop bits"), Tool::tr("Inspection")});
    int number = 0;
    const QList<ComInfo> records = config.getComInfo();
    for (ComInfo port : records)
        table.addRow({QString::number(++number), QString::number(port.getBaudRate()),
            QString::number(port.getDataBits()), QString::number(port.getStopBits()),
            inspection(port.getInspectionType())});
    return table;
}

Table ioLineTable(SystemModel config)
{
    Table table({Tool::tr("Line"), Tool::tr("Type")});
    int number = 0;
    const QList<IOType> types = config.getIOType();
    for (const IOType type : types)
        table.addRow({QString::number(++number), QString::number(type)});
    return table;
}

Table eventTable(EventModel model)
{
    Table table({Tool::tr("Id"), Tool::tr("Name"), Tool::tr("Type"), Tool::tr("Command"),
        Tool::tr("Description")});
    const QList<EventInfo> records = model.getEventInfo();
    for (EventInfo event : records)
        table.addRow({QString::number(event.getEventId()), event.getEventName(),
            eventType(event.getEventType()),
            protocolText(event.getEventProtocolType(), event.getEventProtocal()),
            event.getEventInstruction()});
    return table;
}

Table triggerTable(TriggerModel model, const EventNames& names)
{
    Table table({Tool::tr("Id"), Tool::tr("Kind"), Tool::tr("Line"), Tool::tr("Parameter"),
        Tool::tr("Events"), Tool::tr("Description")});
    const QList<TriggerInfo> records = model.getTriggerInfo();
    for (TriggerInfo trigger : records)
        table.addRow(
            {QString::number(trigger.getTriggerId()), triggerKind(trigger), triggerLine(trigger),
                protocolText(trigger.getTriggerProtocolType(), trigger.getTriggerParameter()),
                namedEvents(trigger.getTriggerEvent(), names), trigger.getTriggerInstruction()});
    return table;
}

Table timeTriggerTable(TriggerTimeModel model, const EventNames& names)
{
    Table table({Tool::tr("Id"), Tool::tr("Repeat"), Tool::tr("From"), Tool::tr("Until"),
        Tool::tr("Weekdays"), Tool::tr("Time"), Tool::tr("Events"), Tool::tr("Description")});
    const QList<TriggerTimeInfo> records = model.getTriggerInfo();
    for (TriggerTimeInfo trigger : records)
        table.addRow(
            {QString::number(trigger.getTriggerId()), repeatMode(trigger), trigger.getStartDate(),
                trigger.getEndDate(), trigger.getSelectWeekly(), trigger.getTriggerTime(),
                namedEvents(trigger.getTriggerEvent(), names), trigger.getTriggerInstruction()});
    return table;
}

} // namespace

QString deviceTable(DeviceModel device)
{
    Table table;
    table.addRow({Tool::tr("Model"),
        QStringLiteral("0x%1").arg(device.getModelId(), 4, 16, QLatin1Char('0'))});
    table.addRow({Tool::tr("Serial number"), QString::number(device.getSN())});
    table.addRow({Tool::tr("Version"), device.getVersion()});
    table.addRow({Tool::tr("DHCP"), yesOrNo(device.getDHCPModel())});
    table.addRow({Tool::tr("Address"), device.getIP()});
    table.addRow({Tool::tr("Mask"), device.getSubMask()});
    table.addRow({Tool::tr("Gateway"), device.getGateWay()});
    table.addRow({Tool::tr("Ethernet link"), yesOrNo(device.getEthLinkState())});
    table.addRow({Tool::tr("Serial ports"), QString::number(device.getComNumber())});
    table.addRow({Tool::tr("IO lines"), QString::number(device.getIoNumber())});
    table.addRow({Tool::tr("Relays"), QString::number(device.getRelayNumber())});
    table.addRow({Tool::tr("Infra-red ports"), QString::number(device.getIRNumber())});
    return table.toText();
}

QString contentsTables(const Contents& contents)
{
    const EventNames names = eventNames(contents);
    QString text;
    if (contents.device)
        text += Tool::tr("DEVICE") + QLatin1Char('\n') + deviceTable(*contents.device)
            + QLatin1Char('\n');
    if (contents.config) {
        text += section(Tool::tr("SERIAL PORTS"), serialPortTable(*contents.config));
        text += section(Tool::tr("IO LINES"), ioLineTable(*contents.config));
    }
    if (contents.events)
        text += section(Tool::tr("EVENTS"), eventTable(*contents.events));
    if (contents.triggers)
        text += section(Tool::tr("TRIGGERS"), triggerTable(*contents.triggers, names));
    if (contents.timeTriggers)
        text += section(Tool::tr("TIME TRIGGERS"), timeTriggerTable(*contents.timeTriggers, names));
    if (!contents.clock.isEmpty())
        text += Tool::tr("CLOCK") + QLatin1Char('\n') + contents.clock + QLatin1Char('\n');
    return text;
}
