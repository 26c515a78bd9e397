// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "eventnames.h"

#include <QtCore/QCoreApplication>

using namespace QuadrelDocument;

EventNames::EventNames(const QVector<Event>& events)
{
    for (const Event& event : events) {
        if (m_names.contains(event.id))
            continue;
        const QString name = event.name.value_or(QString()).simplified();
        m_ids.append(event.id);
        m_names.insert(event.id, name.isEmpty() ? event.description.simplified() : name);
    }
}

QString EventNames::title(int id) const
{
    if (!contains(id))
        return QCoreApplication::translate("EventNames", "%1 (missing)").arg(id);
    return name(id).isEmpty() ? QString::number(id) : QStringLiteral("%1 %2").arg(id).arg(name(id));
}
