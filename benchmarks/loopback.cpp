// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "loopback.h"

#include "fullunit.h"
#include "placement.h"

LoopbackUnit::LoopbackUnit()
{
    const OtherSide side;
    m_context.moveToThread(&m_thread);
    m_thread.start();
    const auto start = [this] {
        m_unit = std::make_unique<QuadrelUnit::ControlUnit>();
        FullUnit::fill(m_unit->memory());
        m_server = std::make_unique<QuadrelUnit::UnitServer>(m_unit.get());
        QString error;
        if (!m_server->listen(QHostAddress::LocalHost, 0, &error))
            qFatal("%s", qPrintable(error));
        m_port = m_server->port();
    };
    QMetaObject::invokeMethod(&m_context, start, Qt::BlockingQueuedConnection);
}

LoopbackUnit::~LoopbackUnit()
{
    QMetaObject::invokeMethod(
        &m_context, [this] { m_server.reset(); }, Qt::BlockingQueuedConnection);
    m_thread.quit();
    m_thread.wait();
}

void LoopbackUnit::run(const std::function<void(QuadrelUnit::ControlUnit&)>& act)
{
    QMetaObject::invokeMethod(
        &m_context, [&] { act(*m_unit); }, Qt::BlockingQueuedConnection);
}
