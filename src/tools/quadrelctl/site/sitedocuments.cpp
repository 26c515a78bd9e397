// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "sitedocuments.h"

#include "console.h"
#include "tool.h"

#include <sitecheck.h>

using namespace QuadrelDocument;
using namespace QuadrelWorkspace;

UnitReport documentReport(const Site& site, const SiteUnit& unit)
{
    const CheckedDocument document = checkDocument(site, unit);
    UnitReport report{unit.name, unit.address, UnitOutcome::Valid, 0, QString(), QJsonObject()};
    if (document.path.isEmpty())
        report.outcome = UnitOutcome::NoDocument;
    QStringList errors;
    for (const Finding& finding : document.file.findings) {
        const QString message = messageOf(finding, document.path);
        if (finding.severity == Severity::Error)
            errors.append(message);
        else if (finding.severity == Severity::Warning)
            Console::note(message);
    }
    report.failure = errors.join(QLatin1Char('\n'));
    if (!errors.isEmpty())
        report.outcome = UnitOutcome::Failed;
    return report;
}

void requireDocuments(const ChosenUnits& chosen)
{
    QStringList errors;
    for (const SiteUnit& unit : chosen.units) {
        const UnitReport report = documentReport(chosen.site, unit);
        if (report.outcome == UnitOutcome::NoDocument)
            errors.append(Tool::tr("%1: the inventory names no document; name one, or leave the "
                                   "unit out with --exclude")
                              .arg(unit.name));
        else if (report.isFailure())
            errors.append(report.failure);
    }
    if (!errors.isEmpty())
        throw CommandFailure{
            errors.join(QLatin1Char('\n')) + Tool::tr("\nNothing was sent to any unit.")};
}
