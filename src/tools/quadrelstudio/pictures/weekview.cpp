// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "weekview.h"

#include "triggerwords.h"

#include "editors/weekdays.h"

#include <QtGui/QPainter>
#include <QtGui/QResizeEvent>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QScrollBar>

#include <algorithm>
#include <array>
#include <numeric>

using namespace QuadrelDocument;

namespace {

constexpr int hoursOfDay = 24;
constexpr int blockMinutes = 20;
constexpr qreal blockLines = 1.35;
constexpr qreal headerLines = 2.5;
constexpr qreal leastDayChars = 18;
constexpr qreal laneChars = 12;
constexpr qreal blockGap = 2;

enum Layer { GridLayer, BlockLayer, NowLayer, HoursLayer, DaysLayer, CornerLayer };

} // namespace

/** Labels along an edge of the week, always in view. */
class WeekHeader : public QGraphicsItem {
public:
    struct Cell {
        QRectF place;
        QString text;
        bool isBold = false;
    };

    WeekHeader(const QRectF& band, const QVector<Cell>& cells, const QFont& font)
        : m_band(band)
        , m_cells(cells)
        , m_font(font)
    {
    }

    QRectF boundingRect() const override { return m_band; }

    void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override
    {
        const QPalette palette = scene()->palette();
        painter->fillRect(m_band, palette.window());
        painter->setPen(palette.color(QPalette::WindowText));
        for (const Cell& cell : m_cells) {
            QFont font = m_font;
            font.setBold(cell.isBold);
            painter->setFont(font);
            painter->drawText(cell.place, Qt::AlignCenter, cell.text);
        }
    }

private:
    QRectF m_band;
    QVector<Cell> m_cells;
    QFont m_font;
};

/** Where days and hours are in the picture. */
class WeekGrid {
public:
    /** Days are as wide as they need to be, and share what is left of `width`. */
    WeekGrid(const QFont& font, qreal width, const WeekPlan& plan, const QVector<Lane>& lanes)
        : m_metrics(font)
        , m_letter(letterWidth(font))
    {
        std::array<qreal, WeekPlan::days> widths;
        widths.fill(leastDayChars * m_letter);
        for (int i = 0; i < plan.firings.size(); ++i) {
            qreal& width = widths.at(plan.firings.at(i).day);
            width = qMax(width, lanes.at(i).lanes * laneChars * m_letter);
        }
        const qreal needed = std::accumulate(widths.begin(), widths.end(), hoursWidth());
        const qreal spare = qMax(0.0, width - needed) / WeekPlan::days;
        m_dayStarts[0] = hoursWidth();
        for (int day = 0; day < WeekPlan::days; ++day)
            m_dayStarts[day + 1] = m_dayStarts[day] + widths[day] + spare;
    }

    qreal hoursWidth() const
    {
        return m_metrics.horizontalAdvance(QStringLiteral("00:00 ")) + m_letter;
    }
    qreal headerHeight() const { return headerLines * m_metrics.height(); }
    qreal blockHeight() const { return blockLines * m_metrics.height(); }
    qreal y(int minute) const
    {
        return headerHeight() + blockHeight() / 2 + minute * blockHeight() / blockMinutes;
    }
    /** Blocks just before midnight hang over the end of the day. */
    qreal bottom() const { return y(WeekPlan::minutesOfDay) + blockHeight(); }
    QRectF area() const { return {0, 0, m_dayStarts[WeekPlan::days], bottom()}; }
    QRectF column(int day) const
    {
        return {m_dayStarts[day], headerHeight(), m_dayStarts[day + 1] - m_dayStarts[day],
            bottom() - headerHeight()};
    }
    QRectF block(const WeekPlan::Firing& firing, const Lane& lane) const
    {
        const QRectF day = column(firing.day);
        const qreal width = (day.width() - 2 * blockGap) / lane.lanes;
        return {day.left() + blockGap + lane.lane * width, y(firing.minute), width - blockGap,
            blockHeight() - blockGap};
    }

private:
    QFontMetricsF m_metrics;
    qreal m_letter;
    std::array<qreal, WeekPlan::days + 1> m_dayStarts;
};

namespace {

/** The lines of days and hours. */
class GridItem : public QGraphicsItem {
public:
    GridItem(const WeekGrid& grid, int today)
        : m_grid(grid)
        , m_today(today)
    {
    }

