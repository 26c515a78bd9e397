// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "sitecommands.h"

#include "consent.h"
#include "console.h"
#include "sitereport.h"
#include "sitework.h"
#include "tool.h"

using namespace QuadrelWorkspace;

namespace {

QStringList commandFor(const SiteRunOptions& options, const Site& site, const SiteUnit& unit)
{
    QStringList command = options.command;
    for (QString& word : command)
        word.replace(QStringLiteral("{name}"), unit.name)
            .replace(QStringLiteral("{document}"), site.documentPath(unit));
    command += {QStringLiteral("--unit"), unit.address.toText()};
    if (options.json && options.commandTakesJson)
        command.append(QStringLiteral("--json"));
    return command;
}

/** Whatever the command prints, it is the result. */
UnitReport runReport(const SiteUnit& unit, const WorkerResult& result)
{
    UnitReport report = reportOf(unit, result, UnitOutcome::Done);
    if (result.isSuccess() && result.output.isNull()) {
        report.outcome = UnitOutcome::Done;
        report.failure.clear();
        if (!result.text.isEmpty())
            report.data = {{QStringLiteral("text"), result.text}};
    }
    return report;
}

void printResult(const UnitReport& report)
{
    Console::progress(endLine(report));
    const QString text = report.data.value(QStringLiteral("text")).toString();
    if (text.isEmpty())
        return;
    Console::print(Page{{report.name, Style::Heading}});
    Console::print(text);
}

} // namespace

void runSiteRun(const SiteRunOptions& options)
{
    if (options.commandChanges) {
        Console::outliveReader();
        Consent::requirePossible(false);
    }
    const ChosenUnits chosen = chooseUnits(options);
    const QString question = Tool::tr("Run \"%1\" on %n unit(s)?", nullptr, chosen.units.size())
                                 .arg(options.command.join(QLatin1Char(' ')));
    if (options.commandChanges && !Consent::given(question, false))
        return;
    SiteWork work;
    work.command = [&](const SiteUnit& unit) { return commandFor(options, chosen.site, unit); };
    work.report = runReport;
    if (!options.json)
        work.finished = printResult;
    work.stages = withoutStages();
    finishSite(doWork(options, chosen, chosen.units, work), options.json);
}
