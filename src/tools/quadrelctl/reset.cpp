#include "commands.h"
#include "console.h"
#include "session.h"
#include "tool.h"
#include "unittransport.h"

void runReset(const ResetOptions& options)
{
    Console::outliveReader();
    Session session(options.unit);
    session.unit().setRetainIP(!options.defaultAddress);
    session.run(SendResetType);
    if (options.defaultAddress) {
        // The library does not await the unit here: it may be gone before it can answer.
        if (!session.transport().wasSent())
            throw CommandFailure{session.transport().lastFailure()};
        session.transport().awaitLastReply();
    }
    Console::print(options.defaultAddress
            ? Tool::tr("The unit was told to restart with its default address.\n")
            : Tool::tr("The unit restarts and keeps its address.\n"));
}
