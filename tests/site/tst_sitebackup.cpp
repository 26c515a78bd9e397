// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "simulatedsite.h"

#include <QtCore/QFileInfo>
#include <QtTest/QtTest>

/** backup, with its history in git. */
class TestSiteBackup : public QObject {
    Q_OBJECT

private slots:
    void init();
    void savesOnlyWhatChanged();
    void commitsWhatChanged();
    void refusesTheFolder_data();
    void refusesTheFolder();
    void commitsWhatWasSavedBesideAFailure();

private:
    static QString git(SimulatedSite& site, const QString& words)
    {
        return site.tool.runShell(QStringLiteral("sh"), QStringLiteral("cd b && git ") + words);
    }
    static void makeRepository(SimulatedSite& site)
    {
        site.tool.runShell(QStringLiteral("sh"), QStringLiteral("git init -q b"));
    }
};

void TestSiteBackup::init()
{
    for (const char* role : {"AUTHOR", "COMMITTER"}) {
        qputenv(QByteArray("GIT_") + role + "_NAME", "Technician");
        qputenv(QByteArray("GIT_") + role + "_EMAIL", "technician@example.com");
    }
    qputenv("GIT_CONFIG_GLOBAL", "/dev/null");
}

void TestSiteBackup::savesOnlyWhatChanged()
{
    SimulatedSite site(2);
    ToolResult result = site.run("backup|DIR/b/c|--quiet");
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.output, QStringLiteral("Outcome  Units  Names\nsaved    2      u-1, u-2\n"));
    QCOMPARE(site.control("diff|DIR/b/c/u-2.yaml|@2").exitCode, 0);

    QCOMPARE(site.control("set|--unit|@2|events[8].name=X|--yes").exitCode, 0);
    // How a file is written does not matter, only what it says.
    const QString first = site.tool.path(QStringLiteral("b/c/u-1.yaml"));
    const QByteArray commented = "# Mine.\n" + ControlTool::contentsOf(first);
    site.tool.write(QStringLiteral("b/c/u-1.yaml"), commented);
    result = site.run("backup|DIR/b/c|--quiet");
    QCOMPARE(result.output,
        QStringLiteral("Outcome    Units  Names\nsaved      1      u-2\n"
                       "unchanged  1      u-1\n"));
    QCOMPARE(ControlTool::contentsOf(first), commented);
    QCOMPARE(result.exitCode, 0);
}

void TestSiteBackup::commitsWhatChanged()
{
    SimulatedSite site(3);
    makeRepository(site);
    ToolResult result = site.run("backup|DIR/b|--commit");
    QVERIFY2(
        result.output.startsWith(QStringLiteral("Committed: Back up 3 units: u-1, u-2, u-3\n")),
        qPrintable(result.output + result.errors));
    QCOMPARE(git(site, QStringLiteral("status --porcelain")), QString());
    result = site.run("backup|DIR/b|--commit");
    QVERIFY2(
        result.output.startsWith(QStringLiteral("Nothing has changed since the last commit.\n")),
        qPrintable(result.output));
    QCOMPARE(site.control("set|--unit|@2|events[8].name=X|--yes").exitCode, 0);
    result = site.run("backup|DIR/b|--commit|--json");
    QVERIFY2(result.output.contains(QStringLiteral("\"commit\": \"Back up u-2\"")),
        qPrintable(result.output));
    QCOMPARE(git(site, QStringLiteral("log --format=%s")),
        QStringLiteral("Back up u-2\nBack up 3 units: u-1, u-2, u-3\n"));
    QCOMPARE(git(site, QStringLiteral("show --format= --name-only")), QStringLiteral("u-2.yaml\n"));
}

void TestSiteBackup::refusesTheFolder_data()
{
    QTest::addColumn<QString>("preparation");
    QTest::addColumn<QString>("error");
    QTest::newRow("missing")
        << QString()
        << QStringLiteral("DIR/b: there is no such folder; \"git init DIR/b\" makes it\n");
    QTest::newRow("no repository")
        << QStringLiteral("mkdir b")
        << QStringLiteral(
               "DIR/b: the folder is in no git repository; \"git init DIR/b\" makes one\n");
    QTest::newRow("dirty")
        << QStringLiteral("git init -q b; touch b/x")
        << QStringLiteral("DIR/b: the folder has changes that are not committed; commit them or "
                          "take them back:\n?? x\n");
}

/** Before any unit is asked. */
void TestSiteBackup::refusesTheFolder()
{
    QFETCH(QString, preparation);
    SimulatedSite site(1);
    site.tool.runShell(QStringLiteral("sh"), preparation);
    site.switchOff();
    const ToolResult result = site.run("backup|DIR/b|--commit");
    QTEST(site.masked(result.errors), "error");
    QCOMPARE(result.exitCode, 1);
}

void TestSiteBackup::commitsWhatWasSavedBesideAFailure()
{
    SimulatedSite site(2);
    makeRepository(site);
    site.writeInventory(site.inventory().replace("serial: 310000002", "serial: 7"));
    const ToolResult result = site.run("backup|DIR/b|--commit|--quiet");
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(git(site, QStringLiteral("log --format=%s")), QStringLiteral("Back up u-1\n"));
}

QTEST_GUILESS_MAIN(TestSiteBackup)
#include "tst_sitebackup.moc"
