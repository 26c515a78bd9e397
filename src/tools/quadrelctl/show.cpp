// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "commands.h"
#include "console.h"
#include "contentstables.h"
#include "files.h"
#include "json.h"

void runShow(const ShowOptions& options)
{
    const QuadrelDocument::LoadedFile file = loadReadable(options.file);
    if (options.json)
        printJson(file.contents);
    else
        Console::printPaged(contentsTables(file.contents, TableOptions::ofTerminal()));
}
