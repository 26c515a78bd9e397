// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "mapview.h"

#include "pictureitem.h"
#include "triggerwords.h"

#include <QtGui/QPainter>
#include <QtWidgets/QGraphicsScene>

using namespace QuadrelDocument;

namespace {

using Node = TriggerMap::Node;
using Column = TriggerMap::Column;

constexpr qreal boxChars = 28;
constexpr qreal gapChars = 12;
constexpr qreal boxLines = 2.4;
constexpr qreal rowLines = 2.9;

/** More lines than these are drawn as thin and coarse ones, in time for the next frame. */
constexpr int mostFineCurves = 500;

enum Layer { EdgeLayer, LitEdgeLayer, BoxLayer };

PictureItem::Mark markOf(const Node& node)
{
    if (node.isMissing)
        return PictureItem::Mark::Missing;
    return node.isUnused ? PictureItem::Mark::Unused : PictureItem::Mark::None;
}

} // namespace

/**
 * The lines between boxes; all in one item, for there may be thousands. Each is drawn by itself: as
 * one path they would take seconds, for the painter looks for where they cross.
 */
class EdgesItem : public QGraphicsItem {
public:
    EdgesItem(QPalette::ColorRole role, qreal width)
        : m_role(role)
        , m_width(width)
    {
    }

    void setCurves(const QVector<QPainterPath>& curves)
    {
        prepareGeometryChange();
        m_curves = curves;
        m_bounds = QRectF();
        for (const QPainterPath& curve : curves)
            m_bounds |= curve.controlPointRect();
        m_bounds.adjust(-m_width, -m_width, m_width, m_width);
    }

    QRectF boundingRect() const override { return m_bounds; }
    /** The mouse is never at a line. */
    QPainterPath shape() const override { return {}; }

    void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override
    {
        const bool isFine = m_curves.size() <= mostFineCurves;
        painter->setRenderHint(QPainter::Antialiasing, isFine);
        painter->setPen(QPen(scene()->palette().color(m_role), isFine ? m_width : 0));
        for (const QPainterPath& curve : m_curves)
            painter->drawPath(curve);
    }

private:
    QPalette::ColorRole m_role;
    qreal m_width;
    QVector<QPainterPath> m_curves;
    QRectF m_bounds;
};

namespace {

QPainterPath curveBetween(const QRectF& from, const QRectF& to)
{
    const QPointF start(from.right(), from.center().y());
    const QPointF end(to.left(), to.center().y());
    const qreal middle = (start.x() + end.x()) / 2;
    QPainterPath curve(start);
    curve.cubicTo(middle, start.y(), middle, end.y(), end.x(), end.y());
    return curve;
}

} // namespace

MapView::MapView(QWidget* parent)
    : PictureView(parent)
{
    rebuild();
}

void MapView::setContents(const Contents& contents)
{
    m_contents = contents;
    m_names = EventNames(contents);
    m_map = triggerMap(contents);
    setCurrentNumber(-1);
    rebuild();
}

void MapView::setFirstWeekday(Qt::DayOfWeek day)
{
    m_firstWeekday = day;
    rebuild();
}

void MapView::rebuild()
{
    setAccessibleName(tr("Map of what makes what happen"));
    m_edges = nullptr;
    m_litEdges = nullptr;
    m_lit.clear();
    clear();
    addColumns();
    addEdges();
}

void MapView::addColumns()
{
    const QFontMetricsF metrics(font());
    const QSizeF box(boxChars * letterWidth(font()), boxLines * metrics.height());
    const qreal step = box.width() + gapChars * letterWidth(font());
    const qreal row = rowLines * metrics.height();
    const qreal margin = row - box.height();
    constexpr int columns = 3;
    int most = 0;
    for (int column = 0; column < columns; ++column)
        most = qMax(most, m_map.nodesOf(static_cast<Column>(column)).size());
    for (int column = 0; column < columns; ++column) {
        const QVector<int> nodes = m_map.nodesOf(static_cast<Column>(column));
        const qreal spacing = nodes.isEmpty() ? row : most * row / nodes.size();
        for (int i = 0; i < nodes.size(); ++i) {
            const Node& node = m_map.nodes.at(nodes.at(i));
            const PictureItem::Label label{
                titleOf(node), detailOf(node), toolTipOf(node), markOf(node)};
            auto* item = new PictureItem(nodes.at(i), box, label, font());
            item->setZValue(BoxLayer);
            addBox(item, {margin + column * step, margin + i * spacing + (spacing - row) / 2});
        }
    }
    setSceneRect(0, 0, 2 * step + box.width() + 2 * margin, most * row + margin);
}

