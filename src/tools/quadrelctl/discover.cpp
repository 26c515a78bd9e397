// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "commands.h"
#include "console.h"
#include "discovery.h"
#include "json.h"
#include "table.h"
#include "tool.h"

#include <QtCore/QDateTime>

namespace {

QString replyText(const serverData& unit)
{
    return QString::fromUtf8(QByteArray(unit.data));
}

QJsonArray toJson(const FoundUnits& units)
{
    QJsonArray array;
    for (const serverData& unit : units)
        array.append(QJsonObject{{QStringLiteral("unit"), addressOf(unit).toText()},
            {QStringLiteral("ip"), QString(unit.ip)}, {QStringLiteral("name"), QString(unit.name)},
            {QStringLiteral("replyPort"), int(unit.port)},
            {QStringLiteral("reply"), replyText(unit)},
            {QStringLiteral("lastSeen"),
                QDateTime::fromMSecsSinceEpoch(unit.lastSeen)
                    .toUTC()
                    .toString(Qt::ISODateWithMs)}});
    return array;
}

Page toTable(const FoundUnits& units)
{
    Table table({Tool::tr("Unit"), Tool::tr("Name"), Tool::tr("Reply port"), Tool::tr("Reply")});
    for (const serverData& unit : units)
        table.addRow({addressOf(unit).toText(), QString(unit.name), QString::number(unit.port),
            replyText(unit)});
    return table.toPage(Console::pageWidth());
}

} // namespace

void runDiscover(const DiscoverOptions& options)
{
    const FoundUnits units =
        searchNetwork(options.first ? SearchEnd::FirstAnswer : SearchEnd::OfTime,
            options.isUpgrade ? std::optional<QString>(options.upgradeName) : std::nullopt);
    if (options.first)
        Console::print(addressOf(units.first()).toText() + QLatin1Char('\n'));
    else if (options.json)
        printJson(toJson(units));
    else
        Console::print(toTable(units));
}
