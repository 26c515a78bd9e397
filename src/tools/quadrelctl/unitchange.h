// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unitaccess.h"

#include <contentsplan.h>

#include <QtCore/QString>

/** What a unit is to hold, and where that comes from. */
struct UnitChange {
    QuadrelDocument::Contents wanted;
    QuadrelDocument::Positions positions;
    /** The file of the positions; empty for a text that is in no file. */
    QString file;
    QuadrelDocument::PlanOptions plan;
    /** For the list of backups, as in "write hall.yaml". */
    QString name;
    bool dryRun = false;
    bool json = false;
};

/**
 * Shows what changes, asks, writes it and compares what the unit then holds. `held` is what the
 * unit was just read to hold. Throws CommandFailure if the change is not possible, not wanted or
 * not done.
 */
void carryOut(UnitAccess& unit, const QuadrelDocument::Contents& held, const UnitChange& change);
