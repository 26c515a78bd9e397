// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controlunit.h"
#include "unitserver.h"

#include <QtCore/QThread>

#include <functional>
#include <memory>

/** A simulated unit with full tables on a port of the loopback, with a thread of its own. */
class LoopbackUnit {
public:
    LoopbackUnit();
    ~LoopbackUnit();
    LoopbackUnit(const LoopbackUnit&) = delete;
    LoopbackUnit& operator=(const LoopbackUnit&) = delete;

    quint16 port() const { return m_port; }
    /** Looks at the unit, or changes it, on its thread; returns when that is done. */
    void run(const std::function<void(QuadrelUnit::ControlUnit&)>& act);

private:
    QThread m_thread;
    QObject m_context;
    std::unique_ptr<QuadrelUnit::ControlUnit> m_unit;
    std::unique_ptr<QuadrelUnit::UnitServer> m_server;
    quint16 m_port = 0;
};
