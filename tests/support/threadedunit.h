// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controlunit.h"
#include "unitaddress.h"
#include "unitserver.h"

#include <QtCore/QThread>

#include <functional>
#include <memory>

/** What the sample holds. */
constexpr int sampleEvents = 32;
constexpr int sampleTriggers = 10;
constexpr int sampleTimeTriggers = 7;

/** The simulated unit on a thread of its own, so that a test may block. Filled with the sample. */
class ThreadedUnit {
public:
    ThreadedUnit();
    ~ThreadedUnit();
    ThreadedUnit(const ThreadedUnit&) = delete;
    ThreadedUnit& operator=(const ThreadedUnit&) = delete;

    UnitAddress address(UnitAddress::Protocol protocol = UnitAddress::Tcp) const
    {
        return {protocol, QStringLiteral("127.0.0.1"), m_port};
    }

    /** Looks at the unit, or changes it, on its thread; returns when that is done. */
    void at(const std::function<void(QuadrelUnit::ControlUnit&, QuadrelUnit::UnitServer&)>& act);

private:
    void run(const std::function<void()>& act);

    struct Unit;
    QThread m_thread;
    QObject m_anchor;
    std::unique_ptr<Unit> m_unit;
    quint16 m_port = 0;
};