    QRectF boundingRect() const override { return m_grid.area(); }

    void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override
    {
        const QPalette palette = scene()->palette();
        const QRectF area = m_grid.area();
        painter->fillRect(area, palette.base());
        if (m_today >= 0)
            painter->fillRect(m_grid.column(m_today), palette.alternateBase());
        painter->setPen(QPen(palette.color(QPalette::Mid), 0));
        for (int hour = 0; hour <= hoursOfDay; ++hour) {
            const qreal y = m_grid.y(hour * 60);
            painter->drawLine(QPointF(m_grid.hoursWidth(), y), QPointF(area.right(), y));
        }
        for (int day = 0; day < WeekPlan::days; ++day) {
            const QRectF column = m_grid.column(day);
            painter->drawLine(column.topLeft(), column.bottomLeft());
        }
    }

private:
    WeekGrid m_grid;
    int m_today;
};

/** A line across its day, with a head so that it is no line of the grid. */
class NowItem : public QGraphicsItem {
public:
    explicit NowItem(qreal width)
        : m_width(width)
    {
    }

    QRectF boundingRect() const override { return {-head, -head, m_width + 2 * head, 2 * head}; }

    void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override
    {
        const QColor color = scene()->palette().color(QPalette::Highlight);
        painter->setPen(QPen(color, 2));
        painter->setBrush(color);
        painter->drawLine(QPointF(0, 0), QPointF(m_width, 0));
        painter->drawPolygon(
            QPolygonF({QPointF(0, -head + 1), QPointF(head, 0), QPointF(0, head - 1)}));
    }

private:
    static constexpr qreal head = 6;
    qreal m_width;
};

PictureItem::Mark markOf(const TimeTrigger& trigger, const EventNames& names)
{
    const bool isMissing = std::any_of(trigger.eventIds.begin(), trigger.eventIds.end(),
        [&names](int id) { return names.isMissing(id); });
    if (isMissing)
        return PictureItem::Mark::Missing;
    return trigger.eventIds.isEmpty() ? PictureItem::Mark::Unused : PictureItem::Mark::None;
}

} // namespace

WeekView::WeekView(QWidget* parent)
    : PictureView(parent)
    , m_date(QDate::currentDate())
{
    setAccessibleName(tr("Week"));
    makePlan();
}

void WeekView::setContents(const Contents& contents)
{
    m_triggers = contents.timeTriggers.value_or(QVector<TimeTrigger>());
    m_names = EventNames(contents);
    makePlan();
}

void WeekView::setDate(const QDate& date)
{
    if (!date.isValid() || date == m_date)
        return;
    m_date = date;
    makePlan();
}

void WeekView::setFirstWeekday(Qt::DayOfWeek day)
{
    m_firstWeekday = day;
    makePlan();
}

void WeekView::setNow(const QDateTime& now)
{
    m_now = now;
    rebuild();
}

bool WeekView::showsNow() const
{
    return m_nowLine;
}

void WeekView::makePlan()
{
    m_plan = weekPlan(m_triggers, m_date, m_firstWeekday);
    m_lanes = lanesOf(m_plan.firings, blockMinutes);
    setCurrentNumber(-1);
    rebuild();
    emit planChanged();
}

void WeekView::rebuild()
{
    setAccessibleName(tr("Week"));
    m_days = nullptr;
    m_hours = nullptr;
    m_corner = nullptr;
    m_nowLine = nullptr;
    clear();
    const WeekGrid grid(font(), viewport()->width(), m_plan, m_lanes);
    addGrid(grid);
    addHeaders(grid);
    addBlocks(grid);
    addNow(grid);
    setSceneRect(grid.area());
    placeHeaders(mapToScene(QPoint(0, 0)));
}

void WeekView::resizeEvent(QResizeEvent* event)
{
    PictureView::resizeEvent(event);
    if (event->size().width() != event->oldSize().width())
        rebuild();
}

/** Nights are empty: the first block is in view, with an hour before it. */
void WeekView::showEvent(QShowEvent* event)
{
    PictureView::showEvent(event);
    const PictureItem* first = nullptr;
    for (int i = 0; i < itemCount(); ++i) {
        const PictureItem* item = itemOfNumber(i);
        if (!first || item->y() < first->y())
            first = item;
    }
    if (event->spontaneous() || !first)
        return;
    const qreal above = first->y() - 4 * first->boundingRect().height();
    verticalScrollBar()->setValue(qRound(qMax(0.0, above) * transform().m22()));
}

