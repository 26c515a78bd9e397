// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "clocktext.h"
#include "commands.h"
#include "console.h"
#include "differenceview.h"
#include "files.h"
#include "json.h"
#include "table.h"
#include "tool.h"
#include "unitaccess.h"

#include <contentsdifference.h>

using namespace QuadrelDocument;

namespace {

/** Who the unit is and its clock; all that it holds if that is to be compared. */
Contents readUnit(const StatusOptions& options)
{
    UnitAccess unit(options.unit);
    if (!options.file.isEmpty())
        return unit.read();
    Contents contents;
    contents.device = unit.readDevice();
    contents.clock = unit.run(UnitRequest::readClock()).contents.clock;
    return contents;
}

void print(const StatusOptions& options, const Contents& held, const Difference* difference)
{
    ::Table table;
    table.addRow({Tool::tr("Unit"), options.unit.toText()});
    table.addRow({Tool::tr("Model"), modelText(held.device->modelId)});
    table.addRow({Tool::tr("Serial number"), QString::number(held.device->serialNumber)});
    table.addRow({Tool::tr("Version"), held.device->version});
    table.addRow({Tool::tr("Clock"), clockLine(*held.clock)});
    if (difference)
        table.addRow({Tool::tr("Contents"),
            difference->isEmpty()
                ? Tool::tr("the same as in %1").arg(options.file)
                : Tool::tr("%n change(s) from %1", nullptr, difference->changes.size())
                      .arg(options.file)});
    Console::print(table.toPage(Console::pageWidth()));
}

} // namespace

void runStatus(const StatusOptions& options)
{
    std::optional<LoadedFile> file;
    if (!options.file.isEmpty())
        file = loadReadable(options.file);
    const Contents held = readUnit(options);
    std::optional<Difference> difference;
    if (file)
        difference = compareContents(file->contents, held);
    if (!options.json) {
        print(options, held, difference ? &*difference : nullptr);
        return;
    }
    QJsonObject object = clockToJson(*held.clock);
    object.insert(QStringLiteral("device"), deviceToJson(*held.device));
    if (difference)
        object.insert(QStringLiteral("difference"), differenceJson(*difference));
    printJson(object);
}
