// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

/**
 * A text in $VISUAL, $EDITOR or vi, in a file of its own. The file goes with the object unless it
 * is to be kept.
 */
class Editor {
public:
    /** `ending` is that of the file, as in ".yaml". */
    Editor(const QByteArray& text, const QString& ending);
    ~Editor();
    Q_DISABLE_COPY(Editor)

    /** Has the text edited. Throws CommandFailure if there is no such editor, or it fails. */
    QByteArray edit(const QByteArray& text);

    /** The file stays: what was typed is not lost. */
    void keep() { m_isKept = true; }
    QString path() const { return m_path; }

private:
    void write(const QByteArray& text);

    QString m_path;
    bool m_isKept = false;
};
