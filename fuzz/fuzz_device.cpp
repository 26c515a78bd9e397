// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "devicemodel.h"
#include "fuzzreply.h"
#include "packagedevice.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr quint32 address = 0xF0000000;
    FuzzInput input(data, size);
    const FuzzReply reply(input, address, 32);
    DeviceModel device;
    const DeviceModel untouched = device;
    const auto parse = [&](const QByteArray& frame, int length, QString& error) {
        return PackageDevice::parseDevicePackage(
            address, frame, static_cast<uint>(length), device, error);
    };
    if (checkedParse(reply, parse, [&] { return device == untouched; }))
        require(PackageDevice::createNetWorkPackage(device).size() == 13,
            "what was read is written back in full");
    return 0;
}
