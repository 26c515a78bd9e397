// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

/** Whether the unit of an operation answers. */
enum class Unit { Answers, IsSilent };

/** Sets the clock of a unit, and returns the signal that closed the operation. */
QString closingSignalOfOperation(Unit unit);
