// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "kvprotocolparser.h"
#include "packagerequestproto3rd.h"
#include "quadrelframe.h"
#include "replyframe.h"
#include "replyframes.h"

#include <QtTest/QTest>

#include <future>
#include <thread>

using namespace QuadrelFrame;

namespace {

QByteArray readFrame(unsigned char label, unsigned int address, unsigned int length)
{
    return KVProtocolParser::Get_CommonRead(label, address, length)->ParseSendRequest();
}

QByteArray writeFrame(unsigned char label, unsigned int address, const QByteArray& data,
    const QString& text = QStringLiteral(""))
{
    return KVProtocolParser::Set_CommonWrite(
        label, address, static_cast<unsigned int>(data.size()), data, text)
        ->ParseSendRequest();
}

/** The CRC-16 of ISO 3309, bit by bit: no table and nothing of the framework. */
quint16 bitwiseChecksum(const QByteArray& bytes)
{
    quint16 rest = 0xFFFF;
    for (const char byte : bytes) {
        rest ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            rest = static_cast<quint16>((rest & 1) ? (rest >> 1) ^ 0x8408 : rest >> 1);
    }
    return static_cast<quint16>(~rest);
}

quint16 trailerOf(const QByteArray& frame)
{
    return qFromLittleEndian<quint16>(frame.constData() + frame.size() - trailerSize);
}

} // namespace

class TestQuadrelComm : public QObject {
    Q_OBJECT

private slots:
    void figures();
    void makesReadRequests_data();
    void makesReadRequests();
    void makesWriteRequests_data();
    void makesWriteRequests();
    void checksumCoversAllBytesBeforeIt_data();
    void checksumCoversAllBytesBeforeIt();
    void addressAndLengthStandAsInReplies();
    void textHasNoPlaceInTheFrame();
    void dataMayHoldAnyBytes();
    void requestIsOnePerThread();
    void framesOutliveTheirRequest();
    void threadsDoNotMixTheirFrames();
    void requestWithoutFrameIsEmpty();
};

void TestQuadrelComm::figures()
{
    QCOMPARE(headSize, payloadOffset);
    QCOMPARE(int(sizeof magic), int(kindOffset));
    QCOMPARE(maximumPayload, 0xFFFFU);
    QCOMPARE(int(ReadReply), ReadRequest | 0x80);
    QCOMPARE(int(WriteReply), WriteRequest | 0x80);
}

void TestQuadrelComm::makesReadRequests_data()
{
    QTest::addColumn<int>("label");
    QTest::addColumn<uint>("address");
    QTest::addColumn<uint>("length");
    QTest::addColumn<QByteArray>("frame");
    QTest::newRow("device information")
        << 0 << 0xF0000000U << 32U << hex("5144524c 01 00 0000 00000000 000000f0 2000 ad95");
    QTest::newRow("a record") << 7 << 0xF0020201U << 512U
                              << hex("5144524c 01 07 0000 00000000 010202f0 0002 1aa6");
    QTest::newRow("clock, last label")
        << 254 << 0x02000011U << 6U << hex("5144524c 01 fe 0000 00000000 11000002 0600 5ce7");
    QTest::newRow("nothing") << 1 << 0U << 0U
                             << hex("5144524c 01 01 0000 00000000 00000000 0000 073f");
    QTest::newRow("largest") << 255 << 0xFFFFFFFFU << 0xFFFFU
                             << hex("5144524c 01 ff 0000 00000000 ffffffff ffff ebbe");
    // The field has 16 bits: the unit is asked for the rest, and the reply's length says so.
    QTest::newRow("beyond 16 bits")
        << 1 << 0U << 0x10020U << hex("5144524c 01 01 0000 00000000 00000000 2000 341c");
    QTest::newRow("beyond 16 bits, nothing left")
        << 1 << 0U << 0xFFFF0000U << hex("5144524c 01 01 0000 00000000 00000000 0000 073f");
}

void TestQuadrelComm::makesReadRequests()
{
    QFETCH(int, label);
    QFETCH(uint, address);
    QFETCH(uint, length);
    QFETCH(QByteArray, frame);
    QCOMPARE(readFrame(static_cast<unsigned char>(label), address, length).toHex(), frame.toHex());
}

void TestQuadrelComm::makesWriteRequests_data()
{
    QTest::addColumn<int>("label");
    QTest::addColumn<uint>("address");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QByteArray>("frame");
    QTest::newRow("reset") << 3 << 0xF000001CU << hex("01")
                           << hex("5144524c 02 03 0000 01000000 1c0000f0 0100 01 eecc");
    QTest::newRow("network") << 9 << 0xF000000EU << hex("000a01a8c000ffffff0101a8c0")
                             << hex("5144524c 02 09 0000 0d000000 0e0000f0 0d00"
                                    "000a01a8c000ffffff0101a8c0 26c2");
    QTest::newRow("empty") << 0 << 0xF0001000U << hex("")
                           << hex("5144524c 02 00 0000 00000000 001000f0 0000 e081");
    QTest::newRow("null") << 0 << 0xF0001000U << QByteArray()
                          << hex("5144524c 02 00 0000 00000000 001000f0 0000 e081");
}

void TestQuadrelComm::makesWriteRequests()
{
    QFETCH(int, label);
    QFETCH(uint, address);
    QFETCH(QByteArray, data);
    QFETCH(QByteArray, frame);
    QCOMPARE(writeFrame(static_cast<unsigned char>(label), address, data).toHex(), frame.toHex());
}

