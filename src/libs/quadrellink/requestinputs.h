// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal; not installed.
#pragma once

#include "unitrequest.h"

/** Of all kinds of requests; each has some of them. */
struct UnitRequest::Inputs {
    SystemModel config;
    EventModel events;
    TriggerModel triggers;
    TriggerTimeModel timeTriggers;
    QDateTime time;
    QString ip;
    QString mask;
    QString gateway;
    bool keepsAddress = true;
    QByteArray streamed;
    QByteArray addressed;
};
