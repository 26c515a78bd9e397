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

std::vector<const CLI::App*> commandsOf(const CLI::App& app)
{
    return app.get_subcommands([](const CLI::App*) { return true; });
}

/** Of an option of the application or any command in it. */
bool isFollowedByArgument(const CLI::App& app, const std::string& option)
{
    const std::vector<const CLI::App*> commands = commandsOf(app);
    return takesArgument(&app, option)
        || std::any_of(commands.begin(), commands.end(),
            [&option](const CLI::App* command) { return isFollowedByArgument(*command, option); });
}

bool isOption(const std::string& argument)
{
    return argument.size() > 1 && argument.front() == '-';
}

using Words = std::vector<std::string>;

Words::iterator findCommand(const CLI::App& app, Words::iterator it, Words::iterator end)
{
    while (it != end && isOption(*it) && *it != "--") {
        const bool skipsNext = isFollowedByArgument(app, *it) && it + 1 != end;
        it += skipsNext ? 2 : 1;
    }
    // What follows "--" is not a command.
    return it != end && *it == "--" ? end : it;
}

const CLI::App* commandNamed(const CLI::App& app, const std::string& name)
{
    const std::vector<const CLI::App*> commands = commandsOf(app);
    const auto found = std::find_if(commands.begin(), commands.end(),
        [&name](const CLI::App* command) { return command->get_name() == name; });
    return found == commands.end() ? nullptr : *found;
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
    Words arguments(argv + 1, argv + argc);
    const CLI::App* level = &app;
    for (Words::difference_type place = 0; level && !commandsOf(*level).empty(); ++place) {
        // Options of the program may be anywhere.
        const auto command = findCommand(app, arguments.begin() + place, arguments.end());
        if (command == arguments.end())
            break;
        std::rotate(arguments.begin() + place, command, command + 1);
        if (place == 0 && arguments.front() == helpCommand) {
            arguments.erase(arguments.begin());
            arguments.push_back(helpOption);
            --place;
            continue;
        }
        level = commandNamed(*level, arguments.at(static_cast<std::size_t>(place)));
    }
    return arguments;
}

Arguments::Command Arguments::commandOf(
    const CLI::App& app, const std::vector<std::string>& arguments)
{
    Command command{&app, std::string()};
    for (const std::string& word : arguments) {
        if (isOption(word) || commandsOf(*command.app).empty())
            break;
        const CLI::App* found = commandNamed(*command.app, word);
        if (!found)
            return {command.app, word};
        command.app = found;
    }
    return command;
}

QStringList Arguments::commandNames(const CLI::App& app)
{
    QStringList names;
    for (const CLI::App* command : commandsOf(app))
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
