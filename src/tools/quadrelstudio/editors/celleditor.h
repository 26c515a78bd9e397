// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QVariant>
#include <QtCore/QVector>
#include <QtWidgets/QFrame>

/**
 * Edits one value, in a cell of a table (see CellDelegate) or in a form.
 *
 * Tab goes through its controls and then out of it; Return and Escape reach it from all of them.
 * A value that it can't show, such as a time 25:70, stays as it is until the user changes it.
 */
class CellEditor : public QFrame {
    Q_OBJECT
    Q_PROPERTY(QVariant value READ value WRITE setValue NOTIFY edited USER true)

public:
    /** What was typed into one of the editor's controls. */
    struct Draft {
        QString text;
        int control = 0;
    };

    explicit CellEditor(QWidget* parent = nullptr);
    ~CellEditor() override;

    virtual QVariant value() const = 0;
    /** Shows the value; edited() is not emitted. */
    virtual void setValue(const QVariant& value) = 0;

    /** Why the input is no value, as a sentence; empty if it is one. */
    virtual QString problem() const;
    /** The input where it is no value, as setDraft() of another editor of the class takes it. */
    virtual Draft draft() const;
    virtual void setDraft(const Draft& draft);

signals:
    /** The user has changed the input. */
    void edited();
    /** The keyboard's focus has left for another control of the window. */
    void finished();
    /** Tab, or Shift+Tab, leads out of the editor; if nobody listens, to the window's next control.
     */
    void leftByTab(bool forwards);

protected:
    /** The controls in the order of Tab; the first gets the focus of the editor. */
    void setTabStops(const QVector<QWidget*>& stops);
    /** Return and Escape in the control go to the editor, not to the control. */
    void takeKeysOf(QWidget* control);

    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool holds(const QWidget* widget) const;

    QVector<QWidget*> m_tabStops;
};
