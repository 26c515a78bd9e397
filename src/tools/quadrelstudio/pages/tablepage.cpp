// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "tablepage.h"

#include "editors/celldelegate.h"
#include "models/sectionmodel.h"
#include "sectiontexts.h"
#include "views/recordview.h"

#include <QtCore/QEvent>
#include <QtCore/QSortFilterProxyModel>
#include <QtGui/QClipboard>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

using namespace QuadrelDocument;

TablePage::TablePage(UnitWorkspace& workspace, Section section, QWidget* parent)
    : QWidget(parent)
    , m_section(section)
    , m_model(SectionModel::create(workspace, section))
    , m_proxy(new QSortFilterProxyModel(this))
    , m_filter(new QLineEdit(this))
    , m_view(new RecordView(this))
    , m_message(new QLabel(this))
{
    m_proxy->setSourceModel(m_model.get());
    m_proxy->setSortRole(SectionModel::SortRole);
    m_proxy->setSortLocaleAware(true);
    m_proxy->setFilterKeyColumn(-1);
    m_proxy->setFilterCaseSensitivity(Qt::CaseInsensitive);

    m_view->setModel(m_proxy);
    auto* delegate = new CellDelegate(m_view);
    connect(delegate, &CellDelegate::draftKept, this,
        [this](const QModelIndex&, const QString& why) { showMessage(why); });
    m_view->setItemDelegate(delegate);
    m_view->setDragDropMode(QAbstractItemView::DragDrop);
    m_view->setDefaultDropAction(Qt::MoveAction);
    m_view->setDragDropOverwriteMode(false);
    m_view->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_view->horizontalHeader()->setSectionsClickable(true);
    m_view->horizontalHeader()->setSortIndicatorShown(false);
    connect(m_view->horizontalHeader(), &QHeaderView::sectionClicked, this, &TablePage::sortBy);

    m_filter->setClearButtonEnabled(true);
    connect(m_filter, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_proxy->setFilterFixedString(text);
        retranslate();
    });
    m_message->setWordWrap(true);
    m_message->hide();

    auto* tools = new QHBoxLayout;
    const auto addButton = [this, tools](QAction* action) {
        auto* button = new QToolButton(this);
        button->setDefaultAction(action);
        button->setFocusPolicy(Qt::TabFocus);
        tools->addWidget(button);
    };
    addButton(addAction(m_add, Qt::Key_Insert, &TablePage::addRow));
    addButton(addAction(m_duplicate, Qt::CTRL | Qt::Key_D, &TablePage::duplicateRows));
    addButton(addAction(m_delete, QKeySequence::Delete, &TablePage::deleteRows));
    addButton(addAction(m_up, Qt::ALT | Qt::Key_Up, &TablePage::moveUp));
    addButton(addAction(m_down, Qt::ALT | Qt::Key_Down, &TablePage::moveDown));
    addAction(m_copy, QKeySequence::Copy, &TablePage::copyRows);
    addAction(m_paste, QKeySequence::Paste, &TablePage::pasteRows);
    addAction(m_unsort, QKeySequence(), &TablePage::clearSorting);
    tools->addStretch();
    m_filter->setMinimumWidth(fontMetrics().averageCharWidth() * 24);
    tools->addWidget(m_filter);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(tools);
    layout->addWidget(m_view);
    layout->addWidget(m_message);

    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
        &TablePage::updateActions);
    connect(m_model.get(), &SectionModel::modelReset, this, [this] {
        m_view->fitColumns();
        updateActions();
    });
    retranslate();
    m_view->fitColumns();
    updateActions();
}

TablePage::~TablePage()
{
    // The view's selection looks at the model until it is gone.
    delete m_view;
}

QAction* TablePage::addAction(
    QAction*& action, const QKeySequence& shortcut, void (TablePage::*act)())
{
    action = new QAction(this);
    action->setShortcut(shortcut);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this, act);
    m_view->addAction(action);
    return action;
}

