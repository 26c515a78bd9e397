// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include <QtTest/QtTest>

#include "projectinfo.h"
#include "recordchecks.h"

class TestProjectInfo : public QObject {
    Q_OBJECT

private slots:
    void defaults();
    void properties_data();
    void properties() { RecordChecks::checkPropertyRow(ProjectInfo::staticMetaObject); }
    void changes_data();
    void changes() { RecordChecks::checkChangeRow<ProjectInfo>(); }
    void accessorsReachTheirFields();
    void objectStateStays();
    void textsCompareExactly();
};

void TestProjectInfo::properties_data()
{
    RecordChecks::addPropertyRows(
        ProjectInfo::staticMetaObject, {{"projectname", "QString"}, {"projectremark", "QString"}});
}

void TestProjectInfo::changes_data()
{
    RecordChecks::addChangeRows(
        {{"projectname", QStringLiteral("name")}, {"projectremark", QStringLiteral("remark")}});
}

void TestProjectInfo::defaults()
{
    ProjectInfo project;
    QVERIFY(project.getProjectName().isNull());
    QVERIFY(project.getProjectRemark().isNull());
    QVERIFY(!project.parent());
    QVERIFY(project == ProjectInfo());
}

void TestProjectInfo::accessorsReachTheirFields()
{
    ProjectInfo project;
    project.setProjectName(QStringLiteral("大厅"));
    project.setProjectRemark(QStringLiteral("二楼"));
    QCOMPARE(project.getProjectName(), QStringLiteral("大厅"));
    QCOMPARE(project.getProjectRemark(), QStringLiteral("二楼"));
    QCOMPARE(project.property("projectname").toString(), QStringLiteral("大厅"));
    QCOMPARE(project.property("projectremark").toString(), QStringLiteral("二楼"));

    QVERIFY(project.setProperty("projectname", QStringLiteral("门")));
    QCOMPARE(project.getProjectName(), QStringLiteral("门"));
    QVERIFY(project.setProperty("projectremark", QStringLiteral("窗")));
    QCOMPARE(project.getProjectRemark(), QStringLiteral("窗"));
}

void TestProjectInfo::objectStateStays()
{
    ProjectInfo project;
    project.setProjectName(QStringLiteral("name"));
    project.setProjectRemark(QStringLiteral("remark"));
    RecordChecks::checkObjectStateStays(project);
}

void TestProjectInfo::textsCompareExactly()
{
    ProjectInfo one;
    ProjectInfo other;
    one.setProjectName(QStringLiteral("hall"));
    other.setProjectName(QStringLiteral("Hall"));
    QVERIFY(!(one == other));
    other.setProjectName(QStringLiteral("hall "));
    QVERIFY(!(one == other));
    other.setProjectName(QStringLiteral("hall"));
    QVERIFY(one == other);
    other.setProjectRemark(QStringLiteral("hall"));
    QVERIFY(!(one == other));
}

QTEST_APPLESS_MAIN(TestProjectInfo)
#include "tst_projectinfo.moc"
