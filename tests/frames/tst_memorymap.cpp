// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "memorymap.h"

#include <QtTest/QtTest>

using namespace QuadrelFrame;

class TestMemoryMap : public QObject {
    Q_OBJECT

private slots:
    void namesPlaces_data();
    void namesPlaces();
};

void TestMemoryMap::namesPlaces_data()
{
    QTest::addColumn<quint32>("address");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("mayRepeat");
    const auto row = [](quint32 address, const char* name, bool mayRepeat) {
        const QByteArray title = QByteArray::number(address, 16);
        QTest::newRow(title) << address << QString::fromLatin1(name) << mayRepeat;
    };
    row(0, "", false);
    row(0xF0000000, "device information", false);
    row(0xF0000002, "device information +2", false);
    row(0xF000000E, "network", false);
    row(0xF000001A, "network +12", false);
    row(0xF000001B, "device information +27", false);
    row(0xF000001C, "reset", false);
    row(0xF0000020, "device information +32", false);
    row(0xF0000021, "", false);
    row(0xF0001000, "serial ports", true);
    row(0xF0001007, "serial ports +7", true);
    row(0xF0001100, "IO lines", true);
    row(0xF0010000, "trigger count", true);
    row(0xF0010001, "trigger 1", true);
    row(0xF0010201, "trigger 2", true);
    row(0xF0010203, "trigger 2 +2", true);
    row(0xF0020000, "event count", true);
    row(0xF0020001, "event 1", true);
    row(0xF0020001 + 254 * 512, "event 255", true);
    row(0xF0020001 + 255 * 512, "", false);
    row(0x02000011, "clock", false);
    row(0x02000017, "", false);
    row(0x01F00000, "upgrade length", false);
    row(0x01F00004, "upgrade position", false);
    row(0x01F00008, "upgrade command", false);
    row(0x01F0000C, "upgrade size", false);
    row(0x06000000, "addressed image", false);
    row(0x06000800, "addressed image +2048", false);
    row(0x10000000, "", false);
    row(0x18000000, "streamed image", false);
    row(0x18200000, "upgrade word", false);
    row(0x18200002, "upgrade start word", false);
    row(0x18201000, "remark", true);
    row(0xFFFFFFFF, "", false);
}

void TestMemoryMap::namesPlaces()
{
    QFETCH(quint32, address);
    QTEST(QString::fromStdString(placeName(address)), "name");
    QTEST(mayRepeatWrite(address), "mayRepeat");
}

QTEST_APPLESS_MAIN(TestMemoryMap)
#include "tst_memorymap.moc"
