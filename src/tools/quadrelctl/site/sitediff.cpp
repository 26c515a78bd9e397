// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "sitecommands.h"

#include "console.h"
#include "sitereport.h"
#include "sitework.h"

#include <QtCore/QDir>

using namespace QuadrelWorkspace;

namespace {

QString documentOf(const SiteDiffOptions& options, const Site& site, const SiteUnit& unit)
{
    return options.folder.isEmpty()
        ? site.documentPath(unit)
        : QDir(options.folder).filePath(unit.name + QStringLiteral(".yaml"));
}

UnitReport differenceOf(const SiteUnit& unit, const WorkerResult& result)
{
    UnitReport report = reportOf(unit, result, UnitOutcome::Same);
    if (!report.isFailure() && report.changes > 0)
        report.outcome = UnitOutcome::Differs;
    return report;
}

} // namespace

void runSiteDiff(const SiteDiffOptions& options)
{
    const ChosenUnits chosen = chooseUnits(options);
    QVector<SiteUnit> compared;
    UnitReports reports;
    for (const SiteUnit& unit : chosen.units) {
        if (documentOf(options, chosen.site, unit).isEmpty())
            reports.append(
                {unit.name, unit.address, UnitOutcome::NoDocument, 0, QString(), QJsonObject()});
        else
            compared.append(unit);
    }
    SiteWork work;
    work.command = [&](const SiteUnit& unit) {
        return QStringList{QStringLiteral("diff"), QStringLiteral("--json"),
            documentOf(options, chosen.site, unit), unit.address.toText()};
    };
    work.report = differenceOf;
    work.stages = withoutStages();
    reports = doWork(options, chosen, compared, work) + reports;
    if (!options.json)
        Console::printPaged(differencesPage(reports));
    finishSite(reports, options.json);
}
