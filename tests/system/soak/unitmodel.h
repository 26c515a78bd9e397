// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unitmemory.h"
#include "unitsettings.h"

/** What a unit must hold after the writes that reached it, in the fewest words. */
class UnitModel {
public:
    explicit UnitModel(const QuadrelUnit::UnitMemory& delivered);

    void write(quint32 address, const QByteArray& data);
    /** An upgrade ran from its first word to its last. */
    void upgraded();

    const QuadrelUnit::UnitMemory& memory() const { return m_memory; }
    /** The clock as it was set, or nothing if it never was. */
    const QByteArray& clock() const { return m_clock; }

private:
    QuadrelUnit::UnitMemory m_memory;
    QByteArray m_deliveredNetwork;
    QByteArray m_clock;
};
