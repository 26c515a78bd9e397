// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "descriptiontext.h"

#include "recordblock.h"
#include "replyframe.h"
#include "replyframes.h"

#include <QtCore/QRandomGenerator>
#include <QtCore/QTextCodec>
#include <QtTest/QTest>

namespace {

QString fromUnits(std::initializer_list<int> units)
{
    QString text;
    for (const int unit : units)
        text += QChar(static_cast<ushort>(unit));
    return text;
}

QString read(const QByteArray& description)
{
    const QByteArray bytes = replyFrame(0, description);
    return DescriptionText::read(ReplyFrame(bytes), 0, description.size());
}

/** The long way of a description: hexadecimal text, groups of four digits, the codec and back. */
QString readTheLongWay(const QByteArray& description)
{
    const QString digits = QString::fromLatin1(description.toHex());
    QString text;
    for (int i = 0; i < digits.size(); i += 4)
        text += QChar(digits.mid(i, 4).toUShort(nullptr, 16));
    const QByteArray utf8 = QTextCodec::codecForName("utf-8")->fromUnicode(text);
    return QString::fromUtf8(utf8.constData());
}

} // namespace

class TestDescriptionText : public QObject {
    Q_OBJECT

private slots:
    void passesThroughUtf8_data();
    void passesThroughUtf8();
    void stores_data();
    void stores();
    void reads_data();
    void reads();
    void readsShortFrames();
    void readsLikeTheLongWay();
};

void TestDescriptionText::passesThroughUtf8_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("untilNul");
    QTest::addColumn<QString>("withNuls");

    const auto row = [](const char* name, const QString& text, const QString& untilNul,
                         const QString& withNuls) {
        QTest::newRow(name) << text << untilNul << withNuls;
    };
    const QString chinese = QStringLiteral("打开灯光");
    const QString smile = fromUnits({0xD83D, 0xDE00});
    row("empty", "", "", "");
    row("latin", "AB", "AB", "AB");
    row("chinese", chinese, chinese, chinese);
    row("beyond 16 bits", smile + "a", smile + "a", smile + "a");
    row("NUL", fromUnits({'a', 0, 'b'}), "a", fromUnits({'a', 0, 'b'}));
    row("NUL first", fromUnits({0, 'b'}), "", fromUnits({0, 'b'}));
    row("NUL last", fromUnits({'a', 0}), "a", fromUnits({'a', 0}));
    row("high surrogate", fromUnits({0xD800, 'b'}), "?b", "?b");
    row("low surrogate", fromUnits({'a', 0xDC00, 'b'}), "a?b", "a?b");
    row("high surrogate last", fromUnits({'a', 0xD800}), "a?", "a?");
    row("low surrogate last", fromUnits({'a', 0xDC00}), "a?", "a?");
    row("wrong order", fromUnits({0xDC00, 0xD800}), "??", "??");
    row("byte order mark", fromUnits({0xFEFF, 'a'}), "a", "a");
    row("mark alone", fromUnits({0xFEFF}), "", "");
    row("mark inside", fromUnits({'a', 0xFEFF}), fromUnits({'a', 0xFEFF}),
        fromUnits({'a', 0xFEFF}));
    row("two marks", fromUnits({0xFEFF, 0xFEFF}), fromUnits({0xFEFF}), fromUnits({0xFEFF}));
    row("no characters", fromUnits({0xFFFE, 0xFFFF}), fromUnits({0xFFFE, 0xFFFF}),
        fromUnits({0xFFFE, 0xFFFF}));
}

void TestDescriptionText::passesThroughUtf8()
{
    QFETCH(QString, text);
    QFETCH(QString, untilNul);
    QFETCH(QString, withNuls);
    QCOMPARE(DescriptionText::untilNul(text), untilNul);
    QCOMPARE(DescriptionText::withNuls(text), withNuls);
}

void TestDescriptionText::stores_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("empty") << 3 << QString() << slotOf({});
    QTest::newRow("high byte first") << 2 << "AB" << slotOf(hex("0000 04 0041 0042"));
    QTest::newRow("chinese") << 0 << "灯" << slotOf(hex("02 706f"));
    QTest::newRow("empty at the end") << 512 << QString() << slotOf({}, 513);
    QTest::newRow("past the end") << 511 << "A" << QByteArray(511, '\0') + hex("02 0041");
    QTest::newRow("far after") << 520 << "A" << QByteArray(520, '\0') + hex("02 0041");
}

void TestDescriptionText::stores()
{
    QFETCH(int, offset);
    QFETCH(QString, text);
    QFETCH(QByteArray, bytes);
    RecordBlock block;
    DescriptionText::store(block, offset, text);
    QCOMPARE(block.bytes(), bytes);
}

void TestDescriptionText::reads_data()
{
    QTest::addColumn<QByteArray>("description");
    QTest::addColumn<QString>("text");

    QTest::newRow("empty") << QByteArray() << QString();
    QTest::newRow("high byte first") << hex("0041 0042") << "AB";
    QTest::newRow("chinese") << hex("706f") << "灯";
    QTest::newRow("one odd byte") << hex("41") << "A";
    QTest::newRow("odd last byte") << hex("706f 42") << "灯B";
    QTest::newRow("odd zero") << hex("0041 00") << "A";
    QTest::newRow("ends at NUL") << hex("0041 0000 0042") << "A";
    QTest::newRow("NUL first") << hex("0000 0042") << QString();
    QTest::newRow("pair") << hex("d83d de00") << fromUnits({0xD83D, 0xDE00});
    QTest::newRow("lone high surrogate") << hex("d800 0042") << "?B";
    QTest::newRow("lone low surrogate") << hex("dc00 0042") << "?B";
    QTest::newRow("open surrogate at the end") << hex("0042 d800") << "B";
    QTest::newRow("low surrogate at the end") << hex("0042 dc00") << "B";
    QTest::newRow("open surrogate before NUL") << hex("0042 d800 0000") << "B?";
    QTest::newRow("byte order mark") << hex("feff 0042") << "B";
    QTest::newRow("mark inside") << hex("0042 feff") << fromUnits({'B', 0xFEFF});
}

void TestDescriptionText::reads()
{
    QFETCH(QByteArray, description);
    QFETCH(QString, text);
    QCOMPARE(read(description), text);
    QCOMPARE(readTheLongWay(description), text);
}

void TestDescriptionText::readsShortFrames()
{
    const QByteArray bytes = replyFrame(0, hex("0041 0042")).left(18 + 3);
    QCOMPARE(DescriptionText::read(ReplyFrame(bytes), 0, 64), QStringLiteral("A"));
    QCOMPARE(DescriptionText::read(ReplyFrame(bytes), 500, 64), QString());
    QCOMPARE(DescriptionText::read(ReplyFrame(bytes), 0, -1), QString());
}

void TestDescriptionText::readsLikeTheLongWay()
{
    // Few different bytes, so that surrogates, marks and NULs meet.
    const QByteArray choice = hex("00 00 41 42 d8 dc d8 dc fe ff 70 6f");
    QRandomGenerator random(1);
    for (int run = 0; run < 20000; ++run) {
        QByteArray description(random.bounded(12), '\0');
        for (char& byte : description)
            byte = choice.at(random.bounded(choice.size()));
        QCOMPARE(read(description), readTheLongWay(description));
    }
}

QTEST_APPLESS_MAIN(TestDescriptionText)
#include "tst_descriptiontext.moc"
