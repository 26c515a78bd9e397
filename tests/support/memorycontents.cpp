// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "memorycontents.h"

#include "modelconversion.h"
#include "packagedevice.h"
#include "packageevent.h"
#include "packagetimetrigger.h"
#include "packagetrigger.h"
#include "protocolcreate.h"
#include "replyframes.h"
#include "unitaddresses.h"

using namespace QuadrelDocument;
using namespace QuadrelUnit;

namespace {

QByteArray reply(const UnitMemory& memory, quint32 address, int length)
{
    return replyFrame(address, memory.read(address, length));
}

int countAt(const UnitMemory& memory, quint32 address)
{
    return static_cast<quint8>(memory.read(address, 1).at(0));
}

quint32 recordAddress(quint32 countAddress, int index)
{
    return countAddress + 1 + static_cast<quint32>(Address::recordLength * index);
}

/** The library's readers number the records from 0. */
template <typename Model> Model numbered(Model model)
{
    auto records = model.getTriggerInfo();
    for (int i = 0; i < records.size(); ++i)
        records[i].setTriggerId(i);
    model.setTriggerInfo(records);
    return model;
}

void writeTable(UnitMemory& memory, quint32 countAddress, const QList<QByteArray>& blocks)
{
    memory.write(countAddress, QByteArray(1, static_cast<char>(blocks.size())));
    for (int i = 0; i < blocks.size(); ++i)
        memory.write(recordAddress(countAddress, i), blocks.at(i));
}

} // namespace

Contents MemoryContents::read(const UnitMemory& memory)
{
    QString error;
    const auto require = [&error](bool isRead) {
        if (!isRead)
            qFatal("%s", qPrintable(error));
    };

    DeviceModel device;
    require(PackageDevice::parseDevicePackage(Address::information,
        replyFrame(Address::information,
            memory.read(Address::information, Address::informationLength + 1),
            Address::informationLength),
        Address::informationLength, device, error));
    const int portBytes = 7 * device.getComNumber();
    const int lineBytes = 2 * device.getIoNumber();
    SystemModel config;
    require(ProtocolCreate::parseConfigPackage(Address::serialPorts,
        reply(memory, Address::serialPorts, portBytes), static_cast<uint>(portBytes), config,
        error));
    require(ProtocolCreate::parseConfigPackage(Address::ioLines,
        reply(memory, Address::ioLines, lineBytes), static_cast<uint>(lineBytes), config, error));

    EventModel events;
    for (int i = 0; i < countAt(memory, Address::eventCount); ++i) {
        const quint32 address = recordAddress(Address::eventCount, i);
        require(PackageEvent::parseEventPackage(address,
            reply(memory, address, Address::recordLength), Address::recordLength, events, error));
    }
    TriggerModel triggers;
    TriggerTimeModel timeTriggers;
    for (int i = 0; i < countAt(memory, Address::triggerCount); ++i) {
        const quint32 address = recordAddress(Address::triggerCount, i);
        const QByteArray frame = reply(memory, address, Address::recordLength);
        require(PackageTrigger::parseTriggerPackage(
                    address, frame, Address::recordLength, triggers, error)
            && PackageTimeTrigger::parseTimeTriggerPackage(
                address, frame, Address::recordLength, timeTriggers, error));
    }

    Contents contents;
    contents.device = deviceOf(device);
    contents.serialPorts = serialPortsOf(config);
    contents.ioLines = ioLinesOf(config);
    contents.events = eventsOf(events);
    contents.triggers = triggersOf(numbered(triggers));
    contents.timeTriggers = timeTriggersOf(numbered(timeTriggers));
    return contents;
}

void MemoryContents::write(UnitMemory& memory, const Contents& contents)
{
    const SystemModel config = asRead(contents.serialPorts, contents.ioLines);
    memory.write(Address::serialPorts, ProtocolCreate::createComPackage(config));
    memory.write(Address::ioLines, ProtocolCreate::createIOPackage(config));

    QList<QByteArray> blocks;
    const QList<EventInfo> events = toSend(*contents.events).getEventInfo();
    for (const EventInfo& event : events)
        blocks.append(PackageEvent::createEventPackage(event));
    writeTable(memory, Address::eventCount, blocks);

    blocks.clear();
    const QList<TriggerInfo> triggers = toSend(*contents.triggers).getTriggerInfo();
    for (const TriggerInfo& trigger : triggers)
        blocks.append(PackageTrigger::createTriggerPackage(trigger));
    const QList<TriggerTimeInfo> timeTriggers = toSend(*contents.timeTriggers).getTriggerInfo();
    for (const TriggerTimeInfo& trigger : timeTriggers)
        blocks.append(PackageTimeTrigger::createTimeTriggerPackage(trigger));
    writeTable(memory, Address::triggerCount, blocks);
}

Contents MemoryContents::writtenAndRead(const Contents& contents)
{
    UnitMemory memory;
    memory.write(Address::information + 29,
        QByteArray(1, static_cast<char>(contents.serialPorts->size()))
            + static_cast<char>(contents.ioLines->size()));
    write(memory, contents);
    Contents result = read(memory);
    result.device = contents.device;
    return result;
}
