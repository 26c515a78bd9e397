// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>

/** Where things are in a unit's memory, and how long they are. */
namespace QuadrelFrame::Address {

constexpr std::uint32_t information = 0xF0000000;
constexpr int informationLength = 32;
/** The byte after the block, where a reader of it looks. */
constexpr std::uint32_t infraredPorts = information + informationLength;
constexpr std::uint32_t version = 0xF0000002;
/** DHCP, address, mask and gateway: the 13 bytes of the information block that can be written. */
constexpr std::uint32_t network = 0xF000000E;
constexpr int networkLength = 13;
constexpr std::uint32_t reset = 0xF000001C;

constexpr std::uint32_t serialPorts = 0xF0001000;
constexpr std::uint32_t ioLines = 0xF0001100;

constexpr int recordLength = 512;
constexpr std::uint32_t triggerCount = 0xF0010000;
constexpr std::uint32_t triggers = 0xF0010001;
constexpr std::uint32_t eventCount = 0xF0020000;
constexpr std::uint32_t events = 0xF0020001;

constexpr std::uint32_t clock = 0x02000011;
constexpr int clockLength = 6;

constexpr std::uint32_t upgradeLength = 0x01F00000;
constexpr std::uint32_t upgradePosition = 0x01F00004;
constexpr std::uint32_t upgradeCommand = 0x01F00008;
constexpr std::uint32_t upgradeSize = 0x01F0000C;
constexpr std::uint32_t addressedImage = 0x06000000;
constexpr std::uint32_t addressedImageEnd = 0x10000000;
constexpr std::uint32_t streamedImage = 0x18000000;
constexpr std::uint32_t upgradeWord = 0x18200000;
constexpr std::uint32_t upgradeStartWord = 0x18200002;
constexpr std::uint32_t remark = 0x18201000;
constexpr int remarkLength = 90;

} // namespace QuadrelFrame::Address

namespace QuadrelFrame {

/** A place in words. */
struct NamedPlace {
    /** "event", "serial ports"; its translations have the context "Place". */
    const char* name;
    /**
     * The number of the record in a table, counted from 1, and the distance from the start: " 3",
     * " +2048", " 3 +12". Empty at the start of anything but a record.
     */
    std::string position;
};

/** None for an address that has no name. */
std::optional<NamedPlace> namedPlace(std::uint32_t address);

/** Name and position together, in English: "event 3", "addressed image +2048". Empty for none. */
std::string placeName(std::uint32_t address);

/**
 * Whether a write to this address leaves the same on the unit when it is sent twice.
 *
 * So do the configuration, both tables with their counts, and the remark. Not so: the network
 * settings, which move the unit; the reset; the clock, for which a time sent again is late; and all
 * of an upgrade, whose writes a unit takes in their one order. An address without a name counts as
 * one that may not be repeated.
 */
bool mayRepeatWrite(std::uint32_t address);

} // namespace QuadrelFrame
