#include "networknamespaces.h"
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

public:
    QString reasonToSkip;

private slots:
    void reads();
    void saysWhyItCanNotRead();
    void writes();
    void upgrades();
    void discovers();
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
    SimulatorProcess unit;
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
    QVERIFY(!unit.waitForLine("image streamed").isEmpty());
}

void TestExamples::discovers()
{
    if (!reasonToSkip.isEmpty())
        QSKIP(qPrintable(reasonToSkip));
    const QTemporaryDir folder;
    const QString copy = folder.filePath(QStringLiteral("discover"));
    QVERIFY(QFile::copy(program("discover"), copy));
    QFile settings(folder.filePath(QStringLiteral("configWidget.ini")));
    QVERIFY(settings.open(QIODevice::WriteOnly));
    settings.write("[Search]\ntimeout=2000\n");
    settings.close();

    TestNetwork network;
    const NetworkNamespace& host = network.addHost({QStringLiteral("192.168.1.1/24")});
    NamespaceProcess unit(network.addHost({QStringLiteral("192.168.1.10/24")}));
    QVERIFY(unit.launch(QStringLiteral(QUADRELSIM_PATH),
        {QStringLiteral("--listen"), QStringLiteral("192.168.1.10"),
            QStringLiteral("--discovery")}));
    QVERIFY(!unit.waitForLine("answering searches").isEmpty());
    NamespaceProcess search(host);
    QVERIFY(search.launch(copy, {}));
    const ToolResult result = ControlTool::resultOf(search);
    QCOMPARE(result.output, QStringLiteral("tcp://192.168.1.10:3801\n"));
    QCOMPARE(result.exitCode, 0);
}

int main(int argc, char** argv)
{
    // Before the application starts threads. The other tests stay inside: the loopback is up there.
    TestExamples test;
    test.reasonToSkip = enterPrivateNetwork();
    const QCoreApplication application(argc, argv);
    return QTest::qExec(&test, argc, argv);
}

#include "tst_examples.moc"
