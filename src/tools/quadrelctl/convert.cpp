// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "commands.h"
#include "files.h"

void runConvert(const ConvertOptions& options)
{
    requireSavable(options.to);
    saveContents(options.to, loadReadable(options.from).contents);
}
