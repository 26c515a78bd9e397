// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <unitaddress.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

/**
 * The commands, each in a file of its name. A command prints its result and returns; it throws
 * CommandFailure when it fails.
 */

struct InfoOptions {
    UnitAddress unit;
    bool json = false;
};
void runInfo(const InfoOptions& options);

struct StatusOptions {
    UnitAddress unit;
    /** What the unit is compared with; empty for nothing. */
    QString file;
    bool json = false;
};
void runStatus(const StatusOptions& options);

struct SaveOptions {
    UnitAddress unit;
    QString file;
    bool json = false;
};
void runSave(const SaveOptions& options);

struct ReadOptions {
    /** Without one, the only unit that a search finds. */
    std::optional<UnitAddress> unit;
    bool discover = false;
    bool json = false;
    /** Names of sections; empty for all. */
    QStringList only;
    /** Where to save; empty for nowhere. */
    QString file;
};
void runRead(const ReadOptions& options);

struct ClockOptions {
    UnitAddress unit;
    bool json = false;
    bool dryRun = false;
    /** "now" or a time like "2026/11/14  06:05:49"; empty to set nothing. */
    QString time;
};
void runClock(const ClockOptions& options);
/** Whether a text is "now" or a real time in the form that the unit is sent. */
bool isClockText(const QString& text);

struct ShowOptions {
    QString file;
    bool json = false;
};
void runShow(const ShowOptions& options);

struct CheckOptions {
    QStringList files;
};
void runCheck(const CheckOptions& options);

struct ConvertOptions {
    QString from;
    QString to;
};
void runConvert(const ConvertOptions& options);

struct DiffOptions {
    /** Each a file, a unit's name or its address. */
    QString before;
    QString after;
    bool json = false;
};
void runDiff(const DiffOptions& options);

struct WriteOptions {
    UnitAddress unit;
    QString file;
    /** Names of sections; empty for all that the file holds. */
    QStringList only;
    bool dryRun = false;
    bool otherUnit = false;
    bool json = false;
};
void runWrite(const WriteOptions& options);

/** What edit, set, unset and get work on. */
struct TargetOptions {
    /** Empty if there is a unit. */
    QString file;
    std::optional<UnitAddress> unit;
    bool dryRun = false;
};

struct EditOptions {
    TargetOptions target;
};
void runEdit(const EditOptions& options);

struct SetOptions {
    TargetOptions target;
    /** As in "events[8].description=Display off". */
    QStringList assignments;
};
void runSet(const SetOptions& options);

struct PathOptions {
    TargetOptions target;
    /** As in "events[8].name". */
    QStringList paths;
};
void runUnset(const PathOptions& options);
void runGet(const PathOptions& options);

struct UndoOptions {
    UnitAddress unit;
    bool dryRun = false;
};
void runUndo(const UndoOptions& options);

struct BackupsOptions {
    std::optional<quint64> serialNumber;
    bool json = false;
};
void runBackups(const BackupsOptions& options);

struct NetworkOptions {
    UnitAddress unit;
    QString ip;
    QString mask;
    QString gateway;
    bool dryRun = false;
};
void runNetwork(const NetworkOptions& options);

struct ResetOptions {
    UnitAddress unit;
    bool defaultAddress = false;
    bool dryRun = false;
};
void runReset(const ResetOptions& options);

struct UpgradeOptions {
    UnitAddress unit;
    QString streamedFile;
    QString addressedFile;
    QString descriptorFile;
    bool force = false;
    bool dryRun = false;
    bool json = false;
};
void runUpgrade(const UpgradeOptions& options);

struct RemarkOptions {
    UnitAddress unit;
    QString streamedFile;
    bool dryRun = false;
};
void runRemark(const RemarkOptions& options);

struct DiscoverOptions {
    bool json = false;
    bool first = false;
    /** What the long search waits for; the plain search if it is not given. */
    QString upgradeName;
    bool isUpgrade = false;
};
void runDiscover(const DiscoverOptions& options);

struct CompleteOptions {
    /** "units", "sections" or "paths". */
    QString kind;
    /** Of "paths". */
    QString file;
};
/** For the shells: prints what may be at a place of the command line, a word to a line. */
void runComplete(const CompleteOptions& options);
