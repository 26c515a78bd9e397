// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "placement.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QMutex>
#include <QtCore/QWaitCondition>

#include <thread>
#include <utility>

/** Hands something to another thread, over the framework's mutex and condition. */
template <typename Item> class Mailbox {
public:
    void put(Item item)
    {
        const QMutexLocker locker(&m_mutex);
        m_item = std::move(item);
        m_full = true;
        m_condition.wakeOne();
    }

    Item take()
    {
        return take(QDeadlineTimer(QDeadlineTimer::Forever), [] {});
    }

    /** Calls `repeat`, with the box locked and empty, each time that `pause` has gone by. */
    template <typename Pause, typename Repeat> Item take(Pause pause, Repeat repeat)
    {
        const QMutexLocker locker(&m_mutex);
        while (!m_full) {
            if (!m_condition.wait(&m_mutex, QDeadlineTimer(pause)))
                repeat();
        }
        m_full = false;
        return std::move(m_item);
    }

private:
    QMutex m_mutex;
    QWaitCondition m_condition;
    bool m_full = false;
    Item m_item{};
};

/** Two threads that do nothing but wake each other. */
class PingPong {
public:
    PingPong()
    {
        const OtherSide side;
        m_other = std::thread([this] {
            while (m_there.take())
                m_back.put(true);
        });
    }

    ~PingPong()
    {
        m_there.put(false);
        m_other.join();
    }

    PingPong(const PingPong&) = delete;
    PingPong& operator=(const PingPong&) = delete;

    void exchange()
    {
        m_there.put(true);
        m_back.take();
    }

private:
    Mailbox<bool> m_there;
    Mailbox<bool> m_back;
    std::thread m_other;
};
