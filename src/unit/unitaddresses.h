#pragma once

#include <QtCore/QtGlobal>

/** Where things stand in a unit's memory, and how long they are. */
namespace QuadrelUnit::Address {

constexpr quint32 information = 0xF0000000;
constexpr int informationLength = 32;
/** Right behind the block, where a reader of it looks. */
constexpr quint32 infraredPorts = information + informationLength;
constexpr quint32 version = 0xF0000002;
/** DHCP, address, mask and gateway: the 13 bytes of the information block that can be written. */
constexpr quint32 network = 0xF000000E;
constexpr int networkLength = 13;
constexpr quint32 reset = 0xF000001C;

constexpr quint32 serialPorts = 0xF0001000;
constexpr quint32 ioLines = 0xF0001100;

constexpr int recordLength = 512;
constexpr quint32 triggerCount = 0xF0010000;
constexpr quint32 triggers = 0xF0010001;
constexpr quint32 eventCount = 0xF0020000;
constexpr quint32 events = 0xF0020001;

constexpr quint32 clock = 0x02000011;
constexpr int clockLength = 6;

constexpr quint32 upgradeLength = 0x01F00000;
constexpr quint32 upgradePosition = 0x01F00004;
constexpr quint32 upgradeCommand = 0x01F00008;
constexpr quint32 upgradeSize = 0x01F0000C;
constexpr quint32 addressedImage = 0x06000000;
constexpr quint32 streamedImage = 0x18000000;
constexpr quint32 upgradeWord = 0x18200000;
constexpr quint32 upgradeStartWord = 0x18200002;
constexpr quint32 remark = 0x18201000;
constexpr int remarkLength = 90;

} // namespace QuadrelUnit::Address
