// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <unitwork.h>

/** How much of a read, or of a write with its reading back, is done: 0 to 1. */
double fractionOf(const QuadrelWorkspace::WorkProgress& progress, bool isWrite);

/** Milliseconds that are left at the pace so far; -1 while that says nothing. */
qint64 remainingTime(qint64 elapsed, double fraction);
