// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

/** English or Chinese, switched while the program runs. */
namespace Language {

/** "en" or "zh": what the text asks for, or the locale if it is empty. */
QString chosen(const QString& text);
/** Every widget gets a LanguageChange event. */
void install(const QString& language);
/** The one that was installed last. */
QString current();

} // namespace Language
