// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "pictureitem.h"
#include "pictureview.h"
#include "weekplan.h"

#include "editors/eventnames.h"

#include <QtCore/QDateTime>

class WeekGrid;
class WeekHeader;

/**
 * A week of the time triggers: a block for each firing, on seven days by hours. Blocks that would
 * overlap are side by side. A number is a firing's place in plan().
 */
class WeekView : public PictureView {
    Q_OBJECT

public:
    explicit WeekView(QWidget* parent = nullptr);

    void setContents(const QuadrelDocument::Contents& contents);
    /** The week that holds it is shown. */
    void setDate(const QDate& date);
    QDate date() const { return m_date; }
    void setFirstWeekday(Qt::DayOfWeek day);
    /** Where the line of the present is; only in its own week. */
    void setNow(const QDateTime& now);

    const WeekPlan& plan() const { return m_plan; }
    const EventNames& names() const { return m_names; }
    /** Whether the line of the present is in the picture. */
    bool showsNow() const;

signals:
    /** Another week is shown, or it has another plan. */
    void planChanged();

protected:
    void rebuild() override;
    void placeHeaders(const QPointF& corner) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void makePlan();
    void addGrid(const WeekGrid& grid);
    void addHeaders(const WeekGrid& grid);
    void addBlocks(const WeekGrid& grid);
    void addNow(const WeekGrid& grid);
    PictureItem::Label labelOf(const QuadrelDocument::TimeTrigger& trigger) const;
    int today() const;

    QVector<QuadrelDocument::TimeTrigger> m_triggers;
    EventNames m_names;
    QDate m_date;
    QDateTime m_now;
    Qt::DayOfWeek m_firstWeekday = Qt::Monday;
    WeekPlan m_plan;
    QVector<Lane> m_lanes;
    WeekHeader* m_days = nullptr;
    WeekHeader* m_hours = nullptr;
    WeekHeader* m_corner = nullptr;
    QGraphicsItem* m_nowLine = nullptr;
};
