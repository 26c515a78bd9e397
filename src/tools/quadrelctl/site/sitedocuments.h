// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "sitework.h"

#include <unitreport.h>

/**
 * Whether a unit's document is valid, there is none, or what is wrong with it. Warnings go to
 * stderr.
 */
QuadrelWorkspace::UnitReport documentReport(
    const QuadrelWorkspace::Site& site, const QuadrelWorkspace::SiteUnit& unit);

/** Throws CommandFailure with all errors unless each of the units has a document without any. */
void requireDocuments(const ChosenUnits& chosen);
