// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "replyframes.h"

#include <QtCore/QString>
#include <QtTest/QTest>

#include <functional>

/** One parser, bound to a model of the test's own: data type, reply, data length, error. */
using Parser = std::function<bool(uint, const QByteArray&, int, QString&)>;

/**
 * The three tests that every parser makes of a reply first, in their order. Each frame has all the
 * later faults too, and the error that was there is replaced.
 */
inline void checkFrameFaults(const Parser& parse, uint dataType, int dataLength,
    const QString& otherLengthMessage = QStringLiteral("数据包长度与实际的数据包长度不一致！"))
{
    const QString tooShort = QStringLiteral("数据包长度小于最小数据包长度！");
    const QString otherType = QStringLiteral("请求数据类型与返回数据类型不一致！");
    const QByteArray payload(dataLength, '\0');
    const uint otherHalves[] = {dataType ^ 1U, dataType ^ 0x10000U, dataType ^ 0x80000000U};

    for (int size = 0; size < 20; ++size) {
        for (const char filling : {'\0', '\xFF'}) {
            QString error = QStringLiteral("before");
            QVERIFY(!parse(dataType, QByteArray(size, filling), dataLength, error));
            QCOMPARE(error, tooShort);
        }
        QString error;
        QVERIFY(!parse(dataType, replyFrame(dataType, payload).left(size), dataLength, error));
        QCOMPARE(error, tooShort);
    }
    for (const uint other : otherHalves) {
        QString error = QStringLiteral("before");
        QVERIFY(!parse(dataType, replyFrame(other, payload, dataLength + 1), dataLength, error));
        QCOMPARE(error, otherType);
    }
    for (const int otherLength : {dataLength - 1, dataLength + 1, dataLength ^ 0x100}) {
        QString error = QStringLiteral("before");
        QVERIFY(!parse(dataType, replyFrame(dataType, payload, otherLength), dataLength, error));
        QCOMPARE(error, otherLengthMessage);
    }
    // The field has 16 bits, the length that was asked for has more.
    QString error;
    QVERIFY(!parse(dataType, replyFrame(dataType, payload), dataLength + 0x10000, error));
    QCOMPARE(error, otherLengthMessage);
}
