// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "patience.h"
#include "unitschedule.h"

#include <QtTest/QtTest>

using namespace QuadrelUnit;

namespace {

constexpr qint64 millisecond = 1000000;

} // namespace

class TestUnitSchedule : public QObject {
    Q_OBJECT

private slots:
    void callsInTheOrderOfTimes();
    void callsNotBeforeTheTime();
    void takesCallsFromCalls();
    void takesAnEarlierCall();

private:
    /** A call that leaves its name. */
    UnitSchedule::Call call(const char* name)
    {
        return [this, name] { m_calls += name; };
    }

    QByteArray m_calls;
};

void TestUnitSchedule::callsInTheOrderOfTimes()
{
    m_calls.clear();
    UnitSchedule schedule;
    const qint64 time = schedule.now() + 2 * millisecond;
    schedule.callAt(time, call("c"));
    schedule.callAt(time + 1, call("e"));
    schedule.callAt(time, call("d"));
    schedule.callAt(time - 1, call("b"));
    schedule.callAt(0, call("a"));
    QVERIFY(m_calls.isEmpty());
    TRY_COMPARE(m_calls, QByteArray("abcde"));
}

void TestUnitSchedule::callsNotBeforeTheTime()
{
    UnitSchedule schedule;
    const qint64 due = schedule.now() + 7 * millisecond + 1;
    qint64 called = 0;
    schedule.callAt(due, [&] { called = schedule.now(); });
    TRY_VERIFY(called > 0);
    QVERIFY(called >= due);
}

void TestUnitSchedule::takesCallsFromCalls()
{
    m_calls.clear();
    UnitSchedule schedule;
    schedule.callAt(0, [&] {
        m_calls += "a";
        schedule.callAt(0, call("b"));
        schedule.callAt(schedule.now() + millisecond, call("c"));
    });
    TRY_COMPARE(m_calls, QByteArray("abc"));
}

void TestUnitSchedule::takesAnEarlierCall()
{
    m_calls.clear();
    UnitSchedule schedule;
    schedule.callAt(schedule.now() + 3600000 * millisecond, call("late"));
    schedule.callAt(schedule.now() + millisecond, call("soon"));
    TRY_COMPARE(m_calls, QByteArray("soon"));
}

QTEST_GUILESS_MAIN(TestUnitSchedule)
#include "tst_unitschedule.moc"
