// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "readabletext.h"

#include <QtTest/QtTest>

using namespace QuadrelDocument;

class TestReadableText : public QObject {
    Q_OBJECT

private slots:
    void findsTheLongestText_data();
    void findsTheLongestText();
};

void TestReadableText::findsTheLongestText_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("none") << QByteArray() << QByteArray();
    QTest::newRow("all") << QByteArray("PWR ON") << QByteArray("PWR ON");
    QTest::newRow("with its line end") << QByteArray("\x01VOL 45\r\n") << QByteArray("VOL 45\r\n");
    QTest::newRow("after a head") << QByteArray::fromHex("4c010025100152") + "*POW=ON#"
                                  << QByteArray("R*POW=ON#");
    QTest::newRow("the longer of two") << QByteArray("abc\x01"
                                                     "defg\x02hij")
                                       << QByteArray("defg");
    QTest::newRow("the first of two") << QByteArray("abc\x01xyz") << QByteArray("abc");
    QTest::newRow("too short") << QByteArray("\x01ok\x02") << QByteArray();
    QTest::newRow("just long enough") << QByteArray("\x01yes\x02") << QByteArray("yes");
    QTest::newRow("a line end does not begin it") << QByteArray("\r\nabc") << QByteArray("abc");
    QTest::newRow("bytes above ASCII") << QByteArray("\xe4\xbd\xa0\xe5") << QByteArray();
}

void TestReadableText::findsTheLongestText()
{
    QFETCH(QByteArray, bytes);
    QTEST(longestText(bytes), "text");
}

QTEST_GUILESS_MAIN(TestReadableText)
#include "tst_readabletext.moc"
