// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "commands.h"
#include "console.h"
#include "files.h"
#include "json.h"
#include "tool.h"
#include "unitaccess.h"

#include <QtCore/QFileInfo>

using namespace QuadrelDocument;

namespace {

/** Whether a file is there and says all of this, however it is written. */
bool says(const QString& path, Contents contents)
{
    if (!QFileInfo::exists(path))
        return false;
    contents.clock.reset();
    const LoadedFile file = loadFile(path);
    const bool isDocument = file.form != Form::Project;
    return (isDocument && file.text == writeDocument(contents, file.form))
        || (!hasErrors(file.findings) && file.contents == contents);
}

} // namespace

void runSave(const SaveOptions& options)
{
    requireSavable(options.file);
    const Contents contents = UnitAccess(options.unit).read();
    const bool isWritten = !says(options.file, contents);
    if (isWritten)
        saveContents(options.file, contents);
    if (options.json)
        printJson(QJsonObject{
            {QStringLiteral("file"), options.file}, {QStringLiteral("written"), isWritten}});
    else
        Console::remark((isWritten ? Tool::tr("%1: written") : Tool::tr("%1: the same as before"))
                            .arg(options.file));
}
