// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal to the library; not installed.
#pragma once

#include "triggertimeinfo.h"

#include <QtCore/QByteArray>
#include <QtCore/QObject>

class ReplyFrame;
class TriggerBlock;
class TriggerTimeModel;

/**
 * The time trigger block, 512 bytes a time trigger, in the same table as the blocks of
 * PackageTrigger. Dates and times are packed BCD.
 *
 * | Offset | Width | Field |
 * |---|---|---|
 * | 0 | 2 | `n` = 17, bytes from offset 2 to the tail, little-endian |
 * | 2 | 3 | 0x4C, 0x01, 0x00 |
 * | 5 | 2 | record class and subclass, 0xA5, 0x04 |
 * | 7 | 1 | repeat mode: 0 once, 1 every day, 2 weekly |
 * | 8 | 3 | start date: last two digits of the year, month, day |
 * | 11 | 2 | start time: hour, minute |
 * | 13 | 3 | end date likewise, or 0xFF, 0xFF, 0xFF for a trigger without end |
 * | 16 | 2 | end time, the same as the start time; written, not read |
 * | 18 | 1 | week bits: bit `i` is character `i` of the week selection |
 * | 2 + `n` | | tail, see TriggerBlock |
 *
 * The trigger's id is not stored: the reader leaves it at its default, for the caller to number.
 */
class PackageTimeTrigger : public QObject {
    Q_OBJECT

public:
    explicit PackageTimeTrigger(QObject* parent = nullptr);

    /** One block; longer than 512 bytes if its texts need it. */
    static QByteArray createTimeTriggerPackage(TriggerTimeInfo trigger);

    /**
     * The count byte and, back to back, blocks of another layout: no length, and the tail already
     * at offset 17, over the end minute and the week bits. Ids are found by another rule, too.
     */
    static QByteArray createTimeTriggerListPackage(TriggerTimeModel model);

    static bool parseTimeTriggerCount(
        uint dataType, QByteArray package, int dataLength, int& count, QString& error);

    /** Appends the trigger of one slot, or nothing if the slot holds another kind of record. */
    static bool parseTimeTriggerPackage(
        uint dataType, QByteArray package, int dataLength, TriggerTimeModel& model, QString& error);

    /**
     * The sum of all digits, the first with weight 1 and each with twice the weight of the one
     * before it; what is not a digit adds nothing.
     */
    static int weeklyTextToBits(QString text);

private:
    static void readTrigger(
        const ReplyFrame& frame, const TriggerBlock& block, TriggerTimeInfo& trigger);
};
