// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "choices.h"
#include "eventnames.h"

#include <QtCore/QMetaType>

/**
 * What a model gives for EditorRequest::role at an index: how the value of Qt::EditRole is edited
 * there. CellDelegate makes the editor. Without it, it makes the framework's own.
 */
struct EditorRequest {
    static constexpr int role = Qt::UserRole + 100;

    /** In brackets: the value. */
    enum Kind {
        Default,      ///< the framework's editor for the value's type
        Text,         ///< QString; `limit` UTF-16 units, of which others take `alsoUsed`
        Bytes,        ///< QByteArray; `limit` bytes
        Events,       ///< QVector<int>; `names`
        Event,        ///< QVector<int> of one id; `names`
        Delay,        ///< int, milliseconds
        Weekdays,     ///< QVector<int>; number 1 is `firstWeekday`
        Time,         ///< QString as a unit reports it
        Date,         ///< QString as a unit reports it
        EndDate,      ///< QString as a unit reports it; invalid for ever
        Dates,        ///< DateRange
        OneOf,        ///< the value of one of `choices`
        NumberOrOneOf ///< likewise, or an int from `least` to `most`
    };

    Kind kind = Default;
    int limit = 0;
    int alsoUsed = 0;
    int least = 0;
    int most = 0;
    Qt::DayOfWeek firstWeekday = Qt::Monday;
    QVector<Choice> choices = {};
    EventNames names = {};
};
Q_DECLARE_METATYPE(EditorRequest)
