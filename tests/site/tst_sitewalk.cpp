// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "networknamespaces.h"
#include "programs.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtTest/QtTest>

#include <csignal>
#include <memory>
#include <vector>

namespace {

constexpr int unitCount = 50;
/** Made slow, so that its power can be pulled in the middle of a write. */
constexpr int slowUnit = 50;
constexpr int changedUnit = 7;

QString nameOf(int unit)
{
    return QStringLiteral("room-%1").arg(unit);
}

/** The units of a building, each on a host of its own, and the technician's host. */
class Building {
public:
    explicit Building(ControlTool& tool)
        : m_tool(tool)
        , m_own(m_network.addHost({QStringLiteral("192.168.1.1/24")}))
    {
        for (int unit = 1; unit <= unitCount; ++unit)
            m_hosts.push_back(&m_network.addHost({addressOf(unit) + QStringLiteral("/24")}));
        m_units.resize(unitCount);
        for (int unit = 1; unit <= unitCount; ++unit)
            switchOn(unit);
    }

    static QString addressOf(int unit) { return QStringLiteral("192.168.1.%1").arg(100 + unit); }

    void switchOn(int unit, const QStringList& more = {})
    {
        auto process = std::make_unique<NamespaceProcess>(*m_hosts.at(index(unit)));
        const QStringList arguments{QStringLiteral("--sample"), QStringLiteral("--discovery"),
            QStringLiteral("--listen"), addressOf(unit), QStringLiteral("--serial"),
            QString::number(310000000 + unit), QStringLiteral("--memory"),
            m_tool.path(QStringLiteral("memory-%1").arg(unit))};
        if (!process->launch(QStringLiteral(QUADRELSIM_PATH), arguments + more)
            || process->waitForLine("answering searches").isEmpty())
            qFatal("unit %d does not start: %s", unit, qPrintable(process->errors()));
        m_units.at(index(unit)) = std::move(process);
    }

    Program& unit(int unit) { return *m_units.at(index(unit)); }
    void pullPower(int unit) { m_units.at(index(unit)).reset(); }

    void start(NamespaceProcess& process, const QStringList& arguments)
    {
        process.setWorkingDirectory(m_tool.path(QString()));
        m_tool.start(process, arguments);
    }

    ToolResult run(const QStringList& arguments)
    {
        NamespaceProcess process(m_own);
        start(process, arguments);
        return ControlTool::resultOf(process);
    }
    /** "quadrelctl site" with these words, parted by blanks. */
    ToolResult site(const char* words) { return run(siteArguments(words)); }
    static QStringList siteArguments(const char* words)
    {
        return QStringList{QStringLiteral("site")}
        + QString::fromUtf8(words).split(QLatin1Char(' '));
    }

    const NetworkNamespace& ownHost() const { return m_own; }

private:
    static std::size_t index(int unit) { return static_cast<std::size_t>(unit) - 1; }

    ControlTool& m_tool;
    TestNetwork m_network;
    const NetworkNamespace& m_own;
    std::vector<const NetworkNamespace*> m_hosts;
    std::vector<std::unique_ptr<NamespaceProcess>> m_units;
};

} // namespace

/** The way of docs/site.md through a building, as a technician goes it. */
class TestSiteWalk : public QObject {
    Q_OBJECT

public:
    QString reasonToSkip;

private slots:
    void initTestCase();
    void findsKeepsChangesAndMends();
};

void TestSiteWalk::initTestCase()
{
    if (!reasonToSkip.isEmpty())
        QSKIP(qPrintable(reasonToSkip));
    for (const char* role : {"AUTHOR", "COMMITTER"}) {
        qputenv(QByteArray("GIT_") + role + "_NAME", "Technician");
        qputenv(QByteArray("GIT_") + role + "_EMAIL", "technician@example.com");
    }
}

