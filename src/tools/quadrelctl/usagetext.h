// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

/** The parser's complaint in the user's language, or as it is if it is none that we know. */
QString usageText(const QString& complaint);
