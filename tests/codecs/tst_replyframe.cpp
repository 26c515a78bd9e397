// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "replyframe.h"

#include "replyframes.h"

#include <QtTest/QTest>

using Fault = ReplyFrame::Fault;

class TestReplyFrame : public QObject {
    Q_OBJECT

private slots:
    void testsAreMadeInOrder_data();
    void testsAreMadeInOrder();
    void readsLittleEndian();
    void readsZeroPastTheEnd_data();
    void readsZeroPastTheEnd();
    void tellsTheRealPayloadSize();
    void writesHexText_data();
    void writesHexText();
};

void TestReplyFrame::testsAreMadeInOrder_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<qint64>("dataLength");
    QTest::addColumn<int>("fault");

    const auto row = [](const char* name, const QByteArray& bytes, qint64 length, Fault fault) {
        QTest::newRow(name) << bytes << length << static_cast<int>(fault);
    };
    const uint type = 0xF0011234;
    row("empty", {}, 4, Fault::TooShort);
    row("19 bytes", QByteArray(19, '\xFF'), 4, Fault::TooShort);
    row("20 bytes", replyFrame(type, {}, 4), 4, Fault::None);
    row("whole", replyFrame(type, "abcd"), 4, Fault::None);
    row("low half", replyFrame(0xF0011235, "abcd"), 4, Fault::OtherDataType);
    row("high half", replyFrame(0xF0021234, "abcd"), 4, Fault::OtherDataType);
    row("both wrong", replyFrame(0, "abcd"), 5, Fault::OtherDataType);
    row("length below", replyFrame(type, "abcd", 3), 4, Fault::OtherDataLength);
    row("length above", replyFrame(type, "abcd", 5), 4, Fault::OtherDataLength);
    row("length high byte", replyFrame(type, "abcd", 0x104), 4, Fault::OtherDataLength);
    row("longest", replyFrame(type, {}, 0xFFFF), 0xFFFF, Fault::None);
    row("more than 16 bits", replyFrame(type, {}, 4), 0x10004, Fault::OtherDataLength);
    row("negative", replyFrame(type, {}, 0xFFFF), -1, Fault::OtherDataLength);
    row("longer than its field", replyFrame(type, QByteArray(99, 'x'), 4), 4, Fault::None);
}

void TestReplyFrame::testsAreMadeInOrder()
{
    QFETCH(QByteArray, bytes);
    QFETCH(qint64, dataLength);
    QFETCH(int, fault);
    QCOMPARE(static_cast<int>(ReplyFrame(bytes).check(0xF0011234, dataLength)), fault);
}

void TestReplyFrame::readsLittleEndian()
{
    const QByteArray bytes = replyFrame(0, hex("0102030405060708f9"));
    const ReplyFrame frame(bytes);
    QCOMPARE(frame.payloadByte(0), quint8(0x01));
    QCOMPARE(frame.payloadByte(8), quint8(0xF9));
    QCOMPARE(frame.payloadWord(0), quint16(0x0201));
    QCOMPARE(frame.payloadDoubleWord(5), quint32(0xF9080706));
    QCOMPARE(frame.payloadQuadWord(0), quint64(0x0807060504030201));
}

void TestReplyFrame::readsZeroPastTheEnd_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 17, 18, 19, 20, 21, 25})
        QTest::addRow("%d bytes", size) << size;
}

void TestReplyFrame::readsZeroPastTheEnd()
{
    QFETCH(int, size);
    const QByteArray bytes(size, '\xFF');
    const ReplyFrame frame(bytes);
    quint64 expected = 0;
    for (int i = 0; i < 8; ++i) {
        const quint8 byte = 18 + i < size ? 0xFF : 0;
        QCOMPARE(frame.payloadByte(i), byte);
        expected |= quint64(byte) << 8 * i;
    }
    QCOMPARE(frame.payloadQuadWord(0), expected);
    QCOMPARE(frame.payloadDoubleWord(0), static_cast<quint32>(expected));
    QCOMPARE(frame.payloadWord(0), static_cast<quint16>(expected));
    QCOMPARE(frame.payloadByte(70000), quint8(0));
}

void TestReplyFrame::tellsTheRealPayloadSize()
{
    const QByteArray whole = replyFrame(0, "abcd", 99);
    const QByteArray empty = replyFrame(0, {}, 99);
    const QByteArray none;
    QCOMPARE(ReplyFrame(whole).payloadSize(), 4);
    QCOMPARE(ReplyFrame(empty).payloadSize(), 0);
    QVERIFY(ReplyFrame(none).payloadSize() < 0);
}

void TestReplyFrame::writesHexText_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("text");

    QTest::newRow("nothing") << 0 << 0 << QString();
    QTest::newRow("less than nothing") << 0 << -11 << QString();
    QTest::newRow("one") << 1 << 1 << "0a";
    QTest::newRow("lower case") << 0 << 3 << "4c 0a ff";
    QTest::newRow("past the end") << 2 << 5 << "ff 00 00 00 00";
    QTest::newRow("far away") << 70000 << 2 << "00 00";
}

void TestReplyFrame::writesHexText()
{
    QFETCH(int, offset);
    QFETCH(int, count);
    QFETCH(QString, text);
    const QByteArray bytes = replyFrame(0, hex("4c0aff"));
    QCOMPARE(ReplyFrame(bytes).payloadHexText(offset, count), text);
}

QTEST_APPLESS_MAIN(TestReplyFrame)
#include "tst_replyframe.moc"
