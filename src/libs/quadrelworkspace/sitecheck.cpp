// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "sitecheck.h"

#include "workspace.h"

namespace QuadrelWorkspace {

using namespace QuadrelDocument;

namespace {

void compareDevice(const SiteUnit& unit, LoadedFile& file)
{
    const Device& device = *file.contents.device;
    const auto addError = [&file](const QString& field, const QString& text) {
        const Place place{Section::Device, -1, field};
        file.findings.append({Severity::Error, place, file.positions.of(place),
            pathOf(place, file.contents), text, false});
    };
    if (unit.serialNumber != 0 && device.serialNumber != unit.serialNumber)
        addError(QStringLiteral("serialNumber"),
            Workspace::tr("the document is of the unit %1; %2 has %3 in the inventory")
                .arg(QString::number(device.serialNumber), unit.name,
                    QString::number(unit.serialNumber)));
    if (unit.modelId && device.modelId != *unit.modelId)
        addError(QStringLiteral("modelId"),
            Workspace::tr("the document is of model %1; %2 is of model %3 in the inventory")
                .arg(modelText(device.modelId), unit.name, modelText(*unit.modelId)));
}

} // namespace

CheckedDocument checkDocument(const Site& site, const SiteUnit& unit)
{
    CheckedDocument document;
    document.path = site.documentPath(unit);
    if (document.path.isEmpty())
        return document;
    document.file = loadFile(document.path);
    if (document.file.contents.device)
        compareDevice(unit, document.file);
    sortByPosition(document.file.findings);
    return document;
}

} // namespace QuadrelWorkspace
