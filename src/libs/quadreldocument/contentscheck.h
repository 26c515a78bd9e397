// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "finding.h"
#include "unitcontents.h"

namespace QuadrelDocument {

/**
 * Everything that is wrong with contents, in their order.
 *
 * - Errors: what a unit would not give back as it was written, what refers to an event that there
 * is not, doubled ids, counts and lengths beyond a unit's, dates, times and weekdays that do not
 *   exist.
 * - Warnings: Modbus parameters with a wrong checksum, lines beyond the device's.
 * - Notes: events that nothing uses.
 *
 * What is absent from the contents is not looked at: references need events, lines need a device.
 */
Findings checkContents(const Contents& contents, const Positions& positions = Positions());

} // namespace QuadrelDocument
