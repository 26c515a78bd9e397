// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtTest/QtTest>

/**
 * Lets the test that runs fail on each warning of the framework. Call it in initTestCase().
 *
 * The offscreen platform warns of one thing whenever a window with size hints is shown; that is not
 * the application's.
 */
inline void failOnWarnings()
{
    static QtMessageHandler previous = nullptr;
    const auto handler = [](QtMsgType type, const QMessageLogContext& context,
                             const QString& message) {
        const bool isKnown =
            message == QLatin1String("This plugin does not support propagateSizeHints()");
        if (isKnown)
            return;
        previous(type, context, message);
        if (type == QtWarningMsg || type == QtCriticalMsg)
            QTest::qFail(qPrintable(message), context.file, context.line);
    };
    const QtMessageHandler replaced = qInstallMessageHandler(handler);
    if (!previous)
        previous = replaced;
}
