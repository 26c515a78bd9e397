// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "workerpool.h"

#include <QtCore/QEventLoop>
#include <QtCore/QHash>
#include <QtCore/QJsonArray>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

using namespace QuadrelWorkspace;

namespace {

constexpr int noLimit = -1;

WorkerTask shell(const QString& name, const QString& script)
{
    return {name, QStringLiteral("sh"), {QStringLiteral("-c"), script}};
}

QList<WorkerTask> shells(int count, const QString& script)
{
    QList<WorkerTask> tasks;
    for (int i = 1; i <= count; ++i)
        tasks.append(shell(QString::number(i), script));
    return tasks;
}

/** A pool with everything that it reported. */
struct Run {
    WorkerPool pool;
    QStringList started;
    QStringList lines;
    QStringList finishedNames;
    QHash<QString, WorkerResult> results;
    int most = 0;
    int ends = 0;

    explicit Run(int jobs, int limit = noLimit)
        : pool(jobs, limit)
    {
        QObject::connect(&pool, &WorkerPool::started, &pool, [this](const QString& name) {
            started.append(name);
            most = std::max(most, pool.runningCount());
        });
        QObject::connect(&pool, &WorkerPool::progressed, &pool,
            [this](const QString& name, const QString& line) {
                lines.append(name + QStringLiteral(": ") + line);
            });
        QObject::connect(&pool, &WorkerPool::finished, &pool, [this](const WorkerResult& result) {
            finishedNames.append(result.name);
            results.insert(result.name, result);
        });
        QObject::connect(&pool, &WorkerPool::allFinished, &pool, [this] { ++ends; });
    }

    void await(const QList<WorkerTask>& tasks)
    {
        pool.start(tasks);
        QTRY_COMPARE_WITH_TIMEOUT(ends, 1, 60000);
        // Whatever comes too much would come now.
        QCoreApplication::processEvents();
        QCOMPARE(ends, 1);
        QCOMPARE(results.size(), tasks.size());
        QCOMPARE(finishedNames.size(), tasks.size());
    }
};

} // namespace

class TestWorkerPool : public QObject {
    Q_OBJECT

private slots:
    void runsNothing();
    void runsAsManyAsAllowed_data();
    void runsAsManyAsAllowed();
    void readsTheResult_data();
    void readsTheResult();
    void endsAWorkerAtItsLimit_data();
    void endsAWorkerAtItsLimit();
    void keepsAFailureToItsUnit();
    void reportsLines();
    void keepsTheLastErrors();
    void startsNoMore();
    void endsAll();
    void takesOneEndOnly();
    void runsApartFromTheTerminal();
    void killsWithTheObject();
};

void TestWorkerPool::runsNothing()
{
    Run run(4);
    run.await({});
    QCOMPARE(run.started, QStringList());
}

void TestWorkerPool::runsAsManyAsAllowed_data()
{
    QTest::addColumn<int>("jobs");
    QTest::addColumn<int>("most");
    QTest::newRow("none is one") << 0 << 1;
    QTest::newRow("one") << 1 << 1;
    QTest::newRow("three") << 3 << 3;
    QTest::newRow("more than there are") << 100 << 10;
}

void TestWorkerPool::runsAsManyAsAllowed()
{
    QFETCH(int, jobs);
    QFETCH(int, most);
    Run run(jobs);
    run.await(shells(10, QStringLiteral("echo {}")));
    QCOMPARE(run.most, most);
    QStringList names;
    for (int i = 1; i <= 10; ++i)
        names.append(QString::number(i));
    QCOMPARE(run.started, names);
    for (const WorkerResult& result : qAsConst(run.results))
        QVERIFY(result.isSuccess());
}

