// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "sitecommands.h"

#include <stagedrun.h>
#include <unitreport.h>

#include <functional>

/** The inventory and the units of a command. */
struct ChosenUnits {
    QuadrelWorkspace::Site site;
    QVector<QuadrelWorkspace::SiteUnit> units;
};

/** Throws CommandFailure with all that is wrong with the inventory. */
QuadrelWorkspace::LoadedSite loadInventory(const SiteOptions& options);
/** Throws CommandFailure too if no unit is selected. */
ChosenUnits chooseUnits(const SiteOptions& options);

/** The words of the command that a worker runs on a unit. */
using CommandOfUnit = std::function<QStringList(const QuadrelWorkspace::SiteUnit&)>;
using ReportOfUnit = std::function<QuadrelWorkspace::UnitReport(
    const QuadrelWorkspace::SiteUnit&, const QuadrelWorkspace::WorkerResult&)>;

/** The work of one command on units, each in a process of its own. */
struct SiteWork {
    CommandOfUnit command;
    ReportOfUnit report;
    /** Stages; how many at a time and how long comes from the options. */
    QuadrelWorkspace::StageOptions stages;
    /** Called before the work begins; may watch it. */
    std::function<void(QuadrelWorkspace::StagedRun&)> prepare;
    /** Without it each unit's end is a line of progress. */
    std::function<void(const QuadrelWorkspace::UnitReport&)> finished;
    /** What is going on, for the line of the total, as in "planning"; may be empty. */
    QString title;
};

/** Failures of single units do not stop the others, unless the stages say so. */
QuadrelWorkspace::StageOptions withoutStages();

/**
 * Does the work, shows its progress and returns what came of each unit, in the order of the units.
 * An interrupt begins no further unit, a second one ends those at work.
 */
QuadrelWorkspace::UnitReports doWork(const SiteOptions& options, const ChosenUnits& chosen,
    const QVector<QuadrelWorkspace::SiteUnit>& units, const SiteWork& work);
