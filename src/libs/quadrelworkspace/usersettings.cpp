// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "usersettings.h"

#include "configreader.h"
#include "workspace.h"

#include <QtCore/QFileInfo>

namespace QuadrelWorkspace {

namespace {

constexpr int longestTime = 3600000;
constexpr int mostRetries = 100;

/** In the order of Qt::DayOfWeek. */
const QStringList weekdays{QStringLiteral("monday"), QStringLiteral("tuesday"),
    QStringLiteral("wednesday"), QStringLiteral("thursday"), QStringLiteral("friday"),
    QStringLiteral("saturday"), QStringLiteral("sunday")};

QMap<QString, UnitAddress> unitsOf(ConfigReader& reader, const QuadrelDocument::DocumentNode& units)
{
    QMap<QString, UnitAddress> addresses;
    reader.checkOnce(units);
    for (const auto& member : units.members) {
        if (!isName(member.key)) {
            reader.addError(member.keyPosition, nameFault(member.key));
            continue;
        }
        const std::optional<QString> text = reader.textOf(member.value, member.key);
        if (!text)
            continue;
        if (const auto address = UnitAddress::fromText(*text))
            addresses.insert(member.key, *address);
        else
            reader.addError(member.value.position, addressFault(*text));
    }
    return addresses;
}

} // namespace

std::optional<UnitAddress> UserSettings::addressOf(const QString& nameOrAddress) const
{
    const auto unit = units.constFind(nameOrAddress);
    return unit != units.constEnd() ? *unit : UnitAddress::fromText(nameOrAddress);
}

LoadedSettings loadSettings(const QString& settingsFolder)
{
    const QString path = settingsFolder + QStringLiteral("/settings.yaml");
    LoadedSettings loaded;
    if (!QFileInfo::exists(path))
        return loaded;
    ConfigReader reader(path);
    const std::optional<QByteArray> text = reader.read();
    if (const auto file = text ? reader.parse(*text) : std::nullopt) {
        const QString timeout = QStringLiteral("timeout");
        const QString retries = QStringLiteral("retries");
        const QString searchTimeout = QStringLiteral("search-timeout");
        const QString upgradeTimeout = QStringLiteral("upgrade-timeout");
        const QString language = QStringLiteral("language");
        const QString firstWeekday = QStringLiteral("first-weekday");
        const QString units = QStringLiteral("units");
        reader.checkKeys(*file,
            {timeout, retries, searchTimeout, upgradeTimeout, language, firstWeekday, units});

        UserSettings& settings = loaded.settings;
        settings.timeout = reader.number(*file, timeout, 1, longestTime);
        settings.retries = reader.number(*file, retries, 0, mostRetries);
        settings.searchTimeout = reader.number(*file, searchTimeout, 1, longestTime);
        settings.upgradeTimeout = reader.number(*file, upgradeTimeout, 1, longestTime);
        settings.language =
            reader.word(*file, language, {QStringLiteral("en"), QStringLiteral("zh")});
        if (const auto day = reader.word(*file, firstWeekday, weekdays))
            settings.firstWeekday = static_cast<Qt::DayOfWeek>(Qt::Monday + weekdays.indexOf(*day));
        if (const auto* named =
                reader.child(*file, units, QuadrelDocument::DocumentNode::Kind::Mapping))
            settings.units = unitsOf(reader, *named);
    }
    loaded.errors = reader.errors();
    return loaded;
}

} // namespace QuadrelWorkspace
