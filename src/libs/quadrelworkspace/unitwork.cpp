// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitwork.h"

#include "unitlock.h"
#include "workspace.h"

#include <contentsdifference.h>
#include <modelconversion.h>
#include <unitdocument.h>
#include <unitsession.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QSet>
#include <QtCore/QThread>

#include <algorithm>
#include <atomic>

namespace QuadrelWorkspace {

using namespace QuadrelDocument;

namespace {

/** Between two attempts to reach a unit that restarts. */
constexpr int attemptPause = 500;
/** A unit that neither goes away nor changes its version in this time has restarted unseen. */
constexpr int unseenRestart = 5000;

Contents contentsOf(const UnitData& data)
{
    Contents contents;
    contents.device = deviceOf(data.device);
    contents.serialPorts = serialPortsOf(data.config);
    contents.ioLines = ioLinesOf(data.config);
    contents.events = eventsOf(data.events);
    contents.triggers = triggersOf(data.triggers);
    contents.timeTriggers = timeTriggersOf(data.timeTriggers);
    contents.clock = data.clock;
    return contents;
}

UnitRequest requestFor(Table table, const Contents& contents)
{
    switch (table) {
    case Table::Config:
        return UnitRequest::writeConfig(asRead(contents.serialPorts, contents.ioLines));
    case Table::Events:
        return UnitRequest::writeEvents(toSend(contents.events.value_or(QVector<Event>())));
    case Table::Triggers:
        return UnitRequest::writeTriggers(toSend(contents.triggers.value_or(QVector<Trigger>())),
            toSend(contents.timeTriggers.value_or(QVector<TimeTrigger>())));
    }
    Q_UNREACHABLE();
}

/** What an operation is at when it begins, or has done the part before. */
QString partName(UnitProgress::Part part)
{
    switch (part) {
    case UnitProgress::Device:
        return Workspace::tr("the device information");
    case UnitProgress::SerialPorts:
        return Workspace::tr("the serial ports");
    case UnitProgress::IoLines:
        return Workspace::tr("the IO lines");
    case UnitProgress::Events:
        return Workspace::tr("the events");
    case UnitProgress::Triggers:
        return Workspace::tr("the triggers");
    case UnitProgress::TimeTriggers:
        return Workspace::tr("the time triggers");
    case UnitProgress::Clock:
        return Workspace::tr("the clock");
    case UnitProgress::Upgrade:
        return Workspace::tr("the images");
    }
    Q_UNREACHABLE();
}

QString tableTitle(Table table)
{
    switch (table) {
    case Table::Config:
        return Workspace::tr("serial ports and IO lines");
    case Table::Events:
        return Workspace::tr("events");
    case Table::Triggers:
        return Workspace::tr("triggers and time triggers");
    }
    Q_UNREACHABLE();
}

QString stateText(const QVector<TableOutcome>& tables, bool isReadBack)
{
    const auto wordOf = [isReadBack](TableState state) {
        switch (state) {
        case TableState::Old:
            return Workspace::tr("as before");
        case TableState::New:
            return isReadBack ? Workspace::tr("new") : Workspace::tr("new, but not read back");
        case TableState::Unknown:
            return Workspace::tr("unknown, perhaps some old and some new");
        }
        Q_UNREACHABLE();
    };
    QStringList lines;
    for (const TableOutcome& table : tables)
        lines.append(QStringLiteral("%1: %2").arg(tableTitle(table.table), wordOf(table.state)));
    return lines.join(QLatin1Char('\n'));
}

/** The parts that an operation goes through, first and last. */
struct Parts {
    UnitProgress::Part first;
    UnitProgress::Part last;
};

Parts partsOf(UnitRequest::Kind kind)
{
    switch (kind) {
    case UnitRequest::ReadAll:
        return {UnitProgress::Device, UnitProgress::Clock};
    case UnitRequest::WriteConfig:
        return {UnitProgress::SerialPorts, UnitProgress::IoLines};
    case UnitRequest::WriteEvents:
        return {UnitProgress::Events, UnitProgress::Events};
    case UnitRequest::WriteTriggers:
        return {UnitProgress::Triggers, UnitProgress::Triggers};
    case UnitRequest::ReadClock:
    case UnitRequest::SetClock:
        return {UnitProgress::Clock, UnitProgress::Clock};
    case UnitRequest::Upgrade:
        return {UnitProgress::Upgrade, UnitProgress::Upgrade};
    case UnitRequest::ReadDevice:
    case UnitRequest::SetNetwork:
    case UnitRequest::Reset:
    case UnitRequest::WriteRemark:
        return {UnitProgress::Device, UnitProgress::Device};
    }
    Q_UNREACHABLE();
}

/** What comes after something that was reported as done. */
UnitProgress stepAfter(const UnitProgress& done, UnitProgress::Part last)
{
    if (!done.isPartDone())
        return {done.part, done.done + 1, done.total};
    return {static_cast<UnitProgress::Part>(std::min<int>(done.part + 1, last)), 0, 0};
}

QSet<int> idsOf(const Contents& contents)
{
    QSet<int> ids;
    const QVector<Event> events = contents.events.value_or(QVector<Event>());
    for (const Event& event : events)
        ids.insert(event.id);
    return ids;
}

/** Whether triggers run events that are not there. */
bool missesEvents(const Contents& triggers, const Contents& events)
{
    const QSet<int> ids = idsOf(events);
    const auto misses = [&ids](const auto& trigger) {
        return std::any_of(trigger.eventIds.begin(), trigger.eventIds.end(),
            [&ids](int id) { return !ids.contains(id); });
    };
    const auto serial = triggers.triggers.value_or(QVector<Trigger>());
    const auto timed = triggers.timeTriggers.value_or(QVector<TimeTrigger>());
    return std::any_of(serial.begin(), serial.end(), misses)
        || std::any_of(timed.begin(), timed.end(), misses);
}

/**
 * The tables so that a break between two of them leaves no trigger without its events, if that can
 * be: events come before triggers, but after them where events only go.
 */
QVector<Table> writingOrder(const Plan& plan, const Contents& held)
{
    QVector<Table> tables = plan.tables;
    const int events = tables.indexOf(Table::Events);
    const int triggers = tables.indexOf(Table::Triggers);
    if (events < 0 || triggers < 0)
        return tables;
    const bool isBetterAfter = missesEvents(held, plan.result) && !missesEvents(plan.result, held);
    if ((events > triggers) != isBetterAfter)
        qSwap(tables[events], tables[triggers]);
    return tables;
}

/** The changes of some sections alone. */
Difference differenceIn(const Plan& plan, const Contents& before, const Contents& after)
{
    const Difference all = compareContents(before, after);
    Difference written;
    for (const RecordChange& change : all.changes) {
        const auto isWritten = [&change](Table table) {
            return sectionsOf(table).contains(change.section);
        };
        if (std::any_of(plan.tables.begin(), plan.tables.end(), isWritten))
            written.changes.append(change);
    }
    return written;
}

bool concerns(const Difference& difference, Table table)
{
    const QVector<Section> sections = sectionsOf(table);
    return std::any_of(sections.begin(), sections.end(),
        [&difference](Section section) { return difference.concerns(section); });
}

/** What an operation without parts is at; empty for others. */
QString wholeStep(UnitRequest::Kind kind)
{
    switch (kind) {
    case UnitRequest::SetClock:
        return Workspace::tr("setting the clock");
    case UnitRequest::SetNetwork:
        return Workspace::tr("setting the network address");
    case UnitRequest::Reset:
        return Workspace::tr("restarting the unit");
    case UnitRequest::WriteRemark:
        return Workspace::tr("writing the remark");
    default:
        return QString();
    }
}

QString adviceToReach()
{
    return Workspace::tr("check the address, the network, and that the unit is switched on; then "
                         "try again");
}

} // namespace

QString WorkProgress::text() const
{
    QString part = unit.total > 0 ? unit.text() : partName(unit.part);
    if (unit.total > 0 && unit.part == UnitProgress::Upgrade)
        part = QStringLiteral("%1, %2").arg(partName(unit.part), part);
    switch (phase) {
    case Reading:
        return Workspace::tr("reading %1").arg(part);
    case Writing:
        return Workspace::tr("writing %1").arg(part);
    case ReadingBack:
        return Workspace::tr("reading back %1").arg(part);
    case Waiting:
        return Workspace::tr("waiting until the unit is back");
    }
    Q_UNREACHABLE();
}

QString WorkFailure::text() const
{
    QStringList lines{reason};
    if (!step.isEmpty())
        lines.append(Workspace::tr("failed while %1").arg(step));
    if (!state.isEmpty())
        lines.append(state);
    if (!advice.isEmpty())
        lines.append(advice);
    return lines.join(QLatin1Char('\n'));
}

class UnitWork::Private {
public:
    Private(const UnitAddress& address, const WorkOptions& options)
        : m_options(options)
        , m_lock(options.folders.locks)
        , m_session(address, options.link)
    {
    }

