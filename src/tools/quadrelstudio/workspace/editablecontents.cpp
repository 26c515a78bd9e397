// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "editablecontents.h"

#include <algorithm>

using namespace QuadrelDocument;

template <class Act> void EditableContents::make(const ContentsChange& change, Act act)
{
    emit aboutToChange(change);
    act();
    emit changed(change);
}

class EditableContents::Command : public QUndoCommand {
public:
    Command(EditableContents& document, const QString& text)
        : QUndoCommand(text)
        , m_document(document)
    {
    }

protected:
    EditableContents& m_document;
};

template <class Record> class EditableContents::InsertCommand : public Command {
public:
    InsertCommand(
        EditableContents& document, const QString& text, int row, const QVector<Record>& records)
        : Command(document, text)
        , m_row(row)
        , m_records(records)
        , m_makesSection(!document.list<Record>())
    {
    }

    void redo() override
    {
        m_document.make(change(ContentsChange::Inserted), [this] {
            auto& list = m_document.list<Record>();
            if (!list)
                list.emplace();
            list->insert(m_row, m_records.size(), Record());
            std::copy(m_records.begin(), m_records.end(), list->begin() + m_row);
        });
    }

    void undo() override
    {
        m_document.make(change(ContentsChange::Removed), [this] {
            auto& list = m_document.list<Record>();
            list->remove(m_row, m_records.size());
            if (m_makesSection)
                list.reset();
        });
    }

private:
    ContentsChange change(ContentsChange::Kind kind) const
    {
        return {kind, RecordList<Record>::section, m_row, m_records.size(), 0};
    }

    const int m_row;
    const QVector<Record> m_records;
    const bool m_makesSection;
};

template <class Record> class EditableContents::RemoveCommand : public Command {
public:
    RemoveCommand(EditableContents& document, const QString& text, int row, int count)
        : Command(document, text)
        , m_row(row)
        , m_records(document.list<Record>()->mid(row, count))
    {
    }

    void redo() override
    {
        m_document.make(change(ContentsChange::Removed),
            [this] { m_document.list<Record>()->remove(m_row, m_records.size()); });
    }

    void undo() override
    {
        m_document.make(change(ContentsChange::Inserted), [this] {
            auto& list = *m_document.list<Record>();
            list.insert(m_row, m_records.size(), Record());
            std::copy(m_records.begin(), m_records.end(), list.begin() + m_row);
        });
    }

private:
    ContentsChange change(ContentsChange::Kind kind) const
    {
        return {kind, RecordList<Record>::section, m_row, m_records.size(), 0};
    }

    const int m_row;
    const QVector<Record> m_records;
};

template <class Record> class EditableContents::MoveCommand : public Command {
public:
    MoveCommand(
        EditableContents& document, const QString& text, int row, int count, int destination)
        : Command(document, text)
        , m_row(row)
        , m_count(count)
        , m_destination(destination)
    {
    }

    void redo() override { move(m_row, m_destination); }
    void undo() override
    {
        const bool goesDown = m_destination > m_row;
        if (goesDown)
            move(m_destination - m_count, m_row);
        else
            move(m_destination, m_row + m_count);
    }

private:
    void move(int from, int to)
    {
        const ContentsChange change{
            ContentsChange::Moved, RecordList<Record>::section, from, m_count, to};
        m_document.make(change, [&] {
            const auto begin = m_document.list<Record>()->begin();
            if (to > from)
                std::rotate(begin + from, begin + from + m_count, begin + to);
            else
                std::rotate(begin + to, begin + from, begin + from + m_count);
        });
    }

    const int m_row;
    const int m_count;
    const int m_destination;
};

template <class Record> class EditableContents::ReplaceCommand : public Command {
public:
    ReplaceCommand(EditableContents& document, const QString& text, int row, const Record& record)
        : Command(document, text)
        , m_row(row)
        , m_other(record)
    {
    }

    void redo() override { swap(); }
    void undo() override { swap(); }

private:
    void swap()
    {
        const ContentsChange change{
            ContentsChange::Replaced, RecordList<Record>::section, m_row, 1, 0};
        m_document.make(
            change, [this] { std::swap((*m_document.list<Record>())[m_row], m_other); });
    }

    const int m_row;
    /** The record that is not in the contents. */
    Record m_other;
};

class EditableContents::ReplaceAllCommand : public Command {
public:
    ReplaceAllCommand(EditableContents& document, const QString& text, const Contents& contents)
        : Command(document, text)
        , m_other(contents)
    {
    }

    void redo() override { swap(); }
    void undo() override { swap(); }

private:
    void swap()
    {
        m_document.make({}, [this] { std::swap(m_document.m_contents, m_other); });
    }

    /** The contents that are not those of the document. */
    Contents m_other;
};

EditableContents::EditableContents(QObject* parent)
    : QObject(parent)
{
}

template <class Record>
void EditableContents::insert(int row, const QVector<Record>& records, const QString& text)
{
    if (!records.isEmpty())
        m_undoStack.push(new InsertCommand<Record>(*this, text, row, records));
}

template <class Record> void EditableContents::remove(int row, int count, const QString& text)
{
    if (count > 0)
        m_undoStack.push(new RemoveCommand<Record>(*this, text, row, count));
}

template <class Record>
void EditableContents::move(int row, int count, int destination, const QString& text)
{
    const bool staysThere = destination >= row && destination <= row + count;
    if (!staysThere)
        m_undoStack.push(new MoveCommand<Record>(*this, text, row, count, destination));
}

template <class Record>
void EditableContents::replace(int row, const Record& record, const QString& text)
{
    if (!(list<Record>()->at(row) == record))
        m_undoStack.push(new ReplaceCommand<Record>(*this, text, row, record));
}

void EditableContents::replaceAll(const Contents& contents, const QString& text)
{
    if (contents != m_contents)
        m_undoStack.push(new ReplaceAllCommand(*this, text, contents));
}

void EditableContents::reset(const Contents& contents)
{
    m_undoStack.clear();
    make({}, [&] { m_contents = contents; });
}

#define EDITS_OF(Record)                                                                           \
    template void EditableContents::insert(int, const QVector<Record>&, const QString&);           \
    template void EditableContents::remove<Record>(int, int, const QString&);                      \
    template void EditableContents::move<Record>(int, int, int, const QString&);                   \
    template void EditableContents::replace(int, const Record&, const QString&);
EDITS_OF(SerialPort)
EDITS_OF(IoLine)
EDITS_OF(Event)
EDITS_OF(Trigger)
EDITS_OF(TimeTrigger)
#undef EDITS_OF
