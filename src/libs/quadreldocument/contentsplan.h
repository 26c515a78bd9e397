// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "contentsdifference.h"
#include "finding.h"
#include "unitcontents.h"

#include <QtCore/QVector>

namespace QuadrelDocument {

/** What is written together. */
enum class Table {
    /** Serial ports and IO lines. */
    Config,
    Events, ///< all events
    /** Triggers and time triggers. */
    Triggers
};

/** "config", "events" or "triggers". */
QString tableName(Table table);
/** The sections that the table holds. */
QVector<Section> sectionsOf(Table table);

/** What a plan may do. */
struct PlanOptions {
    /** The only tables to write; empty: all that the wanted contents have. */
    QVector<Table> only;
    /** Write contents of a unit with another serial number or model. */
    bool otherUnit = false;
    /** The wanted contents come from a project file: see carryOver(). */
    bool fromProject = false;
};

/** What turns what a unit holds into what is wanted. */
struct Plan {
    /** The tables with a change, in the order in which they are to be written. */
    QVector<Table> tables;
    /** What the unit holds after the plan was carried out: all sections, the device its own. */
    Contents result;
    /** What changes in the tables. */
    Difference difference;
    /** Errors forbid the plan. Of what the unit held before, none is new: those are warnings. */
    Findings findings;

    /** Whether nothing forbids the plan. */
    bool isAllowed() const { return !hasErrors(findings); }
    /** Whether there is nothing to write. */
    bool isEmpty() const { return tables.isEmpty(); }
};

/**
 * What has to be written, so that a unit stores what is wanted. `held` is a whole read of the unit;
 * positions are those of the wanted contents.
 *
 * @code
 * const LoadedFile file = loadFile("hall.yaml");
 * const Plan plan = makePlan(file.contents, held, {}, file.positions);
 * for (const Finding& finding : plan.findings)
 *     out << messageOf(finding, "hall.yaml") << '\n';
 * if (plan.isAllowed())
 *     out << differenceText(plan.difference);
 * @endcode
 */
Plan makePlan(const Contents& wanted, const Contents& held, const PlanOptions& options = {},
    const Positions& positions = Positions());

/**
 * The contents of a project file with what it has no place for taken from the unit, where the
 * file's record is otherwise the same one: names of events, the lines of Modbus triggers, and all
 * time triggers. Modbus triggers that the file does not show stay where they are.
 */
Contents carryOver(const Contents& project, const Contents& held);

} // namespace QuadrelDocument
