#include "options.h"

#include "addresscheck.h"
#include "arguments.h"
#include "commands.h"
#include "console.h"
#include "tool.h"
#include "usagetext.h"

#include <CLI/CLI.hpp>

#include <QtCore/QFile>

#include <memory>
#include <sstream>
#include <string>

namespace {

QString toText(const std::string& argument)
{
    return QFile::decodeName(QByteArray::fromStdString(argument));
}

/** An option whose argument goes to `store` as text, once the option's checks have passed it. */
template <typename Store>
CLI::Option* addText(CLI::App* app, const char* name, const QString& help, Store store)
{
    return app->add_option_function<std::string>(
        name, [store](const std::string& argument) { store(toText(argument)); },
        help.toStdString());
}

CLI::Option* addText(CLI::App* app, const char* name, const QString& help, QString& target)
{
    return addText(app, name, help, [&target](const QString& text) { target = text; });
}

CLI::Option* addFlag(CLI::App* app, const char* name, const QString& help, bool& target)
{
    return app->add_flag(name, target, help.toStdString());
}

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

CLI::Option* addFile(CLI::App* app, const char* name, const QString& help, QString& target)
{
    const auto isName = [](const QString& text) { return !text.isEmpty(); };
    return addText(app, name, help, target)
        ->type_name("FILE")
        ->check(accept(isName, Tool::tr("the name of the file is empty")));
}

CLI::Option* addUnit(CLI::App* app, UnitAddress& unit)
{
    const auto isAddress = [](const QString& text) { return UnitAddress::fromText(text); };
    return addText(app, "--unit", Tool::tr("Where the unit is, as in tcp://192.168.1.10:3801"),
        [&unit](const QString& text) { unit = *UnitAddress::fromText(text); })
        ->type_name("ADDRESS")
        ->check(accept(isAddress,
            Tool::tr("\"%1\" is no address of a unit: tcp://HOST:PORT or udp://HOST:PORT")));
}

void addStreamedImage(CLI::App* app, QString& target)
{
    addFile(app, "--streamed", Tool::tr("The streamed image, whose first 90 bytes are the remark"),
        target)
        ->required();
}

void addJson(CLI::App* app, bool& json)
{
    addFlag(app, "--json", Tool::tr("Print JSON"), json);
}

/** Usage and options in the user's language; subcommands inherit the labels and not the help. */
void translate(CLI::App& app)
{
    app.set_help_flag("-h,--help", Tool::tr("Print this help and exit").toStdString());
    const std::string options = Tool::tr("Options").toStdString();
    app.option_defaults()->group(options);
    app.get_help_ptr()->group(options);
    const auto label = [&app](const char* key, const QString& text) {
        app.get_formatter()->label(key, text.toStdString());
    };
    label("Usage", Tool::tr("Usage"));
    label("OPTIONS", Tool::tr("OPTIONS"));
    label("SUBCOMMAND", Tool::tr("COMMAND"));
    label("Positionals", Tool::tr("Arguments"));
    label("REQUIRED", Tool::tr("(required)"));
}

/** A subcommand with options of its own, which live as long as the command may run. */
template <typename Options> struct Subcommand {
    Subcommand(CLI::App& app, CommandLine& line, const char* name, const QString& help,
        void (*run)(const Options&))
        : app(app.add_subcommand(name, help.toStdString()))
        , options(std::make_shared<Options>())
    {
        translate(*this->app);
        this->app->group(Tool::tr("Commands").toStdString());
        this->app->fallthrough();
        this->app->callback(
            [&line, run, options = options] { line.command = [run, options] { run(*options); }; });
    }

    CLI::App* app;
    std::shared_ptr<Options> options;
};

void addInfo(CLI::App& app, CommandLine& line)
{
    const Subcommand<InfoOptions> info(
        app, line, "info", Tool::tr("Show what a unit says about itself"), runInfo);
    addUnit(info.app, info.options->unit)->required();
    addJson(info.app, info.options->json);
}

void addRead(CLI::App& app, CommandLine& line)
{
    const Subcommand<ReadOptions> read(
        app, line, "read", Tool::tr("Read all that a unit stores"), runRead);
    CLI::Option* unit = addUnit(read.app, read.options->unit);
    CLI::Option* discover = addFlag(read.app, "--discover",
        Tool::tr("Read the only unit that a search of the network finds"), read.options->discover);
    read.app->parse_complete_callback([unit, discover] {
        const std::size_t given = (unit->count() ? 1U : 0U) + (discover->count() ? 1U : 0U);
        if (given != 1)
            throw CLI::RequiredError::Option(1, 1, given, "--unit,--discover");
    });
    addJson(read.app, read.options->json);
    addFile(read.app, "--save", Tool::tr("Save to a project file"), read.options->file);
}

void addClock(CLI::App& app, CommandLine& line)
{
    const Subcommand<ClockOptions> clock(
        app, line, "clock", Tool::tr("Show or set a unit's clock"), runClock);
    addUnit(clock.app, clock.options->unit)->required();
    addJson(clock.app, clock.options->json);
    addText(clock.app, "--set",
        Tool::tr("\"now\", or a time like \"2026/11/14  06:05:49\", with two blanks"),
        clock.options->time)
        ->type_name("TIME")
        ->check(accept(isClockText,
            Tool::tr("\"%1\" is no time of the years 2000 to 2099 in the form "
                     "\"2026/11/14  06:05:49\", with two blanks")));
}

void addShow(CLI::App& app, CommandLine& line)
{
    const Subcommand<ShowOptions> show(
        app, line, "show", Tool::tr("Show what a project file holds"), runShow);
    addFile(show.app, "file", Tool::tr("The project file"), show.options->file)->required();
    addJson(show.app, show.options->json);
}

void addWrite(CLI::App& app, CommandLine& line)
{
    const Subcommand<WriteOptions> write(
        app, line, "write", Tool::tr("Write a project file to a unit"), runWrite);
    WriteOptions& options = *write.options;
    addUnit(write.app, options.unit)->required();
    addFile(write.app, "file", Tool::tr("The project file"), options.file)->required();
    write.app
        ->add_option_function<std::vector<std::string>>(
            "--only",
            [&options](const std::vector<std::string>& names) {
                for (const std::string& name : names)
                    options.only.append(toText(name));
            },
            Tool::tr("Write these sections alone: config, events, triggers").toStdString())
        ->delimiter(',')
        ->allow_extra_args(false)
        ->type_name("SECTIONS")
        ->check(CLI::IsMember({"config", "events", "triggers"}));
    addFlag(write.app, "--diff", Tool::tr("List each change"), options.diff);
    addFlag(write.app, "--dry-run", Tool::tr("Tell what would change, and write nothing"),
        options.dryRun);
    addFlag(write.app, "--drop-time-triggers",
        Tool::tr("Remove the unit's time triggers, which no file holds"), options.dropTimeTriggers);
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
            ->check(accept(isIpv4Text, Tool::tr("\"%1\" is no IPv4 address")));
    };
    addAddress("--ip", Tool::tr("The new address"), options.ip);
    addAddress("--mask", Tool::tr("The subnet mask"), options.mask);
    addAddress("--gateway", Tool::tr("The gateway, or 0.0.0.0 for none"), options.gateway);
    addFlag(network.app, "--yes", Tool::tr("Do not ask"), options.yes);
}

