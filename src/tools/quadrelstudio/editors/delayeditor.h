// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "celleditor.h"

class QComboBox;
class QDoubleSpinBox;

/** A delay with a unit of time. The value is an int in milliseconds, 0 to 65535. */
class DelayEditor : public CellEditor {
    Q_OBJECT

public:
    explicit DelayEditor(QWidget* parent = nullptr);

    QVariant value() const override;
    /** Shown in the largest unit in which it is a whole number. */
    void setValue(const QVariant& value) override;

private:
    void showIn(int unit);

    QVariant m_given;
    int m_milliseconds = 0;
    bool m_isTouched = false;
    QDoubleSpinBox* m_number;
    QComboBox* m_unit;
};
