// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "searchdevice.h"

#include <QtCore/QMetaMethod>
#include <QtCore/QMetaType>
#include <QtTest/QtTest>

#include <cstddef>
#include <type_traits>

/**
 * What can be tested without a search. A search broadcasts on every interface of the machine, so no
 * test here may start one; tst_discovery does, in networks of its own.
 */
class TestSearchDevice : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void metaObject();
    void ordinaryMembers();
    void recordDefaults();
    void recordLayout();
    void recordIsAValue();
    void singletonIsMadeAtLoad();
    void addServer();
    void addServerKeepsTheFirst();
    void serversAreInOrderOfTheirText();
    void stopReportsACopy();
    void withoutSockets();
};

namespace {

using Units = QMap<QString, serverData>;

Units unitsOf(SearchDevice& search)
{
    Units units;
    const QMetaObject::Connection connection =
        QObject::connect(&search, &SearchDevice::signal_updateDeviceList,
            [&units](const Units& reported) { units = reported; });
    search.stopSearchDevice();
    QObject::disconnect(connection);
    return units;
}

} // namespace

void TestSearchDevice::metaObject()
{
    const QMetaObject& table = SearchDevice::staticMetaObject;
    QCOMPARE(table.className(), "SearchDevice");
    QCOMPARE(table.superClass(), &QObject::staticMetaObject);
    QCOMPARE(table.methodCount() - table.methodOffset(), 3);
    QCOMPARE(table.propertyCount() - table.propertyOffset(), 0);
    QCOMPARE(table.enumeratorCount() - table.enumeratorOffset(), 0);
    QCOMPARE(table.constructorCount(), 0);
    QCOMPARE(table.classInfoCount() - table.classInfoOffset(), 0);

    const QMetaMethod result = table.method(table.methodOffset());
    QCOMPARE(result.methodType(), QMetaMethod::Signal);
    QCOMPARE(result.methodSignature(),
        QByteArray("signal_updateDeviceList(QMap<QString,serverData>,QString)"));
    QCOMPARE(result.parameterNames(), QByteArrayList({"", ""}));
    QCOMPARE(result.typeName(), "void");

    const QMetaMethod sweep = table.method(table.methodOffset() + 1);
    QCOMPARE(sweep.methodType(), QMetaMethod::Slot);
    QCOMPARE(sweep.access(), QMetaMethod::Public);
    QCOMPARE(sweep.methodSignature(), QByteArray("slot_timeout()"));
    QCOMPARE(sweep.typeName(), "void");

    const QMetaMethod search = table.method(table.methodOffset() + 2);
    QCOMPARE(search.methodType(), QMetaMethod::Slot);
    QCOMPARE(search.access(), QMetaMethod::Public);
    QCOMPARE(search.methodSignature(), QByteArray("slot_searchDevice(QString)"));
    QCOMPARE(search.parameterNames(), QByteArrayList({"connectDevcie"}));
    QCOMPARE(search.typeName(), "void");
}

void TestSearchDevice::ordinaryMembers()
{
    QVERIFY((std::is_same_v<decltype(&SearchDevice::searchDevice), void (SearchDevice::*)()>));
    QVERIFY((std::is_same_v<decltype(&SearchDevice::slot_searchDevice),
        void (SearchDevice::*)(QString)>));
    QVERIFY((std::is_same_v<decltype(&SearchDevice::slot_timeout), void (SearchDevice::*)()>));
    QVERIFY((std::is_same_v<decltype(&SearchDevice::stopSearchDevice), void (SearchDevice::*)()>));
    QVERIFY((std::is_same_v<decltype(&SearchDevice::deleteUdpObject), void (SearchDevice::*)()>));
    QVERIFY((std::is_same_v<decltype(&SearchDevice::AddServer),
        void (SearchDevice::*)(const QString&, unsigned short)>));
    QVERIFY((std::is_same_v<decltype(&SearchDevice::signal_updateDeviceList),
        void (SearchDevice::*)(QMap<QString, serverData>, QString)>));
    QVERIFY((std::is_same_v<decltype(&SearchDevice::Instance), SearchDevice* (*)()>));
    QVERIFY((std::is_constructible_v<SearchDevice, QObject*>));
}

void TestSearchDevice::recordDefaults()
{
    const serverData record;
    QVERIFY(QString(record.ip).isEmpty());
    QVERIFY(QString(record.name).isEmpty());
    QCOMPARE(int(record.port), 1025);
    QCOMPARE(qint64(record.lastSeen), qint64(0));
    QVERIFY(QByteArray(record.data).isEmpty());
    QCOMPARE(int(record.spare1), 0);
    QCOMPARE(int(record.spare2), 0);
    QCOMPARE(int(record.spare3), 0);
}

