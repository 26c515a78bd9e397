// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>

namespace Pager {

/**
 * Shows a text in $PAGER, or less, and returns when the reader has left it. False, with nothing
 * shown, if there is no such program or $PAGER is "cat" or empty.
 */
bool show(const QByteArray& text);

} // namespace Pager
