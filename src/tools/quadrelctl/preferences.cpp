// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "preferences.h"

#include "console.h"
#include "tool.h"

#include <userfolders.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QSettings>

using namespace QuadrelWorkspace;

UserSettings Preferences::s_user;
GlobalOptions Preferences::s_options;

namespace {

constexpr int usualSearchTimeout = 3000;
constexpr int usualUpgradeTimeout = 60000;

/** A number of the file beside the program. */
std::optional<int> installedTime(const char* key)
{
    const QSettings file(
        QCoreApplication::applicationDirPath() + QStringLiteral("/configWidget.ini"),
        QSettings::IniFormat);
    bool isNumber = false;
    const int milliseconds = file.value(QLatin1String(key)).toInt(&isNumber);
    return isNumber ? std::make_optional(milliseconds) : std::nullopt;
}

std::optional<int> firstOf(std::optional<int> one, std::optional<int> other)
{
    return one ? one : other;
}

} // namespace

QString Preferences::load()
{
    const LoadedSettings loaded = loadSettings(UserFolders::ofUser().settings);
    s_user = loaded.settings;
    return loaded.errors.join(QLatin1Char('\n'));
}

void Preferences::apply(const GlobalOptions& options)
{
    s_options = options;
    Console::configure({options.quiet, !options.noPager, options.reportSteps});
}

int Preferences::timeout()
{
    const std::optional<int> time = firstOf(s_options.timeout, s_user.timeout);
    return firstOf(time, installedTime("Communication/timeout")).value_or(LinkOptions().timeout);
}

LinkOptions Preferences::link()
{
    LinkOptions link;
    link.timeout = timeout();
    link.retries = firstOf(s_options.retries, s_user.retries).value_or(link.retries);
    if (s_options.logFile == QStringLiteral("-"))
        link.log = FrameLog::toStandardError();
    else if (!s_options.logFile.isEmpty()) {
        QString error;
        link.log = FrameLog::toFile(s_options.logFile, error);
        if (!link.log)
            throw CommandFailure{QStringLiteral("%1: %2").arg(s_options.logFile, error)};
    }
    return link;
}

int Preferences::searchTimeout()
{
    const std::optional<int> time = firstOf(s_options.timeout, s_user.searchTimeout);
    return firstOf(time, installedTime("Search/timeout")).value_or(usualSearchTimeout);
}

int Preferences::upgradeTimeout()
{
    return firstOf(s_user.upgradeTimeout, installedTime("Upgrade/timeout"))
        .value_or(usualUpgradeTimeout);
}
