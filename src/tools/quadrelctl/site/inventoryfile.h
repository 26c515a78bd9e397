// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "sitecommands.h"

#include <QtCore/QByteArray>

/**
 * Puts a changed inventory in the place of the old one: shows the lines that go and come, asks if
 * `asks`, and writes. `text` is what the file holds. Throws CommandFailure if there is no change to
 * be made, or it is not wanted.
 */
void putInventory(const SiteOptions& options, const QByteArray& text,
    const QuadrelWorkspace::EditedSite& edited, bool asks);
