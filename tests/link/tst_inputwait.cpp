// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "inputwait.h"

#include <QtTest/QtTest>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <optional>

#include <dlfcn.h>
#include <poll.h>
#include <sched.h>

using namespace std::chrono_literals;
using std::chrono::nanoseconds;

namespace {

/** The time, the processor and the two descriptors that an InputWait sees. */
struct Machine {
    nanoseconds now = 1h;
    /** How long a yield takes. */
    nanoseconds yield = 500ns;
    std::optional<nanoseconds> wakeAt;
    std::optional<nanoseconds> inputAt;
    int sleeps = 0;
    int yields = 0;
};

/** The one that takes the place of the system's, if there is one. */
thread_local Machine* machine = nullptr;

int readyOf(pollfd* waited)
{
    const auto isOver = [](const std::optional<nanoseconds>& time) {
        return time && *time <= machine->now;
    };
    waited[0].revents = isOver(machine->wakeAt) ? POLLIN : 0;
    waited[1].revents = isOver(machine->inputAt) ? POLLIN : 0;
    return (waited[0].revents != 0) + (waited[1].revents != 0);
}

template <class Function> Function* theSystems(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

// These take the place of the system's calls in this program.

extern "C" int clock_gettime(clockid_t clock, timespec* time) noexcept
{
    static auto* const read = theSystems<int(clockid_t, timespec*)>("clock_gettime");
    if (!machine)
        return read(clock, time);
    time->tv_sec = machine->now / 1s;
    time->tv_nsec = (machine->now % 1s).count();
    return 0;
}

extern "C" int sched_yield() noexcept
{
    static auto* const yield = theSystems<int()>("sched_yield");
    if (!machine)
        return yield();
    machine->now += machine->yield;
    ++machine->yields;
    return 0;
}

extern "C" int poll(pollfd* waited, nfds_t count, int timeout)
{
    static auto* const wait = theSystems<int(pollfd*, nfds_t, int)>("poll");
    return machine ? readyOf(waited) : wait(waited, count, timeout);
}

extern "C" int ppoll(pollfd* waited, nfds_t count, const timespec* limit, const sigset_t* mask)
{
    static auto* const wait =
        theSystems<int(pollfd*, nfds_t, const timespec*, const sigset_t*)>("ppoll");
    if (!machine)
        return wait(waited, count, limit, mask);
    ++machine->sleeps;
    nanoseconds end = limit
        ? machine->now + std::chrono::seconds(limit->tv_sec) + nanoseconds(limit->tv_nsec)
        : nanoseconds::max();
    for (const auto& event : {machine->wakeAt, machine->inputAt})
        end = std::min(end, event.value_or(end));
    machine->now = std::max(machine->now, end);
    return readyOf(waited);
}

class TestInputWait : public QObject {
    Q_OBJECT

private slots:
    void reportsWhatEndedIt_data();
    void reportsWhatEndedIt();
    void endsAtItsLimit_data();
    void endsAtItsLimit();
    void waitsAwakeForPromptReplies();
    void sleepsForSlowReplies();
    void sleepsWhenAReplyIsLate();
    void sleepsWhereOthersNeedTheProcessor();
    void staysAwakeAfterAFewLongYields();

private:
    /** One that has had enough prompt replies to stay awake. */
    static InputWait awake(Machine& simulated);
    /** Waits for a reply that comes after so long. Whether it came without sleeping. */
    static bool takesAwake(InputWait& wait, Machine& simulated, nanoseconds after);
    static InputWait::Events run(InputWait& wait, Machine& simulated,
        InputWait::Clock::duration limit = InputWait::Clock::duration::max(), int socket = 4);
};

constexpr auto prompt = 20us;
constexpr auto busyYield = 10us;
constexpr int repliesUntilNaps = 4;
constexpr int naps = 200;

InputWait::Events TestInputWait::run(
    InputWait& wait, Machine& simulated, InputWait::Clock::duration limit, int socket)
{
    machine = &simulated;
    const InputWait::Events events = wait.wait(3, socket, limit);
    machine = nullptr;
    return events;
}

bool TestInputWait::takesAwake(InputWait& wait, Machine& simulated, nanoseconds after)
{
    const int sleepsBefore = simulated.sleeps;
    simulated.inputAt = simulated.now + after;
    // Once awake, and once asleep if need be.
    if (!run(wait, simulated).hasInput && !run(wait, simulated).hasInput)
        qFatal("the reply is not seen");
    simulated.inputAt.reset();
    return simulated.sleeps == sleepsBefore;
}

InputWait TestInputWait::awake(Machine& simulated)
{
    InputWait wait;
    takesAwake(wait, simulated, prompt);
    takesAwake(wait, simulated, prompt);
    return wait;
}

void TestInputWait::reportsWhatEndedIt_data()
{
    QTest::addColumn<bool>("isAwake");
    QTest::addColumn<bool>("isWoken");
    QTest::addColumn<bool>("hasInput");
    for (const bool isAwake : {false, true}) {
        const QByteArray name = isAwake ? "awake, " : "asleep, ";
        QTest::newRow(name + "wake") << isAwake << true << false;
        QTest::newRow(name + "input") << isAwake << false << true;
        QTest::newRow(name + "both") << isAwake << true << true;
    }
}

void TestInputWait::reportsWhatEndedIt()
{
    QFETCH(bool, isAwake);
    QFETCH(bool, isWoken);
    QFETCH(bool, hasInput);
    Machine simulated;
    InputWait wait = isAwake ? awake(simulated) : InputWait();
    if (isWoken)
        simulated.wakeAt = simulated.now + prompt;
    if (hasInput)
        simulated.inputAt = simulated.now + prompt;
    const InputWait::Events events = run(wait, simulated);
    QCOMPARE(events.isWoken, isWoken);
    QCOMPARE(events.hasInput, hasInput);
}

void TestInputWait::endsAtItsLimit_data()
{
    QTest::addColumn<bool>("isAwake");
    QTest::addColumn<int>("socket");
    QTest::addColumn<int>("microseconds");
    QTest::newRow("asleep") << false << 4 << 1'500'000;
    QTest::newRow("asleep, without a socket") << false << -1 << 1'500'000;
    QTest::newRow("no time") << false << 4 << 0;
    QTest::newRow("awake") << true << 4 << 100;
    QTest::newRow("awake, without a socket") << true << -1 << 100;
    QTest::newRow("awake, no time") << true << 4 << 0;
}

void TestInputWait::endsAtItsLimit()
{
    QFETCH(bool, isAwake);
    QFETCH(int, socket);
    QFETCH(int, microseconds);
    Machine simulated;
    InputWait wait = isAwake ? awake(simulated) : InputWait();
    const auto limit = std::chrono::microseconds(microseconds);
    const nanoseconds end = simulated.now + limit;
    const InputWait::Events events = run(wait, simulated, limit, socket);
    QVERIFY(!events.isWoken && !events.hasInput);
    QVERIFY(simulated.now >= end);
    QVERIFY(simulated.now <= end + simulated.yield);
}

void TestInputWait::waitsAwakeForPromptReplies()
{
    Machine simulated;
    InputWait wait = awake(simulated);
    for (int i = 0; i < 1000; ++i)
        QVERIFY(takesAwake(wait, simulated, prompt));
}

void TestInputWait::sleepsForSlowReplies()
{
    Machine simulated;
    InputWait wait;
    for (int i = 0; i < 10; ++i)
        QVERIFY(!takesAwake(wait, simulated, 1ms));
    QCOMPARE(simulated.yields, 0);
}

void TestInputWait::sleepsWhenAReplyIsLate()
{
    Machine simulated;
    InputWait wait = awake(simulated);
    const nanoseconds before = simulated.now;
    QVERIFY(!takesAwake(wait, simulated, 10ms));
    QVERIFY(simulated.yields * simulated.yield < 200us);
    QCOMPARE(simulated.now, before + 10ms);
    // It has to see again that replies are prompt.
    QVERIFY(!takesAwake(wait, simulated, prompt));
    QVERIFY(takesAwake(wait, simulated, prompt));
}

void TestInputWait::sleepsWhereOthersNeedTheProcessor()
{
    Machine simulated;
    InputWait wait = awake(simulated);
    simulated.yield = busyYield;
    for (int round = 0; round < 3; ++round) {
        for (int i = 0; i < repliesUntilNaps; ++i)
            QVERIFY(takesAwake(wait, simulated, prompt));
        for (int i = 0; i < naps; ++i)
            QVERIFY(!takesAwake(wait, simulated, prompt));
        // Then it tries again.
        takesAwake(wait, simulated, prompt);
        takesAwake(wait, simulated, prompt);
    }
}

void TestInputWait::staysAwakeAfterAFewLongYields()
{
    Machine simulated;
    InputWait wait = awake(simulated);
    for (int round = 0; round < 100; ++round) {
        for (int i = 0; i < repliesUntilNaps; ++i) {
            simulated.yield = i == 0 ? 500ns : busyYield;
            QVERIFY(takesAwake(wait, simulated, prompt));
        }
    }
}

QTEST_GUILESS_MAIN(TestInputWait)
#include "tst_inputwait.moc"
