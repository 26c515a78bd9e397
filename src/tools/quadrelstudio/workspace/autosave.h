// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <unitcontents.h>

#include <QtCore/QLockFile>
#include <QtCore/QString>
#include <QtCore/QVector>

#include <memory>

/**
 * Keeps unsaved contents over a crash: a document each, in a folder of this run of the program. A
 * run that ends well leaves none.
 */
class Autosave {
public:
    struct Kept {
        /** The document that was kept. */
        QString copy;
        /** The file that it belongs to; empty for none. */
        QString path;
        QuadrelDocument::Contents contents;
    };

    /** `folder` is that of all runs; it is made when it is needed. */
    explicit Autosave(const QString& folder);
    ~Autosave();
    Q_DISABLE_COPY(Autosave)

    /** `key` is for drop(); `path` may be empty. The reason of a failure, or an empty text. */
    QString keep(int key, const QuadrelDocument::Contents& contents, const QString& path);
    void drop(int key);
    /** What runs have left that did not end well; whoever takes it calls forget(). */
    QVector<Kept> left() const;
    static void forget(const QVector<Kept>& kept);

private:
    QString fileOf(int key) const;

    const QString m_folder;
    const QString m_own;
    std::unique_ptr<QLockFile> m_lock;
};
