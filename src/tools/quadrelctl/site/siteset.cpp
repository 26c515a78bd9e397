// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "sitecommands.h"

#include "commands.h"
#include "consent.h"
#include "console.h"
#include "differenceview.h"
#include "edittarget.h"
#include "sitereport.h"
#include "sitework.h"
#include "tool.h"

#include <contentsdifference.h>
#include <documentedit.h>

#include <QtCore/QFileInfo>
#include <QtCore/QSet>

#include <memory>
#include <vector>

using namespace QuadrelDocument;
using namespace QuadrelWorkspace;

namespace {

using Edit = EditedText (*)(const QByteArray& text, Form form, const QString& argument);

/** A document of one unit or more, and its new text. */
struct EditedDocument {
    SiteUnit unit;
    std::unique_ptr<EditTarget> target;
    QByteArray text;
};

/** Makes all the edits; what is wrong goes to `errors`. */
EditedDocument edited(const SiteUnit& unit, const QString& path, Edit edit,
    const SiteEditOptions& options, QStringList& errors)
{
    EditedDocument document;
    document.unit = unit;
    TargetOptions target;
    target.file = path;
    target.dryRun = options.dryRun;
    document.target = EditTarget::open(target);
    document.text = document.target->text();
    for (const QString& word : options.words) {
        const EditedText result = edit(document.text, document.target->form(), word);
        if (!result.error.isEmpty()) {
            errors.append(QStringLiteral("%1: %2").arg(path, result.error));
            return document;
        }
        document.text = result.text;
    }
    const Findings findings = document.target->check(document.text);
    for (const Finding& finding : findings) {
        if (finding.severity == Severity::Error)
            errors.append(messageOf(finding, path));
    }
    return document;
}

/** All documents are changed, or none. */
void change(const SiteEditOptions& options, const QString& name, Edit edit)
{
    const ChosenUnits chosen = chooseUnits(options);
    UnitReports reports;
    QStringList errors;
    QSet<QString> seen;
    std::vector<EditedDocument> documents;
    for (const SiteUnit& unit : chosen.units) {
        const QString path = chosen.site.documentPath(unit);
        reports.append({unit.name, unit.address,
            path.isEmpty() ? UnitOutcome::NoDocument : UnitOutcome::Unchanged, 0, QString(),
            QJsonObject()});
        const QString file = QFileInfo(path).canonicalFilePath();
        if (path.isEmpty() || (!file.isEmpty() && seen.contains(file)))
            continue;
        seen.insert(file);
        documents.push_back(edited(unit, path, edit, options, errors));
        const EditedDocument& document = documents.back();
        UnitReport& report = reports.last();
        if (document.text != document.target->text())
            report.outcome = options.dryRun ? UnitOutcome::Planned : UnitOutcome::Saved;
    }
    if (!errors.isEmpty())
        throw CommandFailure{
            errors.join(QLatin1Char('\n')) + Tool::tr("\nNo document was changed.")};
    for (const EditedDocument& document : documents) {
        if (document.text == document.target->text())
            continue;
        Console::print(Page{{document.unit.name, Style::Heading}});
        document.target->put(document.text, name);
    }
    finishSite(reports, false);
}

} // namespace

void runSiteSet(const SiteEditOptions& options)
{
    change(options, QStringLiteral("site set"), setValue);
}

void runSiteUnset(const SiteEditOptions& options)
{
    change(options, QStringLiteral("site unset"), unsetValue);
}
