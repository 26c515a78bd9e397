// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <finding.h>

#include <QtWidgets/QWidget>

class FindingsModel;
class QLabel;
class RecordView;
class UnitWorkspace;

/** What is wrong with the contents of a workspace; a double click or Return goes there. */
class FindingsList : public QWidget {
    Q_OBJECT

public:
    explicit FindingsList(UnitWorkspace& workspace, QWidget* parent = nullptr);

    RecordView& view() { return *m_view; }

signals:
    void activated(const QuadrelDocument::Place& place);

protected:
    void changeEvent(QEvent* event) override;

private:
    void update();
    void retranslate();

    FindingsModel* m_model;
    QLabel* m_summary;
    RecordView* m_view;
};
