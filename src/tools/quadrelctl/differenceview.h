// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "page.h"

#include <contentsdifference.h>

/** A difference for people; no line without one. */
Page differencePage(const QuadrelDocument::Difference& difference);
/** Of the text that differenceText() makes. */
Page differencePage(const QString& text);
