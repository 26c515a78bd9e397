// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "delayeditor.h"

#include <unitcontents.h>

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QHBoxLayout>

namespace {

struct Unit {
    int milliseconds;
    /** Enough for every whole number of milliseconds. */
    int decimals;
    double step;
};

constexpr Unit units[] = {{1, 0, 10}, {1000, 3, 0.5}, {60000, 5, 0.5}};
constexpr int lastUnit = 2;

} // namespace

DelayEditor::DelayEditor(QWidget* parent)
    : CellEditor(parent)
    , m_number(new QDoubleSpinBox(this))
    , m_unit(new QComboBox(this))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_number, 1);
    layout->addWidget(m_unit);
    m_unit->addItems({tr("ms"), tr("s"), tr("min")});
    m_number->setAccessibleName(tr("Delay"));
    m_unit->setAccessibleName(tr("Unit of time"));
    m_number->setToolTip(tr("0 to %1 ms").arg(QuadrelDocument::Limit::delay));
    showIn(0);

    connect(m_number, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
        [this](double number) {
            m_milliseconds = qRound(number * units[m_unit->currentIndex()].milliseconds);
            m_isTouched = true;
            emit edited();
        });
    connect(
        m_unit, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &DelayEditor::showIn);
    setTabStops({m_number, m_unit});
}

QVariant DelayEditor::value() const
{
    m_number->interpretText();
    return m_isTouched ? QVariant(m_milliseconds) : m_given;
}

void DelayEditor::setValue(const QVariant& value)
{
    m_given = value;
    m_isTouched = false;
    m_milliseconds = qBound(0, value.toInt(), QuadrelDocument::Limit::delay);
    int unit = lastUnit;
    while (m_milliseconds == 0 ? unit > 0 : m_milliseconds % units[unit].milliseconds != 0)
        --unit;
    const QSignalBlocker quiet(m_unit);
    m_unit->setCurrentIndex(unit);
    showIn(unit);
    m_number->selectAll();
}

void DelayEditor::showIn(int unit)
{
    const QSignalBlocker quiet(m_number);
    const double factor = units[unit].milliseconds;
    m_number->setDecimals(units[unit].decimals);
    m_number->setSingleStep(units[unit].step);
    m_number->setRange(0, QuadrelDocument::Limit::delay / factor);
    m_number->setValue(m_milliseconds / factor);
}
