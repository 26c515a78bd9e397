// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "celleditor.h"

class QLabel;
class QLineEdit;

/**
 * A line of text, and how many UTF-16 units of its limit are left. The value is a QString, which
 * may be longer than the limit: the editor says so and keeps all of it.
 */
class TextEditor : public CellEditor {
    Q_OBJECT

public:
    /** `alsoUsed`: what other texts take of the same limit. */
    explicit TextEditor(int limit, int alsoUsed = 0, QWidget* parent = nullptr);

    QVariant value() const override;
    void setValue(const QVariant& value) override;

private:
    void report();

    int m_limit;
    int m_alsoUsed;
    QString m_given;
    QLineEdit* m_line;
    QLabel* m_left;
};
