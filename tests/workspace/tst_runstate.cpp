// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "runstate.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

using namespace QuadrelWorkspace;

namespace {

RunState sampleState()
{
    RunState state;
    state.command = QStringLiteral("site write --tag hall");
    state.begun = QDateTime(QDate(2026, 11, 21), QTime(9, 30), Qt::UTC);
    state.units = {{QStringLiteral("hall-1"), UnitState::Waiting, {}, {}},
        {QStringLiteral("大厅"), UnitState::Waiting, {}, {}},
        {QStringLiteral("no"), UnitState::Waiting, {}, {}},
        {QStringLiteral("bar"), UnitState::Waiting, {}, {}}};
    state.set(QStringLiteral("hall-1"), UnitState::Done);
    state.set(QStringLiteral("大厅"), UnitState::Failed, QStringLiteral("no\nanswer: \"x\""));
    state.set(QStringLiteral("no"), UnitState::AtWork);
    return state;
}

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestRunState : public QObject {
    Q_OBJECT

private slots:
    void saysItInWords();
    void comesBack();
    void leavesOutWhatIsNotKnown();
    void cutsBetweenCharacters();
    void knowsItsUnits();
    void refuses_data();
    void refuses();
    void tellsAFailure();
};

void TestRunState::saysItInWords()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("run.yaml"));
    QCOMPARE(saveRunState(path, sampleState()), QString());
    QCOMPARE(QString::fromUtf8(contentsOf(path)),
        QStringLiteral("format: quadrel-run/1\n"
                       "command: \"site write --tag hall\"\n"
                       "begun: 2026-11-21T09:30:00Z\n"
                       "units:\n"
                       "  - name: \"hall-1\"\n"
                       "    state: done\n"
                       "  - name: \"大厅\"\n"
                       "    state: failed\n"
                       "    reason: \"no answer: \\\"x\\\"\"\n"
                       "  - name: \"no\"\n"
                       "    state: at work\n"
                       "  - name: \"bar\"\n"
                       "    state: waiting\n"));
}

void TestRunState::comesBack()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("run.yaml"));
    const RunState saved = sampleState();
    QCOMPARE(saveRunState(path, saved), QString());
    const LoadedRunState loaded = loadRunState(path);
    QCOMPARE(loaded.errors, QStringList());
    QCOMPARE(loaded.state.command, saved.command);
    QCOMPARE(loaded.state.begun, saved.begun);
    QCOMPARE(loaded.state.units.size(), saved.units.size());
    for (int i = 0; i < saved.units.size(); ++i) {
        QCOMPARE(loaded.state.units.at(i).name, saved.units.at(i).name);
        QCOMPARE(loaded.state.units.at(i).state, saved.units.at(i).state);
        QCOMPARE(loaded.state.units.at(i).reason, saved.units.at(i).reason);
    }
}

void TestRunState::leavesOutWhatIsNotKnown()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("run.yaml"));
    QCOMPARE(saveRunState(path, RunState()), QString());
    QCOMPARE(
        QString::fromUtf8(contentsOf(path)), QStringLiteral("format: quadrel-run/1\nunits: []\n"));
    const LoadedRunState loaded = loadRunState(path);
    QCOMPARE(loaded.errors, QStringList());
    QCOMPARE(loaded.state.command, QString());
    QVERIFY(!loaded.state.begun.isValid());
}

/** A long reason is cut, but not in the middle of a character of two code units. */
void TestRunState::cutsBetweenCharacters()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("run.yaml"));
    for (const int before : {0, 1}) {
        RunState state = sampleState();
        const QString smile = QString::fromUtf8("\xF0\x9F\x98\x80");
        state.set(state.units.first().name, UnitState::Failed,
            QString(before, QLatin1Char('x')) + smile.repeated(1000));
        QCOMPARE(saveRunState(path, state), QString());
        const LoadedRunState loaded = loadRunState(path);
        QCOMPARE(loaded.errors, QStringList());
        QCOMPARE(loaded.state.units.first().reason, state.units.first().reason);
    }
}

void TestRunState::knowsItsUnits()
{
    RunState state = sampleState();
    QCOMPARE(state.namesIn(UnitState::Done), QStringList{QStringLiteral("hall-1")});
    QCOMPARE(state.namesIn(UnitState::Waiting), QStringList{QStringLiteral("bar")});
    QVERIFY(!state.isOver());
    state.set(QStringLiteral("another"), UnitState::Done);
    QCOMPARE(state.units.size(), 4);
    for (const UnitRunState& unit : sampleState().units)
        state.set(unit.name, UnitState::Done);
    QVERIFY(state.isOver());
    QCOMPARE(state.units.at(1).reason, QString());
}

void TestRunState::refuses_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("error");
    QTest::newRow("another file") << QByteArray("units: []")
                                  << "1:1: this is not the state of a run: \"format\" is missing";
    QTest::newRow("another format")
        << QByteArray("format: quadrel-run/2")
        << "1:9: \"format\" is \"quadrel-run/2\"; allowed are quadrel-run/1";
    QTest::newRow("key") << QByteArray("format: quadrel-run/1\nunit: []")
                         << "2:1: unknown key \"unit\"; known are format, command, begun, units";
    QTest::newRow("state")
        << QByteArray("format: quadrel-run/1\nunits: [{name: a, state: over}]")
        << "2:26: \"state\" is \"over\"; allowed are waiting, at work, done, failed";
    QTest::newRow("name")
        << QByteArray("format: quadrel-run/1\nunits: [{name: ../a, state: done}]")
        << "2:9: \"../a\" is not a name; a name has 1 to 64 letters, digits, \"-\", "
           "\"_\" and \".\", and does not begin with \"-\" or \".\"";
}

void TestRunState::refuses()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, error);
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("run.yaml")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), text.size());
    file.close();
    QCOMPARE(loadRunState(file.fileName()).errors,
        QStringList{file.fileName() + QLatin1Char(':') + error});
}

void TestRunState::tellsAFailure()
{
    const QTemporaryDir folder;
    const QString missing = folder.filePath(QStringLiteral("a/run.yaml"));
    QVERIFY(!saveRunState(missing, sampleState()).isEmpty());
    QCOMPARE(loadRunState(missing).errors,
        QStringList{missing + QStringLiteral(": No such file or directory")});
}

QTEST_GUILESS_MAIN(TestRunState)
#include "tst_runstate.moc"
