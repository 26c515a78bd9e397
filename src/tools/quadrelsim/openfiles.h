// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

/**
 * Raises the number of files that this process may open to `count`, if it may open fewer, as far as
 * the system allows. False, and the reason in `error`, if not even `least` may be open.
 */
bool allowOpenFiles(quint64 count, quint64 least, QString* error);
