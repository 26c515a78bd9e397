// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>
#include <QtCore/QTimer>

#include <functional>
#include <map>

namespace QuadrelUnit {

/** Makes calls at given times, each at its own or later; calls of one time in the order given. */
class UnitSchedule : public QObject {
    Q_OBJECT

public:
    using Call = std::function<void()>;

    explicit UnitSchedule(QObject* parent = nullptr);

    /** Nanoseconds of a clock that only runs forward. */
    qint64 now() const { return m_clock.nsecsElapsed(); }
    void callAt(qint64 time, Call call);

private:
    void callDue();
    void startTimer();

    QElapsedTimer m_clock;
    QTimer m_timer;
    std::multimap<qint64, Call> m_calls;
};

} // namespace QuadrelUnit
