// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "commands.h"
#include "consent.h"
#include "console.h"
#include "files.h"
#include "tool.h"
#include "unitchange.h"

#include <backups.h>

using namespace QuadrelDocument;
using namespace QuadrelWorkspace;

namespace {

/** Taking back an "undo" does again what that took back. */
QString nameOfUndoing(const QString& change)
{
    const QString undo = QStringLiteral("undo ");
    return change.startsWith(undo) ? change.mid(undo.size()) : undo + change;
}

} // namespace

void runUndo(const UndoOptions& options)
{
    Console::outliveReader();
    Consent::requirePossible(options.dryRun);
    UnitAccess unit(options.unit);
    const Contents held = unit.read();
    const quint64 serialNumber = held.device->serialNumber;
    const std::optional<Backup> backup =
        Backups(UserFolders::ofUser().backups).newest(serialNumber);
    if (!backup)
        throw CommandFailure{Tool::tr("%1: nothing to undo: the unit with serial number %2 was not "
                                      "changed from here")
                                 .arg(unit.address().toText(), QString::number(serialNumber))};
    Console::remark(
        Tool::tr("Back to what was before \"%1\", from %2").arg(backup->change, backup->path));
    UnitChange change;
    const LoadedFile file = loadReadable(backup->path);
    change.wanted = file.contents;
    change.positions = file.positions;
    change.file = backup->path;
    change.name = nameOfUndoing(backup->change);
    change.dryRun = options.dryRun;
    carryOut(unit, held, change);
}
