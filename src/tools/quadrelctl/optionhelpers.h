// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "options.h"
#include "preferences.h"
#include "tool.h"

#include <CLI/CLI.hpp>

#include <initializer_list>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/** What the options of several commands are made of. */

QString toText(const std::string& argument);

/** An option whose argument goes to `store` as text, once the option's checks have passed it. */
template <typename Store>
CLI::Option* addText(CLI::App* app, const char* name, const QString& help, Store store)
{
    return app->add_option_function<std::string>(
        name, [store](const std::string& argument) { store(toText(argument)); },
        help.toStdString());
}

CLI::Option* addText(CLI::App* app, const char* name, const QString& help, QString& target);
/** A list of words that goes to `target`. */
CLI::Option* addTexts(CLI::App* app, const char* name, const QString& help, QStringList& target);
CLI::Option* addFlag(CLI::App* app, const char* name, const QString& help, bool& target);

/** A usage error unless `test` accepts the argument. */
template <typename Test> CLI::Validator accept(Test test, const QString& complaint)
{
    return CLI::Validator(
        [test, complaint](std::string& argument) {
            return test(toText(argument))
                ? std::string()
                : QString(complaint).replace(QStringLiteral("%1"), toText(argument)).toStdString();
        },
        std::string());
}

/** Decimal, or hexadecimal after "0x". */
std::optional<quint64> numberOf(const QString& text);

template <typename Store>
void addNumber(CLI::App* app, const char* name, const QString& help, const char* unit,
    quint64 least, quint64 most, Store store)
{
    const auto isInRange = [least, most](const QString& text) {
        const std::optional<quint64> number = numberOf(text);
        return number && least <= *number && *number <= most;
    };
    QString complaint = Tool::tr("\"%1\" is not a number from %2 to %3");
    complaint.replace(QStringLiteral("%2"), QString::number(least));
    complaint.replace(QStringLiteral("%3"), QString::number(most));
    addText(app, name, help, [store](const QString& text) { store(*numberOf(text)); })
        ->type_name(unit)
        ->check(accept(isInRange, complaint));
}

/** The argument must not be empty. */
CLI::Option* addFile(CLI::App* app, const char* name, const QString& help, QString& target);
CLI::Validator isUnitAddress();

template <typename Address> CLI::Option* addUnit(CLI::App* app, Address& unit)
{
    return addText(app, "--unit",
        Tool::tr(
            "The unit: its name in the settings, or its address as in tcp://192.168.1.10:3801"),
        [&unit](const QString& text) { unit = *Preferences::user().addressOf(text); })
        ->type_name("UNIT")
        ->check(isUnitAddress());
}

void addJson(CLI::App* app, bool& json);
void addDryRun(CLI::App* app, bool& dryRun);
CLI::Option* addClockTime(CLI::App* app, QString& time);

/** What an upgrade of one unit or many takes; `Options` has the fields of UpgradeOptions. */
void addStreamedImage(CLI::App* app, QString& target);
template <typename Options> void addImages(CLI::App* app, Options& options)
{
    addStreamedImage(app, options.streamedFile);
    addFile(app, "--addressed", Tool::tr("The addressed image"), options.addressedFile)->required();
    addFile(app, "--descriptor",
        Tool::tr("The upgrade's descriptor; model and version are compared with the unit's"),
        options.descriptorFile);
    addFlag(app, "--force",
        Tool::tr("Accept files that look wrong, or the version that is installed"), options.force);
}

/** The help option in the user's language, which subcommands do not inherit. */
void translateHelp(CLI::App& app);
/** The words around usage and options in the user's language, for all subcommands too. */
void translateLabels(CLI::App& app);

/** The end of the help; each example is what follows the program's name. */
void addExamplesTo(CLI::App* app, std::initializer_list<const char*> examples);

/** A subcommand with options of its own, which live as long as the command may run. */
template <typename Options> struct Subcommand {
    Subcommand(CLI::App& app, CommandLine& line, const char* name, const QString& help,
        void (*run)(const Options&))
        : app(app.add_subcommand(name, help.toStdString()))
        , options(std::make_shared<Options>())
    {
        translateHelp(*this->app);
        this->app->group(Tool::tr("Commands").toStdString());
        this->app->fallthrough();
        this->app->callback(
            [&line, run, options = options] { line.command = [run, options] { run(*options); }; });
    }

    void addExamples(std::initializer_list<const char*> examples) const
    {
        addExamplesTo(app, examples);
    }

    CLI::App* app;
    std::shared_ptr<Options> options;
};
