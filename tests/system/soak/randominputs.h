// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "eventmodel.h"
#include "systemmodel.h"
#include "triggermodel.h"
#include "triggertimemodel.h"

#include <QtCore/QRandomGenerator>

/** Models as a user might make them, and some that no user would; the same seed, the same models.
 */
class RandomInputs {
public:
    explicit RandomInputs(QRandomGenerator& random)
        : m_random(random)
    {
    }

    bool chance(double share) { return m_random.generateDouble() < share; }
    int below(int limit) { return m_random.bounded(limit); }

    SystemModel config();
    EventModel events();
    TriggerModel triggers();
    TriggerTimeModel timeTriggers();
    /** A time in the form that the library expects. */
    QString clock();
    QString address();
    QByteArray bytes(int size);
    QString text(int longest);

private:
    /** Mostly a few, sometimes around `limit`. */
    int count(int limit);
    QString hexText(int mostBytes);
    QString eventList();

    QRandomGenerator& m_random;
};
