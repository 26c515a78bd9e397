// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "commands.h"
#include "console.h"
#include "preferences.h"
#include "sections.h"

#include <unitdocument.h>

using namespace QuadrelDocument;

namespace {

/** The records of a file, and those of its fields that are single values. */
QStringList pathsOf(const QString& file)
{
    const Contents contents = loadFile(file).contents;
    QStringList paths;
    const auto add = [&](Section section, int count, const QStringList& fields) {
        for (int index = 0; index < count; ++index) {
            paths.append(pathOf({section, index, QString()}, contents));
            for (const QString& field : fields)
                paths.append(pathOf({section, index, field}, contents));
        }
    };
    const auto sizeOf = [](const auto& list) { return list ? list->size() : 0; };
    const QString description = QStringLiteral("description");
    add(Section::SerialPorts, sizeOf(contents.serialPorts),
        {QStringLiteral("baudRate"), QStringLiteral("dataBits"), QStringLiteral("stopBits"),
            QStringLiteral("inspection")});
    add(Section::IoLines, sizeOf(contents.ioLines), {QStringLiteral("type")});
    add(Section::Events, sizeOf(contents.events), {QStringLiteral("name"), description});
    add(Section::Triggers, sizeOf(contents.triggers),
        {QStringLiteral("line"), QStringLiteral("parameter"), description});
    add(Section::TimeTriggers, sizeOf(contents.timeTriggers),
        {QStringLiteral("time"), description});
    return paths;
}

QStringList wordsOf(const CompleteOptions& options)
{
    if (options.kind == QStringLiteral("units"))
        return Preferences::user().units.keys();
    return options.kind == QStringLiteral("sections") ? sectionNames() : pathsOf(options.file);
}

} // namespace

void runComplete(const CompleteOptions& options)
{
    const QStringList words = wordsOf(options);
    for (const QString& word : words)
        Console::print(word + QLatin1Char('\n'));
}
