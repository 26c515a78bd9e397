// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "simulatedsite.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtTest/QtTest>

/** add, remove, list and check. */
class TestSiteInventory : public QObject {
    Q_OBJECT

private slots:
    void addsToAnEmptyInventory();
    void asksAUnitWhoItIs();
    void refusesToAdd_data();
    void refusesToAdd();
    void removes();
    void removesNothingUnasked_data();
    void removesNothingUnasked();
    void lists_data();
    void lists();
    void listsAsJson();
    void refusesUsage_data();
    void refusesUsage();
    void checksDocuments();
    void checksAgainstTheInventory_data();
    void checksAgainstTheInventory();
};

void TestSiteInventory::addsToAnEmptyInventory()
{
    SimulatedSite site(1);
    QFile::remove(site.tool.path(QStringLiteral("site.yaml")));
    const ToolResult result = site.run("add|hall|192.168.1.21|--tag|a,b|--serial|7|--model|0x7209"
                                       "|--document|units/hall.yaml");
    QCOMPARE(result.errors, QString());
    const QByteArray expected = "units:\n"
                                "  - name: hall\n"
                                "    address: tcp://192.168.1.21:3801\n"
                                "    serial: 7\n"
                                "    model: 0x7209\n"
                                "    tags: [a, b]\n"
                                "    document: units/hall.yaml\n";
    QCOMPARE(site.inventory(), expected);
    QCOMPARE(result.output.section(QLatin1Char('\n'), 0, 1),
        QStringLiteral("+ units:\n+   - name: hall"));
    QCOMPARE(result.exitCode, 0);
}

void TestSiteInventory::asksAUnitWhoItIs()
{
    SimulatedSite site(1);
    site.writeInventory("units: []  # none yet\n");
    QCOMPARE(site.run("add|hall|@1|--read").errors, QString());
    QCOMPARE(site.inventory(),
        QStringLiteral("units:  # none yet\n  - name: hall\n    address: %1\n"
                       "    serial: 310000001\n    model: 0x7209\n")
            .arg(site.address(1))
            .toUtf8());
}

void TestSiteInventory::refusesToAdd_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("error");
    QTest::newRow("the same name")
        << QStringLiteral("add|u-1|192.168.1.9")
        << QStringLiteral("DIR/site.yaml: inventory:9:11: another unit has the name \"u-1\" too\n");
    QTest::newRow("the same address")
        << QStringLiteral("add|hall|@1")
        << QStringLiteral(
               "DIR/site.yaml: inventory:10:14: another unit has the address \"PORT\" too\n");
    QTest::newRow("no name") << QStringLiteral("add|a/b|192.168.1.9")
                             << QStringLiteral(
                                    "DIR/site.yaml: inventory:9:11: \"a/b\" is not a name");
}

void TestSiteInventory::refusesToAdd()
{
    QFETCH(QString, line);
    QFETCH(QString, error);
    SimulatedSite site(1);
    const QByteArray before = site.inventory();
    const ToolResult result = site.run(line.toUtf8().constData());
    QString errors = site.masked(result.errors);
    errors.replace(site.address(1).mid(6), QStringLiteral("PORT"));
    QVERIFY2(errors.startsWith(error), qPrintable(errors));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(site.inventory(), before);
}

void TestSiteInventory::removes()
{
    SimulatedSite site(3);
    const ToolResult result = site.run("remove|u-2|--yes");
    QCOMPARE(result.errors, QString());
    QCOMPARE(site.masked(result.output),
        QStringLiteral("-   - name: u-2\n-     address: @2\n-     serial: 310000002\n"
                       "-     model: 0x7209\n-     document: u-2.yaml\n"));
    QVERIFY(!site.inventory().contains("u-2"));
    QVERIFY(site.inventory().startsWith("# The site of a test.\n"));
    QCOMPARE(site.run("remove|--tag|odd|--yes").exitCode, 0);
    QCOMPARE(site.inventory(), QByteArray("# The site of a test.\nunits:\n"));
}

void TestSiteInventory::removesNothingUnasked_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("errors");
    QTest::addColumn<int>("exitCode");
    QTest::newRow("no terminal")
        << QStringLiteral("remove|u-1")
        << QStringLiteral("there is no terminal to ask on, and nothing was sent; --yes goes on "
                          "without asking, --dry-run shows what would be done\n")
        << 2;
    QTest::newRow("dry run") << QStringLiteral("remove|u-1|--dry-run") << QString() << 0;
    QTest::newRow("unknown") << QStringLiteral("remove|u-7|--yes")
                             << QStringLiteral("DIR/site.yaml: no unit has the name \"u-7\"\n")
                             << 1;
    QTest::newRow("nothing named")
        << QStringLiteral("remove|--yes")
        << QStringLiteral("a name, or --tag is required\nRun with --help for more information.\n")
        << 2;
}

void TestSiteInventory::removesNothingUnasked()
{
    QFETCH(QString, line);
    SimulatedSite site(1);
    const QByteArray before = site.inventory();
    const ToolResult result = site.run(line.toUtf8().constData());
    QTEST(site.masked(result.errors), "errors");
    QTEST(result.exitCode, "exitCode");
    QCOMPARE(site.inventory(), before);
}

