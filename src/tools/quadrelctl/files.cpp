// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "files.h"

#include "console.h"
#include "savefile.h"
#include "tool.h"

#include <projectdocument.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <algorithm>

using namespace QuadrelDocument;

namespace {

QByteArray projectBytes(const QString& path, const Contents& contents)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("project.xml")));
    if (!folder.isValid())
        throw CommandFailure{QStringLiteral("%1: %2").arg(folder.path(), folder.errorString())};
    if (!writeProject(file.fileName(), contents) || !file.open(QIODevice::ReadOnly))
        throw CommandFailure{Tool::tr("%1: a project file can't be made of this").arg(path)};
    return file.readAll();
}

bool isUnreadable(const LoadedFile& file)
{
    const bool isDocument = file.form != Form::Project && !file.text.isEmpty();
    return hasErrors(isDocument ? parseDocument(file.text, file.form).findings : file.findings);
}

} // namespace

void report(const Findings& findings, const QString& file)
{
    for (const Finding& finding : findings)
        Console::note(messageOf(finding, file));
}

void requireNoErrors(const Findings& findings, const QString& file)
{
    report(findings, file);
    if (hasErrors(findings))
        throw CommandFailure{QString()};
}

LoadedFile loadWithoutErrors(const QString& path)
{
    LoadedFile file = loadFile(path);
    Findings errors = file.findings;
    errors.erase(std::remove_if(errors.begin(), errors.end(),
                     [](const Finding& finding) { return finding.severity != Severity::Error; }),
        errors.end());
    requireNoErrors(errors, path);
    return file;
}

LoadedFile loadReadable(const QString& path)
{
    LoadedFile file = loadFile(path);
    if (isUnreadable(file))
        requireNoErrors(file.findings, path);
    return file;
}

void requireSavable(const QString& path)
{
    requireWritable(path);
    if (!formOfFile(path))
        throw CommandFailure{
            Tool::tr("%1: the name must end in .yaml, .json or .xml").arg(path), WrongUsage};
}

void saveContents(const QString& path, const Contents& contents)
{
    requireSavable(path);
    Contents saved = contents;
    saved.clock.reset();
    const Form form = *formOfFile(path);
    if (form != Form::Project) {
        saveFile(path, writeDocument(saved, form));
        return;
    }
    saveFile(path, projectBytes(path, saved));
    report(lossesInProject(saved), path);
}
