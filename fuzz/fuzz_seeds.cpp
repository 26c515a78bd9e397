// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// fuzz_seeds FOLDER   writes the first inputs of each fuzz target, made from the sample unit and
// the library's own writers.

#include "controlunit.h"
#include "devicemodel.h"
#include "hostilefiles.h"
#include "memorycontents.h"
#include "packageevent.h"
#include "packagetimetrigger.h"
#include "packagetrigger.h"
#include "protocolcreate.h"
#include "replyframes.h"
#include "unitaddresses.h"
#include "unitdocument.h"
#include "unitmemoryfile.h"
#include "unitsample.h"
#include "xmlfile.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>

using namespace QuadrelUnit;

namespace {

QString root;

QString seedPath(const char* target, int number)
{
    const QString folder = root + QLatin1Char('/') + QLatin1String(target);
    if (!QDir().mkpath(folder))
        qFatal("cannot make %s", qPrintable(folder));
    return folder + QStringLiteral("/seed-%1").arg(number);
}

void writeSeed(const char* target, int number, const QByteArray& content)
{
    QFile file(seedPath(target, number));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
}

/** The payload with the form byte in front; and as a whole frame, whose head may then change. */
void writeReplySeeds(const char* target, int number, const QByteArray& prefix, quint32 address,
    const QByteArray& payload)
{
    writeSeed(target, 2 * number, prefix + '\0' + payload);
    writeSeed(target, 2 * number + 1, prefix + '\1' + replyFrame(address, payload));
}

struct Table {
    quint32 countAddress;
    QByteArray count;
    QList<QByteArray> records;
};

Table readTable(const UnitMemory& memory, quint32 countAddress)
{
    Table table{countAddress, memory.read(countAddress, 1), {}};
    for (int i = 0; i < static_cast<quint8>(table.count.at(0)); ++i)
        table.records.append(memory.read(countAddress + 1 + 512U * static_cast<quint32>(i), 512));
    return table;
}

void writeTableSeeds(const Table& table, std::initializer_list<const char*> targets)
{
    for (const char* target : targets) {
        int number = 0;
        for (const QByteArray& record : table.records)
            writeReplySeeds(target, number++, QByteArray(), table.countAddress + 1, record);
    }
}

void writeCountSeeds(const Table& events, const Table& triggers)
{
    for (int table = 0; table < 3; ++table) {
        const Table& counted = table == 0 ? events : triggers;
        writeReplySeeds("counts", table, QByteArray(1, static_cast<char>(table)),
            counted.countAddress, counted.count);
    }
}

void writeEventListSeeds(const Table& events)
{
    QByteArray payload = events.count;
    for (const QByteArray& record : events.records)
        payload += record;
    const QByteArray length =
        QByteArray(1, static_cast<char>(payload.size())) + static_cast<char>(payload.size() >> 8);
    writeSeed("eventlist", 0, '\2' + length + payload);
    writeSeed("eventlist", 1, '\0' + QByteArray(1, '\1') + events.records.first());
}

/** A whole read in which each reply follows its form byte. */
void writeReadSeed(int number, const UnitMemory& memory, const Table& events, const Table& triggers)
{
    const auto sound = [](const QByteArray& payload) { return '\0' + payload; };
    QByteArray trace = sound(memory.read(Address::information, 32))
        + sound(memory.read(Address::serialPorts, 63)) + sound(memory.read(Address::ioLines, 24));
    for (const Table* table : {&events, &triggers, &triggers}) {
        trace += sound(table->count);
        for (const QByteArray& record : table->records)
            trace += sound(record);
    }
    writeSeed("readdata", number, trace + sound(QByteArray::fromHex("260109070503")));
}

Table firstOf(const Table& table, int count)
{
    return {
        table.countAddress, QByteArray(1, static_cast<char>(count)), table.records.mid(0, count)};
}

void writeFileSeeds(const Table& events, const Table& triggers, const UnitMemory& memory)
{
    QString error;
    EventModel eventModel;
    for (const QByteArray& record : events.records)
        PackageEvent::parseEventPackage(
            0xF0020001, replyFrame(0xF0020001, record), 512, eventModel, error);
    TriggerModel triggerModel;
    for (const QByteArray& record : triggers.records)
        PackageTrigger::parseTriggerPackage(
            0xF0010001, replyFrame(0xF0010001, record), 512, triggerModel, error);
    SystemModel configModel;
    ProtocolCreate::parseConfigPackage(
        0xF0001000, replyFrame(0xF0001000, memory.read(0xF0001000, 63)), 63, configModel, error);
    ProtocolCreate::parseConfigPackage(
        0xF0001100, replyFrame(0xF0001100, memory.read(0xF0001100, 24)), 24, configModel, error);

    XmlFile::writeEventXmlFile(seedPath("eventfile", 0), eventModel, false);
    XmlFile::writeTriggerXmlFile(seedPath("triggerfile", 0), triggerModel, false);
    XmlFile::writeConfigXmlFile(seedPath("configfile", 0), configModel, false);
    const QByteArray descriptor = "<Update><ModuleID>7209</ModuleID><Version>1.2.3.4</Version>"
                                  "<Note><!-- x --><![CDATA[y]]></Note></Update>";
    writeSeed("upgradefile", 0, descriptor);

    const QByteArray hostile[] = {
        QByteArray("<a>").repeated(1001) + QByteArray("</a>").repeated(1001),
        "<!DOCTYPE a [<!ENTITY b \"bb\"><!ENTITY c \"&b;&b;\"><!ELEMENT a ((b)|c)>]><a>&c;</a>",
        "<?xml version=\"1.0\" encoding=\"UTF-16\"?><a b='c'/>",
    };
    int kind = 0;
    for (const HostileFile& file : hostileFiles(8192))
        writeSeed("hostilefile", kind++, file.bytes);
    for (const char* target : {"eventfile", "triggerfile", "configfile", "upgradefile"}) {
        int number = 1;
        for (const QByteArray& content : hostile)
            writeSeed(target, number++, content);
    }
}

void writeFrameSeeds(const UnitMemory& memory)
{
    const QByteArray read = UnitFrame::readRequest(1, Address::information, 32).encode();
    const QByteArray write =
        UnitFrame::writeRequest(2, Address::serialPorts, memory.read(Address::serialPorts, 63))
            .encode();
    writeSeed("unitframes", 0, '\0' + read + write);
    // Form, place, offset, label, length: a read of the clock, a network cell, a reset.
    writeSeed("unitframes", 1,
        QByteArray::fromHex("01 0e000006 00 03000d00") + QByteArray(13, '\1')
            + QByteArray::fromHex("0500 00 0100 01"));
    const UnitFrame clock = UnitFrame::readRequest(3, Address::clock, Address::clockLength);
    const QByteArray reply =
        UnitFrame::replyTo(clock, QByteArray(Address::clockLength, '\1')).encode();
    // The request that is answered comes first: form, label, offset, length.
    writeSeed("replies", 0, QByteArray::fromHex("00 03 1100 06") + reply + reply);
    writeSeed("replies", 1, QByteArray::fromHex("01 03 1100 06 01 03 1100 06 06 010203040506"));
    int number = 0;
    for (const char* address : {"tcp://192.168.1.10:3801", "udp://unit", "[::1]:1", "192.168.1.10"})
        writeSeed("unitaddress", number++, address);
}

void writeDocumentSeeds(const UnitMemory& memory)
{
    QuadrelDocument::Contents contents = MemoryContents::read(memory);
    contents.events = contents.events->mid(3, 4);
    contents.triggers = contents.triggers->mid(3, 4);
    contents.timeTriggers = contents.timeTriggers->mid(0, 2);
    const QByteArray edits[] = {"events[8].description=a", "events[40]={delay: 5}",
        "triggers[3].parameter=41", "timeTriggers[1]"};
    int number = 0;
    for (const QByteArray& edit : edits) {
        for (const auto form : {QuadrelDocument::Form::Yaml, QuadrelDocument::Form::Json})
            writeSeed("document", number++,
                QByteArray(1, static_cast<char>(form)) + edit + '\n'
                    + writeDocument(contents, form));
    }
    const QString error =
        QuadrelDocument::saveFile(seedPath("projectfile", 0) + QStringLiteral(".xml"), contents);
    if (!error.isEmpty())
        qFatal("%s", qPrintable(error));
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc != 2)
        qFatal("usage: fuzz_seeds FOLDER");
    root = QString::fromLocal8Bit(argv[1]);

