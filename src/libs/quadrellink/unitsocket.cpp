// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitsocket.h"

#include "linkerror.h"
#include "workerthread.h"

#include <algorithm>
#include <cerrno>
#include <string>

#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <unistd.h>

namespace {

struct Lookup {
    std::string host;
    std::string port;
    int socketType;
    std::vector<Endpoint> endpoints;
    WakeSignal done;
};

std::error_code systemError(int number)
{
    return {number, std::system_category()};
}

void lookUp(Lookup& lookup, int flags)
{
    addrinfo hints = {};
    hints.ai_socktype = lookup.socketType;
    hints.ai_flags = flags | AI_NUMERICSERV;
    addrinfo* results = nullptr;
    if (getaddrinfo(lookup.host.c_str(), lookup.port.c_str(), &hints, &results) != 0)
        return;
    for (const addrinfo* result = results; result; result = result->ai_next) {
        Endpoint endpoint = {};
        std::copy_n(reinterpret_cast<const char*>(result->ai_addr), result->ai_addrlen,
            reinterpret_cast<char*>(&endpoint.address));
        endpoint.size = result->ai_addrlen;
        lookup.endpoints.push_back(endpoint);
    }
    freeaddrinfo(results);
}

/** Waits until `descriptor` is ready. */
std::error_code awaitReady(
    int descriptor, short events, const Deadline& deadline, const WakeSignal& cancel)
{
    pollfd waited[] = {{cancel.descriptor(), POLLIN, 0}, {descriptor, events, 0}};
    for (;;) {
        const int ready = poll(waited, 2, deadline.remaining());
        if (ready < 0 && errno != EINTR)
            return systemError(errno);
        if (ready == 0)
            return std::make_error_code(std::errc::timed_out);
        if (ready > 0)
            return waited[0].revents ? LinkError::Cancelled : std::error_code();
    }
}

std::error_code awaitLookup(
    const std::shared_ptr<Lookup>& lookup, const Deadline& deadline, const WakeSignal& cancel)
{
    startWorkerThread([lookup] {
        lookUp(*lookup, AI_ADDRCONFIG);
        lookup->done.raise();
    }).detach();
    return awaitReady(lookup->done.descriptor(), POLLIN, deadline, cancel);
}

std::error_code finishConnect(int descriptor, const Deadline& deadline, const WakeSignal& cancel)
{
    const std::error_code error = awaitReady(descriptor, POLLOUT, deadline, cancel);
    if (error)
        return error;
    int number = 0;
    socklen_t size = sizeof(number);
    getsockopt(descriptor, SOL_SOCKET, SO_ERROR, &number, &size);
    return systemError(number);
}

} // namespace

std::vector<Endpoint> findEndpoints(const UnitAddress& address, const Deadline& deadline,
    const WakeSignal& cancel, std::error_code& error)
{
    error.clear();
    try {
        auto lookup = std::make_shared<Lookup>();
        lookup->host = address.host.toStdString();
        lookup->port = std::to_string(address.port);
        lookup->socketType = address.protocol == UnitAddress::Udp ? SOCK_DGRAM : SOCK_STREAM;
        lookUp(*lookup, AI_NUMERICHOST);
        if (lookup->endpoints.empty()) {
            error = awaitLookup(lookup, deadline, cancel);
            if (error)
                return {};
            lookup->done.clear();
        }
        if (lookup->endpoints.empty())
            error = LinkError::UnknownHost;
        return lookup->endpoints;
    } catch (const std::system_error& failure) {
        error = failure.code();
        return {};
    }
}

std::shared_ptr<UnitSocket> UnitSocket::connectTo(const Endpoint& endpoint,
    UnitAddress::Protocol protocol, const Deadline& deadline, const WakeSignal& cancel,
    std::error_code& error)
{
    const int type = protocol == UnitAddress::Udp ? SOCK_DGRAM : SOCK_STREAM;
    const int descriptor =
        ::socket(endpoint.address.ss_family, type | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (descriptor < 0) {
        error = systemError(errno);
        return nullptr;
    }
    auto socket = std::make_shared<UnitSocket>(descriptor, protocol);
    error.clear();
    const auto* const address = reinterpret_cast<const sockaddr*>(&endpoint.address);
    if (::connect(descriptor, address, endpoint.size) != 0)
        error =
            errno == EINPROGRESS ? finishConnect(descriptor, deadline, cancel) : systemError(errno);
    return error ? nullptr : socket;
}

UnitSocket::UnitSocket(int descriptor, UnitAddress::Protocol protocol)
    : m_descriptor(descriptor)
    , m_protocol(protocol)
{
    const int on = 1;
    if (protocol == UnitAddress::Tcp)
        setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &on, sizeof(on));
}

UnitSocket::~UnitSocket()
{
    close(m_descriptor);
}

int UnitSocket::sendNow(const char* bytes, int size, std::error_code& error)
{
    const ssize_t count =
        ::send(m_descriptor, bytes, static_cast<size_t>(size), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (count >= 0)
        return static_cast<int>(count);
    if (errno == EAGAIN || errno == EINTR)
        return 0;
    error = systemError(errno);
    return -1;
}

std::error_code UnitSocket::send(
    const QByteArray& frame, const Deadline& deadline, const WakeSignal& cancel)
{
    std::error_code error;
    int sent = 0;
    while (sent < frame.size()) {
        const int count = sendNow(frame.constData() + sent, frame.size() - sent, error);
        if (count < 0)
            return error;
        sent += count;
        // A peer that takes a little now and then is ready again each time.
        if (count == 0)
            error = deadline.isOver() ? std::make_error_code(std::errc::timed_out)
                                      : awaitReady(m_descriptor, POLLOUT, deadline, cancel);
        if (error)
            return error;
    }
    return error;
}

int UnitSocket::receive(char* buffer, int size, std::error_code& error)
{
    const ssize_t count = recv(m_descriptor, buffer, static_cast<size_t>(size), 0);
    if (count > 0 || (count == 0 && isDatagram()))
        return static_cast<int>(count);
    if (count == 0) {
        error = LinkError::ConnectionLost;
        return -1;
    }
    // Another wake than for data, or a datagram whose checksum the system refused.
    if (errno == EAGAIN || errno == EINTR)
        return 0;
    error = systemError(errno);
    return -1;
}

bool UnitSocket::isAtEnd() const
{
    char byte = 0;
    return !isDatagram() && recv(m_descriptor, &byte, 1, MSG_PEEK) == 0;
}

void UnitSocket::shutDown()
{
    shutdown(m_descriptor, SHUT_RDWR);
}
