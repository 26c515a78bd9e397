#include "commands.h"
#include "console.h"
#include "contentsjson.h"
#include "contentstables.h"
#include "devicemanagermodel.h"
#include "session.h"

void runInfo(const InfoOptions& options)
{
    Session session(options.unit);
    session.readDevice();
    const DeviceModel device = DeviceManagerModel::Instance()->getCurrentSelectDevice();
    if (options.json)
        printJson(deviceToJson(device));
    else
        Console::print(deviceTable(device));
}
