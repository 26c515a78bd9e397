// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "commands.h"
#include "console.h"
#include "files.h"
#include "tool.h"

using namespace QuadrelDocument;

void runCheck(const CheckOptions& options)
{
    bool isFaulty = false;
    for (const QString& path : options.files) {
        const Findings findings = loadFile(path).findings;
        for (const Finding& finding : findings)
            Console::print(messageOf(finding, path) + QLatin1Char('\n'));
        isFaulty = isFaulty || hasErrors(findings);
    }
    if (isFaulty)
        throw CommandFailure{QString()};
}
