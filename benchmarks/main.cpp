#include "comparison.h"

#include <benchmark/benchmark.h>

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QRegularExpression>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int wrongUsage = 2;

std::vector<Row> allRows()
{
    std::vector<Row> rows;
    for (const auto& rowsOf : {signalExchangeRows, unitExchangeRows, modbusExchangeRows, codecRows,
             projectFileRows, processRows}) {
        for (Row& row : rowsOf())
            rows.push_back(std::move(row));
    }
    return rows;
}

void printHead()
{
    std::printf(
        "%-44s %10s %10s  %-6s %6s  %s\n", "name", "ours", "reference", "unit", "ratio", "limit");
}

void printRow(const Row& row, const Result& result)
{
    const char* verdict = "";
    if (row.limit.kind != Limit::None)
        verdict = row.limit.holds(result.ours, result.reference) ? "holds" : "MISSED";
    std::printf("%-44s %10.3f %10.3f  %-6s %6.2f  %s %s\n", row.name.c_str(), result.ours,
        result.reference, row.unit.c_str(), result.ratio(), row.limit.text().c_str(), verdict);
    std::fflush(stdout);
}

QJsonObject toJson(const Row& row, const Result& result)
{
    return {{QStringLiteral("name"), QString::fromStdString(row.name)},
        {QStringLiteral("ours"), result.ours}, {QStringLiteral("reference"), result.reference},
        {QStringLiteral("unit"), QString::fromStdString(row.unit)},
        {QStringLiteral("ratio"), result.ratio()}};
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

} // namespace

int main(int argc, char** argv)
{
    int ownArguments = 1;
    benchmark::Initialize(&ownArguments, argv);
    // As the simulated unit does.
    qputenv("QT_NO_GLIB", "1");
    const QCoreApplication application(argc, argv);
    QCommandLineParser options;
    const QCommandLineOption json(QStringLiteral("json"),
        QStringLiteral("Write the table to <file>, too, as a list of objects."),
        QStringLiteral("file"));
    const QCommandLineOption rows(QStringLiteral("rows"),
        QStringLiteral("Measure only the rows whose name matches <expression>."),
        QStringLiteral("expression"));
    options.setApplicationDescription(
        QStringLiteral("Measures the library against what stands beside it."));
    options.addOptions({json, rows});
    options.addHelpOption();
    options.process(application);

    const QRegularExpression wanted(options.value(rows));
    if (!wanted.isValid()) {
        std::fprintf(stderr, "--rows %s: %s\n", qPrintable(wanted.pattern()),
            qPrintable(wanted.errorString()));
        return wrongUsage;
    }
    QJsonArray results;
    printHead();
    for (const Row& row : allRows()) {
        if (!wanted.match(QString::fromStdString(row.name)).hasMatch())
            continue;
        const Result result = measure(row);
        printRow(row, result);
        results.append(toJson(row, result));
    }
    if (results.isEmpty()) {
        std::fprintf(stderr, "--rows %s: no row has such a name\n", qPrintable(wanted.pattern()));
        return wrongUsage;
    }
    if (options.isSet(json) && !writeJson(options.value(json), results))
        return EXIT_FAILURE;
    return EXIT_SUCCESS;
}
