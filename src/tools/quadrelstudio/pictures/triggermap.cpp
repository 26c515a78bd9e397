// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "triggermap.h"

#include <QtCore/QHash>

#include <algorithm>
#include <tuple>

using namespace QuadrelDocument;

namespace {

using Node = TriggerMap::Node;
using Column = TriggerMap::Column;
using Drive = TriggerMap::Drive;

template <typename Record> QVector<Record> listOf(const std::optional<QVector<Record>>& records)
{
    return records.value_or(QVector<Record>());
}

class MapMaker {
public:
    explicit MapMaker(const Contents& contents)
        : m_events(listOf(contents.events))
        , m_triggers(listOf(contents.triggers))
        , m_timeTriggers(listOf(contents.timeTriggers))
        , m_knowsEvents(contents.events.has_value())
    {
    }

    TriggerMap make()
    {
        addCauses();
        addEvents();
        addTargets();
        return m_map;
    }

private:
    void addCauses()
    {
        QVector<Node> causes;
        for (int i = 0; i < m_triggers.size(); ++i)
            causes.append(causeAt(i, false));
        for (int i = 0; i < m_timeTriggers.size(); ++i)
            causes.append(causeAt(i, true));
        std::stable_sort(causes.begin(), causes.end(),
            [this](const Node& left, const Node& right) { return placeOf(left) < placeOf(right); });
        m_map.nodes = causes;
    }

    Node causeAt(int index, bool isTimeTrigger) const
    {
        Node node;
        node.index = index;
        node.isTimeTrigger = isTimeTrigger;
        node.isUnused = eventIdsOf(node).isEmpty();
        return node;
    }

    std::tuple<int, int, QString> placeOf(const Node& cause) const
    {
        if (cause.isTimeTrigger)
            return {2, 0, m_timeTriggers.at(cause.index).time};
        const Trigger& trigger = m_triggers.at(cause.index);
        return {trigger.kind == TriggerKind::Io ? 1 : 0, trigger.line, QString()};
    }

    QVector<int> eventIdsOf(const Node& cause) const
    {
        return cause.isTimeTrigger ? m_timeTriggers.at(cause.index).eventIds
                                   : m_triggers.at(cause.index).eventIds;
    }

    /** Of doubled ids, the first event is the one that runs. */
    void addEvents()
    {
        QVector<Node> events;
        QHash<int, int> placeOfId;
        for (int i = 0; i < m_events.size(); ++i) {
            if (!placeOfId.contains(m_events.at(i).id))
                placeOfId.insert(m_events.at(i).id, events.size());
            events.append(eventAt(i));
        }
        for (const Node& cause : m_map.nodes) {
            for (const int id : eventIdsOf(cause)) {
                if (!placeOfId.contains(id)) {
                    placeOfId.insert(id, events.size());
                    events.append(missingEvent(id));
                }
                events[placeOfId.value(id)].isUnused = false;
            }
        }
        std::stable_sort(events.begin(), events.end(),
            [](const Node& left, const Node& right) { return left.id < right.id; });
        connectCauses(events);
    }

    Node eventAt(int index) const
    {
        Node node;
        node.column = Column::Event;
        node.index = index;
        node.id = m_events.at(index).id;
        node.isUnused = true;
        return node;
    }

    Node missingEvent(int id) const
    {
        Node node;
        node.column = Column::Event;
        node.id = id;
        node.isMissing = m_knowsEvents;
        return node;
    }

    void connectCauses(const QVector<Node>& events)
    {
        const int causes = m_map.nodes.size();
        QHash<int, int> nodeOfId;
        for (int i = events.size() - 1; i >= 0; --i)
            nodeOfId.insert(events.at(i).id, causes + i);
        for (int cause = 0; cause < causes; ++cause) {
            QSet<int> connected;
            for (const int id : eventIdsOf(m_map.nodes.at(cause))) {
                if (connected.contains(id))
                    continue;
                connected.insert(id);
                m_map.edges.append({cause, nodeOfId.value(id)});
            }
        }
        m_map.nodes += events;
    }

    void addTargets()
    {
        QVector<int> nodeOfDrive(TriggerMap::drives, -1);
        const QVector<int> events = m_map.nodesOf(Column::Event);
        for (const int event : events) {
            const int index = m_map.nodes.at(event).index;
            if (index >= 0)
                nodeOfDrive[static_cast<int>(driveOf(m_events.at(index)))] = 0;
        }
        for (int drive = 0; drive < TriggerMap::drives; ++drive) {
            if (nodeOfDrive.at(drive) < 0)
                continue;
            nodeOfDrive[drive] = m_map.nodes.size();
            Node target;
            target.column = Column::Target;
            target.drive = static_cast<Drive>(drive);
            m_map.nodes.append(target);
        }
        for (const int event : events) {
            const int index = m_map.nodes.at(event).index;
            if (index >= 0)
                m_map.edges.append(
                    {event, nodeOfDrive.at(static_cast<int>(driveOf(m_events.at(index))))});
        }
    }

    QVector<Event> m_events;
    QVector<Trigger> m_triggers;
    QVector<TimeTrigger> m_timeTriggers;
    bool m_knowsEvents;
    TriggerMap m_map;
};

} // namespace

QVector<int> TriggerMap::nodesOf(Column column) const
{
    QVector<int> found;
    for (int i = 0; i < nodes.size(); ++i) {
        if (nodes.at(i).column == column)
            found.append(i);
    }
    return found;
}

/** An edge leads from a column to a later one, so that one pass in each direction is enough. */
QSet<int> TriggerMap::pathThrough(int node) const
{
    QSet<int> after{node};
    for (const Edge& edge : edges) {
        if (after.contains(edge.from))
            after.insert(edge.to);
    }
    QSet<int> before{node};
    for (auto edge = edges.rbegin(); edge != edges.rend(); ++edge) {
        if (before.contains(edge->to))
            before.insert(edge->from);
    }
    return after + before;
}

TriggerMap::Drive driveOf(const Event& event)
{
    constexpr int serialClass = 0x25;
    constexpr int classOffset = 3;
    switch (event.type()) {
    case 0: {
        const bool isSerial =
            event.command.size() > classOffset + 1 && event.command.at(classOffset) == serialClass;
        return isSerial ? Drive::Serial : Drive::Other;
    }
    case 1:
        return Drive::Modbus;
    case 2:
        return Drive::Io;
    case 3:
        return Drive::Infrared;
    case 4:
        return Drive::Relay;
    case 5:
        return Drive::Wait;
    case 6:
        return Drive::Control;
    default:
        return Drive::Other;
    }
}

TriggerMap triggerMap(const Contents& contents)
{
    return MapMaker(contents).make();
}
