#include "memorymap.h"

#include <algorithm>
#include <iterator>

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
    {Address::network, Address::network + Address::networkLength, "network", 0, false},
    {Address::reset, Address::reset + 1, "reset", 0, false},
    {Address::information, Address::infraredPorts + 1, "device information", 0, false},
    {Address::serialPorts, Address::ioLines, "serial ports", 0, true},
    {Address::ioLines, Address::ioLines + 0x200, "IO lines", 0, true},
    {Address::triggerCount, Address::triggers, "trigger count", 0, true},
    {Address::triggers, tableEnd(Address::triggers, 0x7F), "trigger", Address::recordLength, true},
    {Address::eventCount, Address::events, "event count", 0, true},
    {Address::events, tableEnd(Address::events, 0xFF), "event", Address::recordLength, true},
    {Address::clock, Address::clock + Address::clockLength, "clock", 0, false},
    {Address::upgradeLength, Address::upgradePosition, "upgrade length", 0, false},
    {Address::upgradePosition, Address::upgradeCommand, "upgrade position", 0, false},
    {Address::upgradeCommand, Address::upgradeSize, "upgrade command", 0, false},
    {Address::upgradeSize, Address::upgradeSize + 4, "upgrade size", 0, false},
    {Address::addressedImage, Address::addressedImageEnd, "addressed image", 0, false},
    {Address::streamedImage, Address::streamedImage + 1, "streamed image", 0, false},
    {Address::upgradeWord, Address::upgradeStartWord, "upgrade word", 0, false},
    {Address::upgradeStartWord, Address::upgradeStartWord + 2, "upgrade start word", 0, false},
    {Address::remark, Address::remark + Address::remarkLength, "remark", 0, true},
};

const Place* placeOf(std::uint32_t address)
{
    const auto* const place = std::find_if(std::begin(places), std::end(places),
        [address](const Place& each) { return address >= each.first && address < each.end; });
    return place == std::end(places) ? nullptr : place;
}

} // namespace

std::string placeName(std::uint32_t address)
{
    const Place* const place = placeOf(address);
    if (!place)
        return {};
    std::string name = place->name;
    std::uint32_t distance = address - place->first;
    if (place->recordLength > 0) {
        const auto length = static_cast<std::uint32_t>(place->recordLength);
        name += ' ' + std::to_string(distance / length + 1);
        distance %= length;
    }
    return distance == 0 ? name : name + " +" + std::to_string(distance);
}

bool mayRepeatWrite(std::uint32_t address)
{
    const Place* const place = placeOf(address);
    return place && place->mayRepeatWrite;
}

} // namespace QuadrelFrame
