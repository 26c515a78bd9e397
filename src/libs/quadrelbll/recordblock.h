#pragma once

#include <QtCore/QByteArray>

#include <initializer_list>

/**
 * A block on its way to a unit: one slot of 512 zero bytes that is stored into by offset.
 *
 * A store past the end grows the block, with 0 in every byte that nothing was stored to; nothing
 * ever shortens it. Values keep their low bits.
 */
class RecordBlock {
public:
    /** Bytes that one record has on the unit. */
    static constexpr int slotSize = 512;

    RecordBlock();

    void storeByte(int offset, int value);
    /** Stores 16 bits, low byte first. */
    void storeWord(int offset, int value);
    void storeBytes(int offset, std::initializer_list<quint8> bytes);
    void storeBytes(int offset, const QByteArray& bytes);

    /** Where `count` bytes are to be written from `offset` on; valid until the next call. */
    uchar* room(int offset, int count);

    QByteArray bytes() const;

private:
    QByteArray m_bytes;
};
