// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "singleline.h"

#include <algorithm>

QString QuadrelWorkspace::singleLine(const QString& text, int maximalLength)
{
    QString line = text.left(maximalLength);
    const auto isHidden = [](QChar character) {
        return !character.isPrint() && !character.isSurrogate();
    };
    std::replace_if(line.begin(), line.end(), isHidden, QLatin1Char(' '));
    return line.simplified();
}
