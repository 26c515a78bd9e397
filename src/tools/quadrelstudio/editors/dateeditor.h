// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "celleditor.h"

class QCheckBox;
class QDateEdit;
class QLabel;

/**
 * A day from 2000 to 2099. The value is a QString as a unit reports it: "2024/03/07". An editor
 * that may be for ever has a box for it, and an invalid value then.
 */
class DateEditor : public CellEditor {
    Q_OBJECT

public:
    enum Kind { Day, DayOrForever };
    explicit DateEditor(Kind kind, QWidget* parent = nullptr);

    QVariant value() const override;
    /** A text that is no day is named beside the control. */
    void setValue(const QVariant& value) override;

private:
    void touch();
    void setForever(bool isForever);

    QVariant m_given;
    bool m_isTouched = false;
    QDateEdit* m_date;
    QCheckBox* m_forever;
    QLabel* m_note;
};
