#include "addresscheck.h"
#include "commands.h"
#include "console.h"
#include "session.h"
#include "table.h"
#include "tool.h"

namespace {

void showChange(DeviceModel& device, const NetworkOptions& options)
{
    const QString dhcp = device.getDHCPModel() ? Tool::tr("yes") : Tool::tr("no");
    Table table({QString(), Tool::tr("Old"), Tool::tr("New")});
    table.addRow({Tool::tr("DHCP"), dhcp, Tool::tr("no")});
    table.addRow({Tool::tr("Address"), device.getIP(), options.ip});
    table.addRow({Tool::tr("Mask"), device.getSubMask(), options.mask});
    table.addRow({Tool::tr("Gateway"), device.getGateWay(), options.gateway});
    Console::print(table.toText());
    Console::flush();
}

} // namespace

void runNetwork(const NetworkOptions& options)
{
    Console::outliveReader();
    const QString fault = networkFault(options.ip, options.mask, options.gateway);
    if (!fault.isEmpty())
        throw CommandFailure{fault, WrongUsage};
    if (!options.yes && !Console::canAsk())
        throw CommandFailure{
            Tool::tr("there is no terminal to confirm on; --yes goes on without"), WrongUsage};

    Session session(options.unit);
    DeviceModel device = session.run(UnitRequest::readDevice()).device;
    showChange(device, options);
    if (!options.yes && !Console::confirm(Tool::tr("Give the unit the new address?")))
        throw CommandFailure{Tool::tr("nothing was changed")};
    session.run(UnitRequest::setNetwork(options.ip, options.mask, options.gateway));
    Console::print(Tool::tr("The unit has taken the address %1.\n").arg(options.ip));
}
