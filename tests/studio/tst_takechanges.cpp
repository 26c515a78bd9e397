// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "samplecontents.h"
#include "workspace/takechanges.h"

#include <contentsdifference.h>

#include <QtCore/QRandomGenerator>
#include <QtTest/QtTest>

using namespace QuadrelDocument;

namespace {

/** Changes a list of records as people do. */
template <class Record, class Change>
void disturb(QVector<Record>& records, QRandomGenerator& random, Change change)
{
    for (int i = 0; i < 6; ++i) {
        const int row = random.bounded(records.size());
        switch (random.bounded(4)) {
        case 0:
            records.remove(row);
            break;
        case 1:
            records.move(row, random.bounded(records.size()));
            break;
        case 2: {
            Record added = records.at(row);
            change(added, random);
            records.insert(random.bounded(records.size()), added);
            break;
        }
        default:
            change(records[row], random);
        }
    }
}

Contents disturbed(const Contents& contents, quint32 seed)
{
    QRandomGenerator random(seed);
    Contents result = contents;
    disturb(*result.events, random, [](Event& event, QRandomGenerator& random) {
        // Two events with one id are an error that nobody can compare.
        static int id = 0;
        event.id = 100 + id++ % 100;
        event.description = QString::number(random.generate());
    });
    disturb(*result.triggers, random, [](Trigger& trigger, QRandomGenerator& random) {
        trigger.description = QString::number(random.generate());
    });
    disturb(*result.timeTriggers, random, [](TimeTrigger& trigger, QRandomGenerator& random) {
        trigger.description = QString::number(random.generate());
    });
    (*result.serialPorts)[1].baudRate = 1200;
    (*result.ioLines)[2].type = 2;
    return result;
}

} // namespace

class TestTakeChanges : public QObject {
    Q_OBJECT

private slots:
    void takesAll_data();
    void takesAll();
    void takesNone();
    void takesOne();
};

void TestTakeChanges::takesAll_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 0; seed < 50; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void TestTakeChanges::takesAll()
{
    QFETCH(quint32, seed);
    const Contents before = sampleContents();
    const Contents after = disturbed(before, seed);
    const Difference difference = compareContents(before, after);
    const Contents taken = takeChanges(before, after, difference.changes);
    const Difference left = compareContents(taken, after);
    QVERIFY2(left.isEmpty(), qPrintable(differenceText(left)));
}

void TestTakeChanges::takesNone()
{
    const Contents before = sampleContents();
    QVERIFY(takeChanges(before, disturbed(before, 0), {}) == before);
}

void TestTakeChanges::takesOne()
{
    const Contents before = sampleContents();
    Contents after = before;
    after.events->removeAt(3);
    (*after.events)[0].description = QStringLiteral("Other");
    const Difference difference = compareContents(before, after);
    QCOMPARE(difference.changes.size(), 2);
    for (const RecordChange& change : difference.changes) {
        const Contents taken = takeChanges(before, after, {change});
        QCOMPARE(compareContents(before, taken).changes.size(), 1);
        QCOMPARE(compareContents(taken, after).changes.size(), 1);
    }
}

QTEST_APPLESS_MAIN(TestTakeChanges)
#include "tst_takechanges.moc"