void MapView::addEdges()
{
    QVector<QRectF> places(m_map.nodes.size());
    for (int node = 0; node < m_map.nodes.size(); ++node)
        places[node] = itemOfNumber(node)->sceneBoundingRect();
    QVector<QPainterPath> curves;
    for (const TriggerMap::Edge& edge : m_map.edges)
        curves.append(curveBetween(places.at(edge.from), places.at(edge.to)));
    m_edges = new EdgesItem(QPalette::Mid, 1);
    m_litEdges = new EdgesItem(QPalette::Highlight, 2.5);
    m_edges->setCurves(curves);
    m_edges->setZValue(EdgeLayer);
    m_litEdges->setZValue(LitEdgeLayer);
    scene()->addItem(m_edges);
    scene()->addItem(m_litEdges);
}

void MapView::setHovered(int number)
{
    m_lit = number < 0 ? QSet<int>() : m_map.pathThrough(number);
    for (int node = 0; node < m_map.nodes.size(); ++node)
        itemOfNumber(node)->setState(m_lit.isEmpty() ? PictureItem::State::Normal
                : m_lit.contains(node)               ? PictureItem::State::Lit
                                                     : PictureItem::State::Dimmed);
    QVector<QPainterPath> curves;
    for (const TriggerMap::Edge& edge : m_map.edges) {
        if (m_lit.contains(edge.from) && m_lit.contains(edge.to))
            curves.append(curveBetween(itemOfNumber(edge.from)->sceneBoundingRect(),
                itemOfNumber(edge.to)->sceneBoundingRect()));
    }
    m_litEdges->setCurves(curves);
}

QString MapView::titleOf(const Node& node) const
{
    if (node.column == Column::Target)
        return TriggerWords::drive(node.drive);
    if (node.column == Column::Event)
        return m_names.title(node.id);
    if (!node.isTimeTrigger)
        return TriggerWords::cause(m_contents.triggers->at(node.index));
    const TimeTrigger& trigger = m_contents.timeTriggers->at(node.index);
    return QStringLiteral("%1 %2").arg(trigger.time, TriggerWords::days(trigger, m_firstWeekday));
}

QString MapView::detailOf(const Node& node) const
{
    switch (node.column) {
    case Column::Target:
        return tr("%n event(s)", "", eventsAt(node));
    case Column::Event:
        if (node.isMissing)
            return tr("no such event");
        if (node.isUnused)
            return tr("unused: nothing runs it");
        return node.index < 0 ? QString() : TriggerWords::action(m_contents.events->at(node.index));
    case Column::Cause:
        break;
    }
    if (node.isUnused)
        return tr("runs nothing");
    return node.isTimeTrigger ? m_contents.timeTriggers->at(node.index).description.simplified()
                              : TriggerWords::detail(m_contents.triggers->at(node.index));
}

QString MapView::toolTipOf(const Node& node) const
{
    if (node.column == Column::Cause)
        return node.isTimeTrigger
            ? TriggerWords::toolTip(
                m_contents.timeTriggers->at(node.index), m_names, m_firstWeekday)
            : TriggerWords::toolTip(m_contents.triggers->at(node.index), m_names);
    const QString head = node.column == Column::Event && node.index >= 0
        ? TriggerWords::toolTip(m_contents.events->at(node.index))
        : titleOf(node);
    return head + QLatin1Char('\n') + detailOf(node);
}

int MapView::eventsAt(const Node& target) const
{
    int count = 0;
    for (const Node& node : m_map.nodes) {
        if (node.column == Column::Event && node.index >= 0
            && driveOf(m_contents.events->at(node.index)) == target.drive)
            ++count;
    }
    return count;
}
