// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "table.h"

#include <QtTest/QtTest>

namespace {

QStringList linesOf(const Page& page)
{
    QStringList lines;
    for (const Line& line : page)
        lines.append(line.text);
    return lines;
}

} // namespace

class TestTable : public QObject {
    Q_OBJECT

private slots:
    void measuresTexts_data();
    void measuresTexts();
    void wrapsTexts_data();
    void wrapsTexts();
    void alignsColumns();
    void standsWithoutHeadings();
    void letsNoControlCharacterThrough();
    void takesRowsOfDifferentLengths();
    void fitsIntoAWidth_data();
    void fitsIntoAWidth();
    void goesOnInTheNextLine();
};

void TestTable::measuresTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("latin") << QStringLiteral("abc") << 3;
    QTest::newRow("accented") << QStringLiteral("é°C") << 3;
    QTest::newRow("chinese") << QStringLiteral("事件") << 4;
    QTest::newRow("full-width punctuation") << QStringLiteral("！") << 2;
    QTest::newRow("mixed") << QStringLiteral("IO A-1 输入") << 11;
    QTest::newRow("kana") << QStringLiteral("カナ") << 4;
    QTest::newRow("hangul") << QStringLiteral("한") << 2;
    QTest::newRow("combining") << QString(QStringLiteral("e") + QChar(0x301)) << 1;
    QTest::newRow("beyond 16 bits") << QStringLiteral("𠀀😀") << 4;
}

void TestTable::measuresTexts()
{
    QFETCH(QString, text);
    QTEST(displayWidth(text), "width");
}

void TestTable::wrapsTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::addColumn<QStringList>("lines");
    const auto row = [](const char* name, const char* text, int width, const char* lines) {
        QTest::newRow(name) << QString::fromUtf8(text) << width
                            << QString::fromUtf8(lines).split(QLatin1Char('|'));
    };
    row("empty", "", 4, "");
    row("fits", "abcd", 4, "abcd");
    row("at a blank", "abc def", 4, "abc|def");
    row("at the blank after the last column", "abcd ef", 4, "abcd|ef");
    row("without a blank", "abcdefghi", 4, "abcd|efgh|i");
    row("at the last blank", "a b c d", 4, "a b|c d");
    row("wide characters", "打开投影机", 5, "打开|投影|机");
    row("no half of a pair", "😀😀😀", 5, "😀😀|😀");
}

void TestTable::wrapsTexts()
{
    QFETCH(QString, text);
    QFETCH(int, width);
    QTEST(wrapText(text, width), "lines");
}

void TestTable::alignsColumns()
{
    Table table({QStringLiteral("Name"), QStringLiteral("Id")});
    table.addRow({QStringLiteral("事件名称01"), QStringLiteral("1")});
    table.addRow({QStringLiteral("on"), QStringLiteral("12")});
    const Page page = table.toPage();
    QCOMPARE(linesOf(page),
        QStringList({QStringLiteral("Name        Id"), QStringLiteral("事件名称01  1"),
            QStringLiteral("on          12")}));
    QCOMPARE(page.at(0).style, Style::Heading);
    QCOMPARE(page.at(1).style, Style::Plain);
}

void TestTable::standsWithoutHeadings()
{
    Table table;
    QVERIFY(table.isEmpty());
    QCOMPARE(linesOf(table.toPage()), QStringList());
    table.addRow({QStringLiteral("a"), QString()});
    QVERIFY(!table.isEmpty());
    QCOMPARE(linesOf(table.toPage()), QStringList{QStringLiteral("a")});
}

void TestTable::letsNoControlCharacterThrough()
{
    Table table;
    table.addRow({QStringLiteral("a\nb\x1b[2Jc\td")});
    QCOMPARE(linesOf(table.toPage()), QStringList{QStringLiteral("a\\nb\\u001b[2Jc\\td")});
}

void TestTable::takesRowsOfDifferentLengths()
{
    Table table({QStringLiteral("A")});
    table.addRow({QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")});
    table.addRow({});
    QCOMPARE(linesOf(table.toPage()),
        QStringList({QStringLiteral("A"), QStringLiteral("1  2  3"), QString()}));
}

void TestTable::fitsIntoAWidth_data()
{
    QTest::addColumn<int>("width");
    for (const int width : {28, 30, 40, 60, 79, 80, 200})
        QTest::newRow(QByteArray::number(width).constData()) << width;
}

/** Nothing is lost, and nothing sticks out. */
void TestTable::fitsIntoAWidth()
{
    QFETCH(int, width);
    Table table({QStringLiteral("Id"), QStringLiteral("Name"), QStringLiteral("Description")});
    table.addRow({QStringLiteral("1"), QStringLiteral("打开投影机打开投影机"),
        QStringLiteral("A long text of many words that goes on and on and on")});
    const QStringList lines = linesOf(table.toPage(width));
    int characters = 0;
    for (const QString& line : lines) {
        QVERIFY2(displayWidth(line) <= width, qPrintable(line));
        characters += QString(line).remove(QLatin1Char(' ')).size();
    }
    QCOMPARE(characters,
        QString(QStringLiteral("IdNameDescription1打开投影机打开投影机"
                               "Alongtextofmanywordsthatgoesonandonandon"))
            .size());
}

void TestTable::goesOnInTheNextLine()
{
    Table table({QStringLiteral("Id"), QStringLiteral("Text")});
    table.addRow({QStringLiteral("1"), QStringLiteral("one two three four")});
    table.addRow({QStringLiteral("2"), QStringLiteral("five")});
    QCOMPARE(linesOf(table.toPage(14)),
        QStringList({QStringLiteral("Id  Text"), QStringLiteral("1   one two"),
            QStringLiteral("    three four"), QStringLiteral("2   five")}));
}

QTEST_APPLESS_MAIN(TestTable)
#include "tst_table.moc"
