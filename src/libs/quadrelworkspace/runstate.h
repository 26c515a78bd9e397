// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>

#include <optional>

namespace QuadrelWorkspace {

/** What became of a unit in a run over a site. */
enum class UnitState {
    Waiting, ///< it was not begun, and holds what it held
    AtWork,  ///< it was begun; how it ended is not known
    Done,    ///< it holds what it should
    Failed   ///< it was begun and failed
};

/** "waiting", "at work", "done" or "failed", as in the file. */
QString stateWord(UnitState state);

struct UnitRunState {
    QString name;
    UnitState state = UnitState::Waiting;
    /** Why it failed; one line. */
    QString reason;
    /** The version that an upgrade has brought; empty for other runs. */
    QString version;
};

/**
 * How far a run over a site has come: a file in YAML that says so in words, and from which the run
 * can go on. What is done is to be verified then, and everything else done again.
 *
 *     format: quadrel-run/1
 *     command: "site write --tag hall"
 *     begun: 2026-11-21T09:30:00Z
 *     units:
 *       - name: hall-1
 *         state: done
 *       - name: hall-2
 *         state: failed
 *         reason: "tcp://192.168.1.22:3801 does not answer"
 */
struct RunState {
    /** The command with its options, to distinguish one run from another. */
    QString command;
    /** In UTC. */
    QDateTime begun;
    /** In the order of the run. */
    QVector<UnitRunState> units;

    /** Changes a unit's state; no effect for a name that is not in the run. */
    void set(const QString& name, UnitState state, const QString& reason = QString());
    void setVersion(const QString& name, const QString& version);
    /** The unit of that name, or null. */
    const UnitRunState* unit(const QString& name) const;
    QStringList namesIn(UnitState state) const;
    bool isOver() const;
};

/**
 * Writes the file; it is there whole, or as it was before. Returns the reason of a failure, or an
 * empty text. It takes as long as the disk does: not for each of a thousand units a second.
 */
QString saveRunState(const QString& path, const RunState& state);

struct LoadedRunState {
    RunState state;
    /** "FILE:LINE:COLUMN: what is wrong, and what is allowed". */
    QStringList errors;
};
LoadedRunState loadRunState(const QString& path);

} // namespace QuadrelWorkspace
