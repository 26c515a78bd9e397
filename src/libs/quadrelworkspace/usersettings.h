// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <unitaddress.h>

#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

namespace QuadrelWorkspace {

/**
 * What a user has settled for all programs, in `settings.yaml` of UserFolders::settings:
 *
 *     timeout: 3000             # milliseconds for one answer, 1 to 3600000
 *     retries: 2                # how often a request without an answer is repeated, 0 to 100
 *     search-timeout: 3000      # milliseconds, 1 to 3600000
 *     upgrade-timeout: 60000    # milliseconds until a unit is back, 1 to 3600000
 *     language: en              # or zh
 *     first-weekday: monday     # the day that a unit's first weekday is shown as
 *     units:
 *       hall: tcp://192.168.1.21
 *
 * Each may be missing.
 */
struct UserSettings {
    std::optional<int> timeout;
    std::optional<int> retries;
    std::optional<int> searchTimeout;
    std::optional<int> upgradeTimeout;
    /** "en" or "zh". */
    std::optional<QString> language;
    Qt::DayOfWeek firstWeekday = Qt::Monday;
    QMap<QString, UnitAddress> units;

    /** The unit of that name or, if there is none, at that address; see UnitAddress::fromText(). */
    std::optional<UnitAddress> addressOf(const QString& nameOrAddress) const;
};

struct LoadedSettings {
    /** Where there are errors: the rest of the file. */
    UserSettings settings;
    /** "FILE:LINE:COLUMN: what is wrong, and what is allowed"; all at once. */
    QStringList errors;
};

/** A file that is not there gives settings in which nothing is settled, and no error. */
LoadedSettings loadSettings(const QString& settingsFolder);

} // namespace QuadrelWorkspace
