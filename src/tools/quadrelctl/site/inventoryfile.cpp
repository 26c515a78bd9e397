// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "inventoryfile.h"

#include "consent.h"
#include "console.h"
#include "savefile.h"
#include "tool.h"

#include <algorithm>

using namespace QuadrelWorkspace;

namespace {

QStringList linesOf(const QByteArray& text)
{
    QStringList lines = QString::fromUtf8(text).split(QLatin1Char('\n'));
    if (lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

/** Whether lines are the next ones, so that what is ahead of them came or went. */
int distanceTo(const QStringList& lines, int from, const QString& line)
{
    const int place = lines.indexOf(line, from);
    return place < 0 ? lines.size() - from : place - from;
}

/** The lines that go and come; the inventory's changes are whole lines and keep their order. */
Page changedLines(const QByteArray& before, const QByteArray& after)
{
    const QStringList old = linesOf(before);
    const QStringList changed = linesOf(after);
    Page page;
    int place = 0;
    for (const QString& line : changed) {
        const int gone = distanceTo(old, place, line);
        if (place + gone == old.size()) {
            page.append({QStringLiteral("+ ") + line, Style::Added});
            continue;
        }
        for (int i = 0; i < gone; ++i)
            page.append({QStringLiteral("- ") + old.at(place + i), Style::Removed});
        place += gone + 1;
    }
    for (; place < old.size(); ++place)
        page.append({QStringLiteral("- ") + old.at(place), Style::Removed});
    return page;
}

} // namespace

void putInventory(
    const SiteOptions& options, const QByteArray& text, const EditedSite& edited, bool asks)
{
    if (!edited.error.isEmpty())
        throw CommandFailure{QStringLiteral("%1: %2").arg(options.inventory, edited.error)};
    Console::print(changedLines(text, edited.text));
    if (options.dryRun) {
        Consent::reportDryRun();
        return;
    }
    if (asks && !Consent::given(Tool::tr("Write this to %1?").arg(options.inventory), false))
        return;
    saveFile(options.inventory, edited.text);
}
