// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal to the library; not installed.
#pragma once

#include "eventidlist.h"
#include "recordclass.h"

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QString>

class RecordBlock;
class ReplyFrame;

/**
 * What trigger and time trigger blocks share: the head, the limits of their slot and, after the
 * part of each kind, the tail with events and description.
 *
 * | Offset in the tail | Width | Field |
 * |---|---|---|
 * | 0 | 1 | `C`, number of events |
 * | 1 | `C` | event ids |
 * | 1 + `C` | 1 | `D`, number of description bytes |
 * | 2 + `C` | `D` | description, see DescriptionText |
 */
class TriggerBlock {
public:
    static constexpr int bodyLengthOffset = 0;
    static constexpr int bodyOffset = 2;
    static constexpr int recordClassOffset = 5;
    static constexpr int kindOffset = 7;

    /** Writes the constant bytes of the head and the record class. */
    static void storeHead(RecordBlock& block, RecordClass recordClass);
    static RecordClass recordClassOf(const ReplyFrame& frame);

    /** Where the tail is in a block. The body is counted from the end of its own length. */
    static constexpr int offsetBehind(int bodyLength) { return bodyOffset + bodyLength; }

    /** Why a tail can't be read; in the order of the tests. */
    enum class Fault { None, TooManyEvents, DescriptionTooLong };

    /**
     * The most that a body may have. The limits fill a slot exactly: 2 length bytes, 316 of body,
     * the count byte, 128 event ids, the description's length byte and 64 of description.
     */
    static constexpr int maximumBodyLength = 316;
    static constexpr int maximumEventCount = 128;
    static constexpr int maximumDescriptionLength = 64;

    /** The block whose tail is at the given offset of the payload. Past the end all is 0. */
    TriggerBlock(const ReplyFrame& frame, int offset);

    /** What a codec says of each fault, marked for translation in its own context. */
    struct FaultTexts {
        const char* tooManyEvents;
        const char* descriptionTooLong;
    };

    /** What a codec puts around the ids of its events, marked likewise. */
    struct EventWords {
        const char* opening;
        const char* closing;
        const char* separator;
    };

    Fault check() const;
    /** False with the codec's text, translated in its `context`. */
    bool accept(const QMetaObject& context, const FaultTexts& texts, QString& error) const;
    /** The events as text, see EventIdList. Words are translated only where they are needed. */
    QString events(const QMetaObject& context, const EventWords& words) const;
    QString description() const;

    /** Writes a tail. Nothing is tested: lengths keep their low 8 bits, bytes are all in place. */
    static void store(
        RecordBlock& block, int offset, const QByteArray& eventIds, const QString& description);

private:
    const ReplyFrame& m_frame;
    const int m_eventIdsOffset;
    const int m_eventCount;
    const int m_descriptionOffset;
    const int m_descriptionLength;
};
