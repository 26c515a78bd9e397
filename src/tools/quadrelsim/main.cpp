#include "simulator.h"
#include "termination.h"

#include <QtCore/QCoreApplication>

#include <cstdlib>

int main(int argc, char** argv)
{
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
