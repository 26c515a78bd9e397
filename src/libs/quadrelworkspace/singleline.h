// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

namespace QuadrelWorkspace {

/**
 * The beginning of a text from a file that anybody may have written, fit for a message: one line of
 * at most `maximalLength` characters, with a blank for each that cannot be shown.
 */
QString singleLine(const QString& text, int maximalLength = 200);

} // namespace QuadrelWorkspace