    UnitSession& session() { return m_session; }

    WorkResult read(WorkProgress::Phase phase, const ProgressHandler& progress);
    WorkResult readDevice();
    WorkResult apply(const Plan& plan, const QString& change, const ProgressHandler& progress);
    WorkResult run(const UnitRequest& request, const ProgressHandler& progress);
    WorkResult upgrade(
        const UpgradeImages& images, int returnTime, const ProgressHandler& progress);
    void abort() noexcept;

private:
    UnitResult runOnUnit(
        const UnitRequest& request, WorkProgress::Phase phase, const ProgressHandler& progress);
    WorkFailure takeAddress();
    WorkFailure claim(const Device& device);
    WorkFailure failureOf(const LinkFailure& failure) const;
    void writeTables(const Plan& plan, const ProgressHandler& progress, WorkResult& result);
    void readBack(const Plan& plan, const ProgressHandler& progress, WorkResult& result);
    WorkResult awaitReturn(const QString& oldVersion, int returnTime);
    QString whereItWas(const WorkResult& result) const;

    const WorkOptions m_options;
    UnitLock m_lock;
    UnitSession m_session;
    std::atomic<bool> m_isAborted{false};
    /** What is being done; of the operation that runs, or ran last. */
    WorkProgress m_step;
    /** The unit has reported its serial number, and is ours. */
    bool m_isClaimed = false;
    /** What the unit holds, from the last read to the next change. */
    std::optional<Contents> m_held;
};

UnitResult UnitWork::Private::runOnUnit(
    const UnitRequest& request, WorkProgress::Phase phase, const ProgressHandler& progress)
{
    const Parts parts = partsOf(request.kind());
    m_step = {phase, {parts.first, 0, 0}};
    return m_session.run(request, [&](const UnitProgress& done) {
        m_step.unit = stepAfter(done, parts.last);
        if (progress)
            progress({phase, done});
    });
}

WorkFailure UnitWork::Private::takeAddress()
{
    WorkFailure failure;
    m_lock.takeAddress(m_session.address(), failure.reason);
    return failure;
}

/** Makes sure that the unit is the right one, and no one else's. */
WorkFailure UnitWork::Private::claim(const Device& device)
{
    WorkFailure failure;
    const QString address = m_session.address().toText();
    if (m_options.serialNumber != 0 && device.serialNumber != m_options.serialNumber)
        failure.reason =
            Workspace::tr("%1: the unit there has the serial number %2; %3 was expected")
                .arg(address, QString::number(device.serialNumber),
                    QString::number(m_options.serialNumber));
    else if (m_options.modelId && device.modelId != *m_options.modelId)
        failure.reason =
            Workspace::tr("%1: the unit there is of model %2; %3 was expected")
                .arg(address, modelText(device.modelId), modelText(*m_options.modelId));
    if (failure) {
        failure.advice =
            Workspace::tr("find out which unit has which address; nothing was changed");
        return failure;
    }
    m_isClaimed = m_lock.takeSerial(device.serialNumber, failure.reason);
    return failure;
}

WorkFailure UnitWork::Private::failureOf(const LinkFailure& failure) const
{
    const QString unit = m_session.address().toText();
    WorkFailure work;
    work.error = failure.error;
    work.reason = failure.text.contains(unit) ? failure.text
                                              : QStringLiteral("%1: %2").arg(unit, failure.text);
    work.step = m_step.text();
    return work;
}

WorkResult UnitWork::Private::readDevice()
{
    WorkResult result;
    result.failure = takeAddress();
    if (result.failure)
        return result;
    const UnitResult read = runOnUnit(UnitRequest::readDevice(), WorkProgress::Reading, {});
    if (!read) {
        result.failure = failureOf(read.failure);
        result.failure.advice = m_isAborted ? QString() : adviceToReach();
        return result;
    }
    result.contents.device = deviceOf(read.data.device);
    result.failure = claim(*result.contents.device);
    return result;
}

WorkResult UnitWork::Private::read(WorkProgress::Phase phase, const ProgressHandler& progress)
{
    WorkResult result;
    m_held.reset();
    result.failure = takeAddress();
    if (result.failure)
        return result;
    const UnitResult read = runOnUnit(UnitRequest::readAll(), phase, progress);
    if (!read) {
        result.failure = failureOf(read.failure);
        result.failure.advice = m_isAborted ? QString() : adviceToReach();
        return result;
    }
    result.contents = contentsOf(read.data);
    result.failure = claim(*result.contents.device);
    if (!result.failure)
        m_held = result.contents;
    return result;
}

QString UnitWork::Private::whereItWas(const WorkResult& result) const
{
    return Workspace::tr("what it held before is in %1").arg(result.backup->path);
}

WorkResult UnitWork::Private::apply(
    const Plan& plan, const QString& change, const ProgressHandler& progress)
{
    WorkResult result;
    if (!m_held || !plan.isAllowed()) {
        result.failure.reason = !m_held
            ? Workspace::tr("%1: the unit has to be read first").arg(m_session.address().toText())
            : Workspace::tr("%1: the plan has errors").arg(m_session.address().toText());
        result.failure.state = Workspace::tr("nothing was sent to the unit");
        return result;
    }
    result.contents = *m_held;
    if (plan.isEmpty())
        return result;
    const QVector<Table> tables = writingOrder(plan, *m_held);
    for (const Table table : tables)
        result.tables.append({table, TableState::Old});

    Contents saved = *m_held;
    saved.clock.reset();
    QString error;
    result.backup =
        Backups(m_options.folders.backups)
            .keep(saved.device->serialNumber, writeDocument(saved, Form::Yaml), change, error);
    if (!result.backup) {
        result.failure.reason = Workspace::tr("the backup cannot be written: %1").arg(error);
        result.failure.state = Workspace::tr("nothing was sent to the unit");
        result.failure.advice = Workspace::tr("make it possible to write there; then try again");
        return result;
    }
    writeTables(plan, progress, result);
    if (!result.failure)
        readBack(plan, progress, result);
    return result;
}

void UnitWork::Private::writeTables(
    const Plan& plan, const ProgressHandler& progress, WorkResult& result)
{
    for (TableOutcome& outcome : result.tables) {
        // After an abort nothing goes out.
        outcome.state = m_isAborted ? TableState::Old : TableState::Unknown;
        const UnitResult written =
            runOnUnit(requestFor(outcome.table, plan.result), WorkProgress::Writing, progress);
        if (!written) {
            m_held.reset();
            result.failure = failureOf(written.failure);
            result.failure.state = stateText(result.tables, true);
            result.failure.advice = Workspace::tr("write the same again when the unit answers; %1")
                                        .arg(whereItWas(result));
            return;
        }
        outcome.state = TableState::New;
    }
}

void UnitWork::Private::readBack(
    const Plan& plan, const ProgressHandler& progress, WorkResult& result)
{
    const Contents before = *m_held;
    WorkResult found = read(WorkProgress::ReadingBack, progress);
    if (found.failure) {
        result.failure = found.failure;
        result.failure.state = stateText(result.tables, false);
        result.failure.advice =
            Workspace::tr("read the unit when it answers, and compare; %1").arg(whereItWas(result));
        return;
    }
    result.contents = found.contents;
    result.deviation = differenceIn(plan, plan.result, found.contents);
    if (result.deviation.isEmpty())
        return;
    const Difference kept = differenceIn(plan, before, found.contents);
    for (TableOutcome& outcome : result.tables) {
        if (concerns(result.deviation, outcome.table))
            outcome.state = concerns(kept, outcome.table) ? TableState::Unknown : TableState::Old;
    }
    m_held.reset();
    result.failure.reason = Workspace::tr("%1: the unit does not hold what was written to it")
                                .arg(m_session.address().toText());
    result.failure.state = stateText(result.tables, true);
    result.failure.advice = Workspace::tr("write the same again; %1").arg(whereItWas(result));
}

WorkResult UnitWork::Private::run(const UnitRequest& request, const ProgressHandler& progress)
{
    WorkResult result;
    if (!m_isClaimed)
        result = readDevice();
    if (result.failure)
        return result;
    m_held.reset();
    const auto phase =
        request.kind() == UnitRequest::ReadClock ? WorkProgress::Reading : WorkProgress::Writing;
    const UnitResult done = runOnUnit(request, phase, progress);
    if (!done) {
        result.failure = failureOf(done.failure);
        const QString step = wholeStep(request.kind());
        if (!step.isEmpty())
            result.failure.step = step;
    } else if (!done.data.clock.isEmpty()) {
        result.contents.clock = done.data.clock;
    }
    return result;
}

WorkResult UnitWork::Private::upgrade(
    const UpgradeImages& images, int returnTime, const ProgressHandler& progress)
{
    WorkResult result = readDevice();
    if (result.failure)
        return result;
    const QString oldVersion = result.contents.device->version;
    result = run(UnitRequest::upgrade(images.streamed, images.addressed), progress);
    if (result.failure) {
        result.failure.state = Workspace::tr("the unit may hold half an image");
        result.failure.advice =
            Workspace::tr("run the upgrade again, without switching the unit off");
        return result;
    }
    if (progress)
        progress({WorkProgress::Waiting, {}});
    result = awaitReturn(oldVersion, returnTime);
    if (result.failure)
        return result;
    result.failure.reason =
        versionFault(images.descriptor, oldVersion, result.contents.device->version);
    if (result.failure) {
        result.failure.reason =
            QStringLiteral("%1: %2").arg(m_session.address().toText(), result.failure.reason);
        result.failure.advice = Workspace::tr("check the images and the descriptor; then run the "
                                              "upgrade again");
    }
    return result;
}

/** The device once the unit is back. */
WorkResult UnitWork::Private::awaitReturn(const QString& oldVersion, int returnTime)
{
    QElapsedTimer elapsed;
    elapsed.start();
    bool wasAway = false;
    while (elapsed.elapsed() < returnTime && !m_isAborted) {
        QThread::msleep(attemptPause);
        wasAway = wasAway || !m_session.isConnected();
        WorkResult found = readDevice();
        if (found.failure) {
            wasAway = true;
            continue;
        }
        const bool hasChanged = found.contents.device->version != oldVersion;
        if (wasAway || hasChanged || elapsed.elapsed() > unseenRestart)
            return found;
    }
    WorkResult result;
    m_step.phase = WorkProgress::Waiting;
    if (m_isAborted) {
        result.failure = failureOf({LinkError::Cancelled, Workspace::tr("cancelled")});
        result.failure.advice = Workspace::tr("read the unit's version when it is back");
    } else {
        result.failure.reason =
            Workspace::tr("%1: the unit has not come back within %2 s")
                .arg(m_session.address().toText(), QString::number(returnTime / 1000.0));
        result.failure.step = m_step.text();
        result.failure.advice =
            Workspace::tr("look for the unit in the network; it may have got another address");
    }
    result.failure.state = Workspace::tr("both images were sent");
    return result;
}

void UnitWork::Private::abort() noexcept
{
    m_isAborted = true;
    m_session.abort();
}

UnitWork::UnitWork(const UnitAddress& address, const WorkOptions& options)
    : d(std::make_unique<Private>(address, options))
{
}

UnitWork::~UnitWork() = default;

UnitAddress UnitWork::address() const
{
    return d->session().address();
}

WorkResult UnitWork::readDevice()
{
    return d->readDevice();
}

WorkResult UnitWork::read(const ProgressHandler& progress)
{
    return d->read(WorkProgress::Reading, progress);
}

WorkResult UnitWork::apply(const Plan& plan, const QString& change, const ProgressHandler& progress)
{
    return d->apply(plan, change, progress);
}

WorkResult UnitWork::run(const UnitRequest& request, const ProgressHandler& progress)
{
    return d->run(request, progress);
}

WorkResult UnitWork::upgrade(
    const UpgradeImages& images, int returnTime, const ProgressHandler& progress)
{
    return d->upgrade(images, returnTime, progress);
}

void UnitWork::abort() noexcept
{
    d->abort();
}

} // namespace QuadrelWorkspace
