// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "stagedrun.h"

#include <algorithm>

namespace QuadrelWorkspace {

QVector<QList<WorkerTask>> stagesOf(const QList<WorkerTask>& tasks, const StageOptions& options)
{
    QVector<QList<WorkerTask>> stages;
    int begin = 0;
    const auto addStage = [&](int wanted) {
        const int size = std::min(wanted, tasks.size() - begin);
        if (size > 0)
            stages.append(tasks.mid(begin, size));
        begin += std::max(size, 0);
    };
    addStage(options.canary);
    while (begin < tasks.size())
        addStage(options.batch > 0 ? options.batch : tasks.size());
    return stages;
}

StagedRun::StagedRun(const StageOptions& options, QObject* parent)
    : QObject(parent)
    , m_options(options)
{
}

StagedRun::~StagedRun() = default;

void StagedRun::start(const QList<WorkerTask>& tasks)
{
    if (m_isStarted)
        return;
    m_isStarted = true;
    m_stages = stagesOf(tasks, m_options);
    QMetaObject::invokeMethod(
        this, [this] { startStage(); }, Qt::QueuedConnection);
}

void StagedRun::stopStarting()
{
    m_isStopped = true;
    if (m_pool)
        m_pool->stopStarting();
}

void StagedRun::endAll()
{
    m_isStopped = true;
    if (m_pool)
        m_pool->endAll();
}

/** Called when the pool of the stage before is over. */
void StagedRun::startStage()
{
    if (m_nextStage == m_stages.size()) {
        emit allFinished();
        return;
    }
    m_pool = std::make_unique<WorkerPool>(m_options.jobs, m_options.limit);
    connect(m_pool.get(), &WorkerPool::started, this, &StagedRun::started);
    connect(m_pool.get(), &WorkerPool::progressed, this, &StagedRun::progressed);
    connect(m_pool.get(), &WorkerPool::finished, this, &StagedRun::take);
    // The pool is not to be replaced while it emits.
    connect(
        m_pool.get(), &WorkerPool::allFinished, this, [this] { startStage(); },
        Qt::QueuedConnection);
    const QList<WorkerTask> tasks = m_stages.at(m_nextStage);
    ++m_nextStage;
    if (!m_isStopped)
        emit stageStarted(m_nextStage, m_stages.size());
    m_pool->start(tasks);
    if (m_isStopped)
        m_pool->stopStarting();
}

void StagedRun::take(const WorkerResult& result)
{
    if (!result.isSuccess() && result.end != WorkerEnd::NotBegun)
        ++m_failures;
    emit finished(result);
    if (m_failures > m_options.maximalFailures && !m_isStopped)
        stopStarting();
}

} // namespace QuadrelWorkspace
