// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "fullunit.h"

#include "unitaddresses.h"
#include "unitblocks.h"

using namespace QuadrelUnit;

namespace {

quint8 idOf(int index)
{
    return static_cast<quint8>(index + 1);
}

QByteArray eventTable()
{
    QByteArray table(1, static_cast<char>(FullUnit::events));
    for (int i = 0; i < FullUnit::events; ++i) {
        const QByteArray data = "POWER " + QByteArray::number(i) + " ON\r";
        const EventRecord event{idOf(i), serialCommand(i % 16, false, data),
            QStringLiteral("打开投影机 %1$$投影机").arg(i)};
        table += event.block();
    }
    return table;
}

QByteArray triggerTable()
{
    QByteArray table(1, static_cast<char>(FullUnit::tableEntries));
    const EventIds events{1, 5, 3, 128};
    const QString description = QStringLiteral("面板：开始上课");
    for (int i = 0; i < FullUnit::serialTriggers; ++i)
        table += SerialTriggerRecord{i % 14, i % 2 != 0, "PANEL 1\r", events, description}.block();
    for (int i = 0; i < FullUnit::inputTriggers; ++i)
        table += IoTriggerRecord{i, i % 2 != 0, events, description}.block();
    for (int i = 0; i < FullUnit::timeTriggers; ++i)
        table += TimeTriggerRecord{Repeat::Weekly, {2024, 9, 2}, {2026, 6, 30}, {7, 45}, 0b0011111,
            events, description}
                     .block();
    return table;
}

} // namespace

void FullUnit::fill(UnitMemory& memory)
{
    memory.write(Address::eventCount, eventTable());
    memory.write(Address::triggerCount, triggerTable());
}
