// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "workerpool.h"

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtCore/QVector>

#include <memory>

namespace QuadrelWorkspace {

/** How a change goes out to the units of a site. */
struct StageOptions {
    /** How many units are tried first; 0 for none. */
    int canary = 0;
    /** How many follow at a time; 0 for all the rest. */
    int batch = 0;
    /** With more failures than this no further unit is begun. */
    int maximalFailures = 0;
    /** At most as many side by side. */
    int jobs = 16;
    /** Milliseconds for each unit; a negative number for no limit. */
    int limit = -1;
};

/** The tasks of each stage, in their order: the canary, then the batches. */
QVector<QList<WorkerTask>> stagesOf(const QList<WorkerTask>& tasks, const StageOptions& options);

/**
 * Runs the tasks stage by stage: a stage begins when the one before it is over, and only as long as
 * no more than the allowed number of units have failed. Each worker whose result is not a success
 * counts as a failure, except for those that were not begun.
 *
 * Threads and workers are as for WorkerPool.
 */
class StagedRun : public QObject {
    Q_OBJECT

public:
    explicit StagedRun(const StageOptions& options, QObject* parent = nullptr);
    ~StagedRun() override;

    /** Begins; finished() comes for each task, then allFinished(). Only once. */
    void start(const QList<WorkerTask>& tasks);

    /** Begins no further unit; those at work go on to their end. */
    void stopStarting();
    /** Begins none, and asks those at work to end. */
    void endAll();

    int failureCount() const { return m_failures; }
    /** Whether units were left out, for failures or by a call. */
    bool isStopped() const { return m_isStopped; }

signals:
    /** Stages are counted from 1. */
    void stageStarted(int stage, int stages);
    void started(const QString& name);
    void progressed(const QString& name, const QString& line);
    void finished(const QuadrelWorkspace::WorkerResult& result);
    void allFinished();

private:
    void startStage();
    void take(const WorkerResult& result);

    const StageOptions m_options;
    QVector<QList<WorkerTask>> m_stages;
    int m_nextStage = 0;
    int m_failures = 0;
    bool m_isStopped = false;
    bool m_isStarted = false;
    std::unique_ptr<WorkerPool> m_pool;
};

} // namespace QuadrelWorkspace
