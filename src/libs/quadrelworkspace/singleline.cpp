// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "singleline.h"

#include <algorithm>

QString QuadrelWorkspace::singleLine(const QString& text, int maximalLength)
{
    QString line = text.left(maximalLength);
    // Half a character could not be written to a file and read again.
    if (!line.isEmpty() && line.at(line.size() - 1).isHighSurrogate())
        line.chop(1);
    const auto isHidden = [](QChar character) {
        return !character.isPrint() && !character.isSurrogate();
    };
    std::replace_if(line.begin(), line.end(), isHidden, QLatin1Char(' '));
    return line.simplified();
}
