// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unitclock.h"
#include "unitframe.h"
#include "unitmemory.h"
#include "unitsettings.h"
#include "unitupgrade.h"

#include <QtCore/QString>

#include <optional>

namespace QuadrelUnit {

/** What a unit does with one request. */
struct UnitAnswer {
    UnitFrame reply;
    /** The unit goes down once the reply is sent, and comes back later. */
    bool restarts = false;
    /** The memory, or what the clock shows, is not what it was. */
    bool changed = false;
    /** An upgrade was completed by this request. */
    bool upgraded = false;
    /** Something that the owner of the unit should know, or an empty text. */
    QString notice;
    /** Why the unit does not take the request and gives no reply, or an empty text. */
    QString refusal;
};

/**
 * A control unit without its sockets: memory, and the places in memory that do something.
 *
 * A request is answered at once, unless it asks for more memory than there may be; what a request
 * asks for beyond the memory shows in the answer and is the server's work.
 */
class ControlUnit {
public:
    /** A unit with its factory settings; `settings` is also what a reset to the default restores.
     */
    explicit ControlUnit(const UnitSettings& settings = UnitSettings());

    UnitAnswer answer(const UnitFrame& request);

    /** Bytes that the memory may take, and as many that the images of an upgrade may. */
    void setMemoryLimit(qint64 bytes);

    UnitMemory& memory() { return m_memory; }
    const UnitMemory& memory() const { return m_memory; }
    UnitClock& clock() { return m_clock; }
    const UnitClock& clock() const { return m_clock; }
    const UnitUpgrade& upgrade() const { return m_upgrade; }

    /** What the information block says now. */
    UnitSettings settings() const;
    /** Replaces the information block; what a reset restores stays as it is. */
    void setSettings(const UnitSettings& settings);

    /** The version after an upgrade. Without one the last number of the version goes up by 1. */
    void setUpgradeVersion(std::optional<FourBytes> version) { m_upgradeVersion = version; }

private:
    QByteArray read(quint32 address, int length) const;
    UnitAnswer write(const UnitFrame& request);
    QString refusal(const UnitFrame& request) const;
    void writeMemory(quint32 address, const QByteArray& data, UnitAnswer& answer);
    void writeInformation(quint32 address, const QByteArray& data, UnitAnswer& answer);
    void writeClock(quint32 address, const QByteArray& data, UnitAnswer& answer);
    void resetUnit(char command, UnitAnswer& answer);
    void completeUpgrade(UnitAnswer& answer);

    UnitSettings m_delivered;
    UnitMemory m_memory;
    UnitClock m_clock;
    UnitUpgrade m_upgrade;
    std::optional<FourBytes> m_upgradeVersion;
};

} // namespace QuadrelUnit
