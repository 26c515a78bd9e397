// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <thread>

/** A blocking socket that answers requests of one size with replies of one size. */
class RawEchoServer {
public:
    /** Serves one client after the other. */
    RawEchoServer(std::size_t requestSize, std::size_t replySize);
    /** The clients have to be gone by then. */
    ~RawEchoServer();
    RawEchoServer(const RawEchoServer&) = delete;
    RawEchoServer& operator=(const RawEchoServer&) = delete;

    std::uint16_t port() const { return m_port; }

private:
    void answerClients() const;

    const std::size_t m_requestSize;
    const std::string m_reply;
    const int m_listener;
    std::uint16_t m_port = 0;
    std::thread m_thread;
};

/** The other side: a request goes there, a reply comes back. */
class RawEchoClient {
public:
    RawEchoClient(std::uint16_t port, std::size_t requestSize, std::size_t replySize);
    ~RawEchoClient();
    RawEchoClient(const RawEchoClient&) = delete;
    RawEchoClient& operator=(const RawEchoClient&) = delete;

    void exchange();

private:
    const std::string m_request;
    std::string m_reply;
    const int m_socket;
};

/** Both sides: two blocking sockets and nothing else. */
class RawEcho {
public:
    RawEcho(std::size_t requestSize, std::size_t replySize)
        : m_server(requestSize, replySize)
        , m_client(m_server.port(), requestSize, replySize)
    {
    }

    void exchange() { m_client.exchange(); }

private:
    RawEchoServer m_server;
    RawEchoClient m_client;
};
