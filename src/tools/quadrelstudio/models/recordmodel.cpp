// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "recordmodel.h"

#include "cellrequests.h"
#include "newrecords.h"
#include "rowstext.h"

#include <QtCore/QCoreApplication>

#include <algorithm>

using namespace QuadrelDocument;

namespace {

/** The runs of neighbouring rows, the last run first, so that removing one moves no other. */
QVector<QPair<int, int>> runsOf(QList<int> rows)
{
    std::sort(rows.begin(), rows.end());
    QVector<QPair<int, int>> runs;
    for (const int row : rows) {
        if (!runs.isEmpty() && runs.first().first + runs.first().second == row)
            ++runs.first().second;
        else
            runs.prepend({row, 1});
    }
    return runs;
}

} // namespace

template <class Record> QString RecordModel<Record>::title(int column) const
{
    return QCoreApplication::translate("Columns", columnOf(column).title);
}

template <class Record> QString RecordModel<Record>::shown(int row, int column) const
{
    const Column<Record>& shown = columnOf(column);
    return shown.show ? shown.show(record(row), workspace().contents())
                      : shownCell(kind(row, column), value(row, column));
}

template <class Record> bool RecordModel<Record>::isEditable(int row, int column) const
{
    const Column<Record>& edited = columnOf(column);
    return edited.set && (!edited.applies || edited.applies(record(row)));
}

template <class Record> EditorRequest RecordModel<Record>::editorRequest(int row, int column) const
{
    EditorRequest request = requestOf(kind(row, column), workspace().contents());
    if (columnOf(column).refine)
        columnOf(column).refine(request, record(row));
    return request;
}

template <class Record> void RecordModel<Record>::addRow(int row)
{
    document().template insert<Record>(
        row, {newRecord<Record>(workspace().contents())}, SectionModel::tr("Add"));
}

template <class Record> void RecordModel<Record>::duplicateRows(QList<int> rows)
{
    if (rows.isEmpty())
        return;
    std::sort(rows.begin(), rows.end());
    QVector<Record> copies;
    for (const int row : rows)
        copies.append(record(row));
    renumber(copies, workspace().contents());
    document().insert(rows.last() + 1, copies, SectionModel::tr("Duplicate"));
}

template <class Record> void RecordModel<Record>::removeRecords(QList<int> rows)
{
    const auto runs = runsOf(rows);
    if (runs.isEmpty())
        return;
    document().undoStack().beginMacro(SectionModel::tr("Delete"));
    for (const auto& run : runs)
        document().template remove<Record>(run.first, run.second, SectionModel::tr("Delete"));
    document().undoStack().endMacro();
}

template <class Record> void RecordModel<Record>::moveRecords(QList<int> rows, int destination)
{
    const auto runs = runsOf(rows);
    const bool staysThere = runs.isEmpty()
        || (runs.size() == 1 && destination >= runs.first().first
            && destination <= runs.first().first + runs.first().second);
    if (staysThere)
        return;
    document().undoStack().beginMacro(SectionModel::tr("Move"));
    // Runs above the destination move the rows up to it when they go.
    int end = destination;
    int begin = destination;
    for (const auto& run : runs) {
        if (run.first >= destination)
            continue;
        document().template move<Record>(run.first, run.second, end, SectionModel::tr("Move"));
        end -= run.second;
    }
    for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
        if (run->first < destination)
            continue;
        document().template move<Record>(run->first, run->second, begin, SectionModel::tr("Move"));
        begin += run->second;
    }
    document().undoStack().endMacro();
}

template <class Record> QString RecordModel<Record>::insertText(int row, const QString& text)
{
    QStringList fields;
    for (int column = 0; column < fieldCount(); ++column)
        fields.append(field(column));
    const RowsText rows = parseRows(text, fields);
    QVector<Record> records;
    for (int line = 0; line < rows.cells.size(); ++line) {
        Record record = newRecord<Record>(workspace().contents());
        for (int column = 0; column < fieldCount(); ++column) {
            const Column<Record>& target = columnOf(column);
            const auto cell = rows.cells.at(line).constFind(column);
            if (cell == rows.cells.at(line).constEnd() || !target.set
                || (target.applies && !target.applies(record)))
                continue;
            QVariant value;
            if (!readCell(target.kindFor(record), *cell, value))
                return SectionModel::tr(
                    "Line %1, %2: \"%3\" can't be understood; nothing was inserted")
                    .arg(rows.firstLine + line)
                    .arg(title(column), cell->left(longestShownCell));
            target.set(record, value);
        }
        records.append(record);
    }
    if (records.isEmpty())
        return SectionModel::tr("There are no rows to insert");
    renumber(records, workspace().contents());
    document().insert(row, records, SectionModel::tr("Paste"));
    return QString();
}

template <class Record>
bool RecordModel<Record>::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !index.isValid() || !isEditable(index.row(), index.column()))
        return false;
    Record record = this->record(index.row());
    columnOf(index.column()).set(record, value);
    document().replace(
        index.row(), record, SectionModel::tr("Change %1").arg(title(index.column())));
    return true;
}

template class RecordModel<SerialPort>;
template class RecordModel<IoLine>;
template class RecordModel<Event>;
template class RecordModel<Trigger>;
template class RecordModel<TimeTrigger>;

std::unique_ptr<SectionModel> SectionModel::create(
    UnitWorkspace& workspace, Section section, QObject* parent)
{
    switch (section) {
    case Section::SerialPorts:
        return std::make_unique<RecordModel<SerialPort>>(workspace, parent);
    case Section::IoLines:
        return std::make_unique<RecordModel<IoLine>>(workspace, parent);
    case Section::Events:
        return std::make_unique<RecordModel<Event>>(workspace, parent);
    case Section::Triggers:
        return std::make_unique<RecordModel<Trigger>>(workspace, parent);
    case Section::TimeTriggers:
        return std::make_unique<RecordModel<TimeTrigger>>(workspace, parent);
    default:
        Q_UNREACHABLE();
    }
}
