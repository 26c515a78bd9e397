// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "pictures/weekplan.h"

#include <QtCore/QRandomGenerator>

#include <QtTest/QtTest>

using namespace QuadrelDocument;
using Ints = QVector<int>;
using Reason = WeekPlan::Reason;
Q_DECLARE_METATYPE(WeekPlan::Reason)
Q_DECLARE_METATYPE(TimeTrigger)

namespace {

TimeTrigger trigger(Repeat repeat, const QString& start, const std::optional<QString>& end,
    const Ints& weekdays = {}, const QString& time = QStringLiteral("08:05"))
{
    TimeTrigger trigger;
    trigger.repeat = repeat;
    trigger.startDate = start;
    trigger.endDate = end;
    trigger.weekdays = weekdays;
    trigger.time = time;
    return trigger;
}

Ints daysOf(const WeekPlan& plan)
{
    Ints days;
    for (const WeekPlan::Firing& firing : plan.firings)
        days.append(firing.day);
    return days;
}

} // namespace

class TestWeekPlan : public QObject {
    Q_OBJECT

private slots:
    void beginsWeeks_data();
    void beginsWeeks();
    void fires_data();
    void fires();
    void staysSilent_data();
    void staysSilent();
    void countsMinutes_data();
    void countsMinutes();
    void ordersFirings();
    void mapsWeekdaysToTheFirstOne();
    void agreesWithEachDayAlone();
    void sharesLanes_data();
    void sharesLanes();
    void keepsRandomBlocksApart();
};

void TestWeekPlan::beginsWeeks_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<int>("first");
    QTest::addColumn<QDate>("firstDay");
    QTest::newRow("the first day itself")
        << QDate(2024, 3, 4) << int(Qt::Monday) << QDate(2024, 3, 4);
    QTest::newRow("the last day") << QDate(2024, 3, 10) << int(Qt::Monday) << QDate(2024, 3, 4);
    QTest::newRow("from Sunday") << QDate(2024, 3, 9) << int(Qt::Sunday) << QDate(2024, 3, 3);
    QTest::newRow("a Sunday, from Sunday")
        << QDate(2024, 3, 10) << int(Qt::Sunday) << QDate(2024, 3, 10);
    QTest::newRow("from Saturday") << QDate(2024, 3, 8) << int(Qt::Saturday) << QDate(2024, 3, 2);
    QTest::newRow("over a leap day") << QDate(2024, 3, 1) << int(Qt::Monday) << QDate(2024, 2, 26);
    QTest::newRow("over the turn of the year")
        << QDate(2026, 1, 1) << int(Qt::Monday) << QDate(2025, 12, 29);
}

void TestWeekPlan::beginsWeeks()
{
    QFETCH(QDate, date);
    QFETCH(int, first);
    QTEST(weekPlan({}, date, static_cast<Qt::DayOfWeek>(first)).firstDay, "firstDay");
}

/** The week from Monday 2024-02-26 to Sunday 2024-03-03. */
void TestWeekPlan::fires_data()
{
    QTest::addColumn<TimeTrigger>("what");
    QTest::addColumn<Ints>("days");
    const Ints all{0, 1, 2, 3, 4, 5, 6};
    const auto row = [](const char* name, const TimeTrigger& what, const Ints& days) {
        QTest::newRow(name) << what << days;
    };
    row("every day, forever", trigger(Repeat::EveryDay, "2024/01/01", {}), all);
    row("every day, whatever its weekdays", trigger(Repeat::EveryDay, "2024/01/01", {}, {2}), all);
    row("begins in the week", trigger(Repeat::EveryDay, "2024/02/29", {}), {3, 4, 5, 6});
    row("begins on its last day", trigger(Repeat::EveryDay, "2024/03/03", {}), {6});
    row("ends in the week", trigger(Repeat::EveryDay, "200/01/01", "2024/02/27"), {0, 1});
    row("ends on its first day", trigger(Repeat::EveryDay, "2024/01/01", "2024/02/26"), {0});
    row("begins and ends in the week", trigger(Repeat::EveryDay, "2024/02/28", "2024/03/01"),
        {2, 3, 4});
    row("one day", trigger(Repeat::EveryDay, "2024/02/29", "2024/02/29"), {3});
    row("ends on the last day that there is", trigger(Repeat::EveryDay, "2024/01/01", "2099/12/31"),
        all);
    row("weekly", trigger(Repeat::Weekly, "2024/01/01", {}, {1, 3, 7}), {0, 2, 6});
    row("weekly on all days", trigger(Repeat::Weekly, "2024/01/01", {}, {1, 2, 3, 4, 5, 6, 7}),
        all);
    row("weekly, begins in the week", trigger(Repeat::Weekly, "2024/02/28", {}, {1, 3, 7}), {2, 6});
    row("weekly, ends in the week", trigger(Repeat::Weekly, "2024/01/01", "2024/02/28", {1, 3, 7}),
        {0, 2});
    row("weekly, with an eighth day", trigger(Repeat::Weekly, "2024/01/01", {}, {5, 8}), {4});
    row("weekly, with doubled and unordered days",
        trigger(Repeat::Weekly, "2024/01/01", {}, {7, 1, 7}), {0, 6});
    row("weekly, with numbers beyond all",
        trigger(Repeat::Weekly, "2024/01/01", {}, {-1, 0, 2, 99}), {1});
    row("once, on a leap day", trigger(Repeat::Once, "2024/02/29", "2024/02/29"), {3});
    row("once, whatever its end", trigger(Repeat::Once, "2024/02/29", "2020/01/01"), {3});
    row("once, forever", trigger(Repeat::Once, "2024/02/29", {}), {3});
    row("once, with weekdays", trigger(Repeat::Once, "2024/02/29", {}, {1}), {3});
}

