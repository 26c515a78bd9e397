// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitpage.h"

#include "logpage/logpage.h"
#include "models/cellvalues.h"
#include "pages/comparisonpage.h"
#include "pages/findingslist.h"
#include "pages/firmwarepage.h"
#include "pages/operationbar.h"
#include "pages/overviewpage.h"
#include "pages/sectiontexts.h"
#include "pages/tablepage.h"
#include "pictures/mappicture.h"
#include "pictures/weekpicture.h"
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
    , m_comparison(new ComparisonPage(workspace, this))
    , m_overview(new OverviewPage(workspace, this))
    , m_firmware(new FirmwarePage(workspace, this))
    , m_log(new LogPage(workspace.logPath(), nullptr, this))
    , m_week(new WeekPicture(this))
    , m_map(new MapPicture(this))
{
    addPage(m_overview, [] { return tr("Overview"); });
    for (const Section section : tableSections) {
        auto* page = new TablePage(workspace, section, this);
        m_tables.insert(section, page);
        addPage(page, [section] { return sectionTitle(section); });
    }
    addPage(m_week, [] { return tr("Week"); });
    addPage(m_map, [] { return tr("Map"); });
    addPage(m_comparison, [] { return tr("Comparison"); });
    addPage(m_firmware, [] { return tr("Firmware"); });
    addPage(m_log, [] { return tr("Log"); });
    connect(m_list, &QListWidget::currentRowChanged, m_pages, &QStackedWidget::setCurrentIndex);
    connectPictures();
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
    m_list->setCurrentRow(0);
}

void UnitPage::connectPictures()
{
    const auto goTo = [this](Section section) {
        return [this, section](int index) { showPlace({section, index, {}}); };
    };
    connect(m_week, &WeekPicture::timeTriggerActivated, this, goTo(Section::TimeTriggers));
    connect(m_map, &MapPicture::timeTriggerActivated, this, goTo(Section::TimeTriggers));
    connect(m_map, &MapPicture::triggerActivated, this, goTo(Section::Triggers));
    connect(m_map, &MapPicture::eventActivated, this, goTo(Section::Events));
    connect(
        m_map, &MapPicture::missingEventActivated, this, [this] { showSection(Section::Events); });
    connect(m_week, &WeekPicture::failed, m_bar, &OperationBar::showMessage);
    connect(m_map, &MapPicture::failed, m_bar, &OperationBar::showMessage);
    connect(m_log, &LogPage::failed, m_bar, &OperationBar::showMessage);
    m_week->setFirstWeekday(firstWeekday());
    m_map->setFirstWeekday(firstWeekday());
    // Only a picture that is looked at is drawn.
    connect(m_pages, &QStackedWidget::currentChanged, this, &UnitPage::updatePictures);
    connect(&m_workspace, &UnitWorkspace::findingsChanged, this, &UnitPage::updatePictures);
}

void UnitPage::updatePictures()
{
    if (m_pages->currentWidget() == m_week)
        m_week->setContents(m_workspace.contents());
    if (m_pages->currentWidget() == m_map)
        m_map->setContents(m_workspace.contents());
}

void UnitPage::addPage(QWidget* page, const std::function<QString()>& title)
{
    m_pages->addWidget(page);
    m_titles.append(title);
    m_list->addItem(QString());
}

void UnitPage::showPage(const QWidget& page)
{
    m_list->setCurrentRow(m_pages->indexOf(const_cast<QWidget*>(&page)));
}

void UnitPage::showSection(Section section)
{
    if (const TablePage* page = m_tables.value(section))
        showPage(*page);
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
    for (int row = 0; row < m_titles.size(); ++row)
        m_list->item(row)->setText(m_titles.at(row)());
    m_list->setAccessibleName(tr("Pages of the unit"));
    const int space = fontMetrics().averageCharWidth() * 4;
    m_list->setFixedWidth(m_list->sizeHintForColumn(0) + space);
}
