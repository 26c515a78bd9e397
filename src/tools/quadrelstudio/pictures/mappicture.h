// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <unitcontents.h>

#include <QtWidgets/QWidget>

class MapView;
class PictureTools;
class QLabel;

/** The map of what makes what happen on a unit, with a line that says what is out of order. */
class MapPicture : public QWidget {
    Q_OBJECT

public:
    explicit MapPicture(QWidget* parent = nullptr);

    void setContents(const QuadrelDocument::Contents& contents);
    /** The day that a unit's weekday 1 is; see QuadrelWorkspace::UserSettings. */
    void setFirstWeekday(Qt::DayOfWeek day);

    MapView* view() const { return m_view; }

signals:
    /** Their places in Contents::triggers, timeTriggers and events. */
    void triggerActivated(int index);
    void timeTriggerActivated(int index);
    void eventActivated(int index);
    /** An event that triggers run and that is not there. */
    void missingEventActivated(int id);
    /** A picture could not be saved; why is a sentence. */
    void failed(const QString& why);

protected:
    void changeEvent(QEvent* event) override;

private:
    void activate(int node);
    void report();

    MapView* m_view;
    PictureTools* m_tools;
    QLabel* m_summary;
};
