#include "decimaltext.h"

#include <QtTest/QTest>

class TestDecimalText : public QObject {
    Q_OBJECT

private slots:
    void readsWhatTheFrameworkReads_data();
    void readsWhatTheFrameworkReads();
    void readsAnyPartAsTheFrameworkDoes();
};

void TestDecimalText::readsWhatTheFrameworkReads_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    const auto row = [](const QString& text, int number) {
        QTest::newRow(qPrintable(QLatin1Char('[') + text + QLatin1Char(']'))) << text << number;
    };
    row("", 0);
    row("0", 0);
    row("12", 12);
    row("007", 7);
    row("999999999", 999999999);
    row("1000000000", 1000000000);
    row("2147483647", 2147483647);
    row("2147483648", 0);
    row("-2147483648", -2147483647 - 1);
    row("00000000012", 12);
    row("-1", -1);
    row("+3", 3);
    row(" 3 ", 3);
    row("3x", 0);
    row("x3", 0);
    row("1.5", 0);
    row("0x10", 0);
    row("٣", 0);
    row("３", 0);
    row(QString("1") + QChar(0), QString(QString("1") + QChar(0)).toInt());
}

void TestDecimalText::readsWhatTheFrameworkReads()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    QCOMPARE(decimalNumber(text), number);
    QCOMPARE(text.toInt(), number);
}

void TestDecimalText::readsAnyPartAsTheFrameworkDoes()
{
    for (const QString& text : {QString(), QStringLiteral("7"), QStringLiteral("1234x")}) {
        for (int start = 0; start < 8; ++start) {
            for (int length = -3; length < 8; ++length)
                QCOMPARE(decimalNumber(text, start, length), text.mid(start, length).toInt());
        }
    }
}

QTEST_APPLESS_MAIN(TestDecimalText)
#include "tst_decimaltext.moc"
