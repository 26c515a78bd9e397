// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "columns.h"
#include "sectionmodel.h"
#include "workspace/unitworkspace.h"

/** The table of one type of record. */
template <class Record> class RecordModel final : public SectionModel {
public:
    RecordModel(UnitWorkspace& workspace, QObject* parent)
        : SectionModel(workspace, RecordList<Record>::section, parent)
    {
    }

    void addRow(int row) override;
    void duplicateRows(QList<int> rows) override;
    void removeRecords(QList<int> rows) override;
    void moveRecords(QList<int> rows, int destination) override;
    QString insertText(int row, const QString& text) override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

protected:
    int recordCount() const override
    {
        const auto& list = workspace().contents().*RecordList<Record>::member;
        return list ? list->size() : 0;
    }
    int fieldCount() const override { return columnsOf<Record>().size(); }
    QString field(int column) const override { return QString::fromLatin1(columnOf(column).field); }
    QString title(int column) const override;
    CellKind kind(int row, int column) const override
    {
        return columnOf(column).kindFor(record(row));
    }
    QVariant value(int row, int column) const override
    {
        return columnOf(column).value(record(row), row);
    }
    QString shown(int row, int column) const override;
    bool isEditable(int row, int column) const override;
    EditorRequest editorRequest(int row, int column) const override;

private:
    using SectionModel::columnOf;
    static const Column<Record>& columnOf(int column) { return columnsOf<Record>().at(column); }
    const Record& record(int row) const
    {
        return (workspace().contents().*RecordList<Record>::member)->at(row);
    }
    EditableContents& document() { return workspace().document(); }
};
