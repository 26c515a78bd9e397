// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <site.h>
#include <stagedrun.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

/**
 * The commands on a site. Like the others they print their result and throw CommandFailure when
 * they fail, with Different if nothing failed but differences were found.
 */

/** What every command on a site takes. */
struct SiteOptions {
    QString inventory = QStringLiteral("site.yaml");
    QuadrelWorkspace::Selection selection;
    /** How many units at a time; the inventory's number if it is not given. */
    std::optional<int> jobs;
    /** How many seconds a unit may take in all. */
    int limit = 600;
    bool json = false;
    bool dryRun = false;
};

struct SiteAddOptions : SiteOptions {
    QString name;
    UnitAddress address;
    quint64 serialNumber = 0;
    std::optional<int> modelId;
    QStringList tags;
    QString document;
    /** Ask the unit for its serial number and model. */
    bool read = false;
};
void runSiteAdd(const SiteAddOptions& options);

void runSiteRemove(const SiteOptions& options);
void runSiteList(const SiteOptions& options);

struct SiteDiscoverOptions : SiteOptions {
    bool add = false;
};
void runSiteDiscover(const SiteDiscoverOptions& options);

void runSiteStatus(const SiteOptions& options);

struct SiteBackupOptions : SiteOptions {
    QString folder;
    bool commit = false;
};
void runSiteBackup(const SiteBackupOptions& options);

struct SiteDiffOptions : SiteOptions {
    /** Of documents named like the units; empty for the wanted documents. */
    QString folder;
};
void runSiteDiff(const SiteDiffOptions& options);

void runSiteCheck(const SiteOptions& options);

struct SiteClockOptions : SiteOptions {
    QString time;
};
void runSiteClock(const SiteClockOptions& options);

struct SiteEditOptions : SiteOptions {
    /** "PATH=VALUE" of set, "PATH" of unset. */
    QStringList words;
};
void runSiteSet(const SiteEditOptions& options);
void runSiteUnset(const SiteEditOptions& options);

struct SiteRunOptions : SiteOptions {
    /** The words of a command of this program; "{name}" and "{document}" are the unit's. */
    QStringList command;
    bool commandTakesJson = false;
    /** Whether the command may change a unit. */
    bool commandChanges = false;
};
void runSiteRun(const SiteRunOptions& options);

struct StagedOptions : SiteOptions {
    int canary = 0;
    int batch = 0;
    int maximalFailures = 0;
    bool resume = false;
};
void runSiteWrite(const StagedOptions& options);

struct SiteUpgradeOptions : StagedOptions {
    QString streamedFile;
    QString addressedFile;
    QString descriptorFile;
    bool force = false;
};
void runSiteUpgrade(const SiteUpgradeOptions& options);
