// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "celleditor.h"

#include <QtCore/QMetaMethod>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>

CellEditor::CellEditor(QWidget* parent)
    : QFrame(parent)
{
    setAutoFillBackground(true);
    setFrameShape(QFrame::StyledPanel);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* old, QWidget* now) {
        if (now && holds(old) && !holds(now))
            emit finished();
    });
}

CellEditor::~CellEditor()
{
    // The control that has the focus gives it up, and reports its input, when this is only a
    // widget.
    disconnect(qApp, nullptr, this, nullptr);
    for (QObject* control : findChildren<QObject*>())
        control->disconnect(this);
}

QString CellEditor::problem() const
{
    return {};
}

CellEditor::Draft CellEditor::draft() const
{
    return {};
}

void CellEditor::setDraft(const Draft& draft)
{
    Q_UNUSED(draft)
}

void CellEditor::setTabStops(const QVector<QWidget*>& stops)
{
    m_tabStops = stops;
    setFocusProxy(stops.value(0));
}

void CellEditor::takeKeysOf(QWidget* control)
{
    control->installEventFilter(this);
}

bool CellEditor::focusNextPrevChild(bool next)
{
    const QWidget* current = QApplication::focusWidget();
    int place = 0;
    while (place < m_tabStops.size() && m_tabStops.at(place) != current
        && !m_tabStops.at(place)->isAncestorOf(current))
        ++place;
    const int step = next ? 1 : -1;
    for (place += step; place >= 0 && place < m_tabStops.size(); place += step) {
        QWidget* stop = m_tabStops.at(place);
        if (stop->isVisibleTo(this) && stop->isEnabled()) {
            stop->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    }
    if (!isSignalConnected(QMetaMethod::fromSignal(&CellEditor::leftByTab)))
        return QFrame::focusNextPrevChild(next);
    emit leftByTab(next);
    return true;
}

bool CellEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QFrame::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool isEnd =
        key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter || key->key() == Qt::Key_Escape;
    if (!isEnd || (key->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return QFrame::eventFilter(watched, event);
    QKeyEvent forEditor(key->type(), key->key(), key->modifiers(), key->text());
    QApplication::sendEvent(this, &forEditor);
    return true;
}

/** Also across the windows of pop-up lists and calendars. */
bool CellEditor::holds(const QWidget* widget) const
{
    while (widget && widget != this)
        widget = widget->parentWidget();
    return widget;
}
