// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

/**
 * A text that does nothing to a terminal, whoever wrote it: control characters, line separators and
 * what changes the direction of writing show as in JSON, "\n" or "\u001b".
 */
QString visible(const QString& text);
/** The same, but line breaks stay. */
QString visibleLines(const QString& text);
