// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <CLI/CLI.hpp>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <string>
#include <vector>

/** What the user typed, as the parser gets it. */
namespace Arguments {

/**
 * The arguments of the program with the command first: each option may come before or after it.
 * "help" and "help COMMAND" become "--help" and "COMMAND --help".
 */
std::vector<std::string> commandFirst(const CLI::App& app, int argc, char** argv);

/** The command of the arguments that commandFirst() made; empty if there is none. */
std::string commandOf(const std::vector<std::string>& arguments);

/** The names of an application's commands, or of a command's options. */
QStringList commandNames(const CLI::App& app);
QStringList optionNames(const CLI::App& command);

/** The name that a misspelt one probably means; empty if none is near. */
QString nearest(const QString& name, const QStringList& names);

} // namespace Arguments
