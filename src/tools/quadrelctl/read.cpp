// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "commands.h"
#include "console.h"
#include "contentstables.h"
#include "discovery.h"
#include "files.h"
#include "json.h"
#include "sections.h"
#include "unitaccess.h"

using namespace QuadrelDocument;

void runRead(const ReadOptions& options)
{
    if (!options.file.isEmpty())
        requireSavable(options.file);
    UnitAccess unit(options.unit ? *options.unit : findOnlyUnit());
    const Contents contents = onlySections(unit.read(), options.only);
    if (options.json)
        printJson(contents);
    else
        Console::printPaged(contentsTables(contents, TableOptions::ofTerminal()));
    // What was read is not lost with a file that can't be written.
    if (!options.file.isEmpty())
        saveContents(options.file, contents);
}
