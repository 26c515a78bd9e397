// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "commands.h"
#include "consent.h"
#include "console.h"
#include "images.h"
#include "table.h"
#include "tool.h"
#include "unitaccess.h"

namespace {

void showRemark(const RemarkOptions& options, const UnitAccess& unit)
{
    Table table;
    table.addRow({Tool::tr("Unit"), unit.address().toText()});
    table.addRow({Tool::tr("Streamed image"), options.streamedFile});
    Console::print(table.toPage(Console::pageWidth()));
}

} // namespace

void runRemark(const RemarkOptions& options)
{
    Console::outliveReader();
    Consent::requirePossible(options.dryRun);
    const QByteArray image = loadImage(options.streamedFile, false);
    UnitAccess unit(options.unit);
    showRemark(options, unit);
    const QString question = Tool::tr("Write the remark of %1 to %2?")
                                 .arg(options.streamedFile, unit.address().toText());
    if (!Consent::given(question, options.dryRun))
        return;
    unit.run(UnitRequest::writeRemark(image));
    Console::remark(Tool::tr("The remark of %1 was written.").arg(options.streamedFile));
}
