// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "commands.h"
#include "console.h"
#include "differenceview.h"
#include "files.h"
#include "json.h"
#include "preferences.h"
#include "tool.h"
#include "unitaccess.h"

#include <QtCore/QFileInfo>

using namespace QuadrelDocument;

namespace {

bool isFile(const QString& text)
{
    return formOfFile(text) || QFileInfo::exists(text);
}

Contents contentsOf(const QString& side)
{
    if (isFile(side))
        return loadReadable(side).contents;
    const std::optional<UnitAddress> address = Preferences::user().addressOf(side);
    if (!address)
        throw CommandFailure{
            Tool::tr("\"%1\" is neither a file nor the name or address of a unit").arg(side)};
    return UnitAccess(*address).read();
}

QString headLine(const QString& mark, const QString& side, const Contents& contents)
{
    const QString line = mark + QLatin1Char(' ') + side;
    if (!contents.device)
        return line;
    const Device& device = *contents.device;
    return Tool::tr("%1  (model %2, serial number %3, version %4)")
        .arg(line, modelText(device.modelId), QString::number(device.serialNumber), device.version);
}

QString notCompared(const Difference& difference)
{
    QStringList names;
    for (const Section section : difference.notCompared)
        names.append(sectionName(section));
    return Tool::tr("not compared, since one side does not have them: %1")
        .arg(names.join(QStringLiteral(", ")));
}

Difference compare(const DiffOptions& options)
{
    const Contents before = contentsOf(options.before);
    const Contents after = contentsOf(options.after);
    const Difference difference = compareContents(before, after);
    if (options.json) {
        printJson(differenceJson(difference));
        return difference;
    }
    if (!difference.isEmpty())
        Console::printPaged(
            Page{{headLine(QStringLiteral("---"), options.before, before), Style::Heading},
                {headLine(QStringLiteral("+++"), options.after, after), Style::Heading}}
            + differencePage(difference));
    if (!difference.notCompared.isEmpty())
        Console::note(notCompared(difference));
    return difference;
}

} // namespace

void runDiff(const DiffOptions& options)
{
    Difference difference;
    try {
        difference = compare(options);
    } catch (CommandFailure& failure) {
        // Exit code 1 is for what differs.
        if (failure.code == Failed)
            failure.code = WrongUsage;
        throw;
    }
    if (!difference.isEmpty())
        throw CommandFailure{QString()};
}
