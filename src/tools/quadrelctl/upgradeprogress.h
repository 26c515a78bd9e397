#pragma once

#include "unitprogress.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QString>

/**
 * Shows how far an upgrade has come: a bar with rate and remaining time on a terminal, a line for
 * each tenth elsewhere.
 */
class UpgradeProgress {
public:
    UpgradeProgress();

    void show(const UnitProgress& step);

private:
    QString bar(int percent, qint64 sentBytes) const;

    QElapsedTimer m_elapsed;
    int m_shown = -1;
};
