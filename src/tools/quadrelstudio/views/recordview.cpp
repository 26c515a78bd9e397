// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "recordview.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHeaderView>

RecordView::RecordView(QWidget* parent)
    : QTableView(parent)
{
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setCornerButtonEnabled(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(true);
    const int rowMargin = fontMetrics().height() / 2;
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowMargin);
}

void RecordView::setEmptyText(const QString& text)
{
    m_emptyText = text;
    viewport()->update();
}

void RecordView::fitColumns()
{
    if (!model())
        return;
    const int widest = fontMetrics().averageCharWidth() * 32;
    const int space = fontMetrics().averageCharWidth() * 3;
    for (int column = 0; column < model()->columnCount() - 1; ++column) {
        const int wanted =
            qMax(sizeHintForColumn(column), horizontalHeader()->sectionSizeHint(column));
        setColumnWidth(column, qMin(wanted + space, widest));
    }
}

void RecordView::paintEvent(QPaintEvent* event)
{
    QTableView::paintEvent(event);
    if (!model() || model()->rowCount(rootIndex()) > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const int margin = fontMetrics().height();
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
        Qt::AlignCenter | Qt::TextWordWrap, m_emptyText);
}
