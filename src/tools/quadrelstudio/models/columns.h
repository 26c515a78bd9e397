// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "cellvalues.h"
#include "editors/editorrequest.h"

#include <unitcontents.h>

#include <QtCore/QVector>

#include <functional>

/** A column of the table of a section. A new one is a row in columns.cpp, and nothing else. */
template <class Record> struct Column {
    /** The key in documents, by which findings name the place. */
    const char* field;
    /** The header, marked for translation. */
    const char* title;
    CellKind kind;
    /** The value of the record, which has this place in its list. */
    std::function<QVariant(const Record& record, int row)> value;
    /** Puts another value into the record; none: the column is not edited. */
    std::function<void(Record& record, const QVariant& value)> set = {};
    /** The shown text, where the value alone does not say it; none: shownCell(). */
    std::function<QString(const Record& record, const QuadrelDocument::Contents& contents)> show =
        {};
    /** Whether the record has a use for the column; none: always. */
    std::function<bool(const Record& record)> applies = {};
    /** The kind where it depends on the record; none: `kind`. */
    std::function<CellKind(const Record& record)> kindOf = {};

    /** What the editor has to know of the record; none: nothing. */
    std::function<void(EditorRequest& request, const Record& record)> refine = {};

    CellKind kindFor(const Record& record) const { return kindOf ? kindOf(record) : kind; }
};

template <class Record> const QVector<Column<Record>>& columnsOf();
template <> const QVector<Column<QuadrelDocument::SerialPort>>& columnsOf();
template <> const QVector<Column<QuadrelDocument::IoLine>>& columnsOf();
template <> const QVector<Column<QuadrelDocument::Event>>& columnsOf();
template <> const QVector<Column<QuadrelDocument::Trigger>>& columnsOf();
template <> const QVector<Column<QuadrelDocument::TimeTrigger>>& columnsOf();
