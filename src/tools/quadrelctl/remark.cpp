#include "commands.h"
#include "consent.h"
#include "console.h"
#include "images.h"
#include "tool.h"
#include "unitaccess.h"

void runRemark(const RemarkOptions& options)
{
    Console::outliveReader();
    Consent::requirePossible(options.dryRun);
    const QByteArray image = loadImage(options.streamedFile, false);
    UnitAccess unit(options.unit);
    const QString question = Tool::tr("Write the remark of %1 to %2?")
                                 .arg(options.streamedFile, unit.address().toText());
    if (!Consent::given(question, options.dryRun))
        return;
    unit.run(UnitRequest::writeRemark(image));
    Console::remark(Tool::tr("The remark of %1 was written.").arg(options.streamedFile));
}
