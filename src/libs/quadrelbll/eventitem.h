// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal to the library; not installed.
#pragma once

#include <QtCore/QString>

/** One item of a list of events as text, such as "(ID:3)". */
namespace EventItem {

/**
 * The id between the first "ID:" and the first ")" after it; 0 if there is no number.
 *
 * A failed search is not checked, and callers rely on the result: "ID:" without ")"
 * gives the whole rest; without "ID:" the text from index 2 is taken, up to a ")" that is the last
 * character or else to the end.
 */
int id(const QStringRef& item);

} // namespace EventItem
