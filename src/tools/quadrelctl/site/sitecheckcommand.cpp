// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "sitecommands.h"

#include "console.h"
#include "sitedocuments.h"
#include "sitereport.h"
#include "sitework.h"

using namespace QuadrelWorkspace;

void runSiteCheck(const SiteOptions& options)
{
    const ChosenUnits chosen = chooseUnits(options);
    UnitReports reports;
    for (const SiteUnit& unit : chosen.units)
        reports.append(documentReport(chosen.site, unit));
    finishSite(reports, options.json);
}
