#include "textwriter.h"

#include <QtTest/QTest>

class TestTextWriter : public QObject {
    Q_OBJECT

private slots:
    void writesEveryNumber();
    void writesPieces();
    void writesNothing();
};

void TestTextWriter::writesEveryNumber()
{
    for (int number = 0; number < 256; ++number) {
        TextWriter plain(3);
        plain.addDecimal(static_cast<quint8>(number));
        QCOMPARE(plain.text(), QString::number(number));

        TextWriter padded(3);
        padded.addTwoDigits(static_cast<quint8>(number));
        QCOMPARE(padded.text(), QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0')));
    }
}

void TestTextWriter::writesPieces()
{
    // As much as was announced, and less.
    for (const int maximumSize : {6, 100}) {
        TextWriter writer(maximumSize);
        writer.add(QLatin1Char('a'));
        writer.add(QStringLiteral("事件"));
        writer.add(QString());
        writer.addDecimal(7);
        writer.addTwoDigits(8);
        const QString text = writer.text();
        QCOMPARE(text, QStringLiteral("a事件708"));
        QCOMPARE(text.utf16()[text.size()], ushort(0));
    }
}

void TestTextWriter::writesNothing()
{
    for (const int maximumSize : {0, 5}) {
        TextWriter writer(maximumSize);
        QVERIFY(writer.text().isEmpty());
    }
}

QTEST_APPLESS_MAIN(TestTextWriter)
#include "tst_textwriter.moc"
