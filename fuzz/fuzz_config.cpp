// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "fuzzreply.h"
#include "protocolcreate.h"
#include "systemmodel.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    const bool serial = (input.byte() & 1) != 0;
    const quint32 address = serial ? 0xF0001000 : 0xF0001100;
    const FuzzReply reply(input, address, serial ? 63 : 24);
    SystemModel model;
    const auto parse = [&](const QByteArray& frame, int length, QString& error) {
        return ProtocolCreate::parseConfigPackage(
            address, frame, static_cast<uint>(length), model, error);
    };
    const auto isUntouched = [&] {
        return model.getComInfo().isEmpty() && model.getIOType().isEmpty();
    };
    if (checkedParse(reply, parse, isUntouched)) {
        ProtocolCreate::createComPackage(model);
        ProtocolCreate::createIOPackage(model);
    }
    return 0;
}
