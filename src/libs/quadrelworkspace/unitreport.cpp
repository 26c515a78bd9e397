// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitreport.h"

#include "workspace.h"

#include <QtCore/QJsonArray>

#include <algorithm>

namespace QuadrelWorkspace {

namespace {

const QString differenceKey = QStringLiteral("difference");
const QString changesKey = QStringLiteral("changes");

/** What is left of a worker's stderr without the lines for programs. */
QString errorText(const WorkerResult& result)
{
    QStringList lines;
    if (result.end != WorkerEnd::Done)
        lines.append(result.reason);
    const QStringList written = result.errors.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString& line : written) {
        if (stepOf(line).isEmpty())
            lines.append(line);
    }
    return lines.isEmpty()
        ? Workspace::tr("the program ended with exit code %1").arg(QString::number(result.exitCode))
        : lines.join(QLatin1Char('\n'));
}

/** Of a worker that compares, or writes what differs. */
int changesIn(const QJsonObject& data)
{
    const QJsonObject difference =
        data.contains(differenceKey) ? data.value(differenceKey).toObject() : data;
    return difference.value(changesKey).toArray().size();
}

} // namespace

QString outcomeWord(UnitOutcome outcome)
{
    switch (outcome) {
    case UnitOutcome::Answers:
        return QStringLiteral("answers");
    case UnitOutcome::Done:
        return QStringLiteral("done");
    case UnitOutcome::Valid:
        return QStringLiteral("valid");
    case UnitOutcome::NoDocument:
        return QStringLiteral("no document");
    case UnitOutcome::Saved:
        return QStringLiteral("saved");
    case UnitOutcome::Unchanged:
        return QStringLiteral("unchanged");
    case UnitOutcome::Same:
        return QStringLiteral("same");
    case UnitOutcome::Differs:
        return QStringLiteral("differs");
    case UnitOutcome::Planned:
        return QStringLiteral("planned");
    case UnitOutcome::Written:
        return QStringLiteral("written");
    case UnitOutcome::Upgraded:
        return QStringLiteral("upgraded");
    case UnitOutcome::Verified:
        return QStringLiteral("verified");
    case UnitOutcome::Failed:
        return QStringLiteral("failed");
    case UnitOutcome::NotBegun:
        return QStringLiteral("not begun");
    }
    Q_UNREACHABLE();
}

WorkerTask workerTask(const WorkerCall& call, const SiteUnit& unit, const QStringList& command)
{
    QStringList arguments = call.options;
    if (unit.serialNumber != 0)
        arguments += {QStringLiteral("--expect-serial"), QString::number(unit.serialNumber)};
    if (unit.modelId)
        arguments += {QStringLiteral("--expect-model"), QString::number(*unit.modelId)};
    arguments += {QStringLiteral("--yes"), QStringLiteral("--quiet"), QStringLiteral("--no-pager"),
        QStringLiteral("--report-steps")};
    return {unit.name, call.program, arguments + command};
}

QString stepOf(const QString& line)
{
    return line.startsWith(QLatin1Char('\t')) ? line.mid(1) : QString();
}

UnitReport reportOf(const SiteUnit& unit, const WorkerResult& result, UnitOutcome success)
{
    UnitReport report{unit.name, unit.address, success, 0, QString(), result.output.object()};
    report.changes = changesIn(report.data);
    if (result.end == WorkerEnd::NotBegun)
        report.outcome = UnitOutcome::NotBegun;
    else if (result.isSuccess() && result.output.isNull())
        return failedReport(unit, Workspace::tr("what the program printed cannot be read"));
    else if (!result.isSuccess() && !report.data.contains(QStringLiteral("same"))) {
        report.outcome = UnitOutcome::Failed;
        report.failure = errorText(result);
    }
    return report;
}

UnitReport failedReport(const SiteUnit& unit, const QString& failure)
{
    return {unit.name, unit.address, UnitOutcome::Failed, 0, failure, QJsonObject()};
}

HeldContents heldAfterWrite(const UnitReport& report)
{
    if (report.outcome == UnitOutcome::NotBegun)
        return HeldContents::Old;
    if (report.outcome != UnitOutcome::Failed)
        return HeldContents::New;
    const QJsonObject states = report.data.value(QStringLiteral("states")).toObject();
    const auto areAll = [&states](const QString& word) {
        return !states.isEmpty()
            && std::all_of(states.begin(), states.end(),
                [&word](const QJsonValue& state) { return state.toString() == word; });
    };
    if (areAll(QStringLiteral("new")))
        return HeldContents::New;
    return areAll(QStringLiteral("old")) ? HeldContents::Old : HeldContents::Unknown;
}

} // namespace QuadrelWorkspace
