#pragma once

#include <QtCore/QByteArray>

#include <optional>

/** Cuts what arrives from a unit into reply frames. */
class ReplyReader {
public:
    enum Fault {
        NoFault,
        NotAFrame, ///< wrong magic, no reply, or a length that no frame has
        WrongChecksum
    };

    /** Takes bytes of a stream in; frames may come in pieces or several at a time. */
    void append(const char* bytes, int size);
    /** Takes a datagram in, which has to hold exactly one frame. */
    void appendDatagram(const char* bytes, int size);

    /** The next complete frame; nothing while one is incomplete, and never again after a fault. */
    std::optional<QByteArray> takeFrame();

    Fault fault() const { return m_fault; }
    /** Whether some bytes of a frame, but not all, have come in. */
    bool isMidFrame() const { return !m_bytes.isEmpty(); }

    /** The label of a complete frame, request or reply. */
    static unsigned char labelOf(const QByteArray& frame);

private:
    QByteArray m_bytes;
    Fault m_fault = NoFault;
};