void TestWeekPlan::fires()
{
    QFETCH(TimeTrigger, what);
    const WeekPlan plan = weekPlan({what}, {2024, 2, 29}, Qt::Monday);
    QTEST(daysOf(plan), "days");
    QVERIFY(plan.silences.isEmpty());
}

void TestWeekPlan::staysSilent_data()
{
    QTest::addColumn<TimeTrigger>("what");
    QTest::addColumn<Reason>("reason");
    const auto row = [](const char* name, const TimeTrigger& what, Reason reason) {
        QTest::newRow(name) << what << reason;
    };
    row("begins after the week", trigger(Repeat::EveryDay, "2024/03/04", {}), Reason::BeginsLater);
    row("ended before the week", trigger(Repeat::EveryDay, "2024/01/01", "2024/02/25"),
        Reason::HasEnded);
    row("once, before", trigger(Repeat::Once, "2024/02/25", {}), Reason::HasEnded);
    row("once, after", trigger(Repeat::Once, "2024/03/04", {}), Reason::BeginsLater);
    row("begins after its weekday", trigger(Repeat::Weekly, "2024/02/28", {}, {1}),
        Reason::OtherDays);
    row("no weekdays", trigger(Repeat::Weekly, "2024/01/01", {}), Reason::NoWeekday);
    row("an eighth weekday alone", trigger(Repeat::Weekly, "2024/01/01", {}, {8}),
        Reason::NoWeekday);
    row("ends before it begins", trigger(Repeat::EveryDay, "2024/02/28", "2024/02/27"),
        Reason::EndsBeforeItBegins);
    row("no time", trigger(Repeat::EveryDay, "2024/01/01", {}, {}, "25:70"), Reason::NoSuchTime);
    row("midnight as 24:00", trigger(Repeat::EveryDay, "2024/01/01", {}, {}, "24:00"),
        Reason::NoSuchTime);
    row("an empty time", trigger(Repeat::EveryDay, "2024/01/01", {}, {}, ""), Reason::NoSuchTime);
    row("no start", trigger(Repeat::EveryDay, "2023/02/29", {}), Reason::NoSuchStart);
    row("an empty start", trigger(Repeat::Once, "", {}), Reason::NoSuchStart);
    row("no end", trigger(Repeat::EveryDay, "2024/01/01", "20165/165/01"), Reason::NoSuchEnd);
    row("a start in another century", trigger(Repeat::EveryDay, "1999/12/31", {}),
        Reason::NoSuchStart);
}

void TestWeekPlan::staysSilent()
{
    QFETCH(TimeTrigger, what);
    QFETCH(Reason, reason);
    const WeekPlan plan = weekPlan({what}, {2024, 2, 29}, Qt::Monday);
    QVERIFY(plan.firings.isEmpty());
    QCOMPARE(plan.silences.size(), 1);
    QCOMPARE(int(plan.silences.first().reason), int(reason));
    QCOMPARE(plan.silences.first().trigger, 0);
}

void TestWeekPlan::countsMinutes_data()
{
    QTest::addColumn<QString>("time");
    QTest::addColumn<int>("minute");
    QTest::newRow("midnight") << "00:00" << 0;
    QTest::newRow("the first minute") << "00:01" << 1;
    QTest::newRow("noon") << "12:00" << 720;
    QTest::newRow("the last minute") << "23:59" << 1439;
}

void TestWeekPlan::countsMinutes()
{
    QFETCH(QString, time);
    const WeekPlan plan =
        weekPlan({trigger(Repeat::Once, "2024/02/29", {}, {}, time)}, {2024, 2, 29}, Qt::Monday);
    QCOMPARE(plan.firings.size(), 1);
    QTEST(plan.firings.first().minute, "minute");
    QCOMPARE(plan.firings.first().day, 3);
}

void TestWeekPlan::ordersFirings()
{
    const WeekPlan plan = weekPlan({trigger(Repeat::Once, "2024/02/29", {}, {}, "23:00"),
                                       trigger(Repeat::Once, "2024/02/27", {}, {}, "23:30"),
                                       trigger(Repeat::Once, "2024/02/29", {}, {}, "01:00"),
                                       trigger(Repeat::Once, "2024/02/29", {}, {}, "23:00")},
        {2024, 2, 29}, Qt::Monday);
    const QVector<WeekPlan::Firing> expected{{1, 1, 1410}, {2, 3, 60}, {0, 3, 1380}, {3, 3, 1380}};
    QCOMPARE(plan.firings, expected);
}

