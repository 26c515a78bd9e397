#include "settings.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QSettings>

Settings Settings::load()
{
    const QSettings file(
        QCoreApplication::applicationDirPath() + QStringLiteral("/configWidget.ini"),
        QSettings::IniFormat);
    const auto milliseconds = [&file](const char* key) {
        return file.value(QLatin1String(key)).toInt();
    };
    return {milliseconds("Communication/timeout"), milliseconds("Search/timeout"),
        milliseconds("Upgrade/timeout")};
}
