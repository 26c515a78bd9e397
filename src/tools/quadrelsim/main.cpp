// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "console.h"
#include "simulator.h"
#include "termination.h"

#include <QtCore/QCoreApplication>

#include <csignal>
#include <cstdlib>

int main(int argc, char** argv)
{
    openStandardStreams();
    takeFrameworkMessages();
    // Whoever read the output may be gone, and the units serve on.
    std::signal(SIGPIPE, SIG_IGN);
    // The framework's own event loop makes half as many system calls for a request.
    qputenv("QT_NO_GLIB", "1");
    QCoreApplication application(argc, argv);
    int exitCode = EXIT_SUCCESS;
    const std::optional<SimOptions> options = parseOptions(argc, argv, &exitCode);
    if (!options)
        return exitCode;

    Simulator simulator(*options);
    quitOnTermination();
    if (!simulator.start())
        return EXIT_FAILURE;
    exitCode = QCoreApplication::exec();
    return simulator.stop() ? exitCode : EXIT_FAILURE;
}
