// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "controlunit.h"

#include "unitaddresses.h"
#include "unitblocks.h"
#include "unittexts.h"

namespace QuadrelUnit {

namespace {

/** True if `length` bytes at `address` touch the `cellLength` bytes at `cell`. */
bool touches(quint32 address, int length, quint32 cell, int cellLength)
{
    // Differences wrap as the address space does.
    return cell - address < static_cast<quint32>(length)
        || (length > 0 && address - cell < static_cast<quint32>(cellLength));
}

/** Lays the bytes at `sourceAddress` over those at `targetAddress`, where they overlap. */
void overlay(
    QByteArray& target, quint32 targetAddress, const QByteArray& source, quint32 sourceAddress)
{
    for (int i = 0; i < source.size(); ++i) {
        const quint32 offset = sourceAddress + static_cast<quint32>(i) - targetAddress;
        if (offset < static_cast<quint32>(target.size()))
            target[static_cast<int>(offset)] = source.at(i);
    }
}

} // namespace

ControlUnit::ControlUnit(const UnitSettings& settings)
    : m_delivered(settings)
{
    setSettings(settings);
    const QByteArray ports = serialPortRecord({}).repeated(settings.serialPorts);
    const QByteArray lines = ioLineRecord(IoSetting::First).repeated(settings.ioLines);
    m_memory.write(Address::serialPorts, ports);
    m_memory.write(Address::ioLines, lines);
}

void ControlUnit::setMemoryLimit(qint64 bytes)
{
    m_memory.setLimit(bytes);
    m_upgrade.setLimit(bytes);
}

UnitSettings ControlUnit::settings() const
{
    UnitSettings settings = UnitSettings::fromInformationBlock(
        m_memory.read(Address::information, Address::informationLength));
    settings.infraredPorts = static_cast<quint8>(m_memory.read(Address::infraredPorts, 1).at(0));
    return settings;
}

void ControlUnit::setSettings(const UnitSettings& settings)
{
    m_memory.write(Address::information, settings.informationBlock());
    m_memory.write(
        Address::infraredPorts, QByteArray(1, static_cast<char>(settings.infraredPorts)));
}

UnitAnswer ControlUnit::answer(const UnitFrame& request)
{
    if (!request.isReadRequest())
        return write(request);
    UnitAnswer answer;
    answer.reply = UnitFrame::replyTo(request, read(request.address, request.dataLength));
    // Readers of the block take the number of infra-red ports from the byte after it.
    if (request.address == Address::information && request.dataLength == Address::informationLength)
        answer.reply.steerTrailer(settings().infraredPorts);
    return answer;
}

QByteArray ControlUnit::read(quint32 address, int length) const
{
    QByteArray bytes = m_memory.read(address, length);
    if (touches(address, length, Address::clock, Address::clockLength))
        overlay(bytes, address, m_clock.cell(), Address::clock);
    return bytes;
}

UnitAnswer ControlUnit::write(const UnitFrame& request)
{
    UnitAnswer answer;
    answer.refusal = refusal(request);
    if (!answer.refusal.isEmpty())
        return answer;
    answer.reply = UnitFrame::replyTo(request);
    writeMemory(request.address, request.payload, answer);

    switch (m_upgrade.write(request.address, request.payload)) {
    case UnitUpgrade::Complete:
        completeUpgrade(answer);
        break;
    case UnitUpgrade::Broken:
        answer.notice = QStringLiteral("upgrade out of order: ") + m_upgrade.problem();
        break;
    case UnitUpgrade::Taken:
    case UnitUpgrade::Elsewhere:
        break;
    }
    return answer;
}

QString ControlUnit::refusal(const UnitFrame& request) const
{
    if (UnitUpgrade::isImage(request.address)
        || m_memory.hasRoomFor(request.address, request.payload.size()))
        return QString();
    return QStringLiteral("a write of %1 at 0x%2 is over the memory limit of %3")
        .arg(bytesText(request.payload.size()))
        .arg(request.address, 8, 16, QLatin1Char('0'))
        .arg(bytesText(m_memory.limit()));
}

void ControlUnit::writeMemory(quint32 address, const QByteArray& data, UnitAnswer& answer)
{
    if (data.isEmpty() || UnitUpgrade::isImage(address))
        return;
    answer.changed = true;
    if (touches(address, data.size(), Address::information, Address::informationLength))
        writeInformation(address, data, answer);
    else if (touches(address, data.size(), Address::clock, Address::clockLength))
        writeClock(address, data, answer);
    else
        m_memory.write(address, data);
}

// Of the information block only the network cell keeps what is written; the reset cell acts on it.
void ControlUnit::writeInformation(quint32 address, const QByteArray& data, UnitAnswer& answer)
{
    const QByteArray before = m_memory.read(Address::information, Address::informationLength);
    m_memory.write(address, data);
    const QByteArray network = m_memory.read(Address::network, Address::networkLength);
    const char command = m_memory.read(Address::reset, 1).at(0);

    m_memory.write(Address::information, before);
    m_memory.write(Address::network, network);
    if (touches(address, data.size(), Address::reset, 1))
        resetUnit(command, answer);
}

void ControlUnit::writeClock(quint32 address, const QByteArray& data, UnitAnswer& answer)
{
    m_memory.write(address, data);
    // The time runs in the clock; its place in the memory stays empty.
    m_memory.write(Address::clock, QByteArray(Address::clockLength, '\0'));

    QByteArray cell = m_clock.cell();
    overlay(cell, Address::clock, data, address);
    if (!m_clock.setCell(cell))
        answer.notice = QStringLiteral("the clock was given no date and time, and runs on");
}

void ControlUnit::resetUnit(char command, UnitAnswer& answer)
{
    constexpr char toDefault = 0;
    constexpr char keepAddress = 1;
    if (command != toDefault && command != keepAddress) {
        answer.notice =
            QStringLiteral("unknown reset command %1").arg(static_cast<quint8>(command));
        return;
    }
    if (command == toDefault)
        m_memory.write(Address::network, m_delivered.networkCell());
    answer.restarts = true;
}

void ControlUnit::completeUpgrade(UnitAnswer& answer)
{
    const FourBytes version = m_upgradeVersion.value_or(followingVersion(settings().version));
    m_memory.write(Address::version,
        QByteArray(
            reinterpret_cast<const char*>(version.data()), static_cast<int>(version.size())));
    answer.changed = true;
    answer.upgraded = true;
    answer.restarts = true;
}

} // namespace QuadrelUnit