void TestWorkerPool::readsTheResult_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<WorkerEnd>("end");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<QString>("errors");
    QTest::addColumn<QString>("reason");
    const QByteArray none;
    QTest::newRow("object") << R"(echo '{"a": [1]}')" << WorkerEnd::Done << 0
                            << QByteArray(R"({"a":[1]})") << ""
                            << "";
    QTest::newRow("list") << "echo '[]'; exit 3" << WorkerEnd::Done << 3 << QByteArray("[]") << ""
                          << "";
    QTest::newRow("no JSON") << "echo done" << WorkerEnd::Done << 0 << none << ""
                             << "";
    QTest::newRow("too much") << "echo '['; head -c 17000000 /dev/zero | tr '\\0' ' '; echo ']'"
                              << WorkerEnd::Done << 0 << none << ""
                              << "";
    QTest::newRow("failure") << "echo 'no answer' >&2; exit 1" << WorkerEnd::Done << 1 << none
                             << "no answer\n"
                             << "";
    QTest::newRow("crash") << "echo '{}'; echo gone >&2; kill -SEGV $$" << WorkerEnd::Crashed << -1
                           << QByteArray("{}") << "gone\n"
                           << "the worker crashed (signal 11)";
    QTest::newRow("waits for input")
        << "cat; echo '{}'" << WorkerEnd::Done << 0 << QByteArray("{}") << ""
        << "";
}

void TestWorkerPool::readsTheResult()
{
    QFETCH(QString, script);
    Run run(1);
    run.await({shell(QStringLiteral("hall"), script)});
    const WorkerResult result = run.results.value(QStringLiteral("hall"));
    QTEST(result.end, "end");
    QTEST(result.exitCode, "exitCode");
    QTEST(result.errors, "errors");
    QTEST(result.output.toJson(QJsonDocument::Compact), "output");
    QTEST(result.reason, "reason");
    QVERIFY(result.milliseconds >= 0);
}

void TestWorkerPool::endsAWorkerAtItsLimit_data()
{
    QTest::addColumn<QString>("script");
    QTest::newRow("hangs") << "exec sleep 1000";
    QTest::newRow("does not want to end") << "trap '' TERM; while :; do sleep 0.1; done";
}

void TestWorkerPool::endsAWorkerAtItsLimit()
{
    QFETCH(QString, script);
    Run run(2, 1500);
    run.pool.setEndingTime(100);
    run.await({shell(QStringLiteral("hall"), script)});
    const WorkerResult result = run.results.value(QStringLiteral("hall"));
    QCOMPARE(result.end, WorkerEnd::TimedOut);
    QCOMPARE(result.exitCode, -1);
    QCOMPARE(result.reason, QStringLiteral("not finished within 1.5 s"));
}

void TestWorkerPool::keepsAFailureToItsUnit()
{
    Run run(3);
    run.await({{QStringLiteral("missing"), QStringLiteral("/nowhere/at/all"), {}},
        shell(QStringLiteral("crash"), QStringLiteral("kill -KILL $$")),
        shell(QStringLiteral("good"), QStringLiteral("echo {}"))});
    const WorkerResult missing = run.results.value(QStringLiteral("missing"));
    QCOMPARE(missing.end, WorkerEnd::CannotStart);
    QVERIFY2(missing.reason.startsWith(QStringLiteral("cannot start /nowhere/at/all: ")),
        qPrintable(missing.reason));
    QCOMPARE(run.results.value(QStringLiteral("crash")).reason,
        QStringLiteral("the worker crashed (signal 9)"));
    QVERIFY(run.results.value(QStringLiteral("good")).isSuccess());
}

void TestWorkerPool::reportsLines()
{
    Run run(1);
    run.await({shell(QStringLiteral("hall"),
        QStringLiteral("printf 'one\\ntw' >&2; printf 'o\\n\\nthree\\nfo' >&2"))});
    QCOMPARE(run.lines,
        (QStringList{QStringLiteral("hall: one"), QStringLiteral("hall: two"),
            QStringLiteral("hall: "), QStringLiteral("hall: three")}));
    QCOMPARE(
        run.results.value(QStringLiteral("hall")).errors, QStringLiteral("one\ntwo\n\nthree\nfo"));
}

