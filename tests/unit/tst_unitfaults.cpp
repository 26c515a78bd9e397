// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitfaults.h"
#include "unitframereader.h"

#include <QtTest/QtTest>

using namespace QuadrelUnit;

namespace {

UnitFrame someReply()
{
    return UnitFrame::replyTo(UnitFrame::readRequest(255, 0xF0000000, 32), QByteArray(32, '\x11'));
}

std::optional<UnitFrame> readReply(const QByteArray& bytes)
{
    UnitFrameReader reader(UnitFrameReader::Replies);
    reader.feed(bytes);
    return reader.next();
}

UnitDelivery deliverNext(UnitFaults& faults)
{
    const std::optional<UnitFault> fault = faults.next();
    return faults.deliver(someReply(), fault);
}

/** Which of so many replies are faulty. */
QString pattern(UnitFaults faults, int replies)
{
    QString marks;
    for (int i = 0; i < replies; ++i)
        marks += QLatin1Char(deliverNext(faults).fault.isEmpty() ? '.' : 'x');
    return marks;
}

} // namespace

class TestUnitFaults : public QObject {
    Q_OBJECT

private slots:
    void deliversGoodReplies();
    void makesEachFault_data();
    void makesEachFault();
    void corruptsBehindTheHead();
    void strikesTheNthReply();
    void strikesAShare_data();
    void strikesAShare();
    void repeatsItselfByItsSeed();
    void takesPercentAsTheShare();
    void firstRuleWins();
    void losesRequests_data();
    void losesRequests();
    void hangsForGood();
    void forgetsItsRules();
    void takesTexts_data();
    void takesTexts();
    void refusesTexts_data();
    void refusesTexts();
};

void TestUnitFaults::deliversGoodReplies()
{
    UnitFaults faults;
    const UnitDelivery delivery = deliverNext(faults);
    QCOMPARE(delivery.pieces, QList<QByteArray>{someReply().encode()});
    QCOMPARE(delivery.delay, 0);
    QVERIFY(!delivery.closes);
    QVERIFY(delivery.fault.isEmpty());
    QCOMPARE(faults.replies(), quint64(1));
}

void TestUnitFaults::makesEachFault_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QList<QByteArray>>("pieces");
    QTest::addColumn<int>("delay");
    QTest::addColumn<bool>("closes");

    const QByteArray good = someReply().encode();
    UnitFrame shortReply = someReply();
    shortReply.payload.clear();
    UnitFrame address = someReply();
    address.address = 0xF0000001;
    UnitFrame length = someReply();
    length.dataLength = 33;
    UnitFrame label = someReply();
    label.label = 0;

    using Pieces = QList<QByteArray>;
    QTest::newRow("drop") << "drop" << Pieces() << 0 << false;
    QTest::newRow("delay") << "delay" << Pieces{good} << 1000 << false;
    QTest::newRow("delay of its own") << "delay:250" << Pieces{good} << 250 << false;
    QTest::newRow("duplicate") << "duplicate" << Pieces{good, good} << 0 << false;
    QTest::newRow("truncate") << "truncate" << Pieces{good.left(26)} << 0 << false;
    QTest::newRow("short") << "short" << Pieces{shortReply.encode()} << 0 << false;
    QTest::newRow("wrong-address") << "wrong-address" << Pieces{address.encode()} << 0 << false;
    QTest::newRow("wrong-length") << "wrong-length" << Pieces{length.encode()} << 0 << false;
    QTest::newRow("wrong-label") << "wrong-label" << Pieces{label.encode()} << 0 << false;
    QTest::newRow("cut") << "cut" << Pieces{good.left(26)} << 0 << true;
    QTest::newRow("close") << "close" << Pieces() << 0 << true;
    QTest::newRow("lose-request") << "lose-request" << Pieces() << 0 << false;
    QTest::newRow("hang") << "hang" << Pieces() << 0 << false;
}

void TestUnitFaults::makesEachFault()
{
    QFETCH(QString, name);
    QFETCH(QList<QByteArray>, pieces);
    QFETCH(int, delay);
    QFETCH(bool, closes);
    UnitFaults faults;
    QString error;
    QVERIFY2(faults.add(name + QStringLiteral("@1"), &error), qPrintable(error));
    const UnitDelivery delivery = deliverNext(faults);
    QCOMPARE(delivery.pieces, pieces);
    QCOMPARE(delivery.delay, delay);
    QCOMPARE(delivery.closes, closes);
    QCOMPARE(delivery.fault, name.section(QLatin1Char(':'), 0, 0));
}

void TestUnitFaults::corruptsBehindTheHead()
{
    const QByteArray good = someReply().encode();
    UnitFaults faults(3);
    faults.addShare(FaultKind::Corrupt, 1);
    for (int round = 0; round < 200; ++round) {
        const QByteArray bad = deliverNext(faults).pieces.value(0);
        QCOMPARE(bad.size(), good.size());
        QCOMPARE(bad.left(18), good.left(18));
        QVERIFY(bad != good);
        QVERIFY(!readReply(bad));
    }
    QVERIFY(readReply(good));
}

void TestUnitFaults::strikesTheNthReply()
{
    UnitFaults faults;
    faults.addNth(FaultKind::Drop, 1);
    faults.addNth(FaultKind::Cut, 4);
    QCOMPARE(pattern(faults, 6), QStringLiteral("x..x.."));
}

void TestUnitFaults::strikesAShare_data()
{
    QTest::addColumn<double>("share");
    QTest::addColumn<int>("least");
    QTest::addColumn<int>("most");
    QTest::newRow("never") << 0.0 << 0 << 0;
    QTest::newRow("always") << 1.0 << 10000 << 10000;
    QTest::newRow("a quarter") << 0.25 << 2300 << 2700;
    QTest::newRow("one in a hundred") << 0.01 << 60 << 140;
}

