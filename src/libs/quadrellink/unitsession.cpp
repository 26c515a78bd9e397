// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitsession.h"

#include "operationrunner.h"
#include "threadannotations.h"
#include "workerthread.h"

#include <QtCore/QMetaMethod>

#include <atomic>
#include <condition_variable>
#include <optional>
#include <thread>
#include <vector>

class UnitSession::Private {
public:
    Private(UnitSession* session, const UnitAddress& address, const LinkOptions& options);
    ~Private();

    bool begin(const UnitRequest& request, bool isAwaited, bool wantsProgress);
    UnitResult await(const ProgressHandler& progress);
    void deliver();
    void cancel() noexcept;

    UnitSession* const q;
    const UnitAddress address;
    std::atomic<bool> isAborted{false};
    std::unique_ptr<OperationRunner> runner;

    mutable LinkMutex mutex;
    bool isRunning LINK_GUARDED_BY(mutex) = false;

private:
    void work();
    void finish(const UnitResult& result);
    void addProgress(const UnitProgress& step);
    void announce() LINK_REQUIRES(mutex);

    /** Why there is no runner. */
    LinkFailure m_defect;
    std::condition_variable_any m_changed;
    std::optional<UnitRequest> m_request LINK_GUARDED_BY(mutex);
    /** What the session's thread has not seen yet. */
    std::vector<UnitProgress> m_progress LINK_GUARDED_BY(mutex);
    std::optional<UnitResult> m_result LINK_GUARDED_BY(mutex);
    /** run() waits for the result; else it goes out by a signal. */
    bool m_isAwaited LINK_GUARDED_BY(mutex) = false;
    bool m_wantsProgress LINK_GUARDED_BY(mutex) = false;
    bool m_isAnnounced LINK_GUARDED_BY(mutex) = false;
    bool m_isStopping LINK_GUARDED_BY(mutex) = false;
    std::thread m_worker;
};

UnitSession::Private::Private(
    UnitSession* session, const UnitAddress& unit, const LinkOptions& options)
    : q(session)
    , address(unit)
{
    try {
        runner = std::make_unique<OperationRunner>(
            unit, options, [this](const UnitProgress& step) { addProgress(step); });
        m_worker = startWorkerThread([this] { work(); });
    } catch (const std::system_error& error) {
        runner.reset();
        m_defect = {error.code(),
            UnitSession::tr("there is no link to %1: %2")
                .arg(unit.toText(), qt_error_string(error.code().value()))};
    }
}

UnitSession::Private::~Private()
{
    {
        const LinkLock lock(mutex);
        m_isStopping = true;
    }
    cancel();
    m_changed.notify_all();
    if (m_worker.joinable())
        m_worker.join();
}

void UnitSession::Private::cancel() noexcept
{
    if (runner)
        runner->transport().cancel();
}

bool UnitSession::Private::begin(const UnitRequest& request, bool isAwaited, bool wantsProgress)
{
    const LinkLock lock(mutex);
    if (isRunning)
        return false;
    isRunning = true;
    m_isAwaited = isAwaited;
    m_wantsProgress = wantsProgress;
    if (!runner) {
        m_result = UnitResult{m_defect, UnitData()};
        announce();
        return true;
    }
    runner->transport().resume();
    if (isAborted)
        runner->transport().cancel();
    m_request = request;
    m_changed.notify_all();
    return true;
}

UnitResult UnitSession::Private::await(const ProgressHandler& progress)
{
    std::vector<UnitProgress> steps;
    for (;;) {
        {
            const LinkLock lock(mutex);
            while (!m_result && m_progress.empty())
                m_changed.wait(mutex);
            steps.swap(m_progress);
            if (steps.empty()) {
                const UnitResult result = *m_result;
                m_result.reset();
                isRunning = false;
                return result;
            }
        }
        for (const UnitProgress& step : steps)
            progress(step);
        steps.clear();
    }
}

// On the worker's thread.

void UnitSession::Private::work()
{
    mutex.lock();
    for (;;) {
        while (!m_request && !m_isStopping)
            m_changed.wait(mutex);
        if (m_isStopping)
            break;
        const UnitRequest request = *m_request;
        m_request.reset();
        mutex.unlock();
        finish(runner->run(request));
        mutex.lock();
    }
    mutex.unlock();
}

void UnitSession::Private::finish(const UnitResult& result)
{
    const LinkLock lock(mutex);
    m_result = result;
    announce();
}

/** A slow reader is spared the steps between: the last of each part is enough. */
void UnitSession::Private::addProgress(const UnitProgress& step)
{
    const LinkLock lock(mutex);
    if (!m_wantsProgress)
        return;
    if (!m_progress.empty() && m_progress.back().part == step.part)
        m_progress.back() = step;
    else
        m_progress.push_back(step);
    announce();
}

void UnitSession::Private::announce()
{
    if (m_isAwaited) {
        m_changed.notify_all();
    } else if (!m_isAnnounced) {
        m_isAnnounced = true;
        QMetaObject::invokeMethod(
            q, [this] { deliver(); }, Qt::QueuedConnection);
    }
}

// On the session's thread.

void UnitSession::Private::deliver()
{
    std::vector<UnitProgress> steps;
    std::optional<UnitResult> result;
    {
        const LinkLock lock(mutex);
        m_isAnnounced = false;
        steps.swap(m_progress);
        result.swap(m_result);
        if (result)
            isRunning = false;
    }
    for (const UnitProgress& step : steps)
        Q_EMIT q->progressed(step);
    if (!result)
        return;
    if (*result)
        Q_EMIT q->finished(*result);
    else
        Q_EMIT q->failed(result->failure.error, result->failure.text);
}

UnitSession::UnitSession(const UnitAddress& address, const LinkOptions& options, QObject* parent)
    : QObject(parent)
    , d(std::make_unique<Private>(this, address, options))
{
    qRegisterMetaType<UnitProgress>("UnitProgress");
    qRegisterMetaType<UnitResult>("UnitResult");
    qRegisterMetaType<std::error_code>("std::error_code");
}

UnitSession::~UnitSession() = default;

UnitAddress UnitSession::address() const
{
    return d->address;
}

UnitResult UnitSession::run(const UnitRequest& request, const ProgressHandler& progress)
{
    if (d->begin(request, true, static_cast<bool>(progress)))
        return d->await(progress);
    return {{LinkError::Busy, tr("another operation on %1 runs").arg(d->address.toText())}, {}};
}

bool UnitSession::start(const UnitRequest& request)
{
    const bool wantsProgress = isSignalConnected(QMetaMethod::fromSignal(&UnitSession::progressed));
    return d->begin(request, false, wantsProgress);
}

bool UnitSession::isRunning() const
{
    const LinkLock lock(d->mutex);
    return d->isRunning;
}

void UnitSession::cancel() noexcept
{
    d->cancel();
}

void UnitSession::abort() noexcept
{
    d->isAborted = true;
    d->cancel();
}

bool UnitSession::isConnected() const
{
    return d->runner && d->runner->transport().isConnected();
}
