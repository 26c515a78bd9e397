#include "commands.h"
#include "console.h"
#include "imagefile.h"
#include "session.h"
#include "tool.h"

void runRemark(const RemarkOptions& options)
{
    Console::outliveReader();
    const QByteArray image = loadImage(options.streamedFile);
    Session session(options.unit);
    session.run(UnitRequest::writeRemark(image));
    Console::print(Tool::tr("The remark of %1 was written.\n").arg(options.streamedFile));
}
