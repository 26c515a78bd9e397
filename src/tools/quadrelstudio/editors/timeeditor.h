// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "celleditor.h"

class QLabel;
class QTimeEdit;

/** A time of day. The value is a QString as a unit reports it: "08:05". */
class TimeEditor : public CellEditor {
    Q_OBJECT

public:
    explicit TimeEditor(QWidget* parent = nullptr);

    QVariant value() const override;
    /** A text that is no time is named beside the control. */
    void setValue(const QVariant& value) override;

private:
    void touch();

    QString m_given;
    bool m_isTouched = false;
    QTimeEdit* m_time;
    QLabel* m_note;
};
