// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "page.h"

#include <unitcontents.h>

#include <Qt>

/** How contents are shown. */
struct TableOptions {
    /** The columns that there are; 0 for as many as needed. */
    int width = 0;
    /** The day that the first of a unit's weekdays is shown as. */
    Qt::DayOfWeek firstWeekday = Qt::Monday;

    /** As wide as the terminal, with the user's first weekday. */
    static TableOptions ofTerminal();
};

/** A unit's information block, a line for each fact. */
Page deviceTable(const QuadrelDocument::Device& device, const TableOptions& options);
/** A headed table for each section that is there. */
Page contentsTables(const QuadrelDocument::Contents& contents, const TableOptions& options);
