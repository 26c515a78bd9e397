// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "options.h"

#include "arguments.h"
#include "commands.h"
#include "console.h"
#include "optionhelpers.h"
#include "preferences.h"
#include "sections.h"
#include "site/siteoptions.h"
#include "tool.h"
#include "usagetext.h"

#include <addresscheck.h>

#include <CLI/CLI.hpp>

#include <QtCore/QFile>

#include <memory>
#include <sstream>
#include <string>

namespace {

constexpr int longestTimeout = 3600000;
constexpr int mostRetries = 100;

void addOnly(CLI::App* app, const QString& help, QStringList& names)
{
    std::vector<std::string> allowed;
    const QStringList known = sectionNames();
    for (const QString& name : known)
        allowed.push_back(name.toStdString());
    addTexts(app, "--only", help.arg(known.join(QStringLiteral(", "))), names)
        ->delimiter(',')
        ->allow_extra_args(false)
        ->type_name("SECTIONS")
        ->check(CLI::IsMember(allowed));
}

void addInfo(CLI::App& app, CommandLine& line)
{
    const Subcommand<InfoOptions> info(
        app, line, "info", Tool::tr("Show what a unit says about itself"), runInfo);
    addUnit(info.app, info.options->unit)->required();
    addJson(info.app, info.options->json);
    info.addExamples({"info --unit 192.168.1.10", "info --unit hall --json"});
}

void addStatus(CLI::App& app, CommandLine& line)
{
    const Subcommand<StatusOptions> status(app, line, "status",
        Tool::tr("Show who a unit is, its clock, and whether it holds what a file says"),
        runStatus);
    addUnit(status.app, status.options->unit)->required();
    addFile(status.app, "file", Tool::tr("A document or a project file"), status.options->file);
    addJson(status.app, status.options->json);
    status.addExamples({"status --unit hall", "status --unit hall hall.yaml --json"});
}

void addSave(CLI::App& app, CommandLine& line)
{
    const Subcommand<SaveOptions> save(app, line, "save",
        Tool::tr("Save what a unit holds; a file that says the same stays as it is"), runSave);
    addUnit(save.app, save.options->unit)->required();
    addFile(
        save.app, "file", Tool::tr("A name that ends in .yaml, .json or .xml"), save.options->file)
        ->required();
    addJson(save.app, save.options->json);
    save.addExamples({"save --unit hall hall.yaml"});
}

void addRead(CLI::App& app, CommandLine& line)
{
    const Subcommand<ReadOptions> read(
        app, line, "read", Tool::tr("Read everything that a unit stores"), runRead);
    CLI::Option* unit = addUnit(read.app, read.options->unit);
    CLI::Option* discover = addFlag(read.app, "--discover",
        Tool::tr("Read the only unit that a search of the network finds"), read.options->discover);
    read.app->parse_complete_callback([unit, discover] {
        const std::size_t given = (unit->count() ? 1U : 0U) + (discover->count() ? 1U : 0U);
        if (given != 1)
            throw CLI::RequiredError::Option(1, 1, given, "--unit,--discover");
    });
    addJson(read.app, read.options->json);
    addOnly(read.app, Tool::tr("Show and save only these sections: %1"), read.options->only);
    addFile(read.app, "--save",
        Tool::tr("Save to a document, .yaml or .json, or to a project file, .xml"),
        read.options->file);
    read.addExamples({"read --unit 192.168.1.10 --save hall.yaml",
        "read --unit hall --only events,triggers", "read --discover --json"});
}

void addClock(CLI::App& app, CommandLine& line)
{
    const Subcommand<ClockOptions> clock(
        app, line, "clock", Tool::tr("Show or set a unit's clock"), runClock);
    addUnit(clock.app, clock.options->unit)->required();
    addJson(clock.app, clock.options->json);
    addDryRun(clock.app, clock.options->dryRun);
    addClockTime(clock.app, clock.options->time);
    clock.addExamples({"clock --unit hall", "clock --unit hall --set now",
        "clock --unit hall --set \"2026/11/14  06:05:49\" --yes"});
}

void addShow(CLI::App& app, CommandLine& line)
{
    const Subcommand<ShowOptions> show(
        app, line, "show", Tool::tr("Show what a file holds"), runShow);
    addFile(show.app, "file", Tool::tr("A document or a project file"), show.options->file)
        ->required();
    addJson(show.app, show.options->json);
    show.addExamples({"show hall.yaml", "show old.xml --json"});
}

void addCheck(CLI::App& app, CommandLine& line)
{
    const Subcommand<CheckOptions> check(
        app, line, "check", Tool::tr("Look for mistakes in files"), runCheck);
    addTexts(check.app, "file", Tool::tr("Documents and project files"), check.options->files)
        ->type_name("FILE")
        ->required();
    check.addExamples({"check hall.yaml", "check *.yaml old.xml"});
}

void addConvert(CLI::App& app, CommandLine& line)
{
    const Subcommand<ConvertOptions> convert(app, line, "convert",
        Tool::tr("Save a file in another form, by the ending of its name"), runConvert);
    addFile(convert.app, "from", Tool::tr("A document or a project file"), convert.options->from)
        ->required();
    addFile(convert.app, "to", Tool::tr("A name that ends in .yaml, .json or .xml"),
        convert.options->to)
        ->required();
    convert.addExamples({"convert old.xml hall.yaml", "convert hall.yaml hall.json"});
}

void addDiff(CLI::App& app, CommandLine& line)
{
    const Subcommand<DiffOptions> diff(app, line, "diff",
        Tool::tr("Compare two files or units; exit code 0 if they are the same, 1 if not"),
        runDiff);
    addText(
        diff.app, "before", Tool::tr("A file, or a unit's name or address"), diff.options->before)
        ->type_name("FILE|UNIT")
        ->required();
    addText(diff.app, "after", Tool::tr("A file, or a unit's name or address"), diff.options->after)
        ->type_name("FILE|UNIT")
        ->required();
    addJson(diff.app, diff.options->json);
    diff.addExamples({"diff hall.yaml 192.168.1.10", "diff monday.yaml tuesday.yaml --json"});
}

void addWrite(CLI::App& app, CommandLine& line)
{
    const Subcommand<WriteOptions> write(
        app, line, "write", Tool::tr("Write a file to a unit, and read it back"), runWrite);
    WriteOptions& options = *write.options;
    addUnit(write.app, options.unit)->required();
    addFile(write.app, "file", Tool::tr("A document or a project file"), options.file)->required();
    addOnly(write.app, Tool::tr("Write only these sections: %1"), options.only);
    addDryRun(write.app, options.dryRun);
    addFlag(write.app, "--other-unit",
        Tool::tr("Write what another unit holds; address, serial number and model stay"),
        options.otherUnit);
    addJson(write.app, options.json);
    write.addExamples({"write --unit hall hall.yaml --dry-run", "write --unit hall hall.yaml",
        "write --unit hall old.xml --only events --yes"});
}

/** The words of a command on a file or, with --unit, on a unit; the file is the first word. */
void addTarget(CLI::App* app, TargetOptions& target, const QString& help, QStringList& words,
    std::size_t least)
{
    CLI::Option* unit = addUnit(app, target.unit);
    CLI::Option* option = addTexts(app, "words", help, words)->type_name("TEXT");
    app->parse_complete_callback([unit, option, least, &words] {
        const bool hasUnit = unit->count() > 0;
        if (option->count() < least + (hasUnit ? 0 : 1))
            throw CLI::RequiredError(
                (words.isEmpty() && !hasUnit ? Tool::tr("FILE or --unit") : Tool::tr("a path"))
                    .toStdString());
    });
}

/** Parsed options become those of the command when the words are known. */
void takeFile(TargetOptions& target, QStringList& words)
{
    if (!target.unit)
        target.file = words.takeFirst();
}

template <typename Options>
void addPathCommand(CLI::App& app, CommandLine& line, const char* name, const QString& help,
    const QString& words, void (*run)(const Options&), QStringList Options::*list,
    std::initializer_list<const char*> examples, bool changes)
{
    const Subcommand<Options> command(app, line, name, help, run);
    Options& options = *command.options;
    addTarget(command.app, options.target, words, options.*list, 1);
    if (changes)
        addDryRun(command.app, options.target.dryRun);
    command.app->callback([&line, run, list, shared = command.options] {
        line.command = [run, list, shared] {
            takeFile(shared->target, (*shared).*list);
            run(*shared);
        };
    });
    command.addExamples(examples);
}

void addPathCommands(CLI::App& app, CommandLine& line)
{
    addPathCommand<SetOptions>(app, line, "set",
        Tool::tr("Change single values of a file or a unit"),
        Tool::tr("FILE unless there is --unit; then PATH=VALUE"), runSet, &SetOptions::assignments,
        {"set hall.yaml 'events[8].description=Display off'",
            "set --unit hall 'triggers[2].line=COM B-1' 'events[40]={delay: 500}'"},
        true);
    addPathCommand<PathOptions>(app, line, "get",
        Tool::tr("Print single values of a file or a unit"),
        Tool::tr("FILE unless there is --unit; then PATH"), runGet, &PathOptions::paths,
        {"get hall.yaml 'events[8].name'", "get --unit hall device.version"}, false);
    addPathCommand<PathOptions>(app, line, "unset",
        Tool::tr("Remove single records or values of a file or a unit"),
        Tool::tr("FILE unless there is --unit; then PATH"), runUnset, &PathOptions::paths,
        {"unset hall.yaml 'events[40]'", "unset --unit hall 'events[8].name'"}, true);
}

void addEdit(CLI::App& app, CommandLine& line)
{
    const Subcommand<EditOptions> edit(app, line, "edit",
        Tool::tr("Edit a file or what a unit holds, in $VISUAL or $EDITOR"), runEdit);
    TargetOptions& target = edit.options->target;
    CLI::Option* unit = addUnit(edit.app, target.unit);
    CLI::Option* file =
        addFile(edit.app, "file", Tool::tr("A document or a project file"), target.file);
    edit.app->parse_complete_callback([unit, file] {
        const std::size_t given = (unit->count() ? 1U : 0U) + (file->count() ? 1U : 0U);
        if (given != 1)
            throw CLI::RequiredError::Option(1, 1, given, "--unit,FILE");
    });
    addDryRun(edit.app, target.dryRun);
    edit.addExamples({"edit --unit hall", "edit hall.yaml", "edit --unit hall --dry-run"});
}

void addUndo(CLI::App& app, CommandLine& line)
{
    const Subcommand<UndoOptions> undo(
        app, line, "undo", Tool::tr("Undo the last change to a unit from this computer"), runUndo);
    addUnit(undo.app, undo.options->unit)->required();
    addDryRun(undo.app, undo.options->dryRun);
    undo.addExamples({"undo --unit hall --dry-run", "undo --unit hall"});
}

void addBackups(CLI::App& app, CommandLine& line)
{
    const Subcommand<BackupsOptions> backups(app, line, "backups",
        Tool::tr("List the backups that were made before changes"), runBackups);
    BackupsOptions& options = *backups.options;
    addNumber(backups.app, "--serial", Tool::tr("Only those of the unit with this serial number"),
        "N", 0, std::numeric_limits<quint64>::max(),
        [&options](quint64 number) { options.serialNumber = number; });
    addJson(backups.app, options.json);
    backups.addExamples({"backups", "backups --serial 310000001"});
}

void addNetwork(CLI::App& app, CommandLine& line)
{
    const Subcommand<NetworkOptions> network(
        app, line, "network", Tool::tr("Give a unit a fixed address"), runNetwork);
    NetworkOptions& options = *network.options;
    addUnit(network.app, options.unit)->required();
    const auto addAddress = [&network](const char* name, const QString& help, QString& target) {
        addText(network.app, name, help, target)
            ->type_name("A.B.C.D")
            ->required()
            ->check(
                accept(QuadrelWorkspace::isIpv4Text, Tool::tr("\"%1\" is not an IPv4 address")));
    };
    addAddress("--ip", Tool::tr("The new address"), options.ip);
    addAddress("--mask", Tool::tr("The subnet mask"), options.mask);
    addAddress("--gateway", Tool::tr("The gateway, or 0.0.0.0 for none"), options.gateway);
    addDryRun(network.app, options.dryRun);
    network.addExamples({"network --unit 192.168.1.10 --ip 192.168.1.20 --mask 255.255.255.0 "
                         "--gateway 192.168.1.1"});
}

void addReset(CLI::App& app, CommandLine& line)
{
    const Subcommand<ResetOptions> reset(app, line, "reset", Tool::tr("Restart a unit"), runReset);
    addUnit(reset.app, reset.options->unit)->required();
    addFlag(reset.app, "--default-address", Tool::tr("The unit goes back to its default address"),
        reset.options->defaultAddress);
    addDryRun(reset.app, reset.options->dryRun);
    reset.addExamples({"reset --unit hall", "reset --unit hall --default-address"});
}

void addUpgrade(CLI::App& app, CommandLine& line)
{
    const Subcommand<UpgradeOptions> upgrade(
        app, line, "upgrade", Tool::tr("Replace a unit's firmware"), runUpgrade);
    UpgradeOptions& options = *upgrade.options;
    addUnit(upgrade.app, options.unit)->required();
    addImages(upgrade.app, options);
    addDryRun(upgrade.app, options.dryRun);
    addJson(upgrade.app, options.json);
    upgrade.addExamples({"upgrade --unit hall --streamed s.bin --addressed a.bin "
                         "--descriptor update.xml"});
}

void addRemark(CLI::App& app, CommandLine& line)
{
    const Subcommand<RemarkOptions> remark(
        app, line, "remark", Tool::tr("Write the remark of an image to a unit"), runRemark);
    addUnit(remark.app, remark.options->unit)->required();
    addStreamedImage(remark.app, remark.options->streamedFile);
    addDryRun(remark.app, remark.options->dryRun);
    remark.addExamples({"remark --unit hall --streamed s.bin"});
}

void addDiscover(CLI::App& app, CommandLine& line)
{
    const Subcommand<DiscoverOptions> discover(
        app, line, "discover", Tool::tr("Find the units on the network"), runDiscover);
    DiscoverOptions& options = *discover.options;
    addJson(discover.app, options.json);
    addFlag(discover.app, "--first",
        Tool::tr("Print the address of the first unit that answers, and end"), options.first);
    addText(discover.app, "--upgrade",
        Tool::tr("Search as long as an upgrade may take, for units of any model"),
        [&options](const QString& name) {
            options.upgradeName = name;
            options.isUpgrade = true;
        })
        ->type_name("NAME");
    discover.addExamples({"discover", "discover --timeout 10000", "discover --first"});
}

void addComplete(CLI::App& app, CommandLine& line)
{
    const Subcommand<CompleteOptions> complete(app, line, "complete", QString(), runComplete);
    // For the shells, not for people.
    complete.app->group("");
    addText(complete.app, "kind", QString(), complete.options->kind)
        ->required()
        ->check(CLI::IsMember({"units", "sections", "paths"}));
    addText(complete.app, "file", QString(), complete.options->file);
}

void addGlobalOptions(CLI::App& app, GlobalOptions& options)
{
    addNumber(&app, "--timeout",
        Tool::tr("How long a unit has for one answer, in milliseconds; for discover how long it "
                 "searches"),
        "MS", 1, longestTimeout,
        [&options](quint64 number) { options.timeout = static_cast<int>(number); });
    addNumber(&app, "--retries", Tool::tr("How often a request without an answer is repeated"), "N",
        0, mostRetries, [&options](quint64 number) { options.retries = static_cast<int>(number); });
    addText(
        &app, "--log", Tool::tr("Log each frame to a file; - is standard error"), options.logFile)
        ->type_name("FILE");
    addNumber(&app, "--expect-serial",
        Tool::tr("The serial number that the unit must have; another unit is a failure"), "N", 1,
        std::numeric_limits<quint64>::max(),
        [&options](quint64 number) { options.expectedSerial = number; });
    addNumber(&app, "--expect-model", Tool::tr("The model that the unit must be of, as in 0x7209"),
        "N", 0, std::numeric_limits<quint16>::max(),
        [&options](quint64 number) { options.expectedModel = static_cast<int>(number); });
    addFlag(&app, "--quiet", Tool::tr("Show only results, warnings and errors"), options.quiet);
    addFlag(&app, "--yes", Tool::tr("Do not ask"), options.yes);
    // For the program that runs this one, not for people.
    addFlag(&app, "--report-steps", QString(), options.reportSteps)->group("");
    addFlag(&app, "--no-pager", Tool::tr("Do not show long output in a pager"), options.noPager);
    // What it says has been taken into account already.
    app.add_option_function<std::string>(
           "--language", [](const std::string&) {},
           Tool::tr("The language of all texts, instead of the locale's: zh or en").toStdString())
        ->type_name("LANGUAGE")
        ->check(CLI::IsMember({"zh", "en"}));
}

void addCommands(CLI::App& app, CommandLine& line)
{
    addDiscover(app, line);
    addInfo(app, line);
    addStatus(app, line);
    addRead(app, line);
    addSave(app, line);
    addShow(app, line);
    addCheck(app, line);
    addConvert(app, line);
    addDiff(app, line);
    addWrite(app, line);
    addEdit(app, line);
    addPathCommands(app, line);
    addUndo(app, line);
    addBackups(app, line);
    addClock(app, line);
    addNetwork(app, line);
    addReset(app, line);
    addUpgrade(app, line);
    addRemark(app, line);
    addSite(app, line);
    addComplete(app, line);
}

QString unknown(const QString& complaint, const QString& name, const QStringList& names)
{
    const QString meant = Arguments::nearest(name, names);
    const QString text = QString(complaint).replace(QStringLiteral("%1"), name);
    return meant.isEmpty() ? text : text + Tool::tr("; did you mean \"%1\"?").arg(meant);
}

/** The complaint about an argument that the command does not take. */
QString unexpected(const CLI::App& app, const CLI::App& command)
{
    const QString argument = toText(app.remaining(true).front());
    const QStringList names = Arguments::optionNames(command) + Arguments::optionNames(app);
    return unknown(Tool::tr("\"%1\" is not expected here"), argument, names);
}

CommandLine refuse(const QString& complaint)
{
    Console::note(complaint);
    Console::note(Tool::tr("Run with --help for more information."));
    CommandLine line;
    line.exitCode = WrongUsage;
    return line;
}

} // namespace

