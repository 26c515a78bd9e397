// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "runstate.h"
#include "stagedrun.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QTimer>

namespace QuadrelWorkspace {

/**
 * Keeps the file of a run's state up to date while the run goes on, a few times a second at most:
 * after a crash it may be half a second old. Make it before the run starts.
 */
class RunRecord : public QObject {
    Q_OBJECT

public:
    RunRecord(const QString& path, const RunState& state, StagedRun* run);

    /** Writes the file now. Returns the reason of a failure, or an empty text. */
    QString save();
    const RunState& state() const { return m_state; }

private:
    void change(const QString& name, UnitState state, const QString& reason = QString());

    const QString m_path;
    RunState m_state;
    QTimer m_saving;
};

} // namespace QuadrelWorkspace
