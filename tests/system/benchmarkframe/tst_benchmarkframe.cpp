// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtCore/QThread>
#include <QtTest/QtTest>

namespace {

struct Outcome {
    int exitCode;
    QString output;
    QString errors;
};

Outcome run(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral(FIXEDROWS), arguments);
    if (!process.waitForFinished())
        qFatal("%s does not end", FIXEDROWS);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
        QString::fromLocal8Bit(process.readAllStandardOutput()),
        QString::fromLocal8Bit(process.readAllStandardError())};
}

} // namespace

class TestBenchmarkFrame : public QObject {
    Q_OBJECT

private slots:
    void endsAsTheLimitsHold_data();
    void endsAsTheLimitsHold();
    void writesJson_data();
    void writesJson();
    void pairsRatios();
    void placesBothSides();
    void describesTheMachine();
    void refusesWrongUsage_data();
    void refusesWrongUsage();

private:
    QJsonArray jsonOf(const QString& rows);

    QTemporaryDir m_folder;
};

void TestBenchmarkFrame::endsAsTheLimitsHold_data()
{
    QTest::addColumn<QString>("rows");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("verdict");
    const auto row = [](const char* rows, int exitCode, const char* verdict) {
        QTest::newRow(rows) << QString::fromLatin1(rows) << exitCode
                            << QString::fromLatin1(verdict);
    };
    row("^at most, holds$", 0, "ratio <= 2 holds\n");
    row("^at most, missed$", 1, "ratio <= 1.9 MISSED\n");
    row("^at least, holds$", 0, "ratio >= 2 holds\n");
    row("^at least, missed$", 1, "ratio >= 2.1 MISSED\n");
    row("^difference, holds$", 0, "ours <= reference + 10 holds\n");
    row("^difference, missed$", 1, "ours <= reference + 9 MISSED\n");
    row("^ours, holds$", 0, "ours <= 20 holds\n");
    row("^ours, missed$", 1, "ours <= 19 MISSED\n");
    row("^no limit$", 0, "2.00   2.00\n");
    row("holds$", 0, "ours <= 20 holds\n");
    // One is enough, and the rows after it are measured all the same.
    row("^at most|no limit", 1, "2.00   2.00\n");
}

void TestBenchmarkFrame::endsAsTheLimitsHold()
{
    QFETCH(QString, rows);
    QFETCH(int, exitCode);
    QFETCH(QString, verdict);
    const Outcome outcome = run({QStringLiteral("--rows"), rows});
    QCOMPARE(outcome.exitCode, exitCode);
    QVERIFY2(outcome.output.endsWith(verdict), qPrintable(outcome.output));
    QCOMPARE(outcome.errors, QString());
}

QJsonArray TestBenchmarkFrame::jsonOf(const QString& rows)
{
    QFile file(m_folder.filePath(QStringLiteral("rows.json")));
    run({QStringLiteral("--rows"), rows, QStringLiteral("--json"), file.fileName()});
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QJsonDocument::fromJson(file.readAll()).array();
}

void TestBenchmarkFrame::writesJson_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<QByteArray>("json");
    const auto row = [](const char* name, const char* limit) {
        QTest::newRow(name) << QString::fromLatin1(name)
                            << QByteArray("[{\"ours\": 20, \"reference\": 10, \"unit\": \"us\", "
                                          "\"ratio\": 2, \"name\": \"")
                + name + "\", " + limit + "}]";
    };
    row("at most, holds", "\"limit\": \"ratio <= 2\", \"holds\": true");
    row("at most, missed", "\"limit\": \"ratio <= 1.9\", \"holds\": false");
    row("no limit", "\"limit\": null, \"holds\": null");
}

void TestBenchmarkFrame::writesJson()
{
    QFETCH(QString, row);
    QFETCH(QByteArray, json);
    QCOMPARE(
        jsonOf(QLatin1Char('^') + row + QLatin1Char('$')), QJsonDocument::fromJson(json).array());
}

void TestBenchmarkFrame::pairsRatios()
{
    const Outcome outcome = run({QStringLiteral("--rows"), QStringLiteral("paired")});
    const QStringList fields =
        outcome.output.section(QLatin1Char('\n'), -2, -2).simplified().split(QLatin1Char(' '));
    const QString expected = QStringLiteral("paired 3.000 3.000 us 2.00 1.00 2.00");
    QCOMPARE(fields.join(QLatin1Char(' ')), expected);
}

void TestBenchmarkFrame::placesBothSides()
{
    const int usable = QThread::idealThreadCount();
    const QJsonArray rows = jsonOf(QStringLiteral("^(processors|same)"));
    QCOMPARE(rows.size(), usable > 1 ? 4 : 2);
    for (const QJsonValue& row : rows) {
        const QString name = row[QStringLiteral("name")].toString();
        const int ours = row[QStringLiteral("ours")].toInt();
        if (name == QStringLiteral("same processors, two processors"))
            QCOMPARE(ours, 0);
        else
            QCOMPARE(ours, 1);
        QCOMPARE(row[QStringLiteral("reference")].toInt(), 1);
    }
}

void TestBenchmarkFrame::describesTheMachine()
{
    const Outcome outcome = run({QStringLiteral("--rows"), QStringLiteral("no limit")});
    const QString first = outcome.output.section(QLatin1Char('\n'), 0, 0);
    static const QRegularExpression machine(
        QStringLiteral("^%1 usable processors \\(.+\\), load \\d+\\.\\d\\d$")
            .arg(QThread::idealThreadCount()));
    QVERIFY2(machine.match(first).hasMatch(), qPrintable(first));
    if (QThread::idealThreadCount() < 2)
        return;
    const QString second = outcome.output.section(QLatin1Char('\n'), 1, 1);
    static const QRegularExpression wake(QStringLiteral(
        "^waking a thread takes [\\d.]+ us on an idle processor, [\\d.]+ us on the same one$"));
    QVERIFY2(wake.match(second).hasMatch(), qPrintable(second));
}

void TestBenchmarkFrame::refusesWrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");
    const QString rows = QStringLiteral("--rows");
    QTest::newRow("no such row") << QStringList{rows, QStringLiteral("nothing")}
                                 << QStringLiteral("--rows nothing: no row has such a name\n");
    QTest::newRow("no expression") << QStringList{rows, QStringLiteral("(")}
                                   << QStringLiteral("--rows (: missing closing parenthesis\n");
    QTest::newRow("no such folder")
        << QStringList{rows, QStringLiteral("no limit"), QStringLiteral("--json"),
               QStringLiteral("/nowhere/rows.json")}
        << QStringLiteral("/nowhere/rows.json: No such file or directory\n");
}

void TestBenchmarkFrame::refusesWrongUsage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, error);
    const Outcome outcome = run(arguments);
    QCOMPARE(outcome.exitCode, 2);
    QCOMPARE(outcome.errors, error);
}

QTEST_GUILESS_MAIN(TestBenchmarkFrame)
#include "tst_benchmarkframe.moc"
