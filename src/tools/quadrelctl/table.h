// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "page.h"

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

/** The columns that a text takes on a terminal: 2 for wide characters, 0 for combining ones. */
int displayWidth(const QString& text);
/** The text in lines of at most so many columns, at least 2; parted at blanks where possible. */
QStringList wrapText(const QString& text, int width);

/** Rows of text in aligned columns. */
class Table {
public:
    /** Without headings the rows are alone. */
    explicit Table(const QStringList& headings = QStringList());

    void addRow(const QStringList& cells);
    bool isEmpty() const { return m_rows.isEmpty(); }

    /**
     * The table in at most `width` columns, or as wide as it is if that is 0. Cells that don't fit
     * go on in the next line. Control characters of the cells show as visible() shows them.
     */
    Page toPage(int width = 0) const;

private:
    QStringList m_headings;
    QList<QStringList> m_rows;
};
