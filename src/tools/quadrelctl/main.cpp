// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "console.h"
#include "language.h"
#include "options.h"
#include "preferences.h"
#include "tool.h"

#include <QtCore/QCoreApplication>

namespace {

/** The library's debug line is for its own developers. */
void handleMessage(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type != QtDebugMsg)
        Console::note(text);
}

/** What is wrong with the settings, in the language that they ask for. */
QString loadSettings()
{
    const QString faults = Preferences::load();
    const QString asked = Language::fromArguments(QCoreApplication::arguments());
    Language::install(asked.isEmpty() ? Preferences::user().language.value_or(QString()) : asked);
    return faults.isEmpty() ? faults : Preferences::load();
}

int run(const std::function<void()>& command)
{
    try {
        command();
    } catch (const CommandFailure& failure) {
        Console::flush();
        if (!failure.text.isEmpty())
            Console::note(failure.text);
        return failure.code;
    }
    if (!Console::flush()) {
        Console::note(Tool::tr("the output can't be written"));
        return Failed;
    }
    return Success;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("quadrelctl"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QUADRELCTL_VERSION));
    qInstallMessageHandler(handleMessage);
    const QString faults = loadSettings();
    const CommandLine line = CommandLine::parse(argc, argv);
    if (!line.command)
        return line.exitCode;
    if (!faults.isEmpty()) {
        Console::note(faults);
        return WrongUsage;
    }
    return run(line.command);
}
