// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "sitecommands.h"

#include "consent.h"
#include "console.h"
#include "inventoryfile.h"
#include "json.h"
#include "sitework.h"
#include "table.h"
#include "tool.h"
#include "unitaccess.h"

#include <QtCore/QFileInfo>

using namespace QuadrelWorkspace;

namespace {

SiteUnit unitOf(const SiteAddOptions& options)
{
    SiteUnit unit{options.name, options.address, options.serialNumber, options.modelId,
        options.tags, options.document};
    if (!options.read)
        return unit;
    const QuadrelDocument::Device device = UnitAccess(options.address).readDevice();
    unit.serialNumber = device.serialNumber;
    unit.modelId = device.modelId;
    return unit;
}

QJsonObject toJson(const SiteUnit& unit)
{
    QJsonObject object{{QStringLiteral("name"), unit.name},
        {QStringLiteral("address"), unit.address.toText()},
        {QStringLiteral("tags"), QJsonArray::fromStringList(unit.tags)}};
    if (unit.serialNumber != 0)
        object.insert(QStringLiteral("serialNumber"), QString::number(unit.serialNumber));
    if (unit.modelId)
        object.insert(QStringLiteral("modelId"), *unit.modelId);
    if (!unit.document.isEmpty())
        object.insert(QStringLiteral("document"), unit.document);
    return object;
}

Page toTable(const QVector<SiteUnit>& units)
{
    Table table({Tool::tr("Name"), Tool::tr("Unit"), Tool::tr("Serial number"), Tool::tr("Model"),
        Tool::tr("Tags"), Tool::tr("Document")});
    for (const SiteUnit& unit : units)
        table.addRow({unit.name, unit.address.toText(),
            unit.serialNumber == 0 ? QString() : QString::number(unit.serialNumber),
            unit.modelId ? QuadrelDocument::modelText(*unit.modelId) : QString(),
            unit.tags.join(QStringLiteral(", ")), unit.document});
    return table.toPage(Console::pageWidth());
}

} // namespace

void runSiteAdd(const SiteAddOptions& options)
{
    QByteArray text;
    if (QFileInfo::exists(options.inventory))
        text = loadInventory(options).text;
    putInventory(options, text, addUnits(text, {unitOf(options)}), false);
}

void runSiteRemove(const SiteOptions& options)
{
    Consent::requirePossible(options.dryRun);
    const ChosenUnits chosen = chooseUnits(options);
    QStringList names;
    for (const SiteUnit& unit : chosen.units)
        names.append(unit.name);
    const QByteArray text = loadInventory(options).text;
    putInventory(options, text, removeUnits(text, names), true);
}

void runSiteList(const SiteOptions& options)
{
    const ChosenUnits chosen = chooseUnits(options);
    if (!options.json) {
        Console::printPaged(toTable(chosen.units));
        return;
    }
    QJsonArray units;
    for (const SiteUnit& unit : chosen.units)
        units.append(toJson(unit));
    printJson(units);
}