/** The same numbers are other days of the calendar when the first one is another. */
void TestWeekPlan::mapsWeekdaysToTheFirstOne()
{
    const TimeTrigger first = trigger(Repeat::Weekly, "2024/01/01", {}, {1});
    for (int day = Qt::Monday; day <= Qt::Sunday; ++day) {
        const WeekPlan plan = weekPlan({first}, {2024, 2, 29}, static_cast<Qt::DayOfWeek>(day));
        QCOMPARE(daysOf(plan), Ints({0}));
        QCOMPARE(plan.dayAt(0).dayOfWeek(), day);
    }
}

/** A week is what a simpler rule says of each of its days, for random triggers and dates. */
void TestWeekPlan::agreesWithEachDayAlone()
{
    QRandomGenerator random(3);
    const auto randomDate = [&random] { return QDate(2024, 2, 1).addDays(random.bounded(60)); };
    for (int round = 0; round < 2000; ++round) {
        const auto repeat = static_cast<Repeat>(random.bounded(3));
        const QDate start = randomDate();
        const QDate end = randomDate();
        const bool isEndless = random.bounded(2) == 0;
        const Ints weekdays{random.bounded(9), random.bounded(9)};
        const QString form = QStringLiteral("yyyy/MM/dd");
        const TimeTrigger what = trigger(repeat, start.toString(form),
            isEndless ? std::optional<QString>() : std::optional(end.toString(form)), weekdays);
        const QDate date = randomDate();
        const WeekPlan plan = weekPlan({what}, date, Qt::Monday);
        for (int day = 0; day < WeekPlan::days; ++day) {
            const QDate today = plan.dayAt(day);
            const bool isInRange = today >= start && (isEndless || today <= end);
            const bool isDue = repeat == Repeat::Once ? today == start
                : repeat == Repeat::Weekly ? isInRange && weekdays.contains(today.dayOfWeek())
                                           : isInRange;
            QCOMPARE(daysOf(plan).count(day), isDue ? 1 : 0);
        }
        QCOMPARE(plan.silences.size(), plan.firings.isEmpty() ? 1 : 0);
    }
}

void TestWeekPlan::sharesLanes_data()
{
    QTest::addColumn<Ints>("minutes");
    QTest::addColumn<Ints>("lanes");
    QTest::addColumn<Ints>("counts");
    QTest::newRow("none") << Ints() << Ints() << Ints();
    QTest::newRow("one") << Ints{60} << Ints{0} << Ints{1};
    QTest::newRow("apart") << Ints{60, 90} << Ints{0, 0} << Ints{1, 1};
    QTest::newRow("overlapping") << Ints{60, 89} << Ints{0, 1} << Ints{2, 2};
    QTest::newRow("at once") << Ints{60, 60, 60} << Ints{0, 1, 2} << Ints{3, 3, 3};
    QTest::newRow("a chain") << Ints{0, 20, 40, 60} << Ints{0, 1, 0, 1} << Ints{2, 2, 2, 2};
    QTest::newRow("two groups") << Ints{0, 10, 200} << Ints{0, 1, 0} << Ints{2, 2, 1};
}

void TestWeekPlan::sharesLanes()
{
    QFETCH(Ints, minutes);
    QVector<WeekPlan::Firing> firings;
    for (const int minute : minutes)
        firings.append({0, 2, minute});
    // The same time on the next day overlaps with nothing.
    firings.append({0, 3, minutes.isEmpty() ? 0 : minutes.last()});
    const QVector<Lane> shared = lanesOf(firings, 30);
    QCOMPARE(shared.last().lanes, 1);
    Ints lanes;
    Ints counts;
    for (int i = 0; i + 1 < shared.size(); ++i) {
        lanes.append(shared.at(i).lane);
        counts.append(shared.at(i).lanes);
    }
    QTEST(lanes, "lanes");
    QTEST(counts, "counts");
}

void TestWeekPlan::keepsRandomBlocksApart()
{
    constexpr int blockMinutes = 30;
    QRandomGenerator random(4);
    for (int round = 0; round < 200; ++round) {
        QVector<int> minutes;
        for (int i = random.bounded(40); i > 0; --i)
            minutes.append(random.bounded(300));
        std::sort(minutes.begin(), minutes.end());
        QVector<WeekPlan::Firing> firings;
        for (const int minute : minutes)
            firings.append({0, 0, minute});
        const QVector<Lane> lanes = lanesOf(firings, blockMinutes);
        for (int i = 0; i < firings.size(); ++i) {
            QVERIFY(lanes.at(i).lane >= 0 && lanes.at(i).lane < lanes.at(i).lanes);
            for (int j = 0; j < i; ++j) {
                const bool isOverlap = firings.at(i).minute < firings.at(j).minute + blockMinutes;
                QVERIFY(!isOverlap || lanes.at(i).lane != lanes.at(j).lane);
                QVERIFY(!isOverlap || lanes.at(i).lanes == lanes.at(j).lanes);
            }
        }
    }
}

QTEST_GUILESS_MAIN(TestWeekPlan)
#include "tst_weekplan.moc"
