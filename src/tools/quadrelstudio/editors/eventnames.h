// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <unitcontents.h>

#include <QtCore/QHash>

/** What the events of a unit are called where only their ids are at hand. */
class EventNames {
public:
    /** Of a unit whose events are not known: none of them is missing. */
    EventNames() = default;
    explicit EventNames(const QVector<QuadrelDocument::Event>& events);
    explicit EventNames(const QuadrelDocument::Contents& contents);

    /** The ids in the order of the list, each once. */
    const QVector<int>& ids() const { return m_ids; }
    bool contains(int id) const { return m_names.contains(id); }
    bool isMissing(int id) const { return m_areKnown && !contains(id); }
    /** The name, or else the description, on one line; empty if there is neither. */
    QString name(int id) const { return m_names.value(id); }
    /** "12 Lights on", or "12 (missing)" for an id that no event has. */
    QString title(int id) const;

private:
    bool m_areKnown = false;
    QVector<int> m_ids;
    QHash<int, QString> m_names;
};
