// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "schemacheck.h"
#include "site.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

using namespace QuadrelWorkspace;

namespace {

/** As a person writes it: comments, blank lines, an order of its own. */
const QByteArray handwritten = "# The town hall\n"
                               "defaults: {timeout: 2500, retries: 1, jobs: 4}   # slow network\n"
                               "\n"
                               "units:\n"
                               "\n"
                               "    # ground floor\n"
                               "    - name: hall-1      # by the door\n"
                               "      address: tcp://192.168.1.21   # fixed\n"
                               "      serial: 310000001\n"
                               "      model: 0x7209\n"
                               "      tags: [hall, ground-floor]\n"
                               "      document: units/hall-1.yaml\n"
                               "    # upstairs\n"
                               "    - {address: \"udp://192.168.1.22:4000\", name: bar}  # spare\n"
                               "    -\n"
                               "      name: 大厅\n"
                               "      address: 192.168.1.23\n"
                               "      tags:\n"
                               "        - hall\n"
                               "    # the end\n";

UnitAddress addressOf(const QString& text)
{
    return UnitAddress::fromText(text).value();
}

SiteUnit unitOf(const QString& name, const QString& address, quint64 serialNumber = 0)
{
    SiteUnit unit;
    unit.name = name;
    unit.address = addressOf(address);
    unit.serialNumber = serialNumber;
    return unit;
}

Site siteOf(const QByteArray& text)
{
    return parseSite(text, QStringLiteral("/site/site.yaml")).site;
}

QStringList namesOf(const QVector<SiteUnit>& units)
{
    QStringList names;
    for (const SiteUnit& unit : units)
        names.append(unit.name);
    return names;
}

QByteArray siteErrors(const QByteArray& text)
{
    return schemaErrors(QStringLiteral("site.schema.json"), QStringLiteral("yaml"), text);
}

} // namespace

class TestSite : public QObject {
    Q_OBJECT

private slots:
    void readsEverything();
    void needsNothing_data();
    void needsNothing();
    void refuses_data();
    void refuses();
    void reportsAllErrors();
    void refusesWhatIsNoFile();
    void takesManyUnits();
    void selects_data();
    void selects();
    void addsUnits_data();
    void addsUnits();
    void writesNamesThatReadBack();
    void removesUnits_data();
    void removesUnits();
    void setsAddresses();
    void refusesToChange_data();
    void refusesToChange();
    void comparesWhatWasFound();
    void appliesWhatWasFound();
};

void TestSite::readsEverything()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("site.yaml")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(handwritten), handwritten.size());
    file.close();

    const LoadedSite loaded = loadSite(file.fileName());
    QCOMPARE(loaded.errors, QStringList());
    QCOMPARE(loaded.text, handwritten);
    QCOMPARE(loaded.site.folder, folder.path());
    QCOMPARE(loaded.site.timeout.value(), 2500);
    QCOMPARE(loaded.site.retries.value(), 1);
    QCOMPARE(loaded.site.jobs, 4);
    SiteUnit hall =
        unitOf(QStringLiteral("hall-1"), QStringLiteral("tcp://192.168.1.21"), 310000001);
    hall.modelId = 0x7209;
    hall.tags = QStringList{QStringLiteral("hall"), QStringLiteral("ground-floor")};
    hall.document = QStringLiteral("units/hall-1.yaml");
    SiteUnit third = unitOf(QStringLiteral("大厅"), QStringLiteral("192.168.1.23"));
    third.tags = QStringList{QStringLiteral("hall")};
    QCOMPARE(loaded.site.units,
        (QVector<SiteUnit>{hall,
            unitOf(QStringLiteral("bar"), QStringLiteral("udp://192.168.1.22:4000")), third}));
    QCOMPARE(loaded.site.documentPath(hall), folder.filePath(QStringLiteral("units/hall-1.yaml")));
    QCOMPARE(loaded.site.documentPath(third), QString());
    QCOMPARE(loaded.site.unit(QStringLiteral("bar")), &loaded.site.units.at(1));
    QVERIFY(!loaded.site.unit(QStringLiteral("Bar")));
    QCOMPARE(siteErrors(handwritten), QByteArray());
}

void TestSite::needsNothing_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("comment") << QByteArray("# nothing yet\n");
    QTest::newRow("no values") << QByteArray("defaults:\nunits:\n");
    QTest::newRow("empty values") << QByteArray("defaults: {}\nunits: []\n");
}

