// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "eventmodel.h"
#include "fuzzreply.h"
#include "packageevent.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr quint32 address = 0xF0020000;
    FuzzInput input(data, size);
    const FuzzReply reply(input, address, 513);
    EventModel model;
    const auto parse = [&](const QByteArray& frame, int length, QString& error) {
        return PackageEvent::parseEventListPackage(
            address, frame, static_cast<uint>(length), model, error);
    };
    if (checkedParse(reply, parse, [&] { return model.size() == 0; }))
        PackageEvent::createEventListPackage(model);
    return 0;
}
