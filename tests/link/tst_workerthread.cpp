// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "workerthread.h"

#include <QtTest/QTest>

#include <algorithm>
#include <stdexcept>

namespace {

sigset_t ownMask()
{
    sigset_t mask;
    pthread_sigmask(SIG_SETMASK, nullptr, &mask);
    return mask;
}

bool areBlocked(const sigset_t& mask, std::initializer_list<int> numbers)
{
    return std::all_of(numbers.begin(), numbers.end(),
        [&mask](int number) { return sigismember(&mask, number) == 1; });
}

/** Is a function that can't be handed to a thread. */
struct Unmovable {
    Unmovable() = default;
    Unmovable(const Unmovable&) = default;
    Unmovable(Unmovable&&) { throw std::runtime_error("does not move"); }
    void operator()() const { }
};

} // namespace

class TestWorkerThread : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void takesNoSignals();
    void leavesTheSignalsOfTheStarter();
    void leavesThemWhenItFails();

private:
    bool isAsBefore() const;

    sigset_t m_before = {};
};

/** One signal that is blocked already, and others that are not. */
void TestWorkerThread::init()
{
    m_before = ownMask();
    sigset_t mask;
    sigemptyset(&mask);
    sigaddset(&mask, SIGUSR1);
    pthread_sigmask(SIG_SETMASK, &mask, nullptr);
}

void TestWorkerThread::cleanup()
{
    pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
}

bool TestWorkerThread::isAsBefore() const
{
    const sigset_t mask = ownMask();
    return sigismember(&mask, SIGUSR1) == 1 && sigismember(&mask, SIGTERM) == 0
        && sigismember(&mask, SIGINT) == 0;
}

void TestWorkerThread::takesNoSignals()
{
    sigset_t mask;
    sigemptyset(&mask);
    startWorkerThread([&mask] { mask = ownMask(); }).join();
    QVERIFY(areBlocked(mask, {SIGTERM, SIGINT, SIGHUP, SIGUSR1, SIGCHLD, SIGPIPE}));
}

void TestWorkerThread::leavesTheSignalsOfTheStarter()
{
    startWorkerThread([] {}).join();
    QVERIFY(isAsBefore());
}

void TestWorkerThread::leavesThemWhenItFails()
{
    const Unmovable run;
    QVERIFY_EXCEPTION_THROWN(startWorkerThread<Unmovable>(run).join(), std::runtime_error);
    QVERIFY(isAsBefore());
}

QTEST_APPLESS_MAIN(TestWorkerThread)
#include "tst_workerthread.moc"
