// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unitdocument.h"

namespace QuadrelDocument {

/**
 * Reads the project file at `path`, whose bytes are `text`, through the library. Before that the
 * text is looked at as XML, since the library's reader takes what it does not understand for a
 * default, or skips it: all such places are errors here. What the library itself writes is none.
 *
 * A Modbus trigger comes with an unknown line; a section that is missing or empty is absent.
 */
Document parseProject(const QString& path, const QByteArray& text);

/** What a project file with these contents would not hold, record by record, as warnings. */
Findings lossesInProject(const Contents& contents);

/** What a project file holds of a text. */
QString textInProject(const QString& text);

/** Writes the project file at `path`; false if the library could not. */
bool writeProject(const QString& path, const Contents& contents);

} // namespace QuadrelDocument
