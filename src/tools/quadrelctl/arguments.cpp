// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "arguments.h"

#include <algorithm>
#include <numeric>

namespace {

const std::string helpCommand = "help";
const std::string helpOption = "--help";
constexpr int farthest = 2;

bool takesArgument(const CLI::App* app, const std::string& option)
{
    const CLI::Option* found = app->get_option_no_throw(option);
    return found && found->get_items_expected_max() > 0;
}

bool isFollowedByArgument(const CLI::App& app, const std::string& option)
{
    const auto commands = app.get_subcommands([](const CLI::App*) { return true; });
    return takesArgument(&app, option)
        || std::any_of(commands.begin(), commands.end(),
            [&option](const CLI::App* command) { return takesArgument(command, option); });
}

bool isOption(const std::string& argument)
{
    return argument.size() > 1 && argument.front() == '-';
}

std::vector<std::string>::iterator findCommand(
    const CLI::App& app, std::vector<std::string>& arguments)
{
    auto it = arguments.begin();
    while (it != arguments.end() && isOption(*it) && *it != "--") {
        const bool skipsNext = isFollowedByArgument(app, *it) && it + 1 != arguments.end();
        it += skipsNext ? 2 : 1;
    }
    // What follows "--" is not a command.
    return it != arguments.end() && *it == "--" ? arguments.end() : it;
}

/** How many characters are to be changed, added or removed to make one text of another. */
int editDistance(const QString& one, const QString& other)
{
    std::vector<int> row(static_cast<size_t>(other.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (int i = 0; i < one.size(); ++i) {
        int diagonal = row[0]++;
        for (int j = 0; j < other.size(); ++j) {
            const auto column = static_cast<size_t>(j) + 1;
            const int replaced = diagonal + (one.at(i) == other.at(j) ? 0 : 1);
            diagonal = row[column];
            row[column] = std::min({replaced, row[column] + 1, row[column - 1] + 1});
        }
    }
    return row.back();
}

} // namespace

std::vector<std::string> Arguments::commandFirst(const CLI::App& app, int argc, char** argv)
{
    std::vector<std::string> arguments(argv + 1, argv + argc);
    auto command = findCommand(app, arguments);
    if (command == arguments.end())
        return arguments;
    std::rotate(arguments.begin(), command, command + 1);
    if (arguments.front() == helpCommand) {
        arguments.erase(arguments.begin());
        arguments.push_back(helpOption);
    }
    return arguments;
}

std::string Arguments::commandOf(const std::vector<std::string>& arguments)
{
    return arguments.empty() || isOption(arguments.front()) ? std::string() : arguments.front();
}

QStringList Arguments::commandNames(const CLI::App& app)
{
    QStringList names;
    const auto commands = app.get_subcommands([](const CLI::App*) { return true; });
    for (const CLI::App* command : commands)
        names.append(QString::fromStdString(command->get_name()));
    return names;
}

QStringList Arguments::optionNames(const CLI::App& command)
{
    QStringList names;
    for (const CLI::Option* option : command.get_options()) {
        for (const std::string& name : option->get_lnames())
            names.append(QStringLiteral("--") + QString::fromStdString(name));
    }
    return names;
}

QString Arguments::nearest(const QString& name, const QStringList& names)
{
    QString result;
    int best = std::min(farthest, name.size() - 1) + 1;
    for (const QString& candidate : names) {
        const int distance =
            candidate.startsWith(name) && name.size() > 1 ? 1 : editDistance(name, candidate);
        if (distance < best) {
            best = distance;
            result = candidate;
        }
    }
    return result;
}
