// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>

namespace QuadrelWorkspace {

/**
 * What a unit's clock says, or an invalid time. The year of a text lacks the zero of 2001 to 2009.
 */
QDateTime clockTime(const QString& text);

} // namespace QuadrelWorkspace
