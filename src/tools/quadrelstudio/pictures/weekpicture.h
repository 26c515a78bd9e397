// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <unitcontents.h>

#include <QtCore/QBasicTimer>
#include <QtWidgets/QWidget>

class PictureTools;
class QDateEdit;
class QLabel;
class QListWidget;
class QPushButton;
class WeekView;

/** The week of a unit, the date to look at, and the triggers that don't fire in that week. */
class WeekPicture : public QWidget {
    Q_OBJECT

public:
    explicit WeekPicture(QWidget* parent = nullptr);

    void setContents(const QuadrelDocument::Contents& contents);
    /** The day that a unit's weekday 1 is; see QuadrelWorkspace::UserSettings. */
    void setFirstWeekday(Qt::DayOfWeek day);
    void setDate(const QDate& date);
    /** Where the line of the present is; the computer's clock, until it is set. */
    void setNow(const QDateTime& now);

    WeekView* view() const { return m_view; }

signals:
    /** A block, or a trigger of the list below; its place in Contents::timeTriggers. */
    void timeTriggerActivated(int index);
    /** A picture could not be saved; why is a sentence. */
    void failed(const QString& why);

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void makeWidgets();
    void layOut();
    void connectWidgets();
    void retranslate();
    void listSilences();

    QVector<QuadrelDocument::TimeTrigger> m_triggers;
    bool m_hasOwnClock = true;
    QBasicTimer m_minute;
    WeekView* m_view;
    PictureTools* m_tools;
    QDateEdit* m_date;
    QPushButton* m_before;
    QPushButton* m_today;
    QPushButton* m_after;
    QLabel* m_silentTitle;
    QListWidget* m_silent;
};
