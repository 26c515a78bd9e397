// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <finding.h>
#include <unitcontents.h>

#include <optional>

/** Which section of contents holds the records of a type, and where. */
template <class Record> struct RecordList;

template <> struct RecordList<QuadrelDocument::SerialPort> {
    static constexpr auto section = QuadrelDocument::Section::SerialPorts;
    static constexpr auto member = &QuadrelDocument::Contents::serialPorts;
};
template <> struct RecordList<QuadrelDocument::IoLine> {
    static constexpr auto section = QuadrelDocument::Section::IoLines;
    static constexpr auto member = &QuadrelDocument::Contents::ioLines;
};
template <> struct RecordList<QuadrelDocument::Event> {
    static constexpr auto section = QuadrelDocument::Section::Events;
    static constexpr auto member = &QuadrelDocument::Contents::events;
};
template <> struct RecordList<QuadrelDocument::Trigger> {
    static constexpr auto section = QuadrelDocument::Section::Triggers;
    static constexpr auto member = &QuadrelDocument::Contents::triggers;
};
template <> struct RecordList<QuadrelDocument::TimeTrigger> {
    static constexpr auto section = QuadrelDocument::Section::TimeTriggers;
    static constexpr auto member = &QuadrelDocument::Contents::timeTriggers;
};

/** The records of a type; none if the contents do not have them. */
template <class Record> QVector<Record> recordsOf(const QuadrelDocument::Contents& contents)
{
    return (contents.*RecordList<Record>::member).value_or(QVector<Record>());
}
