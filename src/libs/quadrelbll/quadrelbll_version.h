// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "quadrelbll_global.h"

/*
 * The version that a program is compiled against. These three numbers are the only place where the
 * version is written down; the build reads them here.
 */
#define QUADRELBLL_VERSION_MAJOR 0
#define QUADRELBLL_VERSION_MINOR 2
#define QUADRELBLL_VERSION_PATCH 0

/** A version as one number that can be compared; each part is from 0 to 255. */
#define QUADRELBLL_VERSION_CHECK(major, minor, patch) (((major) << 16) | ((minor) << 8) | (patch))

/** The version that a program is compiled against as one number, for `#if`. */
#define QUADRELBLL_VERSION                                                                         \
    QUADRELBLL_VERSION_CHECK(                                                                      \
        QUADRELBLL_VERSION_MAJOR, QUADRELBLL_VERSION_MINOR, QUADRELBLL_VERSION_PATCH)

/** The version that a program is compiled against as a text such as "0.2.0". */
#define QUADRELBLL_VERSION_STRING                                                                  \
    QT_STRINGIFY(QUADRELBLL_VERSION_MAJOR)                                                         \
    "." QT_STRINGIFY(QUADRELBLL_VERSION_MINOR) "." QT_STRINGIFY(QUADRELBLL_VERSION_PATCH)

/**
 * The version of the library that is loaded, as a text such as "0.2.0"; it may be a later one than
 * QUADRELBLL_VERSION_STRING. The text is constant; any thread may ask at any time.
 */
QUADRELBLL_EXPORT const char* quadrelbllVersion();
