// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitwork.h"

#include "contentscheck.h"
#include "memorycontents.h"
#include "patience.h"
#include "samplecontents.h"
#include "threadedunit.h"
#include "unitdocument.h"
#include "unitlock.h"
#include "unitsession.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

#include <thread>

#include <unistd.h>

using namespace QuadrelWorkspace;
using namespace QuadrelDocument;
using QuadrelUnit::ControlUnit;
using QuadrelUnit::FaultKind;
using QuadrelUnit::UnitServer;

namespace {

constexpr quint64 serialNumber = 310000001;

/** The exchanges of a plan that writes all tables of the sample, counted from the first. */
namespace Exchange {
constexpr int serialPorts = 1;
constexpr int ioLines = 2;
constexpr int eventCount = 3;
constexpr int secondEvents = 5;
constexpr int secondTriggers = 14;
constexpr int secondEventReadBack = 23;
} // namespace Exchange

/** A unit with the sample, and the folders of a user who works on it. */
struct Site {
    ThreadedUnit unit;
    QTemporaryDir folder;
    WorkOptions options;
    UnitAddress::Protocol protocol = UnitAddress::Tcp;

    Site()
    {
        options.link.timeout = patience;
        options.folders = {folder.filePath(QStringLiteral("config")),
            folder.filePath(QStringLiteral("backups")), folder.filePath(QStringLiteral("locks"))};
        unit.at([](ControlUnit& unit, UnitServer&) {
            MemoryContents::write(unit.memory(), sampleContents());
        });
    }

    UnitAddress address() const { return unit.address(protocol); }
    Backups backups() const { return Backups(options.folders.backups); }

    void breakReply(FaultKind kind, int exchange)
    {
        unit.at([&](ControlUnit&, UnitServer& server) {
            server.faults().addNth(kind, server.faults().replies() + quint64(exchange));
        });
    }
    void repair()
    {
        unit.at([](ControlUnit&, UnitServer& server) { server.faults().clear(); });
    }
    quint64 replies()
    {
        quint64 replies = 0;
        unit.at([&](ControlUnit&, UnitServer& server) { replies = server.faults().replies(); });
        return replies;
    }
    Contents contents()
    {
        Contents contents;
        unit.at([&](ControlUnit& unit, UnitServer&) {
            contents = MemoryContents::read(unit.memory());
        });
        return contents;
    }

    /** The text with the unit's address and the newest backup in it. */
    QString filled(QString text) const
    {
        const auto backup = backups().newest(serialNumber);
        return text.replace(QStringLiteral("UNIT"), address().toText())
            .replace(QStringLiteral("BACKUP"), backup ? backup->path : QStringLiteral("no backup"));
    }
};

Contents changed(Contents contents, const QVector<Table>& tables)
{
    if (tables.contains(Table::Config))
        (*contents.serialPorts)[2].baudRate = 4800;
    if (tables.contains(Table::Events))
        (*contents.events)[20].description = QStringLiteral("Display really off");
    if (tables.contains(Table::Triggers))
        (*contents.triggers)[1].eventIds = {2, 26};
    return contents;
}

const QVector<Table> allTables{Table::Config, Table::Events, Table::Triggers};

QString namesOf(const QVector<TableOutcome>& outcomes)
{
    QStringList names;
    for (const TableOutcome& outcome : outcomes)
        names.append(tableName(outcome.table)
            + QStringList{QStringLiteral(" old"), QStringLiteral(" new"),
                QStringLiteral(" unknown")}
                  .at(static_cast<int>(outcome.state)));
    return names.join(QStringLiteral(", "));
}

} // namespace

Q_DECLARE_METATYPE(UnitAddress::Protocol)
Q_DECLARE_METATYPE(QVector<QuadrelDocument::Table>)
Q_DECLARE_METATYPE(QuadrelUnit::FaultKind)

class TestUnitWork : public QObject {
    Q_OBJECT

private slots:
    void reads_data();
    void reads();
    void readsTheDevice();
    void writesWhatHasChanged_data();
    void writesWhatHasChanged();
    void writesNothingWithoutAChange();
    void writesNothingUnread();
    void writesNothingWithErrors();
    void writesNothingWithoutABackup();
    void keepsTriggersWithTheirEvents_data();
    void keepsTriggersWithTheirEvents();
    void breaksOff_data();
    void breaksOff();
    void goesOnAfterABreak();
    void survivesALostDatagram();
    void breaksOffWhenTheUnitDoesNotAnswer_data();
    void breaksOffWhenTheUnitDoesNotAnswer();
    void breaksOffWhenTheUnitRestarts();
    void noticesWhatTheUnitDoesNotHold();
    void undoes();
    void failsToRead_data();
    void failsToRead();
    void failsToReach();
    void refusesTheSecond_data();
    void refusesTheSecond();
    void refusesAnotherUnit_data();
    void refusesAnotherUnit();
    void abortsBetweenTables();
    void aborts_data();
    void aborts();
    void runsOtherOperations();
    void breaksOtherOperationsOff_data();
    void breaksOtherOperationsOff();
    void upgrades_data();
    void upgrades();
    void breaksAnUpgradeOff();
    void missesTheUnitAfterAnUpgrade();
    void abortsTheWaitAfterAnUpgrade();
};

