// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "sitework.h"

#include <runstate.h>

/** One change that goes out to the units of a site: planned for all, then done in stages. */
struct Rollout {
    /** "write", as in the name of the file with the run's state. */
    QString name;
    /** Before any unit is asked: throws CommandFailure if the change can't be done. */
    std::function<void(const ChosenUnits&)> check;
    CommandOfUnit planCommand;
    /** Same, Planned or Failed. */
    ReportOfUnit planned;
    /** Why a unit that was done is not as the run left it; empty if it is. */
    std::function<QString(
        const QuadrelWorkspace::UnitReport& plan, const QuadrelWorkspace::UnitRunState& done)>
        fault;
    std::function<void(const QuadrelWorkspace::UnitReports&)> showPlan;
    CommandOfUnit command;
    QuadrelWorkspace::UnitOutcome success;
};

/**
 * Carries it out with one question for all. What the run has come to is in a file beside the
 * inventory until all units are done.
 */
void carryOut(const StagedOptions& options, const Rollout& rollout);