    ControlUnit unit;
    writeSample(unit.memory());
    const Table events = readTable(unit.memory(), Address::eventCount);
    const Table triggers = readTable(unit.memory(), Address::triggerCount);

    writeReplySeeds("device", 0, QByteArray(), Address::information,
        unit.memory().read(Address::information, 32));
    writeReplySeeds("config", 0, QByteArray(1, '\1'), Address::serialPorts,
        unit.memory().read(Address::serialPorts, 63));
    writeReplySeeds("config", 1, QByteArray(1, '\0'), Address::ioLines,
        unit.memory().read(Address::ioLines, 24));
    writeTableSeeds(events, {"event"});
    writeTableSeeds(triggers, {"trigger", "timetrigger"});
    writeCountSeeds(events, triggers);
    writeEventListSeeds(events);
    writeReadSeed(0, unit.memory(), firstOf(events, 0), firstOf(triggers, 0));
    writeReadSeed(1, unit.memory(), firstOf(events, 2), firstOf(triggers, 8));
    writeReadSeed(2, unit.memory(), events, triggers);
    writeFileSeeds(events, triggers, unit.memory());
    writeFrameSeeds(unit.memory());
    writeDocumentSeeds(unit.memory());

    const QByteArray lists[] = {"ID:3;ID:7", "(ID:3);(ID:250)", "ID:", ";;", "12345"};
    int number = 0;
    for (const QByteArray& list : lists)
        writeSeed("eventids", number++, '\0' + list);

    QString error;
    if (!UnitMemoryFile(seedPath("unitmemoryfile", 0), &unit).save(&error))
        qFatal("%s", qPrintable(error));
    writeSeed("unitmemoryfile", 1,
        "quadrelsim memory 1\nclock: -12345\nf0020000: 01 02 03\nffffffff: aa bb\n");
    return 0;
}
