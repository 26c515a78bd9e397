// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "commands.h"
#include "console.h"
#include "json.h"
#include "table.h"
#include "tool.h"

#include <backups.h>
#include <userfolders.h>

using namespace QuadrelWorkspace;

namespace {

QList<Backup> chosen(const Backups& backups, const std::optional<quint64>& serialNumber)
{
    if (serialNumber)
        return backups.list(*serialNumber);
    QList<Backup> all;
    const QList<quint64> numbers = backups.serialNumbers();
    for (const quint64 number : numbers)
        all += backups.list(number);
    return all;
}

QJsonArray toJson(const QList<Backup>& backups)
{
    QJsonArray array;
    for (const Backup& backup : backups)
        array.append(
            QJsonObject{{QStringLiteral("serialNumber"), QString::number(backup.serialNumber)},
                {QStringLiteral("number"), backup.number},
                {QStringLiteral("time"), backup.time.toString(Qt::ISODate)},
                {QStringLiteral("before"), backup.change}, {QStringLiteral("file"), backup.path}});
    return array;
}

} // namespace

void runBackups(const BackupsOptions& options)
{
    const QList<Backup> backups =
        chosen(Backups(UserFolders::ofUser().backups), options.serialNumber);
    if (options.json) {
        printJson(toJson(backups));
        return;
    }
    if (backups.isEmpty()) {
        Console::remark(Tool::tr("There are no backups: no unit was changed from here."));
        return;
    }
    Table table(
        {Tool::tr("Serial number"), Tool::tr("Time"), Tool::tr("Before"), Tool::tr("File")});
    for (const Backup& backup : backups)
        table.addRow({QString::number(backup.serialNumber),
            backup.time.toLocalTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")),
            backup.change, backup.path});
    Console::printPaged(table.toPage(Console::pageWidth()));
}