void TestUnitWork::reads_data()
{
    QTest::addColumn<UnitAddress::Protocol>("protocol");
    QTest::newRow("TCP") << UnitAddress::Tcp;
    QTest::newRow("UDP") << UnitAddress::Udp;
}

void TestUnitWork::reads()
{
    QFETCH(UnitAddress::Protocol, protocol);
    Site site;
    site.protocol = protocol;
    UnitWork work(site.address(), site.options);
    QStringList steps;
    const WorkResult result =
        work.read([&steps](const WorkProgress& progress) { steps.append(progress.text()); });
    QCOMPARE(result.failure.text(), QString());
    QVERIFY(compareContents(site.contents(), result.contents).isEmpty());
    QCOMPARE(result.contents.device.value().serialNumber, serialNumber);
    QVERIFY(result.contents.clock);
    // A busy test may see fewer of the steps of a part, but never none.
    QCOMPARE(steps.first(), QStringLiteral("reading device information"));
    QVERIFY(steps.contains(QStringLiteral("reading event 32 of 32")));
    QCOMPARE(steps.last(), QStringLiteral("reading clock"));
}

void TestUnitWork::readsTheDevice()
{
    Site site;
    UnitWork work(site.address(), site.options);
    const WorkResult result = work.readDevice();
    QCOMPARE(result.failure.text(), QString());
    QCOMPARE(result.contents.device.value().serialNumber, serialNumber);
    QVERIFY(!result.contents.events);
    QCOMPARE(site.replies(), Q_UINT64_C(1));
}

void TestUnitWork::writesWhatHasChanged_data()
{
    QTest::addColumn<UnitAddress::Protocol>("protocol");
    QTest::addColumn<QVector<Table>>("tables");
    QTest::newRow("config") << UnitAddress::Tcp << QVector<Table>{Table::Config};
    QTest::newRow("events") << UnitAddress::Tcp << QVector<Table>{Table::Events};
    QTest::newRow("triggers") << UnitAddress::Tcp << QVector<Table>{Table::Triggers};
    QTest::newRow("all") << UnitAddress::Tcp << allTables;
    QTest::newRow("all over UDP") << UnitAddress::Udp << allTables;
}

void TestUnitWork::writesWhatHasChanged()
{
    QFETCH(UnitAddress::Protocol, protocol);
    QFETCH(QVector<Table>, tables);
    Site site;
    site.protocol = protocol;
    UnitWork work(site.address(), site.options);
    const Contents held = work.read().contents;
    const Contents wanted = changed(held, tables);
    const Plan plan = makePlan(wanted, held);
    QCOMPARE(plan.tables, tables);

    QSet<QString> steps;
    const WorkResult result =
        work.apply(plan, QStringLiteral("write hall.yaml"), [&steps](const WorkProgress& progress) {
            steps.insert(progress.text().section(QLatin1Char(' '), 0, 0));
        });
    QCOMPARE(result.failure.text(), QString());
    QVERIFY(result.deviation.isEmpty());
    QCOMPARE(steps, (QSet<QString>{QStringLiteral("writing"), QStringLiteral("reading")}));
    QCOMPARE(result.tables.size(), tables.size());
    for (const TableOutcome& outcome : result.tables)
        QCOMPARE(outcome.state, TableState::New);
    QVERIFY(compareContents(wanted, result.contents).isEmpty());
    QVERIFY(compareContents(wanted, site.contents()).isEmpty());
    QVERIFY(result.contents.clock);

    const Backup backup = site.backups().newest(serialNumber).value();
    QCOMPARE(result.backup.value().path, backup.path);
    QCOMPARE(backup.change, QStringLiteral("write hall.yaml"));
    const LoadedFile saved = loadFile(backup.path);
    QCOMPARE(messagesOf(saved.findings), messagesOf(checkContents(held)));
    QVERIFY(compareContents(held, saved.contents).isEmpty());
    QVERIFY(!saved.contents.clock);
}

