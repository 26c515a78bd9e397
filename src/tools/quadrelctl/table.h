#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

/** The columns that a text takes on a terminal: 2 for wide characters, 0 for combining ones. */
int displayWidth(const QString& text);

/** Rows of text in aligned columns. */
class Table {
public:
    /** Without headings the rows stand alone. */
    explicit Table(const QStringList& headings = QStringList());

    void addRow(const QStringList& cells);
    bool isEmpty() const { return m_rows.isEmpty(); }

    /** The lines, each ended by a line break. Control characters of the cells show as "\\n" or
     * "\\u001b". */
    QString toText() const;

private:
    QStringList m_headings;
    QList<QStringList> m_rows;
};
