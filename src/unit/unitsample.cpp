// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitsample.h"

#include "unitaddresses.h"
#include "unitblocks.h"

namespace QuadrelUnit {

namespace {

// Lines of serial ports and of IO inputs, A-1 first.
enum Line { A1, A2, A3, A4, B1, B2, B3, B4, C1, C2, C3, C4 };

constexpr quint8 workdays = 0b0011111;
constexpr quint8 weekend = 0b1100000;
constexpr quint8 oddDays = 0b0010101;

QByteArray plain(int line, const char* text)
{
    return serialCommand(line, false, QByteArray(text));
}

QByteArray modbus(int line, const char* hex)
{
    return serialCommand(line, true, QByteArray::fromHex(hex));
}

/** A command as the unit stores it: IO, infra-red, relay and control commands. */
QByteArray raw(const char* hex)
{
    return QByteArray::fromHex(hex);
}

std::vector<SerialPort> samplePorts()
{
    return {
        {115200, 8, 1, Parity::None},
        {9600, 8, 1, Parity::None},
        {9600, 8, 1, Parity::Second},
        {19200, 8, 2, Parity::None},
        {38400, 8, 1, Parity::First},
        {4800, 7, 1, Parity::Second},
        {57600, 8, 1, Parity::None},
        {2400, 7, 2, Parity::First},
        {115200, 8, 1, Parity::None},
    };
}

std::vector<IoSetting> sampleLines()
{
    using Setting = IoSetting;
    return {Setting::First, Setting::First, Setting::First, Setting::First, Setting::Second,
        Setting::Second, Setting::Second, Setting::Second, Setting::Third, Setting::Third,
        Setting::First, Setting::Second};
}

std::vector<EventRecord> sampleEvents()
{
    return {
        {1, plain(A1, "PWR ON\r"), QStringLiteral("打开投影机$$投影机开")},
        {2, plain(A1, "PWR OFF\r"), QStringLiteral("关闭投影机$$投影机关")},
        {3, plain(A1, "SOURCE 30\r"), QStringLiteral("投影机切换到 HDMI$$投影机 HDMI")},
        {4, delayCommand(500), QStringLiteral("等待半秒$$延时 0.5 秒")},
        {5, delayCommand(30000), QStringLiteral("Let the projector warm up$$Warm-up")},
        {6, delayCommand(255), QStringLiteral("A delay between two steps of ten milliseconds")},
        {7, plain(A2, "*POW=ON#"), QStringLiteral("Display on$$Display on")},
        {8, plain(A2, "*POW=OFF#"), QStringLiteral("Display off$$Display off")},
        {9, plain(A3, "MUTE 1\r\n"), QStringLiteral("Mute the amplifier")},
        {10, plain(A3, "MUTE 0\r\n"), QStringLiteral("Sound on again")},
        {11, plain(C1, "VOL 45\r\n"), QStringLiteral("音量调到 45")},
        {12, modbus(B1, "01050000ff008c3a"), QStringLiteral("空调开机$$空调开")},
        {13, modbus(B1, "010500000000cdca"), QStringLiteral("空调关机$$空调关")},
        {14, modbus(B1, "0106000100185800"), QStringLiteral("Air conditioner to 24 °C")},
        {15, modbus(B2, "02050003ff007c09"), QStringLiteral("Curtain open$$Curtain open")},
        {16, modbus(B2, "0205000300003df9"), QStringLiteral("Curtain closed$$Curtain closed")},
        {17, raw("4c010024170152100001"), QStringLiteral("IO A-1 输出高电平")},
        {18, raw("4c010024170152100000"), QStringLiteral("IO A-1 输出低电平")},
        {19, raw("4c010024170152010001"), QStringLiteral("Door opener on$$Door")},
        {20, raw("4c010024170152010000"), QStringLiteral("Door opener off")},
        {21, raw("4c010024a7015210000926"), QStringLiteral("红外：电视开机$$电视开")},
        {22, raw("4c010024a7015210000927"), QStringLiteral("红外：电视关机$$电视关")},
        {23, raw("4c010020a5015201"), QStringLiteral("Infra-red scene 1")},
        {24, raw("4c010020a6015201"), QStringLiteral("Infra-red scene 1, stop")},
        {25, raw("4c010024180152800001"), QStringLiteral("继电器 4 吸合$$大厅灯开")},
        {26, raw("4c010024180152800000"), QStringLiteral("继电器 4 断开$$大厅灯关")},
        {27, raw("4c010024180152100001"), QStringLiteral("Stage light on$$Stage light")},
        {28, raw("4c010024180152100000"), QStringLiteral("Stage light off")},
        {29, raw("4c0100a502015201"), QStringLiteral("启用定时任务")},
        {30, raw("4c0100a502015200"), QStringLiteral("Time triggers off$$Timers off")},
        {31, raw("4c0100"), QStringLiteral("A command without a class")},
        {32, plain(A4, "RESET\r"), QString()},
    };
}

std::vector<SerialTriggerRecord> sampleSerialTriggers()
{
    return {
        {A1, false, "PANEL 1\r", {1, 5, 3}, QStringLiteral("面板：开始上课")},
        {A1, false, "PANEL 2\r", {2, 4, 26}, QStringLiteral("面板：下课")},
        {A2, false, "OK#", {10}, QStringLiteral("Display is on")},
        {C1, false, QByteArray::fromHex("aa01"), {9, 4, 10}, QStringLiteral("Mute for a moment")},
        {B1, true, QByteArray::fromHex("0103020018b84e"), {14}, QStringLiteral("空调温度回读")},
        {B2, true, QByteArray::fromHex("02050003ff007c09"), {27, 6, 28}, QStringLiteral("Curtain")},
    };
}

std::vector<IoTriggerRecord> sampleIoTriggers()
{
    return {
        {A1, true, {25, 7}, QStringLiteral("有人进入大厅")},
        {A1, false, {26, 8}, QStringLiteral("大厅无人")},
        {B4, true, {19, 4, 20}, QStringLiteral("Door bell")},
        {C1, true, {23}, QStringLiteral("Window opened")},
    };
}

std::vector<TimeTriggerRecord> sampleTimeTriggers()
{
    const QDate forEver;
    return {
        {Repeat::EveryDay, {2024, 3, 7}, forEver, {8, 5}, 0, {25}, QStringLiteral("每天开灯")},
        {Repeat::EveryDay, {2025, 1, 1}, {2029, 12, 31}, {22, 30}, 0, {26, 28},
            QStringLiteral("Lights out")},
        {Repeat::Weekly, {2024, 9, 2}, forEver, {7, 45}, workdays, {12, 1, 5, 3},
            QStringLiteral("工作日早课准备")},
        {Repeat::Weekly, {2024, 9, 2}, {2026, 6, 30}, {23, 59}, weekend, {13, 2},
            QStringLiteral("Weekend: all off")},
        {Repeat::Weekly, {2024, 3, 7}, forEver, {12, 0}, oddDays, {11}, QString()},
        {Repeat::Once, {2026, 11, 14}, {2026, 11, 14}, {6, 5}, 0, {29},
            QStringLiteral("Start of the exhibition")},
        {Repeat::Once, {2030, 2, 28}, forEver, {0, 0}, 0, {30}, QStringLiteral("停用定时任务")},
    };
}

template <typename Records> QByteArray blocks(const Records& records)
{
    QByteArray bytes;
    for (const auto& record : records)
        bytes += record.block();
    return bytes;
}

void writeTable(UnitMemory& memory, quint32 countAddress, const QByteArray& table)
{
    const int count = table.size() / Address::recordLength;
    memory.write(countAddress, QByteArray(1, static_cast<char>(count)) + table);
}

} // namespace

void writeSample(UnitMemory& memory)
{
    QByteArray ports;
    for (const SerialPort& port : samplePorts())
        ports += serialPortRecord(port);
    memory.write(Address::serialPorts, ports);

    QByteArray lines;
    for (const IoSetting setting : sampleLines())
        lines += ioLineRecord(setting);
    memory.write(Address::ioLines, lines);

    writeTable(memory, Address::eventCount, blocks(sampleEvents()));
    writeTable(memory, Address::triggerCount,
        blocks(sampleSerialTriggers()) + blocks(sampleIoTriggers()) + blocks(sampleTimeTriggers()));
}

} // namespace QuadrelUnit
