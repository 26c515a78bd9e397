// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "weekdayeditor.h"

#include "weekdays.h"

#include <QtCore/QEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QToolButton>

#include <algorithm>

WeekdayEditor::WeekdayEditor(Qt::DayOfWeek first, QWidget* parent)
    : CellEditor(parent)
    , m_layout(new QHBoxLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(1);
    for (int number = 1; number <= Weekdays::daysOfWeek; ++number) {
        const Qt::DayOfWeek day = Weekdays::dayOf(number, first);
        addButton(number, Weekdays::shortName(day), Weekdays::longName(day));
    }
}

QVariant WeekdayEditor::value() const
{
    QVector<int> chosen;
    for (int i = 0; i < m_buttons.size(); ++i) {
        if (m_buttons.at(i)->isChecked())
            chosen.append(m_numbers.at(i));
    }
    std::sort(chosen.begin(), chosen.end());
    return QVariant::fromValue(chosen);
}

void WeekdayEditor::setValue(const QVariant& value)
{
    const auto chosen = value.value<QVector<int>>();
    for (const int number : chosen) {
        if (!m_numbers.contains(number))
            addButton(
                number, QString::number(number), tr("Number %1, which is no day").arg(number));
    }
    for (int i = 0; i < m_buttons.size(); ++i)
        m_buttons.at(i)->setChecked(chosen.contains(m_numbers.at(i)));
}

void WeekdayEditor::changeEvent(QEvent* event)
{
    CellEditor::changeEvent(event);
    if (event->type() != QEvent::PaletteChange)
        return;
    for (QToolButton* button : m_buttons)
        showState(button);
}

/** Some styles show hardly a difference. */
void WeekdayEditor::showState(QToolButton* button)
{
    const bool isChosen = button->isChecked();
    QFont font = this->font();
    font.setBold(isChosen);
    button->setFont(font);
    QPalette colors = palette();
    if (isChosen) {
        colors.setBrush(QPalette::Button, colors.brush(QPalette::Highlight));
        colors.setBrush(QPalette::ButtonText, colors.brush(QPalette::HighlightedText));
    }
    button->setPalette(colors);
}

void WeekdayEditor::addButton(int number, const QString& text, const QString& name)
{
    auto* button = new QToolButton(this);
    button->setText(text);
    button->setCheckable(true);
    button->setAccessibleName(name);
    button->setToolTip(name);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Preferred);
    connect(button, &QToolButton::clicked, this, &WeekdayEditor::edited);
    connect(button, &QToolButton::toggled, this, [this, button] { showState(button); });
    m_layout->addWidget(button);
    m_numbers.append(number);
    m_buttons.append(button);
    setTabStops(QVector<QWidget*>(m_buttons.begin(), m_buttons.end()));
}