void TestSite::needsNothing()
{
    QFETCH(QByteArray, text);
    const LoadedSite loaded = parseSite(text, QStringLiteral("/site/site.yaml"));
    QCOMPARE(loaded.errors, QStringList());
    QVERIFY(!loaded.site.timeout);
    QVERIFY(!loaded.site.retries);
    QCOMPARE(loaded.site.jobs, 16);
    QVERIFY(loaded.site.units.isEmpty());
    QCOMPARE(siteErrors(text), QByteArray());
}

void TestSite::refuses_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("error");
    const QString noName = QStringLiteral(
        " is not a name; a name has 1 to 64 letters, digits, \"-\", \"_\" and \".\", and does not "
        "begin with \"-\" or \".\"");
    QTest::newRow("key") << QByteArray("unit: []")
                         << "1:1: unknown key \"unit\"; known are defaults, units";
    QTest::newRow("default") << QByteArray("defaults: {job: 1}")
                             << "1:12: unknown key \"job\"; known are timeout, retries, jobs";
    QTest::newRow("jobs") << QByteArray("defaults: {jobs: 0}")
                          << "1:18: \"jobs\" has to be a number from 1 to 1000";
    QTest::newRow("units") << QByteArray("units: {a: b}")
                           << "1:8: \"units\" has to hold a list, \"- value\"";
    QTest::newRow("unit") << QByteArray("units:\n- hall")
                          << "2:3: a unit has to hold \"key: value\"";
    QTest::newRow("no name") << QByteArray("units:\n- address: a")
                             << "2:3: the unit has no \"name\"";
    QTest::newRow("no address") << QByteArray("units:\n- name: a")
                                << "2:3: the unit has no \"address\"";
    QTest::newRow("key of a unit")
        << QByteArray("units:\n- {name: a, address: b, tag: c}")
        << "2:25: unknown key \"tag\"; known are name, address, serial, model, tags, document";
    QTest::newRow("name") << QByteArray("units:\n- {name: a b, address: b}")
                          << "2:10: \"a b\"" + noName;
    QTest::newRow("name as a way out")
        << QByteArray("units:\n- {name: ../a, address: b}") << "2:10: \"../a\"" + noName;
    QTest::newRow("name of a mapping")
        << QByteArray("units:\n- {name: {}, address: b}") << "2:10: \"name\" has to be a text";
    QTest::newRow("address") << QByteArray("units:\n- {name: a, address: \"http://b\"}")
                             << "2:22: \"http://b\" is not an address; one is tcp://HOST:PORT or "
                                "udp://HOST:PORT";
    QTest::newRow("serial") << QByteArray("units:\n- {name: a, address: b, serial: x}")
                            << "2:33: \"serial\" has to be a number from 1 to 18446744073709551615";
    QTest::newRow("model") << QByteArray("units:\n- {name: a, address: b, model: 0x10000}")
                           << "2:32: \"model\" has to be a number from 0 to 65535";
    QTest::newRow("tags") << QByteArray("units:\n- {name: a, address: b, tags: hall}")
                          << "2:31: \"tags\" has to hold a list, \"- value\"";
    QTest::newRow("tag") << QByteArray("units:\n- {name: a, address: b, tags: [a b]}")
                         << "2:32: \"a b\"" + noName;
    QTest::newRow("document") << QByteArray("units:\n- {name: a, address: b, document: []}")
                              << "2:35: \"document\" has to be a text";
    QTest::newRow("same name") << QByteArray(
        "units:\n- {name: a, address: b}\n- {name: a, address: c}")
                               << "3:10: another unit has the name \"a\" too";
    QTest::newRow("same address") << QByteArray(
        "units:\n- {name: a, address: H}\n- {name: b, address: \"udp://h:3801\"}")
                                  << "3:22: another unit has the address \"h:3801\" too";
    QTest::newRow("same serial") << QByteArray(
        "units:\n- {name: a, address: c, serial: 7}\n- {name: b, address: d, serial: 0x7}")
                                 << "3:33: another unit has the serial \"7\" too";
}

void TestSite::refuses()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, error);
    QCOMPARE(parseSite(text, QStringLiteral("site.yaml")).errors,
        QStringList{QStringLiteral("site.yaml:") + error});
}

void TestSite::reportsAllErrors()
{
    const LoadedSite loaded = parseSite("defaults: {jobs: x}\nunits:\n- {name: a}\n- {name: b, "
                                        "address: b}\n- {name: b, address: \"?\"}\n",
        QStringLiteral("site.yaml"));
    QCOMPARE(loaded.errors.size(), 4);
    QCOMPARE(namesOf(loaded.site.units).value(1), QStringLiteral("b"));
}

