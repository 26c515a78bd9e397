// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "patience.h"
#include "unitframe.h"
#include "unitframereader.h"

#include "kvprotocolparser.h"

#include <QtCore/QDeadlineTimer>
#include <QtTest/QtTest>

using namespace QuadrelUnit;

namespace {

QByteArray fromHex(const char* text)
{
    return QByteArray::fromHex(text);
}

/** Feeds the bytes one by one and returns how many went in before the reader broke, or -1. */
int brokenAfter(UnitFrameReader& reader, const QByteArray& bytes)
{
    for (int i = 0; i < bytes.size(); ++i) {
        reader.feed(bytes.mid(i, 1));
        if (!reader.next() && reader.isBroken())
            return i + 1;
    }
    return -1;
}

QByteArray withByte(QByteArray bytes, int offset, int value)
{
    bytes[offset] = static_cast<char>(value);
    return bytes;
}

/** The frame with a CRC that fits its bytes. */
QByteArray withCrc(const QByteArray& bytes)
{
    const QByteArray checked = bytes.left(bytes.size() - 2);
    const quint16 crc =
        qChecksum(checked.constData(), static_cast<uint>(checked.size()), Qt::ChecksumIso3309);
    return checked + static_cast<char>(crc) + static_cast<char>(crc >> 8);
}

} // namespace

class TestUnitFrame : public QObject {
    Q_OBJECT

private slots:
    void encodes();
    void repliesRepeatLabelAndAddress();
    void readsWhatTheLibrarySends_data();
    void readsWhatTheLibrarySends();
    void readsByteByByte();
    void readsSeveralFramesAtOnce();
    void keepsHalfAFrame();
    void readsManyFramesInLinearTime();
    void forgetsWhatItHandedOut();
    void readsReplies();
    void refusesGarbage_data();
    void refusesGarbage();
    void staysBroken();
    void readsTheLargestFrame();
    void readsDatagrams_data();
    void readsDatagrams();
    void survivesAnyBytes();
};

void TestUnitFrame::encodes()
{
    // The CRC was computed apart from this program, bit by bit with the polynomial 0x8408.
    QCOMPARE(UnitFrame::writeRequest(7, 0xF000001C, fromHex("01")).encode(),
        fromHex("5144524c 02 07 0000 01000000 1c0000f0 0100 01 573f"));
    QCOMPARE(UnitFrame::readRequest(0xFE, 0x02000011, 6).encode(),
        fromHex("5144524c 01 fe 0000 00000000 11000002 0600 5ce7"));
}

void TestUnitFrame::repliesRepeatLabelAndAddress()
{
    const UnitFrame read =
        UnitFrame::replyTo(UnitFrame::readRequest(9, 0xF0010000, 1), fromHex("40"));
    QCOMPARE(read.encode().left(19), fromHex("5144524c 81 09 0000 01000000 000001f0 0100 40"));
    QCOMPARE(read.encode().size(), 21);

    const UnitFrame written =
        UnitFrame::replyTo(UnitFrame::writeRequest(10, 0xF0010000, fromHex("40")));
    QCOMPARE(written.encode().left(18), fromHex("5144524c 82 0a 0000 00000000 000001f0 0000"));
    QCOMPARE(written.encode().size(), 20);
}

void TestUnitFrame::readsWhatTheLibrarySends_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("one byte") << fromHex("00");
    QTest::newRow("four records") << QByteArray(2048, '\xA5');
    QTest::newRow("the most") << QByteArray(65535, 'x');
}

void TestUnitFrame::readsWhatTheLibrarySends()
{
    QFETCH(QByteArray, data);
    UnitFrameReader reader;
    const auto length = static_cast<unsigned int>(data.size());
    reader.feed(KVProtocolParser::Set_CommonWrite(254, 0xF0020001, length, data, QString())
                    ->ParseSendRequest());
    reader.feed(KVProtocolParser::Get_CommonRead(0, 0xFFFFFFFF, length)->ParseSendRequest());

    const std::optional<UnitFrame> write = reader.next();
    QVERIFY(write);
    QVERIFY(write->isWriteRequest());
    QCOMPARE(write->label, quint8(254));
    QCOMPARE(write->address, quint32(0xF0020001));
    QCOMPARE(int(write->dataLength), data.size());
    QCOMPARE(write->payload, data);

    const std::optional<UnitFrame> read = reader.next();
    QVERIFY(read);
    QVERIFY(read->isReadRequest());
    QCOMPARE(read->label, quint8(0));
    QCOMPARE(read->address, quint32(0xFFFFFFFF));
    QCOMPARE(int(read->dataLength), data.size());
    QVERIFY(read->payload.isEmpty());
}

