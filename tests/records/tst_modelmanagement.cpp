// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include <QtTest/QtTest>

#include "modelmanagement.h"
#include "recordchecks.h"

namespace {

EventInfo namedEvent(int id, const char* name)
{
    EventInfo event;
    event.setEventId(id);
    event.setEventName(QString::fromUtf8(name));
    return event;
}

} // namespace

class TestModelManagement : public QObject {
    Q_OBJECT

private slots:
    void startsWithDefaults();
    void hasTheParentItIsGiven();
    void settersAssignIntoTheOwnModels();
    void gettersAllowEditsInPlace();
    void destroysItsModelsInOrder();
    void flagIsKept();
    void eventName_data();
    void eventName();
    void eventNameWithoutEvents_data();
    void eventNameWithoutEvents();
    void eventNameWithoutIdZero();
    void eventNameLeavesTheListShared();
};

void TestModelManagement::startsWithDefaults()
{
    ModelManagement models;
    QVERIFY(!models.parent());
    QVERIFY(*models.getConfigModel() == SystemModel());
    QVERIFY(*models.getEventModel() == EventModel());
    QVERIFY(*models.getTriggerModel() == TriggerModel());
    QVERIFY(*models.getTriggerTimeModel() == TriggerTimeModel());
    QVERIFY(*models.getDeviceModel() == DeviceModel());
    QVERIFY(*models.getProjectModel() == ProjectModel());
    QCOMPARE(models.getTriggerType(), false);
}

void TestModelManagement::hasTheParentItIsGiven()
{
    QObject parent;
    QPointer<ModelManagement> models = new ModelManagement(&parent);
    QCOMPARE(models->parent(), &parent);
    delete models;
    QVERIFY(parent.children().isEmpty());
    const ModelManagement orphan(nullptr);
    QVERIFY(!orphan.parent());
}

void TestModelManagement::settersAssignIntoTheOwnModels()
{
    ModelManagement models;
    SystemModel* const config = models.getConfigModel();
    EventModel* const events = models.getEventModel();
    TriggerModel* const triggers = models.getTriggerModel();
    TriggerTimeModel* const timeTriggers = models.getTriggerTimeModel();
    DeviceModel* const device = models.getDeviceModel();
    ProjectModel* const projects = models.getProjectModel();

    SystemModel givenConfig;
    givenConfig.setComInfo({ComInfo()});
    EventModel givenEvents;
    givenEvents.push_back(EventInfo());
    TriggerModel givenTriggers;
    givenTriggers.push_back(TriggerInfo());
    TriggerTimeModel givenTimeTriggers;
    givenTimeTriggers.push_back(TriggerTimeInfo());
    DeviceModel givenDevice;
    givenDevice.setSN(9);
    ProjectModel givenProjects;
    givenProjects.push_back(ProjectInfo());

    models.setConfigModel(givenConfig);
    models.setEventModel(givenEvents);
    models.setTriggerModel(givenTriggers);
    models.setTriggerTimeModel(givenTimeTriggers);
    models.setDeviceModel(givenDevice);
    models.setProjectModel(givenProjects);

    QCOMPARE(models.getConfigModel(), config);
    QCOMPARE(models.getEventModel(), events);
    QCOMPARE(models.getTriggerModel(), triggers);
    QCOMPARE(models.getTriggerTimeModel(), timeTriggers);
    QCOMPARE(models.getDeviceModel(), device);
    QCOMPARE(models.getProjectModel(), projects);
    QVERIFY(*config == givenConfig);
    QVERIFY(*events == givenEvents);
    QVERIFY(*triggers == givenTriggers);
    QVERIFY(*timeTriggers == givenTimeTriggers);
    QVERIFY(*device == givenDevice);
    QVERIFY(*projects == givenProjects);

    givenEvents.clear();
    QCOMPARE(events->size(), 1);
}

void TestModelManagement::gettersAllowEditsInPlace()
{
    ModelManagement models;
    models.getDeviceModel()->setName(QStringLiteral("name"));
    models.getEventModel()->push_back(namedEvent(4, "four"));
    QCOMPARE(models.getDeviceModel()->getName(), QStringLiteral("name"));
    QCOMPARE(models.getEventNamefromId(QStringLiteral("ID:4)")), QStringLiteral("four"));
}