void TestUnitWork::writesNothingWithoutAChange()
{
    Site site;
    UnitWork work(site.address(), site.options);
    const Contents held = work.read().contents;
    const quint64 replies = site.replies();
    const WorkResult result = work.apply(makePlan(held, held), QString());
    QCOMPARE(result.failure.text(), QString());
    QCOMPARE(result.contents, held);
    QVERIFY(!result.backup);
    QVERIFY(!site.backups().newest(serialNumber));
    QCOMPARE(site.replies(), replies);
}

void TestUnitWork::writesNothingUnread()
{
    Site site;
    const Contents held = site.contents();
    UnitWork work(site.address(), site.options);
    const WorkResult result = work.apply(makePlan(changed(held, allTables), held), QString());
    QCOMPARE(result.failure.text(),
        site.filled(QStringLiteral("UNIT: the unit has to be read first\n"
                                   "nothing was sent to the unit")));
    QCOMPARE(site.replies(), Q_UINT64_C(0));
}

void TestUnitWork::writesNothingWithErrors()
{
    Site site;
    UnitWork work(site.address(), site.options);
    const Contents held = work.read().contents;
    const quint64 replies = site.replies();
    Contents fewerPorts = held;
    fewerPorts.serialPorts->removeLast();
    Contents anotherUnit = changed(held, allTables);
    anotherUnit.device->serialNumber = 7;
    for (const Contents& wanted : {fewerPorts, anotherUnit}) {
        const Plan plan = makePlan(wanted, held);
        QVERIFY(!plan.isAllowed());
        QCOMPARE(work.apply(plan, QString()).failure.text(),
            site.filled(QStringLiteral("UNIT: the plan has errors\nnothing was sent to the unit")));
    }
    QCOMPARE(site.replies(), replies);
    QVERIFY(!site.backups().newest(serialNumber));
}

void TestUnitWork::writesNothingWithoutABackup()
{
    Site site;
    QFile obstacle(site.options.folders.backups);
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    UnitWork work(site.address(), site.options);
    const Contents held = work.read().contents;
    const quint64 replies = site.replies();
    const WorkResult result = work.apply(makePlan(changed(held, allTables), held), QString());
    QCOMPARE(result.failure.text(),
        QStringLiteral("the backup cannot be written: %1/310000001: Not a directory\n"
                       "nothing was sent to the unit\n"
                       "make it possible to write there; then try again")
            .arg(site.options.folders.backups));
    QCOMPARE(namesOf(result.tables), QStringLiteral("config old, events old, triggers old"));
    QCOMPARE(site.replies(), replies);
}

void TestUnitWork::keepsTriggersWithTheirEvents_data()
{
    QTest::addColumn<bool>("adds");
    QTest::addColumn<bool>("removes");
    QTest::addColumn<QString>("order");
    const QString eventsFirst = QStringLiteral("events new, triggers new");
    const QString triggersFirst = QStringLiteral("triggers new, events new");
    QTest::newRow("an event and its trigger are added") << true << false << eventsFirst;
    QTest::newRow("an event and its trigger are removed") << false << true << triggersFirst;
    QTest::newRow("both") << true << true << eventsFirst;
}

void TestUnitWork::keepsTriggersWithTheirEvents()
{
    QFETCH(bool, adds);
    QFETCH(bool, removes);
    Site site;
    UnitWork work(site.address(), site.options);
    const Contents held = work.read().contents;
    Contents wanted = held;
    if (removes) {
        const int id = wanted.events->at(13).id;
        wanted.events->removeAt(13);
        auto& triggers = *wanted.triggers;
        triggers.erase(std::remove_if(triggers.begin(), triggers.end(),
                           [id](const Trigger& trigger) { return trigger.eventIds.contains(id); }),
            triggers.end());
    }
    if (adds) {
        Event event = wanted.events->first();
        event.id = 200;
        wanted.events->append(event);
        (*wanted.triggers)[0].eventIds.append(200);
    }
    const Plan plan = makePlan(wanted, held);
    QCOMPARE(messagesOf(plan.findings), QString());
    const WorkResult result = work.apply(plan, QString());
    QCOMPARE(result.failure.text(), QString());
    QTEST(namesOf(result.tables), "order");
}

