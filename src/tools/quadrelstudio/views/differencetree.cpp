// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "differencetree.h"

#include <QtCore/QEvent>
#include <QtWidgets/QHeaderView>

using namespace QuadrelDocument;

namespace {

enum Column { Where, Before, After, ColumnCount };

QString kindText(const RecordChange& change)
{
    switch (change.kind) {
    case ChangeKind::Added:
        return DifferenceTree::tr("added");
    case ChangeKind::Removed:
        return DifferenceTree::tr("removed");
    case ChangeKind::Moved:
        return DifferenceTree::tr("moved");
    case ChangeKind::Changed:
        return change.isMoved ? DifferenceTree::tr("changed and moved")
                              : DifferenceTree::tr("changed");
    }
    Q_UNREACHABLE();
}

QTreeWidgetItem* itemOf(const RecordChange& change)
{
    auto* item = new QTreeWidgetItem({change.path, kindText(change), QString()});
    for (const FieldChange& field : change.fields) {
        auto* child = new QTreeWidgetItem(
            {field.field, field.before.value_or(QString()), field.after.value_or(QString())});
        child->setToolTip(Before, child->text(Before));
        child->setToolTip(After, child->text(After));
        item->addChild(child);
    }
    return item;
}

} // namespace

DifferenceTree::DifferenceTree(Kind kind, QWidget* parent)
    : QTreeWidget(parent)
    , m_kind(kind)
{
    setColumnCount(ColumnCount);
    setAlternatingRowColors(true);
    setEditTriggers(NoEditTriggers);
    setUniformRowHeights(true);
    retranslate();
}

void DifferenceTree::setDifference(const Difference& difference)
{
    m_difference = difference;
    clear();
    QList<QTreeWidgetItem*> items;
    for (const RecordChange& change : difference.changes) {
        QTreeWidgetItem* item = itemOf(change);
        if (m_kind == Kind::ToChoose)
            item->setCheckState(Where, Qt::Checked);
        items.append(item);
    }
    addTopLevelItems(items);
    expandAll();
    const int nameWidth = fontMetrics().averageCharWidth() * 30;
    const int valueWidth = fontMetrics().averageCharWidth() * 40;
    setColumnWidth(Where, nameWidth);
    setColumnWidth(Before, valueWidth);
}

QVector<RecordChange> DifferenceTree::chosen() const
{
    QVector<RecordChange> changes;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        if (topLevelItem(i)->checkState(Where) == Qt::Checked)
            changes.append(m_difference.changes.at(i));
    }
    return changes;
}

void DifferenceTree::chooseAll(bool isChosen)
{
    for (int i = 0; i < topLevelItemCount(); ++i)
        topLevelItem(i)->setCheckState(Where, isChosen ? Qt::Checked : Qt::Unchecked);
}

void DifferenceTree::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QTreeWidget::changeEvent(event);
}

void DifferenceTree::retranslate()
{
    setHeaderLabels({tr("What"), tr("Before"), tr("After")});
    setAccessibleName(tr("Differences"));
}
