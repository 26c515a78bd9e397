// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <stagedrun.h>
#include <unitreport.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QMap>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QTimer>

/**
 * How far the work on a site has come: on a terminal a line for each unit at work and one for all,
 * elsewhere a line for each finished unit.
 */
class SiteProgress : public QObject {
public:
    SiteProgress(int units, const QString& title, QuadrelWorkspace::StagedRun& run);

    /** The line of a finished unit; nothing on a terminal. */
    void showEnd(const QuadrelWorkspace::UnitReport& report);
    void count(const QuadrelWorkspace::UnitReport& report);

private:
    void show();
    QString total() const;

    const int m_units;
    const QString m_title;
    int m_finished = 0;
    int m_failed = 0;
    /** What each unit at work is at. */
    QMap<QString, QString> m_atWork;
    QElapsedTimer m_elapsed;
    QTimer m_showing;
};