void TestUnitWork::breaksOff_data()
{
    QTest::addColumn<FaultKind>("fault");
    QTest::addColumn<int>("exchange");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("tables");
    const QString cut = QStringLiteral("UNIT closed the connection in the middle of a reply\n");
    const QString closed = QStringLiteral("UNIT closed the connection without an answer\n");
    const QString again = QStringLiteral(
        "write the same again when the unit answers; what it held before is in BACKUP");
    const QString configBroken =
        QStringLiteral("serial ports and IO lines: unknown, perhaps some old and some new\n"
                       "events: as before\n"
                       "triggers and time triggers: as before\n")
        + again;
    const QString eventsBroken = QStringLiteral("serial ports and IO lines: new\n"
                                                "events: unknown, perhaps some old and some new\n"
                                                "triggers and time triggers: as before\n")
        + again;
    const QString configUnknown = QStringLiteral("config unknown, events old, triggers old");
    const QString eventsUnknown = QStringLiteral("config new, events unknown, triggers old");
    QTest::newRow("cut at the first write")
        << FaultKind::Cut << Exchange::serialPorts
        << cut + QStringLiteral("failed while writing the serial ports\n") + configBroken
        << configUnknown;
    QTest::newRow("damaged reply") << FaultKind::Corrupt << Exchange::ioLines
                                   << QStringLiteral(
                                          "UNIT sent a damaged reply: its checksum is wrong\n"
                                          "failed while writing the IO lines\n")
            + configBroken << configUnknown;
    QTest::newRow("between two tables")
        << FaultKind::Close << Exchange::eventCount
        << closed + QStringLiteral("failed while writing the events\n") + eventsBroken
        << eventsUnknown;
    QTest::newRow("among the events")
        << FaultKind::Cut << Exchange::secondEvents
        << cut + QStringLiteral("failed while writing event 5 of 32\n") + eventsBroken
        << eventsUnknown;
    QTest::newRow("reply of another length")
        << FaultKind::WrongLength << Exchange::secondEvents
        << QStringLiteral("UNIT sent a reply of another length than was asked for\n"
                          "failed while writing event 5 of 32\n")
            + eventsBroken
        << eventsUnknown;
    QTest::newRow("among the triggers") << FaultKind::Cut << Exchange::secondTriggers
                                        << cut
            + QStringLiteral("failed while writing trigger 5 of 17\n"
                             "serial ports and IO lines: new\n"
                             "events: new\n"
                             "triggers and time triggers: unknown, perhaps some old and some new\n")
            + again << QStringLiteral("config new, events new, triggers unknown");
    QTest::newRow("while it is read back") << FaultKind::Cut << Exchange::secondEventReadBack
                                           << cut
            + QStringLiteral(
                "failed while reading back event 2 of 32\n"
                "serial ports and IO lines: new, but not read back\n"
                "events: new, but not read back\n"
                "triggers and time triggers: new, but not read back\n"
                "read the unit when it answers, and compare; what it held before is in "
                "BACKUP") << QStringLiteral("config new, events new, triggers new");
}

void TestUnitWork::breaksOff()
{
    QFETCH(FaultKind, fault);
    QFETCH(int, exchange);
    QFETCH(QString, text);
    Site site;
    UnitWork work(site.address(), site.options);
    const Contents held = work.read().contents;
    const Plan plan = makePlan(changed(held, allTables), held);
    site.breakReply(fault, exchange);
    const WorkResult result = work.apply(plan, QStringLiteral("write hall.yaml"));
    QCOMPARE(result.failure.text(), site.filled(text));
    QVERIFY(result.failure.error);
    QTEST(namesOf(result.tables), "tables");
    QVERIFY(compareContents(held, loadFile(result.backup.value().path).contents).isEmpty());
}

/** As the failure says: the same again writes what is missing, with a backup of its own. */
void TestUnitWork::goesOnAfterABreak()
{
    Site site;
    UnitWork work(site.address(), site.options);
    const Contents held = work.read().contents;
    const Contents wanted = changed(held, allTables);
    site.breakReply(FaultKind::Cut, Exchange::secondEvents);
    QVERIFY(work.apply(makePlan(wanted, held), QStringLiteral("first")).failure);
    // What it holds now has to be looked at first.
    QVERIFY(work.apply(makePlan(wanted, held), QStringLiteral("second")).failure);

    const Contents half = work.read().contents;
    const WorkResult result = work.apply(makePlan(wanted, half), QStringLiteral("third"));
    QCOMPARE(result.failure.text(), QString());
    QCOMPARE(namesOf(result.tables), QStringLiteral("events new, triggers new"));
    QVERIFY(compareContents(wanted, site.contents()).isEmpty());
    QCOMPARE(site.backups().list(serialNumber).size(), 2);
}

void TestUnitWork::survivesALostDatagram()
{
    Site site;
    site.protocol = UnitAddress::Udp;
    site.options.link.timeout = 1000;
    site.options.link.retries = 100;
    UnitWork work(site.address(), site.options);
    const Contents held = work.read().contents;
    const Contents wanted = changed(held, allTables);
    site.breakReply(FaultKind::LoseRequest, Exchange::secondEvents);
    const WorkResult result = work.apply(makePlan(wanted, held), QString());
    QCOMPARE(result.failure.text(), QString());
    QVERIFY(compareContents(wanted, site.contents()).isEmpty());
}

