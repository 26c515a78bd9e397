// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "networknamespaces.h"
#include "programs.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtNetwork/QUdpSocket>
#include <QtTest/QtTest>

namespace {

/** A unit on a host of its own that answers searches. */
class UnitHost {
public:
    UnitHost(TestNetwork& network, const QString& address, const QStringList& arguments = {})
        : m_process(network.addHost({address + QStringLiteral("/24")}))
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        if (!m_process.launch(QStringLiteral(QUADRELSIM_PATH),
                QStringList{QStringLiteral("--sample"), QStringLiteral("--listen"), address,
                    QStringLiteral("--discovery")}
                    + arguments)
            || m_process.waitForLine("answering searches").isEmpty())
            qFatal("the simulated unit does not start");
    }

private:
    NamespaceProcess m_process;
};

ToolResult runInside(const NetworkNamespace& host, const QStringList& arguments,
    const QByteArray& settings = ControlTool::usualSettings())
{
    ControlTool tool(settings);
    NamespaceProcess process(host);
    tool.start(process, arguments);
    return ControlTool::resultOf(process);
}

const QString ownAddress = QStringLiteral("192.168.1.1/24");
const QString firstAddress = QStringLiteral("192.168.1.10");
const QString secondAddress = QStringLiteral("192.168.1.20");

} // namespace

/** discover and read --discover, in a network of the test's own. */
class TestQuadrelctlDiscover : public QObject {
    Q_OBJECT

public:
    QString reasonToSkip;

private slots:
    void initTestCase();
    void listsUnits();
    void listsUnitsAsJson();
    void endsWithTheFirst_data();
    void endsWithTheFirst();
    void saysThatThePortIsInUse();
    void searchesForAnUpgrade();
    void readsTheOnlyUnit();
    void refusesToChooseAUnit();
    void saysThatNobodyAnswered_data();
    void saysThatNobodyAnswered();
    void saysThatThereIsNoNetwork();
};

void TestQuadrelctlDiscover::initTestCase()
{
    if (!reasonToSkip.isEmpty())
        QSKIP(qPrintable(reasonToSkip));
}

void TestQuadrelctlDiscover::listsUnits()
{
    TestNetwork network;
    const NetworkNamespace& host = network.addHost({ownAddress});
    const UnitHost first(network, firstAddress);
    const UnitHost second(
        network, secondAddress, {QStringLiteral("--port"), QStringLiteral("4000")});
    const ToolResult result = runInside(host, {QStringLiteral("discover")});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.exitCode, 0);
    const QStringList lines = result.output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 3);
    QVERIFY(lines.at(1).startsWith(QStringLiteral("tcp://192.168.1.10:3801  Zorbe3100  3800")));
    QVERIFY(lines.at(2).startsWith(QStringLiteral("tcp://192.168.1.20:4000  Zorbe3100  3800")));
}

void TestQuadrelctlDiscover::listsUnitsAsJson()
{
    TestNetwork network;
    const NetworkNamespace& host = network.addHost({ownAddress});
    const UnitHost unit(
        network, firstAddress, {QStringLiteral("--discovery-payload"), QStringLiteral(" hello")});
    const ToolResult result =
        runInside(host, {QStringLiteral("discover"), QStringLiteral("--json")});
    QCOMPARE(result.exitCode, 0);
    const QJsonArray units = QJsonDocument::fromJson(result.output.toUtf8()).array();
    QCOMPARE(units.size(), 1);
    QJsonObject object = units.at(0).toObject();
    QVERIFY(
        QDateTime::fromString(object.take(QStringLiteral("lastSeen")).toString(), Qt::ISODateWithMs)
            .isValid());
    QCOMPARE(object,
        QJsonObject({{QStringLiteral("unit"), QStringLiteral("tcp://192.168.1.10:3801")},
            {QStringLiteral("ip"), firstAddress},
            {QStringLiteral("name"), QStringLiteral("Zorbe3100")},
            {QStringLiteral("replyPort"), 3800},
            {QStringLiteral("reply"), QStringLiteral("Zorbe:3100 hello")}}));
}

void TestQuadrelctlDiscover::endsWithTheFirst_data()
{
    QTest::addColumn<QStringList>("arguments");
    const QStringList first{QStringLiteral("discover"), QStringLiteral("--first")};
    QTest::newRow("plain") << first;
    QTest::newRow("upgrade") << first
            + QStringList{QStringLiteral("--upgrade"), QStringLiteral("x")};
}

