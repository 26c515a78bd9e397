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
 * The arguments of the program with the command first, and its own command next if it has some:
 * each option may come before or after them.
 * "help" and "help COMMAND" become "--help" and "COMMAND --help".
 */
std::vector<std::string> commandFirst(const CLI::App& app, int argc, char** argv);

/** The innermost command that was typed, and the word in the place of its command if that is none.
 */
struct Command {
    const CLI::App* app;
    std::string unknown;
};
/** Of the arguments that commandFirst() made. */
Command commandOf(const CLI::App& app, const std::vector<std::string>& arguments);

/** The names of an application's commands, or of a command's options. */
QStringList commandNames(const CLI::App& app);
QStringList optionNames(const CLI::App& command);

/** The name that a misspelt one probably means; empty if none is near. */
QString nearest(const QString& name, const QStringList& names);

} // namespace Arguments
