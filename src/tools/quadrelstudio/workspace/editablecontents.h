// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "recordlists.h"

#include <QtCore/QObject>
#include <QtWidgets/QUndoStack>

/** A change to the records of a section, or to everything. */
struct ContentsChange {
    enum Kind {
        Inserted, ///< `count` records from `first` on
        Removed,  ///< `count` records from `first` on
        Moved,    ///< `count` records from `first` on, to ahead of `destination`
        Replaced, ///< the record `first`
        Reset     ///< all sections; nothing else here counts
    };
    Kind kind = Reset;
    QuadrelDocument::Section section = QuadrelDocument::Section::None;
    int first = 0;
    int count = 0;
    /** In places as they are before the change. */
    int destination = 0;
};

/**
 * Contents that people edit. Every edit is a step of the undo stack, and is announced before and
 * after it is done, as it is when it is undone or done again.
 */
class EditableContents : public QObject {
    Q_OBJECT

public:
    explicit EditableContents(QObject* parent = nullptr);

    const QuadrelDocument::Contents& contents() const { return m_contents; }
    QUndoStack& undoStack() { return m_undoStack; }
    const QUndoStack& undoStack() const { return m_undoStack; }

    // One step each; `text` names it in the list of steps.
    template <class Record>
    void insert(int row, const QVector<Record>& records, const QString& text);
    template <class Record> void remove(int row, int count, const QString& text);
    /** To ahead of `destination`, which counts as the rows are before the move. */
    template <class Record> void move(int row, int count, int destination, const QString& text);
    /** No step if the record is the same. */
    template <class Record> void replace(int row, const Record& record, const QString& text);
    /** No step if all is the same. */
    void replaceAll(const QuadrelDocument::Contents& contents, const QString& text);

    /** Begins again with other contents and without steps. */
    void reset(const QuadrelDocument::Contents& contents);

signals:
    void aboutToChange(const ContentsChange& change);
    void changed(const ContentsChange& change);

private:
    class Command;
    template <class Record> class InsertCommand;
    template <class Record> class RemoveCommand;
    template <class Record> class MoveCommand;
    template <class Record> class ReplaceCommand;
    class ReplaceAllCommand;

    template <class Record> auto& list() { return m_contents.*RecordList<Record>::member; }
    template <class Act> void make(const ContentsChange& change, Act act);

    QuadrelDocument::Contents m_contents;
    QUndoStack m_undoStack;
};
