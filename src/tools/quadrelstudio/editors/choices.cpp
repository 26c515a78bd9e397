// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "choices.h"

#include <QtCore/QCoreApplication>

using namespace QuadrelDocument;

namespace Choices {

namespace {

class Words {
    Q_DECLARE_TR_FUNCTIONS(Choices)
};

QVector<Choice> numbers(std::initializer_list<int> values)
{
    QVector<Choice> choices;
    for (const int value : values)
        choices.append({QString::number(value), value});
    return choices;
}

} // namespace

QVector<Choice> baudRates()
{
    return numbers({1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200});
}

QVector<Choice> dataBits()
{
    return numbers({5, 6, 7, 8});
}

QVector<Choice> stopBits()
{
    return numbers({1, 2});
}

QVector<Choice> inspections()
{
    constexpr int none = 2;
    return numbers({0, 1}) + QVector<Choice>{{Words::tr("None"), none}};
}

QVector<Choice> ioTypes()
{
    return numbers({0, 1, 2});
}

QVector<Choice> levels()
{
    return {{Words::tr("High"), static_cast<int>(Level::High)},
        {Words::tr("Low"), static_cast<int>(Level::Low)}, {Words::tr("None"), QVariant()}};
}

QVector<Choice> kinds()
{
    return {{Words::tr("Serial"), static_cast<int>(TriggerKind::Com)},
        {Words::tr("Modbus"), static_cast<int>(TriggerKind::ComModbus)},
        {Words::tr("IO"), static_cast<int>(TriggerKind::Io)}};
}

QVector<Choice> lines(TriggerKind kind, int count)
{
    QVector<Choice> choices;
    for (int line = 0; line < qMin(count, triggerLineCount); ++line)
        choices.append({lineLabel(kind, line), line});
    return choices;
}

QVector<Choice> repeats()
{
    return {{Words::tr("Every day"), static_cast<int>(Repeat::EveryDay)},
        {Words::tr("Weekly"), static_cast<int>(Repeat::Weekly)},
        {Words::tr("Once"), static_cast<int>(Repeat::Once)}};
}

} // namespace Choices
