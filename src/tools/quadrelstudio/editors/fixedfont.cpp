// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "fixedfont.h"

#include <QtGui/QFontDatabase>
#include <QtGui/QFontInfo>

/** Some platforms have no fixed font of their own. */
QFont fixedFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (!QFontInfo(font).fixedPitch())
        font.setFamily(QStringLiteral("monospace"));
    return font;
}
