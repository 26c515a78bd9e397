// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "celldelegate.h"

#include "models/cellvalues.h"
#include "models/sectionmodel.h"

#include <QtWidgets/QLineEdit>

namespace {

CellKind kindOf(const QModelIndex& index)
{
    return index.data(SectionModel::KindRole).value<CellKind>();
}

} // namespace

CellDelegate::CellDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
{
}

QWidget* CellDelegate::createEditor(
    QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const
{
    auto* editor = new QLineEdit(parent);
    editor->setFrame(false);
    return editor;
}

void CellDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    static_cast<QLineEdit*>(editor)->setText(cellText(kindOf(index), index.data(Qt::EditRole)));
}

void CellDelegate::setModelData(
    QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    QVariant value;
    if (readCell(kindOf(index), static_cast<QLineEdit*>(editor)->text(), value))
        model->setData(index, value);
}