void TestWorkerPool::keepsTheLastErrors()
{
    Run run(1);
    run.await({shell(QStringLiteral("hall"),
        QStringLiteral("head -c 1000000 /dev/zero >&2; echo the end >&2"))});
    const QString errors = run.results.value(QStringLiteral("hall")).errors;
    QCOMPARE(errors.size(), WorkerPool::maximalErrors);
    QVERIFY(errors.endsWith(QStringLiteral("the end\n")));
}

void TestWorkerPool::startsNoMore()
{
    const QTemporaryDir folder;
    QFile signal(folder.filePath(QStringLiteral("signal")));
    Run run(2);
    connect(&run.pool, &WorkerPool::progressed, &run.pool, [&] {
        if (run.lines.size() < 2)
            return;
        run.pool.stopStarting();
        QVERIFY(signal.open(QIODevice::WriteOnly));
    });
    run.await(shells(4,
        QStringLiteral("echo at work >&2; until test -e %1; do sleep 0.01; done; echo {}")
            .arg(signal.fileName())));
    QCOMPARE(run.started, (QStringList{QStringLiteral("1"), QStringLiteral("2")}));
    QCOMPARE(run.pool.waitingCount(), 0);
    for (const WorkerResult& result : qAsConst(run.results)) {
        const bool isStarted = run.started.contains(result.name);
        QCOMPARE(result.isSuccess(), isStarted);
        QCOMPARE(result.end, isStarted ? WorkerEnd::Done : WorkerEnd::NotBegun);
        QCOMPARE(result.reason, isStarted ? QString() : QStringLiteral("not begun"));
    }
}

void TestWorkerPool::endsAll()
{
    Run run(2);
    connect(&run.pool, &WorkerPool::progressed, &run.pool, [&run] {
        if (run.lines.size() == 2)
            run.pool.endAll();
    });
    run.await(shells(3,
        QStringLiteral("trap 'echo half written >&2; exit 1' TERM; echo at work >&2; while :; do "
                       "sleep 0.01; done")));
    for (const QString& name : {QStringLiteral("1"), QStringLiteral("2")}) {
        const WorkerResult result = run.results.value(name);
        QCOMPARE(result.end, WorkerEnd::Stopped);
        QCOMPARE(result.exitCode, -1);
        QCOMPARE(result.reason, QStringLiteral("ended by the user"));
        QCOMPARE(result.errors, QStringLiteral("at work\nhalf written\n"));
    }
    QCOMPARE(run.results.value(QStringLiteral("3")).end, WorkerEnd::NotBegun);
}

void TestWorkerPool::takesOneEndOnly()
{
    Run run(1);
    run.await(shells(2, QStringLiteral("echo {}")));
    run.pool.stopStarting();
    run.pool.endAll();
    run.pool.start(shells(2, QStringLiteral("echo {}")));
    QCoreApplication::processEvents();
    QCOMPARE(run.ends, 1);
    QCOMPARE(run.finishedNames.size(), 2);
}

/** An interrupt typed at the terminal goes to the group of processes there. */
void TestWorkerPool::runsApartFromTheTerminal()
{
    Run run(1);
    run.await({shell(
        QStringLiteral("hall"), QStringLiteral("set -- $(cat /proc/$$/stat); echo \"[$$, $5]\""))});
    const QJsonArray ids = run.results.value(QStringLiteral("hall")).output.array();
    QCOMPARE(ids.size(), 2);
    QVERIFY(ids.at(0).toInt() > 0);
    QCOMPARE(ids.at(0), ids.at(1));
}

void TestWorkerPool::killsWithTheObject()
{
    qint64 process = 0;
    {
        WorkerPool pool(1, noLimit);
        connect(&pool, &WorkerPool::progressed, &pool,
            [&process](const QString&, const QString& line) { process = line.toLongLong(); });
        pool.start({shell(QStringLiteral("hall"), QStringLiteral("echo $$ >&2; exec sleep 1000"))});
        QTRY_VERIFY_WITH_TIMEOUT(process != 0, 60000);
    }
    QVERIFY(!QFile::exists(QStringLiteral("/proc/%1").arg(process)));
}

QTEST_GUILESS_MAIN(TestWorkerPool)
#include "tst_workerpool.moc"
