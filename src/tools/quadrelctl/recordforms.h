#pragma once

#include "contents.h"

#include <QtCore/QList>
#include <QtCore/QPair>
#include <QtCore/QString>
#include <QtCore/QStringList>

/**
 * A record as a list of named values that can be compared: two records with equal forms are the
 * same to a unit, however their texts are written.
 */
struct RecordForm {
    QString title;
    QList<QPair<QString, QString>> fields;
};
using RecordForms = QList<RecordForm>;

/**
 * Which form a record has: as it was read from a unit, or as a unit will report it once it was
 * sent. The two differ where writing and reading do not match, such as in a trigger without events,
 * which comes back with event 0.
 */
enum class FormSide { Read, Sent };

RecordForms configForms(SystemModel model);
RecordForms eventForms(EventModel model, FormSide side);
RecordForms triggerForms(TriggerModel model, FormSide side);
RecordForms timeTriggerForms(TriggerTimeModel model, FormSide side);

/** How one list of records becomes another. */
struct Difference {
    int changed = 0;
    int added = 0;
    int removed = 0;
    /** A line for each record that changes, is added or is removed. */
    QStringList lines;

    bool isEmpty() const { return changed == 0 && added == 0 && removed == 0; }
};
/** Record by record: what stands at one position is one record, as a port is. */
Difference comparePositions(const RecordForms& before, const RecordForms& after);
/** Like a comparison of texts: a record that is removed does not make those behind it differ. */
Difference compareLists(const RecordForms& before, const RecordForms& after);

/** What happens to records that do not come back as they are sent, a sentence each. */
QStringList lossesOnUnit(const Contents& contents);

/**
 * What the unit's own limits forbid in models that are to be sent; empty if nothing. A unit takes
 * such a record, but it can't be read back, nor anything behind it.
 */
QString limitFault(const Contents& contents);
