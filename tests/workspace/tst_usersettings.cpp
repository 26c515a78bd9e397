// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "usersettings.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

using namespace QuadrelWorkspace;

namespace {

/** A folder with a settings file. */
struct SettingsFolder {
    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("settings.yaml"));

    LoadedSettings load(const QByteArray& text) const
    {
        QFile file(path);
        const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
        file.close();
        return isWritten ? loadSettings(folder.path()) : LoadedSettings{{}, {"not written"}};
    }
};

QString addressText(const std::optional<UnitAddress>& address)
{
    return address ? address->toText() : QStringLiteral("none");
}

} // namespace

class TestUserSettings : public QObject {
    Q_OBJECT

private slots:
    void readsEverything();
    void needsNothing_data();
    void needsNothing();
    void knowsTheWeekdays();
    void findsUnits_data();
    void findsUnits();
    void refuses_data();
    void refuses();
    void reportsAllErrors();
    void keepsTheGoodRest();
    void refusesWhatIsNoFile();
    void staysSmall_data();
    void staysSmall();
};

void TestUserSettings::readsEverything()
{
    const SettingsFolder folder;
    const LoadedSettings loaded = folder.load("# mine\n"
                                              "timeout: 2500\n"
                                              "retries: 0\n"
                                              "search-timeout: 1\n"
                                              "upgrade-timeout: 3600000\n"
                                              "language: zh\n"
                                              "first-weekday: sunday\n"
                                              "units:\n"
                                              "  hall: udp://192.168.1.21\n"
                                              "  \"大厅\": 192.168.1.22:4000\n");
    QCOMPARE(loaded.errors, QStringList());
    QCOMPARE(loaded.settings.timeout.value(), 2500);
    QCOMPARE(loaded.settings.retries.value(), 0);
    QCOMPARE(loaded.settings.searchTimeout.value(), 1);
    QCOMPARE(loaded.settings.upgradeTimeout.value(), 3600000);
    QCOMPARE(loaded.settings.language.value(), QStringLiteral("zh"));
    QCOMPARE(loaded.settings.firstWeekday, Qt::Sunday);
    QCOMPARE(loaded.settings.units.keys(),
        (QStringList{QStringLiteral("hall"), QStringLiteral("大厅")}));
    QCOMPARE(addressText(loaded.settings.addressOf(QStringLiteral("hall"))),
        QStringLiteral("udp://192.168.1.21:3801"));
    QCOMPARE(addressText(loaded.settings.addressOf(QStringLiteral("大厅"))),
        QStringLiteral("tcp://192.168.1.22:4000"));
}

void TestUserSettings::needsNothing_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("comment") << QByteArray("# nothing yet\n");
    QTest::newRow("empty mapping") << QByteArray("{}");
    QTest::newRow("no units") << QByteArray("units:\n");
}

void TestUserSettings::needsNothing()
{
    QFETCH(QByteArray, text);
    const SettingsFolder folder;
    for (const LoadedSettings& loaded : {loadSettings(folder.folder.path()), folder.load(text)}) {
        QCOMPARE(loaded.errors, QStringList());
        QVERIFY(!loaded.settings.timeout);
        QVERIFY(!loaded.settings.retries);
        QVERIFY(!loaded.settings.searchTimeout);
        QVERIFY(!loaded.settings.upgradeTimeout);
        QVERIFY(!loaded.settings.language);
        QCOMPARE(loaded.settings.firstWeekday, Qt::Monday);
        QVERIFY(loaded.settings.units.isEmpty());
    }
}

void TestUserSettings::knowsTheWeekdays()
{
    const SettingsFolder folder;
    const QList<QByteArray> names{
        "monday", "tuesday", "wednesday", "thursday", "friday", "saturday", "sunday"};
    for (int i = 0; i < names.size(); ++i)
        QCOMPARE(
            static_cast<int>(folder.load("first-weekday: " + names.at(i)).settings.firstWeekday),
            i + 1);
}

void TestUserSettings::findsUnits_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("address");
    QTest::newRow("name") << "hall"
                          << "tcp://192.168.1.21:3801";
    QTest::newRow("name that is a host too") << "10.0.0.1"
                                             << "tcp://10.0.0.2:3801";
    QTest::newRow("another case") << "Hall"
                                  << "tcp://hall:3801";
    QTest::newRow("address") << "udp://10.0.0.9:1"
                             << "udp://10.0.0.9:1";
    QTest::newRow("neither") << "a b"
                             << "none";
    QTest::newRow("empty") << ""
                           << "none";
}

void TestUserSettings::findsUnits()
{
    QFETCH(QString, text);
    const SettingsFolder folder;
    const LoadedSettings loaded = folder.load("units: {hall: 192.168.1.21, 10.0.0.1: 10.0.0.2}\n");
    QCOMPARE(loaded.errors, QStringList());
    QTEST(addressText(loaded.settings.addressOf(text)), "address");
}

