// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "fuzzsetup.h"
#include "unitaddress.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const std::optional<UnitAddress> address = UnitAddress::fromText(text);
    if (!address)
        return 0;
    require(!address->host.isEmpty() && address->port != 0, "an address has a host and a port");
    const std::optional<UnitAddress> again = UnitAddress::fromText(address->toText());
    require(again && again->toText() == address->toText(), "the text of an address is an address");
    return 0;
}