void TestSiteWalk::findsKeepsChangesAndMends()
{
    ControlTool tool;
    Building building(tool);
    const auto shell = [&tool](const char* script) {
        return tool.runShell(QStringLiteral("sh"), QString::fromUtf8(script));
    };
    const auto outcomes = [&building](const char* words) {
        return QJsonDocument::fromJson(building.site(words).output.toUtf8())
            .object()
            .value(QStringLiteral("outcomes"))
            .toObject();
    };

    // Found by search.
    ToolResult result = building.site("discover --add --yes --timeout 4000");
    QCOMPARE(result.errors.trimmed().split(QLatin1Char('\n')).size(), unitCount);
    QCOMPARE(result.exitCode, 0);

    // Named, each with a document, in an editor.
    QByteArray inventory = ControlTool::contentsOf(tool.path(QStringLiteral("site.yaml")));
    QCOMPARE(inventory.count("- name: "), unitCount);
    for (int unit = 1; unit <= unitCount; ++unit)
        inventory.replace("- name: unit-" + QByteArray::number(310000000 + unit) + '\n',
            QStringLiteral("- name: %1\n    document: units/%1.yaml\n").arg(nameOf(unit)).toUtf8());
    tool.write(QStringLiteral("site.yaml"), "# Our building\n" + inventory);

    // Backed up.
    shell("git init -q backups && mkdir units");
    result = building.site("--quiet backup backups --commit");
    QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
    QCOMPARE(shell("cd backups && git log --format=%s"), QStringLiteral("Back up 50 units\n"));
    shell("cp backups/*.yaml units/");

    // One unit changed by hand, and found.
    tool.setVariable(QStringLiteral("VISUAL"),
        QStringLiteral("sed -i 's/description: \"Display off\"/description: \"Screen off\"/'"));
    result = building.run({QStringLiteral("edit"), QStringLiteral("--unit"),
        Building::addressOf(changedUnit), QStringLiteral("--yes")});
    QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
    result = building.site("--quiet diff");
    QCOMPARE(result.exitCode, 3);
    QVERIFY2(result.output.startsWith(QStringLiteral(
                 "room-7\n~ events[8]\n    description: \"Display off\" -> \"Screen off\"\n")),
        qPrintable(result.output));
    QCOMPARE(building.site("--quiet backup backups --commit").exitCode, 0);
    QCOMPARE(shell("cd backups && git log -1 --format=%s"), QStringLiteral("Back up room-7\n"));
    QCOMPARE(building.site("run --name room-7 -- save {document}").exitCode, 0);

    // A new event for all, with a canary; interrupted in the middle.
    result = building.run(
        {QStringLiteral("site"), QStringLiteral("set"), QStringLiteral("events[60]={delay: 500}")});
    QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
    NamespaceProcess interrupted(building.ownHost());
    building.start(
        interrupted, Building::siteArguments("write --canary 1 --batch 10 --jobs 4 --yes"));
    QVERIFY2(
        interrupted.waitForError(QStringLiteral("stage 2 of ")), qPrintable(interrupted.errors()));
    QVERIFY(interrupted.sendSignal(SIGINT));
    result = ControlTool::resultOf(interrupted);
    QCOMPARE(result.exitCode, 130);
    QVERIFY2(result.output.contains(QStringLiteral("the new")), qPrintable(result.output));
    QVERIFY2(result.errors.contains(QStringLiteral("\"quadrelctl site write --resume\" goes on")),
        qPrintable(result.errors));

    // Resumed; one unit's power is pulled during its write.
    building.pullPower(slowUnit);
    building.switchOn(
        slowUnit, {QStringLiteral("--verbose"), QStringLiteral("--latency"), QStringLiteral("60")});
    NamespaceProcess resumed(building.ownHost());
    building.start(resumed, Building::siteArguments("write --resume --jobs 4 --retries 0 --yes"));
    QVERIFY(building.unit(slowUnit).waitForError(QStringLiteral(", write ")));
    building.pullPower(slowUnit);
    result = ControlTool::resultOf(resumed);
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.errors.contains(QStringLiteral("\nroom-50: ")), qPrintable(result.errors));
    QVERIFY2(result.output.contains(QStringLiteral("not known, perhaps some of both  1      "
                                                   "room-50\n")),
        qPrintable(result.output));
    QVERIFY2(result.errors.contains(
                 QStringLiteral("write the same again when the unit answers; what it held before "
                                "is in ")),
        qPrintable(result.errors));

    // What the tool said, followed to the letter.
    building.switchOn(slowUnit);
    result = building.site("write --resume --yes");
    QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
    QVERIFY(!QFile::exists(tool.path(QStringLiteral("site.write-run.yaml"))));
    QCOMPARE(outcomes("diff --json"), (QJsonObject{{QStringLiteral("same"), unitCount}}));
    QCOMPARE(building.site("--quiet backup backups --commit").exitCode, 0);
    QCOMPARE(shell("cd backups && git log -1 --format=%s"), QStringLiteral("Back up 50 units\n"));
}

int main(int argc, char* argv[])
{
    TestSiteWalk test;
    test.reasonToSkip = enterPrivateNetwork();
    QCoreApplication application(argc, argv);
    return QTest::qExec(&test, argc, argv);
}

#include "tst_sitewalk.moc"
