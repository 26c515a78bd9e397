// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "findingsmodel.h"

#include "severityicon.h"
#include "workspace/unitworkspace.h"

#include <algorithm>

using namespace QuadrelDocument;

FindingsModel::FindingsModel(const UnitWorkspace& workspace, QObject* parent)
    : QAbstractTableModel(parent)
    , m_workspace(workspace)
{
    connect(&workspace, &UnitWorkspace::findingsChanged, this, &FindingsModel::update);
    update();
}

void FindingsModel::update()
{
    beginResetModel();
    m_findings = m_workspace.findings();
    std::stable_sort(m_findings.begin(), m_findings.end(),
        [](const Finding& left, const Finding& right) { return left.severity < right.severity; });
    endResetModel();
}

int FindingsModel::count(Severity severity) const
{
    return static_cast<int>(std::count_if(m_findings.begin(), m_findings.end(),
        [severity](const Finding& finding) { return finding.severity == severity; }));
}

int FindingsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_findings.size();
}

int FindingsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant FindingsModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const Finding& finding = m_findings.at(index.row());
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return index.column() == Where ? finding.path : finding.text;
    if (role == Qt::DecorationRole && index.column() == Where)
        return severityIcon(finding.severity);
    return QVariant();
}

QVariant FindingsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    return section == Where ? tr("Where") : tr("What is wrong");
}
