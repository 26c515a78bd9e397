// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "celleditor.h"

#include <QtCore/QHash>
#include <QtCore/QPersistentModelIndex>
#include <QtWidgets/QStyledItemDelegate>

/**
 * Edits the cells of a table with what their model asks for; see EditorRequest.
 *
 * Input that is no value yet is never lost: Return and Tab keep the editor open, and a cell that is
 * left with the mouse keeps the input until it is edited again, or until Escape. The table shows
 * it.
 */
class CellDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit CellDelegate(QObject* parent = nullptr);

    /** Whether the cell keeps input that is no value yet. */
    bool hasDraft(const QModelIndex& index) const;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    void setEditorData(QWidget* widget, const QModelIndex& index) const override;
    void setModelData(
        QWidget* widget, QAbstractItemModel* model, const QModelIndex& index) const override;
    /** As large as the editor needs, within the table. */
    void updateEditorGeometry(QWidget* widget, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;

signals:
    /** The cell was left with input that is no value; why is a sentence. */
    void draftKept(const QModelIndex& index, const QString& why) const;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    void listenTo(CellEditor* editor);
    void close(CellEditor* editor, EndEditHint hint);
    void letGo(QWidget* widget);

    mutable QHash<QPersistentModelIndex, CellEditor::Draft> m_drafts;
    mutable QHash<const QObject*, QPersistentModelIndex> m_editedIndexes;
};
