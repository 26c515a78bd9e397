// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "siterollout.h"

#include "consent.h"
#include "console.h"
#include "interrupts.h"
#include "sitereport.h"
#include "table.h"
#include "tool.h"

#include <runrecord.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QHash>
#include <QtCore/QJsonArray>

#include <algorithm>
#include <memory>

using namespace QuadrelWorkspace;

namespace {

/** "site.write-run.yaml" beside site.yaml. */
QString statePath(const StagedOptions& options, const QString& name)
{
    const QFileInfo inventory(options.inventory);
    return inventory.path() + QLatin1Char('/') + inventory.completeBaseName() + QLatin1Char('.')
        + name + QStringLiteral("-run.yaml");
}

RunState loadState(const QString& path)
{
    if (!QFileInfo::exists(path))
        throw CommandFailure{
            Tool::tr("%1: there is no such file, so no run to go on with; leave --resume out")
                .arg(path)};
    const LoadedRunState loaded = loadRunState(path);
    if (!loaded.errors.isEmpty())
        throw CommandFailure{loaded.errors.join(QLatin1Char('\n'))};
    return loaded.state;
}

int count(const UnitReports& reports, UnitOutcome outcome)
{
    return static_cast<int>(std::count_if(reports.begin(), reports.end(),
        [outcome](const UnitReport& report) { return report.outcome == outcome; }));
}

/** The names of units in a table of what they hold. */
struct Holders {
    QStringList ofNew;
    QStringList ofOld;
    QStringList unknown;
};

class RolloutRun {
public:
    RolloutRun(const StagedOptions& options, const Rollout& rollout)
        : m_options(options)
        , m_rollout(rollout)
        , m_path(statePath(options, rollout.name))
    {
    }

    void run();

private:
    void choose();
    void plan();
    UnitReport planned(const SiteUnit& unit, const WorkerResult& result) const;
    bool mayBegin();
    QString question() const;
    void noteFormerRun() const;
    void leaveAsTheyAre(UnitOutcome from, UnitOutcome to);
    RunState beginning() const;
    void work();
    Holders holders() const;
    void finish();

