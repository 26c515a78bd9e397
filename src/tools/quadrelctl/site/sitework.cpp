// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "sitework.h"

#include "console.h"
#include "interrupts.h"
#include "language.h"
#include "preferences.h"
#include "siteprogress.h"
#include "sitereport.h"
#include "tool.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEventLoop>
#include <QtCore/QHash>
#include <QtCore/QSocketNotifier>

#include <algorithm>
#include <limits>

using namespace QuadrelWorkspace;

namespace {

constexpr int secondInMilliseconds = 1000;

/** Goes before a worker's command: this program's options, or else the inventory's. */
QStringList workerOptions(const Site& site)
{
    const GlobalOptions& own = Preferences::options();
    if (!own.logFile.isEmpty())
        throw CommandFailure{
            Tool::tr("--log is for one unit; \"quadrelctl --log FILE read --unit UNIT\" logs it"),
            WrongUsage};
    QStringList options;
    const auto addNumber = [&options](const char* name, std::optional<int> number) {
        if (number)
            options += {QLatin1String(name), QString::number(*number)};
    };
    addNumber("--timeout", own.timeout ? own.timeout : site.timeout);
    addNumber("--retries", own.retries ? own.retries : site.retries);
    const QString language = Language::fromArguments(QCoreApplication::arguments());
    if (!language.isEmpty())
        options += {QStringLiteral("--language"), language};
    return options;
}

/** Begins no further unit at the first interrupt, and ends those at work at the second. */
class InterruptedRun {
public:
    explicit InterruptedRun(StagedRun& run)
        : m_run(run)
        , m_notifier(Interrupts::watchRun(), QSocketNotifier::Read)
    {
        QObject::connect(
            &m_notifier, &QSocketNotifier::activated, &m_notifier, [this] { react(); });
        react();
    }

private:
    void react()
    {
        const int count = Interrupts::take();
        if (count > 0 && m_seen == 0) {
            m_run.stopStarting();
            Console::note(Tool::tr("interrupted: units at work go on to their end and no other is "
                                   "begun; a second interrupt ends them too"));
        }
        if (count > 1 && m_seen <= 1) {
            m_run.endAll();
            Console::note(Tool::tr("interrupted again: the units at work are being ended"));
        }
        m_seen = count;
    }

    StagedRun& m_run;
    QSocketNotifier m_notifier;
    int m_seen = 0;
};

} // namespace

LoadedSite loadInventory(const SiteOptions& options)
{
    LoadedSite loaded = loadSite(options.inventory);
    if (!loaded.errors.isEmpty())
        throw CommandFailure{loaded.errors.join(QLatin1Char('\n'))};
    return loaded;
}

ChosenUnits chooseUnits(const SiteOptions& options)
{
    const Site site = loadInventory(options).site;
    QString error;
    const auto units = selectUnits(site, options.selection, error);
    if (!units)
        throw CommandFailure{QStringLiteral("%1: %2").arg(options.inventory, error)};
    return {site, *units};
}

StageOptions withoutStages()
{
    StageOptions stages;
    stages.maximalFailures = std::numeric_limits<int>::max();
    return stages;
}

UnitReports doWork(const SiteOptions& options, const ChosenUnits& chosen,
    const QVector<SiteUnit>& units, const SiteWork& work)
{
    const WorkerCall call{QCoreApplication::applicationFilePath(), workerOptions(chosen.site)};
    QList<WorkerTask> tasks;
    QHash<QString, int> places;
    for (const SiteUnit& unit : units) {
        places.insert(unit.name, tasks.size());
        tasks.append(workerTask(call, unit, work.command(unit)));
    }
    UnitReports reports(units.size());

    StageOptions stages = work.stages;
    stages.jobs = options.jobs.value_or(chosen.site.jobs);
    stages.limit = options.limit * secondInMilliseconds;
    StagedRun run(stages);
    SiteProgress progress(units.size(), work.title, run);
    QObject::connect(&run, &StagedRun::finished, &run, [&](const WorkerResult& result) {
        const int place = places.value(result.name);
        reports[place] = work.report(units.at(place), result);
        if (work.finished)
            work.finished(reports.at(place));
        else
            progress.showEnd(reports.at(place));
        progress.count(reports.at(place));
    });
    if (work.prepare)
        work.prepare(run);
    QEventLoop loop;
    QObject::connect(&run, &StagedRun::allFinished, &loop, &QEventLoop::quit);
    const InterruptedRun interrupts(run);
    run.start(tasks);
    loop.exec();
    Console::endProgress();
    return reports;
}
