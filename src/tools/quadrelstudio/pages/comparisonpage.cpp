// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "comparisonpage.h"

#include "views/differencetree.h"
#include "workspace/takechanges.h"
#include "workspace/unitworkspace.h"

#include <backups.h>

#include <QtCore/QEvent>
#include <QtCore/QFileInfo>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

using namespace QuadrelDocument;

ComparisonPage::ComparisonPage(UnitWorkspace& workspace, QWidget* parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_with(new QLabel(this))
    , m_choice(new QComboBox(this))
    , m_file(new QPushButton(this))
    , m_summary(new QLabel(this))
    , m_tree(new DifferenceTree(DifferenceTree::Kind::ToChoose, this))
    , m_all(new QPushButton(this))
    , m_none(new QPushButton(this))
    , m_take(new QPushButton(this))
{
    m_summary->setWordWrap(true);
    auto* top = new QHBoxLayout;
    top->addWidget(m_with);
    top->addWidget(m_choice, 1);
    top->addWidget(m_file);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(m_all);
    bottom->addWidget(m_none);
    bottom->addStretch();
    bottom->addWidget(m_take);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(m_summary);
    layout->addWidget(m_tree, 1);
    layout->addLayout(bottom);

    connect(m_choice, qOverload<int>(&QComboBox::activated), this, &ComparisonPage::compare);
    connect(m_file, &QPushButton::clicked, this, &ComparisonPage::addFile);
    connect(m_all, &QPushButton::clicked, this, [this] { m_tree->chooseAll(true); });
    connect(m_none, &QPushButton::clicked, this, [this] { m_tree->chooseAll(false); });
    connect(m_take, &QPushButton::clicked, this, &ComparisonPage::takeChosen);
    const auto refresh = [this] {
        if (isVisible())
            updateSources();
    };
    connect(&workspace.document(), &EditableContents::changed, this, refresh);
    connect(&workspace, &UnitWorkspace::heldChanged, this, refresh);
    retranslate();
}

void ComparisonPage::setOthers(const QVector<UnitWorkspace*>& others)
{
    m_others = others;
    if (isVisible())
        updateSources();
}

void ComparisonPage::updateSources()
{
    const QString chosen = m_choice->currentText();
    m_sources.clear();
    if (m_workspace.held())
        m_sources.append({tr("the unit, as it was read last"), *m_workspace.held(), {}});
    for (const UnitWorkspace* other : qAsConst(m_others)) {
        if (other != &m_workspace)
            m_sources.append({other->title(), other->contents(), {}});
    }
    m_sources += m_files;
    const QList<QuadrelWorkspace::Backup> backups = m_workspace.backups();
    for (const auto& backup : backups)
        m_sources.append({tr("backup of %1, before \"%2\"")
                              .arg(backup.time.toLocalTime().toString(Qt::ISODate), backup.change),
            {}, backup.path});
    m_choice->clear();
    for (const Source& source : qAsConst(m_sources))
        m_choice->addItem(source.title);
    const int former = m_choice->findText(chosen);
    m_choice->setCurrentIndex(former < 0 && !m_sources.isEmpty() ? 0 : former);
    compare();
}

void ComparisonPage::addFile()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Compare with a document"),
        QString(), tr("Unit documents (*.yaml *.yml *.json *.xml);;All files (*)"));
    if (path.isEmpty())
        return;
    m_files.append({QFileInfo(path).fileName(), {}, path});
    updateSources();
    m_choice->setCurrentText(m_files.last().title);
    compare();
}

void ComparisonPage::compare()
{
    const int place = m_choice->currentIndex();
    const bool hasSource = place >= 0;
    for (QWidget* widget : {static_cast<QWidget*>(m_tree), static_cast<QWidget*>(m_all),
             static_cast<QWidget*>(m_none), static_cast<QWidget*>(m_take)})
        widget->setEnabled(hasSource);
    if (!hasSource) {
        m_tree->setDifference({});
        m_summary->setText(tr("There is nothing to compare with yet. Read the unit, open another "
                              "document, or choose a file."));
        return;
    }
    Source& source = m_sources[place];
    if (!source.path.isEmpty()) {
        const LoadedFile file = loadFile(source.path);
        source.contents = file.contents;
        if (file.text.isNull() && !file.findings.isEmpty()) {
            m_tree->setDifference({});
            m_summary->setText(messageOf(file.findings.first(), source.path));
            return;
        }
    }
    const Difference difference = compareContents(m_workspace.contents(), source.contents);
    m_tree->setDifference(difference);
    m_take->setEnabled(!difference.isEmpty());
    m_summary->setText(difference.isEmpty()
            ? tr("Both hold the same.")
            : tr("%n change(s) lead from these contents to the others. Take the checked ones over, "
                 "or leave them.",
                nullptr, difference.changes.size()));
}

void ComparisonPage::takeChosen()
{
    const Source& source = m_sources.at(m_choice->currentIndex());
    m_workspace.document().replaceAll(
        takeChanges(m_workspace.contents(), source.contents, m_tree->chosen()),
        tr("Take changes of %1").arg(source.title));
}

void ComparisonPage::showEvent(QShowEvent* event)
{
    updateSources();
    QWidget::showEvent(event);
}

void ComparisonPage::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void ComparisonPage::retranslate()
{
    m_with->setText(tr("Compare with"));
    m_choice->setAccessibleName(tr("Compare with"));
    m_file->setText(tr("File..."));
    m_all->setText(tr("Check all"));
    m_none->setText(tr("Check none"));
    m_take->setText(tr("Take checked changes"));
    updateSources();
}
