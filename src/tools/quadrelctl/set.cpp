// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "commands.h"
#include "consent.h"
#include "console.h"
#include "edittarget.h"
#include "files.h"
#include "tool.h"

#include <documentedit.h>

using namespace QuadrelDocument;

namespace {

using Edit = EditedText (*)(const QByteArray& text, Form form, const QString& argument);

/** Makes all the edits or none. */
void change(
    const TargetOptions& options, const QString& name, Edit edit, const QStringList& arguments)
{
    if (options.unit) {
        Console::outliveReader();
        Consent::requirePossible(options.dryRun);
    }
    const std::unique_ptr<EditTarget> target = EditTarget::open(options);
    QByteArray text = target->text();
    for (const QString& argument : arguments) {
        const EditedText edited = edit(text, target->form(), argument);
        if (!edited.error.isEmpty())
            throw CommandFailure{edited.error};
        text = edited.text;
    }
    const Findings findings = target->check(text);
    if (hasErrors(findings))
        requireNoErrors(findings);
    target->put(text, name + QLatin1Char(' ') + arguments.join(QLatin1Char(' ')));
}

} // namespace

void runSet(const SetOptions& options)
{
    change(options.target, QStringLiteral("set"), setValue, options.assignments);
}

void runUnset(const PathOptions& options)
{
    change(options.target, QStringLiteral("unset"), unsetValue, options.paths);
}

void runGet(const PathOptions& options)
{
    const std::unique_ptr<EditTarget> target = EditTarget::open(options.target);
    for (const QString& path : options.paths) {
        const FoundValue found = getValue(target->text(), target->form(), path);
        if (!found.error.isEmpty())
            throw CommandFailure{found.error};
        Console::print(found.value + QLatin1Char('\n'));
    }
}
