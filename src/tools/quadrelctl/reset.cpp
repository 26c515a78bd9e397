// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "commands.h"
#include "consent.h"
#include "console.h"
#include "tool.h"
#include "unitaccess.h"

void runReset(const ResetOptions& options)
{
    Console::outliveReader();
    if (options.defaultAddress)
        Consent::requirePossible(options.dryRun);
    UnitAccess unit(options.unit);
    const QString ip = unit.readDevice().ip;
    if (options.defaultAddress) {
        Console::remark(
            Tool::tr("The unit restarts, and goes back from %1 to its default address.").arg(ip));
        if (!Consent::given(Tool::tr("Restart it with its default address?"), options.dryRun))
            return;
    } else if (options.dryRun) {
        Console::remark(Tool::tr("The unit would restart, and keep the address %1.").arg(ip));
        return;
    }
    unit.run(UnitRequest::reset(!options.defaultAddress));
    Console::remark(options.defaultAddress
            ? Tool::tr("The unit was asked to restart with its default address.")
            : Tool::tr("The unit restarts and keeps its address."));
}
