// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>

/** The most of a cell that a message shows. */
constexpr int longestShownCell = 40;

/** Cells as spreadsheets copy them: a line for each row, a tabulator between cells. */
struct RowsText {
    /** By the number of the column. */
    QVector<QHash<int, QString>> cells;
    /** Of the first row in the text, from 1. */
    int firstLine = 1;
};

/** A first line that has only names of fields says the order of the columns. */
RowsText parseRows(const QString& text, const QStringList& fields);
/** One line. A cell with a tabulator, a line break or a quote is put in quotes. */
QString rowText(const QStringList& cells);
