// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controlunit.h"
#include "scriptedunit.h"
#include "unpackage.h"

#include <QtCore/QMap>
#include <QtCore/QRandomGenerator>
#include <QtCore/QVector>

#include <chrono>
#include <memory>

/** One frame of the library, and what became of it. */
struct Exchange {
    QByteArray frame;
    const char* fault = "none";
    /** The unit got the frame. */
    bool executed = true;
    /** A reply that came before the operation slept; null if there was none. */
    QByteArray early;
    /** What reaches the operation in its sleep. */
    ScriptedUnit::Reaction reaction = ScriptedUnit::silence();
    std::chrono::steady_clock::time_point sent;
};

/** Carries frames to a simulated unit, and makes faults on the way; the same seed, the same faults.
 */
class FaultyTransport {
public:
    FaultyTransport(UnPackage& operations, QuadrelUnit::ControlUnit& unit, quint32 seed);

    /** `share` of the next operation's frames meet a fault; nothing answers those not awaited. */
    void begin(double share, bool awaited);
    /** The frames of the operation that has closed. */
    QVector<Exchange> end();

    /** How often each fault was made. */
    const QMap<QByteArray, int>& faults() const { return m_faults; }

private:
    void take(const QByteArray& frame);
    void makeFault(Exchange& exchange, const QByteArray& reply);

    UnPackage& m_operations;
    QuadrelUnit::ControlUnit& m_unit;
    QRandomGenerator m_random;
    double m_share = 0;
    bool m_awaited = true;
    QVector<Exchange> m_exchanges;
    QByteArray m_previousReply;
    QByteArray m_lostReply;
    QMap<QByteArray, int> m_faults;
    std::unique_ptr<ScriptedUnit> m_script;
};