QList<int> TablePage::selectedRows() const
{
    QList<int> rows;
    const QModelIndexList indexes = m_view->selectionModel()->selectedRows();
    for (const QModelIndex& index : indexes)
        rows.append(m_proxy->mapToSource(index).row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

void TablePage::selectRows(int first, int count)
{
    m_view->clearSelection();
    for (int row = first; row < first + count; ++row) {
        const QModelIndex index = m_proxy->mapFromSource(m_model->index(row, 0));
        m_view->selectionModel()->select(
            index, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    const QModelIndex current = m_proxy->mapFromSource(m_model->index(first, 0));
    m_view->selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    m_view->scrollTo(current);
}

void TablePage::showPlace(const Place& place)
{
    if (place.index < 0 || place.index >= m_model->rowCount())
        return;
    m_filter->clear();
    const QModelIndex index =
        m_proxy->mapFromSource(m_model->index(place.index, m_model->columnOf(place.field)));
    m_view->setCurrentIndex(index);
    m_view->scrollTo(index);
    m_view->setFocus();
}

void TablePage::addRow()
{
    const QList<int> rows = selectedRows();
    const int row = rows.isEmpty() ? m_model->rowCount() : rows.last() + 1;
    m_filter->clear();
    m_model->addRow(row);
    selectRows(row, 1);
    m_view->setFocus();
}

void TablePage::duplicateRows()
{
    const QList<int> rows = selectedRows();
    if (rows.isEmpty())
        return;
    m_model->duplicateRows(rows);
    selectRows(rows.last() + 1, rows.size());
}

void TablePage::deleteRows()
{
    const QList<int> rows = selectedRows();
    if (rows.isEmpty())
        return;
    m_model->removeRecords(rows);
    if (m_model->rowCount() > 0)
        selectRows(qMin(rows.first(), m_model->rowCount() - 1), 1);
}

void TablePage::moveRows(int direction)
{
    const QList<int> rows = selectedRows();
    if (rows.isEmpty())
        return;
    const int destination = direction < 0 ? rows.first() - 1 : rows.last() + 2;
    if (destination < 0 || destination > m_model->rowCount())
        return;
    m_model->moveRecords(rows, destination);
    selectRows(direction < 0 ? destination : destination - rows.size(), rows.size());
}

void TablePage::copyRows()
{
    const QList<int> rows = selectedRows();
    if (!rows.isEmpty())
        QApplication::clipboard()->setText(m_model->rowsText(rows));
}

void TablePage::pasteRows()
{
    const QList<int> rows = selectedRows();
    const int before = m_model->rowCount();
    const int row = rows.isEmpty() ? before : rows.last() + 1;
    const QString error = m_model->insertText(row, QApplication::clipboard()->text());
    showMessage(error);
    if (error.isEmpty())
        selectRows(row, m_model->rowCount() - before);
}

void TablePage::showMessage(const QString& text)
{
    m_message->setText(text);
    m_message->setVisible(!text.isEmpty());
}

/** By a column, then downwards, then in the order of the document again. */
void TablePage::sortBy(int column)
{
    QHeaderView* header = m_view->horizontalHeader();
    if (m_proxy->sortColumn() == column && m_proxy->sortOrder() == Qt::DescendingOrder) {
        clearSorting();
        return;
    }
    const bool isSecond = m_proxy->sortColumn() == column;
    const Qt::SortOrder order = isSecond ? Qt::DescendingOrder : Qt::AscendingOrder;
    header->setSortIndicatorShown(true);
    header->setSortIndicator(column, order);
    m_proxy->sort(column, order);
    updateActions();
}

void TablePage::clearSorting()
{
    m_view->horizontalHeader()->setSortIndicatorShown(false);
    m_proxy->sort(-1);
    updateActions();
}

void TablePage::updateActions()
{
    const bool isSorted = m_proxy->sortColumn() >= 0;
    const bool hasSelection = m_view->selectionModel()->hasSelection();
    for (QAction* action : {m_duplicate, m_delete, m_copy})
        action->setEnabled(hasSelection);
    // A place in the order means nothing while the rows are in another one.
    m_up->setEnabled(hasSelection && !isSorted);
    m_down->setEnabled(hasSelection && !isSorted);
    m_view->setDragEnabled(!isSorted);
    m_unsort->setEnabled(isSorted);
}

void TablePage::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        m_view->fitColumns();
    }
    QWidget::changeEvent(event);
}

void TablePage::retranslate()
{
    const auto setTexts = [](QAction* action, const QString& text, const QString& toolTip) {
        action->setText(text);
        const QString keys = action->shortcut().toString(QKeySequence::NativeText);
        action->setToolTip(keys.isEmpty() ? toolTip : QStringLiteral("%1 (%2)").arg(toolTip, keys));
    };
    setTexts(m_add, tr("Add"), tr("Add a row below the selected one"));
    setTexts(m_duplicate, tr("Duplicate"), tr("Add a copy of the selected rows"));
    setTexts(m_delete, tr("Delete"), tr("Delete the selected rows"));
    setTexts(m_up, tr("Up"), tr("Move the selected rows up"));
    setTexts(m_down, tr("Down"), tr("Move the selected rows down"));
    setTexts(m_copy, tr("Copy rows"), tr("Copy the selected rows as text"));
    setTexts(m_paste, tr("Paste rows"), tr("Insert rows of text"));
    setTexts(m_unsort, tr("Order of the unit"), tr("Show the rows in the order of the unit"));
    m_filter->setPlaceholderText(tr("Filter"));
    m_filter->setAccessibleName(tr("Filter of the rows"));
    m_message->setAccessibleName(tr("What went wrong"));
    m_view->setAccessibleName(sectionTitle(m_section));
    m_view->setEmptyText(m_filter->text().isEmpty()
            ? emptyText(m_section)
            : tr("No row contains \"%1\".").arg(m_filter->text()));
}