void TestSite::refusesWhatIsNoFile()
{
    const QTemporaryDir folder;
    QCOMPARE(loadSite(folder.path()).errors,
        QStringList{folder.path() + QStringLiteral(": not a regular file")});
    const QString missing = folder.filePath(QStringLiteral("site.yaml"));
    QCOMPARE(loadSite(missing).errors,
        QStringList{missing + QStringLiteral(": No such file or directory")});
}

/** Many units at once, and one more than there may be. */
void TestSite::takesManyUnits()
{
    QVector<SiteUnit> units;
    for (int i = 0; i < 2000; ++i)
        units.append(unitOf(QStringLiteral("unit-%1").arg(i),
            QStringLiteral("tcp://10.0.%1.%2").arg(i / 200).arg(i % 200 + 1), 310000000 + i));
    const EditedSite edited = addUnits(QByteArray(), units);
    QCOMPARE(edited.error, QString());
    QCOMPARE(siteOf(edited.text).units, units);

    QByteArray many = "units:\n";
    for (int i = 0; i <= Site::mostUnits; ++i)
        many += "- 1\n";
    QCOMPARE(parseSite(many, QStringLiteral("s")).errors,
        QStringList{QStringLiteral("s:2:1: more than 10000 units")});
}

void TestSite::selects_data()
{
    QTest::addColumn<QStringList>("tags");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QStringList>("excluded");
    QTest::addColumn<QString>("selected");
    const auto row = [](const char* title, const char* tags, const char* names,
                         const char* excluded, const char* selected) {
        const auto words = [](const char* text) {
            return QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        };
        QTest::newRow(title) << words(tags) << words(names) << words(excluded)
                             << QString::fromUtf8(selected);
    };
    row("all", "", "", "", "hall-1 hall-2 bar");
    row("tag", "hall", "", "", "hall-1 hall-2");
    row("one of two tags", "upstairs bar", "", "", "hall-2 bar");
    row("name", "", "bar", "", "bar");
    row("names", "", "hall-*", "", "hall-1 hall-2");
    row("one letter", "", "hall-?", "", "hall-1 hall-2");
    row("whole names only", "", "hal", "", "no unit has the name \"hal\"");
    row("tag and name", "hall", "*-2", "", "hall-2");
    row("excluded", "hall", "", "hall-1", "hall-2");
    row("all excluded", "", "", "*", "no unit is selected");
    row("nothing in both", "hall", "bar", "", "no unit is selected");
    row("unknown tag", "hall cellar", "", "", "no unit has the tag \"cellar\"");
    row("unknown exclusion", "", "", "halls", "no unit has the name \"halls\"");
    row("no pattern of another kind", "", ".*", "", "no unit has the name \".*\"");
}

void TestSite::selects()
{
    QFETCH(QStringList, tags);
    QFETCH(QStringList, names);
    QFETCH(QStringList, excluded);
    QFETCH(QString, selected);
    const Site site = siteOf("units:\n"
                             "- {name: hall-1, address: a, tags: [hall]}\n"
                             "- {name: hall-2, address: b, tags: [hall, upstairs]}\n"
                             "- {name: bar, address: c, tags: [bar]}\n");
    QString error;
    const auto units = selectUnits(site, {tags, names, excluded}, error);
    QCOMPARE(units ? namesOf(*units).join(QLatin1Char(' ')) : error, selected);
    QVERIFY(!selectUnits(Site(), {}, error));
    QCOMPARE(error, QStringLiteral("the inventory has no units"));
}

void TestSite::addsUnits_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    const QByteArray item = "- name: new\n    address: tcp://10.0.0.9:3801\n    serial: 9\n";
    QTest::newRow("empty") << QByteArray() << QByteArray("units:\n  " + item);
    QTest::newRow("no list") << QByteArray("defaults: {jobs: 2}")
                             << QByteArray("defaults: {jobs: 2}\nunits:\n  " + item);
    QTest::newRow("no value") << QByteArray("units:  # none\ndefaults: {}\n")
                              << QByteArray("units:  # none\n  " + item + "defaults: {}\n");
    QTest::newRow("empty list") << QByteArray("units: []  # none\n")
                                << QByteArray("units:  # none\n  " + item);
    QTest::newRow("no value, then a blank line")
        << QByteArray("units:  # none\n\ndefaults:\n")
        << QByteArray("units:  # none\n  " + item + "\ndefaults:\n");
    QTest::newRow("null") << QByteArray("units: ~") << QByteArray("units:\n  " + item);
    QTest::newRow("at the margin")
        << QByteArray("units:\n- {name: a, address: b}  # spare\n# end\ndefaults: {}\n")
        << QByteArray("units:\n- {name: a, address: b}  # spare\n"
                      "- name: new\n  address: tcp://10.0.0.9:3801\n  serial: 9\n"
                      "# end\ndefaults: {}\n");
    QTest::newRow("without a last line feed")
        << QByteArray("units:\n  - name: a\n    address: b")
        << QByteArray("units:\n  - name: a\n    address: b\n  " + item);
    QByteArray grown = handwritten;
    grown.replace("    # the end\n",
        "    - name: new\n      address: tcp://10.0.0.9:3801\n      serial: 9\n    # the end\n");
    QTest::newRow("by hand") << handwritten << grown;
}

