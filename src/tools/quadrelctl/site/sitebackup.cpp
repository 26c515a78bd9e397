// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "sitecommands.h"

#include "console.h"
#include "sitereport.h"
#include "sitework.h"
#include "tool.h"

#include <repository.h>

#include <QtCore/QDir>

using namespace QuadrelWorkspace;

namespace {

/** Longer subjects are cut by many a program. */
constexpr int longestSubject = 72;

void makeFolder(const QString& folder)
{
    if (!QDir().mkpath(folder))
        throw CommandFailure{Tool::tr("%1: the folder can't be made").arg(folder)};
}

UnitReport backupOf(const SiteUnit& unit, const WorkerResult& result)
{
    const bool isWritten = result.output.object().value(QStringLiteral("written")).toBool();
    return reportOf(unit, result, isWritten ? UnitOutcome::Saved : UnitOutcome::Unchanged);
}

/** In English, like the names of the units' changes, whoever reads the history. */
QString messageFor(const QStringList& names)
{
    const QString list = names.join(QStringLiteral(", "));
    const QString subject = names.size() == 1
        ? QStringLiteral("Back up %1").arg(list)
        : QStringLiteral("Back up %1 units: %2").arg(QString::number(names.size()), list);
    if (subject.size() <= longestSubject)
        return subject;
    return QStringLiteral("Back up %1 units\n\n%2")
        .arg(QString::number(names.size()), names.join(QLatin1Char('\n')));
}

/** The message of the commit; empty if there was nothing to commit. */
QString commit(const Repository& repository, const UnitReports& reports)
{
    QStringList names;
    QStringList files;
    for (const UnitReport& report : reports) {
        if (report.outcome != UnitOutcome::Saved)
            continue;
        names.append(report.name);
        files.append(report.name + QStringLiteral(".yaml"));
    }
    if (files.isEmpty())
        return QString();
    const QString message = messageFor(names);
    const QString error = repository.commit(files, message);
    if (!error.isEmpty())
        throw CommandFailure{
            Tool::tr("%1\nThe documents are saved, and not committed.").arg(error)};
    return message.section(QLatin1Char('\n'), 0, 0);
}

} // namespace

void runSiteBackup(const SiteBackupOptions& options)
{
    const ChosenUnits chosen = chooseUnits(options);
    const Repository repository(options.folder);
    const QString fault = options.commit ? repository.fault() : QString();
    if (!fault.isEmpty())
        throw CommandFailure{fault};
    makeFolder(options.folder);

    SiteWork work;
    const QDir folder(options.folder);
    work.command = [&folder](const SiteUnit& unit) {
        return QStringList{QStringLiteral("save"), QStringLiteral("--json"),
            QStringLiteral("--unit"), unit.address.toText(),
            folder.filePath(unit.name + QStringLiteral(".yaml"))};
    };
    work.report = backupOf;
    work.stages = withoutStages();
    const UnitReports reports = doWork(options, chosen, chosen.units, work);
    QJsonObject more;
    if (options.commit) {
        const QString message = commit(repository, reports);
        more.insert(QStringLiteral("commit"), message);
        if (!options.json)
            Console::remark(message.isEmpty()
                    ? Tool::tr("Nothing has changed since the last commit.")
                    : Tool::tr("Committed: %1").arg(message));
    }
    finishSite(reports, options.json, more);
}
