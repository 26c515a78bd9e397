// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "runrecord.h"

#include "unitreport.h"

namespace QuadrelWorkspace {

namespace {

constexpr int savingInterval = 500;

} // namespace

RunRecord::RunRecord(const QString& path, const RunState& state, StagedRun* run)
    : m_path(path)
    , m_state(state)
{
    m_saving.setSingleShot(true);
    m_saving.setInterval(savingInterval);
    connect(&m_saving, &QTimer::timeout, this, [this] { save(); });
    connect(run, &StagedRun::started, this,
        [this](const QString& name) { change(name, UnitState::AtWork); });
    connect(run, &StagedRun::finished, this, [this](const WorkerResult& result) {
        if (result.isSuccess()) {
            m_state.setVersion(
                result.name, result.output.object().value(QStringLiteral("version")).toString());
            change(result.name, UnitState::Done);
        } else if (result.end != WorkerEnd::NotBegun) {
            change(result.name, UnitState::Failed,
                reportOf(SiteUnit(), result, UnitOutcome::Done).failure);
        }
    });
}

QString RunRecord::save()
{
    m_saving.stop();
    return saveRunState(m_path, m_state);
}

void RunRecord::change(const QString& name, UnitState state, const QString& reason)
{
    m_state.set(name, state, reason);
    if (!m_saving.isActive())
        m_saving.start();
}

} // namespace QuadrelWorkspace
