// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "columns.h"

#include "editors/eventnames.h"
#include "workspace/recordlists.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>

using namespace QuadrelDocument;

namespace {

using Ids = QVector<int>;

template <class Value> QVariant variantOf(const std::optional<Value>& value)
{
    return value ? QVariant(*value) : QVariant();
}

std::optional<QString> textOf(const QVariant& value)
{
    return value.isValid() ? std::optional(value.toString()) : std::nullopt;
}

/** What the events are called, in the order in which they run. */
QString eventNames(const Ids& ids, const Contents& contents)
{
    const EventNames events(recordsOf<Event>(contents));
    QStringList names;
    for (const int id : ids)
        names.append(events.title(id));
    return names.join(QStringLiteral(", "));
}

/** The kinds wait for different things; what does not fit the new one goes. */
void setKind(Trigger& trigger, TriggerKind kind)
{
    trigger.kind = kind;
    if (kind == TriggerKind::Io) {
        trigger.parameter.clear();
        trigger.level = trigger.level.value_or(Level::High);
    } else {
        trigger.level.reset();
    }
}

/** A trigger that runs once ends on the day that it begins on. */
void keepOneDay(TimeTrigger& trigger)
{
    if (trigger.repeat == Repeat::Once)
        trigger.endDate = trigger.startDate;
}

/** The column with what its editor has to know. */
template <class Record, class Refine> Column<Record> edited(Column<Record> column, Refine refine)
{
    column.refine = refine;
    return column;
}

/** A text that shares its room on the unit with no other. */
template <class Record> Column<Record> limited(Column<Record> column, int limit)
{
    return edited(std::move(column),
        [limit](EditorRequest& request, const Record&) { request.limit = limit; });
}

/** Description and name share a room, with two units between them if there is a name. */
constexpr int separatorUnits = 2;

bool isSerial(const Trigger& trigger)
{
    return trigger.kind != TriggerKind::Io;
}

QVariant awaitedBy(const Trigger& trigger)
{
    if (isSerial(trigger))
        return trigger.parameter;
    return trigger.level ? QVariant(int(*trigger.level)) : QVariant();
}

void setAwaited(Trigger& trigger, const QVariant& value)
{
    if (isSerial(trigger))
        trigger.parameter = value.toByteArray();
    else
        trigger.level =
            value.isValid() ? std::optional(static_cast<Level>(value.toInt())) : std::nullopt;
}

} // namespace

template <> const QVector<Column<SerialPort>>& columnsOf()
{
    using P = SerialPort;
    static const QVector<Column<P>> columns{
        {"port", QT_TRANSLATE_NOOP("Columns", "Port"), CellKind::Number,
            [](const P&, int row) { return row + 1; }},
        {"baudRate", QT_TRANSLATE_NOOP("Columns", "Baud rate"), CellKind::BaudRate,
            [](const P& port, int) { return port.baudRate; },
            [](P& port, const QVariant& value) { port.baudRate = value.toInt(); }},
        {"dataBits", QT_TRANSLATE_NOOP("Columns", "Data bits"), CellKind::DataBits,
            [](const P& port, int) { return port.dataBits; },
            [](P& port, const QVariant& value) { port.dataBits = value.toInt(); }},
        {"stopBits", QT_TRANSLATE_NOOP("Columns", "Stop bits"), CellKind::StopBits,
            [](const P& port, int) { return port.stopBits; },
            [](P& port, const QVariant& value) { port.stopBits = value.toInt(); }},
        {"inspection", QT_TRANSLATE_NOOP("Columns", "Parity"), CellKind::Inspection,
            [](const P& port, int) { return port.inspection; },
            [](P& port, const QVariant& value) { port.inspection = value.toInt(); }},
    };
    return columns;
}

template <> const QVector<Column<IoLine>>& columnsOf()
{
    static const QVector<Column<IoLine>> columns{
        {"line", QT_TRANSLATE_NOOP("Columns", "Line"), CellKind::Number,
            [](const IoLine&, int row) { return row + 1; }},
        {"type", QT_TRANSLATE_NOOP("Columns", "Type"), CellKind::LineType,
            [](const IoLine& line, int) { return line.type; },
            [](IoLine& line, const QVariant& value) { line.type = value.toInt(); }},
    };
    return columns;
}

template <> const QVector<Column<Event>>& columnsOf()
{
    static const QVector<Column<Event>> columns{
        {"id", QT_TRANSLATE_NOOP("Columns", "Id"), CellKind::Number,
            [](const Event& event, int) { return event.id; },
            [](Event& event, const QVariant& value) { event.id = value.toInt(); }},
        edited(Column<Event>{"name", QT_TRANSLATE_NOOP("Columns", "Name"), CellKind::MaybeText,
                   [](const Event& event, int) { return variantOf(event.name); },
                   [](Event& event, const QVariant& value) {
                       const QString name = value.toString();
                       event.name = name.isEmpty() ? std::nullopt : std::optional(name);
                   }},
            [](EditorRequest& request, const Event& event) {
                request.limit = Limit::eventText;
                request.alsoUsed = event.description.size() + separatorUnits;
            }),
        edited(
            Column<Event>{"description", QT_TRANSLATE_NOOP("Columns", "Description"),
                CellKind::Text, [](const Event& event, int) { return event.description; },
                [](Event& event, const QVariant& value) { event.description = value.toString(); }},
            [](EditorRequest& request, const Event& event) {
                request.limit = Limit::eventText;
                request.alsoUsed = event.name ? event.name->size() + separatorUnits : 0;
            }),
        {"delay", QT_TRANSLATE_NOOP("Columns", "Delay"), CellKind::Delay,
            [](const Event& event, int) { return variantOf(event.delay); },
            [](Event& event, const QVariant& value) {
                event.delay = value.isValid() ? std::optional(value.toInt()) : std::nullopt;
                if (event.delay)
                    event.command.clear();
            }},
        limited(
            Column<Event>{"protocol", QT_TRANSLATE_NOOP("Columns", "Command"), CellKind::Bytes,
                [](const Event& event, int) { return event.command; },
                [](Event& event, const QVariant& value) { event.command = value.toByteArray(); },
                {}, [](const Event& event) { return !event.delay; }},
            Limit::commandBytes),
    };
    return columns;
}

