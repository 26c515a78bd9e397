// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "celleditor.h"
#include "eventnames.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;

/**
 * Picks the events that a trigger runs, in order: on the left all events with a search, on the
 * right the chosen ones. The value is a QVector<int> of ids, which may be there more than once; ids
 * that no event has are shown as missing and kept.
 *
 * Keys: Down goes from the search to its results; Return adds the first or the current result;
 * Delete takes a chosen one out, Alt+Up and Alt+Down move it. Return without a search is the
 * editor's.
 */
class EventPicker : public CellEditor {
    Q_OBJECT

public:
    enum Kind {
        /** The next event that is picked takes the place of the last. */
        One,
        Several
    };
    explicit EventPicker(const EventNames& names, Kind kind = Several, QWidget* parent = nullptr);

    QVariant value() const override;
    void setValue(const QVariant& value) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeWidgets();
    void layOut();
    void connectWidgets();
    void search(const QString& text);
    void addFound(const QListWidgetItem* item);
    void append(int id);
    void removeCurrent();
    void moveCurrent(int step);
    void changeByUser();
    void report();
    bool takesKey(QObject* control, int key, Qt::KeyboardModifiers modifiers);

    EventNames m_names;
    Kind m_kind;
    QLineEdit* m_search;
    QListWidget* m_found;
    QListWidget* m_chosen;
    QLabel* m_count;
    QPushButton* m_add;
    QPushButton* m_remove;
    QPushButton* m_up;
    QPushButton* m_down;
};