void TestUnitFrame::readsByteByByte()
{
    const QByteArray bytes =
        UnitFrame::writeRequest(3, 0xF0001000, fromHex("00c20100080100")).encode();
    UnitFrameReader reader;
    for (int i = 0; i < bytes.size() - 1; ++i) {
        reader.feed(bytes.mid(i, 1));
        QVERIFY(!reader.next());
        QVERIFY2(!reader.isBroken(), qPrintable(reader.error()));
    }
    reader.feed(bytes.right(1));
    const std::optional<UnitFrame> frame = reader.next();
    QVERIFY(frame);
    QCOMPARE(frame->encode(), bytes);
    QCOMPARE(reader.pendingBytes(), 0);
    QVERIFY(!reader.next());
    QVERIFY(!reader.isBroken());
}

void TestUnitFrame::readsSeveralFramesAtOnce()
{
    UnitFrameReader reader;
    QByteArray bytes;
    for (int label = 0; label < 10; ++label)
        bytes += UnitFrame::readRequest(static_cast<quint8>(label), 0xF0000000, 32).encode();
    reader.feed(bytes);
    for (int label = 0; label < 10; ++label) {
        const std::optional<UnitFrame> frame = reader.next();
        QVERIFY(frame);
        QCOMPARE(int(frame->label), label);
    }
    QVERIFY(!reader.next());
}

void TestUnitFrame::keepsHalfAFrame()
{
    const QByteArray bytes = UnitFrame::readRequest(1, 0xF0000000, 32).encode();
    UnitFrameReader reader;
    reader.feed(bytes + bytes.left(7));
    QVERIFY(reader.next());
    QVERIFY(!reader.next());
    QCOMPARE(reader.pendingBytes(), 7);
    reader.feed(bytes.mid(7));
    QVERIFY(reader.next());
}

void TestUnitFrame::readsManyFramesInLinearTime()
{
    // In linear time it takes less than a second; moving the rest after each frame, ten minutes.
    constexpr int frames = 800000;
    const QDeadlineTimer deadline(patience);
    UnitFrameReader reader;
    reader.feed(UnitFrame::readRequest(1, 0, 0).encode().repeated(frames));
    for (int i = 0; i < frames; ++i) {
        if (!reader.next())
            QFAIL(qPrintable(QString::number(i)));
        if (i % 1000 == 0)
            QVERIFY2(!deadline.hasExpired(), qPrintable(QString::number(i)));
    }
    QVERIFY(!reader.next());
    QCOMPARE(reader.pendingBytes(), 0);
}

void TestUnitFrame::forgetsWhatItHandedOut()
{
    UnitFrameReader reader;
    const QByteArray one = UnitFrame::writeRequest(1, 0x1000, "payload").encode();
    const QByteArray three = one.repeated(3);
    // In pieces that never end where a frame does, until the last.
    for (int i = 0; i < 1000; ++i) {
        reader.feed(three.left(40));
        QVERIFY(reader.next());
        QCOMPARE(reader.pendingBytes(), 40 - one.size());
        reader.feed(three.mid(40));
        QVERIFY(reader.next());
        QCOMPARE(reader.pendingBytes(), one.size());
        QVERIFY(reader.next());
        QVERIFY(!reader.next());
        QVERIFY(!reader.isBroken());
        QCOMPARE(reader.pendingBytes(), 0);
    }
}

void TestUnitFrame::readsReplies()
{
    const UnitFrame request = UnitFrame::readRequest(1, 0xF0000000, 3);
    UnitFrameReader reader(UnitFrameReader::Replies);
    reader.feed(UnitFrame::replyTo(request, fromHex("010203")).encode());
    const std::optional<UnitFrame> reply = reader.next();
    QVERIFY(reply);
    QVERIFY(!reply->isReadRequest());
    QVERIFY(!reply->isWriteRequest());
    QCOMPARE(reply->payload, fromHex("010203"));

    reader.feed(request.encode());
    QVERIFY(!reader.next());
    QCOMPARE(reader.error(), QStringLiteral("unknown kind of frame 0x01"));
}