template <> const QVector<Column<Trigger>>& columnsOf()
{
    static const QVector<Column<Trigger>> columns{
        {"id", QT_TRANSLATE_NOOP("Columns", "Id"), CellKind::Number,
            [](const Trigger& trigger, int) { return trigger.id; },
            [](Trigger& trigger, const QVariant& value) { trigger.id = value.toInt(); }},
        limited(Column<Trigger>{"description", QT_TRANSLATE_NOOP("Columns", "Description"),
                    CellKind::Text, [](const Trigger& trigger, int) { return trigger.description; },
                    [](Trigger& trigger, const QVariant& value) {
                        trigger.description = value.toString();
                    }},
            Limit::triggerDescription),
        {"kind", QT_TRANSLATE_NOOP("Columns", "Kind"), CellKind::Kind,
            [](const Trigger& trigger, int) { return int(trigger.kind); },
            [](Trigger& trigger, const QVariant& value) {
                setKind(trigger, static_cast<TriggerKind>(value.toInt()));
            }},
        edited(Column<Trigger>{"line", QT_TRANSLATE_NOOP("Columns", "Line"), CellKind::Line,
                   [](const Trigger& trigger, int) {
                       return trigger.line == unknownLine ? QVariant() : QVariant(trigger.line);
                   },
                   [](Trigger& trigger, const QVariant& value) {
                       trigger.line = value.isValid() ? value.toInt() : unknownLine;
                   },
                   [](const Trigger& trigger, const Contents&) {
                       return lineLabel(trigger.kind, trigger.line);
                   }},
            [](EditorRequest& request, const Trigger& trigger) {
                request.choices = Choices::lines(trigger.kind);
            }),
        limited(
            Column<Trigger>{"parameter", QT_TRANSLATE_NOOP("Columns", "Waits for"), CellKind::Bytes,
                [](const Trigger& trigger, int) { return awaitedBy(trigger); }, setAwaited, {}, {},
                [](const Trigger& trigger) {
                    return isSerial(trigger) ? CellKind::Bytes : CellKind::Level;
                }},
            Limit::parameterBytes),
        {"eventIds", QT_TRANSLATE_NOOP("Columns", "Events"), CellKind::EventIds,
            [](const Trigger& trigger, int) { return QVariant::fromValue(trigger.eventIds); },
            [](Trigger& trigger, const QVariant& value) { trigger.eventIds = value.value<Ids>(); },
            [](const Trigger& trigger, const Contents& contents) {
                return eventNames(trigger.eventIds, contents);
            }},
    };
    return columns;
}

template <> const QVector<Column<TimeTrigger>>& columnsOf()
{
    using T = TimeTrigger;
    static const QVector<Column<T>> columns{
        {"id", QT_TRANSLATE_NOOP("Columns", "Id"), CellKind::Number,
            [](const T& trigger, int) { return trigger.id; },
            [](T& trigger, const QVariant& value) { trigger.id = value.toInt(); }},
        limited(
            Column<T>{"description", QT_TRANSLATE_NOOP("Columns", "Description"), CellKind::Text,
                [](const T& trigger, int) { return trigger.description; },
                [](T& trigger, const QVariant& value) { trigger.description = value.toString(); }},
            Limit::triggerDescription),
        {"time", QT_TRANSLATE_NOOP("Columns", "Time"), CellKind::Time,
            [](const T& trigger, int) { return trigger.time; },
            [](T& trigger, const QVariant& value) { trigger.time = value.toString(); }},
        {"repeat", QT_TRANSLATE_NOOP("Columns", "Repeat"), CellKind::Repeat,
            [](const T& trigger, int) { return int(trigger.repeat); },
            [](T& trigger, const QVariant& value) {
                trigger.repeat = static_cast<Repeat>(value.toInt());
                keepOneDay(trigger);
            }},
        {"weekdays", QT_TRANSLATE_NOOP("Columns", "Weekdays"), CellKind::Weekdays,
            [](const T& trigger, int) { return QVariant::fromValue(trigger.weekdays); },
            [](T& trigger, const QVariant& value) { trigger.weekdays = value.value<Ids>(); }},
        {"startDate", QT_TRANSLATE_NOOP("Columns", "From"), CellKind::Date,
            [](const T& trigger, int) { return trigger.startDate; },
            [](T& trigger, const QVariant& value) {
                trigger.startDate = value.toString();
                keepOneDay(trigger);
            }},
        {"endDate", QT_TRANSLATE_NOOP("Columns", "Until"), CellKind::MaybeDate,
            [](const T& trigger, int) { return variantOf(trigger.endDate); },
            [](T& trigger, const QVariant& value) { trigger.endDate = textOf(value); }},
        {"eventIds", QT_TRANSLATE_NOOP("Columns", "Events"), CellKind::EventIds,
            [](const T& trigger, int) { return QVariant::fromValue(trigger.eventIds); },
            [](T& trigger, const QVariant& value) { trigger.eventIds = value.value<Ids>(); },
            [](const T& trigger, const Contents& contents) {
                return eventNames(trigger.eventIds, contents);
            }},
    };
    return columns;
}
