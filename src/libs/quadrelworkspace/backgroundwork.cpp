// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "backgroundwork.h"

using namespace QuadrelWorkspace;

BackgroundWork::BackgroundWork(
    const UnitAddress& address, const WorkOptions& options, QObject* parent)
    : QObject(parent)
    , m_address(address)
    , m_options(options)
{
    m_context.moveToThread(&m_thread);
    m_thread.start();
}

BackgroundWork::~BackgroundWork()
{
    cancel();
    release();
    m_thread.quit();
    m_thread.wait();
}

bool BackgroundWork::start(const Job& job)
{
    if (m_isRunning)
        return false;
    m_isRunning = true;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        // An aborted work does nothing any more.
        m_isUsedUp = m_isUsedUp || m_isCancelled;
        m_isCancelled = false;
    }
    QMetaObject::invokeMethod(
        &m_context, [this, job] { run(job); }, Qt::QueuedConnection);
    return true;
}

void BackgroundWork::cancel()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_isCancelled = true;
    if (m_work)
        m_work->abort();
}

void BackgroundWork::release()
{
    QMetaObject::invokeMethod(
        &m_context, [this] { takeWork(); }, Qt::QueuedConnection);
}

// On the object's own thread.

void BackgroundWork::run(const Job& job)
{
    if (isUsedUp())
        takeWork();
    makeWork();
    const WorkResult result = job(*m_work, [this](const WorkProgress& progress) {
        QMetaObject::invokeMethod(
            this, [this, progress] { emit progressed(progress); }, Qt::QueuedConnection);
    });
    if (isUsedUp())
        takeWork();
    QMetaObject::invokeMethod(
        this,
        [this, result] {
            m_isRunning = false;
            emit finished(result);
        },
        Qt::QueuedConnection);
}

bool BackgroundWork::isUsedUp()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_isUsedUp || (m_isCancelled && m_work);
}

void BackgroundWork::makeWork()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_work)
        m_work = std::make_unique<UnitWork>(m_address, m_options);
    if (m_isCancelled)
        m_work->abort();
}

/** The work goes with the result, and not while cancel() waits for the mutex. */
std::unique_ptr<UnitWork> BackgroundWork::takeWork()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_isUsedUp = false;
    return std::move(m_work);
}
