// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "celleditor.h"
#include "choices.h"

class QComboBox;

/**
 * One of some choices. A value that is none of them gets a place of its own at the end, so that it
 * stays until another one is chosen.
 */
class ChoiceEditor : public CellEditor {
    Q_OBJECT

public:
    explicit ChoiceEditor(const QVector<Choice>& choices, QWidget* parent = nullptr);

    /** Numbers from `least` to `most` may be typed, too. */
    void allowNumbers(int least, int most);

    QVariant value() const override;
    void setValue(const QVariant& value) override;
    QString problem() const override;
    Draft draft() const override;
    void setDraft(const Draft& draft) override;

private:
    int placeOf(const QVariant& value) const;

    QVector<Choice> m_choices;
    QComboBox* m_box;
    int m_least = 0;
    int m_most = -1;
};