void TestSearchDevice::recordLayout()
{
    constexpr std::size_t pointer = sizeof(void*);
    QCOMPARE(offsetof(serverData, ip), std::size_t(0));
    QCOMPARE(offsetof(serverData, name), pointer);
    QCOMPARE(offsetof(serverData, port), 2 * pointer);
    QCOMPARE(offsetof(serverData, lastSeen), 2 * pointer + 2);
    QCOMPARE(offsetof(serverData, data), 2 * pointer + 10);
    QCOMPARE(offsetof(serverData, spare1), 3 * pointer + 10);
    QCOMPARE(offsetof(serverData, spare2), 3 * pointer + 11);
    QCOMPARE(offsetof(serverData, spare3), 3 * pointer + 12);
    QCOMPARE(sizeof(serverData), 3 * pointer + 13);
    QCOMPARE(alignof(serverData), std::size_t(1));
    QVERIFY((std::is_same_v<decltype(serverData::port), quint16>));
    QVERIFY((std::is_same_v<decltype(serverData::lastSeen), qint64>));
    QVERIFY((std::is_same_v<decltype(serverData::spare3), quint8>));
}

void TestSearchDevice::recordIsAValue()
{
    serverData record;
    record.ip = QStringLiteral("192.168.1.10");
    record.data = QByteArrayLiteral("Zorbe:3100");
    record.lastSeen = std::numeric_limits<qint64>::max();
    record.spare2 = 255;
    serverData copy = record;
    copy.data = QByteArrayLiteral("other");
    QCOMPARE(QString(copy.ip), QStringLiteral("192.168.1.10"));
    QCOMPARE(qint64(copy.lastSeen), std::numeric_limits<qint64>::max());
    QCOMPARE(int(copy.spare2), 255);
    QCOMPARE(QByteArray(record.data), QByteArray("Zorbe:3100"));
    record = copy;
    QCOMPARE(QByteArray(record.data), QByteArray("other"));
    QCOMPARE(QMetaType::type("serverData"), int(QMetaType::UnknownType));
    QVERIFY(!QMetaTypeId2<serverData>::Defined);
}

void TestSearchDevice::singletonIsMadeAtLoad()
{
    // This test makes no application object, so the singleton was made without one.
    QVERIFY(!QCoreApplication::instance());
    QVERIFY(SearchDevice::Instance());
    QCOMPARE(SearchDevice::Instance(), SearchDevice::Instance());
    const SearchDevice another;
    QVERIFY(SearchDevice::Instance() != &another);
}

void TestSearchDevice::addServer()
{
    SearchDevice search;
    search.AddServer(QStringLiteral("192.168.1.10"), 65535);
    const Units units = unitsOf(search);
    QCOMPARE(units.keys(), QStringList(QStringLiteral("192.168.1.10")));
    const serverData record = units.first();
    QCOMPARE(QString(record.ip), QStringLiteral("192.168.1.10"));
    QCOMPARE(int(record.port), 65535);
    QVERIFY(QString(record.name).isEmpty());
    QCOMPARE(qint64(record.lastSeen), qint64(0));
    QVERIFY(QByteArray(record.data).isEmpty());
}

void TestSearchDevice::addServerKeepsTheFirst()
{
    SearchDevice search;
    search.AddServer(QStringLiteral("192.168.1.10"), 1);
    search.AddServer(QStringLiteral("192.168.1.10"), 2);
    QCOMPARE(unitsOf(search).size(), 1);
    QCOMPARE(int(unitsOf(search).first().port), 1);
}

void TestSearchDevice::serversAreInOrderOfTheirText()
{
    SearchDevice search;
    for (const char* ip : {"192.168.1.9", "fe80::1%eth0", "192.168.1.10", "10.0.0.1", ""})
        search.AddServer(QString::fromLatin1(ip), 3800);
    QCOMPARE(unitsOf(search).keys(),
        QStringList({QString(), QStringLiteral("10.0.0.1"), QStringLiteral("192.168.1.10"),
            QStringLiteral("192.168.1.9"), QStringLiteral("fe80::1%eth0")}));
}

void TestSearchDevice::stopReportsACopy()
{
    SearchDevice search;
    search.AddServer(QStringLiteral("192.168.1.10"), 1);
    Units units = unitsOf(search);
    units.clear();
    QCOMPARE(unitsOf(search).size(), 1);
}

void TestSearchDevice::withoutSockets()
{
    SearchDevice search;
    QString connectDevcie = QStringLiteral("untouched");
    connect(&search, &SearchDevice::signal_updateDeviceList, this,
        [&connectDevcie](const Units&, const QString& handedBack) { connectDevcie = handedBack; });
    search.slot_timeout();
    search.deleteUdpObject();
    search.deleteUdpObject();
    search.slot_timeout();
    QVERIFY(unitsOf(search).isEmpty());
    QCOMPARE(connectDevcie, QString());
}

QTEST_APPLESS_MAIN(TestSearchDevice)

#include "tst_searchdevice.moc"
