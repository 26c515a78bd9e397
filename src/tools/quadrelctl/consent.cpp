// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "consent.h"

#include "console.h"
#include "preferences.h"
#include "tool.h"

void Consent::requirePossible(bool isDryRun)
{
    if (!isDryRun && !Preferences::mayAct() && !Console::canAsk())
        throw CommandFailure{
            Tool::tr("there is no terminal to ask on, and nothing was sent; --yes goes on without "
                     "asking, --dry-run shows what would be done"),
            WrongUsage};
}

void Consent::reportDryRun()
{
    Console::remark(Tool::tr("Dry run: nothing was changed."));
}

bool Consent::given(const QString& question, bool isDryRun)
{
    if (isDryRun) {
        reportDryRun();
        return false;
    }
    if (!Preferences::mayAct() && !Console::confirm(question))
        throw CommandFailure{Tool::tr("nothing was changed")};
    return true;
}
