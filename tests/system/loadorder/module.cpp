// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Links the library, and is loaded when there is an application object.

#include "operation.h"

#include <cstdio>

extern "C" Q_DECL_EXPORT void runModule()
{
    std::puts(qPrintable(closingSignalOfOperation(Unit::Answers)));
}
