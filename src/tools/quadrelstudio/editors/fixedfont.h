// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGui/QFont>

/** The font of bytes and logs, in which all characters are as wide. */
QFont fixedFont();
