// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "report.h"

#include "machine.h"

#include <benchmark/benchmark.h>

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QRegularExpression>

#include <cstdio>

namespace {

enum ExitCode { LimitsHold = 0, LimitMissed = 1, NotDone = 2 };

void printHead()
{
    std::printf("%s\n%-66s %10s %10s  %-6s %6s  %-13s  %s\n", describeMachine().c_str(), "name",
        "ours", "reference", "unit", "ratio", "quartiles", "limit");
}

void printRow(const Row& row, const Result& result)
{
    std::printf("%-66s %10.3f %10.3f  %-6s %6.2f  %6.2f %6.2f", row.name.c_str(), result.ours,
        result.reference, row.unit.c_str(), result.ratio, result.lowerQuartile,
        result.upperQuartile);
    if (row.limit.kind != Limit::None)
        std::printf(
            "  %s %s", row.limit.text().c_str(), row.limit.holds(result) ? "holds" : "MISSED");
    std::printf("\n");
    std::fflush(stdout);
}

/** A row without a limit has null for it, and for whether it holds. */
QJsonObject toJson(const Row& row, const Result& result)
{
    const bool isLimited = row.limit.kind != Limit::None;
    return {{QStringLiteral("name"), QString::fromStdString(row.name)},
        {QStringLiteral("ours"), result.ours}, {QStringLiteral("reference"), result.reference},
        {QStringLiteral("unit"), QString::fromStdString(row.unit)},
        {QStringLiteral("ratio"), result.ratio},
        {QStringLiteral("limit"),
            isLimited ? QString::fromStdString(row.limit.text()) : QJsonValue()},
        {QStringLiteral("holds"), isLimited ? row.limit.holds(result) : QJsonValue()}};
}

bool writeJson(const QString& path, const QJsonArray& rows)
{
    QFile file(path);
    const QByteArray text = QJsonDocument(rows).toJson();
    if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush())
        return true;
    std::fprintf(stderr, "%s: %s\n", qPrintable(path), qPrintable(file.errorString()));
    return false;
}

/** What the command line asks for. */
struct Options {
    QRegularExpression rows;
    QString json; ///< empty for no file
};

Options readOptions(const QCoreApplication& application)
{
    QCommandLineParser parser;
    const QCommandLineOption json(QStringLiteral("json"),
        QStringLiteral("Write the table to <file>, too, as a list of objects."),
        QStringLiteral("file"));
    const QCommandLineOption rows(QStringLiteral("rows"),
        QStringLiteral("Measure only the rows whose name matches <expression>."),
        QStringLiteral("expression"));
    parser.setApplicationDescription(
        QStringLiteral("Measures the library against the alternatives. Ends with exit code 1 "
                       "if a limit is missed."));
    parser.addOptions({json, rows});
    parser.addHelpOption();
    parser.process(application);
    return {QRegularExpression(parser.value(rows)), parser.value(json)};
}

ExitCode measureRows(const Rows& rows, const Options& options)
{
    ExitCode code = LimitsHold;
    QJsonArray results;
    printHead();
    for (const Row& row : rows) {
        const Result result = measure(row);
        printRow(row, result);
        results.append(toJson(row, result));
        if (!row.limit.holds(result))
            code = LimitMissed;
    }
    if (!options.json.isEmpty() && !writeJson(options.json, results))
        return NotDone;
    return code;
}

} // namespace

int runBenchmarks(int argc, char** argv, const std::function<Rows()>& allRows)
{
    int ownArguments = 1;
    benchmark::Initialize(&ownArguments, argv);
    // As the simulated unit does.
    qputenv("QT_NO_GLIB", "1");
    const QCoreApplication application(argc, argv);
    const Options options = readOptions(application);
    if (!options.rows.isValid()) {
        std::fprintf(stderr, "--rows %s: %s\n", qPrintable(options.rows.pattern()),
            qPrintable(options.rows.errorString()));
        return NotDone;
    }
    Rows wanted;
    for (const Row& row : allRows()) {
        if (options.rows.match(QString::fromStdString(row.name)).hasMatch())
            wanted.push_back(row);
    }
    if (wanted.empty()) {
        std::fprintf(
            stderr, "--rows %s: no row has such a name\n", qPrintable(options.rows.pattern()));
        return NotDone;
    }
    return measureRows(wanted, options);
}