void TestSiteInventory::lists_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("names");
    QTest::newRow("all") << QStringLiteral("list") << QStringLiteral("u-1 u-2 u-3");
    QTest::newRow("tag") << QStringLiteral("list|--tag|odd") << QStringLiteral("u-1 u-3");
    QTest::newRow("tag ahead") << QStringLiteral("--tag|odd|list") << QStringLiteral("u-1 u-3");
    QTest::newRow("pattern") << QStringLiteral("list|--name|*-2") << QStringLiteral("u-2");
    QTest::newRow("names") << QStringLiteral("list|--name|u-1,u-2") << QStringLiteral("u-1 u-2");
    QTest::newRow("without") << QStringLiteral("list|--exclude|u-2") << QStringLiteral("u-1 u-3");
}

void TestSiteInventory::lists()
{
    QFETCH(QString, line);
    SimulatedSite site(3);
    const ToolResult result = site.run(line.toUtf8().constData());
    QCOMPARE(result.errors, QString());
    QStringList names;
    const QStringList rows = result.output.split(QLatin1Char('\n'), Qt::SkipEmptyParts).mid(1);
    for (const QString& row : rows)
        names.append(row.section(QLatin1Char(' '), 0, 0));
    QTEST(names.join(QLatin1Char(' ')), "names");
}

void TestSiteInventory::listsAsJson()
{
    SimulatedSite site(2);
    const QJsonArray units =
        QJsonDocument::fromJson(site.run("list|--json|--name|u-1").output.toUtf8()).array();
    QCOMPARE(units,
        (QJsonArray{QJsonObject{{QStringLiteral("name"), QStringLiteral("u-1")},
            {QStringLiteral("address"), site.address(1)},
            {QStringLiteral("serialNumber"), QStringLiteral("310000001")},
            {QStringLiteral("modelId"), 0x7209},
            {QStringLiteral("tags"), QJsonArray{QStringLiteral("odd")}},
            {QStringLiteral("document"), QStringLiteral("u-1.yaml")}}}));
}

void TestSiteInventory::refusesUsage_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("error");
    QTest::addColumn<int>("exitCode");
    const QString help = QStringLiteral("Run with --help for more information.\n");
    QTest::newRow("no command") << QString() << QStringLiteral("a command is required\n") + help
                                << 2;
    QTest::newRow("misspelt") << QStringLiteral("stauts")
                              << QStringLiteral(
                                     "\"stauts\" is not a command; did you mean \"status\"?\n")
            + help << 2;
    QTest::newRow("unknown tag") << QStringLiteral("status|--tag|x")
                                 << QStringLiteral("DIR/site.yaml: no unit has the tag \"x\"\n")
                                 << 1;
    QTest::newRow("unknown option")
        << QStringLiteral("status|--tga|x")
        << QStringLiteral("\"--tga\" is not expected here; did you mean \"--tag\"?\n") + help << 2;
    QTest::newRow("log")
        << QStringLiteral("status|--log|x")
        << QStringLiteral("--log is for one unit; \"quadrelctl --log FILE read --unit UNIT\" logs "
                          "it\n")
        << 2;
}

void TestSiteInventory::refusesUsage()
{
    QFETCH(QString, line);
    SimulatedSite site(1);
    const ToolResult result = site.run(line.toUtf8().constData());
    QTEST(site.masked(result.errors), "error");
    QTEST(result.exitCode, "exitCode");
}

void TestSiteInventory::checksDocuments()
{
    SimulatedSite site(3);
    site.saveDocuments();
    ToolResult result = site.run("check");
    QCOMPARE(result.errors, QString());
    QCOMPARE(
        result.output, QStringLiteral("Outcome  Units  Names\nvalid    3      u-1, u-2, u-3\n"));
    QCOMPARE(result.exitCode, 0);

    site.tool.write(QStringLiteral("u-2.yaml"), "format: quadrel-unit/1\nevents: 5\n");
    QFile::remove(site.document(3));
    result = site.run("check");
    const QString errors = site.masked(result.errors);
    QVERIFY2(
        errors.startsWith(QStringLiteral("u-2: DIR/u-2.yaml:2:9: events: ")), qPrintable(errors));
    QVERIFY2(errors.endsWith(QStringLiteral(
                 "u-3: DIR/u-3.yaml: the file can't be read: No such file or directory\n")),
        qPrintable(errors));
    QCOMPARE(result.output,
        QStringLiteral("Outcome  Units  Names\nvalid    1      u-1\nfailed   2      u-2, u-3\n"));
    QCOMPARE(result.exitCode, 1);
}

void TestSiteInventory::checksAgainstTheInventory_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QString>("error");
    QTest::newRow("serial number")
        << QByteArray("serial: 310000001") << QByteArray("serial: 7")
        << QStringLiteral("device.serialNumber: the document is of the unit 310000001; u-1 has 7 "
                          "in the inventory\n");
    QTest::newRow("model") << QByteArray("0x7209") << QByteArray("0x1")
                           << QStringLiteral("device.modelId: the document is of model 0x7209; u-1 "
                                             "is of model 0x0001 in the inventory\n");
}

void TestSiteInventory::checksAgainstTheInventory()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(QString, error);
    SimulatedSite site(1);
    site.saveDocuments();
    site.writeInventory(site.inventory().replace(before, after));
    const ToolResult result = site.run("check");
    QVERIFY2(result.errors.endsWith(error), qPrintable(result.errors));
    QCOMPARE(result.exitCode, 1);
}

QTEST_GUILESS_MAIN(TestSiteInventory)
#include "tst_siteinventory.moc"
