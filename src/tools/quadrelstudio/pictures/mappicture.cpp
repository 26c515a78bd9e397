// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "mappicture.h"

#include "mapview.h"
#include "picturetools.h"

#include <QtCore/QEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

MapPicture::MapPicture(QWidget* parent)
    : QWidget(parent)
    , m_view(new MapView(this))
    , m_tools(new PictureTools(m_view, this))
    , m_summary(new QLabel(this))
{
    auto* top = new QHBoxLayout;
    top->addWidget(m_summary, 1);
    top->addWidget(m_tools);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(m_view, 1);
    connect(m_view, &PictureView::activated, this, &MapPicture::activate);
    connect(m_tools, &PictureTools::failed, this, &MapPicture::failed);
    report();
}

void MapPicture::setContents(const QuadrelDocument::Contents& contents)
{
    m_view->setContents(contents);
    report();
}

void MapPicture::setFirstWeekday(Qt::DayOfWeek day)
{
    m_view->setFirstWeekday(day);
}

void MapPicture::activate(int number)
{
    const TriggerMap::Node& node = m_view->map().nodes.at(number);
    if (node.column == TriggerMap::Column::Event && node.index >= 0)
        emit eventActivated(node.index);
    else if (node.isMissing)
        emit missingEventActivated(node.id);
    else if (node.column == TriggerMap::Column::Cause && node.isTimeTrigger)
        emit timeTriggerActivated(node.index);
    else if (node.column == TriggerMap::Column::Cause)
        emit triggerActivated(node.index);
}

void MapPicture::report()
{
    const QVector<TriggerMap::Node>& nodes = m_view->map().nodes;
    const auto missing = std::count_if(
        nodes.begin(), nodes.end(), [](const TriggerMap::Node& node) { return node.isMissing; });
    const auto unused = std::count_if(nodes.begin(), nodes.end(), [](const TriggerMap::Node& node) {
        return node.isUnused && node.column == TriggerMap::Column::Event;
    });
    m_summary->setText(tr("%n event(s) missing", "", static_cast<int>(missing))
        + QStringLiteral(", ") + tr("%n unused", "events", static_cast<int>(unused)));
}

void MapPicture::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_tools->retranslate();
    report();
}
