// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "simulatedsite.h"

#include <QtCore/QJsonArray>
#include <QtTest/QtTest>

/** status: who answers, and what is said of those who don't. */
class TestSiteStatus : public QObject {
    Q_OBJECT

private slots:
    void showsEachUnit();
    void findsDifferences();
    void saysIt_data();
    void saysIt();
    void reportsAnotherUnit_data();
    void reportsAnotherUnit();
    void reportsASilentUnit();
    void endsAUnitThatHangs();
    void showsUnitsAtWorkOnATerminal();
};

void TestSiteStatus::showsEachUnit()
{
    SimulatedSite site(3);
    site.saveDocuments();
    QFile::remove(site.document(3));
    const ToolResult result = site.run("status");
    QVERIFY2(
        result.output.contains(QStringLiteral("0x7209  1.0.0.0  ")), qPrintable(result.output));
    QVERIFY2(result.output.contains(QStringLiteral("  missing\n")), qPrintable(result.output));
    QVERIFY2(result.output.endsWith(QStringLiteral("\n\nOutcome  Units  Names\n"
                                                   "answers  1      u-3\n"
                                                   "same     2      u-1, u-2\n")),
        qPrintable(result.output));
    QStringList ends = result.errors.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ends.sort();
    QCOMPARE(ends,
        QStringList({QStringLiteral("u-1: same"), QStringLiteral("u-2: same"),
            QStringLiteral("u-3: answers")}));
    QCOMPARE(result.exitCode, 0);
}

void TestSiteStatus::findsDifferences()
{
    SimulatedSite site(2);
    site.saveDocuments();
    QCOMPARE(site.control("set|--unit|@2|events[8].description=X|--yes").exitCode, 0);
    const ToolResult result = site.run("status");
    QVERIFY2(result.errors.contains(QStringLiteral("u-2: differs, 1 change\n")),
        qPrintable(result.errors));
    QVERIFY2(result.output.endsWith(QStringLiteral("same     1      u-1\ndiffers  1      u-2\n")),
        qPrintable(result.output));
    QCOMPARE(result.exitCode, 3);
}

void TestSiteStatus::saysIt_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("after") << QStringLiteral("status|--json|--jobs|1");
    QTest::newRow("before") << QStringLiteral("--json|--jobs|1|status");
}

void TestSiteStatus::saysIt()
{
    QFETCH(QString, line);
    SimulatedSite site(2);
    const QJsonObject result = site.runJson(line.toUtf8().constData());
    QCOMPARE(result.value(QStringLiteral("outcomes")).toObject(),
        (QJsonObject{{QStringLiteral("answers"), 2}}));
    const QJsonObject unit = result.value(QStringLiteral("units")).toArray().at(1).toObject();
    QCOMPARE(unit.value(QStringLiteral("name")).toString(), QStringLiteral("u-2"));
    QCOMPARE(unit.value(QStringLiteral("address")).toString(), site.address(2));
    QCOMPARE(unit.value(QStringLiteral("outcome")).toString(), QStringLiteral("answers"));
    QCOMPARE(unit.value(QStringLiteral("result"))
                 .toObject()
                 .value(QStringLiteral("device"))
                 .toObject()
                 .value(QStringLiteral("serialNumber"))
                 .toString(),
        QStringLiteral("310000002"));
}

void TestSiteStatus::reportsAnotherUnit_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QString>("reason");
    QTest::newRow("serial number")
        << QByteArray("serial: 310000001") << QByteArray("serial: 7")
        << QStringLiteral("the unit there has the serial number 310000001; 7 was expected");
    QTest::newRow("model") << QByteArray("0x7209") << QByteArray("0x1")
                           << QStringLiteral(
                                  "the unit there is of model 0x7209; 0x0001 was expected");
}

void TestSiteStatus::reportsAnotherUnit()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(QString, reason);
    SimulatedSite site(1);
    site.writeInventory(site.inventory().replace(before, after));
    const ToolResult result = site.run("status|--quiet");
    QCOMPARE(site.masked(result.errors),
        QStringLiteral("u-1: @1: %1\n"
                       "    find out which unit has which address; nothing was changed\n")
            .arg(reason));
    QCOMPARE(result.output, QStringLiteral("Outcome  Units  Names\nfailed   1      u-1\n"));
    QCOMPARE(result.exitCode, 1);
}

/** The fault of one unit is not that of another. */
void TestSiteStatus::reportsASilentUnit()
{
    SimulatedSite site(2, {QStringLiteral("--fault"), QStringLiteral("2:drop%100")});
    const ToolResult result = site.run("status|--timeout|200|--retries|0");
    const QString errors = site.masked(result.errors);
    QVERIFY2(errors.contains(QStringLiteral("u-1: answers\n")), qPrintable(errors));
    QVERIFY2(errors.contains(QStringLiteral("u-2: failed: @2 ")), qPrintable(errors));
    QVERIFY2(result.output.endsWith(QStringLiteral("answers  1      u-1\nfailed   1      u-2\n")),
        qPrintable(result.output));
    QCOMPARE(result.exitCode, 1);
}

void TestSiteStatus::endsAUnitThatHangs()
{
    SimulatedSite site(2, {QStringLiteral("--fault"), QStringLiteral("2:drop%100")});
    const ToolResult result = site.run("status|--limit|2|--timeout|100000");
    QVERIFY2(result.errors.contains(QStringLiteral("u-2: not finished within 2 s\n")),
        qPrintable(result.errors));
    QCOMPARE(result.exitCode, 1);
}

void TestSiteStatus::showsUnitsAtWorkOnATerminal()
{
    if (!TerminalProgram::isPossible())
        QSKIP("this machine makes no terminals");
    SimulatedSite site(2, {QStringLiteral("--fault"), QStringLiteral("2:drop%100")});
    TerminalProgram process;
    site.tool.start(process, site.arguments("status|--timeout|100000"));
    QVERIFY2(process.waitForScreen("u-2  "), process.screen().constData());
    QVERIFY2(process.waitForScreen("1 of 2 units, "), process.screen().constData());
    QVERIFY2(process.waitForScreen(" units/s, "), process.screen().constData());
    process.type("\x03");
    QVERIFY2(process.waitForScreen("interrupted: units at work go on to their end and no other is "
                                   "begun; a second interrupt ends them too"),
        process.screen().constData());
    process.type("\x03");
    QCOMPARE(process.waitForEnd(), 130);
    QVERIFY2(process.screen().contains("ended by the user"), process.screen().constData());
}

QTEST_GUILESS_MAIN(TestSiteStatus)
#include "tst_sitestatus.moc"
