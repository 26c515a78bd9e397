// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "fuzzreply.h"
#include "packageevent.h"
#include "packagetimetrigger.h"
#include "packagetrigger.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    const int table = input.byte() % 3;
    const quint32 address = table == 0 ? 0xF0020000 : 0xF0010000;
    const FuzzReply reply(input, address, 1);
    constexpr int untouched = -1;
    int count = untouched;
    const auto parse = [&](const QByteArray& frame, int length, QString& error) {
        if (table == 0)
            return PackageEvent::parseEventCount(
                address, frame, static_cast<uint>(length), count, error);
        if (table == 1)
            return PackageTrigger::parseTriggerCount(address, frame, length, count, error);
        return PackageTimeTrigger::parseTimeTriggerCount(address, frame, length, count, error);
    };
    if (checkedParse(reply, parse, [&] { return count == untouched; }))
        require(count >= 0 && count <= 255, "a count is one byte");
    return 0;
}
