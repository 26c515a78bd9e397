#include "commands.h"
#include "console.h"
#include "contentsjson.h"
#include "contentstables.h"
#include "discovery.h"
#include "projectfile.h"
#include "session.h"

void runRead(const ReadOptions& options)
{
    Session session(options.discover ? findOnlyUnit() : options.unit);
    session.readEverything();
    Contents contents = Contents::ofSelectedDevice();
    contents.clock = session.clock();

    if (!options.file.isEmpty())
        saveProjectFile(options.file, contents);
    if (options.json)
        printJson(contentsToJson(contents));
    else
        Console::print(contentsTables(contents));
    if (options.file.isEmpty())
        return;
    const QStringList losses = lossesOfSaving(contents);
    for (const QString& loss : losses)
        Console::warn(loss);
}
