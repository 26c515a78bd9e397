// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "contentstables.h"

#include "console.h"
#include "preferences.h"
#include "table.h"
#include "tool.h"

#include <readabletext.h>

#include <QtCore/QHash>
#include <QtCore/QStringList>

using namespace QuadrelDocument;

namespace {

constexpr int daysOfWeek = 7;

QString yesOrNo(bool value)
{
    return value ? Tool::tr("yes") : Tool::tr("no");
}

using EventNames = QHash<int, QString>;

/** The first event of an id gives the name, as on the unit. */
EventNames eventNames(const Contents& contents)
{
    EventNames names;
    const QVector<Event> events = contents.events.value_or(QVector<Event>());
    for (const Event& event : events) {
        if (!names.contains(event.id))
            names.insert(event.id, event.name.value_or(QString()));
    }
    return names;
}

/** As in "3 lights on, 7 curtain". */
QString namedEvents(const QVector<int>& ids, const EventNames& names)
{
    QStringList items;
    for (const int id : ids)
        items.append(QStringLiteral("%1 %2").arg(QString::number(id), names.value(id)).trimmed());
    return items.join(QStringLiteral(", "));
}

/** Hexadecimal digits, and what of them reads as text. */
QString bytesText(const QByteArray& bytes)
{
    const QByteArray text = longestText(bytes);
    const QString hex = hexText(bytes);
    return text.isEmpty() ? hex : QStringLiteral("%1  \"%2\"").arg(hex, escapedText(text));
}

QString inspectionText(int type)
{
    return type == 2 ? Tool::tr("none") : QString::number(type);
}

QString parameterText(const Trigger& trigger)
{
    if (trigger.kind != TriggerKind::Io)
        return bytesText(trigger.parameter);
    if (!trigger.level)
        return Tool::tr("none");
    return *trigger.level == Level::High ? Tool::tr("high level") : Tool::tr("low level");
}

QString kindText(TriggerKind kind)
{
    switch (kind) {
    case TriggerKind::Com:
        return Tool::tr("serial");
    case TriggerKind::ComModbus:
        return Tool::tr("Modbus");
    case TriggerKind::Io:
        return Tool::tr("input");
    }
    Q_UNREACHABLE();
}

QString repeatText(Repeat repeat)
{
    switch (repeat) {
    case Repeat::EveryDay:
        return Tool::tr("every day");
    case Repeat::Weekly:
        return Tool::tr("weekly");
    case Repeat::Once:
        return Tool::tr("once");
    }
    Q_UNREACHABLE();
}

QString dayName(int day)
{
    const QString names[daysOfWeek] = {Tool::tr("Mon"), Tool::tr("Tue"), Tool::tr("Wed"),
        Tool::tr("Thu"), Tool::tr("Fri"), Tool::tr("Sat"), Tool::tr("Sun")};
    return names[day % daysOfWeek];
}

/** As in "Mon Tue Fri"; a unit has eight of them, and the last is not a day. */
QString weekdaysText(const QVector<int>& weekdays, Qt::DayOfWeek first)
{
    QStringList names;
    for (const int number : weekdays)
        names.append(number <= daysOfWeek ? dayName(first - Qt::Monday + number - 1)
                                          : QString::number(number));
    return names.join(QLatin1Char(' '));
}

QString dateText(const std::optional<QString>& date)
{
    return date ? *date : Tool::tr("forever");
}

Table serialPortTable(const QVector<SerialPort>& ports)
{
    Table table({Tool::tr("Port"), Tool::tr("Baud rate"), Tool::tr("Data bits"),
        Tool::tr("Stop bits"), Tool::tr("Inspection")});
    int number = 0;
    for (const SerialPort& port : ports)
        table.addRow({QString::number(++number), QString::number(port.baudRate),
            QString::number(port.dataBits), QString::number(port.stopBits),
            inspectionText(port.inspection)});
    return table;
}

Table ioLineTable(const QVector<IoLine>& lines)
{
    Table table({Tool::tr("Line"), Tool::tr("Type")});
    int number = 0;
    for (const IoLine& line : lines)
        table.addRow({QString::number(++number), QString::number(line.type)});
    return table;
}

Table eventTable(const QVector<Event>& events)
{
    Table table({Tool::tr("Id"), Tool::tr("Name"), Tool::tr("Command"), Tool::tr("Description")});
    for (const Event& event : events)
        table.addRow({QString::number(event.id), event.name.value_or(QString()),
            event.delay ? Tool::tr("wait %1 ms").arg(*event.delay) : bytesText(event.command),
            event.description});
    return table;
}

Table triggerTable(const QVector<Trigger>& triggers, const EventNames& names)
{
    Table table({Tool::tr("Id"), Tool::tr("Kind"), Tool::tr("Line"), Tool::tr("Parameter"),
        Tool::tr("Events"), Tool::tr("Description")});
    for (const Trigger& trigger : triggers)
        table.addRow({QString::number(trigger.id), kindText(trigger.kind),
            lineLabel(trigger.kind, trigger.line), parameterText(trigger),
            namedEvents(trigger.eventIds, names), trigger.description});
    return table;
}

Table timeTriggerTable(
    const QVector<TimeTrigger>& triggers, const EventNames& names, Qt::DayOfWeek firstWeekday)
{
    Table table({Tool::tr("Id"), Tool::tr("Repeat"), Tool::tr("From"), Tool::tr("Until"),
        Tool::tr("Weekdays"), Tool::tr("Time"), Tool::tr("Events"), Tool::tr("Description")});
    for (const TimeTrigger& trigger : triggers)
        table.addRow({QString::number(trigger.id), repeatText(trigger.repeat), trigger.startDate,
            dateText(trigger.endDate), weekdaysText(trigger.weekdays, firstWeekday), trigger.time,
            namedEvents(trigger.eventIds, names), trigger.description});
    return table;
}

void addSection(Page& page, const QString& title, const Page& body)
{
    if (!page.isEmpty())
        page.append(Line());
    page.append({title, Style::Heading});
    page += body.isEmpty() ? Page{{Tool::tr("(none)")}} : body;
}

/** The page of a table; none without a row, whatever its headings. */
Page pageOf(const Table& table, const TableOptions& options)
{
    return table.isEmpty() ? Page() : table.toPage(options.width);
}

} // namespace

