// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "site.h"
#include "workerpool.h"

#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>

namespace QuadrelWorkspace {

/** What came of the work on one unit of a site. */
enum class UnitOutcome {
    Answers,    ///< it was there
    Done,       ///< the command succeeded
    Valid,      ///< its document has no errors
    NoDocument, ///< the inventory names none
    Saved,      ///< its document was written
    Unchanged,  ///< its document says the same already
    Same,       ///< it holds what its document says
    Differs,    ///< it holds something else
    Planned,    ///< it differs, and is to be written
    Written,    ///< it holds the new contents
    Upgraded,   ///< it has the new version
    Verified,   ///< a run before did it, and it is still so
    Failed,
    NotBegun
};

/** One English word or two for programs, as in "not begun". */
QString outcomeWord(UnitOutcome outcome);

struct UnitReport {
    QString name;
    UnitAddress address;
    UnitOutcome outcome = UnitOutcome::NotBegun;
    /** How many records differ or were written. */
    int changes = 0;
    /** Why it failed, a part to a line; may have any character in it. */
    QString failure;
    /** What the worker printed. */
    QJsonObject data;

    bool isFailure() const
    {
        return outcome == UnitOutcome::Failed || outcome == UnitOutcome::NotBegun;
    }
};
using UnitReports = QVector<UnitReport>;

/** How a worker is called for each unit. */
struct WorkerCall {
    /** quadrelctl. */
    QString program;
    /** Ahead of each command. */
    QStringList options;
};

/**
 * A worker that runs a command of quadrelctl on one unit. The worker makes sure that it is the unit
 * of the inventory, and reports its steps as lines that begin with a tab.
 */
WorkerTask workerTask(const WorkerCall& call, const SiteUnit& unit, const QStringList& command);

/** A line of a worker that says what it is at, without its tab; empty for any other line. */
QString stepOf(const QString& line);

/**
 * What a worker's result means, if its success means `success`. Exit code 1 of a command that
 * compares means that the unit differs.
 */
UnitReport reportOf(const SiteUnit& unit, const WorkerResult& result, UnitOutcome success);

/** A unit that is not worked with, for a reason that is known before. */
UnitReport failedReport(const SiteUnit& unit, const QString& failure);

/** What a unit holds after a write to it. */
enum class HeldContents { New, Old, Unknown };
HeldContents heldAfterWrite(const UnitReport& report);

} // namespace QuadrelWorkspace
