// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "devicemanagermodel.h"
#include "modelmanagement.h"
#include "packageevent.h"
#include "packagetimetrigger.h"
#include "packagetrigger.h"
#include "protocolcreate.h"

#include <QtTest/QTest>

#include <type_traits>

Q_DECLARE_METATYPE(const QMetaObject*)

/**
 * The exact form of each member that an application or the operations link against. A call in some
 * test would compile with another form too: a const getter, a reference for a value, a wider
 * number.
 */
namespace {

/** Compiles only for a member of the very form. */
template <typename Form> constexpr bool is(Form /*member*/)
{
    return true;
}

template <typename Record, typename Value>
constexpr bool areAccessors(void (Record::* /*setter*/)(Value), Value (Record::* /*getter*/)())
{
    return true;
}

/** A record or model that is passed by value. */
template <typename Record> constexpr bool isValue()
{
    static_assert(std::is_base_of_v<QObject, Record>);
    static_assert(std::is_default_constructible_v<Record>);
    static_assert(std::is_copy_constructible_v<Record>);
    return is<Record& (Record::*)(const Record&)>(&Record::operator=)
        && is<bool (Record::*)(const Record&) const>(&Record::operator==);
}

template <typename Model, typename Record> constexpr bool isListModel()
{
    return isValue<Model>() && is<int (Model::*)()>(&Model::size)
        && is<Record (Model::*)(int)>(&Model::at) && is<void (Model::*)()>(&Model::clear)
        && is<void (Model::*)(Record)>(&Model::push_back)
        && is<void (Model::*)(int, Record)>(&Model::insert)
        && is<void (Model::*)(int)>(&Model::removeAt)
        && is<void (Model::*)(int, Record)>(&Model::replace);
}

static_assert(isValue<DeviceModel>());
static_assert(is<bool (DeviceModel::*)(const DeviceModel&) const>(&DeviceModel::operator!=));
static_assert(is<bool (DeviceModel::*)(const DeviceModel&) const>(&DeviceModel::operator<));
static_assert(is<bool (DeviceModel::*)(const DeviceModel&) const>(&DeviceModel::operator<=));
static_assert(
    areAccessors<DeviceModel, unsigned short>(&DeviceModel::setModelId, &DeviceModel::getModelId));
static_assert(
    areAccessors<DeviceModel, unsigned long long>(&DeviceModel::setSN, &DeviceModel::getSN));
static_assert(
    areAccessors<DeviceModel, QString>(&DeviceModel::setVersion, &DeviceModel::getVersion));
static_assert(
    areAccessors<DeviceModel, bool>(&DeviceModel::setDHCPModel, &DeviceModel::getDHCPModel));
static_assert(areAccessors<DeviceModel, QString>(&DeviceModel::setIP, &DeviceModel::getIP));
static_assert(
    areAccessors<DeviceModel, QString>(&DeviceModel::setSubMask, &DeviceModel::getSubMask));
static_assert(
    areAccessors<DeviceModel, QString>(&DeviceModel::setGateWay, &DeviceModel::getGateWay));
static_assert(
    areAccessors<DeviceModel, bool>(&DeviceModel::setEthLinkState, &DeviceModel::getEthLinkState));
static_assert(
    areAccessors<DeviceModel, int>(&DeviceModel::setComNumber, &DeviceModel::getComNumber));
static_assert(areAccessors<DeviceModel, int>(&DeviceModel::setIoNumber, &DeviceModel::getIoNumber));
static_assert(
    areAccessors<DeviceModel, int>(&DeviceModel::setRelayNumber, &DeviceModel::getRelayNumber));
static_assert(areAccessors<DeviceModel, int>(&DeviceModel::setIRNumber, &DeviceModel::getIRNumber));
static_assert(areAccessors<DeviceModel, QString>(&DeviceModel::setName, &DeviceModel::getName));
static_assert(
    areAccessors<DeviceModel, QString>(&DeviceModel::setPattern, &DeviceModel::getPattern));
static_assert(areAccessors<DeviceModel, QString>(&DeviceModel::setType, &DeviceModel::getType));

static_assert(isValue<ProjectInfo>());
static_assert(
    areAccessors<ProjectInfo, QString>(&ProjectInfo::setProjectName, &ProjectInfo::getProjectName));
static_assert(areAccessors<ProjectInfo, QString>(
    &ProjectInfo::setProjectRemark, &ProjectInfo::getProjectRemark));

static_assert(isValue<ComInfo>());
static_assert(areAccessors<ComInfo, int>(&ComInfo::setBaudRate, &ComInfo::getBaudRate));
static_assert(areAccessors<ComInfo, int>(&ComInfo::setDataBits, &ComInfo::getDataBits));
static_assert(areAccessors<ComInfo, int>(&ComInfo::setStopBits, &ComInfo::getStopBits));
static_assert(areAccessors<ComInfo, inspectionType>(
    &ComInfo::setInspectionType, &ComInfo::getInspectionType));

static_assert(isValue<SystemModel>());
static_assert(
    areAccessors<SystemModel, QList<ComInfo>>(&SystemModel::setComInfo, &SystemModel::getComInfo));
static_assert(
    areAccessors<SystemModel, QList<IOType>>(&SystemModel::setIOType, &SystemModel::getIOType));

static_assert(isValue<EventInfo>());
static_assert(areAccessors<EventInfo, int>(&EventInfo::setEventId, &EventInfo::getEventId));
static_assert(areAccessors<EventInfo, EventInfo::EventType>(
    &EventInfo::setEventType, &EventInfo::getEventType));
static_assert(areAccessors<EventInfo, bool>(
    &EventInfo::setEventProtocolType, &EventInfo::getEventProtocolType));
static_assert(
    areAccessors<EventInfo, QString>(&EventInfo::setEventProtocol, &EventInfo::getEventProtocal));
static_assert(areAccessors<EventInfo, QString>(
    &EventInfo::setEventInstruction, &EventInfo::getEventInstruction));
static_assert(areAccessors<EventInfo, QString>(&EventInfo::setEventName, &EventInfo::getEventName));

static_assert(isValue<TriggerInfo>());
static_assert(
    areAccessors<TriggerInfo, int>(&TriggerInfo::setTriggerId, &TriggerInfo::getTriggerId));
static_assert(areAccessors<TriggerInfo, TriggerInfo::TriggerType>(
    &TriggerInfo::setTriggerType, &TriggerInfo::getTriggerType));
static_assert(
    areAccessors<TriggerInfo, COMSelect>(&TriggerInfo::setCOMSelect, &TriggerInfo::getCOMSelect));
static_assert(
    areAccessors<TriggerInfo, IOSelect>(&TriggerInfo::setIOSelect, &TriggerInfo::getIOSelect));
static_assert(areAccessors<TriggerInfo, bool>(
    &TriggerInfo::setTriggerProtocolType, &TriggerInfo::getTriggerProtocolType));
static_assert(areAccessors<TriggerInfo, QString>(
    &TriggerInfo::setTriggerParameter, &TriggerInfo::getTriggerParameter));
static_assert(areAccessors<TriggerInfo, QString>(
    &TriggerInfo::setTriggerEvent, &TriggerInfo::getTriggerEvent));
static_assert(areAccessors<TriggerInfo, QString>(
    &TriggerInfo::setTriggerInstruction, &TriggerInfo::getTriggerInstruction));

static_assert(isValue<TriggerTimeInfo>());
static_assert(areAccessors<TriggerTimeInfo, int>(
    &TriggerTimeInfo::setTriggerId, &TriggerTimeInfo::getTriggerId));
static_assert(areAccessors<TriggerTimeInfo, TriggerTimeInfo::RepetMode>(
    &TriggerTimeInfo::setTriggerType, &TriggerTimeInfo::getTriggerType));
static_assert(areAccessors<TriggerTimeInfo, QString>(
    &TriggerTimeInfo::setStartDate, &TriggerTimeInfo::getStartDate));
static_assert(areAccessors<TriggerTimeInfo, QString>(
    &TriggerTimeInfo::setEndDate, &TriggerTimeInfo::getEndDate));
static_assert(areAccessors<TriggerTimeInfo, QString>(
    &TriggerTimeInfo::setSelectWeekly, &TriggerTimeInfo::getSelectWeekly));
static_assert(areAccessors<TriggerTimeInfo, QString>(
    &TriggerTimeInfo::setTriggerTime, &TriggerTimeInfo::getTriggerTime));
static_assert(areAccessors<TriggerTimeInfo, QString>(
    &TriggerTimeInfo::setTriggerEvent, &TriggerTimeInfo::getTriggerEvent));
static_assert(areAccessors<TriggerTimeInfo, QString>(
    &TriggerTimeInfo::setTriggerInstruction, &TriggerTimeInfo::getTriggerInstruction));

static_assert(isListModel<ProjectModel, ProjectInfo>());
static_assert(areAccessors<ProjectModel, QList<ProjectInfo>>(
    &ProjectModel::setProjectInfo, &ProjectModel::getProjectInfo));
static_assert(isListModel<EventModel, EventInfo>());
static_assert(areAccessors<EventModel, QList<EventInfo>>(
    &EventModel::setEventInfo, &EventModel::getEventInfo));
static_assert(isListModel<TriggerModel, TriggerInfo>());
static_assert(areAccessors<TriggerModel, QList<TriggerInfo>>(
    &TriggerModel::setTriggerInfo, &TriggerModel::getTriggerInfo));
static_assert(isListModel<TriggerTimeModel, TriggerTimeInfo>());
static_assert(areAccessors<TriggerTimeModel, QList<TriggerTimeInfo>>(
    &TriggerTimeModel::setTriggerInfo, &TriggerTimeModel::getTriggerInfo));

static_assert(is<SystemModel* (ModelManagement::*)()>(&ModelManagement::getConfigModel));
static_assert(is<void (ModelManagement::*)(SystemModel)>(&ModelManagement::setConfigModel));
static_assert(is<EventModel* (ModelManagement::*)()>(&ModelManagement::getEventModel));
static_assert(is<void (ModelManagement::*)(EventModel)>(&ModelManagement::setEventModel));
static_assert(is<TriggerModel* (ModelManagement::*)()>(&ModelManagement::getTriggerModel));
static_assert(is<void (ModelManagement::*)(TriggerModel)>(&ModelManagement::setTriggerModel));
static_assert(is<TriggerTimeModel* (ModelManagement::*)()>(&ModelManagement::getTriggerTimeModel));
static_assert(
    is<void (ModelManagement::*)(TriggerTimeModel)>(&ModelManagement::setTriggerTimeModel));
static_assert(is<DeviceModel* (ModelManagement::*)()>(&ModelManagement::getDeviceModel));
static_assert(is<void (ModelManagement::*)(DeviceModel)>(&ModelManagement::setDeviceModel));
static_assert(is<ProjectModel* (ModelManagement::*)()>(&ModelManagement::getProjectModel));
static_assert(is<void (ModelManagement::*)(ProjectModel)>(&ModelManagement::setProjectModel));
static_assert(areAccessors<ModelManagement, bool>(
    &ModelManagement::setTriggerType, &ModelManagement::getTriggerType));
static_assert(is<QString (ModelManagement::*)(QString)>(&ModelManagement::getEventNamefromId));
static_assert(std::is_constructible_v<ModelManagement, QObject*>);

static_assert(is<DeviceManagerModel* (*)()>(&DeviceManagerModel::Instance));
static_assert(std::is_same_v<decltype(DeviceManagerModel::m_pDeviceInstance), DeviceManagerModel*>);
static_assert(std::is_constructible_v<DeviceManagerModel, QObject*>);
static_assert(areAccessors<DeviceManagerModel, DeviceModel>(
    &DeviceManagerModel::setCurrentSelectDevice, &DeviceManagerModel::getCurrentSelectDevice));
static_assert(is<void (DeviceManagerModel::*)(DeviceModel, ModelManagement*)>(
    &DeviceManagerModel::setDeviceData));
static_assert(
    is<ModelManagement* (DeviceManagerModel::*)(DeviceModel)>(&DeviceManagerModel::getDeviceData));
static_assert(is<void (DeviceManagerModel::*)(DeviceModel)>(&DeviceManagerModel::deleteDeviceData));

static_assert(std::is_default_constructible_v<ProtocolCreate>);
static_assert(std::is_constructible_v<ProtocolCreate, QObject*>);
static_assert(is<QByteArray (*)(QList<ComInfo>)>(&ProtocolCreate::createComPackage));
static_assert(is<QByteArray (*)(SystemModel)>(&ProtocolCreate::createComPackage));
static_assert(is<QByteArray (*)(QList<IOType>)>(&ProtocolCreate::createIOPackage));
static_assert(is<QByteArray (*)(SystemModel)>(&ProtocolCreate::createIOPackage));
static_assert(is<bool (*)(uint, QByteArray, uint, SystemModel&, QString&)>(
    &ProtocolCreate::parseConfigPackage));

static_assert(std::is_constructible_v<PackageEvent, QObject*>);
static_assert(is<QByteArray (*)(EventInfo)>(&PackageEvent::createEventPackage));
static_assert(is<QByteArray (*)(EventModel)>(&PackageEvent::createEventListPackage));
static_assert(is<QByteArray (*)(QList<EventInfo>)>(&PackageEvent::createEventListPackage));
static_assert(is<bool (*)(uint, QByteArray, uint, int&, QString&)>(&PackageEvent::parseEventCount));
static_assert(
    is<bool (*)(uint, QByteArray, uint, EventModel&, QString&)>(&PackageEvent::parseEventPackage));
static_assert(is<bool (*)(uint, QByteArray, uint, EventModel&, QString&)>(
    &PackageEvent::parseEventListPackage));

static_assert(std::is_constructible_v<PackageTrigger, QObject*>);
static_assert(is<QByteArray (*)(TriggerInfo)>(&PackageTrigger::createTriggerPackage));
static_assert(is<QByteArray (*)(TriggerModel)>(&PackageTrigger::createTriggerListPackage));
static_assert(is<bool (*)(quint32, QByteArray, int, TriggerModel&, QString&)>(
    &PackageTrigger::parseTriggerPackage));
static_assert(
    is<bool (*)(quint32, QByteArray, int, int&, QString&)>(&PackageTrigger::parseTriggerCount));

static_assert(std::is_constructible_v<PackageTimeTrigger, QObject*>);
static_assert(is<QByteArray (*)(TriggerTimeInfo)>(&PackageTimeTrigger::createTimeTriggerPackage));
static_assert(
    is<QByteArray (*)(TriggerTimeModel)>(&PackageTimeTrigger::createTimeTriggerListPackage));
static_assert(is<bool (*)(quint32, QByteArray, int, TriggerTimeModel&, QString&)>(
    &PackageTimeTrigger::parseTimeTriggerPackage));
static_assert(is<bool (*)(quint32, QByteArray, int, int&, QString&)>(
    &PackageTimeTrigger::parseTimeTriggerCount));
static_assert(is<int (*)(QString)>(&PackageTimeTrigger::weeklyTextToBits));

} // namespace