void TestUnitWork::breaksOffWhenTheUnitDoesNotAnswer_data()
{
    QTest::addColumn<UnitAddress::Protocol>("protocol");
    QTest::addColumn<FaultKind>("fault");
    QTest::newRow("hangs") << UnitAddress::Tcp << FaultKind::Hang;
    QTest::newRow("hangs over UDP") << UnitAddress::Udp << FaultKind::Hang;
    QTest::newRow("answers for another address") << UnitAddress::Tcp << FaultKind::WrongAddress;
}

void TestUnitWork::breaksOffWhenTheUnitDoesNotAnswer()
{
    QFETCH(UnitAddress::Protocol, protocol);
    QFETCH(FaultKind, fault);
    Site site;
    site.protocol = protocol;
    Contents held;
    {
        UnitWork work(site.address(), site.options);
        held = work.read().contents;
    }
    // Long enough for a unit that answers, also on a busy machine.
    site.options.link.timeout = 3000;
    site.options.link.retries = 0;
    UnitWork work(site.address(), site.options);
    QCOMPARE(work.read().failure.text(), QString());
    site.breakReply(fault, 1);
    Contents wanted = held;
    (*wanted.events)[7].description = QStringLiteral("Display really off");
    const WorkResult result = work.apply(makePlan(wanted, held), QString());
    QCOMPARE(result.failure.text(),
        site.filled(QStringLiteral(
            "UNIT has not answered the write of event count within 3000 ms\n"
            "failed while writing the events\n"
            "events: unknown, perhaps some old and some new\n"
            "write the same again when the unit answers; what it held before is in BACKUP")));
    QVERIFY(result.failure.error == LinkError::NoReply);
}

void TestUnitWork::breaksOffWhenTheUnitRestarts()
{
    Site site;
    site.unit.at([](ControlUnit&, UnitServer& server) { server.setRestartTime(100); });
    UnitWork work(site.address(), site.options);
    const Contents held = work.read().contents;
    const Contents wanted = changed(held, allTables);
    // The work waits for this reply until the connection is gone.
    site.breakReply(FaultKind::Drop, Exchange::secondEvents);
    const quint64 dropped = site.replies() + Exchange::secondEvents;
    UnitSession another(site.unit.address(UnitAddress::Udp), site.options.link);
    bool isReset = false;
    const WorkResult result =
        work.apply(makePlan(wanted, held), QString(), [&](const WorkProgress& progress) {
            if (progress.unit.part != UnitProgress::Events || isReset)
                return;
            isReset = true;
            TRY_COMPARE(site.replies(), dropped);
            another.run(UnitRequest::reset(true));
        });
    QVERIFY(isReset);
    QVERIFY(result.failure);
    QVERIFY2(
        result.failure.state.contains(QStringLiteral("unknown, perhaps some old and some new")),
        qPrintable(result.failure.text()));

    // The unit comes back; then the same again is all that is needed.
    WorkResult again;
    TRY_VERIFY(!(again = work.read()).failure);
    const WorkResult applied = work.apply(makePlan(wanted, again.contents), QString());
    QCOMPARE(applied.failure.text(), QString());
    QVERIFY(compareContents(wanted, site.contents()).isEmpty());
}

void TestUnitWork::noticesWhatTheUnitDoesNotHold()
{
    Site site;
    UnitWork work(site.address(), site.options);
    const Contents held = work.read().contents;
    const Contents wanted = changed(held, allTables);
    bool isSpoilt = false;
    const WorkResult result =
        work.apply(makePlan(wanted, held), QString(), [&](const WorkProgress& progress) {
            if (progress.phase != WorkProgress::ReadingBack || isSpoilt)
                return;
            isSpoilt = true;
            Contents spoilt = changed(held, {Table::Config, Table::Events});
            (*spoilt.events)[9].description = QStringLiteral("spoilt");
            site.unit.at([&](ControlUnit& unit, UnitServer&) {
                MemoryContents::write(unit.memory(), spoilt);
            });
        });
    QCOMPARE(result.failure.text(),
        site.filled(QStringLiteral("UNIT: the unit does not hold what was written to it\n"
                                   "serial ports and IO lines: new\n"
                                   "events: unknown, perhaps some old and some new\n"
                                   "triggers and time triggers: as before\n"
                                   "write the same again; what it held before is in BACKUP")));
    QCOMPARE(namesOf(result.tables), QStringLiteral("config new, events unknown, triggers old"));
    QStringList paths;
    for (const RecordChange& change : result.deviation.changes)
        paths.append(change.path);
    QCOMPARE(paths, (QStringList{QStringLiteral("events[10]"), QStringLiteral("triggers[1]")}));
}

