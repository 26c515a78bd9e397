// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "finding.h"
#include "unitcontents.h"

#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QVector>

namespace QuadrelDocument {

/** A field that is not the same; a text is absent where the record has no such field. */
struct FieldChange {
    /** The key in documents. */
    QString field;
    std::optional<QString> before; ///< the value of the earlier side
    std::optional<QString> after;  ///< the value of the later side
};

/** How a record differs. */
enum class ChangeKind {
    Changed, ///< on both sides, with other values
    Added,   ///< only on the later side
    Removed, ///< only on the earlier side
    /** The same record at another place of its list. */
    Moved
};

/** One record that differs. */
struct RecordChange {
    ChangeKind kind = ChangeKind::Changed; ///< how the record differs
    Section section = Section::None;       ///< the record's section
    /** The record's place in the list of either side; -1 where it is not there. */
    int before = -1;
    int after = -1; ///< likewise, of the later side
    /** What the record is called, such as "events[8]": by the side where it is, the later one
     * first. */
    QString path;
    /** All that differs; for Added and Removed all that the record holds. */
    QVector<FieldChange> fields;
    /** A changed record that is at another place too. */
    bool isMoved = false;
};

/** What two contents do not have in common. */
struct Difference {
    /** In the order of the sections, each in the order of the later side, removed records last. */
    QVector<RecordChange> changes;
    /** The sections that one side says nothing of. */
    QVector<Section> notCompared;

    /** Whether nothing differs. */
    bool isEmpty() const { return changes.isEmpty(); }
    /** Whether a record of the section differs. */
    bool concerns(Section section) const;
    /** How many records of the section differ in this way. */
    int count(Section section, ChangeKind kind) const;
};

/**
 * How `after` differs from `before`: in ports and lines by their numbers, in events by id, in
 * triggers and time triggers by the best match. Their ids don't count, nor do device and clock.
 */
Difference compareContents(const Contents& before, const Contents& after);

/** A line for each record and each field of it, ready for people; empty without a difference. */
QString differenceText(const Difference& difference);
/** The same as data for programs. */
QJsonObject differenceJson(const Difference& difference);
/** The difference that differenceJson() made this of; what else is in it is left out. */
Difference differenceOfJson(const QJsonObject& json);

} // namespace QuadrelDocument
