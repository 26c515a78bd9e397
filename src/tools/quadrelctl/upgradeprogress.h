#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QString>

/**
 * Shows how far an upgrade has come: a bar with rate and remaining time on a terminal, a line for
 * each tenth elsewhere.
 */
class UpgradeProgress {
public:
    /** `totalBytes` stand for 100 percent. */
    explicit UpgradeProgress(qint64 totalBytes);

    /** Takes the library's progress text, whose number is the percentage. */
    void show(const QString& text);

private:
    QString bar(int percent) const;

    const qint64 m_totalBytes;
    QElapsedTimer m_elapsed;
    int m_shown = -1;
};