void addReset(CLI::App& app, CommandLine& line)
{
    const Subcommand<ResetOptions> reset(app, line, "reset", Tool::tr("Restart a unit"), runReset);
    addUnit(reset.app, reset.options->unit)->required();
    addFlag(reset.app, "--default-address", Tool::tr("The unit goes back to its default address"),
        reset.options->defaultAddress);
}

void addUpgrade(CLI::App& app, CommandLine& line)
{
    const Subcommand<UpgradeOptions> upgrade(
        app, line, "upgrade", Tool::tr("Replace a unit's firmware"), runUpgrade);
    UpgradeOptions& options = *upgrade.options;
    addUnit(upgrade.app, options.unit)->required();
    addStreamedImage(upgrade.app, options.streamedFile);
    addFile(upgrade.app, "--addressed", Tool::tr("The addressed image"), options.addressedFile)
        ->required();
    addFile(upgrade.app, "--descriptor", Tool::tr("The upgrade's descriptor, to be shown"),
        options.descriptorFile);
}

void addRemark(CLI::App& app, CommandLine& line)
{
    const Subcommand<RemarkOptions> remark(
        app, line, "remark", Tool::tr("Write the remark of an image to a unit"), runRemark);
    addUnit(remark.app, remark.options->unit)->required();
    addStreamedImage(remark.app, remark.options->streamedFile);
}

void addDiscover(CLI::App& app, CommandLine& line)
{
    const Subcommand<DiscoverOptions> discover(
        app, line, "discover", Tool::tr("Find the units on the network"), runDiscover);
    DiscoverOptions& options = *discover.options;
    addJson(discover.app, options.json);
    addFlag(discover.app, "--first", Tool::tr("Print the address of the first unit alone"),
        options.first);
    addText(discover.app, "--upgrade",
        Tool::tr("Search as long as an upgrade may take, for units of any model"),
        [&options](const QString& name) {
            options.upgradeName = name;
            options.isUpgrade = true;
        })
        ->type_name("NAME");
}

QString unknown(const QString& complaint, const QString& name, const QStringList& names)
{
    const QString meant = Arguments::nearest(name, names);
    const QString text = QString(complaint).replace(QStringLiteral("%1"), name);
    return meant.isEmpty() ? text : text + Tool::tr("; did you mean \"%1\"?").arg(meant);
}

/** The complaint about an argument that the command does not take. */
QString unexpected(const CLI::App& app)
{
    const QString argument = toText(app.remaining(true).front());
    const CLI::App* command = app.get_subcommands().front();
    const QStringList names = Arguments::optionNames(*command) + Arguments::optionNames(app);
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
    translate(app);
    app.set_version_flag("--version",
        ("quadrelctl " + QCoreApplication::applicationVersion()).toStdString(),
        Tool::tr("Print the version and exit").toStdString());
    // What it says has been taken into account already.
    app.add_option_function<std::string>(
           "--language", [](const std::string&) {},
           Tool::tr("The language of all texts, instead of the locale's: zh or en").toStdString())
        ->type_name("LANGUAGE")
        ->check(CLI::IsMember({"zh", "en"}));
    app.require_subcommand(1);
    CommandLine line;
    addDiscover(app, line);
    addInfo(app, line);
    addRead(app, line);
    addClock(app, line);
    addShow(app, line);
    addWrite(app, line);
    addNetwork(app, line);
    addReset(app, line);
    addUpgrade(app, line);
    addRemark(app, line);
    const std::vector<std::string> arguments = Arguments::commandFirst(app, argc, argv);
    const std::string command = Arguments::commandOf(arguments);
    if (!command.empty() && !Arguments::commandNames(app).contains(toText(command)))
        return refuse(unknown(
            Tool::tr("\"%1\" is no command"), toText(command), Arguments::commandNames(app)));
    try {
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::Success& request) {
        std::ostringstream text;
        app.exit(request, text, text);
        Console::print(QString::fromStdString(text.str()));
    } catch (const CLI::ExtrasError& error) {
        return refuse(unexpected(app));
    } catch (const CLI::ParseError& error) {
        return refuse(usageText(QString::fromStdString(error.what())));
    }
    return line;
}
