// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>
#include <QtCore/QVector>

/** How a line looks where there is colour. */
enum class Style { Plain, Heading, Added, Removed, Changed };

struct Line {
    QString text;
    Style style = Style::Plain;
};

/** Lines to be shown together, without their ends. */
using Page = QVector<Line>;