TableOptions TableOptions::ofTerminal()
{
    return {Console::pageWidth(), Preferences::user().firstWeekday};
}

Page deviceTable(const Device& device, const TableOptions& options)
{
    Table table;
    table.addRow({Tool::tr("Model"), modelText(device.modelId)});
    table.addRow({Tool::tr("Serial number"), QString::number(device.serialNumber)});
    table.addRow({Tool::tr("Version"), device.version});
    table.addRow({Tool::tr("DHCP"), yesOrNo(device.dhcp)});
    table.addRow({Tool::tr("Address"), device.ip});
    table.addRow({Tool::tr("Mask"), device.mask});
    table.addRow({Tool::tr("Gateway"), device.gateway});
    table.addRow({Tool::tr("Ethernet link"), yesOrNo(device.ethernetLink)});
    table.addRow({Tool::tr("Serial ports"), QString::number(device.serialPortCount)});
    table.addRow({Tool::tr("IO lines"), QString::number(device.ioLineCount)});
    table.addRow({Tool::tr("Relays"), QString::number(device.relayCount)});
    table.addRow({Tool::tr("Infra-red ports"), QString::number(device.infraredPortCount)});
    return table.toPage(options.width);
}

Page contentsTables(const Contents& contents, const TableOptions& options)
{
    const EventNames names = eventNames(contents);
    Page page;
    if (contents.device)
        addSection(page, Tool::tr("DEVICE"), deviceTable(*contents.device, options));
    if (contents.serialPorts)
        addSection(page, Tool::tr("SERIAL PORTS"),
            pageOf(serialPortTable(*contents.serialPorts), options));
    if (contents.ioLines)
        addSection(page, Tool::tr("IO LINES"), pageOf(ioLineTable(*contents.ioLines), options));
    if (contents.events)
        addSection(page, Tool::tr("EVENTS"), pageOf(eventTable(*contents.events), options));
    if (contents.triggers)
        addSection(
            page, Tool::tr("TRIGGERS"), pageOf(triggerTable(*contents.triggers, names), options));
    if (contents.timeTriggers)
        addSection(page, Tool::tr("TIME TRIGGERS"),
            pageOf(timeTriggerTable(*contents.timeTriggers, names, options.firstWeekday), options));
    if (contents.clock)
        addSection(page, Tool::tr("CLOCK"), {{*contents.clock}});
    return page;
}
