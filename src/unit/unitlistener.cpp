// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitlistener.h"

#include "unitconnection.h"

#include <QtCore/QElapsedTimer>
#include <QtNetwork/QTcpSocket>

#include <algorithm>
#include <cerrno>

#include <sys/socket.h>

namespace QuadrelUnit {

namespace {

constexpr int acceptRetryMilliseconds = 100;
constexpr int clientsATurn = 16;

/** True if an accept failed with the one client that it was about; others may wait. */
bool concernsOneClient(int error)
{
    return error == ECONNABORTED || error == EINTR || error == EPROTO;
}

UnitListener::TimeSource runningTime()
{
    QElapsedTimer clock;
    clock.start();
    return [clock] { return clock.elapsed(); };
}

} // namespace

UnitListener::UnitListener(QObject* parent)
    : QObject(parent)
    , m_now(runningTime())
{
    m_acceptRetry.setSingleShot(true);
    m_acceptRetry.setInterval(acceptRetryMilliseconds);
    m_idleCheck.setSingleShot(true);
    connect(&m_acceptRetry, &QTimer::timeout, this, [this] {
        if (m_arrivals)
            m_arrivals->setEnabled(true);
    });
    connect(&m_idleCheck, &QTimer::timeout, this, &UnitListener::closeIdleConnections);
}

UnitListener::~UnitListener()
{
    // The connections end with the listener, and would notify it during its own end.
    for (auto it = m_connections.cbegin(); it != m_connections.cend(); ++it)
        it.key()->disconnect(this);
}

bool UnitListener::listen(const QHostAddress& address, quint16 port, QString* error)
{
    if (!m_server.listen(address, port)) {
        *error = m_server.errorString();
        return false;
    }
    // A server of the framework keeps the first error of its socket, even if it is only that nobody
    // waits any more: without free files it would then try without end and say nothing.
    m_server.pauseAccepting();
    m_arrivals =
        std::make_unique<QSocketNotifier>(m_server.socketDescriptor(), QSocketNotifier::Read);
    connect(m_arrivals.get(), &QSocketNotifier::activated, this, &UnitListener::takeConnections);
    return true;
}

void UnitListener::close()
{
    m_arrivals.reset();
    m_server.close();
    const QList<UnitConnection*> connections = m_connections.keys();
    for (UnitConnection* connection : connections)
        connection->close();
}

void UnitListener::dropConnections()
{
    const QList<UnitConnection*> connections = m_connections.keys();
    for (UnitConnection* connection : connections)
        connection->drop();
}

void UnitListener::takeConnections()
{
    const int listening = static_cast<int>(m_server.socketDescriptor());
    for (int i = 0; i < clientsATurn; ++i) {
        const int descriptor = accept4(listening, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
        if (descriptor >= 0) {
            m_toldOfFailedAccept = false;
            auto* socket = new QTcpSocket(this);
            socket->setSocketDescriptor(descriptor);
            takeConnection(socket);
        } else if (!concernsOneClient(errno)) {
            if (errno != EAGAIN)
                tellOfFailedAccept(errno);
            return;
        }
    }
}

void UnitListener::takeConnection(QTcpSocket* socket)
{
    if (isFull()) {
        socket->abort();
        socket->deleteLater();
        return;
    }
    auto* connection = new UnitConnection(socket, this);
    m_connections.insert(connection, m_now());
    connect(connection, &UnitConnection::requested, this,
        [this, connection](const UnitFrame& request) { emit requested(request, connection); });
    connect(connection, &UnitConnection::refused, this, &UnitListener::refused);
    connect(connection, &UnitConnection::active, this,
        [this, connection] { m_connections[connection] = m_now(); });
    connect(connection, &UnitConnection::closed, this, [this, connection] { forget(connection); });
    if (m_idleTime > 0 && !m_idleCheck.isActive())
        m_idleCheck.start(m_idleTime);
}

bool UnitListener::isFull()
{
    if (m_connections.size() < m_maximumConnections)
        return false;
    if (!m_toldOfFull)
        emit notice(QStringLiteral("%1 clients are connected; further ones are refused until one "
                                   "of them leaves")
                        .arg(m_connections.size()));
    m_toldOfFull = true;
    return true;
}

void UnitListener::tellOfFailedAccept(int error)
{
    // Those that wait are taken when there is room.
    m_arrivals->setEnabled(false);
    m_acceptRetry.start();
    if (!m_toldOfFailedAccept)
        emit notice(QStringLiteral("a client cannot connect: %1; trying again")
                        .arg(qt_error_string(error)));
    m_toldOfFailedAccept = true;
}

void UnitListener::forget(UnitConnection* connection)
{
    m_connections.remove(connection);
    connection->disconnect(this);
    connection->deleteLater();
    m_toldOfFull = false;
}

void UnitListener::closeIdleConnections()
{
    const qint64 now = m_now();
    qint64 nextCheck = m_idleTime;
    const QHash<UnitConnection*, qint64> connections = m_connections;
    for (auto it = connections.cbegin(); it != connections.cend(); ++it) {
        const qint64 rest = it.value() + m_idleTime - now;
        if (rest > 0) {
            nextCheck = std::min(nextCheck, rest);
            continue;
        }
        const QString peer = it.key()->peer();
        it.key()->drop();
        emit notice(
            QStringLiteral("%1: idle for %2 ms; connection dropped").arg(peer).arg(m_idleTime));
    }
    if (!m_connections.isEmpty())
        m_idleCheck.start(static_cast<int>(nextCheck));
}

} // namespace QuadrelUnit
