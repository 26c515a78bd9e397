// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "pictureview.h"
#include "triggermap.h"

#include "editors/eventnames.h"

class EdgesItem;

/**
 * What makes what happen: triggers on the left, events in the middle, what they drive on the right.
 * The path of the box under the mouse is lit. A number is a node's place in map().
 */
class MapView : public PictureView {
    Q_OBJECT

public:
    explicit MapView(QWidget* parent = nullptr);

    void setContents(const QuadrelDocument::Contents& contents);
    void setFirstWeekday(Qt::DayOfWeek day);

    const TriggerMap& map() const { return m_map; }
    /** The nodes that are lit; empty if the whole map is. */
    QSet<int> litNodes() const { return m_lit; }

protected:
    void rebuild() override;
    void setHovered(int number) override;

private:
    void addColumns();
    void addEdges();
    QString titleOf(const TriggerMap::Node& node) const;
    QString detailOf(const TriggerMap::Node& node) const;
    QString toolTipOf(const TriggerMap::Node& node) const;
    int eventsAt(const TriggerMap::Node& target) const;

    QuadrelDocument::Contents m_contents;
    EventNames m_names;
    Qt::DayOfWeek m_firstWeekday = Qt::Monday;
    TriggerMap m_map;
    QSet<int> m_lit;
    EdgesItem* m_edges = nullptr;
    EdgesItem* m_litEdges = nullptr;
};