void TestUnitWork::undoes()
{
    Site site;
    const Contents before = site.contents();
    UnitWork work(site.address(), site.options);
    const Contents held = work.read().contents;
    QVERIFY(!work.apply(makePlan(changed(held, allTables), held), QStringLiteral("write")).failure);
    QVERIFY(!compareContents(before, site.contents()).isEmpty());

    const WorkResult read = work.read();
    const LoadedFile backup = loadFile(site.backups().newest(serialNumber).value().path);
    const WorkResult undone =
        work.apply(makePlan(backup.contents, read.contents), QStringLiteral("undo"));
    QCOMPARE(undone.failure.text(), QString());
    QVERIFY(compareContents(before, site.contents()).isEmpty());
    QCOMPARE(site.backups().newest(serialNumber).value().change, QStringLiteral("undo"));
}

void TestUnitWork::failsToRead_data()
{
    QTest::addColumn<FaultKind>("fault");
    QTest::addColumn<int>("exchange");
    QTest::addColumn<QString>("text");
    const QString cut = QStringLiteral("UNIT closed the connection in the middle of a reply\n");
    const QString check = QStringLiteral(
        "check the address, the network, and that the unit is switched on; then try again");
    QTest::newRow("device") << FaultKind::Cut << 1
                            << cut + QStringLiteral("failed while reading the device information\n")
            + check;
    QTest::newRow("lines") << FaultKind::Cut << 3
                           << cut + QStringLiteral("failed while reading the IO lines\n") + check;
    QTest::newRow("event count") << FaultKind::Cut << 4
                                 << cut + QStringLiteral("failed while reading the events\n")
            + check;
    QTest::newRow("event") << FaultKind::Cut << 21
                           << cut + QStringLiteral("failed while reading event 17 of 32\n") + check;
}

void TestUnitWork::failsToRead()
{
    QFETCH(FaultKind, fault);
    QFETCH(int, exchange);
    QFETCH(QString, text);
    Site site;
    site.breakReply(fault, exchange);
    UnitWork work(site.address(), site.options);
    const WorkResult result = work.read();
    QCOMPARE(result.failure.text(), site.filled(text));
    QCOMPARE(result.failure.state, QString());
    QCOMPARE(work.read().failure.text(), QString());
}

void TestUnitWork::failsToReach()
{
    Site site;
    UnitAddress address = site.address();
    address.port = 1;
    UnitWork work(address, site.options);
    const QString text = QStringLiteral(
        "tcp://127.0.0.1:1 refused the connection\n"
        "failed while reading the device information\n"
        "check the address, the network, and that the unit is switched on; then try again");
    QCOMPARE(work.readDevice().failure.text(), text);
    QCOMPARE(work.read().failure.text(), text);
    QCOMPARE(work.run(UnitRequest::reset(true)).failure.text(), text);
}

void TestUnitWork::refusesTheSecond_data()
{
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("unit");
    QTest::newRow("the same address") << "127.0.0.1"
                                      << "127.0.0.1:%1";
    QTest::newRow("another name of it") << "127.1"
                                        << "the unit with serial number 310000001";
}

void TestUnitWork::refusesTheSecond()
{
    QFETCH(QString, host);
    QFETCH(QString, unit);
    Site site;
    UnitWork first(site.address(), site.options);
    QCOMPARE(first.read().failure.text(), QString());

    UnitAddress address = site.address();
    address.host = host;
    UnitWork second(address, site.options);
    const QString beginning = (unit.contains(QLatin1Char('%')) ? unit.arg(address.port) : unit)
        + QStringLiteral(" is in use by tst_unitwork (process %1, user ").arg(getpid());
    for (const WorkResult& result : {second.readDevice(), second.read()})
        QVERIFY2(result.failure.text().startsWith(beginning), qPrintable(result.failure.text()));
    QVERIFY(second.apply(Plan(), QString()).failure);
}

void TestUnitWork::refusesAnotherUnit_data()
{
    QTest::addColumn<quint64>("expectedSerial");
    QTest::addColumn<int>("expectedModel");
    QTest::addColumn<QString>("reason");
    QTest::newRow("serial number")
        << quint64(7) << 0x7209
        << QStringLiteral("the unit there has the serial number 310000001; 7 was expected");
    QTest::newRow("model") << serialNumber << 0x1
                           << QStringLiteral(
                                  "the unit there is of model 0x7209; 0x0001 was expected");
}

