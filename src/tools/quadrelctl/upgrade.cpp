// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "commands.h"
#include "consent.h"
#include "console.h"
#include "images.h"
#include "json.h"
#include "table.h"
#include "tool.h"
#include "unitaccess.h"
#include "upgradeprogress.h"

using namespace QuadrelWorkspace;

namespace {

UpgradeImages loadImages(const UpgradeOptions& options)
{
    UpgradeImages images;
    images.streamed = loadImage(options.streamedFile, options.force);
    images.addressed = loadImage(options.addressedFile, options.force);
    if (options.descriptorFile.isEmpty())
        return images;
    QString error;
    images.descriptor = readDescriptor(options.descriptorFile, error);
    if (!images.descriptor)
        throw CommandFailure{error};
    return images;
}

QString sizeText(const QString& path, const QByteArray& image)
{
    return Tool::tr("%1, %n byte(s)", nullptr, image.size()).arg(path);
}

void showUpgrade(const UpgradeOptions& options, const UpgradeImages& images,
    const QuadrelDocument::Device& device)
{
    Table table;
    table.addRow({Tool::tr("Unit"), options.unit.toText()});
    table.addRow({Tool::tr("Serial number"), QString::number(device.serialNumber)});
    table.addRow({Tool::tr("Version"), device.version});
    if (images.descriptor)
        table.addRow({Tool::tr("New version"), images.descriptor->version});
    table.addRow({Tool::tr("Streamed image"), sizeText(options.streamedFile, images.streamed)});
    table.addRow({Tool::tr("Addressed image"), sizeText(options.addressedFile, images.addressed)});
    Console::print(table.toPage(Console::pageWidth()));
}

} // namespace

void runUpgrade(const UpgradeOptions& options)
{
    Console::outliveReader();
    Consent::requirePossible(options.dryRun);
    const UpgradeImages images = loadImages(options);

    UnitAccess unit(options.unit);
    const QuadrelDocument::Device device = unit.readDevice();
    if (images.descriptor)
        refuseDoubts(descriptorDoubts(*images.descriptor,
                         static_cast<unsigned short>(device.modelId), device.version),
            options.force);
    if (!options.json)
        showUpgrade(options, images, device);
    if (!Consent::given(Tool::tr("Replace the unit's firmware?"), options.dryRun))
        return;
    UpgradeProgress progress;
    const QuadrelDocument::Device upgraded =
        unit.upgrade(images, [&progress](const WorkProgress& step) { progress.show(step); });
    if (options.json)
        printJson(QJsonObject{{QStringLiteral("before"), device.version},
            {QStringLiteral("version"), upgraded.version}});
    else
        Console::remark(Tool::tr("The unit is back with version %1; it was %2.")
                            .arg(upgraded.version, device.version));
}
