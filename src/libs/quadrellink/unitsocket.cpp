#include "unitsocket.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <string>
#include <thread>
#include <vector>

#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

struct Endpoint {
    sockaddr_storage address;
    socklen_t size;
};

struct Lookup {
    std::string host;
    std::string port;
    int socketType;
    std::vector<Endpoint> endpoints;
    WakeSignal done;
};

bool lookUp(Lookup& lookup, int flags)
{
    addrinfo hints = {};
    hints.ai_socktype = lookup.socketType;
    hints.ai_flags = flags | AI_NUMERICSERV;
    addrinfo* results = nullptr;
    if (getaddrinfo(lookup.host.c_str(), lookup.port.c_str(), &hints, &results) != 0)
        return false;
    for (const addrinfo* result = results; result; result = result->ai_next) {
        Endpoint endpoint = {};
        std::copy_n(reinterpret_cast<const char*>(result->ai_addr), result->ai_addrlen,
            reinterpret_cast<char*>(&endpoint.address));
        endpoint.size = result->ai_addrlen;
        lookup.endpoints.push_back(endpoint);
    }
    freeaddrinfo(results);
    return true;
}

/** Waits until `descriptor` is ready. 0, or the reason why not. */
int awaitReady(int descriptor, short events, const Deadline& deadline, const WakeSignal& cancel)
{
    pollfd waited[] = {{cancel.descriptor(), POLLIN, 0}, {descriptor, events, 0}};
    for (;;) {
        const int ready = poll(waited, 2, deadline.remaining());
        if (ready < 0 && errno != EINTR)
            return errno;
        if (ready == 0)
            return UnitSocket::TimedOut;
        if (ready > 0)
            return waited[0].revents ? static_cast<int>(UnitSocket::Cancelled) : 0;
    }
}

/**
 * The endpoints of an address. A name is looked up in a thread of its own, which is left to itself
 * when time runs out: the system's lookup knows no deadline.
 */
int findEndpoints(const UnitAddress& address, const Deadline& deadline, const WakeSignal& cancel,
    std::vector<Endpoint>& endpoints)
{
    auto lookup = std::make_shared<Lookup>();
    lookup->host = address.host.toStdString();
    lookup->port = std::to_string(address.port);
    lookup->socketType = address.protocol == UnitAddress::Udp ? SOCK_DGRAM : SOCK_STREAM;
    if (!lookUp(*lookup, AI_NUMERICHOST)) {
        std::thread([lookup] {
            lookUp(*lookup, AI_ADDRCONFIG);
            lookup->done.raise();
        }).detach();
        const int error = awaitReady(lookup->done.descriptor(), POLLIN, deadline, cancel);
        if (error)
            return error;
        lookup->done.clear();
    }
    endpoints = lookup->endpoints;
    return endpoints.empty() ? static_cast<int>(UnitSocket::UnknownHost) : 0;
}

int finishConnect(int descriptor, const Deadline& deadline, const WakeSignal& cancel)
{
    int error = awaitReady(descriptor, POLLOUT, deadline, cancel);
    socklen_t size = sizeof(error);
    if (error == 0)
        getsockopt(descriptor, SOL_SOCKET, SO_ERROR, &error, &size);
    return error;
}

} // namespace

Deadline::Deadline(int milliseconds)
    : m_endless(milliseconds < 0)
    , m_end(std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds))
{
}

int Deadline::remaining() const
{
    if (m_endless)
        return -1;
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(m_end - std::chrono::steady_clock::now());
    return static_cast<int>(std::clamp<std::chrono::milliseconds::rep>(left.count(), 0, INT_MAX));
}

WakeSignal::WakeSignal()
    : m_descriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
}

WakeSignal::~WakeSignal()
{
    close(m_descriptor);
}

void WakeSignal::raise()
{
    const eventfd_t count = 1;
    // A full counter is as good: the descriptor is readable then.
    [[maybe_unused]] const ssize_t written = write(m_descriptor, &count, sizeof(count));
}

void WakeSignal::clear()
{
    eventfd_t count = 0;
    [[maybe_unused]] const ssize_t size = read(m_descriptor, &count, sizeof(count));
}

std::shared_ptr<UnitSocket> UnitSocket::connectTo(
    const UnitAddress& address, const Deadline& deadline, const WakeSignal& cancel, int& error)
{
    std::vector<Endpoint> endpoints;
    error = findEndpoints(address, deadline, cancel, endpoints);
    const int type = address.protocol == UnitAddress::Udp ? SOCK_DGRAM : SOCK_STREAM;
    for (const Endpoint& endpoint : endpoints) {
        const int descriptor =
            ::socket(endpoint.address.ss_family, type | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
        if (descriptor < 0) {
            error = errno;
            continue;
        }
        auto socket = std::make_shared<UnitSocket>(descriptor, address.protocol);
        error = 0;
        if (::connect(
                descriptor, reinterpret_cast<const sockaddr*>(&endpoint.address), endpoint.size)
            != 0)
            error = errno == EINPROGRESS ? finishConnect(descriptor, deadline, cancel) : errno;
        if (error == 0)
            return socket;
        if (error == TimedOut || error == Cancelled)
            break;
    }
    return nullptr;
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

int UnitSocket::send(const QByteArray& frame, const Deadline& deadline, const WakeSignal& cancel)
{
    ssize_t sent = 0;
    while (sent < frame.size()) {
        const ssize_t count = ::send(m_descriptor, frame.constData() + sent,
            static_cast<size_t>(frame.size() - sent), MSG_NOSIGNAL);
        if (count >= 0) {
            sent += count;
            continue;
        }
        int error = errno;
        if (error == EAGAIN || error == EINTR)
            error = awaitReady(m_descriptor, POLLOUT, deadline, cancel);
        if (error)
            return error;
    }
    return 0;
}

int UnitSocket::receive(char* buffer, int size, int& error)
{
    const ssize_t count = recv(m_descriptor, buffer, static_cast<size_t>(size), 0);
    if (count > 0 || (count == 0 && isDatagram()))
        return static_cast<int>(count);
    error = count == 0 ? static_cast<int>(Closed) : errno;
    // Another wake than for data, or a datagram whose checksum the system refused.
    return error == EAGAIN || error == EINTR ? 0 : -1;
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
