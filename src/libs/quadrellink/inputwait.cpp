// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "inputwait.h"

#include <algorithm>
#include <thread>
#include <utility>

#include <poll.h>

using namespace std::chrono_literals;

namespace {

/** Replies that follow each other this fast are waited for awake. */
constexpr std::chrono::microseconds promptReply = 150us;
/** A yield that takes longer has let somebody else run. */
constexpr std::chrono::microseconds emptyYield = 3us;
/** So many replies in a row for which others needed the processor, until the thread sleeps. */
constexpr int repliesUntilNaps = 4;
/** For so many replies; then it tries again. */
constexpr int naps = 200;

void sleepUntilReady(pollfd (&waited)[2], InputWait::Clock::duration limit)
{
    timespec time = {};
    const bool isEndless = limit == InputWait::Clock::duration::max();
    if (!isEndless) {
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(limit);
        time.tv_sec = seconds.count();
        time.tv_nsec = std::chrono::nanoseconds(limit - seconds).count();
    }
    ppoll(waited, 2, isEndless ? nullptr : &time, nullptr);
}

} // namespace

InputWait::Events InputWait::wait(int wake, int socket, Clock::duration limit)
{
    pollfd waited[] = {{wake, POLLIN, 0}, {socket, POLLIN, 0}};
    if (m_naps > 0 || !waitAwake(waited, limit))
        sleepUntilReady(waited, limit);
    if (waited[1].revents)
        noteInput();
    return {waited[0].revents != 0, waited[1].revents != 0};
}

/** False where the thread has to sleep for the rest of the time. */
bool InputWait::waitAwake(pollfd (&waited)[2], Clock::duration limit)
{
    auto now = Clock::now();
    if (now >= m_awakeUntil)
        return false;
    const auto end = now + std::min(limit, m_awakeUntil - now);
    while (poll(waited, 2, 0) == 0 && now < end) {
        std::this_thread::yield();
        const auto before = std::exchange(now, Clock::now());
        m_isProcessorNeeded |= now - before > emptyYield;
    }
    return true;
}

void InputWait::noteInput()
{
    if (m_naps > 0) {
        --m_naps;
        return;
    }
    const auto now = Clock::now();
    m_awakeUntil = now - m_lastInput < promptReply ? now + promptReply : now;
    m_lastInput = now;
    m_repliesWhereNeeded = m_isProcessorNeeded ? m_repliesWhereNeeded + 1 : 0;
    m_isProcessorNeeded = false;
    if (m_repliesWhereNeeded == repliesUntilNaps) {
        m_repliesWhereNeeded = 0;
        m_naps = naps;
    }
}
