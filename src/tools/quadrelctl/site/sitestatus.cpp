// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "sitecommands.h"

#include "clocktext.h"
#include "console.h"
#include "sitereport.h"
#include "sitework.h"
#include "table.h"
#include "tool.h"

#include <unitcontents.h>

#include <QtCore/QFileInfo>

using namespace QuadrelWorkspace;

namespace {

QString clockOf(const QJsonObject& data)
{
    const QJsonValue difference = data.value(QStringLiteral("differenceSeconds"));
    return difference.isDouble() ? describeDifference(static_cast<qint64>(difference.toDouble()))
                                 : Tool::tr("not a real time");
}

/** Without one that is there the unit itself is all that can be looked at. */
QString presentDocument(const Site& site, const SiteUnit& unit)
{
    const QString path = site.documentPath(unit);
    return QFileInfo::exists(path) ? path : QString();
}

QString documentOf(const Site& site, const UnitReport& report)
{
    if (!report.data.contains(QStringLiteral("difference")))
        return site.documentPath(*site.unit(report.name)).isEmpty() ? QString()
                                                                    : Tool::tr("missing");
    return report.changes == 0 ? Tool::tr("same")
                               : Tool::tr("%n change(s)", nullptr, report.changes);
}

Page toTable(const Site& site, const UnitReports& reports)
{
    Table table({Tool::tr("Name"), Tool::tr("Unit"), Tool::tr("Model"), Tool::tr("Version"),
        Tool::tr("Clock"), Tool::tr("Document")});
    for (const UnitReport& report : reports) {
        if (report.isFailure())
            continue;
        const QJsonObject device = report.data.value(QStringLiteral("device")).toObject();
        table.addRow({report.name, report.address.toText(),
            QuadrelDocument::modelText(device.value(QStringLiteral("modelId")).toInt()),
            device.value(QStringLiteral("version")).toString(), clockOf(report.data),
            documentOf(site, report)});
    }
    return table.isEmpty() ? Page() : table.toPage(Console::pageWidth()) + Page{{}};
}

UnitReport statusOf(const SiteUnit& unit, const WorkerResult& result)
{
    UnitReport report = reportOf(unit, result, UnitOutcome::Answers);
    if (!report.isFailure() && report.data.contains(QStringLiteral("difference")))
        report.outcome = report.changes == 0 ? UnitOutcome::Same : UnitOutcome::Differs;
    return report;
}

} // namespace

void runSiteStatus(const SiteOptions& options)
{
    const ChosenUnits chosen = chooseUnits(options);
    SiteWork work;
    work.command = [&chosen](const SiteUnit& unit) {
        QStringList command{QStringLiteral("status"), QStringLiteral("--json"),
            QStringLiteral("--unit"), unit.address.toText()};
        const QString document = presentDocument(chosen.site, unit);
        return document.isEmpty() ? command : command + QStringList{document};
    };
    work.report = statusOf;
    work.stages = withoutStages();
    const UnitReports reports = doWork(options, chosen, chosen.units, work);
    if (!options.json)
        Console::print(toTable(chosen.site, reports));
    finishSite(reports, options.json);
}
