// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <contentsdifference.h>

#include <QtWidgets/QTreeWidget>

/** How contents differ: a line for each record, below it one for each field. */
class DifferenceTree : public QTreeWidget {
    Q_OBJECT

public:
    enum class Kind {
        ToRead,
        /** Each record has a box, checked at first. */
        ToChoose
    };
    explicit DifferenceTree(Kind kind, QWidget* parent = nullptr);

    void setDifference(const QuadrelDocument::Difference& difference);
    /** The records whose boxes are checked. */
    QVector<QuadrelDocument::RecordChange> chosen() const;
    void chooseAll(bool isChosen);

protected:
    void changeEvent(QEvent* event) override;

private:
    void retranslate();

    const Kind m_kind;
    QuadrelDocument::Difference m_difference;
};
