// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "framechecksum.h"

#include <QtCore/QByteArray>
#include <QtCore/QRandomGenerator>
#include <QtTest/QtTest>

class TestFrameChecksum : public QObject {
    Q_OBJECT

private slots:
    void knownValues_data();
    void knownValues();
    void sameAsFramework_data();
    void sameAsFramework();
    void startsAnywhere();
};

void TestFrameChecksum::knownValues_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("checksum");

    QTest::newRow("nothing") << QByteArray() << 0x0000;
    QTest::newRow("check value") << QByteArray("123456789") << 0x906E;
    QTest::newRow("one zero byte") << QByteArray(1, '\0') << 0xF078;
}

void TestFrameChecksum::knownValues()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, checksum);
    QCOMPARE(int(QuadrelFrame::checksum(bytes.constData(), bytes.size())), checksum);
}

void TestFrameChecksum::sameAsFramework_data()
{
    QTest::addColumn<int>("size");
    for (int size = 0; size <= 40; ++size)
        QTest::addRow("%d bytes", size) << size;
    for (const int size : {530, 2066, 0xFFFF + 18})
        QTest::addRow("%d bytes", size) << size;
}

void TestFrameChecksum::sameAsFramework()
{
    QFETCH(int, size);
    QRandomGenerator random(static_cast<quint32>(size));
    for (int round = 0; round < 20; ++round) {
        QByteArray bytes(size, Qt::Uninitialized);
        for (char& byte : bytes)
            byte = static_cast<char>(random.bounded(256));
        QCOMPARE(QuadrelFrame::checksum(bytes.constData(), size),
            qChecksum(bytes.constData(), static_cast<uint>(size), Qt::ChecksumIso3309));
    }
}

void TestFrameChecksum::startsAnywhere()
{
    const QByteArray bytes("a frame that begins at an odd place");
    for (int start = 0; start < bytes.size(); ++start) {
        const int size = bytes.size() - start;
        QCOMPARE(QuadrelFrame::checksum(bytes.constData() + start, size),
            qChecksum(bytes.constData() + start, static_cast<uint>(size), Qt::ChecksumIso3309));
    }
}

QTEST_APPLESS_MAIN(TestFrameChecksum)
#include "tst_framechecksum.moc"
