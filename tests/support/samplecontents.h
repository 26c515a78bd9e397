// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controlunit.h"
#include "finding.h"
#include "memorycontents.h"
#include "unitsample.h"

#include <QtCore/QStringList>

#include <algorithm>

/** The sample unit's contents; its trigger without an event, which no unit can store, is left
 * out. */
inline QuadrelDocument::Contents sampleContents()
{
    QuadrelUnit::ControlUnit unit;
    QuadrelUnit::writeSample(unit.memory());
    QuadrelDocument::Contents contents = MemoryContents::read(unit.memory());
    auto& triggers = *contents.triggers;
    triggers.erase(std::remove_if(triggers.begin(), triggers.end(),
                       [](const auto& trigger) { return trigger.eventIds.isEmpty(); }),
        triggers.end());
    return contents;
}

/** The messages, a line each. */
inline QString messagesOf(
    const QuadrelDocument::Findings& findings, const QString& file = QString())
{
    QStringList lines;
    for (const QuadrelDocument::Finding& finding : findings)
        lines.append(messageOf(finding, file));
    return lines.join(QLatin1Char('\n'));
}