void TestUnitFaults::strikesAShare()
{
    QFETCH(double, share);
    QFETCH(int, least);
    QFETCH(int, most);
    UnitFaults faults(12);
    faults.addShare(FaultKind::Drop, share);
    const int struck = pattern(faults, 10000).count(QLatin1Char('x'));
    QVERIFY(struck >= least);
    QVERIFY(struck <= most);
}

void TestUnitFaults::repeatsItselfByItsSeed()
{
    UnitFaults faults(12);
    faults.addShare(FaultKind::Drop, 0.5);
    UnitFaults same(12);
    same.addShare(FaultKind::Drop, 0.5);
    UnitFaults other(13);
    other.addShare(FaultKind::Drop, 0.5);
    QCOMPARE(pattern(faults, 200), pattern(same, 200));
    QVERIFY(pattern(faults, 200) != pattern(other, 200));
    UnitFaults usual;
    usual.addShare(FaultKind::Drop, 0.5);
    UnitFaults zero(0);
    zero.addShare(FaultKind::Drop, 0.5);
    QCOMPARE(pattern(usual, 200), pattern(zero, 200));

    // A rule for one reply does not move the luck of the others.
    UnitFaults more(12);
    more.addNth(FaultKind::Cut, 1);
    more.addShare(FaultKind::Drop, 0.5);
    QCOMPARE(pattern(more, 200).mid(1), pattern(faults, 200).mid(1));
}

void TestUnitFaults::takesPercentAsTheShare()
{
    UnitFaults written(12);
    QString error;
    QVERIFY2(written.add(QStringLiteral("drop%37.5"), &error), qPrintable(error));
    UnitFaults faults(12);
    faults.addShare(FaultKind::Drop, 0.375);
    QCOMPARE(pattern(written, 10000), pattern(faults, 10000));
}

void TestUnitFaults::firstRuleWins()
{
    UnitFaults faults;
    faults.addNth(FaultKind::Short, 1);
    faults.addShare(FaultKind::Drop, 1);
    QCOMPARE(deliverNext(faults).fault, QStringLiteral("short"));
    QCOMPARE(deliverNext(faults).fault, QStringLiteral("drop"));
}

void TestUnitFaults::losesRequests_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("loses");
    const QStringList losing = {QStringLiteral("lose-request"), QStringLiteral("hang")};
    for (const QString& name : UnitFaults::kindNames())
        QTest::newRow(qPrintable(name)) << name << losing.contains(name);
}

void TestUnitFaults::losesRequests()
{
    QFETCH(QString, name);
    QFETCH(bool, loses);
    UnitFaults faults;
    QString error;
    QVERIFY2(faults.add(name + QStringLiteral("@1"), &error), qPrintable(error));
    const std::optional<UnitFault> fault = faults.next();
    QVERIFY(fault);
    QCOMPARE(fault->name(), name);
    QCOMPARE(fault->losesRequest(), loses);
}

void TestUnitFaults::hangsForGood()
{
    UnitFaults faults;
    faults.addNth(FaultKind::Hang, 3);
    faults.addNth(FaultKind::Drop, 1);
    faults.addNth(FaultKind::Close, 5);
    QCOMPARE(pattern(faults, 7), QStringLiteral("x.xxxxx"));
    for (int i = 0; i < 4; ++i)
        faults.next();
    QCOMPARE(faults.next()->name(), QStringLiteral("hang"));
    faults.clear();
    QVERIFY(!faults.next());
}

void TestUnitFaults::forgetsItsRules()
{
    UnitFaults faults;
    faults.addShare(FaultKind::Drop, 1);
    faults.clear();
    QVERIFY(deliverNext(faults).fault.isEmpty());
}

void TestUnitFaults::takesTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("marks");
    QTest::newRow("nth") << "drop@2"
                         << ".x.";
    QTest::newRow("all") << "wrong-label%100"
                         << "xxx";
    QTest::newRow("none") << "cut%0"
                          << "...";
    QTest::newRow("fraction") << "cut%0.000001"
                              << "...";
    QTest::newRow("delayed share") << "delay:5%100"
                                   << "xxx";
}

void TestUnitFaults::takesTexts()
{
    QFETCH(QString, text);
    QFETCH(QString, marks);
    UnitFaults faults;
    QString error;
    QVERIFY2(faults.add(text, &error), qPrintable(error));
    QVERIFY(error.isEmpty());
    QCOMPARE(pattern(faults, 3), marks);
}

void TestUnitFaults::refusesTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");
    for (const char* text : {"", "drop", "drop@", "drop@x", "drop%", "drop%-1", "@1", "dropp@1",
             "Drop@1", "drop@1 ", "drop:@1", "drop@1%2", "delay:x@1", "delay:-1@1"}) {
        QTest::newRow(text) << text << "is not a fault: write KIND@N or KIND%PERCENT";
    }
    QTest::newRow("drop:5@1") << "drop:5@1"
                              << "only a delay takes milliseconds";
    QTest::newRow("drop@0") << "drop@0"
                            << "replies are counted from 1";
    QTest::newRow("drop%101") << "drop%101"
                              << "a share is at most 100 percent";
}

void TestUnitFaults::refusesTexts()
{
    QFETCH(QString, text);
    QFETCH(QString, reason);
    UnitFaults faults;
    QString error;
    QVERIFY(!faults.add(text, &error));
    QVERIFY2(error.contains(reason), qPrintable(error));
    QVERIFY2(error.startsWith(QLatin1Char('"') + text + QLatin1Char('"')), qPrintable(error));
    QVERIFY(deliverNext(faults).fault.isEmpty());
}

QTEST_APPLESS_MAIN(TestUnitFaults)
#include "tst_unitfaults.moc"
