#include "loopback.h"

#include "fullunit.h"

#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

void check(bool succeeded, const char* what)
{
    if (!succeeded)
        qFatal("%s: %s", what, qPrintable(qt_error_string()));
}

void sendAtOnce(int socket)
{
    const int on = 1;
    setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

void sendAll(int socket, const QByteArray& bytes)
{
    check(send(socket, bytes.constData(), static_cast<size_t>(bytes.size()), MSG_NOSIGNAL)
            == bytes.size(),
        "send");
}

/** False when the other side has closed the connection. */
bool receiveAll(int socket, QByteArray& bytes)
{
    return recv(socket, bytes.data(), static_cast<size_t>(bytes.size()), MSG_WAITALL)
        == bytes.size();
}

} // namespace

LoopbackUnit::LoopbackUnit()
{
    m_context.moveToThread(&m_thread);
    m_thread.start();
    const auto start = [this] {
        m_unit = std::make_unique<QuadrelUnit::ControlUnit>();
        FullUnit::fill(m_unit->memory());
        m_server = std::make_unique<QuadrelUnit::UnitServer>(m_unit.get());
        QString error;
        if (!m_server->listen(QHostAddress::LocalHost, 0, &error))
            qFatal("%s", qPrintable(error));
        m_port = m_server->port();
    };
    QMetaObject::invokeMethod(&m_context, start, Qt::BlockingQueuedConnection);
}

LoopbackUnit::~LoopbackUnit()
{
    QMetaObject::invokeMethod(
        &m_context, [this] { m_server.reset(); }, Qt::BlockingQueuedConnection);
    m_thread.quit();
    m_thread.wait();
}

RawEcho::RawEcho(int requestSize, int replySize)
    : m_request(requestSize, 'q')
    , m_reply(replySize, 'r')
    , m_socket(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const anyAddress = reinterpret_cast<sockaddr*>(&address);
    check(bind(listener, anyAddress, size) == 0 && listen(listener, 1) == 0
            && getsockname(listener, anyAddress, &size) == 0,
        "listen");
    m_answering = std::thread([this, listener] { answer(listener); });
    check(connect(m_socket, anyAddress, size) == 0, "connect");
    sendAtOnce(m_socket);
}

RawEcho::~RawEcho()
{
    shutdown(m_socket, SHUT_RDWR);
    m_answering.join();
    close(m_socket);
}

void RawEcho::exchange()
{
    sendAll(m_socket, m_request);
    QByteArray reply(m_reply.size(), Qt::Uninitialized);
    check(receiveAll(m_socket, reply), "receive");
}

void RawEcho::answer(int listener)
{
    const int connection = accept(listener, nullptr, nullptr);
    close(listener);
    check(connection >= 0, "accept");
    sendAtOnce(connection);
    QByteArray request(m_request.size(), Qt::Uninitialized);
    while (receiveAll(connection, request))
        sendAll(connection, m_reply);
    close(connection);
}
