#include "threadedunit.h"
#include "unitsession.h"

#include <QtTest/QtTest>

class TestUnitSession : public QObject {
    Q_OBJECT

private slots:
    void readsAll();
};

void TestUnitSession::readsAll()
{
    const ThreadedUnit unit;
    UnitSession session(unit.address());
    QStringList steps;
    const UnitResult result = session.run(
        UnitRequest::readAll(), [&steps](const UnitProgress& step) { steps.append(step.text()); });
    qDebug() << steps;
    QCOMPARE(result.failure.text, QString());
    UnitData data = result.data;
    QCOMPARE(data.device.getSN(), Q_UINT64_C(310000001));
    QVERIFY(data.events.size() > 0);
}

QTEST_GUILESS_MAIN(TestUnitSession)
#include "tst_unitsession.moc"
