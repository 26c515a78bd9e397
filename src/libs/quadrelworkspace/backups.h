// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QList>
#include <QtCore/QString>

#include <optional>

namespace QuadrelWorkspace {

/** What a unit held before a change. */
struct Backup {
    quint64 serialNumber = 0;
    /** Counts up from 1 for each unit; what is newer has the higher number, whatever the clock. */
    int number = 0;
    /** When it was written, in UTC. */
    QDateTime time;
    /** The change that was to follow, as in "write hall.yaml"; one line, may be empty. */
    QString change;
    /** A unit document. */
    QString path;
};

/**
 * The contents of units before each change, a folder for each serial number, a document for each
 * change, as in `310000001/20261121T093000Z-17.yaml`. The document's first line is a comment that
 * names the change. The last 50 of each unit are kept.
 *
 * Plain files: nothing is remembered between two calls, and another program may read them
 * meanwhile. Hold the UnitLock of the unit while writing.
 */
class Backups {
public:
    static constexpr int kept = 50;

    /** `folder` is made when it is needed; see UserFolders::backups. */
    explicit Backups(const QString& folder);

    /**
     * Keeps `document`, a unit document in YAML. The file is there whole or not at all; older ones
     * beyond the last 50 are removed then. Of `change` control characters become blanks.
     *
     * Nothing, and the reason in `error`, when it cannot be written: "FILE: REASON".
     */
    std::optional<Backup> keep(quint64 serialNumber, const QByteArray& document,
        const QString& change, QString& error) const;

    /** The backups of a unit, the newest first. What else lies in the folder is left out. */
    QList<Backup> list(quint64 serialNumber) const;
    std::optional<Backup> newest(quint64 serialNumber) const;
    /** The units that have backups, ascending. */
    QList<quint64> serialNumbers() const;

private:
    QString folderOf(quint64 serialNumber) const;

    QString m_folder;
};

} // namespace QuadrelWorkspace
