// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitspanel.h"

#include <site.h>

#include <QtCore/QEvent>
#include <QtCore/QFileInfo>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QTreeWidget>
#include <QtWidgets/QVBoxLayout>

namespace {

/** The address or path of an item. */
constexpr int targetRole = Qt::UserRole;

QString targetOf(const QTreeWidgetItem* item)
{
    return item->data(UnitsPanel::Name, targetRole).toString();
}

} // namespace

UnitsPanel::UnitsPanel(UnitSearch* search, QWidget* parent)
    : QWidget(parent)
    , m_search(search)
    , m_searchButton(new QToolButton(this))
    , m_addButton(new QToolButton(this))
    , m_inventoryButton(new QToolButton(this))
    , m_searchState(new QLabel(this))
    , m_tree(new QTreeWidget(this))
    , m_units(new QTreeWidgetItem(m_tree))
    , m_documents(new QTreeWidgetItem(m_tree))
{
    m_tree->setColumnCount(ColumnCount);
    m_tree->setUniformRowHeights(true);
    m_tree->setTextElideMode(Qt::ElideMiddle);
    m_tree->header()->setStretchLastSection(false);
    m_tree->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_tree->header()->setSectionResizeMode(Name, QHeaderView::Stretch);
    setMinimumWidth(fontMetrics().averageCharWidth() * 36);
    for (QTreeWidgetItem* group : {m_units, m_documents}) {
        group->setExpanded(true);
        group->setFirstColumnSpanned(true);
        group->setFlags(Qt::ItemIsEnabled);
    }
    auto* tools = new QHBoxLayout;
    for (QToolButton* button : {m_searchButton, m_addButton, m_inventoryButton}) {
        button->setFocusPolicy(Qt::TabFocus);
        tools->addWidget(button);
    }
    tools->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(tools);
    layout->addWidget(m_searchState);
    layout->addWidget(m_tree);
    m_searchState->hide();
    m_searchButton->setVisible(search);

    connect(m_tree, &QTreeWidget::itemActivated, this,
        [this](const QTreeWidgetItem* item) { activate(item); });
    connect(m_addButton, &QToolButton::clicked, this, &UnitsPanel::addressWanted);
    connect(m_inventoryButton, &QToolButton::clicked, this, &UnitsPanel::askForInventory);
    if (search) {
        connect(m_searchButton, &QToolButton::clicked, this, [this] {
            m_foundCount = 0;
            m_search->start();
            updateSearch();
        });
        connect(search, &UnitSearch::found, this, &UnitsPanel::takeFound);
        connect(search, &UnitSearch::finished, this, &UnitsPanel::updateSearch);
    }
    retranslate();
}

QTreeWidgetItem* UnitsPanel::find(const QTreeWidgetItem* group, const QString& text)
{
    for (int i = 0; i < group->childCount(); ++i) {
        if (targetOf(group->child(i)) == text)
            return group->child(i);
    }
    return nullptr;
}

QStringList UnitsPanel::textsOf(const QTreeWidgetItem* group)
{
    QStringList texts;
    for (int i = 0; i < group->childCount(); ++i)
        texts.append(targetOf(group->child(i)));
    return texts;
}

void UnitsPanel::addUnit(const UnitAddress& address, const QString& name, const QString& model)
{
    const QString text = address.toText();
    QTreeWidgetItem* item = find(m_units, text);
    if (!item) {
        item = new QTreeWidgetItem(m_units, {text, QString(), QString()});
        item->setData(Name, targetRole, text);
        item->setToolTip(Name, text);
    }
    if (!name.isEmpty())
        item->setText(Name, name);
    if (!model.isEmpty())
        item->setText(Model, model);
}

void UnitsPanel::addDocument(const QString& path)
{
    if (find(m_documents, path))
        return;
    auto* item =
        new QTreeWidgetItem(m_documents, {QFileInfo(path).fileName(), QString(), QString()});
    item->setData(Name, targetRole, path);
    item->setToolTip(Name, path);
}

void UnitsPanel::setUnitState(const UnitAddress& address, const QString& state)
{
    if (QTreeWidgetItem* item = find(m_units, address.toText()))
        item->setText(State, state);
}

void UnitsPanel::setDocumentState(const QString& path, const QString& state)
{
    if (QTreeWidgetItem* item = find(m_documents, path))
        item->setText(State, state);
}

QStringList UnitsPanel::addInventory(const QString& path)
{
    const QuadrelWorkspace::LoadedSite site = QuadrelWorkspace::loadSite(path);
    if (!site.errors.isEmpty())
        return site.errors;
    for (const QuadrelWorkspace::SiteUnit& unit : site.site.units)
        addUnit(unit.address, unit.name,
            unit.modelId ? QStringLiteral("0x%1").arg(*unit.modelId, 4, 16, QLatin1Char('0'))
                         : QString());
    return {};
}

void UnitsPanel::askForInventory()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Open a site's inventory"),
        QString(), tr("Inventories (*.yaml *.yml);;All files (*)"));
    if (path.isEmpty())
        return;
    const QStringList errors = addInventory(path);
    if (!errors.isEmpty())
        QMessageBox::warning(
            this, tr("Open a site's inventory"), errors.mid(0, 10).join(QLatin1Char('\n')));
}

void UnitsPanel::activate(const QTreeWidgetItem* item)
{
    if (item->parent() == m_documents)
        emit documentActivated(targetOf(item));
    else if (item->parent() == m_units) {
        if (const auto address = UnitAddress::fromText(targetOf(item)))
            emit unitActivated(*address);
    }
}

void UnitsPanel::takeFound(const QVector<UnitSearch::Found>& units)
{
    m_foundCount = units.size();
    for (const UnitSearch::Found& unit : units) {
        addUnit(unit.address, QString(), unit.model);
        QTreeWidgetItem* item = find(m_units, unit.address.toText());
        if (item->text(State).isEmpty())
            item->setText(State, tr("reachable"));
    }
    updateSearch();
}

void UnitsPanel::updateSearch()
{
    const bool isRunning = m_search && m_search->isRunning();
    m_searchButton->setEnabled(!isRunning);
    m_searchState->setVisible(m_search && (isRunning || m_foundCount > 0));
    m_searchState->setText(isRunning ? tr("Searching, %n found", nullptr, m_foundCount)
                                     : tr("%n found", nullptr, m_foundCount));
}

void UnitsPanel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void UnitsPanel::retranslate()
{
    m_searchButton->setText(tr("Search"));
    m_searchButton->setToolTip(tr("Search the network for units"));
    m_addButton->setText(tr("Add..."));
    m_addButton->setToolTip(tr("Add a unit by its address"));
    m_inventoryButton->setText(tr("Site..."));
    m_inventoryButton->setToolTip(tr("Add the units of a site's inventory"));
    m_tree->setHeaderLabels({tr("Name"), tr("Model"), tr("State")});
    m_tree->setAccessibleName(tr("Units and documents"));
    m_units->setText(Name, tr("Units"));
    m_documents->setText(Name, tr("Documents"));
    updateSearch();
}
