// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QStringList>

/**
 * Chinese or English, for the library's texts and the tool's own: what `--language` says, else what
 * the locale says. Any other language is English. The words of project files are the same in both.
 */
namespace Language {

/** The language that the arguments of the program ask for; of several the last. Empty if none. */
QString fromArguments(const QStringList& arguments);
/** From here on tr() gives texts of the language "zh" or "en"; an empty one means the locale's. */
void install(const QString& language);

} // namespace Language
