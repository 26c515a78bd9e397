#include "settings.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QSettings>

namespace {

constexpr int usualCommunicationTimeout = 3000;

} // namespace

Settings Settings::load()
{
    const QSettings file(
        QCoreApplication::applicationDirPath() + QStringLiteral("/configWidget.ini"),
        QSettings::IniFormat);
    const auto milliseconds = [&file](const char* key, int usual) {
        bool isNumber = false;
        const int value = file.value(QLatin1String(key)).toInt(&isNumber);
        return isNumber ? value : usual;
    };
    return {milliseconds("Communication/timeout", usualCommunicationTimeout),
        milliseconds("Search/timeout", 0), milliseconds("Upgrade/timeout", 0)};
}