void WeekView::placeHeaders(const QPointF& corner)
{
    if (!m_days)
        return;
    m_days->setY(qMax(0.0, corner.y()));
    m_hours->setX(qMax(0.0, corner.x()));
    m_corner->setPos(m_hours->x(), m_days->y());
}

/** The day of the week that is the present one; -1 if none is. */
int WeekView::today() const
{
    const qint64 day = m_plan.firstDay.daysTo(m_now.date());
    return m_now.isValid() && day >= 0 && day < WeekPlan::days ? static_cast<int>(day) : -1;
}

void WeekView::addGrid(const WeekGrid& grid)
{
    auto* lines = new GridItem(grid, today());
    lines->setZValue(GridLayer);
    scene()->addItem(lines);
}

void WeekView::addHeaders(const WeekGrid& grid)
{
    QVector<WeekHeader::Cell> days;
    for (int day = 0; day < WeekPlan::days; ++day) {
        const QDate date = m_plan.dayAt(day);
        const bool isToday = day == today();
        const auto weekday = static_cast<Qt::DayOfWeek>(date.dayOfWeek());
        const QString name = isToday ? tr("%1, today").arg(Weekdays::shortName(weekday))
                                     : Weekdays::longName(weekday);
        const QRectF column = grid.column(day);
        days.append({QRectF(column.left(), 0, column.width(), grid.headerHeight()),
            name + QLatin1Char('\n') + date.toString(Qt::ISODate), isToday});
    }
    QVector<WeekHeader::Cell> hours;
    for (int hour = 0; hour <= hoursOfDay; ++hour) {
        const qreal half = grid.blockHeight() / 2;
        hours.append({QRectF(0, grid.y(hour * 60) - half, grid.hoursWidth(), 2 * half),
            QStringLiteral("%1:00").arg(hour, 2, 10, QLatin1Char('0')), false});
    }
    const QRectF area = grid.area();
    m_days = new WeekHeader(QRectF(0, 0, area.width(), grid.headerHeight()), days, font());
    m_hours = new WeekHeader(
        QRectF(0, grid.headerHeight(), grid.hoursWidth(), area.height() - grid.headerHeight()),
        hours, font());
    m_days->setZValue(DaysLayer);
    m_hours->setZValue(HoursLayer);
    m_corner = new WeekHeader(QRectF(0, 0, grid.hoursWidth(), grid.headerHeight()), {}, font());
    m_corner->setZValue(CornerLayer);
    for (WeekHeader* header : {m_days, m_hours, m_corner})
        scene()->addItem(header);
}

PictureItem::Label WeekView::labelOf(const TimeTrigger& trigger) const
{
    PictureItem::Label label;
    label.title = trigger.time + QLatin1Char(' ') + TriggerWords::title(trigger, m_names);
    label.toolTip = TriggerWords::toolTip(trigger, m_names, m_firstWeekday);
    label.mark = markOf(trigger, m_names);
    return label;
}

void WeekView::addBlocks(const WeekGrid& grid)
{
    QVector<PictureItem::Label> labels;
    for (const TimeTrigger& trigger : m_triggers)
        labels.append(labelOf(trigger));
    for (int i = 0; i < m_plan.firings.size(); ++i) {
        const WeekPlan::Firing& firing = m_plan.firings.at(i);
        const QRectF place = grid.block(firing, m_lanes.at(i));
        auto* block = new PictureItem(i, place.size(), labels.at(firing.trigger), font());
        block->setZValue(BlockLayer);
        addBox(block, place.topLeft());
    }
}

void WeekView::addNow(const WeekGrid& grid)
{
    if (today() < 0)
        return;
    const QRectF column = grid.column(today());
    const int minute = m_now.time().hour() * 60 + m_now.time().minute();
    m_nowLine = new NowItem(column.width());
    m_nowLine->setZValue(NowLayer);
    m_nowLine->setToolTip(tr("Now, %1").arg(m_now.toString(QStringLiteral("HH:mm"))));
    m_nowLine->setPos(column.left(), grid.y(minute));
    scene()->addItem(m_nowLine);
}
