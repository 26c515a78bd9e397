// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "progresstracker.h"

#include "memorymap.h"

#include <array>

using namespace QuadrelFrame;

namespace {

using Part = UnitProgress::Part;

/** The blocks that are read and written at once. */
std::optional<UnitProgress> wholeBlock(std::uint32_t address)
{
    switch (address) {
    case Address::information:
        return UnitProgress{Part::Device, 1, 1};
    case Address::serialPorts:
        return UnitProgress{Part::SerialPorts, 1, 1};
    case Address::ioLines:
        return UnitProgress{Part::IoLines, 1, 1};
    case Address::clock:
        return UnitProgress{Part::Clock, 1, 1};
    default:
        return std::nullopt;
    }
}

bool isEvent(std::uint32_t address)
{
    return address >= Address::events;
}

bool isTrigger(std::uint32_t address)
{
    return address >= Address::triggers && address < Address::eventCount;
}

bool isImage(std::uint32_t address)
{
    return address == Address::streamedImage
        || (address >= Address::addressedImage && address < Address::addressedImageEnd);
}

/** How many records end before this address of a table. */
qint64 recordsBefore(std::uint32_t address, std::uint32_t table)
{
    return (address - table) / static_cast<std::uint32_t>(Address::recordLength);
}

} // namespace

std::optional<UnitProgress> ProgressTracker::follow(
    const Exchange& exchange, const FrameView& reply)
{
    const FrameView request = exchange.view();
    if (const auto block = wholeBlock(request.address()))
        return block;
    return exchange.isRead() ? followRead(request.address(), reply)
                             : followWrite(request.address(), request.payloadSize());
}

std::optional<UnitProgress> ProgressTracker::followRead(
    std::uint32_t address, const FrameView& reply)
{
    const bool isEventCount = address == Address::eventCount;
    if (isEventCount || address == Address::triggerCount) {
        m_total = reply.payloadSize() > 0 ? static_cast<std::uint8_t>(*reply.payload()) : 0;
        m_hasReadTriggers = address == Address::triggerCount && !m_hasReadTriggers;
    }
    const Part triggers = m_hasReadTriggers ? Part::Triggers : Part::TimeTriggers;
    if (isEvent(address))
        return UnitProgress{Part::Events, recordsBefore(address, Address::events) + 1, m_total};
    if (isTrigger(address))
        return UnitProgress{triggers, recordsBefore(address, Address::triggers) + 1, m_total};
    if (isEventCount)
        return UnitProgress{Part::Events, 0, m_total};
    if (address == Address::triggerCount)
        return UnitProgress{triggers, 0, m_total};
    return std::nullopt;
}

std::optional<UnitProgress> ProgressTracker::followWrite(std::uint32_t address, std::uint32_t size)
{
    if (isImage(address)) {
        m_sentBytes += size;
        return UnitProgress{Part::Upgrade, m_sentBytes, m_total};
    }
    if (isEvent(address))
        return UnitProgress{Part::Events, recordsBefore(address + size, Address::events), m_total};
    if (isTrigger(address))
        return UnitProgress{
            Part::Triggers, recordsBefore(address + size, Address::triggers), m_total};
    return std::nullopt;
}
