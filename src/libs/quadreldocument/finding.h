// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unitcontents.h"

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QVector>

namespace QuadrelDocument {

/** A part of contents; None is the document as a whole. */
enum class Section { None, Device, SerialPorts, IoLines, Events, Triggers, TimeTriggers, Clock };

/** The key of the section in documents, such as "events"; empty for None. */
QString sectionName(Section section);

/** A section, a record of it, or a field of a record or of the device. */
struct Place {
    Section section = Section::None; ///< None for the document as a whole
    /** The record's place in the list of the contents, from 0; -1 for the section itself. */
    int index = -1;
    /** The key in documents; empty for the record itself. */
    QString field;
};

/** Where something is in a text, both counted from 1 in characters; 0: nowhere. */
struct Position {
    int line = 0;   ///< from 1
    int column = 0; ///< from 1
};
/** Earlier in the text. */
bool operator<(const Position& left, const Position& right);
/** The same line and column. */
bool operator==(const Position& left, const Position& right);

/** Where the parts of contents are in the text that they were read from. */
class Positions {
public:
    /** Notes where a part is. */
    void insert(const Place& place, Position position);
    /** Of the place, or else of its record, its section, or nowhere. */
    Position of(const Place& place) const;

private:
    QHash<QString, Position> m_positions;
};

/** Only an error keeps contents from being written. */
enum class Severity { Error, Warning, Note };

/** One thing that is wrong or unusual. */
struct Finding {
    Severity severity = Severity::Error; ///< how bad it is
    Place place;                         ///< in the contents
    /** Where there is a text. */
    Position position;
    /** What it is about, such as "events[8].description"; may be empty. */
    QString path;
    /** What is wrong, and what is allowed. */
    QString text;
    /** Of an error: a unit gives it back as it was written, and may hold it already. */
    bool isCarried = false;
};
/** Everything that was found, in the order of the text or of the contents. */
using Findings = QVector<Finding>;

/** The most that are kept of what is wrong with one text: more than anybody corrects at once. */
constexpr int maximumFindings = 1000;

/** "events[8].description": records go by the id, port or line that is shown. */
QString pathOf(const Place& place, const Contents& contents);

/** Whether there is an error among them. */
bool hasErrors(const Findings& findings);
/** Into the order of the text; what has no place comes first. */
void sortByPosition(Findings& findings);

/**
 * "FILE:LINE:COLUMN: PATH: TEXT", with "warning: " or "note: " ahead of the path of what is no
 * error. What is not known is left out.
 */
QString messageOf(const Finding& finding, const QString& file = QString());

} // namespace QuadrelDocument
