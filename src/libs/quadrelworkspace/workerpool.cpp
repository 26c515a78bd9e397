// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "workerpool.h"

#include "workspace.h"

#include <QtCore/QProcess>
#include <QtCore/QTimer>

#include <algorithm>

#include <unistd.h>

using namespace QuadrelWorkspace;

namespace {

/** All of the bytes, also those after a zero. */
QString textOf(const QByteArray& bytes)
{
    return QString::fromUtf8(bytes.constData(), bytes.size());
}

/** A process that an interrupt at the terminal does not reach. */
class ApartProcess : public QProcess {
protected:
    // Between fork and exec: nothing but a call of the system.
    void setupChildProcess() override { setpgid(0, 0); }
};

} // namespace

/** A running process and what is known of it so far. */
class WorkerPool::Worker {
public:
    Worker(WorkerPool* pool, const WorkerTask& task);
    ~Worker();
    Q_DISABLE_COPY(Worker)

    void start();
    void end(WorkerEnd end, const QString& reason);
    WorkerResult result() const;
    const QString& name() const { return m_task.name; }

private:
    void takeOutput();
    void takeErrors();
    void takeEnd(int exitCode, QProcess::ExitStatus status);
    void takeFailedStart(QProcess::ProcessError error);

    WorkerPool* const m_pool;
    const WorkerTask m_task;
    ApartProcess m_process;
    QTimer m_limit;
    QTimer m_kill;
    QElapsedTimer m_time;
    QByteArray m_output;
    QByteArray m_errors;
    QByteArray m_line;
    WorkerResult m_result;
};

WorkerPool::Worker::Worker(WorkerPool* pool, const WorkerTask& task)
    : m_pool(pool)
    , m_task(task)
{
    m_result.name = task.name;
    m_result.end = WorkerEnd::Done;
    m_limit.setSingleShot(true);
    m_kill.setSingleShot(true);
    m_process.setStandardInputFile(QProcess::nullDevice());
    connect(&m_process, &QProcess::readyReadStandardOutput, pool, [this] { takeOutput(); });
    connect(&m_process, &QProcess::readyReadStandardError, pool, [this] { takeErrors(); });
    connect(&m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), pool,
        [this](int exitCode, QProcess::ExitStatus status) { takeEnd(exitCode, status); });
    connect(&m_process, &QProcess::errorOccurred, pool,
        [this](QProcess::ProcessError error) { takeFailedStart(error); });
    connect(&m_kill, &QTimer::timeout, pool, [this] { m_process.kill(); });
    connect(&m_limit, &QTimer::timeout, pool, [this] {
        end(WorkerEnd::TimedOut,
            Workspace::tr("not finished within %1 s")
                .arg(QString::number(m_limit.interval() / 1000.0)));
    });
}

WorkerPool::Worker::~Worker()
{
    m_process.disconnect(m_pool);
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    m_process.waitForFinished();
}

void WorkerPool::Worker::start()
{
    m_time.start();
    if (m_pool->m_limit >= 0)
        m_limit.start(m_pool->m_limit);
    m_process.start(m_task.program, m_task.arguments);
}

void WorkerPool::Worker::end(WorkerEnd end, const QString& reason)
{
    if (m_kill.isActive())
        return;
    m_limit.stop();
    m_result.end = end;
    m_result.reason = reason;
    m_process.terminate();
    m_kill.start(m_pool->m_endingTime);
}

WorkerResult WorkerPool::Worker::result() const
{
    WorkerResult result = m_result;
    result.milliseconds = m_time.elapsed();
    result.errors = textOf(m_errors);
    if (m_output.size() <= maximalOutput)
        result.output = QJsonDocument::fromJson(m_output);
    if (result.output.isNull())
        result.text = textOf(m_output.left(maximalOutput));
    return result;
}

void WorkerPool::Worker::takeOutput()
{
    const QByteArray output = m_process.readAllStandardOutput();
    m_output.append(
        output.constData(), std::min(output.size(), maximalOutput + 1 - m_output.size()));
}

void WorkerPool::Worker::takeErrors()
{
    const QByteArray text = m_process.readAllStandardError();
    m_errors = (m_errors + text).right(maximalErrors);
    m_line += text;
    int end = 0;
    while ((end = m_line.indexOf('\n')) >= 0) {
        emit m_pool->progressed(m_task.name, textOf(m_line.left(end)));
        m_line.remove(0, end + 1);
    }
    m_line = m_line.right(maximalErrors);
}

void WorkerPool::Worker::takeEnd(int exitCode, QProcess::ExitStatus status)
{
    takeOutput();
    takeErrors();
    if (status == QProcess::CrashExit && m_result.end == WorkerEnd::Done) {
        m_result.end = WorkerEnd::Crashed;
        // The framework hands the signal's number in as the exit code.
        m_result.reason = Workspace::tr("the worker crashed (signal %1)").arg(exitCode);
    }
    if (m_result.end == WorkerEnd::Done)
        m_result.exitCode = exitCode;
    m_pool->finish(this);
}

void WorkerPool::Worker::takeFailedStart(QProcess::ProcessError error)
{
    if (error != QProcess::FailedToStart)
        return;
    m_result.end = WorkerEnd::CannotStart;
    m_result.reason =
        Workspace::tr("cannot start %1: %2").arg(m_task.program, m_process.errorString());
    m_pool->finish(this);
}

WorkerPool::WorkerPool(int jobs, int limit, QObject* parent)
    : QObject(parent)
    , m_jobs(std::max(jobs, 1))
    , m_limit(limit)
{
}

WorkerPool::~WorkerPool() = default;

void WorkerPool::start(const QList<WorkerTask>& tasks)
{
    if (m_isStarted)
        return;
    m_isStarted = true;
    m_waiting = tasks;
    startLater();
}

void WorkerPool::stopStarting()
{
    const QList<WorkerTask> skipped = m_waiting;
    m_waiting.clear();
    for (const WorkerTask& task : skipped) {
        WorkerResult result;
        result.name = task.name;
        result.reason = Workspace::tr("not begun");
        emit finished(result);
    }
}

void WorkerPool::endAll()
{
    stopStarting();
    for (const std::unique_ptr<Worker>& worker : m_running)
        worker->end(WorkerEnd::Stopped, Workspace::tr("ended by the user"));
}

/** Keeps as many at work as may be, or reports that all is over. */
void WorkerPool::startNext()
{
    m_ended.clear();
    while (!m_waiting.isEmpty() && runningCount() < m_jobs) {
        m_running.push_back(std::make_unique<Worker>(this, m_waiting.takeFirst()));
        Worker* worker = m_running.back().get();
        emit started(worker->name());
        worker->start();
    }
    if (m_running.empty() && !m_isOver) {
        m_isOver = true;
        emit allFinished();
    }
}

/** Called from a signal of the worker's process, which has to outlive that. */
void WorkerPool::finish(Worker* worker)
{
    const auto isIt = [worker](
                          const std::unique_ptr<Worker>& each) { return each.get() == worker; };
    const auto found = std::find_if(m_running.begin(), m_running.end(), isIt);
    m_ended.push_back(std::move(*found));
    m_running.erase(found);
    emit finished(worker->result());
    startLater();
}

void WorkerPool::startLater()
{
    QMetaObject::invokeMethod(
        this, [this] { startNext(); }, Qt::QueuedConnection);
}
