// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editors/choices.h"

#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtCore/QVector>

/**
 * What a cell of a table holds. The kind decides on the editor, on the text that is shown, and on
 * the text that is copied.
 *
 * In brackets: the type of the value for editors; an invalid value is one that the record lacks.
 */
enum class CellKind {
    Number,     ///< int
    BaudRate,   ///< int
    DataBits,   ///< int
    StopBits,   ///< int
    Inspection, ///< int
    LineType,   ///< int
    Text,       ///< QString
    MaybeText,  ///< QString
    Delay,      ///< int, milliseconds
    Bytes,      ///< QByteArray
    Kind,       ///< int, a QuadrelDocument::TriggerKind
    Line,       ///< int, 0 to 15
    Level,      ///< int, a QuadrelDocument::Level
    EventIds,   ///< QVector<int>
    Repeat,     ///< int, a QuadrelDocument::Repeat
    Date,       ///< QString as a unit reports it
    MaybeDate,  ///< QString as a unit reports it; none: for ever
    Weekdays,   ///< QVector<int>, 1 to 8
    Time        ///< QString as a unit reports it
};
Q_DECLARE_METATYPE(CellKind)

/** The value in the words of documents, the same in each language. */
QString cellText(CellKind kind, const QVariant& value);
/** Reads such a text into `value`; false if it says nothing for the kind. */
bool readCell(CellKind kind, const QString& text, QVariant& value);
/** The value for people. */
QString shownCell(CellKind kind, const QVariant& value);

/** What there is to choose for the kind; none for values of many kinds. */
QVector<Choice> choicesOf(CellKind kind);

/** The day that the first of a unit's weekdays is shown as; Monday until it is set. */
Qt::DayOfWeek firstWeekday();
void setFirstWeekday(Qt::DayOfWeek day);
