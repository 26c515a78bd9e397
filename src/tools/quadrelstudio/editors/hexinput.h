// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

/** Bytes as people type and paste them: pairs of hexadecimal digits with anything in between. */
struct HexInput {
    /**
     * Blanks, line ends and punctuation separate; "0x" and "\x" may be ahead of digits, and then
     * one digit is a byte as well.
     */
    static HexInput fromText(const QString& text);

    bool isValid() const { return errorLength == 0; }

    /** What the text up to the error says. */
    QByteArray bytes;
    /** The first thing that is no pair of digits; a length of 0: there is none. */
    int errorStart = 0;
    int errorLength = 0;
    /** The error is a digit without its second. */
    bool isHalf = false;
};
