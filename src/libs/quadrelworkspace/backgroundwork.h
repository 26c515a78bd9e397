// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unitwork.h"

#include <QtCore/QObject>
#include <QtCore/QThread>

#include <functional>
#include <memory>
#include <mutex>

namespace QuadrelWorkspace {

/**
 * Runs the calls of a UnitWork on a thread of its own, for programs with windows. No call here
 * blocks, but for the end of the object.
 *
 * The object belongs to a thread with an event loop, and emits its signals there.
 */
class BackgroundWork : public QObject {
    Q_OBJECT

public:
    /** Runs on the object's own thread; whatever it captures must be safe there. */
    using Job = std::function<WorkResult(UnitWork&, const UnitWork::ProgressHandler&)>;

    explicit BackgroundWork(
        const UnitAddress& address, const WorkOptions& options = {}, QObject* parent = nullptr);
    /** Aborts the job that runs, and waits for its end; nothing is emitted any more. */
    ~BackgroundWork() override;

    /**
     * Starts a job, as in
     *
     *     work.start([](UnitWork& unit, const auto& progress) { return unit.read(progress); });
     *
     * False, with no effect, if one runs already.
     */
    bool start(const Job& job);
    /** From start() until finished(). */
    bool isRunning() const { return m_isRunning; }
    /** Aborts the job that runs; finished() still comes. What it was at is in the result. */
    void cancel();
    /** Gives the unit's locks and the connection up, once no job runs; the next job takes them. */
    void release();

signals:
    void progressed(const QuadrelWorkspace::WorkProgress& progress);
    void finished(const QuadrelWorkspace::WorkResult& result);

private:
    void run(const Job& job);
    bool isUsedUp();
    void makeWork();
    std::unique_ptr<UnitWork> takeWork();

    const UnitAddress m_address;
    const WorkOptions m_options;
    bool m_isRunning = false;
    QThread m_thread;
    /** On the thread: where its calls go. */
    QObject m_context;

    std::mutex m_mutex;
    /** Made, used and destroyed on the thread; the mutex is for cancel(). */
    std::unique_ptr<UnitWork> m_work;
    bool m_isCancelled = false;
    /** The work was aborted for an earlier job. */
    bool m_isUsedUp = false;
};

} // namespace QuadrelWorkspace
