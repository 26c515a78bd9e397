// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "sectionmodel.h"

#include "rowstext.h"
#include "severityicon.h"
#include "workspace/unitworkspace.h"

#include <QtCore/QDataStream>
#include <QtCore/QMimeData>

#include <algorithm>

using namespace QuadrelDocument;

namespace {

const QString rowsType = QStringLiteral("application/x-quadrelstudio-rows");
const QString textType = QStringLiteral("text/plain");

/** Says which rows of which model are dragged. */
QByteArray rowsOfModel(const SectionModel* model, const QList<int>& rows)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << QCoreApplication::applicationPid() << quintptr(model) << rows;
    return bytes;
}

/** The dragged rows if they are those of the model. */
std::optional<QList<int>> ownRows(const SectionModel* model, QByteArray bytes)
{
    QDataStream stream(&bytes, QIODevice::ReadOnly);
    qint64 process = 0;
    quintptr owner = 0;
    QList<int> rows;
    stream >> process >> owner;
    if (process != QCoreApplication::applicationPid() || owner != quintptr(model))
        return std::nullopt;
    stream >> rows;
    return rows;
}

} // namespace

SectionModel::SectionModel(UnitWorkspace& workspace, Section section, QObject* parent)
    : QAbstractTableModel(parent)
    , m_workspace(workspace)
    , m_section(section)
{
    const EditableContents& document = workspace.document();
    connect(&document, &EditableContents::aboutToChange, this, &SectionModel::beginChange);
    connect(&document, &EditableContents::changed, this, &SectionModel::endChange);
    connect(&workspace, &UnitWorkspace::findingsChanged, this, &SectionModel::updateFindings);
    sortFindings();
}

/** Ports and lines are called by their places, so that one that comes or goes changes the others.
 */
bool SectionModel::resets(const ContentsChange& change) const
{
    const bool hasPlaces = m_section == Section::SerialPorts || m_section == Section::IoLines;
    return change.kind == ContentsChange::Reset
        || (hasPlaces && change.section == m_section && change.kind != ContentsChange::Replaced);
}

void SectionModel::beginChange(const ContentsChange& change)
{
    if (resets(change)) {
        m_findings.clear();
        beginResetModel();
        return;
    }
    if (change.section != m_section)
        return;
    const int last = change.first + change.count - 1;
    if (change.kind == ContentsChange::Inserted)
        beginInsertRows({}, change.first, last);
    else if (change.kind == ContentsChange::Removed)
        beginRemoveRows({}, change.first, last);
    else if (change.kind == ContentsChange::Moved)
        beginMoveRows({}, change.first, last, {}, change.destination);
    // The findings belong to rows as they were.
    if (change.kind != ContentsChange::Replaced)
        m_findings.clear();
}

void SectionModel::endChange(const ContentsChange& change)
{
    if (resets(change)) {
        endResetModel();
        return;
    }
    if (change.section != m_section) {
        // Triggers show the names of events.
        if (change.section == Section::Events && recordCount() > 0)
            emit dataChanged(
                index(0, 0), index(recordCount() - 1, fieldCount() - 1), {Qt::DisplayRole});
        return;
    }
    if (change.kind == ContentsChange::Inserted)
        endInsertRows();
    else if (change.kind == ContentsChange::Removed)
        endRemoveRows();
    else if (change.kind == ContentsChange::Moved)
        endMoveRows();
    else
        emit dataChanged(index(change.first, 0), index(change.first, fieldCount() - 1));
}

void SectionModel::sortFindings()
{
    m_findings.clear();
    for (const Finding& finding : m_workspace.findings()) {
        if (finding.place.section == m_section && finding.place.index >= 0)
            m_findings.insert(finding.place.index, finding);
    }
}

void SectionModel::updateFindings()
{
    sortFindings();
    if (recordCount() > 0)
        emit dataChanged(index(0, 0), index(recordCount() - 1, fieldCount() - 1),
            {Qt::DecorationRole, Qt::ToolTipRole, SeverityRole});
}

int SectionModel::columnOf(const QString& fieldName) const
{
    for (int column = 0; column < fieldCount(); ++column) {
        if (field(column) == fieldName)
            return column;
    }
    return 0;
}

