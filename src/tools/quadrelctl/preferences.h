// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <linkoptions.h>
#include <usersettings.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

/** The options that every command takes. */
struct GlobalOptions {
    std::optional<int> timeout;
    std::optional<int> retries;
    /** Where frames are written down; empty for nowhere, "-" for stderr. */
    QString logFile;
    bool quiet = false;
    /** Do not ask. */
    bool yes = false;
    bool noPager = false;
    /** The serial number that a unit must have; 0 for any. */
    quint64 expectedSerial = 0;
    /** The model that a unit must be of. */
    std::optional<int> expectedModel;
    /** For the program that runs this one: each step on stderr, as a line that begins with a tab.
     */
    bool reportSteps = false;
};

/**
 * How the program behaves: the options of the command line, over the user's settings.yaml, over
 * configWidget.ini beside the program, over what is usual.
 */
class Preferences {
public:
    /** The errors of the settings files in one text; empty without any. */
    static QString load();
    static void apply(const GlobalOptions& options);

    /** Throws CommandFailure if the log can't be written. */
    static LinkOptions link();
    /** Milliseconds; negative for no limit. */
    static int timeout();
    static int searchTimeout();
    static int upgradeTimeout();
    static bool mayAct() { return s_options.yes; }
    static const GlobalOptions& options() { return s_options; }
    static const QuadrelWorkspace::UserSettings& user() { return s_user; }

private:
    static QuadrelWorkspace::UserSettings s_user;
    static GlobalOptions s_options;
};
