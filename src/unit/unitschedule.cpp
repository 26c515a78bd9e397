// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitschedule.h"

#include <algorithm>
#include <utility>

namespace QuadrelUnit {

UnitSchedule::UnitSchedule(QObject* parent)
    : QObject(parent)
{
    m_clock.start();
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &UnitSchedule::callDue);
}

void UnitSchedule::callAt(qint64 time, Call call)
{
    const auto added = m_calls.emplace(time, std::move(call));
    if (added == m_calls.begin())
        startTimer();
}

void UnitSchedule::callDue()
{
    const qint64 end = now();
    while (!m_calls.empty() && m_calls.begin()->first <= end) {
        // Taken out first: the call may add another one.
        const Call call = std::move(m_calls.begin()->second);
        m_calls.erase(m_calls.begin());
        call();
    }
    if (!m_calls.empty())
        startTimer();
}

void UnitSchedule::startTimer()
{
    constexpr qint64 nanosecondsInOne = 1000000;
    const qint64 wait = std::max<qint64>(m_calls.begin()->first - now(), 0);
    m_timer.start(static_cast<int>((wait + nanosecondsInOne - 1) / nanosecondsInOne));
}

} // namespace QuadrelUnit