void TestSite::addsUnits()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    const EditedSite edited =
        addUnits(before, {unitOf(QStringLiteral("new"), QStringLiteral("tcp://10.0.0.9"), 9)});
    QCOMPARE(edited.error, QString());
    QCOMPARE(edited.text, after);
    QCOMPARE(siteErrors(after), QByteArray());
}

/** Names that YAML would take for something else, were they not in quotes. */
void TestSite::writesNamesThatReadBack()
{
    QVector<SiteUnit> units;
    for (const char* name : {"no", "Null", "true", "7", "0x10", "1e3", "大厅", "a.b", "_", "y"}) {
        SiteUnit unit = unitOf(QString::fromUtf8(name),
            QStringLiteral("10.0.0.%1").arg(units.size() + 1), quint64(units.size() + 1));
        unit.modelId = 0x7209;
        unit.tags = QStringList{unit.name, QStringLiteral("hall")};
        unit.document = unit.name + QStringLiteral("/a: b #c.yaml");
        units.append(unit);
    }
    units.first().address = addressOf(QStringLiteral("udp://[::1]:4000"));
    const EditedSite edited = addUnits(QByteArray(), units);
    QCOMPARE(edited.error, QString());
    QCOMPARE(siteOf(edited.text).units, units);
    QCOMPARE(siteErrors(edited.text), QByteArray());
}

void TestSite::removesUnits_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QByteArray>("gone");
    const QByteArray first = "    - name: hall-1      # by the door\n"
                             "      address: tcp://192.168.1.21   # fixed\n"
                             "      serial: 310000001\n"
                             "      model: 0x7209\n"
                             "      tags: [hall, ground-floor]\n"
                             "      document: units/hall-1.yaml\n";
    QTest::newRow("first") << QStringList{QStringLiteral("hall-1")} << first;
    QTest::newRow("in braces") << QStringList{QStringLiteral(
        "bar")} << QByteArray("    - {address: \"udp://192.168.1.22:4000\", name: bar}  # spare\n");
    QTest::newRow("last, after a dash alone")
        << QStringList{QStringLiteral("大厅")}
        << QByteArray("    -\n      name: 大厅\n      address: 192.168.1.23\n      tags:\n        "
                      "- hall\n");
}

void TestSite::removesUnits()
{
    QFETCH(QStringList, names);
    QFETCH(QByteArray, gone);
    QByteArray expected = handwritten;
    QVERIFY(expected.contains(gone));
    expected.replace(gone, QByteArray());
    const EditedSite edited = removeUnits(handwritten, names);
    QCOMPARE(edited.error, QString());
    QCOMPARE(edited.text, expected);

    const EditedSite all = removeUnits(handwritten, namesOf(siteOf(handwritten).units));
    QCOMPARE(all.error, QString());
    QVERIFY(siteOf(all.text).units.isEmpty());
    QVERIFY(all.text.contains("# upstairs"));
}

void TestSite::setsAddresses()
{
    QByteArray expected = handwritten;
    expected.replace("tcp://192.168.1.21 ", "udp://10.0.0.1:1 ");
    expected.replace("192.168.1.23", "tcp://[::1]:3801");
    const EditedSite edited = setAddresses(handwritten,
        {{QStringLiteral("hall-1"), addressOf(QStringLiteral("udp://10.0.0.1:1"))},
            {QStringLiteral("大厅"), addressOf(QStringLiteral("[::1]"))}});
    QCOMPARE(edited.error, QString());
    QCOMPARE(edited.text, expected);
}

void TestSite::refusesToChange_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("added");
    QTest::addColumn<QString>("removed");
    const QString byHand = QStringLiteral(
        "the list of units is not written line by line with \"- \"; change it by hand");
    QTest::newRow("in brackets") << QByteArray("units: [{name: a, address: b}]\n") << byHand
                                 << byHand;
    QTest::newRow("brackets on two lines")
        << QByteArray("units: [\n]\n") << byHand << "no unit has the name \"a\"";
    QTest::newRow("in braces") << QByteArray("{defaults: {jobs: 1}}\n") << byHand
                               << "no unit has the name \"a\"";
    QTest::newRow("with an error")
        << QByteArray("units:\n- {name: a, address: b, serial: x}\n")
        << "inventory:2:33: \"serial\" has to be a number from 1 to 18446744073709551615"
        << "inventory:2:33: \"serial\" has to be a number from 1 to 18446744073709551615";
    QTest::newRow("there already") << QByteArray("units:\n- {name: new, address: b}\n")
                                   << "inventory:3:9: another unit has the name \"new\" too"
                                   << "no unit has the name \"a\"";
}

