// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "commands.h"
#include "console.h"
#include "contentstables.h"
#include "json.h"
#include "unitaccess.h"

void runInfo(const InfoOptions& options)
{
    UnitAccess unit(options.unit);
    const QuadrelDocument::Device device = unit.readDevice();
    if (options.json)
        printJson(deviceToJson(device));
    else
        Console::print(deviceTable(device, TableOptions::ofTerminal()));
}
