// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "backgroundwork.h"

#include "patience.h"
#include "threadedunit.h"
#include "unitlock.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

using namespace QuadrelWorkspace;

namespace {

WorkResult readJob(UnitWork& work, const UnitWork::ProgressHandler& progress)
{
    return work.read(progress);
}

struct Site {
    ThreadedUnit unit;
    QTemporaryDir folder;
    WorkOptions options;

    Site()
    {
        options.link.timeout = patience;
        options.folders = {folder.filePath(QStringLiteral("config")),
            folder.filePath(QStringLiteral("backups")), folder.filePath(QStringLiteral("locks"))};
    }

    bool isLocked() const
    {
        UnitLock lock(options.folders.locks);
        QString error;
        return !lock.takeAddress(unit.address(), error);
    }
    void setLatency(int milliseconds)
    {
        unit.at([milliseconds](QuadrelUnit::ControlUnit&, QuadrelUnit::UnitServer& server) {
            server.setLatency(milliseconds);
        });
    }
};

/** What a work reported. */
struct Report {
    QList<WorkResult> results;
    QStringList steps;

    explicit Report(BackgroundWork& work)
    {
        QObject::connect(&work, &BackgroundWork::finished, &work,
            [this](const WorkResult& result) { results.append(result); });
        QObject::connect(&work, &BackgroundWork::progressed, &work,
            [this](const WorkProgress& progress) { steps.append(progress.text()); });
    }
};

} // namespace

class TestBackgroundWork : public QObject {
    Q_OBJECT

private slots:
    void reads();
    void neverBlocks();
    void runsOneAtATime();
    void cancels();
    void worksAgainAfterACancel();
    void cancelsNothing();
    void releases();
    void endsWithTheObject();
};

void TestBackgroundWork::reads()
{
    const Site site;
    BackgroundWork work(site.unit.address(), site.options);
    Report report(work);
    QVERIFY(work.start(readJob));
    QVERIFY(work.isRunning());
    TRY_COMPARE(report.results.size(), 1);
    QVERIFY(!work.isRunning());
    QCOMPARE(report.results.first().failure.text(), QString());
    QCOMPARE(report.results.first().contents.events.value().size(), 32);
    QCOMPARE(report.steps.first(), QStringLiteral("reading device information"));
    QCOMPARE(report.steps.last(), QStringLiteral("reading clock"));
}

/** The caller's events run while the unit takes its time. */
void TestBackgroundWork::neverBlocks()
{
    Site site;
    site.setLatency(20);
    BackgroundWork work(site.unit.address(), site.options);
    Report report(work);
    QVERIFY(work.start(readJob));
    int ticks = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, &timer, [&ticks] { ++ticks; });
    timer.start(1);
    TRY_COMPARE(report.results.size(), 1);
    QVERIFY(ticks > 0);
}

void TestBackgroundWork::runsOneAtATime()
{
    const Site site;
    BackgroundWork work(site.unit.address(), site.options);
    Report report(work);
    QVERIFY(work.start(readJob));
    QVERIFY(!work.start(readJob));
    TRY_COMPARE(report.results.size(), 1);
    QVERIFY(work.start(readJob));
    TRY_COMPARE(report.results.size(), 2);
    QVERIFY(!report.results.last().failure);
}

void TestBackgroundWork::cancels()
{
    Site site;
    site.setLatency(20);
    BackgroundWork work(site.unit.address(), site.options);
    Report report(work);
    connect(&work, &BackgroundWork::progressed, &work, &BackgroundWork::cancel);
    QVERIFY(work.start(readJob));
    TRY_COMPARE(report.results.size(), 1);
    QVERIFY(report.results.first().failure.error == LinkError::Cancelled);
    QVERIFY(report.results.first().failure.step.startsWith(QStringLiteral("reading ")));
    QVERIFY(!site.isLocked());
}

void TestBackgroundWork::worksAgainAfterACancel()
{
    const Site site;
    BackgroundWork work(site.unit.address(), site.options);
    Report report(work);
    for (int round = 0; round < 20; ++round) {
        report.results.clear();
        QVERIFY(work.start(readJob));
        work.cancel();
        TRY_COMPARE(report.results.size(), 1);
        QVERIFY(report.results.first().failure.error == LinkError::Cancelled);
        QVERIFY(work.start(readJob));
        TRY_COMPARE(report.results.size(), 2);
        QCOMPARE(report.results.last().failure.text(), QString());
    }
}

void TestBackgroundWork::cancelsNothing()
{
    const Site site;
    BackgroundWork work(site.unit.address(), site.options);
    Report report(work);
    work.cancel();
    for (int round = 1; round <= 3; ++round) {
        QVERIFY(work.start(readJob));
        TRY_COMPARE(report.results.size(), round);
        QCOMPARE(report.results.last().failure.text(), QString());
        work.cancel();
    }
}

void TestBackgroundWork::releases()
{
    const Site site;
    BackgroundWork work(site.unit.address(), site.options);
    Report report(work);
    QVERIFY(work.start(readJob));
    TRY_COMPARE(report.results.size(), 1);
    QVERIFY(site.isLocked());
    work.release();
    TRY_VERIFY(!site.isLocked());
    QVERIFY(work.start(readJob));
    TRY_COMPARE(report.results.size(), 2);
    QCOMPARE(report.results.last().failure.text(), QString());
}

void TestBackgroundWork::endsWithTheObject()
{
    Site site;
    site.setLatency(20);
    {
        BackgroundWork work(site.unit.address(), site.options);
        QVERIFY(work.start(readJob));
    }
    QVERIFY(!site.isLocked());
}

QTEST_GUILESS_MAIN(TestBackgroundWork)
#include "tst_backgroundwork.moc"