void TestUnitWork::refusesAnotherUnit()
{
    QFETCH(quint64, expectedSerial);
    QFETCH(int, expectedModel);
    QFETCH(QString, reason);
    Site site;
    site.options.serialNumber = expectedSerial;
    site.options.modelId = expectedModel;
    UnitWork work(site.address(), site.options);
    const QString text =
        site.filled(QStringLiteral("UNIT: %1\n"
                                   "find out which unit has which address; nothing was changed")
                        .arg(reason));
    QCOMPARE(work.readDevice().failure.text(), text);
    QCOMPARE(work.read().failure.text(), text);
    QCOMPARE(work.run(UnitRequest::reset(true)).failure.text(), text);
    // The number of the other unit is free.
    UnitLock lock(site.options.folders.locks);
    QString error;
    QVERIFY2(lock.takeSerial(serialNumber, error), qPrintable(error));
}

/** What was not begun is as before, and not unknown. */
void TestUnitWork::abortsBetweenTables()
{
    Site site;
    UnitWork work(site.address(), site.options);
    const Contents held = work.read().contents;
    const WorkResult result = work.apply(
        makePlan(changed(held, allTables), held), QString(), [&](const WorkProgress& progress) {
            // The last exchange of its table: the call has nothing more to send.
            if (progress.unit.part == UnitProgress::IoLines)
                work.abort();
        });
    QVERIFY(result.failure.error == LinkError::Cancelled);
    QCOMPARE(namesOf(result.tables), QStringLiteral("config new, events old, triggers old"));
}

void TestUnitWork::aborts_data()
{
    QTest::addColumn<int>("phase");
    QTest::addColumn<QString>("text");
    QTest::newRow("while reading")
        << int(WorkProgress::Reading) << "UNIT: cancelled\nfailed while reading ";
    QTest::newRow("while writing")
        << int(WorkProgress::Writing) << "UNIT: cancelled\nfailed while writing ";
    QTest::newRow("while reading back")
        << int(WorkProgress::ReadingBack) << "UNIT: cancelled\nfailed while reading back ";
}

void TestUnitWork::aborts()
{
    QFETCH(int, phase);
    QFETCH(QString, text);
    Site site;
    // The unit is still at work when the abort comes.
    site.unit.at([](ControlUnit&, UnitServer& server) { server.setLatency(5); });
    UnitWork work(site.address(), site.options);
    const auto abort = [&](const WorkProgress& progress) {
        if (progress.phase == phase)
            std::thread([&work] { work.abort(); }).join();
    };
    WorkResult result = work.read(abort);
    if (!result.failure)
        result = work.apply(
            makePlan(changed(result.contents, allTables), result.contents), QString(), abort);
    QVERIFY2(
        result.failure.text().startsWith(site.filled(text)), qPrintable(result.failure.text()));
    QVERIFY(result.failure.error == LinkError::Cancelled);

    const quint64 replies = site.replies();
    QVERIFY(work.read().failure.error == LinkError::Cancelled);
    QVERIFY(site.replies() <= replies + 1);
}

void TestUnitWork::runsOtherOperations()
{
    Site site;
    UnitWork work(site.address(), site.options);
    const QDateTime time(QDate(2026, 11, 14), QTime(6, 5, 49));
    const WorkResult set = work.run(UnitRequest::setClock(time));
    QCOMPARE(set.failure.text(), QString());
    const WorkResult read = work.run(UnitRequest::readClock());
    QCOMPARE(read.failure.text(), QString());
    QVERIFY2(read.contents.clock.value().startsWith(QStringLiteral("2026/11/14 06:0")),
        qPrintable(*read.contents.clock));
    // The unit was asked who it is before anything was changed.
    UnitLock lock(site.options.folders.locks);
    QString error;
    QVERIFY(!lock.takeSerial(serialNumber, error));

    const WorkResult bad = work.run(UnitRequest::setClock(QDateTime()));
    QCOMPARE(bad.failure.text(),
        site.filled(QStringLiteral("UNIT: a unit's clock runs from 2000 to 2099\n"
                                   "failed while setting the clock")));
}

void TestUnitWork::breaksOtherOperationsOff_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<QString>("step");
    QTest::newRow("read the clock") << 0 << "reading the clock";
    QTest::newRow("set the clock") << 1 << "setting the clock";
    QTest::newRow("address") << 2 << "setting the network address";
    QTest::newRow("restart") << 3 << "restarting the unit";
    QTest::newRow("remark") << 4 << "writing the remark";
}

