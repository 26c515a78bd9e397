// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "contexttranslator.h"
#include "devicemodel.h"
#include "eventmodel.h"
#include "packagedevice.h"
#include "packageevent.h"
#include "packagetimetrigger.h"
#include "packagetrigger.h"
#include "protocolcreate.h"
#include "replyframes.h"
#include "systemmodel.h"
#include "triggermodel.h"
#include "triggertimemodel.h"

#include <QtCore/QCoreApplication>
#include <QtTest/QTest>

namespace {

constexpr uint dataType = 0xF0010001;
constexpr int slotSize = 512;

} // namespace

/** What an application with a translation sees: each text in the context of the class it is from.
 */
class TestCodecMessages : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void faultsAreOfTheClass();
    void eventWordsAreOfTheClass();
    void levelsAreOfTheClass();
    void endlessIsNoMessage();

private:
    ContextTranslator m_translator;
};

void TestCodecMessages::initTestCase()
{
    QVERIFY(QCoreApplication::installTranslator(&m_translator));
}

void TestCodecMessages::faultsAreOfTheClass()
{
    const QString tooShort = QStringLiteral("|数据包长度小于最小数据包长度！");
    const QByteArray frame(19, '\0');
    QString error;

    DeviceModel device;
    QVERIFY(!PackageDevice::parseDevicePackage(dataType, frame, slotSize, device, error));
    QCOMPARE(error, QStringLiteral("PackageDevice") + tooShort);
    SystemModel system;
    QVERIFY(!ProtocolCreate::parseConfigPackage(dataType, frame, slotSize, system, error));
    QCOMPARE(error, QStringLiteral("ProtocolCreate") + tooShort);
    EventModel events;
    QVERIFY(!PackageEvent::parseEventPackage(dataType, frame, slotSize, events, error));
    QCOMPARE(error, QStringLiteral("PackageEvent") + tooShort);
    TriggerModel triggers;
    QVERIFY(!PackageTrigger::parseTriggerPackage(dataType, frame, slotSize, triggers, error));
    QCOMPARE(error, QStringLiteral("PackageTrigger") + tooShort);
    TriggerTimeModel timeTriggers;
    QVERIFY(!PackageTimeTrigger::parseTimeTriggerPackage(
        dataType, frame, slotSize, timeTriggers, error));
    QCOMPARE(error, QStringLiteral("PackageTimeTrigger") + tooShort);
}

void TestCodecMessages::eventWordsAreOfTheClass()
{
    QString error;
    TriggerModel triggers;
    const QByteArray serial = hex("0b00 4c0100 2510 0352 01 1000 00 02 0307 00");
    QVERIFY(PackageTrigger::parseTriggerPackage(
        dataType, replyFrame(dataType, slotOf(serial)), slotSize, triggers, error));
    QCOMPARE(triggers.at(0).getTriggerEvent(),
        QStringLiteral("PackageTrigger|(ID:3PackageTrigger|)PackageTrigger|;"
                       "PackageTrigger|(ID:7PackageTrigger|)"));

    TriggerTimeModel timeTriggers;
    const QByteArray timed = hex("1100 4c0100 a504 02 240307 0805 ffffff 0805 05 01 03 00");
    QVERIFY(PackageTimeTrigger::parseTimeTriggerPackage(
        dataType, replyFrame(dataType, slotOf(timed)), slotSize, timeTriggers, error));
    QCOMPARE(timeTriggers.at(0).getTriggerEvent(),
        QStringLiteral("PackageTimeTrigger|(ID:3PackageTimeTrigger|)"));
}

void TestCodecMessages::levelsAreOfTheClass()
{
    const QString untranslated = QStringLiteral("输入-高电平");
    const QString translated = QStringLiteral("PackageTrigger|输入-高电平");
    TriggerInfo info;
    info.setTriggerType(TriggerInfo::IO);
    info.setTriggerParameter(translated);
    const QByteArray high = PackageTrigger::createTriggerPackage(info);
    QCOMPARE(high.at(11), '\x01');
    info.setTriggerParameter(untranslated);
    QCOMPARE(PackageTrigger::createTriggerPackage(info).at(11), '\0');

    TriggerModel model;
    QString error;
    QVERIFY(PackageTrigger::parseTriggerPackage(
        dataType, replyFrame(dataType, high), slotSize, model, error));
    QCOMPARE(model.at(0).getTriggerParameter(), translated);
}

void TestCodecMessages::endlessIsNoMessage()
{
    TriggerTimeInfo info;
    info.setEndDate(QStringLiteral("永久有效"));
    const QByteArray block = PackageTimeTrigger::createTimeTriggerPackage(info);
    QCOMPARE(block.mid(13, 3), hex("ffffff"));
    TriggerTimeModel model;
    QString error;
    QVERIFY(PackageTimeTrigger::parseTimeTriggerPackage(
        dataType, replyFrame(dataType, block), slotSize, model, error));
    QCOMPARE(model.at(0).getEndDate(), QStringLiteral("永久有效"));
}

QTEST_GUILESS_MAIN(TestCodecMessages)
#include "tst_codecmessages.moc"
