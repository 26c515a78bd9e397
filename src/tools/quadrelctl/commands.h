#pragma once

#include "unitaddress.h"

#include <QtCore/QString>
#include <QtCore/QStringList>

/**
 * The commands, each in a file of its name. A command prints its result and returns; it throws
 * CommandFailure when it fails.
 */

struct InfoOptions {
    UnitAddress unit;
    bool json = false;
};
void runInfo(const InfoOptions& options);

struct ReadOptions {
    UnitAddress unit;
    /** Read the only unit that a search finds, instead of `unit`. */
    bool discover = false;
    bool json = false;
    /** Where to save; empty for nowhere. */
    QString file;
};
void runRead(const ReadOptions& options);

struct ClockOptions {
    UnitAddress unit;
    bool json = false;
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

struct WriteOptions {
    UnitAddress unit;
    QString file;
    /** Names of sections; empty for all that the file holds. */
    QStringList only;
    bool diff = false;
    bool dryRun = false;
    bool dropTimeTriggers = false;
};
void runWrite(const WriteOptions& options);

struct NetworkOptions {
    UnitAddress unit;
    QString ip;
    QString mask;
    QString gateway;
    bool yes = false;
};
void runNetwork(const NetworkOptions& options);

struct ResetOptions {
    UnitAddress unit;
    bool defaultAddress = false;
};
void runReset(const ResetOptions& options);

struct UpgradeOptions {
    UnitAddress unit;
    QString streamedFile;
    QString addressedFile;
    QString descriptorFile;
};
void runUpgrade(const UpgradeOptions& options);

struct RemarkOptions {
    UnitAddress unit;
    QString streamedFile;
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
