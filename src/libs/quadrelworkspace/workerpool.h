// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QJsonDocument>
#include <QtCore/QList>
#include <QtCore/QMetaType>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <memory>
#include <vector>

namespace QuadrelWorkspace {

/** What one process is to do for one unit. */
struct WorkerTask {
    /** The unit's name; unique in a run. */
    QString name;
    QString program;
    QStringList arguments;
};

/** How a worker came to its end. */
enum class WorkerEnd {
    Done,        ///< it ended by itself; `exitCode` says how well
    TimedOut,    ///< it was ended at its limit
    Crashed,     ///< a signal ended it that is not ours
    Stopped,     ///< it was ended by WorkerPool::endAll()
    CannotStart, ///< the program does not run
    NotBegun     ///< the pool was stopped before
};

struct WorkerResult {
    QString name;
    WorkerEnd end = WorkerEnd::NotBegun;
    /** Of a worker that ended by itself; -1 for others. */
    int exitCode = -1;
    /** What it wrote to stdout; null if that was no JSON, or more than 16 MB. */
    QJsonDocument output;
    /** The same where it was no JSON. */
    QString text;
    /** The last lines of stderr, at most 16 KB; may have any character in it. */
    QString errors;
    /** Why a worker that did not end by itself did so; one line. */
    QString reason;
    qint64 milliseconds = 0;

    bool isSuccess() const { return end == WorkerEnd::Done && exitCode == 0; }
};

/**
 * Runs tasks side by side, each in a process of its own, so that what happens to one unit never
 * reaches another. Tasks begin in their order.
 *
 * A worker has no terminal to ask on, and is out of reach of an interrupt typed at the terminal. If
 * this process dies the workers go on to their end.
 *
 * Lives on a thread with an event loop, and never blocks it. Destroyed while workers run it kills
 * them.
 */
class WorkerPool : public QObject {
    Q_OBJECT

public:
    static constexpr int maximalOutput = 16 * 1024 * 1024;
    static constexpr int maximalErrors = 16 * 1024;
    /** At most `jobs` at a time; each has `limit` milliseconds, a negative number for no limit. */
    WorkerPool(int jobs, int limit, QObject* parent = nullptr);
    ~WorkerPool() override;

    /** What a worker that was asked to end has before it is killed, in milliseconds; 5000. */
    void setEndingTime(int milliseconds) { m_endingTime = milliseconds; }

    /** Begins; finished() comes for each task, then allFinished(). Only once. */
    void start(const QList<WorkerTask>& tasks);

    /** Starts no further worker; those that run go on to their end. */
    void stopStarting();
    /** Starts none, and asks those that run to end (SIGTERM), then with SIGKILL. */
    void endAll();

    int runningCount() const { return static_cast<int>(m_running.size()); }
    int waitingCount() const { return m_waiting.size(); }

signals:
    void started(const QString& name);
    /** A line that a worker wrote to stderr; may have any character in it. */
    void progressed(const QString& name, const QString& line);
    void finished(const QuadrelWorkspace::WorkerResult& result);
    void allFinished();

private:
    class Worker;

    void startNext();
    void startLater();
    void finish(Worker* worker);

    const int m_jobs;
    const int m_limit;
    int m_endingTime = 5000;
    bool m_isStarted = false;
    bool m_isOver = false;
    QList<WorkerTask> m_waiting;
    std::vector<std::unique_ptr<Worker>> m_running;
    std::vector<std::unique_ptr<Worker>> m_ended;
};

} // namespace QuadrelWorkspace

Q_DECLARE_METATYPE(QuadrelWorkspace::WorkerEnd)
Q_DECLARE_METATYPE(QuadrelWorkspace::WorkerResult)
