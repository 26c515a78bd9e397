#pragma once

#include "devicemodel.h"
#include "eventmodel.h"
#include "systemmodel.h"
#include "triggermodel.h"
#include "triggertimemodel.h"
#include "unitdata.h"

#include <QtCore/QList>
#include <QtCore/QString>

#include <optional>

/** What a unit stores, or as much of it as a project file holds. */
struct Contents {
    std::optional<DeviceModel> device;
    std::optional<SystemModel> config;
    std::optional<EventModel> events;
    std::optional<TriggerModel> triggers;
    std::optional<TriggerTimeModel> timeTriggers;
    /** The unit's clock as text; empty in a file. */
    QString clock;

    /** What a whole read has found. */
    static Contents of(const UnitData& unit);
};

/** The ids in the event text of a trigger, such as "(ID:3);(ID:7)"; none in an empty text. */
QList<int> eventIds(const QString& eventText);

/** "COM A-1" to "COM D-4" or "IO A-1" to "IO D-4"; the bare number for any other. */
QString lineLabel(const QString& kind, int line);
/** The line that a trigger watches. */
QString triggerLine(TriggerInfo trigger);
/** "COM", "COM_MODBUS" or "IO". */
QString triggerKind(TriggerInfo trigger);
/** "EVERYDAY", "WEEKLY" or "ONCE". */
QString repeatMode(TriggerTimeInfo trigger);
