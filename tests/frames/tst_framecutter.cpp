// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "framecutter.h"
#include "unitframe.h"

#include <QtTest/QtTest>

using namespace QuadrelFrame;
using QuadrelUnit::UnitFrame;

Q_DECLARE_METATYPE(QuadrelFrame::FrameCutter::Fault)

namespace {

const UnitFrame request = UnitFrame::readRequest(7, 0xF0020001, 512);
const QByteArray reply = UnitFrame::replyTo(request, QByteArray(512, 'r')).encode();

void feed(FrameCutter& cutter, const QByteArray& bytes)
{
    cutter.append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

QByteArray changed(QByteArray frame, int position, char byte)
{
    frame[position] = byte;
    return frame;
}

} // namespace

class TestFrameCutter : public QObject {
    Q_OBJECT

private slots:
    void cutsPiecesOfAnySize_data();
    void cutsPiecesOfAnySize();
    void showsTheFields();
    void cutsBothDirections();
    void namesFaults_data();
    void namesFaults();
    void staysBroken();
    void takesAFloodInLinearTime();
};

void TestFrameCutter::cutsPiecesOfAnySize_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {1, 2, 17, 18, 19, 531, 532, 533, 5000})
        QTest::newRow(QByteArray::number(size)) << size;
}

void TestFrameCutter::cutsPiecesOfAnySize()
{
    QFETCH(int, size);
    const QByteArray stream = reply.repeated(9);
    FrameCutter cutter(FrameCutter::Direction::Replies);
    int frames = 0;
    for (int i = 0; i < stream.size(); i += size) {
        feed(cutter, stream.mid(i, size));
        while (const auto frame = cutter.next()) {
            QCOMPARE(QByteArray(frame->bytes(), static_cast<int>(frame->size())), reply);
            ++frames;
        }
    }
    QCOMPARE(frames, 9);
    QCOMPARE(cutter.pending().size(), std::size_t{0});
    QCOMPARE(cutter.fault(), FrameCutter::Fault::None);
}

void TestFrameCutter::showsTheFields()
{
    FrameCutter cutter(FrameCutter::Direction::Replies);
    feed(cutter, reply);
    const auto frame = cutter.next();
    QVERIFY(frame.has_value());
    QCOMPARE(frame->kind(), std::uint8_t{ReadReply});
    QCOMPARE(frame->label(), std::uint8_t{7});
    QCOMPARE(frame->address(), 0xF0020001U);
    QCOMPARE(frame->dataLength(), std::uint16_t{512});
    QCOMPARE(frame->payloadSize(), 512U);
    QCOMPARE(*frame->payload(), 'r');
}

void TestFrameCutter::cutsBothDirections()
{
    FrameCutter requests(FrameCutter::Direction::Requests);
    feed(requests, request.encode() + UnitFrame::writeRequest(8, 1, "data").encode());
    QVERIFY(requests.next().has_value());
    QVERIFY(requests.next().has_value());
    QVERIFY(!requests.next().has_value());
    feed(requests, reply);
    QVERIFY(!requests.next().has_value());
    QCOMPARE(requests.fault(), FrameCutter::Fault::UnknownKind);
}

void TestFrameCutter::namesFaults_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<FrameCutter::Fault>("fault");
    QTest::newRow("first byte") << QByteArray("H") << FrameCutter::Fault::NoMagic;
    QTest::newRow("last byte of the magic")
        << changed(reply, 3, 'X') << FrameCutter::Fault::NoMagic;
    QTest::newRow("kind") << changed(reply, 4, 3).left(5) << FrameCutter::Fault::UnknownKind;
    QTest::newRow("request") << request.encode() << FrameCutter::Fault::UnknownKind;
    QTest::newRow("too long") << changed(reply, 10, 1).left(12)
                              << FrameCutter::Fault::PayloadTooLong;
    QTest::newRow("payload") << changed(reply, 100, 'X') << FrameCutter::Fault::WrongChecksum;
    QTest::newRow("trailer") << changed(reply, 531, static_cast<char>(~reply.at(531)))
                             << FrameCutter::Fault::WrongChecksum;
    QTest::newRow("not whole") << reply.chopped(1) << FrameCutter::Fault::None;
    QTest::newRow("nothing") << QByteArray() << FrameCutter::Fault::None;
}

void TestFrameCutter::namesFaults()
{
    QFETCH(QByteArray, stream);
    FrameCutter cutter(FrameCutter::Direction::Replies);
    feed(cutter, stream);
    QVERIFY(!cutter.next().has_value());
    QTEST(cutter.fault(), "fault");
    QCOMPARE(cutter.pending().size(), static_cast<std::size_t>(stream.size()));
}

void TestFrameCutter::staysBroken()
{
    FrameCutter cutter(FrameCutter::Direction::Replies);
    feed(cutter, reply + "X");
    QVERIFY(cutter.next().has_value());
    QVERIFY(!cutter.next().has_value());
    feed(cutter, reply);
    QVERIFY(!cutter.next().has_value());
    QCOMPARE(cutter.fault(), FrameCutter::Fault::NoMagic);
}

/** A million small frames at once: moving the rest after each would take hours. */
void TestFrameCutter::takesAFloodInLinearTime()
{
    constexpr int count = 1000000;
    const QByteArray small = UnitFrame::replyTo(UnitFrame::writeRequest(1, 0, "x")).encode();
    FrameCutter cutter(FrameCutter::Direction::Replies);
    feed(cutter, small.repeated(count));
    int frames = 0;
    while (cutter.next())
        ++frames;
    QCOMPARE(frames, count);
}

QTEST_APPLESS_MAIN(TestFrameCutter)
#include "tst_framecutter.moc"
