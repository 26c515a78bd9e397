// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "celleditor.h"

class QHBoxLayout;
class QToolButton;

/**
 * A button for each of a unit's weekdays, which are numbers from 1. The value is a QVector<int>,
 * ascending. Numbers that are no day, such as a unit's eighth, have a button only where the value
 * has them.
 */
class WeekdayEditor : public CellEditor {
    Q_OBJECT

public:
    /** `first` is the day of number 1. */
    explicit WeekdayEditor(Qt::DayOfWeek first, QWidget* parent = nullptr);

    QVariant value() const override;
    void setValue(const QVariant& value) override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void showState(QToolButton* button);
    void addButton(int number, const QString& text, const QString& name);

    QVector<int> m_numbers;
    QVector<QToolButton*> m_buttons;
    QHBoxLayout* m_layout;
};
