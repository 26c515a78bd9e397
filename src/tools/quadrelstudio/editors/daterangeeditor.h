// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "celleditor.h"

#include <optional>

class DateEditor;
class QLabel;

/** The days on which a time trigger is in force, as its record has them. */
struct DateRange {
    QString start;
    /** Absent: for ever. */
    std::optional<QString> end;
};
bool operator==(const DateRange& left, const DateRange& right);
Q_DECLARE_METATYPE(DateRange)

/** From a day to a day, or for ever. The value is a DateRange. */
class DateRangeEditor : public CellEditor {
    Q_OBJECT

public:
    explicit DateRangeEditor(QWidget* parent = nullptr);

    QVariant value() const override;
    void setValue(const QVariant& value) override;

private:
    void report();

    DateEditor* m_start;
    DateEditor* m_end;
    QLabel* m_length;
};
