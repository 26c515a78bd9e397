// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal; not installed.
#pragma once

#include "deadline.h"
#include "unitaddress.h"
#include "wakesignal.h"

#include <QtCore/QByteArray>

#include <memory>
#include <system_error>
#include <vector>

#include <sys/socket.h>

/** One address of a unit, as the system knows it. */
struct Endpoint {
    sockaddr_storage address;
    socklen_t size;
};

/**
 * The addresses of a unit's name, in the system's order. A name is looked up in a thread of its
 * own, which is left to itself when time runs out: the system's lookup knows no time limit. None on
 * failure, with the reason in `error`. Ends early when `cancel` is raised.
 */
std::vector<Endpoint> findEndpoints(const UnitAddress& address, const Deadline& deadline,
    const WakeSignal& cancel, std::error_code& error);

/**
 * A connected socket. Shared, and closed with its last owner, so that nobody can ever use a
 * descriptor that has become another's.
 */
class UnitSocket {
public:
    /** Null on failure, with the reason in `error`. Ends early when `cancel` is raised. */
    static std::shared_ptr<UnitSocket> connectTo(const Endpoint& endpoint,
        UnitAddress::Protocol protocol, const Deadline& deadline, const WakeSignal& cancel,
        std::error_code& error);

    UnitSocket(int descriptor, UnitAddress::Protocol protocol);
    ~UnitSocket();
    UnitSocket(const UnitSocket&) = delete;
    UnitSocket& operator=(const UnitSocket&) = delete;

    int descriptor() const { return m_descriptor; }
    bool isDatagram() const { return m_protocol == UnitAddress::Udp; }

    /** Sends all of it. */
    std::error_code send(
        const QByteArray& frame, const Deadline& deadline, const WakeSignal& cancel);
    /** Receives without waiting. The number of bytes, 0 if there are none; negative on failure. */
    int receive(char* buffer, int size, std::error_code& error);
    /** Whether the other side has closed the connection, with nothing left to read. */
    bool isAtEnd() const;
    /** Ends the connection at once, whoever else holds the socket. */
    void shutDown();

private:
    /** Sends as much as goes out at once. The number of bytes; negative on failure. */
    int sendNow(const char* bytes, int size, std::error_code& error);

    int m_descriptor;
    UnitAddress::Protocol m_protocol;
};
