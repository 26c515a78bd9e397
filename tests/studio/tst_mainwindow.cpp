// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "mainwindow/mainwindow.h"

#include <QtTest/QtTest>

class TestMainWindow : public QObject {
    Q_OBJECT

private slots:
    void opens();
};

void TestMainWindow::opens()
{
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(window.windowTitle(), QStringLiteral("quadrelstudio"));
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
