// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "commands.h"
#include "consent.h"
#include "console.h"
#include "editor.h"
#include "edittarget.h"
#include "files.h"
#include "tool.h"

#include <documentedit.h>

using namespace QuadrelDocument;

namespace {

QString endingOf(Form form)
{
    return form == Form::Json ? QStringLiteral(".json") : QStringLiteral(".yaml");
}

/** The mistakes as comments in the text, where its form has comments. */
QByteArray withMistakes(const QByteArray& text, Form form, const Findings& mistakes)
{
    return form == Form::Yaml ? withComments(text, mistakes) : text;
}

QByteArray withoutMistakes(const QByteArray& text, Form form)
{
    return form == Form::Yaml ? withoutComments(text) : text;
}

/** Edits until there are no errors; nothing if there is nothing to be done. */
std::optional<QByteArray> editWithoutErrors(Editor& editor, const EditTarget& target)
{
    QByteArray shown = target.text();
    for (;;) {
        const QByteArray typed = editor.edit(shown);
        const QByteArray text = withoutMistakes(typed, target.form());
        if (text.trimmed().isEmpty() || text == target.text())
            return std::nullopt;
        const Findings findings = target.check(text);
        if (!hasErrors(findings))
            return text;
        if (typed == shown) {
            editor.keep();
            report(findings, editor.path());
            throw CommandFailure{
                Tool::tr("nothing was changed: the text still has errors. It is in %1")
                    .arg(editor.path())};
        }
        shown = withMistakes(text, target.form(), findings);
        report(findings);
    }
}

} // namespace

void runEdit(const EditOptions& options)
{
    const bool isUnit = options.target.unit.has_value();
    if (isUnit) {
        Console::outliveReader();
        Consent::requirePossible(options.target.dryRun);
    }
    const std::unique_ptr<EditTarget> target = EditTarget::open(options.target);
    Editor editor(target->text(), endingOf(target->form()));
    const std::optional<QByteArray> text = editWithoutErrors(editor, *target);
    if (!text) {
        Console::remark(Tool::tr("Nothing was changed."));
        return;
    }
    try {
        target->put(*text, QStringLiteral("edit"));
    } catch (CommandFailure& failure) {
        editor.keep();
        failure.text += Tool::tr("\nThe text is in %1").arg(editor.path());
        throw;
    }
}
