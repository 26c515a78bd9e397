// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <unitwork.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QString>

/**
 * Shows how far an upgrade has come: a bar with rate and remaining time on a terminal, a line for
 * each tenth elsewhere.
 */
class UpgradeProgress {
public:
    UpgradeProgress();

    void show(const QuadrelWorkspace::WorkProgress& progress);

private:
    void showPercent(int percent, qint64 bytes);
    QString bar(int percent, qint64 bytes) const;

    QElapsedTimer m_elapsed;
    int m_shown = -1;
};
