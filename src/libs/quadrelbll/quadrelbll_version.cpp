// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "quadrelbll_version.h"

const char* quadrelbllVersion()
{
    return QUADRELBLL_VERSION_STRING;
}
