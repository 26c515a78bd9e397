// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "quadrellink_global.h"

#include <eventmodel.h>
#include <systemmodel.h>
#include <triggermodel.h>
#include <triggertimemodel.h>

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QString>

#include <memory>

/** One operation on a unit with its inputs, for UnitSession. A value that may be copied. */
class QUADRELLINK_EXPORT UnitRequest {
public:
    /** The operations. */
    enum Kind {
        ReadDevice,
        ReadAll,
        WriteConfig,
        WriteEvents,
        WriteTriggers,
        ReadClock,
        SetClock,
        SetNetwork,
        Reset,
        Upgrade,
        WriteRemark
    };

    /** Reads the device information block alone, into UnitData::device. */
    static UnitRequest readDevice();
    /** Reads all that a unit stores, as many ports and lines as it reports. */
    static UnitRequest readAll();
    /** Writes the settings of the serial ports, then those of the IO lines. */
    static UnitRequest writeConfig(const SystemModel& config);
    /** Writes the event table. A unit with more than 128 events reads back as one without. */
    static UnitRequest writeEvents(const EventModel& events);
    /**
     * Writes the trigger table, which holds both kinds and is replaced as a whole. A unit with more
     * than 64 entries reads back as one without.
     */
    static UnitRequest writeTriggers(
        const TriggerModel& triggers, const TriggerTimeModel& timeTriggers);
    /** Reads the clock into UnitData::clock. */
    static UnitRequest readClock();
    /** Sets the clock. `InvalidRequest` for a time that is none, or outside of 2000 to 2099. */
    static UnitRequest setClock(const QDateTime& time);
    /** Gives the unit a fixed address. `InvalidRequest` if one of the texts is not an IPv4 address.
     */
    static UnitRequest setNetwork(const QString& ip, const QString& mask, const QString& gateway);
    /**
     * Restarts the unit. One that is not to keep its address goes back to its default address, and
     * may be gone before it can answer: the request then succeeds once it was sent.
     */
    static UnitRequest reset(bool keepsAddress);
    /**
     * Writes both images. The unit is not waited for; it restarts afterwards. After a failure it
     * may hold half an image, and the upgrade is to be run again from its beginning.
     */
    static UnitRequest upgrade(const QByteArray& streamed, const QByteArray& addressed);
    /** Writes the remark, the first 90 bytes of a streamed image. */
    static UnitRequest writeRemark(const QByteArray& streamed);

    /** Which operation it is. */
    Kind kind() const;

private:
    friend class OperationRunner;
    struct Inputs;
    explicit UnitRequest(Kind kind);
    UnitRequest(Kind kind, Inputs inputs);

    Kind m_kind;
    std::shared_ptr<const Inputs> m_inputs;
};
