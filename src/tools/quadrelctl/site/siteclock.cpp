// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "sitecommands.h"

#include "consent.h"
#include "console.h"
#include "sitereport.h"
#include "sitework.h"
#include "tool.h"

using namespace QuadrelWorkspace;

void runSiteClock(const SiteClockOptions& options)
{
    Console::outliveReader();
    Consent::requirePossible(options.dryRun);
    const ChosenUnits chosen = chooseUnits(options);
    const QString question =
        Tool::tr("Set the clocks of %n unit(s)?", nullptr, chosen.units.size());
    if (!Consent::given(question, options.dryRun))
        return;
    SiteWork work;
    work.command = [&options](const SiteUnit& unit) {
        return QStringList{QStringLiteral("clock"), QStringLiteral("--json"),
            QStringLiteral("--unit"), unit.address.toText(), QStringLiteral("--set"), options.time};
    };
    work.report = [](const SiteUnit& unit, const WorkerResult& result) {
        return reportOf(unit, result, UnitOutcome::Done);
    };
    work.stages = withoutStages();
    finishSite(doWork(options, chosen, chosen.units, work), options.json);
}
