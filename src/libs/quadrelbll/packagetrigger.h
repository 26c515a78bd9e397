// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal to the library; not installed.
#pragma once

#include "triggerinfo.h"

#include <QtCore/QByteArray>
#include <QtCore/QObject>

class ReplyFrame;
class TriggerModel;
class TriggerBlock;

/**
 * The trigger block, 512 bytes a serial or IO trigger. Its table has one count byte in front and is
 * shared with the time triggers, so a slot with a record of another class is not a fault.
 *
 * | Offset | Width | Field |
 * |---|---|---|
 * | 0 | 2 | `n`, bytes from offset 2 to the tail, little-endian |
 * | 2 | 3 | 0x4C, 0x01, 0x00 |
 * | 5 | 2 | record class and subclass: 0x25, 0x10 serial; 0x24, 0x17 IO |
 * | 7 | 2 | 0x03 serial, 0x02 IO; 0x52 |
 * | 2 + `n` | | tail, see TriggerBlock |
 *
 * Serial part, `n` = 11 + `P`:
 *
 * | Offset | Width | Field |
 * |---|---|---|
 * | 9 | 1 | 1 plain data, 2 Modbus |
 * | 10 | 2 | port, see SelectorMask |
 * | 12 | 1 | `P`, number of parameter bytes; written, not read |
 * | 13 | `P` | parameter, the bytes to wait for |
 *
 * IO part, `n` = 10:
 *
 * | Offset | Width | Field |
 * |---|---|---|
 * | 9 | 2 | input, see SelectorMask |
 * | 11 | 1 | level: 1 high, 0 low |
 *
 * The trigger's id is not stored: the reader leaves it at its default, for the caller to number.
 */
class PackageTrigger : public QObject {
    Q_OBJECT

public:
    explicit PackageTrigger(QObject* parent = nullptr);

    /** One block; longer than 512 bytes if its texts need it. */
    static QByteArray createTriggerPackage(TriggerInfo trigger);

    /** The count byte and the blocks after it, back to back. */
    static QByteArray createTriggerListPackage(TriggerModel model);

    static bool parseTriggerCount(
        uint dataType, QByteArray package, int dataLength, int& count, QString& error);

    /** Appends the trigger of one slot, or nothing if the slot holds another kind of record. */
    static bool parseTriggerPackage(
        uint dataType, QByteArray package, int dataLength, TriggerModel& model, QString& error);

private:
    static void readInputBody(const ReplyFrame& frame, TriggerInfo& trigger);
    static QString lowLevelText();
    static QString highLevelText();
};
