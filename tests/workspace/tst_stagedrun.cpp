// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "stagedrun.h"

#include <QtTest/QtTest>

using namespace QuadrelWorkspace;

namespace {

QList<WorkerTask> tasks(int count, const QList<int>& failing = {})
{
    QList<WorkerTask> tasks;
    for (int i = 1; i <= count; ++i) {
        const QString script =
            failing.contains(i) ? QStringLiteral("exit 1") : QStringLiteral("echo {}");
        tasks.append({QString::number(i), QStringLiteral("sh"), {QStringLiteral("-c"), script}});
    }
    return tasks;
}

StageOptions options(int canary, int batch, int maximalFailures = 0)
{
    StageOptions options;
    options.canary = canary;
    options.batch = batch;
    options.maximalFailures = maximalFailures;
    options.jobs = 1;
    return options;
}

/** What a run reported, as one text: "1/2: 1 2!, 2/2: 3", where "!" failed and "-" was not begun.
 */
class Report {
public:
    explicit Report(StagedRun& run)
    {
        QObject::connect(&run, &StagedRun::stageStarted, &run, [this](int stage, int stages) {
            m_text += QStringLiteral(" %1/%2:").arg(stage).arg(stages);
        });
        QObject::connect(&run, &StagedRun::finished, &run, [this](const WorkerResult& result) {
            const QString mark = result.isSuccess() ? QString()
                : result.end == WorkerEnd::NotBegun ? QStringLiteral("-")
                                                    : QStringLiteral("!");
            m_text += QLatin1Char(' ') + result.name + mark;
        });
        QObject::connect(&run, &StagedRun::allFinished, &run, [this] { ++m_ends; });
    }

    QString await() const
    {
        if (!QTest::qWaitFor([this] { return m_ends > 0; }, 60000))
            return QStringLiteral("no end");
        QCoreApplication::processEvents();
        return m_ends == 1 ? m_text.trimmed() : QStringLiteral("too many ends");
    }

private:
    QString m_text;
    int m_ends = 0;
};

} // namespace

class TestStagedRun : public QObject {
    Q_OBJECT

private slots:
    void divides_data();
    void divides();
    void runs_data();
    void runs();
    void stopsOnCall();
    void endsOnCall();
    void runsOnce();
};

void TestStagedRun::divides_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("canary");
    QTest::addColumn<int>("batch");
    QTest::addColumn<QList<int>>("sizes");
    QTest::newRow("none") << 0 << 1 << 2 << QList<int>{};
    QTest::newRow("all at once") << 7 << 0 << 0 << QList<int>{7};
    QTest::newRow("canary") << 7 << 1 << 0 << QList<int>{1, 6};
    QTest::newRow("batches") << 7 << 0 << 3 << QList<int>{3, 3, 1};
    QTest::newRow("both") << 7 << 2 << 3 << QList<int>{2, 3, 2};
    QTest::newRow("more than there are") << 2 << 9 << 9 << QList<int>{2};
    QTest::newRow("negative") << 2 << -1 << -1 << QList<int>{2};
}

void TestStagedRun::divides()
{
    QFETCH(int, count);
    QFETCH(int, canary);
    QFETCH(int, batch);
    QFETCH(QList<int>, sizes);
    const QVector<QList<WorkerTask>> stages = stagesOf(tasks(count), options(canary, batch));
    QList<int> found;
    int next = 1;
    for (const QList<WorkerTask>& stage : stages) {
        found.append(stage.size());
        for (const WorkerTask& task : stage)
            QCOMPARE(task.name, QString::number(next++));
    }
    QCOMPARE(found, sizes);
}

void TestStagedRun::runs_data()
{
    QTest::addColumn<int>("canary");
    QTest::addColumn<int>("batch");
    QTest::addColumn<int>("maximalFailures");
    QTest::addColumn<QList<int>>("failing");
    QTest::addColumn<QString>("report");
    QTest::addColumn<bool>("isStopped");
    QTest::newRow("all well") << 1 << 2 << 0 << QList<int>{} << "1/3: 1 2/3: 2 3 3/3: 4 5" << false;
    QTest::newRow("canary fails") << 1 << 2 << 0 << QList<int>{1} << "1/3: 1! 2- 3- 4- 5-" << true;
    QTest::newRow("fails in a batch")
        << 1 << 3 << 0 << QList<int>{3} << "1/3: 1 2/3: 2 3! 4- 5-" << true;
    QTest::newRow("as many as allowed")
        << 0 << 2 << 2 << QList<int>{1, 5} << "1/3: 1! 2 2/3: 3 4 3/3: 5!" << false;
    QTest::newRow("one more") << 0 << 2 << 1 << QList<int>{1, 3, 5} << "1/3: 1! 2 2/3: 3! 4- 5-"
                              << true;
    QTest::newRow("the last one") << 0 << 0 << 0 << QList<int>{5} << "1/1: 1 2 3 4 5!" << true;
}

void TestStagedRun::runs()
{
    QFETCH(int, canary);
    QFETCH(int, batch);
    QFETCH(int, maximalFailures);
    QFETCH(QList<int>, failing);
    StagedRun run(options(canary, batch, maximalFailures));
    const Report report(run);
    run.start(tasks(5, failing));
    QTEST(report.await(), "report");
    QTEST(run.isStopped(), "isStopped");
    QCOMPARE(run.failureCount(),
        static_cast<int>(std::count_if(failing.begin(), failing.end(),
            [&](int i) { return !report.await().contains(QStringLiteral("%1-").arg(i)); })));
}

void TestStagedRun::stopsOnCall()
{
    StagedRun run(options(1, 2));
    const Report report(run);
    connect(&run, &StagedRun::started, &run, [&run](const QString& name) {
        if (name == QStringLiteral("2"))
            run.stopStarting();
    });
    run.start(tasks(5));
    QCOMPARE(report.await(), QStringLiteral("1/3: 1 2/3: 3- 2 4- 5-"));
    QVERIFY(run.isStopped());
    QCOMPARE(run.failureCount(), 0);
}

void TestStagedRun::endsOnCall()
{
    StagedRun run(options(0, 1));
    const Report report(run);
    QList<WorkerTask> list = tasks(2);
    list.first().arguments.last() = QStringLiteral("echo at work >&2; exec sleep 1000");
    WorkerEnd end = WorkerEnd::Done;
    connect(&run, &StagedRun::progressed, &run, [&run] { run.endAll(); });
    connect(&run, &StagedRun::finished, &run, [&end](const WorkerResult& result) {
        if (result.name == QStringLiteral("1"))
            end = result.end;
    });
    run.start(list);
    QCOMPARE(report.await(), QStringLiteral("1/2: 1! 2-"));
    QCOMPARE(end, WorkerEnd::Stopped);
}

void TestStagedRun::runsOnce()
{
    StagedRun run(options(0, 0));
    const Report report(run);
    run.start(tasks(1));
    run.start(tasks(2));
    QCOMPARE(report.await(), QStringLiteral("1/1: 1"));
    run.stopStarting();
    run.endAll();
    QCOMPARE(report.await(), QStringLiteral("1/1: 1"));
}

QTEST_GUILESS_MAIN(TestStagedRun)
#include "tst_stagedrun.moc"
