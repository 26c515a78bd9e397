// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "comparison.h"

/**
 * The rows of each subject, that is of each source file. A new row goes into the list of its
 * subject; a new subject is a new source file with a function here, named in main.cpp.
 */
Rows signalExchangeRows();
Rows unitExchangeRows();
Rows modbusExchangeRows();
Rows codecRows();
Rows projectFileRows();
Rows processRows();
Rows savingUnitRows();
