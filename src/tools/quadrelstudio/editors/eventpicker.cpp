// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "eventpicker.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>

using namespace QuadrelDocument;

namespace {

constexpr int idRole = Qt::UserRole;
constexpr int shownRows = 7;
constexpr int shownColumns = 22;

QListWidgetItem* newItem(int id, const EventNames& names)
{
    auto* item = new QListWidgetItem(names.title(id));
    item->setData(idRole, id);
    item->setToolTip(item->text());
    if (!names.contains(id)) {
        QFont font;
        font.setItalic(true);
        item->setFont(font);
    }
    return item;
}

bool matches(int id, const EventNames& names, const QString& text)
{
    return QString::number(id).startsWith(text)
        || names.name(id).contains(text, Qt::CaseInsensitive);
}

} // namespace

EventPicker::EventPicker(const EventNames& names, Kind kind, QWidget* parent)
    : CellEditor(parent)
    , m_names(names)
    , m_kind(kind)
{
    makeWidgets();
    layOut();
    connectWidgets();
    setTabStops({m_search, m_found, m_add, m_chosen, m_remove, m_up, m_down});
    search(QString());
    report();
}

QVariant EventPicker::value() const
{
    QVector<int> ids;
    for (int row = 0; row < m_chosen->count(); ++row)
        ids.append(m_chosen->item(row)->data(idRole).toInt());
    return QVariant::fromValue(ids);
}

void EventPicker::setValue(const QVariant& value)
{
    m_chosen->clear();
    for (const int id : value.value<QVector<int>>())
        m_chosen->addItem(newItem(id, m_names));
    report();
}

void EventPicker::makeWidgets()
{
    m_search = new QLineEdit(this);
    m_search->setPlaceholderText(tr("Search by number or name"));
    m_search->setClearButtonEnabled(true);
    m_search->setAccessibleName(tr("Search for events"));
    m_found = new QListWidget(this);
    m_found->setAccessibleName(tr("Events"));
    m_chosen = new QListWidget(this);
    m_chosen->setAccessibleName(tr("Chosen events, in the order in which they run"));
    m_chosen->setDragDropMode(QAbstractItemView::InternalMove);
    const QSize size(
        fontMetrics().averageCharWidth() * shownColumns, fontMetrics().lineSpacing() * shownRows);
    for (QListWidget* list : {m_found, m_chosen}) {
        list->setUniformItemSizes(true);
        list->setMinimumSize(size);
    }
    m_count = new QLabel(this);
    m_add = new QPushButton(tr("&Add"), this);
    m_remove = new QPushButton(tr("&Remove"), this);
    m_up = new QPushButton(tr("&Up"), this);
    m_down = new QPushButton(tr("D&own"), this);
    m_add->setAccessibleName(tr("Add the event"));
    m_remove->setAccessibleName(tr("Take the event out"));
    m_up->setAccessibleName(tr("Run the event earlier"));
    m_down->setAccessibleName(tr("Run the event later"));
    for (QPushButton* button : {m_add, m_remove, m_up, m_down})
        button->setAutoDefault(false);
}

void EventPicker::layOut()
{
    auto* order = new QHBoxLayout;
    order->addWidget(m_remove);
    order->addWidget(m_up);
    order->addWidget(m_down);
    auto* layout = new QGridLayout(this);
    layout->addWidget(m_search, 0, 0);
    layout->addWidget(m_count, 0, 1);
    layout->addWidget(m_found, 1, 0);
    layout->addWidget(m_chosen, 1, 1);
    layout->addWidget(m_add, 2, 0);
    layout->addLayout(order, 2, 1);
    const bool isSeveral = m_kind == Several;
    m_up->setVisible(isSeveral);
    m_down->setVisible(isSeveral);
}

