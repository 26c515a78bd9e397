// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>

#include "quadrelbll_global.h"
#include "triggertimeinfo.h"

/**
 * The time triggers of one unit, in order. The list does not sort.
 *
 * The model is a value: a copy has no parent and shares the list until one side writes. A bad index
 * is ignored by removeAt(), clamped by insert() and the caller's fault in at() and replace(). The
 * model has no lock; copies may go to other threads.
 */
class QUADRELBLL_EXPORT TriggerTimeModel : public QObject {
    Q_OBJECT

public:
    /** An empty list with no parent. */
    TriggerTimeModel();
    /** Shares the list of `other`; the copy has no parent. */
    TriggerTimeModel(const TriggerTimeModel& other);
    /** Shares the list of `other`; does nothing when it is shared already. */
    TriggerTimeModel& operator=(const TriggerTimeModel& other);
    /** True when both share one list, or hold equal time triggers in the same order. */
    bool operator==(const TriggerTimeModel& other) const;

    /** The number of time triggers. */
    int size();
    /** A copy of the time trigger at `index`, not tested: it must lie within 0 to size() - 1. */
    TriggerTimeInfo at(int index);
    /** Removes all time triggers. */
    void clear();
    /** The list, shared until one side writes. */
    QList<TriggerTimeInfo> getTriggerInfo();
    /** Replaces the list. */
    void setTriggerInfo(QList<TriggerTimeInfo> triggers);
    /** Appends a copy. */
    void push_back(TriggerTimeInfo trigger);
    /** Inserts a copy before `index`; at or below 0 means the front, at or past size() the end. */
    void insert(int index, TriggerTimeInfo trigger);
    /** Removes the time trigger at `index`; an index outside the list is ignored. */
    void removeAt(int index);
    /** Assigns to the one at `index`, not tested: it must lie within 0 to size() - 1. */
    void replace(int index, TriggerTimeInfo trigger);

private:
    QList<TriggerTimeInfo> m_triggers;
};
