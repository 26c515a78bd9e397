// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <unitcontents.h>

#include <QtCore/QSet>
#include <QtCore/QVector>

/** What makes what happen on a unit, as a graph: causes, their events, what these drive. */
struct TriggerMap {
    enum class Column { Cause, Event, Target };
    /** What a command drives, by its bytes. */
    enum class Drive { Serial, Modbus, Io, Infrared, Relay, Control, Wait, Other };
    static constexpr int drives = 8;

    struct Node {
        Column column = Column::Cause;
        /** Of a cause: whether it is a time trigger, and its place in its list. */
        bool isTimeTrigger = false;
        /** Place in the list of the contents; -1 for missing events and for targets. */
        int index = -1;
        /** Of an event. */
        int id = -1;
        /** Of a target. */
        Drive drive = Drive::Other;
        /** An event that triggers name and that is not there. */
        bool isMissing = false;
        /** An event that no trigger names; a cause without events. */
        bool isUnused = false;
    };
    struct Edge {
        int from = 0;
        int to = 0;
    };

    /** Causes first, then events, then targets, each in the order in which they are shown. */
    QVector<Node> nodes;
    /** Each once, however often a trigger names an event. */
    QVector<Edge> edges;

    QVector<int> nodesOf(Column column) const;
    /** The node, all that makes it happen, and all that it makes happen. */
    QSet<int> pathThrough(int node) const;
};

TriggerMap::Drive driveOf(const QuadrelDocument::Event& event);

/**
 * The map of the contents. Serial lines come first, then IO lines, then times of day; events go by
 * id. Events that triggers name are missing only if the contents have events at all.
 */
TriggerMap triggerMap(const QuadrelDocument::Contents& contents);
