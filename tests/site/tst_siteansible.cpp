// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "simulatedsite.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QStandardPaths>
#include <QtTest/QtTest>

namespace {

const QString play = QStringLiteral("ansible-playbook");

} // namespace

/** The role of examples/ansible, on two hosts' worth of units. */
class TestSiteAnsible : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void drivesTwoSites();
    void reportsAFailedUnit();

private:
    /** The play's output and exit code, with the hosts "one" and "two". */
    static ToolResult run(SimulatedSite& one, SimulatedSite& two);
};

void TestSiteAnsible::initTestCase()
{
    if (QStandardPaths::findExecutable(play).isEmpty())
        QSKIP("ansible-core is not installed");
}

ToolResult TestSiteAnsible::run(SimulatedSite& one, SimulatedSite& two)
{
    const QString hosts = one.tool.write(QStringLiteral("hosts.yml"),
        QStringLiteral("all:\n  vars:\n    ansible_connection: local\n"
                       "    quadrel_program: %1\n"
                       "  hosts:\n    one: {quadrel_folder: %2}\n    two: {quadrel_folder: %3}\n")
            .arg(
                QStringLiteral(QUADRELCTL_PATH), one.tool.path(QString()), two.tool.path(QString()))
            .toUtf8());
    Program process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("ANSIBLE_NOCOLOR"), QStringLiteral("1"));
    environment.insert(QStringLiteral("ANSIBLE_HOME"), one.tool.path(QStringLiteral("ansible")));
    environment.insert(QStringLiteral("ANSIBLE_LOCAL_TEMP"), one.tool.path(QStringLiteral("tmp")));
    environment.insert(QStringLiteral("ANSIBLE_REMOTE_TEMP"), one.tool.path(QStringLiteral("tmp")));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    environment.insert(QStringLiteral("QUADREL_LOCK_DIR"), one.tool.path(QStringLiteral("locks")));
    process.setProcessEnvironment(environment);
    process.setStandardInputFile(QProcess::nullDevice());
    if (!process.launch(
            play, {QStringLiteral("-i"), hosts, QStringLiteral(EXAMPLE_DIR "/site.yml")}))
        qFatal("the play does not start");
    return ControlTool::resultOf(process);
}

void TestSiteAnsible::drivesTwoSites()
{
    SimulatedSite one(2);
    SimulatedSite two(3, {}, 320000001);
    two.saveDocuments();
    const ToolResult result = run(one, two);
    QVERIFY2(result.exitCode == 0, qPrintable(result.output + result.errors));
    QVERIFY2(result.output.contains(QStringLiteral("\"answers\": 2")), qPrintable(result.output));
    QVERIFY2(result.output.contains(QStringLiteral("\"same\": 3")), qPrintable(result.output));
}

void TestSiteAnsible::reportsAFailedUnit()
{
    SimulatedSite one(2);
    SimulatedSite two(1, {}, 320000001);
    one.writeInventory(one.inventory().replace("serial: 310000002", "serial: 7"));
    const ToolResult result = run(one, two);
    QCOMPARE(result.exitCode, 2);
    QVERIFY2(result.output.contains(QStringLiteral("\"msg\": \"u-2\"")), qPrintable(result.output));
}

QTEST_GUILESS_MAIN(TestSiteAnsible)
#include "tst_siteansible.moc"
