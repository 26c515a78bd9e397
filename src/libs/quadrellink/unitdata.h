// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <devicemodel.h>
#include <eventmodel.h>
#include <systemmodel.h>
#include <triggermodel.h>
#include <triggertimemodel.h>

#include <QtCore/QMetaType>
#include <QtCore/QString>

/** What a unit stores, as a read found it: values of the caller's own. */
struct UnitData {
    DeviceModel device;            ///< the device information block
    SystemModel config;            ///< the settings of the serial ports and the IO lines
    EventModel events;             ///< the event table
    TriggerModel triggers;         ///< the serial and IO triggers of the trigger table
    TriggerTimeModel timeTriggers; ///< the time triggers of the trigger table
    /** The unit's clock, as in "2026/01/09 07:05:03". */
    QString clock;
};

Q_DECLARE_METATYPE(UnitData)
