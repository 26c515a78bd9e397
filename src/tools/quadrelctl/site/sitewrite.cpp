// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "sitecommands.h"

#include "console.h"
#include "sitedocuments.h"
#include "sitereport.h"
#include "siterollout.h"
#include "tool.h"

using namespace QuadrelWorkspace;

namespace {

UnitReport plannedWrite(const SiteUnit& unit, const WorkerResult& result)
{
    UnitReport report = reportOf(unit, result, UnitOutcome::Same);
    if (!report.isFailure() && report.changes > 0)
        report.outcome = UnitOutcome::Planned;
    return report;
}

QString changeSince(const UnitReport& plan, const UnitRunState&)
{
    return plan.changes == 0
        ? QString()
        : Tool::tr("the run has written its document, and the unit holds something else now, with "
                   "%n change(s); start again without --resume to write it again",
            nullptr, plan.changes);
}

} // namespace

void runSiteWrite(const StagedOptions& options)
{
    Rollout rollout;
    rollout.name = QStringLiteral("write");
    Site site;
    rollout.check = [&site](const ChosenUnits& chosen) {
        requireDocuments(chosen);
        site = chosen.site;
    };
    rollout.command = [&site](const SiteUnit& unit) {
        return QStringList{QStringLiteral("write"), QStringLiteral("--json"),
            QStringLiteral("--unit"), unit.address.toText(), site.documentPath(unit)};
    };
    rollout.planCommand = [&rollout](const SiteUnit& unit) {
        return rollout.command(unit) + QStringList{QStringLiteral("--dry-run")};
    };
    rollout.planned = plannedWrite;
    rollout.fault = changeSince;
    rollout.showPlan = [](const UnitReports& plan) { Console::print(differencesPage(plan)); };
    rollout.success = UnitOutcome::Written;
    carryOut(options, rollout);
}
