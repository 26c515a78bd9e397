// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "pictureitem.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>
#include <QtGui/QPalette>
#include <QtWidgets/QGraphicsScene>

namespace {

constexpr qreal dimmedOpacity = 0.3;
constexpr qreal wideBorder = 2.5;
constexpr qreal corner = 3;

Qt::PenStyle penStyleOf(PictureItem::Mark mark)
{
    switch (mark) {
    case PictureItem::Mark::None:
        return Qt::SolidLine;
    case PictureItem::Mark::Missing:
        return Qt::DashLine;
    case PictureItem::Mark::Unused:
        return Qt::DotLine;
    }
    Q_UNREACHABLE();
}

} // namespace

qreal letterWidth(const QFont& font)
{
    const QString letters = QStringLiteral("abcdefghijklmnopqrstuvwxyz");
    return QFontMetricsF(font).horizontalAdvance(letters) / letters.size();
}

PictureItem::PictureItem(int number, const QSizeF& size, const Label& label, const QFont& font)
    : m_number(number)
    , m_size(size)
    , m_label(label)
    , m_font(font)
{
    setToolTip(label.toolTip);
}

void PictureItem::setState(State state)
{
    if (m_state == state)
        return;
    m_state = state;
    setOpacity(state == State::Dimmed ? dimmedOpacity : 1);
    update();
}

void PictureItem::setCurrent(bool isCurrent)
{
    m_isCurrent = isCurrent;
    update();
}

QRectF PictureItem::boundingRect() const
{
    return QRectF(QPointF(), m_size).adjusted(-2, -2, 2, 2);
}

void PictureItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const QPalette palette = scene()->palette();
    const bool isLit = m_state == State::Lit || m_isCurrent;
    const bool isPlain = m_label.mark == Mark::None;
    painter->setPen(QPen(palette.color(isLit ? QPalette::Highlight : QPalette::Text),
        isLit || !isPlain ? wideBorder : 1, penStyleOf(m_label.mark)));
    painter->setBrush(palette.brush(m_isCurrent ? QPalette::Highlight
            : isPlain                           ? QPalette::Button
                                                : QPalette::Base));
    const QRectF box(QPointF(), m_size);
    painter->drawRoundedRect(box, corner, corner);

    painter->setPen(palette.color(m_isCurrent ? QPalette::HighlightedText
            : isPlain                         ? QPalette::ButtonText
                                              : QPalette::Text));
    painter->setFont(m_font);
    const QFontMetricsF metrics(m_font);
    const qreal margin = letterWidth(m_font) / 2;
    const QRectF text = box.adjusted(margin, 0, -margin, 0);
    const int lines = m_label.detail.isEmpty() ? 1 : 2;
    const qreal lineHeight = box.height() / lines;
    const QRectF first(text.left(), text.top(), text.width(), lineHeight);
    const auto draw = [&](const QRectF& line, const QString& words) {
        painter->drawText(line, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
            metrics.elidedText(words, Qt::ElideRight, line.width()));
    };
    draw(first, m_label.title);
    if (lines == 2)
        draw(first.translated(0, lineHeight), m_label.detail);
}
