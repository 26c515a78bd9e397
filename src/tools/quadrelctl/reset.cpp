#include "commands.h"
#include "console.h"
#include "session.h"
#include "tool.h"

void runReset(const ResetOptions& options)
{
    Console::outliveReader();
    Session session(options.unit);
    session.run(UnitRequest::reset(!options.defaultAddress));
    Console::print(options.defaultAddress
            ? Tool::tr("The unit was told to restart with its default address.\n")
            : Tool::tr("The unit restarts and keeps its address.\n"));
}
