// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "commands.h"
#include "consent.h"
#include "console.h"
#include "table.h"
#include "tool.h"
#include "unitaccess.h"

#include <addresscheck.h>

namespace {

void showChange(const QuadrelDocument::Device& device, const NetworkOptions& options)
{
    Table table({QString(), Tool::tr("Old"), Tool::tr("New")});
    table.addRow(
        {Tool::tr("DHCP"), device.dhcp ? Tool::tr("yes") : Tool::tr("no"), Tool::tr("no")});
    table.addRow({Tool::tr("Address"), device.ip, options.ip});
    table.addRow({Tool::tr("Mask"), device.mask, options.mask});
    table.addRow({Tool::tr("Gateway"), device.gateway, options.gateway});
    Console::print(table.toPage(Console::pageWidth()));
}

} // namespace

void runNetwork(const NetworkOptions& options)
{
    Console::outliveReader();
    const QString fault = QuadrelWorkspace::networkFault(options.ip, options.mask, options.gateway);
    if (!fault.isEmpty())
        throw CommandFailure{fault, WrongUsage};
    Consent::requirePossible(options.dryRun);
    UnitAccess unit(options.unit);
    showChange(unit.readDevice(), options);
    if (!Consent::given(Tool::tr("Give the unit the new address?"), options.dryRun))
        return;
    unit.run(UnitRequest::setNetwork(options.ip, options.mask, options.gateway),
        Tool::tr("The unit may have either address; \"quadrelctl discover\" shows which."));
    Console::remark(Tool::tr("The unit has taken the address %1.").arg(options.ip));
}
