// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include <QtTest/QtTest>

#include "recordchecks.h"
#include "systemmodel.h"

namespace {

ComInfo port(int baudRate)
{
    ComInfo port;
    port.setBaudRate(baudRate);
    return port;
}

SystemModel configuration(const QList<ComInfo>& ports, const QList<IOType>& lines)
{
    SystemModel model;
    model.setComInfo(ports);
    model.setIOType(lines);
    return model;
}

} // namespace

class TestSystemModel : public QObject {
    Q_OBJECT

private slots:
    void defaults();
    void listsAreReplaced();
    void equality_data();
    void equality();
    void copiesShareUntilWrite();
    void objectStateStays();
};

void TestSystemModel::defaults()
{
    SystemModel model;
    QVERIFY(model.getComInfo().isEmpty());
    QVERIFY(model.getIOType().isEmpty());
    QVERIFY(!model.parent());
    QVERIFY(model == SystemModel());
    const QMetaObject& meta = SystemModel::staticMetaObject;
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(RecordChecks::ownMethods(meta), 0);
    QCOMPARE(RecordChecks::ownEnumerators(meta), 0);
}

void TestSystemModel::listsAreReplaced()
{
    SystemModel model;
    model.setComInfo({port(9600), port(4800)});
    QCOMPARE(model.getComInfo().size(), 2);
    QCOMPARE(model.getComInfo().at(1).property("baudRate").toInt(), 4800);
    QVERIFY(model.getIOType().isEmpty());
    model.setIOType({IO_TYPE_2, IO_TYPE_0});
    QCOMPARE(model.getIOType(), QList<IOType>({IO_TYPE_2, IO_TYPE_0}));
    QCOMPARE(model.getComInfo().size(), 2);

    QList<ComInfo> ports = model.getComInfo();
    ports.clear();
    QCOMPARE(model.getComInfo().size(), 2);

    model.setComInfo({});
    model.setIOType({IO_TYPE_1});
    QVERIFY(model.getComInfo().isEmpty());
    QCOMPARE(model.getIOType(), QList<IOType>({IO_TYPE_1}));
}

void TestSystemModel::equality_data()
{
    using Ports = QList<int>;
    using Lines = QList<int>;
    QTest::addColumn<Ports>("ports");
    QTest::addColumn<Lines>("lines");
    QTest::addColumn<bool>("equal");
    const Ports ports{9600, 4800};
    const Lines lines{IO_TYPE_0, IO_TYPE_1};
    QTest::newRow("the same lists") << ports << lines << true;
    QTest::newRow("other lists of the same content")
        << Ports{9600, 4800} << Lines{IO_TYPE_0, IO_TYPE_1} << true;
    QTest::newRow("ports in another order") << Ports{4800, 9600} << lines << false;
    QTest::newRow("another port") << Ports{9600, 1200} << lines << false;
    QTest::newRow("fewer ports") << Ports{9600} << lines << false;
    QTest::newRow("no ports") << Ports() << lines << false;
    QTest::newRow("lines in another order") << ports << Lines{IO_TYPE_1, IO_TYPE_0} << false;
    QTest::newRow("another line") << ports << Lines{IO_TYPE_0, IO_TYPE_2} << false;
    QTest::newRow("more lines") << ports << Lines{IO_TYPE_0, IO_TYPE_1, IO_TYPE_1} << false;
    QTest::newRow("no lines") << ports << Lines() << false;
}

void TestSystemModel::equality()
{
    QFETCH(QList<int>, ports);
    QFETCH(QList<int>, lines);
    QFETCH(bool, equal);
    const SystemModel model = configuration({port(9600), port(4800)}, {IO_TYPE_0, IO_TYPE_1});
    QList<ComInfo> otherPorts;
    for (const int baudRate : qAsConst(ports))
        otherPorts.append(port(baudRate));
    QList<IOType> otherLines;
    for (const int line : qAsConst(lines))
        otherLines.append(static_cast<IOType>(line));
    const SystemModel other = configuration(otherPorts, otherLines);
    QCOMPARE(model == other, equal);
    QCOMPARE(other == model, equal);
}

void TestSystemModel::copiesShareUntilWrite()
{
    SystemModel model = configuration({port(9600)}, {IO_TYPE_1});
    SystemModel copy(model);
    QVERIFY(copy == model);
    QVERIFY(copy.getComInfo().isSharedWith(model.getComInfo()));
    QVERIFY(copy.getIOType().isSharedWith(model.getIOType()));
    copy.setComInfo({});
    copy.setIOType({IO_TYPE_2});
    QVERIFY(model == configuration({port(9600)}, {IO_TYPE_1}));

    SystemModel assigned;
    SystemModel& result = (assigned = model);
    QCOMPARE(&result, &assigned);
    QVERIFY(assigned.getComInfo().isSharedWith(model.getComInfo()));
    QVERIFY(assigned.getIOType().isSharedWith(model.getIOType()));
    const SystemModel& alias = assigned;
    assigned = alias;
    QVERIFY(assigned == model);
}

void TestSystemModel::objectStateStays()
{
    RecordChecks::checkObjectStateStays(configuration({port(9600)}, {IO_TYPE_1}));
}

QTEST_APPLESS_MAIN(TestSystemModel)
#include "tst_systemmodel.moc"