void TestQuadrelctlDiscover::endsWithTheFirst()
{
    QFETCH(QStringList, arguments);
    TestNetwork network;
    const NetworkNamespace& host = network.addHost({ownAddress});
    const UnitHost unit(network, firstAddress);
    // To wait for the end of such a search would end the test.
    const ToolResult result =
        runInside(host, arguments, "[Search]\ntimeout=100000000\n[Upgrade]\ntimeout=100000000\n");
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.output, QStringLiteral("tcp://192.168.1.10:3801\n"));
    QCOMPARE(result.exitCode, 0);
}

void TestQuadrelctlDiscover::saysThatThePortIsInUse()
{
    TestNetwork network;
    const NetworkNamespace& host = network.addHost({ownAddress});
    QUdpSocket other;
    {
        const InsideNamespace inside(host);
        QVERIFY(
            other.bind(QHostAddress(QHostAddress::AnyIPv4), 3800, QUdpSocket::DontShareAddress));
    }
    const ToolResult result = runInside(host, {QStringLiteral("discover")});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.output, QString());
    QCOMPARE(result.errors,
        QStringLiteral(
            "UDP port 3800 of 192.168.1.1 is in use by another program, so no answer can "
            "be heard; end that program and search again\n"));
}

void TestQuadrelctlDiscover::searchesForAnUpgrade()
{
    TestNetwork network;
    const NetworkNamespace& host = network.addHost({ownAddress});
    const UnitHost unit(
        network, firstAddress, {QStringLiteral("--discovery-name"), QStringLiteral("Zorbe:boot")});
    const QByteArray settings = "[Search]\ntimeout=500\n[Upgrade]\ntimeout=4000\n";
    QCOMPARE(runInside(host, {QStringLiteral("discover")}, settings).exitCode, 1);
    const ToolResult result = runInside(host,
        {QStringLiteral("discover"), QStringLiteral("--upgrade"), QStringLiteral("my unit"),
            QStringLiteral("--first")},
        settings);
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.output, QStringLiteral("tcp://192.168.1.10:3801\n"));
}

void TestQuadrelctlDiscover::readsTheOnlyUnit()
{
    TestNetwork network;
    const NetworkNamespace& host = network.addHost({ownAddress});
    const UnitHost unit(network, firstAddress, {QStringLiteral("--port"), QStringLiteral("4000")});
    const ToolResult result = runInside(
        host, {QStringLiteral("read"), QStringLiteral("--discover"), QStringLiteral("--json")});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.exitCode, 0);
    const QJsonObject json = QJsonDocument::fromJson(result.output.toUtf8()).object();
    QCOMPARE(json[QStringLiteral("events")].toArray().size(), 32);
}

void TestQuadrelctlDiscover::refusesToChooseAUnit()
{
    TestNetwork network;
    const NetworkNamespace& host = network.addHost({ownAddress});
    const UnitHost first(network, firstAddress);
    const UnitHost second(network, secondAddress);
    const ToolResult result =
        runInside(host, {QStringLiteral("read"), QStringLiteral("--discover")});
    QCOMPARE(result.exitCode, 1);
    QVERIFY(result.errors.endsWith(
        QStringLiteral("tcp://192.168.1.10:3801 tcp://192.168.1.20:3801\n")));
}

void TestQuadrelctlDiscover::saysThatNobodyAnswered_data()
{
    QTest::addColumn<QStringList>("arguments");
    const QString discover = QStringLiteral("discover");
    QTest::newRow("table") << QStringList{discover};
    QTest::newRow("json") << QStringList{discover, QStringLiteral("--json")};
    QTest::newRow("first") << QStringList{discover, QStringLiteral("--first")};
    QTest::newRow("read") << QStringList{QStringLiteral("read"), QStringLiteral("--discover")};
}

void TestQuadrelctlDiscover::saysThatNobodyAnswered()
{
    QFETCH(QStringList, arguments);
    TestNetwork network;
    const NetworkNamespace& host = network.addHost({ownAddress});
    const ToolResult result = runInside(host, arguments, "[Search]\ntimeout=100\n");
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.output, QString());
    QCOMPARE(result.errors, QStringLiteral("no unit has answered within 100 ms\n"));
}

void TestQuadrelctlDiscover::saysThatThereIsNoNetwork()
{
    const NetworkNamespace lonely;
    const ToolResult result = runInside(lonely, {QStringLiteral("discover")});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.errors, QStringLiteral("this machine has no network address to search from\n"));
}

// The network is left before Qt may start a thread.
int main(int argc, char* argv[])
{
    TestQuadrelctlDiscover test;
    test.reasonToSkip = enterPrivateNetwork();
    const QCoreApplication application(argc, argv);
    return QTest::qExec(&test, argc, argv);
}

#include "tst_quadrelctldiscover.moc"
