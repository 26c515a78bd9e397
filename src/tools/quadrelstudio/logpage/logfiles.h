// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

/** The files that a FrameLog writes: PATH, and PATH.1 and on, which are older. */
class LogFiles {
public:
    /** As many bytes are read at once; of more, the last are. */
    static constexpr qint64 mostBytes = 1024 * 1024;

    explicit LogFiles(const QString& path);

    /** The whole lines since the last call, at first those at the end of the file. */
    QStringList readNew();
    /** Whether the last call has left out lines, for there were too many. */
    bool hasSkipped() const { return m_hasSkipped; }

    /**
     * Puts all files into one, the oldest first. False and a reason in `error` if that fails; a
     * `target` that was there is as it was then.
     */
    bool saveAll(const QString& target, QString& error) const;

private:
    void readFrom(const QString& path);
    /** Of them that are there, the oldest first. */
    QStringList all() const;

    QString m_path;
    qint64 m_offset = 0;
    /** The start of a line that is not whole yet. */
    QByteArray m_rest;
    bool m_hasSkipped = false;
};
