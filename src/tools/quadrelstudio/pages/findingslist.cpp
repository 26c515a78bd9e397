// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "findingslist.h"

#include "models/findingsmodel.h"
#include "views/recordview.h"

#include <QtCore/QEvent>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

using namespace QuadrelDocument;

FindingsList::FindingsList(UnitWorkspace& workspace, QWidget* parent)
    : QWidget(parent)
    , m_model(new FindingsModel(workspace, this))
    , m_summary(new QLabel(this))
    , m_view(new RecordView(this))
{
    m_view->setModel(m_model);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setSelectionMode(QAbstractItemView::SingleSelection);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_summary);
    layout->addWidget(m_view);
    connect(m_view, &RecordView::activated, this,
        [this](const QModelIndex& index) { emit activated(m_model->finding(index.row()).place); });
    connect(m_model, &FindingsModel::modelReset, this, &FindingsList::update);
    retranslate();
}

void FindingsList::update()
{
    const auto count = [this](Severity severity) { return m_model->count(severity); };
    m_summary->setText(tr("%n error(s)", nullptr, count(Severity::Error)) + QStringLiteral(", ")
        + tr("%n warning(s)", nullptr, count(Severity::Warning)) + QStringLiteral(", ")
        + tr("%n note(s)", nullptr, count(Severity::Note)));
    m_view->setColumnWidth(FindingsModel::Where, fontMetrics().averageCharWidth() * 32);
}

void FindingsList::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void FindingsList::retranslate()
{
    m_view->setAccessibleName(tr("Findings"));
    m_view->setEmptyText(tr("Nothing is wrong."));
    update();
}