void TestSite::refusesToChange()
{
    QFETCH(QByteArray, text);
    const EditedSite added =
        addUnits(text, {unitOf(QStringLiteral("new"), QStringLiteral("10.0.0.9"))});
    QTEST(added.error, "added");
    QCOMPARE(added.text, QByteArray());
    const EditedSite removed = removeUnits(text, {QStringLiteral("a")});
    QTEST(removed.error, "removed");
    QCOMPARE(removed.text, QByteArray());
}

void TestSite::comparesWhatWasFound()
{
    const Site site = siteOf("units:\n"
                             "- {name: stays, address: 10.0.0.1, serial: 1}\n"
                             "- {name: moves, address: \"udp://10.0.0.2\", serial: 2}\n"
                             "- {name: vanishes, address: 10.0.0.3, serial: 3}\n"
                             "- {name: replaced, address: 10.0.0.4, serial: 4}\n"
                             "- {name: unnumbered, address: 10.0.0.5}\n"
                             "- {name: unit-9, address: 10.0.0.6, serial: 6}\n");
    const auto found = [](const char* address, quint64 serialNumber) {
        return FoundUnit{addressOf(QString::fromLatin1(address)), serialNumber, 0x7209};
    };
    const SiteChanges changes = compareFound(site,
        {found("10.0.0.1", 1), found("10.0.0.22:4000", 2), found("10.0.0.4", 44),
            found("10.0.0.5", 5), found("10.0.0.6", 6), found("10.0.0.9", 9), found("10.0.0.10", 0),
            found("10.0.0.11", 0)});
    QCOMPARE(namesOf(changes.added),
        (QStringList{
            QStringLiteral("unit-9-2"), QStringLiteral("unit-0"), QStringLiteral("unit-0-2")}));
    QCOMPARE(changes.added.first().address.toText(), QStringLiteral("tcp://10.0.0.9:3801"));
    QCOMPARE(changes.added.first().serialNumber, Q_UINT64_C(9));
    QCOMPARE(changes.added.first().modelId.value(), 0x7209);
    QCOMPARE(changes.moved.size(), 1);
    QCOMPARE(changes.moved.first().name, QStringLiteral("moves"));
    QCOMPARE(changes.moved.first().before.toText(), QStringLiteral("udp://10.0.0.2:3801"));
    QCOMPARE(changes.moved.first().after.toText(), QStringLiteral("udp://10.0.0.22:4000"));
    QCOMPARE(changes.replaced.size(), 1);
    QCOMPARE(changes.replaced.first().name, QStringLiteral("replaced"));
    QCOMPARE(changes.replaced.first().after, Q_UINT64_C(44));
    QCOMPARE(
        changes.vanished, (QStringList{QStringLiteral("vanishes"), QStringLiteral("replaced")}));
}

/** Two units that have swapped their addresses, and a new one: nothing else changes. */
void TestSite::appliesWhatWasFound()
{
    const QByteArray text = "units:\n"
                            "- {name: a, address: 10.0.0.1, serial: 1}  # one\n"
                            "- {name: b, address: 10.0.0.2, serial: 2}\n"
                            "# end\n";
    const SiteChanges changes = compareFound(siteOf(text),
        {{addressOf(QStringLiteral("10.0.0.2")), 1, 0},
            {addressOf(QStringLiteral("10.0.0.1")), 2, 0},
            {addressOf(QStringLiteral("10.0.0.3")), 3, 0x7209}});
    const EditedSite edited = applyChanges(text, changes);
    QCOMPARE(edited.error, QString());
    QCOMPARE(edited.text,
        QByteArray("units:\n"
                   "- {name: a, address: tcp://10.0.0.2:3801, serial: 1}  # one\n"
                   "- {name: b, address: tcp://10.0.0.1:3801, serial: 2}\n"
                   "- name: unit-3\n"
                   "  address: tcp://10.0.0.3:3801\n"
                   "  serial: 3\n"
                   "  model: 0x7209\n"
                   "# end\n"));
    QCOMPARE(applyChanges(text, {}).text, text);
}

QTEST_GUILESS_MAIN(TestSite)
#include "tst_site.moc"