class TestSignatures : public QObject {
    Q_OBJECT

private slots:
    void namesAreThoseOfTheClasses_data();
    void namesAreThoseOfTheClasses();
};

void TestSignatures::namesAreThoseOfTheClasses_data()
{
    QTest::addColumn<const QMetaObject*>("meta");
    QTest::newRow("DeviceModel") << &DeviceModel::staticMetaObject;
    QTest::newRow("ProjectInfo") << &ProjectInfo::staticMetaObject;
    QTest::newRow("ComInfo") << &ComInfo::staticMetaObject;
    QTest::newRow("SystemModel") << &SystemModel::staticMetaObject;
    QTest::newRow("EventInfo") << &EventInfo::staticMetaObject;
    QTest::newRow("TriggerInfo") << &TriggerInfo::staticMetaObject;
    QTest::newRow("TriggerTimeInfo") << &TriggerTimeInfo::staticMetaObject;
    QTest::newRow("ProjectModel") << &ProjectModel::staticMetaObject;
    QTest::newRow("EventModel") << &EventModel::staticMetaObject;
    QTest::newRow("TriggerModel") << &TriggerModel::staticMetaObject;
    QTest::newRow("TriggerTimeModel") << &TriggerTimeModel::staticMetaObject;
    QTest::newRow("ModelManagement") << &ModelManagement::staticMetaObject;
    QTest::newRow("DeviceManagerModel") << &DeviceManagerModel::staticMetaObject;
    QTest::newRow("ProtocolCreate") << &ProtocolCreate::staticMetaObject;
    QTest::newRow("PackageEvent") << &PackageEvent::staticMetaObject;
    QTest::newRow("PackageTrigger") << &PackageTrigger::staticMetaObject;
    QTest::newRow("PackageTimeTrigger") << &PackageTimeTrigger::staticMetaObject;
}

// The names are the contexts of the translations, too.
void TestSignatures::namesAreThoseOfTheClasses()
{
    QFETCH(const QMetaObject*, meta);
    QCOMPARE(meta->className(), QTest::currentDataTag());
    QCOMPARE(meta->superClass(), &QObject::staticMetaObject);
    QCOMPARE(meta->methodCount(), meta->methodOffset());
}

QTEST_APPLESS_MAIN(TestSignatures)
#include "tst_signatures.moc"
