// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/qglobal.h>

/**
 * Marks what an application links against. `QUADRELBLL_LIBRARY` is defined only while the library
 * itself is compiled; all other symbols of the library are hidden.
 */
#if defined(QUADRELBLL_LIBRARY)
#define QUADRELBLL_EXPORT Q_DECL_EXPORT
#else
#define QUADRELBLL_EXPORT Q_DECL_IMPORT
#endif
