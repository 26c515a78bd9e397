// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtWidgets/QTableView>

/** A table of whole rows that says what to do while it is empty. */
class RecordView : public QTableView {
    Q_OBJECT

public:
    explicit RecordView(QWidget* parent = nullptr);

    void setEmptyText(const QString& text);
    /** As wide as their contents, within bounds; the last one takes the rest. */
    void fitColumns();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_emptyText;
};
