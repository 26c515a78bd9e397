#include "textitems.h"

#include <QtTest/QTest>

class TestTextItems : public QObject {
    Q_OBJECT

private slots:
    void walksAsASplitDoes_data();
    void walksAsASplitDoes();
    void givesNothingBehindTheLast();
};

void TestTextItems::walksAsASplitDoes_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"", ";", "a", "a;", ";a", "a;bc;d", ";;", "a;;b", "a,b"})
        QTest::addRow("[%s]", text) << QString::fromLatin1(text);
}

void TestTextItems::walksAsASplitDoes()
{
    QFETCH(QString, text);
    QStringList walked;
    TextItems items(text, QLatin1Char(';'));
    while (items.hasNext())
        walked.append(items.next().toString());
    QCOMPARE(walked, text.split(QLatin1Char(';')));
}

void TestTextItems::givesNothingBehindTheLast()
{
    TextItems items(u"7", QLatin1Char('/'));
    QCOMPARE(items.next(), QStringView(u"7"));
    QVERIFY(items.next().isEmpty());
    QVERIFY(items.next().isEmpty());
}

QTEST_APPLESS_MAIN(TestTextItems)
#include "tst_textitems.moc"
