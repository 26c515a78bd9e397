// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <finding.h>

#include <QtCore/QAbstractTableModel>

class UnitWorkspace;

/** What is wrong with a workspace's contents: a row for each finding, the errors first. */
class FindingsModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum ColumnOf { Where, What, ColumnCount };

    /** The workspace outlives it. */
    explicit FindingsModel(const UnitWorkspace& workspace, QObject* parent = nullptr);

    const QuadrelDocument::Finding& finding(int row) const { return m_findings.at(row); }
    int count(QuadrelDocument::Severity severity) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void update();

    const UnitWorkspace& m_workspace;
    QuadrelDocument::Findings m_findings;
};