void TestQuadrelComm::checksumCoversAllBytesBeforeIt_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 2, 255, 256, 2048, 0xFFFF, 0x10000, 0x12345})
        QTest::newRow(qPrintable(QString::number(size))) << size;
}

void TestQuadrelComm::checksumCoversAllBytesBeforeIt()
{
    QFETCH(int, size);
    QByteArray data(size, '\0');
    for (int i = 0; i < size; ++i)
        data[i] = static_cast<char>(i * 7 + 1);
    for (const QByteArray& frame : {readFrame(5, 0x06000000, static_cast<unsigned int>(size)),
             writeFrame(5, 0x06000000, data)}) {
        const QByteArray checked = frame.left(frame.size() - trailerSize);
        QCOMPARE(trailerOf(frame), bitwiseChecksum(checked));
        QCOMPARE(trailerOf(frame),
            qChecksum(checked.constData(), static_cast<uint>(checked.size()), Qt::ChecksumIso3309));
    }

    // The payload length has 32 bits, also where the data length falls short.
    const QByteArray frame = writeFrame(5, 0x06000000, data);
    QCOMPARE(frame.size(), headSize + size + trailerSize);
    QCOMPARE(qFromLittleEndian<quint32>(frame.constData() + payloadLengthOffset), quint32(size));
    QCOMPARE(int(qFromLittleEndian<quint16>(frame.constData() + dataLengthOffset)), size & 0xFFFF);
    QCOMPARE(frame.mid(payloadOffset, size), data);
}

void TestQuadrelComm::addressAndLengthStandAsInReplies()
{
    const QByteArray read = readFrame(1, 0xF0001100, 24);
    QCOMPARE(int(ReplyFrame(read).check(0xF0001100, 24)), int(ReplyFrame::Fault::None));
    const QByteArray write = writeFrame(1, 0xF0001100, QByteArray(24, 'x'));
    QCOMPARE(int(ReplyFrame(write).check(0xF0001100, 24)), int(ReplyFrame::Fault::None));
    QCOMPARE(ReplyFrame(write).payloadByte(23), quint8('x'));
}

void TestQuadrelComm::textHasNoPlaceInTheFrame()
{
    const QByteArray frame = writeFrame(1, 2, hex("0304"));
    QCOMPARE(writeFrame(1, 2, hex("0304"), QString()), frame);
    QCOMPARE(writeFrame(1, 2, hex("0304"), QStringLiteral("文本")), frame);
}

void TestQuadrelComm::dataMayHoldAnyBytes()
{
    QByteArray data;
    for (int byte = 0; byte < 256; ++byte)
        data.append(static_cast<char>(byte));
    QCOMPARE(writeFrame(0, 0, data).mid(payloadOffset, 256), data);
    // A frame inside a frame is data like any other.
    const QByteArray inner = readFrame(1, 2, 3);
    QCOMPARE(writeFrame(0, 0, inner).mid(payloadOffset, inner.size()), inner);
}

void TestQuadrelComm::requestIsOnePerThread()
{
    PackageRequestProto3rd* own = KVProtocolParser::Get_CommonRead(0, 0, 1);
    QVERIFY(own);
    for (int i = 0; i < 1000; ++i) {
        QCOMPARE(KVProtocolParser::Get_CommonRead(0, 0, 1), own);
        QCOMPARE(KVProtocolParser::Set_CommonWrite(0, 0, 1, hex("00"), QString()), own);
    }
    PackageRequestProto3rd* other = nullptr;
    std::thread([&] { other = KVProtocolParser::Get_CommonRead(0, 0, 1); }).join();
    QVERIFY(other);
    QVERIFY(other != own);
}

void TestQuadrelComm::framesOutliveTheirRequest()
{
    QByteArray fromThread;
    std::thread([&] { fromThread = readFrame(1, 0xF0000000, 32); }).join();
    const QByteArray first = readFrame(1, 0xF0000000, 32);
    const QByteArray copy(first.constData(), first.size());
    const QByteArray second = writeFrame(2, 0x06000000, QByteArray(2048, 'x'));
    QCOMPARE(first, copy);
    QCOMPARE(fromThread, copy);
    QVERIFY(second != copy);

    PackageRequestProto3rd* request = KVProtocolParser::Get_CommonRead(1, 0xF0000000, 32);
    QCOMPARE(request->ParseSendRequest(), copy);
    QCOMPARE(request->ParseSendRequest(), copy);
}

void TestQuadrelComm::threadsDoNotMixTheirFrames()
{
    std::promise<void> start;
    const std::shared_future<void> started = start.get_future().share();
    const auto makeMany = [started](char filling) {
        const QByteArray data(100, filling);
        const QByteArray expected = writeFrame(quint8(filling), quint8(filling), data);
        started.wait();
        for (int i = 0; i < 5000; ++i) {
            PackageRequestProto3rd* request = KVProtocolParser::Set_CommonWrite(
                quint8(filling), quint8(filling), 100, data, QString());
            std::this_thread::yield();
            if (request->ParseSendRequest() != expected)
                return false;
        }
        return true;
    };
    auto first = std::async(std::launch::async, makeMany, 'a');
    auto second = std::async(std::launch::async, makeMany, 'b');
    start.set_value();
    QVERIFY(first.get());
    QVERIFY(second.get());
}

void TestQuadrelComm::requestWithoutFrameIsEmpty()
{
    QVERIFY(PackageRequestProto3rd().ParseSendRequest().isEmpty());
    QCOMPARE(PackageRequestProto3rd(hex("01")).ParseSendRequest(), hex("01"));
}

QTEST_APPLESS_MAIN(TestQuadrelComm)
#include "tst_quadrelcomm.moc"
