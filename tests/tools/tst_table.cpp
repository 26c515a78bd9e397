#include "table.h"

#include <QtTest/QtTest>

class TestTable : public QObject {
    Q_OBJECT

private slots:
    void measuresTexts_data();
    void measuresTexts();
    void alignsColumns();
    void standsWithoutHeadings();
    void letsNoControlCharacterThrough();
    void takesRowsOfDifferentLengths();
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

void TestTable::alignsColumns()
{
    Table table({QStringLiteral("Name"), QStringLiteral("Id")});
    table.addRow({QStringLiteral("事件名称01"), QStringLiteral("1")});
    table.addRow({QStringLiteral("on"), QStringLiteral("12")});
    QCOMPARE(table.toText(), QStringLiteral("Name        Id\n事件名称01  1\non          12\n"));
}

void TestTable::standsWithoutHeadings()
{
    Table table;
    QVERIFY(table.isEmpty());
    QCOMPARE(table.toText(), QString());
    table.addRow({QStringLiteral("a"), QString()});
    QVERIFY(!table.isEmpty());
    QCOMPARE(table.toText(), QStringLiteral("a\n"));
}

void TestTable::letsNoControlCharacterThrough()
{
    Table table;
    table.addRow({QStringLiteral("a\nb\x1b[2Jc\td")});
    QCOMPARE(table.toText(), QStringLiteral("a\\nb\\u001b[2Jc\\td\n"));
}

void TestTable::takesRowsOfDifferentLengths()
{
    Table table({QStringLiteral("A")});
    table.addRow({QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")});
    table.addRow({});
    QCOMPARE(table.toText(), QStringLiteral("A\n1  2  3\n\n"));
}

QTEST_APPLESS_MAIN(TestTable)
#include "tst_table.moc"
