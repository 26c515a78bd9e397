// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "sitecommands.h"

#include "consent.h"
#include "console.h"
#include "discovery.h"
#include "interrupts.h"
#include "inventoryfile.h"
#include "json.h"
#include "sitereport.h"
#include "sitework.h"
#include "table.h"
#include "tool.h"

#include <QtCore/QFileInfo>

using namespace QuadrelWorkspace;

namespace {

/** The inventory as it is; an empty one if there is none yet. */
LoadedSite presentInventory(const SiteOptions& options)
{
    return QFileInfo::exists(options.inventory) ? loadInventory(options) : LoadedSite();
}

/** Who has answered a search, each asked for its serial number and model. */
UnitReports askUnits(const SiteOptions& options, const Site& site, const FoundUnits& found)
{
    ChosenUnits chosen;
    chosen.site = site;
    for (const serverData& answer : found) {
        SiteUnit unit;
        unit.address = addressOf(answer);
        unit.name = unit.address.toText();
        chosen.units.append(unit);
    }
    SiteWork work;
    work.command = [](const SiteUnit& unit) {
        return QStringList{QStringLiteral("info"), QStringLiteral("--json"),
            QStringLiteral("--unit"), unit.address.toText()};
    };
    work.report = [](const SiteUnit& unit, const WorkerResult& result) {
        return reportOf(unit, result, UnitOutcome::Answers);
    };
    work.stages = withoutStages();
    return doWork(options, chosen, chosen.units, work);
}

QVector<FoundUnit> unitsOf(const UnitReports& reports)
{
    QVector<FoundUnit> found;
    for (const UnitReport& report : reports) {
        if (!report.isFailure())
            found.append({report.address,
                report.data.value(QStringLiteral("serialNumber")).toString().toULongLong(),
                report.data.value(QStringLiteral("modelId")).toInt()});
    }
    return found;
}

bool isEmpty(const SiteChanges& changes)
{
    return changes.added.isEmpty() && changes.moved.isEmpty() && changes.replaced.isEmpty()
        && changes.vanished.isEmpty();
}

Page toTable(const SiteChanges& changes)
{
    Table table({Tool::tr("What"), Tool::tr("Name"), Tool::tr("Unit"), Tool::tr("Serial number")});
    for (const SiteUnit& unit : changes.added)
        table.addRow({Tool::tr("new"), unit.name, unit.address.toText(),
            QString::number(unit.serialNumber)});
    for (const MovedUnit& unit : changes.moved)
        table.addRow({Tool::tr("moved"), unit.name,
            QStringLiteral("%1 -> %2").arg(unit.before.toText(), unit.after.toText())});
    for (const ReplacedUnit& unit : changes.replaced)
        table.addRow({Tool::tr("replaced"), unit.name, unit.address.toText(),
            QStringLiteral("%1 -> %2").arg(unit.before).arg(unit.after)});
    for (const QString& name : changes.vanished)
        table.addRow({Tool::tr("vanished"), name});
    return table.toPage(Console::pageWidth());
}

QJsonObject toJson(const SiteChanges& changes)
{
    QJsonArray added;
    for (const SiteUnit& unit : changes.added)
        added.append(QJsonObject{{QStringLiteral("name"), unit.name},
            {QStringLiteral("address"), unit.address.toText()},
            {QStringLiteral("serialNumber"), QString::number(unit.serialNumber)}});
    QJsonArray moved;
    for (const MovedUnit& unit : changes.moved)
        moved.append(QJsonObject{{QStringLiteral("name"), unit.name},
            {QStringLiteral("before"), unit.before.toText()},
            {QStringLiteral("after"), unit.after.toText()}});
    QJsonArray replaced;
    for (const ReplacedUnit& unit : changes.replaced)
        replaced.append(QJsonObject{{QStringLiteral("name"), unit.name},
            {QStringLiteral("address"), unit.address.toText()},
            {QStringLiteral("before"), QString::number(unit.before)},
            {QStringLiteral("after"), QString::number(unit.after)}});
    return {{QStringLiteral("new"), added}, {QStringLiteral("moved"), moved},
        {QStringLiteral("replaced"), replaced},
        {QStringLiteral("vanished"), QJsonArray::fromStringList(changes.vanished)}};
}

} // namespace

void runSiteDiscover(const SiteDiscoverOptions& options)
{
    if (options.add)
        Consent::requirePossible(options.dryRun);
    const LoadedSite inventory = presentInventory(options);
    const UnitReports reports = askUnits(options, inventory.site, searchNetwork(SearchEnd::OfTime));
    Interrupts::throwIfPending();
    const SiteChanges changes = compareFound(inventory.site, unitsOf(reports));
    if (options.json)
        printJson(toJson(changes));
    else if (!isEmpty(changes))
        Console::print(toTable(changes));
    else
        Console::remark(Tool::tr("The inventory has all units that answered, and no other."));
    const bool hasWork = !changes.added.isEmpty() || !changes.moved.isEmpty();
    if (options.add && hasWork)
        putInventory(options, inventory.text, applyChanges(inventory.text, changes), true);
    if (!changes.replaced.isEmpty())
        Console::note(Tool::tr("Another unit is at the address of a replaced one: change its "
                               "serial number in the inventory if that is right."));
    noteFailures(reports);
    for (const UnitReport& report : reports) {
        if (report.isFailure())
            throw CommandFailure{QString()};
    }
    const bool isLeft = !changes.replaced.isEmpty() || !changes.vanished.isEmpty();
    if (isLeft || (hasWork && (!options.add || options.dryRun)))
        throw CommandFailure{QString(), Different};
}
