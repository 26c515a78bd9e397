// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "randomreplies.h"
#include "replyframes.h"

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtTest/QTest>

/**
 * What the codecs of triggers and of time triggers do alike with the head and the tail of their
 * blocks. A `parse` takes a reply, the model to append to, and the error.
 */
namespace TriggerChecks {

constexpr uint countDataType = 0xF0010000;
constexpr uint triggerDataType = 0xF0010001;
constexpr int slotSize = 512;

/**
 * A block that begins with the length of its body and the body, cut or filled up with 0 to that
 * length, and ends with a tail of so many events and bytes of description.
 */
inline QByteArray blockOf(
    const QByteArray& body, int bodyLength, int eventCount, int descriptionLength)
{
    QByteArray block;
    block += static_cast<char>(bodyLength);
    block += static_cast<char>(bodyLength >> 8);
    block += slotOf(body, bodyLength).left(bodyLength);
    block += static_cast<char>(eventCount);
    block += QByteArray(eventCount, '\x07');
    block += static_cast<char>(descriptionLength);
    block += QByteArray(descriptionLength, '\x41');
    return slotOf(block);
}

/** Reads the record of a block that must be accepted; else one that equals no record of a test. */
template <typename Model, typename Parse> auto readerOf(Parse parse)
{
    return [parse](const QByteArray& block) {
        Model model;
        QString error;
        const bool read = parse(replyFrame(triggerDataType, block, slotSize), model, error);
        if (read && model.size() == 1)
            return model.at(0);
        decltype(model.at(0)) none;
        none.setTriggerId(-999);
        none.setTriggerInstruction(error);
        return none;
    };
}

/** Finds the message that a block is refused with; empty if it is not. */
template <typename Model, typename Parse> auto faultFinderOf(Parse parse)
{
    return [parse](const QByteArray& block) {
        Model model;
        QString error;
        const bool read = parse(replyFrame(triggerDataType, block, slotSize), model, error);
        return !read && model.size() == 0 ? error : QString();
    };
}

/** Rows of "instruction" and "description", the bytes of the tail that it is written as. */
inline void addDescriptionRows()
{
    QTest::addColumn<QString>("instruction");
    QTest::addColumn<QByteArray>("description");
    QTest::newRow("chinese") << "打开" << hex("04 6253 5f00");
    // Unlike that of an event, the text does not end at a NUL.
    QTest::newRow("NUL") << QStringLiteral("A") + QChar(0) + QStringLiteral("B")
                         << hex("06 0041 0000 0042");
    QTest::newRow("surrogate last") << QStringLiteral("A") + QChar(0xD800) << hex("04 0041 003f");
    QTest::newRow("byte order mark") << QChar(0xFEFF) + QStringLiteral("A") << hex("02 0041");
}

/** Rows of "events" and bytes of "description" in a tail, and the "fault" that they make. */
inline void addTailLimitRows()
{
    QTest::addColumn<int>("events");
    QTest::addColumn<int>("description");
    QTest::addColumn<QString>("fault");
    const QString tooMany = QStringLiteral("触发事件个数已超出最大个数，最大为128个事件！");
    const QString tooLong = QStringLiteral("描述信息数长度有误！");
    QTest::newRow("127, 63") << 127 << 63 << QString();
    QTest::newRow("128, 64") << 128 << 64 << QString();
    QTest::newRow("129, 0") << 129 << 0 << tooMany;
    QTest::newRow("129, 65") << 129 << 65 << tooMany;
    QTest::newRow("0, 65") << 0 << 65 << tooLong;
    QTest::newRow("128, 255") << 128 << 255 << tooLong;
}

/** A reply that is cut off reads as the same one with zeros from there on. */
template <typename Model, typename Parse>
void checkShortFrames(const QByteArray& block, Parse parse)
{
    const QByteArray whole = replyFrame(triggerDataType, block);
    for (int size = 20; size < 60; ++size) {
        Model cut;
        Model padded;
        QString error;
        QVERIFY(parse(whole.left(size), cut, error));
        QVERIFY(parse(slotOf(whole.left(size), whole.size()), padded, error));
        QVERIFY(cut == padded);
    }
}

/** A fault gives a message and no record, and all else at most one record. */
template <typename Model, typename Parse, typename ParseCount>
void checkRandomReplies(const QByteArray& block, Parse parse, ParseCount parseCount)
{
    feedRandomReplies(triggerDataType, slotSize, block, [&](const QByteArray& frame) {
        Model model;
        QString error;
        const bool read = parse(frame, model, error);
        QCOMPARE(error.isEmpty(), read);
        QVERIFY(model.size() <= (read ? 1 : 0));
        int count = 0;
        parseCount(triggerDataType, frame, slotSize, count, error);
    });
}

/** The text of 1 to 128 events, as a reader makes it. */
inline QString randomEvents(QRandomGenerator& random)
{
    QStringList events;
    for (int i = random.bounded(1, 129); i > 0; --i)
        events += QStringLiteral("(ID:%1)").arg(random.bounded(256));
    return events.join(QLatin1Char(';'));
}

} // namespace TriggerChecks
