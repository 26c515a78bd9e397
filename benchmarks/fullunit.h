// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unitmemory.h"

/** The tables of a unit that holds as much as it can. */
namespace FullUnit {

constexpr int events = 128;
constexpr int serialTriggers = 24;
constexpr int inputTriggers = 16;
constexpr int timeTriggers = 24;
constexpr int tableEntries = serialTriggers + inputTriggers + timeTriggers;

/** Information, serial ports, IO lines, event table, trigger table twice, clock, three counts. */
constexpr int exchangesOfRead = 3 + 1 + events + 2 * (1 + tableEntries) + 1;
static_assert(exchangesOfRead == 263);

void fill(QuadrelUnit::UnitMemory& memory);

} // namespace FullUnit
