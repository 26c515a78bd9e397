// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "replyframes.h"

#include <QtCore/QString>
#include <QtTest/QTest>

/** What the parsers of the count byte ahead of a table do alike. */
namespace CountChecks {

inline void addRows()
{
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<int>("expected");
    QTest::newRow("none") << hex("00") << 0;
    QTest::newRow("some") << hex("80") << 128;
    QTest::newRow("most") << hex("ff") << 255;
    QTest::newRow("missing") << QByteArray() << 0;
}

/** `parse` takes data type, reply, data length, count and error. */
template <typename Parse> void checkRow(uint dataType, Parse parse)
{
    QFETCH(QByteArray, payload);
    QFETCH(int, expected);
    int count = -1;
    QString error = QStringLiteral("before");
    QVERIFY(parse(dataType, replyFrame(dataType, payload, 1), 1, count, error));
    QCOMPARE(count, expected);
    QCOMPARE(error, QStringLiteral("before"));
}

} // namespace CountChecks