void TestUnitFrame::refusesGarbage_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("brokenAfterBytes");
    QTest::addColumn<QString>("error");

    const QByteArray read = UnitFrame::readRequest(1, 0xF0000000, 32).encode();
    const QByteArray write = UnitFrame::writeRequest(1, 0xF0000000, fromHex("0102")).encode();
    const QString magic = QStringLiteral("the bytes do not begin as a frame does");
    QTest::newRow("first byte") << withByte(read, 0, 'q') << 1 << magic;
    QTest::newRow("last byte of the magic") << withByte(read, 3, 'l') << 4 << magic;
    QTest::newRow("kind 0") << withByte(read, 4, 0) << 5
                            << QStringLiteral("unknown kind of frame 0x00");
    QTest::newRow("kind of a reply")
        << withByte(read, 4, 0x81) << 5 << QStringLiteral("unknown kind of frame 0x81");
    QTest::newRow("length over the limit") << withByte(
        read, 10, 1) << 12 << QStringLiteral("a payload of 65536 bytes is over the limit of 65535");
    QTest::newRow("length of all ones")
        << read.left(8) + fromHex("ffffffff") << 12
        << QStringLiteral("a payload of 4294967295 bytes is over the limit of 65535");
    QTest::newRow("CRC") << read.left(18) + fromHex("0000") << 20
                         << QStringLiteral("the CRC is 0x0000 and should be 0x%1")
                                .arg(quint8(read[18]) | quint8(read[19]) << 8, 4, 16,
                                    QLatin1Char('0'));
    QByteArray small = read;
    for (quint8 label = 2; label < 255 && quint8(small[19]) > 0x0F; ++label)
        small = UnitFrame::readRequest(label, 0xF0000000, 32).encode();
    QTest::newRow("CRC of three digits") << small.left(18) + fromHex("0000") << 20
                                         << QStringLiteral("the CRC is 0x0000 and should be 0x0")
            + QString::fromLatin1((small.mid(19, 1) + small.mid(18, 1)).toHex().mid(1));
    QTest::newRow("read with a payload")
        << withCrc(withByte(write, 4, 1)) << 22 << QStringLiteral("a read request carries 2 bytes");
    QTest::newRow("write with another length") << withCrc(
        withByte(write, 16, 3)) << 22 << QStringLiteral("a write request of 3 bytes carries 2");
}

void TestUnitFrame::refusesGarbage()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, brokenAfterBytes);
    QFETCH(QString, error);

    UnitFrameReader reader;
    QCOMPARE(brokenAfter(reader, bytes), brokenAfterBytes);
    QCOMPARE(reader.error(), error);

    UnitFrameReader atOnce;
    atOnce.feed(bytes);
    QVERIFY(!atOnce.next());
    QCOMPARE(atOnce.error(), error);
}

void TestUnitFrame::staysBroken()
{
    UnitFrameReader reader;
    reader.feed("x");
    QVERIFY(!reader.next());
    const QString error = reader.error();
    reader.feed(UnitFrame::readRequest(1, 0xF0000000, 32).encode());
    QVERIFY(!reader.next());
    QCOMPARE(reader.error(), error);
}

void TestUnitFrame::readsTheLargestFrame()
{
    const QByteArray data(65535, 'd');
    const QByteArray bytes = UnitFrame::writeRequest(1, 0, data).encode();
    UnitFrameReader reader;
    for (int i = 0; i < bytes.size(); i += 1000) {
        QVERIFY(!reader.next());
        reader.feed(bytes.mid(i, 1000));
    }
    const std::optional<UnitFrame> frame = reader.next();
    QVERIFY(frame);
    QCOMPARE(frame->payload, data);
}

void TestUnitFrame::readsDatagrams_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("error");

    const QByteArray read = UnitFrame::readRequest(1, 0xF0000000, 32).encode();
    QTest::newRow("good") << read << QString();
    QTest::newRow("empty") << QByteArray() << QStringLiteral("the frame ends after 0 bytes");
    QTest::newRow("short") << read.left(19) << QStringLiteral("the frame ends after 19 bytes");
    QTest::newRow("long") << read + "abc" << QStringLiteral("the frame is followed by 3 bytes");
    QTest::newRow("one too long") << read + "a"
                                  << QStringLiteral("the frame is followed by 1 byte");
    QTest::newRow("garbage") << QByteArray("abc")
                             << QStringLiteral("the bytes do not begin as a frame does");
}

void TestUnitFrame::readsDatagrams()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, error);
    QString found;
    QCOMPARE(UnitFrameReader::datagram(bytes, &found).has_value(), error.isEmpty());
    QCOMPARE(found, error);
}

void TestUnitFrame::survivesAnyBytes()
{
    QRandomGenerator random(20261121);
    const QByteArray good = UnitFrame::writeRequest(5, 0xF0020001, QByteArray(64, 'e')).encode();
    for (int round = 0; round < 2000; ++round) {
        QByteArray bytes = good + good;
        for (int i = 0; i < 3; ++i)
            bytes[random.bounded(bytes.size())] = static_cast<char>(random.bounded(256));
        UnitFrameReader reader;
        int frames = 0;
        for (int i = 0; i < bytes.size(); i += 13) {
            reader.feed(bytes.mid(i, 13));
            while (const std::optional<UnitFrame> frame = reader.next()) {
                QCOMPARE(frame->payload.size(), int(frame->dataLength));
                ++frames;
            }
        }
        QVERIFY(frames <= 2);
        QVERIFY(frames == 2 || reader.isBroken() || reader.pendingBytes() > 0);
    }
}

QTEST_APPLESS_MAIN(TestUnitFrame)
#include "tst_unitframe.moc"
