// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace QuadrelWorkspace {

/**
 * A folder under version control, by the program git. Each call waits for that program, 60 s at
 * most, and returns the reason of a failure, or an empty text.
 */
class Repository {
public:
    explicit Repository(const QString& folder);

    /**
     * Whether a commit would say what it should: git is installed and knows who commits, the folder
     * belongs to a repository, and all in the folder is committed.
     */
    QString fault() const;

    /** Commits these files of the folder and nothing else. */
    QString commit(const QStringList& files, const QString& message) const;

private:
    struct Answer {
        bool isRun = false;
        bool isSuccess = false;
        QString text;
        QString error;
    };
    Answer git(const QStringList& arguments) const;

    const QString m_folder;
};

} // namespace QuadrelWorkspace
