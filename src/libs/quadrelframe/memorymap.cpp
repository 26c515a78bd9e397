// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "memorymap.h"

#include <algorithm>
#include <iterator>

// Marks a text for the translators; the framework itself is not known here.
#define QT_TRANSLATE_NOOP(context, text) text

namespace QuadrelFrame {

namespace {

struct Place {
    std::uint32_t first;
    std::uint32_t end;
    const char* name;
    /** Bytes of a record, of a table. */
    int recordLength;
    bool mayRepeatWrite;
};

constexpr std::uint32_t tableEnd(std::uint32_t table, std::uint32_t records)
{
    return table + records * Address::recordLength;
}

// The cells of the information block come before the block.
constexpr Place places[] = {
    {Address::network, Address::network + Address::networkLength,
        QT_TRANSLATE_NOOP("Place", "network"), 0, false},
    {Address::reset, Address::reset + 1, QT_TRANSLATE_NOOP("Place", "reset"), 0, false},
    {Address::information, Address::infraredPorts + 1,
        QT_TRANSLATE_NOOP("Place", "device information"), 0, false},
    {Address::serialPorts, Address::ioLines, QT_TRANSLATE_NOOP("Place", "serial ports"), 0, true},
    {Address::ioLines, Address::ioLines + 0x200, QT_TRANSLATE_NOOP("Place", "IO lines"), 0, true},
    {Address::triggerCount, Address::triggers, QT_TRANSLATE_NOOP("Place", "trigger count"), 0,
        true},
    {Address::triggers, tableEnd(Address::triggers, 0x7F), QT_TRANSLATE_NOOP("Place", "trigger"),
        Address::recordLength, true},
    {Address::eventCount, Address::events, QT_TRANSLATE_NOOP("Place", "event count"), 0, true},
    {Address::events, tableEnd(Address::events, 0xFF), QT_TRANSLATE_NOOP("Place", "event"),
        Address::recordLength, true},
    {Address::clock, Address::clock + Address::clockLength, QT_TRANSLATE_NOOP("Place", "clock"), 0,
        false},
    {Address::upgradeLength, Address::upgradePosition, QT_TRANSLATE_NOOP("Place", "upgrade length"),
        0, false},
    {Address::upgradePosition, Address::upgradeCommand,
        QT_TRANSLATE_NOOP("Place", "upgrade position"), 0, false},
    {Address::upgradeCommand, Address::upgradeSize, QT_TRANSLATE_NOOP("Place", "upgrade command"),
        0, false},
    {Address::upgradeSize, Address::upgradeSize + 4, QT_TRANSLATE_NOOP("Place", "upgrade size"), 0,
        false},
    {Address::addressedImage, Address::addressedImageEnd,
        QT_TRANSLATE_NOOP("Place", "addressed image"), 0, false},
    {Address::streamedImage, Address::streamedImage + 1,
        QT_TRANSLATE_NOOP("Place", "streamed image"), 0, false},
    {Address::upgradeWord, Address::upgradeStartWord, QT_TRANSLATE_NOOP("Place", "upgrade word"), 0,
        false},
    {Address::upgradeStartWord, Address::upgradeStartWord + 2,
        QT_TRANSLATE_NOOP("Place", "upgrade start word"), 0, false},
    {Address::remark, Address::remark + Address::remarkLength, QT_TRANSLATE_NOOP("Place", "remark"),
        0, true},
};

const Place* placeOf(std::uint32_t address)
{
    const auto* const place = std::find_if(std::begin(places), std::end(places),
        [address](const Place& each) { return address >= each.first && address < each.end; });
    return place == std::end(places) ? nullptr : place;
}

} // namespace

std::optional<NamedPlace> namedPlace(std::uint32_t address)
{
    const Place* const place = placeOf(address);
    if (!place)
        return std::nullopt;
    NamedPlace named = {place->name, {}};
    std::uint32_t distance = address - place->first;
    if (place->recordLength > 0) {
        const auto length = static_cast<std::uint32_t>(place->recordLength);
        named.position = ' ' + std::to_string(distance / length + 1);
        distance %= length;
    }
    if (distance > 0)
        named.position += " +" + std::to_string(distance);
    return named;
}

std::string placeName(std::uint32_t address)
{
    const std::optional<NamedPlace> place = namedPlace(address);
    return place ? place->name + place->position : std::string();
}

bool mayRepeatWrite(std::uint32_t address)
{
    const Place* const place = placeOf(address);
    return place && place->mayRepeatWrite;
}

} // namespace QuadrelFrame
