#include "console.h"
#include "language.h"
#include "options.h"
#include "tool.h"

#include <QtCore/QCoreApplication>

namespace {

/** The library's debug line is for its own developers. */
void handleMessage(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type != QtDebugMsg)
        Console::note(text);
}

int run(int argc, char** argv)
{
    const CommandLine line = CommandLine::parse(argc, argv);
    if (!line.command)
        return line.exitCode;
    try {
        line.command();
    } catch (const CommandFailure& failure) {
        Console::flush();
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
    Language::install(Language::fromArguments(QCoreApplication::arguments()));
    return run(argc, argv);
}