void TestUserSettings::refuses_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("error");
    const auto number = [](const char* place, const char* key, const char* range) {
        return QStringLiteral("%1: \"%2\" has to be a number from %3")
            .arg(QLatin1String(place), QLatin1String(key), QLatin1String(range));
    };
    const char* times = "1 to 3600000";
    QTest::newRow("timeout of 0") << QByteArray("timeout: 0") << number("1:10", "timeout", times);
    QTest::newRow("negative") << QByteArray("timeout: -1") << number("1:10", "timeout", times);
    QTest::newRow("too long") << QByteArray("timeout: 3600001") << number("1:10", "timeout", times);
    QTest::newRow("with a unit") << QByteArray("timeout: 3 s") << number("1:10", "timeout", times);
    QTest::newRow("fraction") << QByteArray("timeout: 1.5") << number("1:10", "timeout", times);
    QTest::newRow("text") << QByteArray("timeout: \"3\"") << number("1:10", "timeout", times);
    QTest::newRow("no value") << QByteArray("timeout:") << number("1:9", "timeout", times);
    QTest::newRow("a list") << QByteArray("timeout: [1]") << number("1:10", "timeout", times);
    QTest::newRow("beyond 64 bits")
        << QByteArray("retries: 99999999999999999999") << number("1:10", "retries", "0 to 100");
    QTest::newRow("retries") << QByteArray("retries: 101") << number("1:10", "retries", "0 to 100");
    QTest::newRow("search") << QByteArray("search-timeout: 0")
                            << number("1:17", "search-timeout", times);
    QTest::newRow("upgrade") << QByteArray("upgrade-timeout: 0")
                             << number("1:18", "upgrade-timeout", times);
    QTest::newRow("language") << QByteArray("\nlanguage: fr")
                              << "2:11: \"language\" is \"fr\"; allowed are en, zh";
    QTest::newRow("no language") << QByteArray("language: ~")
                                 << "1:11: \"language\" has to be a text";
    QTest::newRow("weekday") << QByteArray("first-weekday: Monday")
                             << "1:16: \"first-weekday\" is \"Monday\"; allowed are monday, "
                                "tuesday, wednesday, thursday, "
                                "friday, saturday, sunday";
    QTest::newRow("unknown key")
        << QByteArray("retries: 1\n  \ntimeot: 1")
        << "3:1: unknown key \"timeot\"; known are timeout, retries, search-timeout, "
           "upgrade-timeout, language, first-weekday, units";
    QTest::newRow("key for a terminal")
        << QByteArray("\"\\e[2J\": 1")
        << "1:1: unknown key \"\\u001b[2J\"; known are timeout, retries, search-timeout, "
           "upgrade-timeout, language, first-weekday, units";
    QTest::newRow("twice") << QByteArray("retries: 1\nretries: 1")
                           << "2:1: \"retries\" is repeated";
    QTest::newRow("units no mapping")
        << QByteArray("units: [hall]") << "1:8: \"units\" has to hold \"key: value\"";
    QTest::newRow("address")
        << QByteArray("units:\n  hall: a b")
        << "2:9: \"a b\" is not an address; one is tcp://HOST:PORT or udp://HOST:PORT";
    QTest::newRow("address is a mapping")
        << QByteArray("units:\n  hall: {a: b}") << "2:9: \"hall\" has to be a text";
    QTest::newRow("name")
        << QByteArray("units:\n  the hall: 10.0.0.1")
        << "2:3: \"the hall\" is not a name; a name has 1 to 64 letters, digits, \"-\", \"_\" and "
           "\".\", and does not begin with \"-\" or \".\"";
    QTest::newRow("option") << QByteArray("units:\n  --yes: 10.0.0.1")
                            << "2:3: \"--yes\" is not a name; a name has 1 to 64 letters, digits, "
                               "\"-\", \"_\" and \".\", and does not begin with \"-\" or \".\"";
    QTest::newRow("unit twice") << QByteArray("units:\n  hall: a\n  hall: b")
                                << "3:3: \"hall\" is repeated";
    QTest::newRow("no mapping") << QByteArray("- timeout")
                                << "1:1: the file has to hold \"key: value\"";
}

void TestUserSettings::refuses()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, error);
    const SettingsFolder folder;
    QCOMPARE(folder.load(text).errors, QStringList{folder.path + QLatin1Char(':') + error});
}

void TestUserSettings::reportsAllErrors()
{
    const SettingsFolder folder;
    QCOMPARE(
        folder.load("timeout: no\nunits:\n  hall: a b\n  bar: c d\nlanguage: fr\n").errors.size(),
        4);
}

void TestUserSettings::keepsTheGoodRest()
{
    const SettingsFolder folder;
    const LoadedSettings loaded = folder.load("timeout: no\nretries: 7\nunits: {a: b, c: d e}\n");
    QCOMPARE(loaded.errors.size(), 2);
    QVERIFY(!loaded.settings.timeout);
    QCOMPARE(loaded.settings.retries.value(), 7);
    QCOMPARE(loaded.settings.units.keys(), QStringList{QStringLiteral("a")});
}

void TestUserSettings::refusesWhatIsNoFile()
{
    const SettingsFolder folder;
    QVERIFY(QDir().mkpath(folder.path));
    QCOMPARE(loadSettings(folder.folder.path()).errors,
        QStringList{folder.path + QStringLiteral(": not a regular file")});
}

void TestUserSettings::staysSmall_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("large") << QByteArray(5 * 1024 * 1024, '#');
    QTest::newRow("deep") << QByteArray(100000, '[');
    QTest::newRow("alias") << QByteArray("timeout: &a 1\nretries: *a\n");
    QTest::newRow("tag") << QByteArray("timeout: !!int 1\n");
    QTest::newRow("broken") << QByteArray("timeout: [1\n");
    QTest::newRow("binary") << QByteArray::fromHex("00ff00ff");
}

void TestUserSettings::staysSmall()
{
    QFETCH(QByteArray, text);
    const SettingsFolder folder;
    const QStringList errors = folder.load(text).errors;
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.first().startsWith(folder.path), qPrintable(errors.first()));
}

QTEST_GUILESS_MAIN(TestUserSettings)
#include "tst_usersettings.moc"
