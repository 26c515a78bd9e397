// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal to the library; not installed.
#pragma once

#include <QtCore/QString>

class RecordBlock;
class ReplyFrame;

/**
 * The description text of a block: a length byte, and after it UTF-16 code units, high byte first.
 *
 * A text passes through UTF-8 on its way in either direction. That leaves ordinary text as it is,
 * drops a leading U+FEFF, and turns a surrogate without its partner into "?".
 */
namespace DescriptionText {

/** The text up to its first NUL, as the event block stores it. */
QString untilNul(const QString& text);

/** The text with its NULs, as the trigger blocks store it. */
QString withNuls(const QString& text);

/**
 * Stores the length byte at `offset`, low 8 bits of twice the code units, and the code units
 * after it.
 */
void store(RecordBlock& block, int offset, const QString& text);

/**
 * The text of `byteCount` bytes of a reply's payload, which ends at the first U+0000. An odd last
 * byte is a code unit of that byte's value. A surrogate without its partner at the very end is
 * lost.
 */
QString read(const ReplyFrame& frame, int offset, int byteCount);

} // namespace DescriptionText
