// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitpage.h"

#include "pages/findingslist.h"
#include "pages/operationbar.h"
#include "pages/sectiontexts.h"
#include "pages/tablepage.h"
#include "workspace/unitworkspace.h"

#include <QtCore/QEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QVBoxLayout>

using namespace QuadrelDocument;

namespace {

constexpr Section tableSections[] = {Section::SerialPorts, Section::IoLines, Section::Events,
    Section::Triggers, Section::TimeTriggers};

} // namespace

UnitPage::UnitPage(UnitWorkspace& workspace, QWidget* parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_bar(new OperationBar(workspace, this))
    , m_list(new QListWidget(this))
    , m_pages(new QStackedWidget(this))
    , m_splitter(new QSplitter(Qt::Vertical, this))
    , m_findings(new FindingsList(workspace, this))
{
    for (const Section section : tableSections) {
        auto* page = new TablePage(workspace, section, this);
        m_tables.insert(section, page);
        addPage(page);
    }
    connect(m_list, &QListWidget::currentRowChanged, m_pages, &QStackedWidget::setCurrentIndex);
    connect(m_findings, &FindingsList::activated, this, &UnitPage::showPlace);

    m_splitter->addWidget(m_pages);
    m_splitter->addWidget(m_findings);
    m_splitter->setStretchFactor(0, 4);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setChildrenCollapsible(false);
    auto* right = new QVBoxLayout;
    right->addWidget(m_bar);
    right->addWidget(m_splitter, 1);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(m_list);
    layout->addLayout(right, 1);
    retranslate();
    showSection(Section::Events);
}

void UnitPage::addPage(QWidget* page)
{
    m_pages->addWidget(page);
    m_list->addItem(QString());
}

void UnitPage::showSection(Section section)
{
    if (TablePage* page = m_tables.value(section))
        m_list->setCurrentRow(m_pages->indexOf(page));
}

void UnitPage::showPlace(const Place& place)
{
    showSection(place.section);
    if (TablePage* page = m_tables.value(place.section))
        page->showPlace(place);
}

void UnitPage::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void UnitPage::retranslate()
{
    for (auto it = m_tables.constBegin(); it != m_tables.constEnd(); ++it)
        m_list->item(m_pages->indexOf(it.value()))->setText(sectionTitle(it.key()));
    m_list->setAccessibleName(tr("Pages of the unit"));
    const int space = fontMetrics().averageCharWidth() * 4;
    m_list->setFixedWidth(m_list->sizeHintForColumn(0) + space);
}
