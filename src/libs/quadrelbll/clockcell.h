// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal to the library; not installed.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

class ReplyFrame;

/** The unit's clock: year, month, day, hour, minute and second in packed BCD, a byte each. */
namespace ClockCell {

/** The cell of a reply as text, as in "2026/01/09 07:05:03"; year 5 reads as 205. */
QString text(const ReplyFrame& frame);

/**
 * The cell of a text like "2026/11/14  06:05:49", with two blanks. The century has no place in it;
 * a part that is missing or no number counts as 0.
 */
QByteArray fromText(const QString& text);

} // namespace ClockCell
