#include "commands.h"
#include "console.h"
#include "contentsjson.h"
#include "contentstables.h"
#include "discovery.h"
#include "projectfile.h"
#include "savefile.h"
#include "session.h"

void runRead(const ReadOptions& options)
{
    if (!options.file.isEmpty())
        requireSavable(options.file);
    Session session(options.discover ? findOnlyUnit() : options.unit);
    const Contents contents = Contents::of(session.readEverything());

    if (options.json)
        printJson(contentsToJson(contents));
    else
        Console::print(contentsTables(contents));
    if (options.file.isEmpty())
        return;
    // What was read is not lost with a file that can't be written.
    saveProjectFile(options.file, contents);
    const QStringList losses = lossesOfSaving(contents);
    for (const QString& loss : losses)
        Console::warn(loss);
}
