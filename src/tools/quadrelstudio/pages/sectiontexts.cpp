// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "sectiontexts.h"

#include <QtCore/QCoreApplication>

using QuadrelDocument::Section;

namespace {

class Sections {
    Q_DECLARE_TR_FUNCTIONS(Sections)
};

} // namespace

QString sectionTitle(Section section)
{
    switch (section) {
    case Section::SerialPorts:
        return Sections::tr("Serial ports");
    case Section::IoLines:
        return Sections::tr("IO lines");
    case Section::Events:
        return Sections::tr("Events");
    case Section::Triggers:
        return Sections::tr("Triggers");
    case Section::TimeTriggers:
        return Sections::tr("Time triggers");
    case Section::Device:
        return Sections::tr("Device");
    case Section::Clock:
        return Sections::tr("Clock");
    case Section::None:
        return QString();
    }
    Q_UNREACHABLE();
}

QString emptyText(Section section)
{
    switch (section) {
    case Section::SerialPorts:
        return Sections::tr("No serial ports. Read a unit to see its ports.");
    case Section::IoLines:
        return Sections::tr("No IO lines. Read a unit to see its lines.");
    case Section::Events:
        return Sections::tr("No events yet. An event is a command that is sent, or a delay. "
                            "Press Insert to add one.");
    case Section::Triggers:
        return Sections::tr("No triggers yet. A trigger runs events when bytes arrive or a line "
                            "changes. Press Insert to add one.");
    case Section::TimeTriggers:
        return Sections::tr("No time triggers yet. A time trigger runs events at a time of day. "
                            "Press Insert to add one.");
    default:
        return QString();
    }
}
