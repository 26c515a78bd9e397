// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <unitdocument.h>

#include <QtCore/QString>

/**
 * Files with contents, and what is to be said of them. Findings go to stderr as
 * "FILE:LINE:COLUMN: message"; what makes a file useless ends the command.
 */

/** A file without errors. Throws CommandFailure with all of them. */
QuadrelDocument::LoadedFile loadWithoutErrors(const QString& path);
/** A file that can be read, even if no unit could take what it says. */
QuadrelDocument::LoadedFile loadReadable(const QString& path);

/** Prints all findings, errors too. */
void report(const QuadrelDocument::Findings& findings, const QString& file = QString());
/** Prints the findings and throws CommandFailure if errors are among them. */
void requireNoErrors(const QuadrelDocument::Findings& findings, const QString& file = QString());

/**
 * Saves in the form that the ending says, whole or not at all. Warns, record by record, of what a
 * project file has no place for.
 */
void saveContents(const QString& path, const QuadrelDocument::Contents& contents);
/** Fails as saveContents() would, as far as that can be known before. */
void requireSavable(const QString& path);
