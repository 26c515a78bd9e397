// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

namespace QuadrelWorkspace {

/** Where the programs keep a person's files. None of the folders needs to exist. */
struct UserFolders {
    /** `$XDG_CONFIG_HOME/quadrelctl`; the settings. */
    QString settings;
    /** `$XDG_STATE_HOME/quadrelctl/backups`; a folder for each unit. */
    QString backups;
    /**
     * `$QUADREL_LOCK_DIR`, else `/run/lock/quadrel`, which all users of this machine share; on a
     * machine without `/run/lock` a folder among the temporary files.
     */
    QString locks;

    /**
     * The folders of the user who runs the program. A variable that is missing, empty or not an
     * absolute path counts as not set; then it is `~/.config` and `~/.local/state`.
     */
    static UserFolders ofUser();
};

} // namespace QuadrelWorkspace
