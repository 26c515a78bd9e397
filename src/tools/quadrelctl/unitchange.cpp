// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitchange.h"

#include "consent.h"
#include "console.h"
#include "differenceview.h"
#include "files.h"
#include "json.h"
#include "tool.h"

#include <QtCore/QJsonArray>

using namespace QuadrelDocument;
using namespace QuadrelWorkspace;

namespace {

QJsonArray tablesToJson(const QVector<Table>& tables)
{
    QJsonArray names;
    for (const Table table : tables)
        names.append(tableName(table));
    return names;
}

/** What each table holds after a failure. */
QJsonObject statesToJson(const QVector<TableOutcome>& tables)
{
    const auto wordOf = [](TableState state) {
        switch (state) {
        case TableState::Old:
            return QStringLiteral("old");
        case TableState::New:
            return QStringLiteral("new");
        case TableState::Unknown:
            return QStringLiteral("unknown");
        }
        Q_UNREACHABLE();
    };
    QJsonObject states;
    for (const TableOutcome& table : tables)
        states.insert(tableName(table.table), wordOf(table.state));
    return states;
}

void printOutcome(const Plan& plan, const WorkResult* result)
{
    const bool isWritten = result != nullptr && !plan.isEmpty() && !result->failure;
    QJsonObject object{{QStringLiteral("written"), isWritten},
        {QStringLiteral("tables"), tablesToJson(plan.tables)},
        {QStringLiteral("difference"), differenceJson(plan.difference)}};
    if (result && result->backup)
        object.insert(QStringLiteral("backup"), result->backup->path);
    if (result && result->failure)
        object.insert(QStringLiteral("states"), statesToJson(result->tables));
    printJson(object);
}

} // namespace

void carryOut(UnitAccess& unit, const Contents& held, const UnitChange& change)
{
    const Plan plan = makePlan(change.wanted, held, change.plan, change.positions);
    requireNoErrors(plan.findings, change.file);
    if (!change.json)
        Console::print(differencePage(plan.difference));
    if (plan.isEmpty()) {
        if (change.json)
            printOutcome(plan, nullptr);
        else
            Console::remark(Tool::tr("The unit holds all of this already; nothing is written."));
        return;
    }
    const QString question =
        Tool::tr("Write %n change(s) to %1?", nullptr, plan.difference.changes.size())
            .arg(unit.address().toText());
    const bool isDryRun = change.dryRun;
    if (isDryRun && change.json) {
        printOutcome(plan, nullptr);
        return;
    }
    if (!Consent::given(question, isDryRun))
        return;
    const WorkResult result = unit.apply(plan, change.name);
    if (change.json)
        printOutcome(plan, &result);
    throwFailure(result.failure);
    if (!change.json)
        Console::remark(
            Tool::tr("Written and read back. \"quadrelctl undo --unit %1\" takes it back.")
                .arg(unit.address().toText()));
}
