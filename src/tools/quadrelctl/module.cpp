#include "console.h"
#include "language.h"
#include "options.h"
#include "tool.h"

#include <QtCore/QtGlobal>

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

/** The program proper; main() calls it when there is an application object. */
extern "C" Q_DECL_EXPORT int quadrelctlRun(int argc, char** argv)
{
    qInstallMessageHandler(handleMessage);
    Language::install(Language::fromArguments(QCoreApplication::arguments()));
    return run(argc, argv);
}
