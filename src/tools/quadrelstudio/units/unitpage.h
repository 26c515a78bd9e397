// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <finding.h>

#include <QtCore/QMap>
#include <QtWidgets/QWidget>

class FindingsList;
class OperationBar;
class QListWidget;
class QSplitter;
class QStackedWidget;
class TablePage;
class UnitWorkspace;

/** All that there is of one unit or document: its pages, and below them what is wrong with it. */
class UnitPage : public QWidget {
    Q_OBJECT

public:
    /** The workspace outlives it. */
    explicit UnitPage(UnitWorkspace& workspace, QWidget* parent = nullptr);

    UnitWorkspace& workspace() const { return m_workspace; }
    OperationBar& operationBar() { return *m_bar; }
    /** The table of a section that has one. */
    TablePage& table(QuadrelDocument::Section section) { return *m_tables.value(section); }
    void showSection(QuadrelDocument::Section section);
    void showPlace(const QuadrelDocument::Place& place);

protected:
    void changeEvent(QEvent* event) override;

private:
    void addPage(QWidget* page);
    void retranslate();

    UnitWorkspace& m_workspace;
    OperationBar* m_bar;
    QListWidget* m_list;
    QStackedWidget* m_pages;
    QSplitter* m_splitter;
    FindingsList* m_findings;
    QMap<QuadrelDocument::Section, TablePage*> m_tables;
};
