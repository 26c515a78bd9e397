// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal to the library; not installed.
#pragma once

#include <QtCore/qglobal.h>

/**
 * The sixteen lines of a port or input selector as the two mask bytes of a block, one bit a line.
 *
 * Lines count from 0, "A-1", to 15, "D-4": group A has the high nibble of the first byte, B the low
 * nibble, C and D those of the second byte.
 */
struct SelectorMask {
    quint8 first;
    quint8 second;

    /** The mask of a line; a value that is not a line has no bit. */
    static SelectorMask ofLine(int line);

    /** The input line of the mask; 0, the first line, for a mask that names no single line. */
    int inputLine() const;

    /**
     * The serial line of the mask, likewise. Applications know the last two ports by other masks
     * than they write: "D-3" by a second byte of 0x03 and "D-4" by 0x04; 0x08 is not a port.
     */
    int serialLine() const;

    bool operator==(const SelectorMask& other) const;
};
