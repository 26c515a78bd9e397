// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "visibletext.h"

#include <QtTest/QtTest>

class TestVisibleText : public QObject {
    Q_OBJECT

private slots:
    void showsWhatWouldAct_data();
    void showsWhatWouldAct();
    void keepsLineBreaksOfLines();
};

void TestVisibleText::showsWhatWouldAct_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    const auto character = [](const char* name, ushort code, const char* shown) {
        QTest::newRow(name) << QString(QChar(code)) << QString::fromLatin1(shown);
    };
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("plain") << QStringLiteral("投影机 é \\ \"") << QStringLiteral("投影机 é \\ \"");
    QTest::newRow("surrogates") << QStringLiteral("😀") << QStringLiteral("😀");
    QTest::newRow("a window's title")
        << QStringLiteral("\x1b]0;owned\x07") << QStringLiteral("\\u001b]0;owned\\u0007");
    character("null", 0, "\\u0000");
    character("tab", '\t', "\\t");
    character("line feed", '\n', "\\n");
    character("carriage return", '\r', "\\r");
    character("backspace", 8, "\\u0008");
    character("delete", 0x7F, "\\u007f");
    character("first of C1", 0x80, "\\u0080");
    character("CSI of C1", 0x9B, "\\u009b");
    character("last of C1", 0x9F, "\\u009f");
    character("after C1", 0xA1, "\xa1");
    character("Arabic letter mark", 0x61C, "\\u061c");
    character("left-to-right mark", 0x200E, "\\u200e");
    character("right-to-left mark", 0x200F, "\\u200f");
    character("line separator", 0x2028, "\\u2028");
    character("paragraph separator", 0x2029, "\\u2029");
    character("left-to-right embedding", 0x202A, "\\u202a");
    character("right-to-left override", 0x202E, "\\u202e");
    character("left-to-right isolate", 0x2066, "\\u2066");
    character("pop isolate", 0x2069, "\\u2069");
}

void TestVisibleText::showsWhatWouldAct()
{
    QFETCH(QString, text);
    QTEST(visible(text), "shown");
    if (text != QStringLiteral("\n"))
        QTEST(visibleLines(text), "shown");
}

void TestVisibleText::keepsLineBreaksOfLines()
{
    QCOMPARE(visibleLines(QStringLiteral("a\nb\r\n")), QStringLiteral("a\nb\\r\n"));
}

QTEST_APPLESS_MAIN(TestVisibleText)
#include "tst_visibletext.moc"
