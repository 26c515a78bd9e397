#include "contents.h"

#include <QtCore/QMetaEnum>

Contents Contents::of(const UnitData& unit)
{
    return {unit.device, unit.config, unit.events, unit.triggers, unit.timeTriggers, unit.clock};
}

QList<int> eventIds(const QString& eventText)
{
    QList<int> ids;
    if (eventText.isEmpty())
        return ids;
    const QStringList items = eventText.split(QLatin1Char(';'));
    for (const QString& item : items) {
        const int start = item.indexOf(QStringLiteral("ID:")) + 3;
        const int end = item.indexOf(QLatin1Char(')'), start);
        // An item without an id is stored as id 0.
        ids.append(start < 3 ? 0 : item.midRef(start, end - start).toInt() & 0xFF);
    }
    return ids;
}

QString lineLabel(const QString& kind, int line)
{
    if (line < 0 || line > 15)
        return QString::number(line);
    const QChar group = QLatin1Char("ABCD"[line / 4]);
    return QStringLiteral("%1 %2-%3").arg(kind, group, QString::number(line % 4 + 1));
}

QString triggerLine(TriggerInfo trigger)
{
    if (trigger.getTriggerType() == TriggerInfo::IO)
        return lineLabel(QStringLiteral("IO"), trigger.getIOSelect());
    return lineLabel(QStringLiteral("COM"), trigger.getCOMSelect());
}

QString triggerKind(TriggerInfo trigger)
{
    return QString::fromLatin1(
        QMetaEnum::fromType<TriggerInfo::TriggerType>().valueToKey(trigger.getTriggerType()));
}

QString repeatMode(TriggerTimeInfo trigger)
{
    return QString::fromLatin1(
        QMetaEnum::fromType<TriggerTimeInfo::RepetMode>().valueToKey(trigger.getTriggerType()));
}
