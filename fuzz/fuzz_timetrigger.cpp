// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "fuzzreply.h"
#include "packagetimetrigger.h"
#include "triggertimemodel.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr quint32 address = 0xF0010001;
    FuzzInput input(data, size);
    const FuzzReply reply(input, address, 512);
    TriggerTimeModel model;
    const auto parse = [&](const QByteArray& frame, int length, QString& error) {
        return PackageTimeTrigger::parseTimeTriggerPackage(address, frame, length, model, error);
    };
    if (checkedParse(reply, parse, [&] { return model.size() == 0; })) {
        require(model.size() <= 1, "a block holds one record at most");
        for (int i = 0; i < model.size(); ++i)
            PackageTimeTrigger::createTimeTriggerPackage(model.at(i));
    }
    return 0;
}
