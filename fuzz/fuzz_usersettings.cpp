// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "inputfile.h"
#include "usersettings.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

using namespace QuadrelWorkspace;

namespace {

bool isWithin(const std::optional<int>& value, int least, int most)
{
    return !value || (*value >= least && *value <= most);
}

/** A folder in which the settings are the input. */
QString folderOf(const InputFile& input)
{
    static const QTemporaryDir folder;
    require(QFile::link(input.path(), folder.filePath(QStringLiteral("settings.yaml"))),
        "there is a folder for the settings");
    return folder.path();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static InputFile input;
    static const QString folder = folderOf(input);
    input.setContent(data, size);

    const UserSettings settings = loadSettings(folder).settings;
    require(isWithin(settings.timeout, 1, 3600000) && isWithin(settings.searchTimeout, 1, 3600000)
            && isWithin(settings.upgradeTimeout, 1, 3600000) && isWithin(settings.retries, 0, 100),
        "every number is in its range");
    require(settings.firstWeekday >= Qt::Monday && settings.firstWeekday <= Qt::Sunday,
        "a week begins with one of its days");
    for (auto unit = settings.units.begin(); unit != settings.units.end(); ++unit) {
        const std::optional<UnitAddress> address = settings.addressOf(unit.key());
        require(address && address->toText() == unit->toText(), "a unit is found by its name");
    }
    return 0;
}
