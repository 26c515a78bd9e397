#pragma once

#include "contents.h"

#include <QtCore/QString>
#include <QtCore/QStringList>

/** A project file as it was loaded. */
struct ProjectFile {
    /** The sections that the file holds; time triggers, names and clock have no form in a file. */
    Contents contents;
    /** The sections that are missing or empty: "Configs", "Events", "Triggers". */
    QStringList missing;
    /** What was left out of the sections, a sentence each. */
    QStringList warnings;

    /** Throws CommandFailure if the file can't be loaded or holds no section at all. */
    static ProjectFile load(const QString& path);
};

/**
 * Saves configuration, events and triggers. The file is made beside `path` and then takes its
 * place, so that a failure, a CommandFailure, leaves an older file as it was.
 */
void saveProjectFile(const QString& path, const Contents& contents);

/** What saving loses because a file can't carry it, a sentence each. */
QStringList lossesOfSaving(const Contents& contents);
/** What a unit loses when these records of it are replaced by those of a file. */
QStringList lossesOfWriting(const Contents& unit);
