// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "finding.h"

#include "triggerinfo.h"

#include <QtCore/QByteArray>
#include <QtCore/QMap>

namespace QuadrelDocument {

/** A project file looked at as XML, ahead of the library's lenient reader. */
struct ProjectXml {
    /** Whether the section has a record. */
    bool hasConfig = false;
    bool hasEvents = false;
    bool hasTriggers = false;
    /** The Modbus triggers, which the reader skips, by their places in the list of triggers. */
    QMap<int, TriggerInfo> modbusTriggers;
    Positions positions;
    Findings findings;
};

ProjectXml surveyProject(const QByteArray& text);

/** The UTF-16 units of the character at `index` if XML can hold it as a text, or else 0. */
int sizeOfXmlCharacter(const QString& text, int index);

} // namespace QuadrelDocument
