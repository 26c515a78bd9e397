// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "eventidlist.h"
#include "eventitem.h"

#include "replyframe.h"
#include "replyframes.h"

#include <QtTest/QTest>

namespace {

const EventIdList::Words words = {QStringLiteral("(ID:"), QStringLiteral(")"), QStringLiteral(";")};

} // namespace

class TestEventIdList : public QObject {
    Q_OBJECT

private slots:
    void findsTheIdOfAnItem_data();
    void findsTheIdOfAnItem();
    void splitsAtEachSemicolon_data();
    void splitsAtEachSemicolon();
    void writesItems_data();
    void writesItems();
    void everyIdSurvives();
};

void TestEventIdList::findsTheIdOfAnItem_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<int>("id");
    const auto row = [](const QString& item, int id) {
        QTest::newRow(qPrintable(QLatin1Char('[') + item + QLatin1Char(']'))) << item << id;
    };
    row("(ID:12)", 12);
    row("事件(ID:3)", 3);
    row("[打开灯光(ID:7)]", 7);
    row("(ID: 8 )", 8);
    row("(ID:-5)", -5);
    row("(ID:300)", 300);
    row("(ID:99999999999)", 0);
    row("(ID:)", 0);
    row("(ID:x)", 0);
    row("(ID:1)(ID:2)", 1);
    row(")(ID:4)", 4);
    row("(id:4)", 0);
    // No ")" after the mark: the whole rest.
    row("ID:7", 7);
    row(")ID:7", 7);
    row("ID:7x", 0);
    row("ID:", 0);
    // No mark: from index 2, up to a ")" at the very end or else to the end.
    row("", 0);
    row("1", 0);
    row("12", 0);
    row("123", 3);
    row("ab34", 34);
    row("ab34)", 34);
    row("ab3)4", 0);
    row(")", 0);
    row("1)", 0);
    row("12)", 0);
    row("ab)", 0);
}

void TestEventIdList::findsTheIdOfAnItem()
{
    QFETCH(QString, item);
    QFETCH(int, id);
    QCOMPARE(EventItem::id(QStringRef(&item)), id);
    // An item inside a longer text is no other item.
    const QString longer = QStringLiteral("(ID:1);") + item + QStringLiteral(";(ID:2)");
    QCOMPARE(EventItem::id(longer.midRef(7, item.size())), id);

    // The plain text arithmetic that callers know.
    const int start = item.indexOf(QStringLiteral("ID:"));
    const int end = item.indexOf(QStringLiteral(")"), start);
    QCOMPARE(item.mid(start + 3, end - start - 3).toInt(), id);
}

void TestEventIdList::splitsAtEachSemicolon_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("ids");
    QTest::newRow("null") << QString() << hex("00");
    QTest::newRow("empty") << QStringLiteral("") << hex("00");
    QTest::newRow("one") << "(ID:3)" << hex("03");
    QTest::newRow("three") << "(ID:3);(ID:7);(ID:12)" << hex("03070c");
    QTest::newRow("empty items") << ";(ID:3);" << hex("000300");
    QTest::newRow("low 8 bits") << "(ID:256);(ID:300);(ID:-1)" << hex("002cff");
    QTest::newRow("other separators") << "(ID:3),(ID:7)" << hex("03");
    QTest::newRow("full-width") << "(ID:3)；(ID:7)" << hex("03");
}

void TestEventIdList::splitsAtEachSemicolon()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, ids);
    QCOMPARE(EventIdList::fromText(text), ids);
}

void TestEventIdList::writesItems_data()
{
    QTest::addColumn<QByteArray>("ids");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << QByteArray() << 0 << QString();
    QTest::newRow("one") << hex("00") << 1 << "(ID:0)";
    QTest::newRow("three") << hex("03070c") << 3 << "(ID:3);(ID:7);(ID:12)";
    QTest::newRow("three digits") << hex("64ff") << 2 << "(ID:100);(ID:255)";
    QTest::newRow("past the end") << hex("09") << 4 << "(ID:9);(ID:0);(ID:0);(ID:0)";
}

void TestEventIdList::writesItems()
{
    QFETCH(QByteArray, ids);
    QFETCH(int, count);
    QFETCH(QString, text);
    const QByteArray bytes = replyFrame(0, ids);
    QCOMPARE(EventIdList::read(ReplyFrame(bytes), 0, count, words), text);
}

void TestEventIdList::everyIdSurvives()
{
    QByteArray ids;
    for (int id = 0; id < 256; ++id)
        ids.append(static_cast<char>(id));
    const QByteArray bytes = replyFrame(0, ids);
    const QString text = EventIdList::read(ReplyFrame(bytes), 0, ids.size(), words);
    QCOMPARE(EventIdList::fromText(text), ids);
}

QTEST_APPLESS_MAIN(TestEventIdList)
#include "tst_eventidlist.moc"