QString SectionModel::rowsText(const QList<int>& rows) const
{
    QStringList fields;
    for (int column = 0; column < fieldCount(); ++column)
        fields.append(field(column));
    QString text = rowText(fields);
    for (const int row : rows) {
        QStringList cells;
        for (int column = 0; column < fieldCount(); ++column)
            cells.append(cellText(kind(row, column), value(row, column)));
        text.append(rowText(cells));
    }
    return text;
}

int SectionModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : recordCount();
}

int SectionModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : fieldCount();
}

QVector<const Finding*> SectionModel::findingsAt(int row, int column) const
{
    QVector<const Finding*> findings;
    for (auto it = m_findings.find(row); it != m_findings.end() && it.key() == row; ++it) {
        if (columnOf(it->place.field) == column)
            findings.append(&*it);
    }
    return findings;
}

QVariant SectionModel::severityAt(int row, int column) const
{
    const auto findings = findingsAt(row, column);
    if (findings.isEmpty())
        return QVariant();
    const auto worst = *std::min_element(findings.begin(), findings.end(),
        [](const Finding* left, const Finding* right) { return left->severity < right->severity; });
    return int(worst->severity);
}

QVariant SectionModel::sortValue(int row, int column) const
{
    switch (kind(row, column)) {
    case CellKind::Number:
    case CellKind::BaudRate:
    case CellKind::DataBits:
    case CellKind::StopBits:
    case CellKind::Inspection:
    case CellKind::LineType:
    case CellKind::Delay:
    case CellKind::Line:
        return value(row, column);
    default:
        return shown(row, column);
    }
}

QVariant SectionModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const int row = index.row();
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
        return shown(row, column);
    case Qt::EditRole:
        return value(row, column);
    case Qt::DecorationRole: {
        const QVariant severity = severityAt(row, column);
        return severity.isValid() ? QVariant(severityIcon(static_cast<Severity>(severity.toInt())))
                                  : QVariant();
    }
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole: {
        QStringList texts;
        for (const Finding* finding : findingsAt(row, column))
            texts.append(finding->text);
        return texts.isEmpty() ? QVariant() : QVariant(texts.join(QLatin1Char('\n')));
    }
    case EditorRequest::role:
        return QVariant::fromValue(editorRequest(row, column));
    case KindRole:
        return QVariant::fromValue(kind(row, column));
    case SortRole:
        return sortValue(row, column);
    case SeverityRole:
        return severityAt(row, column);
    default:
        return QVariant();
    }
}

QVariant SectionModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && section >= 0 && section < fieldCount()) {
        if (role == Qt::DisplayRole)
            return title(section);
        if (role == FieldRole)
            return field(section);
        return QVariant();
    }
    return QAbstractTableModel::headerData(section, orientation, role);
}

Qt::ItemFlags SectionModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::ItemIsDropEnabled;
    const Qt::ItemFlags flags =
        Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
    return isEditable(index.row(), index.column()) ? flags | Qt::ItemIsEditable : flags;
}

bool SectionModel::removeRows(int row, int count, const QModelIndex& parent)
{
    if (parent.isValid() || row < 0 || count <= 0 || row + count > recordCount())
        return false;
    QList<int> rows;
    for (int i = 0; i < count; ++i)
        rows.append(row + i);
    removeRecords(rows);
    return true;
}

QStringList SectionModel::mimeTypes() const
{
    return {rowsType, textType};
}

QMimeData* SectionModel::mimeData(const QModelIndexList& indexes) const
{
    QList<int> rows;
    for (const QModelIndex& index : indexes) {
        if (!rows.contains(index.row()))
            rows.append(index.row());
    }
    std::sort(rows.begin(), rows.end());
    auto* data = new QMimeData;
    data->setText(rowsText(rows));
    data->setData(rowsType, rowsOfModel(this, rows));
    return data;
}

Qt::DropActions SectionModel::supportedDropActions() const
{
    return Qt::MoveAction | Qt::CopyAction;
}

bool SectionModel::dropMimeData(
    const QMimeData* data, Qt::DropAction action, int row, int, const QModelIndex& parent)
{
    const int destination = row >= 0 ? row : parent.isValid() ? parent.row() : recordCount();
    const std::optional<QList<int>> moved = ownRows(this, data->data(rowsType));
    if (moved && action == Qt::MoveAction) {
        moveRecords(*moved, destination);
        // What was dragged is there already; the view would remove it after a success.
        return false;
    }
    return insertText(destination, data->text()).isEmpty() && action == Qt::CopyAction;
}
