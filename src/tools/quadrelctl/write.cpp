// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "commands.h"
#include "consent.h"
#include "console.h"
#include "files.h"
#include "sections.h"
#include "tool.h"
#include "unitchange.h"

#include <QtCore/QFileInfo>

using namespace QuadrelDocument;

void runWrite(const WriteOptions& options)
{
    Console::outliveReader();
    Consent::requirePossible(options.dryRun);
    const LoadedFile file = loadWithoutErrors(options.file);
    const QStringList missing = missingSections(file.contents, options.only);
    if (!missing.isEmpty())
        throw CommandFailure{Tool::tr("%1: the section \"%2\" is missing or empty")
                                 .arg(options.file, missing.first())};

    UnitAccess unit(options.unit);
    UnitChange change;
    change.wanted = onlySections(file.contents, options.only);
    change.positions = file.positions;
    change.file = options.file;
    change.plan.otherUnit = options.otherUnit;
    change.plan.fromProject = file.form == Form::Project;
    change.name = QStringLiteral("write %1").arg(QFileInfo(options.file).fileName());
    change.dryRun = options.dryRun;
    change.json = options.json;
    carryOut(unit, unit.read(), change);
}
