// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

/**
 * A test with windows. The framework's first warning ends it, but for the one that the offscreen
 * platform has for every window.
 */
class StudioTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
};

/** The main() of such a test. */
#define STUDIO_TEST_MAIN(Test)                                                                     \
    int main(int argc, char* argv[])                                                               \
    {                                                                                              \
        const QApplication application(argc, argv);                                                \
        Test test;                                                                                 \
        return QTest::qExec(&test, argc, argv);                                                    \
    }
