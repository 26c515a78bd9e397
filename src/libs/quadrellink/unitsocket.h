#pragma once

#include "unitaddress.h"

#include <QtCore/QByteArray>

#include <chrono>
#include <memory>

/** A wait that ends at a point in time, or never. */
class Deadline {
public:
    /** `milliseconds` from now; a negative number has no end. */
    explicit Deadline(int milliseconds);
    /** What is left for poll(): at least 0, or -1 without an end. */
    int remaining() const;

private:
    bool m_endless;
    std::chrono::steady_clock::time_point m_end;
};

/** A descriptor that wakes a poll() in another thread. */
class WakeSignal {
public:
    WakeSignal();
    ~WakeSignal();
    WakeSignal(const WakeSignal&) = delete;
    WakeSignal& operator=(const WakeSignal&) = delete;

    int descriptor() const { return m_descriptor; }
    void raise();
    void clear();

private:
    int m_descriptor;
};

/**
 * A connected socket. Shared between the thread that sends and the one that receives, and closed
 * with its last owner, so that neither can ever use a descriptor that has become another's.
 */
class UnitSocket {
public:
    /** A failure of the socket: a number of the system, or one of our own. */
    enum OwnError { UnknownHost = -1, TimedOut = -2, Cancelled = -3, Closed = -4 };

    /**
     * Looks the host up and connects. Null on failure, with the reason in `error`. Ends early when
     * `cancel` is raised.
     */
    static std::shared_ptr<UnitSocket> connectTo(
        const UnitAddress& address, const Deadline& deadline, const WakeSignal& cancel, int& error);

    UnitSocket(int descriptor, UnitAddress::Protocol protocol);
    ~UnitSocket();
    UnitSocket(const UnitSocket&) = delete;
    UnitSocket& operator=(const UnitSocket&) = delete;

    int descriptor() const { return m_descriptor; }
    bool isDatagram() const { return m_protocol == UnitAddress::Udp; }

    /** Sends a whole frame. 0, or the reason of a failure. */
    int send(const QByteArray& frame, const Deadline& deadline, const WakeSignal& cancel);
    /** Receives without waiting. The number of bytes; negative on failure, `error` has the reason.
     */
    int receive(char* buffer, int size, int& error);
    /** Whether the other side has closed the connection, with nothing left to read. */
    bool isAtEnd() const;
    /** Ends the connection; the receiving thread wakes. */
    void shutDown();

private:
    int m_descriptor;
    UnitAddress::Protocol m_protocol;
};
