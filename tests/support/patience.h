// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtTest/QTest>

/**
 * How long a test waits for what must happen, in ms. A busy machine may take this long; a test that
 * waits longer fails. Nothing that works ever waits so long, so no test passes or fails by the
 * clock.
 */
constexpr int patience = 120000;

#define TRY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT(condition, patience)
#define TRY_COMPARE(actual, expected) QTRY_COMPARE_WITH_TIMEOUT(actual, expected, patience)