void EventPicker::connectWidgets()
{
    connect(m_search, &QLineEdit::textChanged, this, &EventPicker::search);
    connect(m_add, &QPushButton::clicked, this, [this] { addFound(m_found->currentItem()); });
    connect(m_found, &QListWidget::itemDoubleClicked, this, &EventPicker::addFound);
    connect(m_found, &QListWidget::currentRowChanged, this, &EventPicker::report);
    connect(m_chosen, &QListWidget::currentRowChanged, this, &EventPicker::report);
    connect(m_chosen->model(), &QAbstractItemModel::rowsMoved, this, &EventPicker::changeByUser);
    connect(m_remove, &QPushButton::clicked, this, &EventPicker::removeCurrent);
    connect(m_up, &QPushButton::clicked, this, [this] { moveCurrent(-1); });
    connect(m_down, &QPushButton::clicked, this, [this] { moveCurrent(1); });
    for (QWidget* control : {static_cast<QWidget*>(m_search), static_cast<QWidget*>(m_found),
             static_cast<QWidget*>(m_chosen)})
        takeKeysOf(control);
}

/** A number that no event has can be picked as well: the event may come later. */
void EventPicker::search(const QString& text)
{
    const QString wanted = text.trimmed();
    m_found->clear();
    for (const int id : m_names.ids()) {
        if (matches(id, m_names, wanted))
            m_found->addItem(newItem(id, m_names));
    }
    bool isNumber = false;
    const int id = wanted.toInt(&isNumber);
    if (isNumber && id >= 0 && id <= Limit::id && !m_names.contains(id))
        m_found->addItem(newItem(id, m_names));
    for (int row = 0; row < m_found->count(); ++row) {
        if (isNumber && m_found->item(row)->data(idRole).toInt() == id)
            m_found->setCurrentRow(row);
    }
    if (m_found->currentRow() < 0)
        m_found->setCurrentRow(0);
    report();
}

void EventPicker::addFound(const QListWidgetItem* item)
{
    if (!item)
        return;
    append(item->data(idRole).toInt());
    m_search->selectAll();
}

void EventPicker::append(int id)
{
    if (m_kind == One)
        m_chosen->clear();
    m_chosen->addItem(newItem(id, m_names));
    m_chosen->setCurrentRow(m_chosen->count() - 1);
    changeByUser();
}

void EventPicker::removeCurrent()
{
    delete m_chosen->takeItem(m_chosen->currentRow());
    changeByUser();
}

void EventPicker::moveCurrent(int step)
{
    const int row = m_chosen->currentRow();
    const int target = row + step;
    if (row < 0 || target < 0 || target >= m_chosen->count())
        return;
    m_chosen->insertItem(target, m_chosen->takeItem(row));
    m_chosen->setCurrentRow(target);
    changeByUser();
}

void EventPicker::changeByUser()
{
    report();
    emit edited();
}

void EventPicker::report()
{
    const int row = m_chosen->currentRow();
    m_add->setEnabled(m_found->currentRow() >= 0);
    m_remove->setEnabled(row >= 0);
    m_up->setEnabled(row > 0);
    m_down->setEnabled(row >= 0 && row + 1 < m_chosen->count());
    const int left = Limit::eventsOfTrigger - m_chosen->count();
    m_count->setText(left < 0 ? tr("%n too many", "events", -left)
            : m_kind == One   ? tr("Chosen")
                              : tr("%n chosen, in this order", "events", m_chosen->count()));
}

bool EventPicker::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (takesKey(watched, key->key(), key->modifiers() & ~Qt::KeypadModifier))
            return true;
    }
    return CellEditor::eventFilter(watched, event);
}

bool EventPicker::takesKey(QObject* control, int key, Qt::KeyboardModifiers modifiers)
{
    const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
    const bool isPlain = modifiers == Qt::NoModifier;
    if (control == m_search && isPlain && key == Qt::Key_Down)
        m_found->setFocus();
    else if (control == m_search && isPlain && isReturn && !m_search->selectedText().isEmpty())
        return false;
    else if (isPlain && isReturn
        && (control == m_found || (control == m_search && !m_search->text().isEmpty())))
        addFound(m_found->currentItem());
    else if (control == m_chosen && isPlain && key == Qt::Key_Delete)
        removeCurrent();
    else if (control == m_chosen && modifiers == Qt::AltModifier && key == Qt::Key_Up)
        moveCurrent(-1);
    else if (control == m_chosen && modifiers == Qt::AltModifier && key == Qt::Key_Down)
        moveCurrent(1);
    else
        return false;
    return true;
}
