// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "userfolders.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

using namespace QuadrelWorkspace;

namespace {

QString folderFromEnvironment(const char* variable, const QString& otherwise)
{
    const QString path = qEnvironmentVariable(variable);
    return QDir::isAbsolutePath(path) ? QDir::cleanPath(path) : otherwise;
}

QString sharedLockFolder()
{
    const QString locks = QStringLiteral("/run/lock");
    const QString parent = QFileInfo(locks).isWritable() ? locks : QDir::tempPath();
    return parent + QStringLiteral("/quadrel");
}

} // namespace

UserFolders UserFolders::ofUser()
{
    const QString home = QDir::homePath();
    const QString config =
        folderFromEnvironment("XDG_CONFIG_HOME", home + QStringLiteral("/.config"));
    const QString state =
        folderFromEnvironment("XDG_STATE_HOME", home + QStringLiteral("/.local/state"));
    return {config + QStringLiteral("/quadrelctl"), state + QStringLiteral("/quadrelctl/backups"),
        folderFromEnvironment("QUADREL_LOCK_DIR", sharedLockFolder())};
}
