// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitdocument.h"

#include "contentscheck.h"
#include "contentstree.h"
#include "documenttext.h"
#include "projectdocument.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>
#include <QtCore/QTemporaryDir>

#include <algorithm>

namespace QuadrelDocument {

namespace {

Finding withoutPlace(const QString& text)
{
    Finding finding;
    finding.text = text;
    return finding;
}

/** The bytes of a regular file, or a finding. */
std::optional<QByteArray> bytesOf(const QString& path, Findings& findings)
{
    const QFileInfo info(path);
    QFile file(path);
    if (info.exists() && !info.isFile())
        findings.append(withoutPlace(Text::tr("not a regular file")));
    else if (path.isEmpty() || path.contains(QChar::Null) || !file.open(QIODevice::ReadOnly))
        findings.append(
            withoutPlace(Text::tr("the file can't be read: %1").arg(file.errorString())));
    else if (file.size() > maximumDocumentSize)
        findings.append(withoutPlace(sizeFault()));
    else
        return file.read(maximumDocumentSize);
    return std::nullopt;
}

/** Adds what is wrong with the contents, unless the text says something wrong of the same. */
void addChecks(LoadedFile& file)
{
    const Findings ofText = file.findings;
    const Findings checks = checkContents(file.contents, file.positions);
    for (const Finding& check : checks) {
        const bool isKnown = std::any_of(ofText.begin(), ofText.end(), [&](const Finding& finding) {
            return finding.path == check.path
                || (check.position.line > 0 && finding.position == check.position);
        });
        if (!isKnown && !(hasErrors(ofText) && check.severity == Severity::Note))
            file.findings.append(check);
    }
    sortByPosition(file.findings);
}

/** The library writes by path. */
std::optional<QByteArray> projectText(const Contents& contents)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("project.xml"));
    if (!folder.isValid() || !writeProject(path, contents))
        return std::nullopt;
    Findings findings;
    return bytesOf(path, findings);
}

} // namespace

std::optional<Form> formOfFile(const QString& path)
{
    const QString ending = QFileInfo(path).suffix().toLower();
    if (ending == QLatin1String("yaml") || ending == QLatin1String("yml"))
        return Form::Yaml;
    if (ending == QLatin1String("json"))
        return Form::Json;
    if (ending == QLatin1String("xml"))
        return Form::Project;
    return std::nullopt;
}

Document parseDocument(const QByteArray& given, Form form)
{
    Document document;
    const QByteArray text = withoutMark(given);
    try {
        return documentOf(readTree(text, form));
    } catch (const Refusal& refusal) {
        Finding finding = withoutPlace(refusal.text);
        finding.position = PositionFinder(text).at(refusal.offset);
        document.findings.append(finding);
    }
    return document;
}

QByteArray writeDocument(const Contents& contents, Form form)
{
    const DocumentNode tree = treeOf(contents);
    return form == Form::Json ? jsonText(tree) : yamlText(tree);
}

LoadedFile loadFile(const QString& path)
{
    LoadedFile file;
    const std::optional<Form> form = formOfFile(path);
    if (!form) {
        file.findings.append(withoutPlace(
            Text::tr("the ending says nothing; .yaml, .yml, .json and .xml are known")));
        return file;
    }
    file.form = *form;
    const std::optional<QByteArray> text = bytesOf(path, file.findings);
    if (!text)
        return file;
    file.text = *text;
    const Document document =
        file.form == Form::Project ? parseProject(path, *text) : parseDocument(*text, file.form);
    file.contents = document.contents;
    file.positions = document.positions;
    file.findings = document.findings;
    addChecks(file);
    return file;
}

QString saveFile(const QString& path, const Contents& contents)
{
    const std::optional<Form> form = formOfFile(path);
    if (!form)
        return Text::tr("the ending says nothing; .yaml, .yml, .json and .xml are known");
    Contents saved = contents;
    saved.clock.reset();
    if (*form != Form::Project)
        return saveText(path, writeDocument(saved, *form));
    const std::optional<QByteArray> text = projectText(saved);
    return text ? saveText(path, *text) : Text::tr("the project file can't be made");
}

QString saveText(const QString& path, const QByteArray& text)
{
    const QFileInfo info(path);
    if (info.exists() && !info.isFile())
        return Text::tr("not a regular file");
    if (info.exists() && !info.isWritable())
        return Text::tr("the file is write-protected");
    QSaveFile file(path);
    const bool isSaved =
        file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit();
    return isSaved ? QString() : file.errorString();
}

} // namespace QuadrelDocument
