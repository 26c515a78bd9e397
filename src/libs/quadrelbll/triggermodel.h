// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>

#include "quadrelbll_global.h"
#include "triggerinfo.h"

/**
 * The triggers of one unit on serial lines and IO inputs, in order. The list does not sort.
 *
 * The model is a value: a copy has no parent and shares the list until one side writes. A bad index
 * is ignored by removeAt(), clamped by insert() and the caller's fault in at() and replace(). The
 * model has no lock; copies may go to other threads.
 */
class QUADRELBLL_EXPORT TriggerModel : public QObject {
    Q_OBJECT

public:
    /** An empty list with no parent. */
    TriggerModel();
    /** Shares the list of `other`; the copy has no parent. */
    TriggerModel(const TriggerModel& other);
    /** Shares the list of `other`; does nothing when it is shared already. */
    TriggerModel& operator=(const TriggerModel& other);
    /** True when both share one list, or hold equal triggers in the same order. */
    bool operator==(const TriggerModel& other) const;

    /** The number of triggers. */
    int size();
    /** A copy of the trigger at `index`, not tested: it must lie within 0 to size() - 1. */
    TriggerInfo at(int index);
    /** Removes all triggers. */
    void clear();
    /** The list, shared until one side writes. */
    QList<TriggerInfo> getTriggerInfo();
    /** Replaces the list. */
    void setTriggerInfo(QList<TriggerInfo> triggers);
    /** Appends a copy. */
    void push_back(TriggerInfo trigger);
    /** Inserts a copy before `index`; at or below 0 means the front, at or past size() the end. */
    void insert(int index, TriggerInfo trigger);
    /** Removes the trigger at `index`; an index outside the list is ignored. */
    void removeAt(int index);
    /** Assigns to the trigger at `index`, not tested: it must lie within 0 to size() - 1. */
    void replace(int index, TriggerInfo trigger);

private:
    QList<TriggerInfo> m_triggers;
};
