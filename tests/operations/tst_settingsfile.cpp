// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "settingsbeside.h"
#include "settingsfile.h"
#include "unpackage.h"

#include <QtTest/QTest>

class TestSettingsFile : public QObject {
    Q_OBJECT

private slots:
    void withoutApplicationIsAtTheRoot();
    void isBesideTheApplication();
    void singletonReadItsSettingsBeforeMain();
};

void TestSettingsFile::withoutApplicationIsAtTheRoot()
{
    QVERIFY(!QCoreApplication::instance());
    QCOMPARE(settingsFilePath(), QStringLiteral("/configWidget.ini"));
}

void TestSettingsFile::isBesideTheApplication()
{
    int argc = 1;
    char name[] = "tst_settingsfile";
    char* argv[] = {name, nullptr};
    const QCoreApplication application(argc, argv);
    QCOMPARE(settingsFilePath(),
        QCoreApplication::applicationDirPath() + QStringLiteral("/configWidget.ini"));
    QVERIFY(settingsFilePath() != QStringLiteral("/configWidget.ini"));
}

/** Linked directly, the library is loaded before there is an application to look beside. */
void TestSettingsFile::singletonReadItsSettingsBeforeMain()
{
    int argc = 1;
    char name[] = "tst_settingsfile";
    char* argv[] = {name, nullptr};
    const QCoreApplication application(argc, argv);
    if (QFile::exists(QStringLiteral("/configWidget.ini")))
        QSKIP("This machine has a settings file at its root.");
    writeSettingsBeside("[Communication]\ntimeout=-1\n");
    QString error;
    QVERIFY(!UnPackage::Instance()->waitResponsed(QStringLiteral("步骤"), error));
    QCOMPARE(error, QStringLiteral("步骤超时！"));
}

QTEST_APPLESS_MAIN(TestSettingsFile)
#include "tst_settingsfile.moc"
