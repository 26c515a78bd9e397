// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "rawecho.h"

#include "placement.h"

#include <arpa/inet.h>
#include <cstdio>
#include <cstdlib>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

void check(bool succeeded, const char* what)
{
    if (succeeded)
        return;
    std::perror(what);
    std::abort();
}

int openSocket()
{
    const int descriptor = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    check(descriptor >= 0, "socket");
    return descriptor;
}

/** On the loopback, at a port or at any. */
sockaddr_in loopback(std::uint16_t port)
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    return address;
}

void sendAtOnce(int descriptor)
{
    const int on = 1;
    setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

void sendAll(int descriptor, const std::string& bytes)
{
    check(send(descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL)
            == static_cast<ssize_t>(bytes.size()),
        "send");
}

/** False when the other side has closed the connection. */
bool receiveAll(int descriptor, std::string& bytes)
{
    return recv(descriptor, bytes.data(), bytes.size(), MSG_WAITALL)
        == static_cast<ssize_t>(bytes.size());
}

} // namespace

RawEchoServer::RawEchoServer(std::size_t requestSize, std::size_t replySize)
    : m_requestSize(requestSize)
    , m_reply(replySize, 'r')
    , m_listener(openSocket())
{
    sockaddr_in address = loopback(0);
    socklen_t size = sizeof address;
    auto* const anyAddress = reinterpret_cast<sockaddr*>(&address);
    check(bind(m_listener, anyAddress, size) == 0 && listen(m_listener, 1) == 0
            && getsockname(m_listener, anyAddress, &size) == 0,
        "listen");
    m_port = ntohs(address.sin_port);
    const OtherSide side;
    m_thread = std::thread([this] { answerClients(); });
}

RawEchoServer::~RawEchoServer()
{
    shutdown(m_listener, SHUT_RDWR);
    m_thread.join();
    close(m_listener);
}

void RawEchoServer::answerClients() const
{
    std::string request(m_requestSize, '\0');
    for (;;) {
        const int connection = accept(m_listener, nullptr, nullptr);
        if (connection < 0)
            return;
        sendAtOnce(connection);
        while (receiveAll(connection, request))
            sendAll(connection, m_reply);
        close(connection);
    }
}

RawEchoClient::RawEchoClient(std::uint16_t port, std::size_t requestSize, std::size_t replySize)
    : m_request(requestSize, 'q')
    , m_reply(replySize, '\0')
    , m_socket(openSocket())
{
    sockaddr_in address = loopback(port);
    check(connect(m_socket, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0, "connect");
    sendAtOnce(m_socket);
}

RawEchoClient::~RawEchoClient()
{
    close(m_socket);
}

void RawEchoClient::exchange()
{
    sendAll(m_socket, m_request);
    check(receiveAll(m_socket, m_reply), "receive");
}
