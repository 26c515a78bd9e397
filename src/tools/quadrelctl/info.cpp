#include "commands.h"
#include "console.h"
#include "contentsjson.h"
#include "contentstables.h"
#include "session.h"

void runInfo(const InfoOptions& options)
{
    Session session(options.unit);
    const DeviceModel device = session.run(UnitRequest::readDevice()).device;
    if (options.json)
        printJson(deviceToJson(device));
    else
        Console::print(deviceTable(device));
}
