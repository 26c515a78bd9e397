// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QMetaProperty>
#include <QtCore/QString>
#include <QtCore/QStringList>

/** All fields of a record, to compare it with another. */
inline QString textOf(const QObject& record)
{
    QStringList fields;
    const QMetaObject& meta = *record.metaObject();
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i)
        fields.append(meta.property(i).read(&record).toString());
    return fields.join(QLatin1Char('|'));
}

template <typename Records> QString textOfList(const Records& records)
{
    QStringList texts;
    for (const auto& record : records)
        texts.append(textOf(record));
    return texts.join(QLatin1Char('\n'));
}

/** All fields of the models of a unit. */
template <typename Device, typename Config, typename Events, typename Triggers, typename Times>
QString textOfModels(
    const Device& device, Config& config, Events& events, Triggers& triggers, Times& timeTriggers)
{
    QString text =
        textOf(device) + QLatin1Char('\n') + textOfList(config.getComInfo()) + QLatin1Char('\n');
    const auto lines = config.getIOType();
    for (const auto line : lines)
        text += QString::number(line);
    return text + QLatin1Char('\n') + textOfList(events.getEventInfo()) + QLatin1Char('\n')
        + textOfList(triggers.getTriggerInfo()) + QLatin1Char('\n')
        + textOfList(timeTriggers.getTriggerInfo());
}
