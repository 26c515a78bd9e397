// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "cellvalues.h"
#include "editors/editorrequest.h"

#include <finding.h>

#include <QtCore/QAbstractTableModel>
#include <QtCore/QList>

#include <memory>

struct ContentsChange;
class UnitWorkspace;

/**
 * The records of one section as a table, a column for each field. Edits go to the document of the
 * workspace, a step of its undo stack each; what other parts of the program do to the document
 * appears here.
 */
class SectionModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Role {
        /** A CellKind. */
        KindRole = Qt::UserRole,
        /** What to sort by: a number, or a text for people. */
        SortRole,
        /** What is wrong with the cell, as in QuadrelDocument::Severity; invalid if nothing. */
        SeverityRole,
        /** The key in documents, of a column. */
        FieldRole
    };

    /** The table of a section that holds records. The workspace outlives it. */
    static std::unique_ptr<SectionModel> create(
        UnitWorkspace& workspace, QuadrelDocument::Section section, QObject* parent = nullptr);

    QuadrelDocument::Section section() const { return m_section; }
    UnitWorkspace& workspace() const { return m_workspace; }
    /** The column of a field in documents; the first one for a field without a column. */
    int columnOf(const QString& field) const;

    // Each is one step of the undo stack.
    /** Adds a record of usual values ahead of `row`. */
    virtual void addRow(int row) = 0;
    /** Adds a copy of each row, with a number of its own, below the last of them. */
    virtual void duplicateRows(QList<int> rows) = 0;
    virtual void removeRecords(QList<int> rows) = 0;
    /** Moves rows to ahead of `destination`, in their order. */
    virtual void moveRecords(QList<int> rows, int destination) = 0;
    /**
     * Adds the records of a text as rowsText() makes it ahead of `row`. Without a first line of
     * field names the columns count in their order. What can't be understood, for people, and no
     * change; or an empty text.
     */
    virtual QString insertText(int row, const QString& text) = 0;

    /** The rows as lines of cells with tabulators between them, the field names first. */
    QString rowsText(const QList<int>& rows) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool removeRows(int row, int count, const QModelIndex& parent) override;

    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    Qt::DropActions supportedDropActions() const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
        const QModelIndex& parent) override;

protected:
    SectionModel(UnitWorkspace& workspace, QuadrelDocument::Section section, QObject* parent);

    // What the type of the records decides on.
    virtual int recordCount() const = 0;
    virtual int fieldCount() const = 0;
    virtual QString field(int column) const = 0;
    virtual QString title(int column) const = 0;
    virtual CellKind kind(int row, int column) const = 0;
    virtual QVariant value(int row, int column) const = 0;
    virtual QString shown(int row, int column) const = 0;
    virtual bool isEditable(int row, int column) const = 0;
    virtual EditorRequest editorRequest(int row, int column) const = 0;

private:
    bool resets(const ContentsChange& change) const;
    void beginChange(const ContentsChange& change);
    void endChange(const ContentsChange& change);
    void sortFindings();
    void updateFindings();
    QVariant sortValue(int row, int column) const;
    QVector<const QuadrelDocument::Finding*> findingsAt(int row, int column) const;
    QVariant severityAt(int row, int column) const;

    UnitWorkspace& m_workspace;
    const QuadrelDocument::Section m_section;
    /** The findings of this section by row. */
    QMultiHash<int, QuadrelDocument::Finding> m_findings;
};