    const StagedOptions& m_options;
    const Rollout& m_rollout;
    const QString m_path;
    /** Of the run that goes on. */
    RunState m_former;
    ChosenUnits m_chosen;
    /** In the order of the units. */
    UnitReports m_reports;
    /** Units that something was sent to. */
    QStringList m_begun;
    bool m_isRecorded = false;
};

/** The units of a run that goes on are those that it began with. */
void RolloutRun::choose()
{
    if (!m_options.resume) {
        m_chosen = chooseUnits(m_options);
        return;
    }
    m_former = loadState(m_path);
    m_chosen.site = loadInventory(m_options).site;
    for (const UnitRunState& unit : qAsConst(m_former.units)) {
        const SiteUnit* known = m_chosen.site.unit(unit.name);
        if (!known)
            throw CommandFailure{
                Tool::tr("%1: the run has the unit %2, and %3 does not; add it again, or start "
                         "again without --resume")
                    .arg(m_path, unit.name, m_options.inventory)};
        m_chosen.units.append(*known);
    }
}

UnitReport RolloutRun::planned(const SiteUnit& unit, const WorkerResult& result) const
{
    UnitReport report = m_rollout.planned(unit, result);
    const UnitRunState* former = m_former.unit(unit.name);
    if (!former || former->state != UnitState::Done || report.isFailure())
        return report;
    report.outcome = UnitOutcome::Verified;
    const QString fault = m_rollout.fault(report, *former);
    return fault.isEmpty() ? report : failedReport(unit, fault);
}

void RolloutRun::plan()
{
    SiteWork planning;
    planning.command = m_rollout.planCommand;
    planning.report = [this](const SiteUnit& unit, const WorkerResult& result) {
        return planned(unit, result);
    };
    planning.stages = withoutStages();
    planning.title = Tool::tr("planning");
    m_reports = doWork(m_options, m_chosen, m_chosen.units, planning);
    if (!m_options.json)
        m_rollout.showPlan(m_reports);
}

void RolloutRun::leaveAsTheyAre(UnitOutcome from, UnitOutcome to)
{
    for (UnitReport& report : m_reports) {
        if (report.outcome == from)
            report.outcome = to;
    }
}

void RolloutRun::noteFormerRun() const
{
    if (m_options.resume || !QFileInfo::exists(m_path))
        return;
    const LoadedRunState left = loadRunState(m_path);
    Console::note(Tool::tr("%1 is left from a run that stopped, with %2 of %3 units done; it is "
                           "replaced now, and --resume would go on with it")
                      .arg(m_path, QString::number(left.state.namesIn(UnitState::Done).size()),
                          QString::number(left.state.units.size())));
}

QString RolloutRun::question() const
{
    int changes = 0;
    for (const UnitReport& report : m_reports)
        changes += report.outcome == UnitOutcome::Planned ? report.changes : 0;
    const int units = count(m_reports, UnitOutcome::Planned);
    QString text = changes == 0 ? Tool::tr("Change %1 of %2 units").arg(units).arg(m_reports.size())
                                : Tool::tr("Write %1 changes to %2 of %3 units")
                                      .arg(changes)
                                      .arg(units)
                                      .arg(m_reports.size());
    if (m_options.canary > 0)
        text += Tool::tr(", %1 first").arg(std::min(m_options.canary, units));
    if (m_options.batch > 0)
        text += Tool::tr(", %1 at a time").arg(m_options.batch);
    return text + QLatin1Char('?');
}

/** Whether there is something to do, nothing speaks against it, and it is wanted. */
bool RolloutRun::mayBegin()
{
    const int failures = count(m_reports, UnitOutcome::Failed);
    if (Interrupts::arePending() || failures > m_options.maximalFailures) {
        leaveAsTheyAre(UnitOutcome::Planned, UnitOutcome::NotBegun);
        if (failures > m_options.maximalFailures)
            Console::note(Tool::tr("%n unit(s) failed before anything was sent, and "
                                   "--max-failures allows %1: no unit was changed",
                nullptr, failures)
                              .arg(m_options.maximalFailures));
        return false;
    }
    if (count(m_reports, UnitOutcome::Planned) == 0)
        return false;
    noteFormerRun();
    return Consent::given(question(), m_options.dryRun);
}

/** What is true before the first unit is begun. */
RunState RolloutRun::beginning() const
{
    RunState state;
    state.command = m_options.resume ? m_former.command
                                     : QCoreApplication::arguments().mid(1).join(QLatin1Char(' '));
    state.begun = m_options.resume ? m_former.begun : QDateTime::currentDateTimeUtc();
    for (const UnitReport& report : m_reports) {
        UnitRunState unit{report.name, UnitState::Done, QString(), QString()};
        if (report.outcome == UnitOutcome::Planned)
            unit.state = UnitState::Waiting;
        else if (report.isFailure())
            unit = {report.name, UnitState::Failed, report.failure, QString()};
        unit.version = report.data.value(QStringLiteral("version")).toString();
        state.units.append(unit);
    }
    return state;
}

void RolloutRun::work()
{
    QVector<SiteUnit> units;
    for (const UnitReport& report : qAsConst(m_reports)) {
        if (report.outcome == UnitOutcome::Planned)
            units.append(*m_chosen.site.unit(report.name));
    }
    std::unique_ptr<RunRecord> record;
    SiteWork work;
    work.command = m_rollout.command;
    work.report = [this](const SiteUnit& unit, const WorkerResult& result) {
        if (result.end != WorkerEnd::NotBegun)
            m_begun.append(unit.name);
        return reportOf(unit, result, m_rollout.success);
    };
    work.stages.canary = m_options.canary;
    work.stages.batch = m_options.batch;
    work.stages.maximalFailures = m_options.maximalFailures - count(m_reports, UnitOutcome::Failed);
    work.prepare = [this, &record](StagedRun& run) {
        record = std::make_unique<RunRecord>(m_path, beginning(), &run);
        const QString error = record->save();
        if (!error.isEmpty())
            throw CommandFailure{Tool::tr("%1: %2\nThe state of the run can't be kept; nothing was "
                                          "sent to any unit.")
                                     .arg(m_path, error)};
    };
    const UnitReports done = doWork(m_options, m_chosen, units, work);
    m_isRecorded = true;
    QHash<QString, UnitReport> byName;
    for (const UnitReport& report : done)
        byName.insert(report.name, report);
    for (UnitReport& report : m_reports)
        report = byName.value(report.name, report);
    const QString error = record->save();
    if (!error.isEmpty())
        Console::warn(QStringLiteral("%1: %2").arg(m_path, error));
}

Holders RolloutRun::holders() const
{
    Holders holders;
    for (const UnitReport& report : m_reports) {
        const bool isUntouched = report.isFailure() && !m_begun.contains(report.name);
        const HeldContents held = isUntouched ? HeldContents::Old : heldAfterWrite(report);
        if (held == HeldContents::New)
            holders.ofNew.append(report.name);
        else if (held == HeldContents::Old)
            holders.ofOld.append(report.name);
        else
            holders.unknown.append(report.name);
    }
    return holders;
}

Page toTable(const Holders& holders)
{
    Table table({Tool::tr("Holds"), Tool::tr("Units"), Tool::tr("Names")});
    const auto addRow = [&table](const QString& title, const QStringList& names) {
        if (!names.isEmpty())
            table.addRow({title, QString::number(names.size()), names.join(QStringLiteral(", "))});
    };
    addRow(Tool::tr("the new"), holders.ofNew);
    addRow(Tool::tr("the old"), holders.ofOld);
    addRow(Tool::tr("not known, perhaps some of both"), holders.unknown);
    return table.toPage(Console::pageWidth());
}

QJsonObject toJson(const Holders& holders)
{
    return {{QStringLiteral("new"), QJsonArray::fromStringList(holders.ofNew)},
        {QStringLiteral("old"), QJsonArray::fromStringList(holders.ofOld)},
        {QStringLiteral("unknown"), QJsonArray::fromStringList(holders.unknown)}};
}

/** What the units hold now, and how to go on. */
void RolloutRun::finish()
{
    const bool isOver = std::none_of(m_reports.begin(), m_reports.end(),
        [](const UnitReport& report) { return report.isFailure(); });
    if (isOver && (m_isRecorded || m_options.resume))
        QFile::remove(m_path);
    QJsonObject more;
    if (!isOver && m_isRecorded) {
        const Holders held = holders();
        more = {{QStringLiteral("holds"), toJson(held)}, {QStringLiteral("run"), m_path}};
        if (!m_options.json)
            Console::print(toTable(held));
        Console::note(Tool::tr("%1 says how far the run has come; \"quadrelctl site %2 --resume\" "
                               "goes on with it, with the same options")
                          .arg(m_path, m_rollout.name));
    }
    finishSite(m_reports, m_options.json, more);
}

void RolloutRun::run()
{
    choose();
    m_rollout.check(m_chosen);
    plan();
    if (mayBegin())
        work();
    finish();
}

} // namespace

void carryOut(const StagedOptions& options, const Rollout& rollout)
{
    Console::outliveReader();
    Consent::requirePossible(options.dryRun);
    const Selection& selection = options.selection;
    const bool isSelected =
        !selection.tags.isEmpty() || !selection.names.isEmpty() || !selection.excluded.isEmpty();
    if (options.resume && isSelected)
        throw CommandFailure{Tool::tr("--resume goes on with the units of the run; leave --tag, "
                                      "--name and --exclude out"),
            WrongUsage};
    RolloutRun(options, rollout).run();
}
