// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "celldelegate.h"

#include "byteseditor.h"
#include "choiceeditor.h"
#include "dateeditor.h"
#include "daterangeeditor.h"
#include "delayeditor.h"
#include "editorrequest.h"
#include "eventpicker.h"
#include "texteditor.h"
#include "timeeditor.h"
#include "weekdayeditor.h"

#include <QtCore/QAbstractItemModel>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>

namespace {

constexpr char loadedValue[] = "quadrelLoadedValue";

CellEditor* numberEditor(const EditorRequest& request, QWidget* parent)
{
    auto* editor = new ChoiceEditor(request.choices, parent);
    editor->allowNumbers(request.least, request.most);
    return editor;
}

CellEditor* newEditor(const EditorRequest& request, QWidget* parent)
{
    switch (request.kind) {
    case EditorRequest::Default:
        return nullptr;
    case EditorRequest::Text:
        return new TextEditor(request.limit, request.alsoUsed, parent);
    case EditorRequest::Bytes:
        return new BytesEditor(request.limit, parent);
    case EditorRequest::Events:
        return new EventPicker(request.names, EventPicker::Several, parent);
    case EditorRequest::Event:
        return new EventPicker(request.names, EventPicker::One, parent);
    case EditorRequest::Delay:
        return new DelayEditor(parent);
    case EditorRequest::Weekdays:
        return new WeekdayEditor(request.firstWeekday, parent);
    case EditorRequest::Time:
        return new TimeEditor(parent);
    case EditorRequest::Date:
        return new DateEditor(DateEditor::Day, parent);
    case EditorRequest::EndDate:
        return new DateEditor(DateEditor::DayOrForever, parent);
    case EditorRequest::Dates:
        return new DateRangeEditor(parent);
    case EditorRequest::OneOf:
        return new ChoiceEditor(request.choices, parent);
    case EditorRequest::NumberOrOneOf:
        return numberEditor(request, parent);
    }
    Q_UNREACHABLE();
}

/** Variants of other types than the framework's are equal only if their addresses are. */
template <typename Value> void makeComparable()
{
    if (!QMetaType::hasRegisteredComparators<Value>())
        QMetaType::registerEqualsComparator<Value>();
}

bool areEqual(const QVariant& left, const QVariant& right)
{
    return left.isValid() == right.isValid() && left == right;
}

} // namespace

CellDelegate::CellDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
{
    makeComparable<QVector<int>>();
    makeComparable<DateRange>();
    connect(this, &CellDelegate::closeEditor, this, &CellDelegate::letGo);
}

bool CellDelegate::hasDraft(const QModelIndex& index) const
{
    return m_drafts.contains(index);
}

QWidget* CellDelegate::createEditor(
    QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    CellEditor* editor = newEditor(index.data(EditorRequest::role).value<EditorRequest>(), parent);
    if (!editor)
        return QStyledItemDelegate::createEditor(parent, option, index);
    const auto title = index.model()->headerData(index.column(), Qt::Horizontal).toString();
    editor->setAccessibleName(title);
    m_editedIndexes.insert(editor, index);
    // The framework makes editors in calls that are const; what an editor does is not.
    const_cast<CellDelegate*>(this)->listenTo(editor);
    return editor;
}

/** A model that says that something else has changed in the row does not replace the input. */
void CellDelegate::setEditorData(QWidget* widget, const QModelIndex& index) const
{
    auto* editor = qobject_cast<CellEditor*>(widget);
    if (!editor) {
        QStyledItemDelegate::setEditorData(widget, index);
        return;
    }
    const QVariant value = index.data(Qt::EditRole);
    const QVariant loaded = editor->property(loadedValue);
    if (loaded.isValid() && areEqual(loaded.toList().value(0), value))
        return;
    editor->setProperty(loadedValue, QVariantList{value});
    editor->setValue(value);
    if (m_drafts.contains(index))
        editor->setDraft(m_drafts.value(index));
}

void CellDelegate::setModelData(
    QWidget* widget, QAbstractItemModel* model, const QModelIndex& index) const
{
    const auto* editor = qobject_cast<CellEditor*>(widget);
    if (!editor) {
        QStyledItemDelegate::setModelData(widget, model, index);
        return;
    }
    const QVariant value = editor->value();
    if (!editor->problem().isEmpty()) {
        m_drafts.insert(index, editor->draft());
        emit draftKept(index, editor->problem());
        return;
    }
    m_drafts.remove(index);
    if (!areEqual(value, index.data(Qt::EditRole)))
        model->setData(index, value, Qt::EditRole);
}

void CellDelegate::updateEditorGeometry(
    QWidget* widget, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    if (!qobject_cast<CellEditor*>(widget)) {
        QStyledItemDelegate::updateEditorGeometry(widget, option, index);
        return;
    }
    const QRect table = widget->parentWidget()->rect();
    QRect place(option.rect.topLeft(), option.rect.size().expandedTo(widget->sizeHint()));
    place.setSize(place.size().boundedTo(table.size()));
    place.moveLeft(qBound(table.left(), place.left(), table.right() + 1 - place.width()));
    place.moveTop(qBound(table.top(), place.top(), table.bottom() + 1 - place.height()));
    widget->setGeometry(place);
}

bool CellDelegate::eventFilter(QObject* object, QEvent* event)
{
    const auto* editor = qobject_cast<CellEditor*>(object);
    if (editor && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && !editor->problem().isEmpty())
            return true;
        if (key == Qt::Key_Escape)
            m_drafts.remove(m_editedIndexes.value(editor));
    }
    return QStyledItemDelegate::eventFilter(object, event);
}

void CellDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (!hasDraft(index))
        return;
    option->text = tr("unfinished: %1").arg(m_drafts.value(index).text.simplified());
    option->font.setItalic(true);
}

void CellDelegate::listenTo(CellEditor* editor)
{
    connect(editor, &QObject::destroyed, this,
        [this](const QObject* gone) { m_editedIndexes.remove(gone); });
    connect(editor, &CellEditor::finished, this, [this, editor] { close(editor, NoHint); });
    connect(editor, &CellEditor::leftByTab, this, [this, editor](bool forwards) {
        if (editor->problem().isEmpty())
            close(editor, forwards ? EditNextItem : EditPreviousItem);
    });
}

void CellDelegate::close(CellEditor* editor, EndEditHint hint)
{
    emit commitData(editor);
    emit closeEditor(editor, hint);
}

/** Gives the keyboard back to the table, which asks the editor alone and not its controls. */
void CellDelegate::letGo(QWidget* widget)
{
    if (!qobject_cast<CellEditor*>(widget))
        return;
    widget->disconnect(this);
    m_editedIndexes.remove(widget);
    if (widget->isAncestorOf(QApplication::focusWidget()))
        widget->parentWidget()->setFocus();
}
