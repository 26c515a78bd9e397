// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "scriptedunit.h"

#include <chrono>

ScriptedUnit::ScriptedUnit(UnPackage& operations, Script script)
    : m_operations(operations)
    , m_script(std::move(script))
    , m_connection(QObject::connect(
          &operations, &UnPackage::signal_sendPackage, &operations,
          [this](const QByteArray& frame) { take(frame); }, Qt::DirectConnection))
    , m_thread([this] { run(); })
{
}

ScriptedUnit::~ScriptedUnit()
{
    QObject::disconnect(m_connection);
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_stopping = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void ScriptedUnit::take(const QByteArray& frame)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_frames.append(frame);
    m_inFlight = true;
    m_changed.notify_all();
}

void ScriptedUnit::operationClosed()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_answered = m_frames.size();
    m_inFlight = false;
    m_changed.notify_all();
}

QVector<QByteArray> ScriptedUnit::frames()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_frames;
}

void ScriptedUnit::run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return m_stopping || m_answered < m_frames.size(); });
        if (m_stopping)
            return;
        const int number = m_answered++;
        const Reaction reaction = m_script(m_frames.at(number), number);
        if (reaction.kind == Reaction::Silence)
            continue;
        react(reaction);
        // The operation may not have reached its wait yet, and a wake that comes early is lost.
        const auto moved = [this, number] {
            return m_stopping || !m_inFlight || m_frames.size() > number + 1;
        };
        while (!m_changed.wait_for(lock, std::chrono::microseconds(200), moved))
            m_operations.quitWaitDelay();
    }
}

void ScriptedUnit::react(const Reaction& reaction)
{
    if (reaction.kind == Reaction::Reply)
        m_operations.setRecvPackage(reaction.reply);
    else if (reaction.kind == Reaction::Failure)
        m_operations.setError(reaction.failure);
    else
        m_operations.quitWaitDelay();
}
