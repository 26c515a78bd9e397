// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "randominputs.h"

#include <QtCore/QDateTime>

int RandomInputs::count(int limit)
{
    return chance(0.05) ? limit - 2 + below(5) : below(8);
}

QByteArray RandomInputs::bytes(int size)
{
    QByteArray bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(below(256));
    return bytes;
}

QString RandomInputs::text(int longest)
{
    const QString alphabet = QStringLiteral("Raum 3 投影机$;:()℃");
    QString text = QStringLiteral("");
    for (int size = below(longest + 1); size > 0; --size)
        text += alphabet.at(below(alphabet.size()));
    return text;
}

QString RandomInputs::hexText(int mostBytes)
{
    return QString::fromLatin1(bytes(below(mostBytes + 1)).toHex(' '));
}

QString RandomInputs::eventList()
{
    QStringList items;
    for (int size = below(5); size > 0; --size)
        items.append(QStringLiteral("事件(ID:%1)").arg(below(256)));
    return items.join(QLatin1Char(';'));
}

SystemModel RandomInputs::config()
{
    QList<ComInfo> ports;
    for (int i = chance(0.1) ? below(20) : 9; i > 0; --i) {
        ComInfo port;
        port.setBaudRate(1200 << below(8));
        port.setDataBits(5 + below(4));
        port.setStopBits(1 + below(2));
        port.setInspectionType(static_cast<inspectionType>(below(3)));
        ports.append(port);
    }
    QList<IOType> lines;
    for (int i = chance(0.1) ? below(20) : 12; i > 0; --i)
        lines.append(static_cast<IOType>(below(3)));
    SystemModel model;
    model.setComInfo(ports);
    model.setIOType(lines);
    return model;
}

EventModel RandomInputs::events()
{
    EventModel model;
    for (int i = count(128); i > 0; --i) {
        EventInfo event;
        event.setEventId(below(256));
        event.setEventType(chance(0.3) ? EventInfo::EVENT_DELAY : EventInfo::EVENT_TYPE_0);
        event.setEventProtocolType(chance(0.5));
        event.setEventProtocol(event.getEventType() == EventInfo::EVENT_DELAY
                ? QString::number(below(0x10000))
                : hexText(chance(0.05) ? 330 : 20));
        event.setEventInstruction(text(chance(0.05) ? 200 : 20));
        event.setEventName(text(8));
        model.push_back(event);
    }
    return model;
}

TriggerModel RandomInputs::triggers()
{
    TriggerModel model;
    for (int i = count(64); i > 0; --i) {
        TriggerInfo trigger;
        trigger.setTriggerId(below(100));
        trigger.setTriggerType(static_cast<TriggerInfo::TriggerType>(below(3)));
        trigger.setCOMSelect(static_cast<COMSelect>(below(16)));
        trigger.setIOSelect(static_cast<IOSelect>(below(16)));
        trigger.setTriggerProtocolType(chance(0.5));
        trigger.setTriggerParameter(hexText(chance(0.05) ? 300 : 12));
        trigger.setTriggerEvent(eventList());
        trigger.setTriggerInstruction(text(chance(0.05) ? 60 : 12));
        model.push_back(trigger);
    }
    return model;
}

TriggerTimeModel RandomInputs::timeTriggers()
{
    const auto date = [this] {
        return QStringLiteral("20%1/%2/%3").arg(below(100)).arg(1 + below(12)).arg(1 + below(28));
    };
    TriggerTimeModel model;
    for (int i = count(64); i > 0; --i) {
        TriggerTimeInfo trigger;
        trigger.setTriggerId(below(100));
        trigger.setTriggerType(static_cast<TriggerTimeInfo::RepetMode>(below(3)));
        trigger.setStartDate(date());
        trigger.setEndDate(chance(0.3) ? text(6) : date());
        trigger.setSelectWeekly(
            QString::number(below(10000000)).rightJustified(7, QLatin1Char('0')));
        trigger.setTriggerTime(QStringLiteral("%1:%2").arg(below(24)).arg(below(60)));
        trigger.setTriggerEvent(eventList());
        trigger.setTriggerInstruction(text(chance(0.05) ? 60 : 12));
        model.push_back(trigger);
    }
    return model;
}

QString RandomInputs::clock()
{
    const QDateTime time =
        QDateTime::fromSecsSinceEpoch(946684800 + qint64(below(0x7FFFFFFF)), Qt::UTC);
    return time.toString(QStringLiteral("yyyy/MM/dd  HH:mm:ss"));
}

QString RandomInputs::address()
{
    if (chance(0.1))
        return QStringLiteral("10.0.1");
    return QStringLiteral("%1.%2.%3.%4")
        .arg(below(256))
        .arg(below(256))
        .arg(below(256))
        .arg(below(256));
}
