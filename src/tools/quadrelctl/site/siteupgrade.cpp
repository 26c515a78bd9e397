// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "sitecommands.h"

#include "console.h"
#include "images.h"
#include "sitereport.h"
#include "siterollout.h"
#include "table.h"
#include "tool.h"

#include <imagechecks.h>

#include <QtCore/QFileInfo>

using namespace QuadrelWorkspace;

namespace {

QString versionOf(const UnitReport& report)
{
    return report.data.value(QStringLiteral("version")).toString();
}

/** Without a descriptor every unit gets the images. */
UnitReport plannedUpgrade(const SiteUnit& unit, const WorkerResult& result,
    const std::optional<UpgradeDescriptor>& descriptor, bool isForced)
{
    UnitReport report = reportOf(unit, result, UnitOutcome::Planned);
    if (report.isFailure() || !descriptor || isForced)
        return report;
    const int modelId = report.data.value(QStringLiteral("modelId")).toInt();
    if (isSameVersion(descriptor->version, versionOf(report))) {
        report.outcome = UnitOutcome::Same;
        return report;
    }
    const QStringList doubts =
        descriptorDoubts(*descriptor, static_cast<unsigned short>(modelId), versionOf(report));
    return doubts.isEmpty() ? report : failedReport(unit, doubts.join(QLatin1Char('\n')));
}

QString changeSince(const UnitReport& plan, const UnitRunState& done)
{
    return isSameVersion(versionOf(plan), done.version)
        ? QString()
        : Tool::tr("the run has upgraded it to version %1, and it has %2 now; start again without "
                   "--resume to upgrade it again")
              .arg(done.version, versionOf(plan));
}

void showPlan(const UnitReports& plan)
{
    Table table({Tool::tr("Name"), Tool::tr("Unit"), Tool::tr("Version")});
    for (const UnitReport& report : plan) {
        if (report.outcome == UnitOutcome::Planned)
            table.addRow({report.name, report.address.toText(), versionOf(report)});
    }
    if (!table.isEmpty())
        Console::print(table.toPage(Console::pageWidth()));
}

} // namespace

void runSiteUpgrade(const SiteUpgradeOptions& options)
{
    std::optional<UpgradeDescriptor> descriptor;
    Rollout rollout;
    rollout.name = QStringLiteral("upgrade");
    rollout.check = [&options, &descriptor](const ChosenUnits&) {
        loadImage(options.streamedFile, options.force);
        loadImage(options.addressedFile, options.force);
        QString error;
        if (!options.descriptorFile.isEmpty())
            descriptor = readDescriptor(options.descriptorFile, error);
        if (!error.isEmpty())
            throw CommandFailure{error};
    };
    rollout.planCommand = [](const SiteUnit& unit) {
        return QStringList{QStringLiteral("info"), QStringLiteral("--json"),
            QStringLiteral("--unit"), unit.address.toText()};
    };
    rollout.planned = [&](const SiteUnit& unit, const WorkerResult& result) {
        return plannedUpgrade(unit, result, descriptor, options.force);
    };
    rollout.fault = changeSince;
    rollout.showPlan = showPlan;
    rollout.command = [&options](const SiteUnit& unit) {
        QStringList command{QStringLiteral("upgrade"), QStringLiteral("--json"),
            QStringLiteral("--unit"), unit.address.toText(), QStringLiteral("--streamed"),
            options.streamedFile, QStringLiteral("--addressed"), options.addressedFile};
        if (!options.descriptorFile.isEmpty())
            command += {QStringLiteral("--descriptor"), options.descriptorFile};
        return options.force ? command + QStringList{QStringLiteral("--force")} : command;
    };
    rollout.success = UnitOutcome::Upgraded;
    carryOut(options, rollout);
}
