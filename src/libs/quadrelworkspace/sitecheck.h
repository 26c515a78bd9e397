// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "site.h"

#include <unitdocument.h>

#include <QtCore/QString>

namespace QuadrelWorkspace {

/** A unit's document and what is to be said of it, also against the inventory. */
struct CheckedDocument {
    /** Empty if the inventory names none. */
    QString path;
    QuadrelDocument::LoadedFile file;
};
CheckedDocument checkDocument(const Site& site, const SiteUnit& unit);

} // namespace QuadrelWorkspace
