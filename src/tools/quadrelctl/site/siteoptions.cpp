// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "siteoptions.h"

#include "sitecommands.h"
#include "tool.h"

using namespace QuadrelWorkspace;

namespace {

constexpr int mostJobs = 1000;
constexpr int mostUnits = Site::mostUnits;
constexpr int longestLimit = 7 * 24 * 3600;

void addInventory(CLI::App* app, SiteOptions& options)
{
    addFile(app, "--inventory", Tool::tr("The inventory of the site, site.yaml unless it is given"),
        options.inventory);
}

/** A list whose option may be given several times, and whose words may be parted by commas. */
void addList(
    CLI::App* app, const char* name, const QString& help, const char* type, QStringList& target)
{
    addTexts(app, name, help, target)->delimiter(',')->allow_extra_args(false)->type_name(type);
}

void addSelection(CLI::App* app, SiteOptions& options)
{
    addInventory(app, options);
    Selection& selection = options.selection;
    addList(app, "--tag", Tool::tr("Only units with one of these tags"), "TAG", selection.tags);
    addList(app, "--name", Tool::tr("Only units with such a name, as in 'hall-*'"), "NAME",
        selection.names);
    addList(
        app, "--exclude", Tool::tr("Without units with such a name"), "NAME", selection.excluded);
}

/** What goes to the units side by side. */
void addWork(CLI::App* app, SiteOptions& options)
{
    addSelection(app, options);
    addNumber(app, "--jobs", Tool::tr("How many units at a time; 16 unless the inventory says it"),
        "N", 1, mostJobs, [&options](quint64 number) { options.jobs = static_cast<int>(number); });
    addNumber(app, "--limit", Tool::tr("How long a unit may take in all; 600 seconds if not given"),
        "SECONDS", 1, longestLimit,
        [&options](quint64 number) { options.limit = static_cast<int>(number); });
    addJson(app, options.json);
}

void addSiteAdd(CLI::App& site, CommandLine& line)
{
    const Subcommand<SiteAddOptions> add(
        site, line, "add", Tool::tr("Add a unit to the inventory"), runSiteAdd);
    SiteAddOptions& options = *add.options;
    addText(add.app, "name", Tool::tr("The unit's name"), options.name)->required();
    addText(add.app, "address", Tool::tr("The unit's address, as in tcp://192.168.1.21:3801"),
        [&options](const QString& text) { options.address = *Preferences::user().addressOf(text); })
        ->required()
        ->check(isUnitAddress());
    addInventory(add.app, options);
    addNumber(add.app, "--serial", Tool::tr("The unit's serial number"), "N", 1,
        std::numeric_limits<quint64>::max(),
        [&options](quint64 number) { options.serialNumber = number; });
    addNumber(add.app, "--model", Tool::tr("The unit's model, as in 0x7209"), "N", 0,
        std::numeric_limits<quint16>::max(),
        [&options](quint64 number) { options.modelId = static_cast<int>(number); });
    addFlag(
        add.app, "--read", Tool::tr("Ask the unit for its serial number and model"), options.read);
    addList(add.app, "--tag", Tool::tr("The unit's tags"), "TAG", options.tags);
    addFile(
        add.app, "--document", Tool::tr("The document with the wanted contents"), options.document);
    addDryRun(add.app, options.dryRun);
    add.addExamples({"site add hall-1 192.168.1.21 --read --tag hall --document units/hall-1.yaml",
        "site add hall-2 udp://192.168.1.22 --serial 310000002 --model 0x7209"});
}

void addSiteRemove(CLI::App& site, CommandLine& line)
{
    const Subcommand<SiteOptions> remove(
        site, line, "remove", Tool::tr("Remove units from the inventory"), runSiteRemove);
    SiteOptions& options = *remove.options;
    CLI::Option* names = addTexts(remove.app, "unit",
        Tool::tr("Names of units, in which * and ? are any letters"), options.selection.names)
                             ->type_name("NAME");
    addSelection(remove.app, options);
    addDryRun(remove.app, options.dryRun);
    remove.app->parse_complete_callback([names, &options] {
        if (names->count() == 0 && options.selection.tags.isEmpty()
            && options.selection.names.isEmpty())
            throw CLI::RequiredError(Tool::tr("a name, or --tag").toStdString());
    });
    remove.addExamples({"site remove hall-1", "site remove --tag old --dry-run"});
}

void addSiteList(CLI::App& site, CommandLine& line)
{
    const Subcommand<SiteOptions> list(
        site, line, "list", Tool::tr("List the units of the inventory"), runSiteList);
    addSelection(list.app, *list.options);
    addJson(list.app, list.options->json);
    list.addExamples({"site list", "site list --tag hall --json"});
}

void addSiteDiscover(CLI::App& site, CommandLine& line)
{
    const Subcommand<SiteDiscoverOptions> discover(site, line, "discover",
        Tool::tr("Search the network and compare what is there with the inventory; exit code 3 if "
                 "they differ"),
        runSiteDiscover);
    SiteDiscoverOptions& options = *discover.options;
    addFlag(discover.app, "--add",
        Tool::tr("Write new units and moved addresses to the inventory, after showing them"),
        options.add);
    addWork(discover.app, options);
    addDryRun(discover.app, options.dryRun);
    discover.addExamples({"site discover", "site discover --add", "site discover --timeout 10000"});
}

void addSiteStatus(CLI::App& site, CommandLine& line)
{
    const Subcommand<SiteOptions> status(site, line, "status",
        Tool::tr("Show who answers, models, versions, clocks, and who differs from its document"),
        runSiteStatus);
    addWork(status.app, *status.options);
    status.addExamples({"site status", "site status --tag hall --json"});
}

void addSiteCheck(CLI::App& site, CommandLine& line)
{
    const Subcommand<SiteOptions> check(site, line, "check",
        Tool::tr("Look for mistakes in the documents, also against the inventory"), runSiteCheck);
    addSelection(check.app, *check.options);
    addJson(check.app, check.options->json);
    check.addExamples({"site check", "site check --name 'hall-*'"});
}

void addSiteBackup(CLI::App& site, CommandLine& line)
{
    const Subcommand<SiteBackupOptions> backup(site, line, "backup",
        Tool::tr("Save what each unit holds; only documents that change are written"),
        runSiteBackup);
    SiteBackupOptions& options = *backup.options;
    addFile(backup.app, "folder", Tool::tr("The folder of the documents, NAME.yaml for each unit"),
        options.folder)
        ->type_name("DIR")
        ->required();
    addFlag(backup.app, "--commit", Tool::tr("Commit the documents that have changed with git"),
        options.commit);
    addWork(backup.app, options);
    backup.addExamples({"site backup backups", "site backup backups --commit --quiet"});
}

void addSiteDiff(CLI::App& site, CommandLine& line)
{
    const Subcommand<SiteDiffOptions> diff(site, line, "diff",
        Tool::tr("Compare units with their documents; exit code 3 if some differ"), runSiteDiff);
    addFile(diff.app, "folder",
        Tool::tr("A folder with NAME.yaml for each unit; the wanted documents if it is not given"),
        diff.options->folder)
        ->type_name("DIR");
    addWork(diff.app, *diff.options);
    diff.addExamples({"site diff", "site diff backups --tag hall"});
}

void addSiteClock(CLI::App& site, CommandLine& line)
{
    const Subcommand<SiteClockOptions> clock(
        site, line, "clock", Tool::tr("Set the units' clocks"), runSiteClock);
    addClockTime(clock.app, clock.options->time)->required();
    addWork(clock.app, *clock.options);
    addDryRun(clock.app, clock.options->dryRun);
    clock.addExamples({"site clock --set now", "site clock --set now --tag hall --yes"});
}

void addSiteEdit(CLI::App& site, CommandLine& line, const char* name, const QString& help,
    const char* type, void (*run)(const SiteEditOptions&),
    std::initializer_list<const char*> examples)
{
    const Subcommand<SiteEditOptions> edit(site, line, name, help, run);
    addTexts(edit.app, "words", Tool::tr("Paths in the documents"), edit.options->words)
        ->type_name(type)
        ->required();
    addSelection(edit.app, *edit.options);
    addDryRun(edit.app, edit.options->dryRun);
    edit.addExamples(examples);
}

/** Fills in what is known of the command that is to be run. */
void takeCommand(const CLI::App& app, SiteRunOptions& options)
{
    const std::string name = options.command.first().toStdString();
    const auto commands = app.get_subcommands([&name](const CLI::App* command) {
        return command->get_name() == name && command->get_option_no_throw("--unit");
    });
    if (commands.empty())
        throw CLI::ParseError(Tool::tr("\"%1\" is not a command for a unit")
                                  .arg(options.command.first())
                                  .toStdString(),
            CLI::ExitCodes::ValidationError);
    const auto takes = [&commands](const char* option) {
        return commands.front()->get_option_no_throw(option) != nullptr;
    };
    const auto isGiven = [&options](const char* option) {
        return options.command.contains(QLatin1String(option));
    };
    if (isGiven("--unit"))
        throw CLI::ParseError(
            Tool::tr("the command gets each unit; leave --unit out").toStdString(),
            CLI::ExitCodes::ValidationError);
    options.commandTakesJson = takes("--json") && !isGiven("--json");
    const bool onlyLooks = name == "clock" && !isGiven("--set");
    options.commandChanges = takes("--dry-run") && !isGiven("--dry-run") && !onlyLooks;
}

void addSiteRun(CLI::App& app, CLI::App& site, CommandLine& line)
{
    const Subcommand<SiteRunOptions> run(
        site, line, "run", Tool::tr("Run another command for each unit"), runSiteRun);
    SiteRunOptions& options = *run.options;
    CLI::Option* command = addTexts(run.app, "command",
        Tool::tr("\"--\" and a command without --unit, in which {name} and {document} are the "
                 "unit's"),
        options.command)
                               ->type_name("COMMAND")
                               ->required();
    addWork(run.app, options);
    run.app->parse_complete_callback([&app, &options, command] {
        if (command->count() > 0)
            takeCommand(app, options);
    });
    run.addExamples({"site run -- info", "site run --tag hall -- set 'events[8].name=Hall'",
        "site run -- write {document} --only events --yes"});
}

void addStages(CLI::App* app, StagedOptions& options)
{
    const auto addCount = [app](const char* name, const QString& help, int& target) {
        addNumber(app, name, help, "N", 0, mostUnits,
            [&target](quint64 number) { target = static_cast<int>(number); });
    };
    addCount("--canary", Tool::tr("So many units are tried first"), options.canary);
    addCount("--batch", Tool::tr("So many units follow at a time; all of them if not given"),
        options.batch);
    addCount("--max-failures",
        Tool::tr("Begin no further unit when more than so many failed; 0 if "
                 "not given"),
        options.maximalFailures);
    addFlag(app, "--resume",
        Tool::tr("Go on with a run that stopped; what is done is verified and not done again"),
        options.resume);
    addDryRun(app, options.dryRun);
}

void addSiteWrite(CLI::App& site, CommandLine& line)
{
    const Subcommand<StagedOptions> write(
        site, line, "write", Tool::tr("Write each unit's document to it, in stages"), runSiteWrite);
    addWork(write.app, *write.options);
    addStages(write.app, *write.options);
    write.addExamples(
        {"site write --dry-run", "site write --canary 1 --batch 10", "site write --resume"});
}

void addSiteUpgrade(CLI::App& site, CommandLine& line)
{
    const Subcommand<SiteUpgradeOptions> upgrade(
        site, line, "upgrade", Tool::tr("Replace the units' firmware, in stages"), runSiteUpgrade);
    addImages(upgrade.app, *upgrade.options);
    addWork(upgrade.app, *upgrade.options);
    addStages(upgrade.app, *upgrade.options);
    upgrade.addExamples({"site upgrade --streamed s.bin --addressed a.bin --descriptor update.xml "
                         "--canary 1 --batch 5"});
}

} // namespace

