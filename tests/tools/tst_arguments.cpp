// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "arguments.h"

#include <QtTest/QtTest>

/** The order of arguments, and what a misspelt word means. */
class TestArguments : public QObject {
    Q_OBJECT

private slots:
    void putsTheCommandFirst_data();
    void putsTheCommandFirst();
    void findsWhatWasMeant_data();
    void findsWhatWasMeant();
};

void TestArguments::putsTheCommandFirst_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("parsed");
    const auto row = [](const char* typed, const char* parsed) {
        QTest::newRow(typed) << QString::fromLatin1(typed) << QString::fromLatin1(parsed);
    };
    row("", "");
    row("read", "read");
    row("read --json", "read --json");
    row("--json read", "read --json");
    row("--unit x read", "read --unit x");
    row("--unit=x read", "read --unit=x");
    row("--unit x --json read more", "read --unit x --json more");
    row("--unknown read", "read --unknown");
    row("--unit", "--unit");
    row("--help", "--help");
    row("help", "--help");
    row("help read", "read --help");
    row("--json help", "--json --help");
    row("-- read", "-- read");
}

void TestArguments::putsTheCommandFirst()
{
    QFETCH(QString, typed);
    QFETCH(QString, parsed);
    CLI::App app;
    std::string unit;
    bool json = false;
    CLI::App* read = app.add_subcommand("read");
    read->add_option("--unit", unit);
    app.add_flag("--json", json);

    std::vector<QByteArray> words{"program"};
    const QStringList typedWords = typed.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& word : typedWords)
        words.push_back(word.toLatin1());
    std::vector<char*> argv;
    for (QByteArray& word : words)
        argv.push_back(word.data());
    QStringList result;
    for (const std::string& word :
        Arguments::commandFirst(app, static_cast<int>(argv.size()), argv.data()))
        result.append(QString::fromStdString(word));
    QCOMPARE(result.join(QLatin1Char(' ')), parsed);
}

void TestArguments::findsWhatWasMeant_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("meant");
    const auto row = [](const char* name, const char* meant) {
        QTest::newRow(name) << QString::fromLatin1(name) << QString::fromLatin1(meant);
    };
    row("read", "read");
    row("raed", "read");
    row("red", "read");
    row("reads", "read");
    row("rea", "read");
    row("dis", "discover");
    row("x", "");
    row("dance", "");
    row("", "");
}

void TestArguments::findsWhatWasMeant()
{
    QFETCH(QString, name);
    const QStringList names{QStringLiteral("discover"), QStringLiteral("read"),
        QStringLiteral("write"), QStringLiteral("info")};
    QTEST(Arguments::nearest(name, names), "meant");
}

QTEST_APPLESS_MAIN(TestArguments)
#include "tst_arguments.moc"
