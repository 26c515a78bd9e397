// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "eventnames.h"

#include <QtCore/QCoreApplication>

using namespace QuadrelDocument;

EventNames::EventNames(const QVector<Event>& events)
    : m_areKnown(true)
{
    for (const Event& event : events) {
        if (m_names.contains(event.id))
            continue;
        const QString name = event.name.value_or(QString()).simplified();
        m_ids.append(event.id);
        m_names.insert(event.id, name.isEmpty() ? event.description.simplified() : name);
    }
}

EventNames::EventNames(const Contents& contents)
{
    if (contents.events)
        *this = EventNames(*contents.events);
}

QString EventNames::title(int id) const
{
    if (isMissing(id))
        return QCoreApplication::translate("EventNames", "%1 (missing)").arg(id);
    return name(id).isEmpty() ? QString::number(id) : QStringLiteral("%1 %2").arg(id).arg(name(id));
}
