// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "mainwindow/language.h"
#include "mainwindow/mainwindow.h"
#include "models/cellvalues.h"
#include "units/networksearch.h"

#include <unitdocument.h>
#include <usersettings.h>

#include <QtCore/QCommandLineParser>
#include <QtCore/QFileInfo>
#include <QtWidgets/QApplication>

#include <cstdio>

namespace {

constexpr int wrongUsage = 2;
constexpr int usualSearchTime = 3000;

class Program {
    Q_DECLARE_TR_FUNCTIONS(Program)
};

bool isDocument(const QString& argument)
{
    return QFileInfo::exists(argument) || QuadrelDocument::formOfFile(argument);
}

/** What an argument is to be if it is neither; empty if all are fine. */
QString faultOf(const QStringList& arguments)
{
    for (const QString& argument : arguments) {
        if (!isDocument(argument) && !UnitAddress::fromText(argument))
            return Program::tr("\"%1\" is neither a file nor an address").arg(argument);
    }
    return QString();
}

void fail(const QString& text)
{
    std::fprintf(stderr, "quadrelstudio: %s\n", qPrintable(text));
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("quadrelstudio"));
    QApplication::setApplicationVersion(QStringLiteral(QUADRELSTUDIO_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("quadrelstudio"));
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("quadrelstudio")));

    QCommandLineParser parser;
    const QCommandLineOption language(QStringLiteral("language"),
        Program::tr("The language of the program: en or zh."), QStringLiteral("LANGUAGE"));
    parser.setApplicationDescription(
        Program::tr("Looks at control units and their documents, and changes them."));
    parser.addOption(language);
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("file"),
        Program::tr("Unit documents (YAML, JSON) and project files to open."),
        QStringLiteral("[FILE...]"));
    parser.addPositionalArgument(QStringLiteral("address"),
        Program::tr("Units to read, as in tcp://192.168.1.21."), QStringLiteral("[ADDRESS...]"));
    parser.process(application);
    const QString fault = faultOf(parser.positionalArguments());
    if (!fault.isEmpty()) {
        fail(fault);
        return wrongUsage;
    }

    QuadrelWorkspace::WorkOptions options;
    const QuadrelWorkspace::LoadedSettings loaded =
        QuadrelWorkspace::loadSettings(options.folders.settings);
    for (const QString& error : loaded.errors)
        fail(error);
    const QuadrelWorkspace::UserSettings& settings = loaded.settings;
    options.link.timeout = settings.timeout.value_or(options.link.timeout);
    options.link.retries = settings.retries.value_or(options.link.retries);
    setFirstWeekday(settings.firstWeekday);
    Language::install(Language::chosen(
        parser.isSet(language) ? parser.value(language) : settings.language.value_or(QString())));

    NetworkSearch search(settings.searchTimeout.value_or(usualSearchTime));
    MainWindow window(options, &search);
    for (auto it = settings.units.begin(); it != settings.units.end(); ++it)
        window.addUnit(it.value(), it.key());
    window.show();
    window.offerAutosaves();
    const QStringList arguments = parser.positionalArguments();
    for (const QString& argument : arguments) {
        if (isDocument(argument))
            window.openFile(argument);
        else
            window.openUnit(*UnitAddress::fromText(argument));
    }
    return QApplication::exec();
}
