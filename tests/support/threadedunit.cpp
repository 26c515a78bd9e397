// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "threadedunit.h"

#include "unitsample.h"

#include <future>

using namespace QuadrelUnit;

struct ThreadedUnit::Unit {
    ControlUnit memory;
    UnitServer server{&memory};
};

ThreadedUnit::ThreadedUnit()
{
    m_anchor.moveToThread(&m_thread);
    m_thread.start();
    // Its sockets belong to the thread that makes them.
    run([this] {
        m_unit = std::make_unique<Unit>();
        writeSample(m_unit->memory.memory());
        QString error;
        if (!m_unit->server.listen(QHostAddress::LocalHost, 0, &error))
            qFatal("%s", qPrintable(error));
        m_port = m_unit->server.port();
    });
}

ThreadedUnit::~ThreadedUnit()
{
    run([this] { m_unit.reset(); });
    m_thread.quit();
    m_thread.wait();
}

void ThreadedUnit::at(const std::function<void(ControlUnit&, UnitServer&)>& act)
{
    run([&] { act(m_unit->memory, m_unit->server); });
}

void ThreadedUnit::run(const std::function<void()>& act)
{
    // Unlike the framework's, this wait is one that the thread sanitizer knows.
    std::promise<void> done;
    QMetaObject::invokeMethod(
        &m_anchor,
        [&] {
            act();
            done.set_value();
        },
        Qt::QueuedConnection);
    done.get_future().wait();
}