void TestUnitWork::breaksOtherOperationsOff()
{
    QFETCH(int, operation);
    QFETCH(QString, step);
    const QString ip = QStringLiteral("10.0.0.1");
    const QList<UnitRequest> requests{UnitRequest::readClock(),
        UnitRequest::setClock(QDateTime(QDate(2026, 11, 14), QTime(6, 5))),
        UnitRequest::setNetwork(ip, QStringLiteral("255.0.0.0"), ip), UnitRequest::reset(true),
        UnitRequest::writeRemark(QByteArray(90, 'r'))};
    Site site;
    UnitWork work(site.address(), site.options);
    QCOMPARE(work.readDevice().failure.text(), QString());
    site.breakReply(FaultKind::Cut, 1);
    QCOMPARE(work.run(requests.at(operation)).failure.text(),
        site.filled(QStringLiteral("UNIT closed the connection in the middle of a reply\n"
                                   "failed while ")
            + step));
}

void TestUnitWork::upgrades_data()
{
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("text");
    QTest::newRow("as the descriptor says") << "1.0.0.1"
                                            << "";
    QTest::newRow("without a descriptor") << ""
                                          << "";
    QTest::newRow("to another version")
        << "1.0.0.2"
        << "UNIT: the unit came back with version 1.0.0.1, and F says 1.0.0.2\n"
           "check the images and the descriptor; then run the upgrade again";
}

void TestUnitWork::upgrades()
{
    QFETCH(QString, expected);
    QFETCH(QString, text);
    Site site;
    site.unit.at([](ControlUnit&, UnitServer& server) { server.setRestartTime(100); });
    UpgradeImages images{QByteArray(5000, '\1'), QByteArray(3000, '\2'), std::nullopt};
    if (!expected.isEmpty())
        images.descriptor =
            UpgradeDescriptor{QStringLiteral("F"), QStringLiteral("0x7209"), expected};
    UnitWork work(site.address(), site.options);
    QSet<QString> steps;
    const WorkResult result = work.upgrade(images, patience,
        [&steps](const WorkProgress& progress) { steps.insert(progress.text()); });
    QCOMPARE(result.failure.text(), site.filled(text));
    QCOMPARE(result.contents.device.value().version, QStringLiteral("1.0.0.1"));
    QVERIFY(steps.contains(QStringLiteral("writing the images, 100 % sent")));
    QVERIFY(steps.contains(QStringLiteral("waiting until the unit is back")));
    QByteArray streamed;
    site.unit.at(
        [&](ControlUnit& unit, UnitServer&) { streamed = unit.upgrade().streamedImage(); });
    QCOMPARE(streamed, images.streamed);
}

void TestUnitWork::breaksAnUpgradeOff()
{
    Site site;
    UnitWork work(site.address(), site.options);
    site.breakReply(FaultKind::Cut, 7);
    const WorkResult result =
        work.upgrade({QByteArray(5000, '\1'), QByteArray(3000, '\2'), std::nullopt}, patience);
    QCOMPARE(result.failure.text(),
        site.filled(QStringLiteral("UNIT closed the connection in the middle of a reply\n"
                                   "failed while writing the images, 25 % sent\n"
                                   "the unit may hold half an image\n"
                                   "run the upgrade again, without switching the unit off")));
}

void TestUnitWork::missesTheUnitAfterAnUpgrade()
{
    Site site;
    site.unit.at([](ControlUnit&, UnitServer& server) { server.setRestartTime(patience); });
    UnitWork work(site.address(), site.options);
    const WorkResult result =
        work.upgrade({QByteArray(500, '\1'), QByteArray(300, '\2'), std::nullopt}, 1500);
    QCOMPARE(result.failure.text(),
        site.filled(
            QStringLiteral("UNIT: the unit has not come back within 1.5 s\n"
                           "failed while waiting until the unit is back\n"
                           "both images were sent\n"
                           "look for the unit in the network; it may have got another address")));
}

void TestUnitWork::abortsTheWaitAfterAnUpgrade()
{
    Site site;
    site.unit.at([](ControlUnit&, UnitServer& server) { server.setRestartTime(patience); });
    UnitWork work(site.address(), site.options);
    const WorkResult result =
        work.upgrade({QByteArray(500, '\1'), QByteArray(300, '\2'), std::nullopt}, patience,
            [&work](const WorkProgress& progress) {
                if (progress.phase == WorkProgress::Waiting)
                    work.abort();
            });
    QCOMPARE(result.failure.text(),
        site.filled(QStringLiteral("UNIT: cancelled\n"
                                   "failed while waiting until the unit is back\n"
                                   "both images were sent\n"
                                   "read the unit's version when it is back")));
    QVERIFY(result.failure.error == LinkError::Cancelled);
}

QTEST_GUILESS_MAIN(TestUnitWork)
#include "tst_unitwork.moc"
