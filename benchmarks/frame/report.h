// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "comparison.h"

/**
 * The benchmarks as a program: reads its options, measures the rows and prints the table.
 *
 * Returns the exit code: 0 if all limits hold, 1 if one is missed, 2 if the options are wrong or a
 * file cannot be written. `allRows` is called when there is an application object.
 */
int runBenchmarks(int argc, char** argv, const std::function<Rows()>& allRows);
