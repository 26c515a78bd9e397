// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "optionhelpers.h"

#include "commands.h"

#include <QtCore/QFile>

QString toText(const std::string& argument)
{
    return QFile::decodeName(QByteArray::fromStdString(argument));
}

CLI::Option* addText(CLI::App* app, const char* name, const QString& help, QString& target)
{
    return addText(app, name, help, [&target](const QString& text) { target = text; });
}

CLI::Option* addTexts(CLI::App* app, const char* name, const QString& help, QStringList& target)
{
    return app->add_option_function<std::vector<std::string>>(
        name,
        [&target](const std::vector<std::string>& words) {
            for (const std::string& word : words)
                target.append(toText(word));
        },
        help.toStdString());
}

CLI::Option* addFlag(CLI::App* app, const char* name, const QString& help, bool& target)
{
    return app->add_flag(name, target, help.toStdString());
}

std::optional<quint64> numberOf(const QString& text)
{
    const bool isHexadecimal = text.startsWith(QStringLiteral("0x"), Qt::CaseInsensitive);
    bool isNumber = false;
    const quint64 number = text.toULongLong(&isNumber, isHexadecimal ? 16 : 10);
    return isNumber ? std::make_optional(number) : std::nullopt;
}

CLI::Option* addFile(CLI::App* app, const char* name, const QString& help, QString& target)
{
    const auto isName = [](const QString& text) { return !text.isEmpty(); };
    return addText(app, name, help, target)
        ->type_name("FILE")
        ->check(accept(isName, Tool::tr("the name of the file is empty")));
}

CLI::Validator isUnitAddress()
{
    return accept(
        [](const QString& text) { return Preferences::user().addressOf(text).has_value(); },
        Tool::tr("\"%1\" is not an address of a unit: tcp://HOST:PORT or udp://HOST:PORT"));
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

void addDryRun(CLI::App* app, bool& dryRun)
{
    addFlag(app, "--dry-run", Tool::tr("Show what would be done, and change nothing"), dryRun);
}

CLI::Option* addClockTime(CLI::App* app, QString& time)
{
    return addText(app, "--set",
        Tool::tr("\"now\", or a time like \"2026/11/14  06:05:49\", with two blanks"), time)
        ->type_name("TIME")
        ->check(accept(isClockText,
            Tool::tr("\"%1\" is not a time of the years 2000 to 2099 in the form "
                     "\"2026/11/14  06:05:49\", with two blanks")));
}

void translateHelp(CLI::App& app)
{
    app.set_help_flag("-h,--help", Tool::tr("Print this help and exit").toStdString());
    const std::string options = Tool::tr("Options").toStdString();
    app.option_defaults()->group(options);
    app.get_help_ptr()->group(options);
}

void translateLabels(CLI::App& app)
{
    const auto label = [&app](const char* key, const QString& text) {
        app.get_formatter()->label(key, text.toStdString());
    };
    label("Usage", Tool::tr("Usage"));
    label("OPTIONS", Tool::tr("OPTIONS"));
    label("SUBCOMMAND", Tool::tr("COMMAND"));
    label("Positionals", Tool::tr("Arguments"));
    label("REQUIRED", Tool::tr("(required)"));
}

void addExamplesTo(CLI::App* app, std::initializer_list<const char*> examples)
{
    QString text = Tool::tr("Options of every command: --timeout, --retries, --log, --quiet, "
                            "--yes, --no-pager, --language; see quadrelctl --help\n\nExamples:");
    for (const char* example : examples)
        text += QStringLiteral("\n  quadrelctl ") + QString::fromUtf8(example);
    app->footer(text.toStdString());
}
