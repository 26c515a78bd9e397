// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "programs.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

namespace {

QString program(const char* name)
{
    return QStringLiteral(EXAMPLES_DIR "/") + QString::fromLatin1(name);
}

ToolResult run(const char* name, const QStringList& arguments)
{
    Program process;
    if (!process.launch(program(name), arguments))
        qFatal("%s does not start", name);
    return ControlTool::resultOf(process);
}

} // namespace

/** The examples of the guide do what the guide says. */
class TestExamples : public QObject {
    Q_OBJECT

private slots:
    void reads();
    void saysWhyItCanNotRead();
    void writes();
    void upgrades();
};

void TestExamples::reads()
{
    const SimulatorProcess unit;
    const ToolResult result = run("read", {unit.address()});
    QCOMPARE(result.exitCode, 0);
    const QStringList lines = result.output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 32);
    QCOMPARE(lines.first(), QStringLiteral("event 1: 打开投影机"));
}

void TestExamples::saysWhyItCanNotRead()
{
    QString address;
    {
        const SimulatorProcess unit;
        address = unit.address();
    }
    const ToolResult result = run("read", {address});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.output, address + QStringLiteral(" refused the connection\n"));
}

void TestExamples::writes()
{
    const SimulatorProcess unit;
    const ToolResult result = run("write", {unit.address(), QStringLiteral("good night")});
    QCOMPARE(result.output, QStringLiteral("written\n"));
    QCOMPARE(result.exitCode, 0);
    const QStringList lines =
        run("read", {unit.address()}).output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 33);
    QVERIFY2(lines.last().endsWith(QStringLiteral(": good night")), qPrintable(lines.last()));
}

void TestExamples::upgrades()
{
    const SimulatorProcess unit;
    const QTemporaryDir folder;
    const QString image = folder.filePath(QStringLiteral("image"));
    QFile file(image);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(QByteArray(50000, 'i')), qint64(50000));
    file.close();
    const ToolResult result = run("upgrade", {unit.address(), image, image});
    QVERIFY2(result.output.endsWith(QStringLiteral("\ndone\n")), qPrintable(result.output));
    QVERIFY(result.output.contains(QString(40, QLatin1Char('#'))));
    QCOMPARE(result.exitCode, 0);
}

QTEST_GUILESS_MAIN(TestExamples)
#include "tst_examples.moc"
