#include "commands.h"
#include "console.h"
#include "contentsjson.h"
#include "contentstables.h"
#include "projectfile.h"
#include "tool.h"

void runShow(const ShowOptions& options)
{
    const ProjectFile file = ProjectFile::load(options.file);
    if (options.json)
        printJson(contentsToJson(file.contents));
    else
        Console::print(contentsTables(file.contents));
    for (const QString& section : file.missing)
        Console::warn(
            Tool::tr("%1: the section \"%2\" is missing or empty").arg(options.file, section));
    for (const QString& warning : file.warnings)
        Console::warn(warning);
}