void addSite(CLI::App& app, CommandLine& line)
{
    CLI::App* site =
        app.add_subcommand("site", Tool::tr("Work with the many units of a site").toStdString());
    translateHelp(*site);
    site->group(Tool::tr("Commands").toStdString());
    site->fallthrough();
    site->require_subcommand(1);
    addExamplesTo(site,
        {"site list", "site status --tag hall", "site backup backups --commit",
            "site write --canary 1 --batch 10", "site --inventory museum.yaml status"});
    addSiteAdd(*site, line);
    addSiteRemove(*site, line);
    addSiteList(*site, line);
    addSiteDiscover(*site, line);
    addSiteStatus(*site, line);
    addSiteBackup(*site, line);
    addSiteDiff(*site, line);
    addSiteCheck(*site, line);
    addSiteWrite(*site, line);
    addSiteUpgrade(*site, line);
    addSiteClock(*site, line);
    addSiteEdit(*site, line, "set", Tool::tr("Change single values in all documents"), "PATH=VALUE",
        runSiteSet,
        {"site set 'events[40]={delay: 500}'", "site set --tag hall 'events[8].name=Hall'"});
    addSiteEdit(*site, line, "unset", Tool::tr("Remove single records or values in all documents"),
        "PATH", runSiteUnset, {"site unset 'events[40]' --dry-run"});
    addSiteRun(app, *site, line);
}
