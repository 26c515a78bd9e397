// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "quadrellink_global.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QMetaType>
#include <QtCore/QString>

/** How far an operation has come. */
struct QUADRELLINK_EXPORT UnitProgress {
    Q_DECLARE_TR_FUNCTIONS(UnitProgress)

public:
    /** What the operation is at. */
    enum Part { Device, SerialPorts, IoLines, Events, Triggers, TimeTriggers, Clock, Upgrade };

    Part part = Device; ///< what was just read or written
    /** Records of events and triggers, bytes of an upgrade; 1 of 1 of everything else. */
    qint64 done = 0;
    qint64 total = 0; ///< what `done` runs up to

    /** Whether nothing of the part is left. */
    bool isPartDone() const { return done == total; }
    /** One line in the language of the program, as in "event 17 of 32" or "42 % sent". */
    QString text() const;
};

Q_DECLARE_METATYPE(UnitProgress)