void TestModelManagement::destroysItsModelsInOrder()
{
    QStringList destroyed;
    {
        ModelManagement models;
        const auto record = [&](QObject* model, const char* name) {
            connect(model, &QObject::destroyed, this,
                [&destroyed, name] { destroyed.append(QString::fromLatin1(name)); });
        };
        record(models.getProjectModel(), "projects");
        record(models.getDeviceModel(), "device");
        record(models.getTriggerTimeModel(), "time triggers");
        record(models.getTriggerModel(), "triggers");
        record(models.getEventModel(), "events");
        record(models.getConfigModel(), "configuration");
    }
    QCOMPARE(destroyed,
        QStringList({QStringLiteral("configuration"), QStringLiteral("events"),
            QStringLiteral("triggers"), QStringLiteral("time triggers"), QStringLiteral("device"),
            QStringLiteral("projects")}));
}

void TestModelManagement::flagIsKept()
{
    ModelManagement models;
    models.setTriggerType(true);
    QCOMPARE(models.getTriggerType(), true);
    models.setTriggerType(false);
    QCOMPARE(models.getTriggerType(), false);
}

void TestModelManagement::eventName_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");
    const QString none;
    const QString zero = QStringLiteral("zero");
    const QString three = QStringLiteral("first three");
    const QString seven = QStringLiteral("seven");
    const QString twelve = QStringLiteral("十二");
    const QString minusFour = QStringLiteral("minus four");

    const auto row = [](const char* text, const QString& name) {
        QTest::newRow(*text ? text : "empty") << QString::fromUtf8(text) << name;
    };
    row("事件(ID:3)", three);
    row("[事件(ID:12)]", twelve);
    row("[事件(ID:012)]", twelve);
    row("ID:99)", none);

    // What is between "ID:" and ")" is converted as it is.
    row("ID: 7 )", seven);
    row("ID:+7)", seven);
    row("ID:-4)", minusFour);
    row("ID:)", zero);
    row("ID:x)", zero);
    row("ID:7x)", zero);
    row("ID:0x7)", zero);
    row("ID:7.0)", zero);
    row("ID:99999999999)", zero);

    // Only the first "ID:" counts, and only a ")" after it.
    row("ID:7)ID:3)", seven);
    row("ID:x)ID:3)", zero);
    row("ID:ID:3)", zero);
    row(")ID:3)", three);
    row("(3)[事件(ID:7)]", seven);

    // Without ")" the number runs to the end.
    row("ID:7", seven);
    row(")ID:7", seven);
    row("ID:", zero);
    row("ID:7]", zero);

    // Without "ID:" the text is read from its third character, up to a ")" at its very end.
    row("", zero);
    row("I", zero);
    row(")", zero);
    row("no number", zero);
    row("id:3)", zero);
    row("7", zero);
    row("7)", zero);
    row("ab7", seven);
    row("ab7)", seven);
    row("ab12)", twelve);
    row("ab7)x", zero);
    row("ab)7", zero);
}

void TestModelManagement::eventName()
{
    QFETCH(QString, text);
    QFETCH(QString, name);
    ModelManagement models;
    EventModel events;
    events.push_back(namedEvent(1, "one"));
    events.push_back(namedEvent(3, "first three"));
    events.push_back(namedEvent(3, "second three"));
    events.push_back(namedEvent(12, "十二"));
    events.push_back(namedEvent(7, "seven"));
    events.push_back(namedEvent(0, "zero"));
    events.push_back(namedEvent(-4, "minus four"));
    models.setEventModel(events);
    QCOMPARE(models.getEventNamefromId(text), name);
}

void TestModelManagement::eventNameWithoutEvents_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"", "事件(ID:3)", "ID:0)", "no number"})
        QTest::newRow(*text ? text : "empty") << QString::fromUtf8(text);
}

void TestModelManagement::eventNameWithoutEvents()
{
    QFETCH(QString, text);
    ModelManagement models;
    QVERIFY(models.getEventNamefromId(text).isEmpty());
}

void TestModelManagement::eventNameWithoutIdZero()
{
    ModelManagement models;
    models.getEventModel()->push_back(namedEvent(1, "one"));
    QVERIFY(models.getEventNamefromId(QStringLiteral("no number")).isEmpty());
    QVERIFY(models.getEventNamefromId(QString()).isEmpty());
}

void TestModelManagement::eventNameLeavesTheListShared()
{
    ModelManagement models;
    EventModel events;
    events.push_back(namedEvent(1, "one"));
    models.setEventModel(events);
    QCOMPARE(models.getEventNamefromId(QStringLiteral("ID:1)")), QStringLiteral("one"));
    QVERIFY(models.getEventModel()->getEventInfo().isSharedWith(events.getEventInfo()));
}

QTEST_APPLESS_MAIN(TestModelManagement)
#include "tst_modelmanagement.moc"
