// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <unitcontents.h>

#include <QtCore/QStringList>

/** The names that --only takes: the sections of documents, and "config" for ports and lines. */
QStringList sectionNames();

/** The contents with the sections of these names alone; with all if there is no name. */
QuadrelDocument::Contents onlySections(
    const QuadrelDocument::Contents& contents, const QStringList& names);

/** The names that the contents have nothing for. */
QStringList missingSections(const QuadrelDocument::Contents& contents, const QStringList& names);
