// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unitmemory.h"

namespace QuadrelUnit {

/**
 * Writes a sample configuration: nine serial ports, twelve IO lines, events of every kind, and
 * serial, Modbus, IO and time triggers, as a unit in a small lecture hall could hold them.
 */
void writeSample(UnitMemory& memory);

} // namespace QuadrelUnit