CommandLine CommandLine::parse(int argc, char** argv)
{
    CLI::App app(Tool::tr("Configure a control unit over the network.").toStdString());
    app.name("quadrelctl");
    translateHelp(app);
    translateLabels(app);
    app.set_version_flag("--version",
        ("quadrelctl " + QCoreApplication::applicationVersion()).toStdString(),
        Tool::tr("Print the version and exit").toStdString());
    app.require_subcommand(1);
    GlobalOptions globalOptions;
    addGlobalOptions(app, globalOptions);
    CommandLine line;
    addCommands(app, line);

    const std::vector<std::string> arguments = Arguments::commandFirst(app, argc, argv);
    const Arguments::Command command = Arguments::commandOf(app, arguments);
    if (!command.unknown.empty())
        return refuse(unknown(Tool::tr("\"%1\" is not a command"), toText(command.unknown),
            Arguments::commandNames(*command.app)));
    try {
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::Success& request) {
        std::ostringstream text;
        app.exit(request, text, text);
        Console::print(QString::fromStdString(text.str()));
    } catch (const CLI::ExtrasError& error) {
        return refuse(unexpected(app, *command.app));
    } catch (const CLI::ParseError& error) {
        return refuse(usageText(QString::fromStdString(error.what())));
    }
    Preferences::apply(globalOptions);
    return line;
}
