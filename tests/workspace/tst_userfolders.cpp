// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "userfolders.h"

#include <QtTest/QtTest>

using namespace QuadrelWorkspace;

class TestUserFolders : public QObject {
    Q_OBJECT

private slots:
    void followsTheEnvironment_data();
    void followsTheEnvironment();
};

void TestUserFolders::followsTheEnvironment_data()
{
    QTest::addColumn<QByteArray>("config");
    QTest::addColumn<QByteArray>("state");
    QTest::addColumn<QByteArray>("locks");
    QTest::addColumn<QString>("settingsFolder");
    QTest::addColumn<QString>("backupFolder");
    QTest::addColumn<QString>("lockFolder");
    const QString shared = QFileInfo(QStringLiteral("/run/lock")).isWritable()
        ? QStringLiteral("/run/lock/quadrel")
        : QDir::tempPath() + QStringLiteral("/quadrel");
    QTest::newRow("set") << QByteArray("/a/config") << QByteArray("/a/state")
                         << QByteArray("/a/locks") << "/a/config/quadrelctl"
                         << "/a/state/quadrelctl/backups"
                         << "/a/locks";
    QTest::newRow("with more slashes") << QByteArray("/a//config/") << QByteArray("/a/state/")
                                       << QByteArray("/a/locks/") << "/a/config/quadrelctl"
                                       << "/a/state/quadrelctl/backups"
                                       << "/a/locks";
    QTest::newRow("empty") << QByteArray("") << QByteArray("") << QByteArray("")
                           << "/home/of/anna/.config/quadrelctl"
                           << "/home/of/anna/.local/state/quadrelctl/backups" << shared;
    QTest::newRow("not absolute") << QByteArray("config") << QByteArray("./state")
                                  << QByteArray("locks") << "/home/of/anna/.config/quadrelctl"
                                  << "/home/of/anna/.local/state/quadrelctl/backups" << shared;
}

void TestUserFolders::followsTheEnvironment()
{
    QFETCH(QByteArray, config);
    QFETCH(QByteArray, state);
    QFETCH(QByteArray, locks);
    qputenv("HOME", "/home/of/anna");
    qputenv("XDG_CONFIG_HOME", config);
    qputenv("XDG_STATE_HOME", state);
    qputenv("QUADREL_LOCK_DIR", locks);
    const UserFolders folders = UserFolders::ofUser();
    QTEST(folders.settings, "settingsFolder");
    QTEST(folders.backups, "backupFolder");
    QTEST(folders.locks, "lockFolder");
}

QTEST_GUILESS_MAIN(TestUserFolders)
#include "tst_userfolders.moc"
