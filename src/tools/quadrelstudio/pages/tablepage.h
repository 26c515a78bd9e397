// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <finding.h>

#include <QtWidgets/QWidget>

#include <memory>

class QAction;
class QLabel;
class QLineEdit;
class QSortFilterProxyModel;
class RecordView;
class SectionModel;
class UnitWorkspace;

/** The table of a section, with what can be done to its rows. */
class TablePage : public QWidget {
    Q_OBJECT

public:
    TablePage(
        UnitWorkspace& workspace, QuadrelDocument::Section section, QWidget* parent = nullptr);
    ~TablePage() override;

    RecordView& view() { return *m_view; }
    SectionModel& model() { return *m_model; }
    /** Goes to a record and one of its fields. */
    void showPlace(const QuadrelDocument::Place& place);

    // The rows are those that are selected.
    void addRow();
    void duplicateRows();
    void deleteRows();
    /** Up with -1, down with 1. */
    void moveRows(int direction);
    void copyRows();
    void pasteRows();
    /** Shows the records in the order of the document. */
    void clearSorting();

protected:
    void changeEvent(QEvent* event) override;

private:
    QAction* addAction(QAction*& action, const QKeySequence& shortcut, void (TablePage::*act)());
    void moveUp() { moveRows(-1); }
    void moveDown() { moveRows(1); }
    QList<int> selectedRows() const;
    void selectRows(int first, int count);
    void showMessage(const QString& text);
    void sortBy(int column);
    void updateActions();
    void retranslate();

    const QuadrelDocument::Section m_section;
    std::unique_ptr<SectionModel> m_model;
    QSortFilterProxyModel* m_proxy;
    QLineEdit* m_filter;
    RecordView* m_view;
    QLabel* m_message;
    QAction* m_add = nullptr;
    QAction* m_duplicate = nullptr;
    QAction* m_delete = nullptr;
    QAction* m_up = nullptr;
    QAction* m_down = nullptr;
    QAction* m_copy = nullptr;
    QAction* m_paste = nullptr;
    QAction* m_unsort = nullptr;
};
