// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitmodel.h"

#include "unitaddresses.h"

using namespace QuadrelUnit;

UnitModel::UnitModel(const UnitMemory& delivered)
    : m_memory(delivered)
    , m_deliveredNetwork(delivered.read(Address::network, Address::networkLength))
{
}

void UnitModel::write(quint32 address, const QByteArray& data)
{
    const bool isImage = address == Address::streamedImage
        || (address >= Address::addressedImage && address < Address::addressedImage + 0x01000000);
    if (isImage)
        return;
    if (address == Address::clock)
        m_clock = data;
    else if (address != Address::reset)
        m_memory.write(address, data);
    else if (data.at(0) == 0)
        m_memory.write(Address::network, m_deliveredNetwork);
}

void UnitModel::upgraded()
{
    QByteArray version = m_memory.read(Address::version, 4);
    // As on a counter, the last number comes after the others and carries over.
    for (int i = 3; i >= 0 && ++version.data()[i] == 0; --i) { }
    m_memory.write(Address::version, version);
}
