// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "sitereport.h"

#include "console.h"
#include "differenceview.h"
#include "interrupts.h"
#include "json.h"
#include "table.h"
#include "tool.h"

#include <contentsdifference.h>

#include <algorithm>

using namespace QuadrelWorkspace;

namespace {

/** So many names of units that need no attention are shown. */
constexpr int namesShown = 20;

QString titleOf(UnitOutcome outcome)
{
    switch (outcome) {
    case UnitOutcome::Answers:
        return Tool::tr("answers");
    case UnitOutcome::Done:
        return Tool::tr("done");
    case UnitOutcome::Valid:
        return Tool::tr("valid");
    case UnitOutcome::NoDocument:
        return Tool::tr("no document");
    case UnitOutcome::Saved:
        return Tool::tr("saved");
    case UnitOutcome::Unchanged:
        return Tool::tr("unchanged");
    case UnitOutcome::Same:
        return Tool::tr("same");
    case UnitOutcome::Differs:
        return Tool::tr("differs");
    case UnitOutcome::Planned:
        return Tool::tr("planned");
    case UnitOutcome::Written:
        return Tool::tr("written");
    case UnitOutcome::Upgraded:
        return Tool::tr("upgraded");
    case UnitOutcome::Verified:
        return Tool::tr("verified");
    case UnitOutcome::Failed:
        return Tool::tr("failed");
    case UnitOutcome::NotBegun:
        return Tool::tr("not begun");
    }
    Q_UNREACHABLE();
}

QStringList namesWith(const UnitReports& reports, UnitOutcome outcome)
{
    QStringList names;
    for (const UnitReport& report : reports) {
        if (report.outcome == outcome)
            names.append(report.name);
    }
    return names;
}

bool needsAttention(UnitOutcome outcome)
{
    return outcome == UnitOutcome::Failed || outcome == UnitOutcome::NotBegun
        || outcome == UnitOutcome::Differs;
}

QString shownNames(const QStringList& names, bool all)
{
    const QString separator = QStringLiteral(", ");
    if (all || names.size() <= namesShown)
        return names.join(separator);
    return QStringList(names.mid(0, namesShown)).join(separator)
        + Tool::tr(" and %n more", nullptr, names.size() - namesShown);
}

Page outcomeTable(const UnitReports& reports)
{
    Table table({Tool::tr("Outcome"), Tool::tr("Units"), Tool::tr("Names")});
    for (int i = 0; i <= static_cast<int>(UnitOutcome::NotBegun); ++i) {
        const auto outcome = static_cast<UnitOutcome>(i);
        const QStringList names = namesWith(reports, outcome);
        if (!names.isEmpty())
            table.addRow({titleOf(outcome), QString::number(names.size()),
                shownNames(names, needsAttention(outcome))});
    }
    return table.toPage(Console::pageWidth());
}

QJsonObject toJson(const UnitReport& report)
{
    QJsonObject object{{QStringLiteral("name"), report.name},
        {QStringLiteral("address"), report.address.toText()},
        {QStringLiteral("outcome"), outcomeWord(report.outcome)}};
    if (!report.failure.isEmpty())
        object.insert(QStringLiteral("error"), report.failure);
    if (!report.data.isEmpty())
        object.insert(QStringLiteral("result"), report.data);
    return object;
}

bool hasAny(const UnitReports& reports, UnitOutcome outcome)
{
    return std::any_of(reports.begin(), reports.end(),
        [outcome](const UnitReport& report) { return report.outcome == outcome; });
}

/** The text of a worker's difference. */
QString textOf(const UnitReport& report)
{
    const QString key = QStringLiteral("difference");
    const QJsonObject difference =
        report.data.contains(key) ? report.data.value(key).toObject() : report.data;
    return differenceText(QuadrelDocument::differenceOfJson(difference));
}

} // namespace

void noteFailures(const UnitReports& reports)
{
    for (const UnitReport& report : reports) {
        if (report.outcome != UnitOutcome::Failed)
            continue;
        const QStringList lines = report.failure.split(QLatin1Char('\n'));
        Console::note(report.name + QStringLiteral(": ") + lines.join(QStringLiteral("\n    ")));
    }
}

QString endLine(const UnitReport& report)
{
    const QString line = QStringLiteral("%1: %2").arg(report.name, titleOf(report.outcome));
    if (!report.failure.isEmpty())
        return QStringLiteral("%1: %2").arg(line, report.failure.section(QLatin1Char('\n'), 0, 0));
    return report.changes == 0 ? line : line + Tool::tr(", %n change(s)", nullptr, report.changes);
}

QJsonObject reportsToJson(const UnitReports& reports)
{
    QJsonArray units;
    QJsonObject outcomes;
    for (const UnitReport& report : reports) {
        units.append(toJson(report));
        const QString word = outcomeWord(report.outcome);
        outcomes.insert(word, outcomes.value(word).toInt() + 1);
    }
    return {{QStringLiteral("units"), units}, {QStringLiteral("outcomes"), outcomes}};
}

Page differencesPage(const UnitReports& reports)
{
    QStringList texts;
    QMap<QString, QStringList> names;
    for (const UnitReport& report : reports) {
        if (report.changes == 0 || report.isFailure())
            continue;
        const QString text = textOf(report);
        if (!names.contains(text))
            texts.append(text);
        names[text].append(report.name);
    }
    Page page;
    for (const QString& text : qAsConst(texts)) {
        page.append({names.value(text).join(QStringLiteral(", ")), Style::Heading});
        page += differencePage(text);
    }
    return page;
}

void finishSite(const UnitReports& reports, bool json, const QJsonObject& more)
{
    if (json) {
        QJsonObject object = reportsToJson(reports);
        for (auto it = more.begin(); it != more.end(); ++it)
            object.insert(it.key(), it.value());
        printJson(object);
    } else {
        noteFailures(reports);
        Console::print(outcomeTable(reports));
    }
    if (Interrupts::arePending())
        throw CommandFailure{Tool::tr("interrupted"), Interrupted};
    if (hasAny(reports, UnitOutcome::Failed) || hasAny(reports, UnitOutcome::NotBegun))
        throw CommandFailure{QString()};
    if (hasAny(reports, UnitOutcome::Differs))
        throw CommandFailure{QString(), Different};
}
