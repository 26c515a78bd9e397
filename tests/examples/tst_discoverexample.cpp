// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "networknamespaces.h"
#include "programs.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

/** The example that searches, in a network of the test's own. */
class TestDiscoverExample : public QObject {
    Q_OBJECT

public:
    QString reasonToSkip;

private slots:
    void initTestCase();
    void discovers();
};

void TestDiscoverExample::initTestCase()
{
    if (!reasonToSkip.isEmpty())
        QSKIP(qPrintable(reasonToSkip));
}

void TestDiscoverExample::discovers()
{
    const QTemporaryDir folder;
    const QString copy = folder.filePath(QStringLiteral("discover"));
    QVERIFY(QFile::copy(QStringLiteral(EXAMPLES_DIR "/discover"), copy));
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
    QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
    QCOMPARE(result.output, QStringLiteral("tcp://192.168.1.10:3801\n"));
}

// The network is left before Qt may start a thread.
int main(int argc, char* argv[])
{
    TestDiscoverExample test;
    test.reasonToSkip = enterPrivateNetwork();
    const QCoreApplication application(argc, argv);
    return QTest::qExec(&test, argc, argv);
}

#include "tst_discoverexample.moc"
