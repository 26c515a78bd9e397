// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal to the library; not installed.
#pragma once

#include <QtCore/qglobal.h>

/** The constant bytes at the start of a command and of a trigger's body; a record class follows. */
constexpr quint8 recordHead[] = {0x4C, 0x01, 0x00};

/** What a command or a body holds: the two bytes that distinguish the kinds. */
struct RecordClass {
    quint8 first;
    quint8 second;

    constexpr bool operator==(const RecordClass& other) const
    {
        return first == other.first && second == other.second;
    }
};

// Of commands and of triggers both.
constexpr RecordClass serialClass = {0x25, 0x10};
constexpr RecordClass lineClass = {0x24, 0x17};
