// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitconnection.h"

#include "unitendpoint.h"

#include <QtNetwork/QTcpSocket>

namespace QuadrelUnit {

namespace {

constexpr int readSize = 64 * 1024;

} // namespace

UnitConnection::UnitConnection(QTcpSocket* socket, QObject* parent)
    : QObject(parent)
    , m_socket(socket)
    , m_peer(QStringLiteral("tcp ") + endpointText(socket->peerAddress(), socket->peerPort()))
{
    m_socket->setParent(this);
    m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    m_socket->setReadBufferSize(readSize);
    m_nextTurn.setSingleShot(true);
    connect(&m_nextTurn, &QTimer::timeout, this, &UnitConnection::takeTurn);
    connect(m_socket, &QTcpSocket::readyRead, this, &UnitConnection::active);
    connect(m_socket, &QTcpSocket::readyRead, this, &UnitConnection::takeTurn);
    connect(m_socket, &QTcpSocket::bytesWritten, this, &UnitConnection::active);
    connect(m_socket, &QTcpSocket::bytesWritten, this, &UnitConnection::resume);
    connect(m_socket, &QTcpSocket::disconnected, this, &UnitConnection::closed);
}

bool UnitConnection::isOpen() const
{
    return m_socket->state() == QAbstractSocket::ConnectedState;
}

qint64 UnitConnection::backlog() const
{
    return m_lateBytes + m_socket->bytesToWrite();
}

void UnitConnection::addLateBytes(int bytes)
{
    m_lateBytes += bytes;
    resume();
}

void UnitConnection::resume()
{
    if (m_isStalled && backlog() <= backlogLimit)
        m_nextTurn.start(0);
}

void UnitConnection::send(const UnitDelivery& delivery)
{
    if (!isOpen())
        return;
    for (const QByteArray& piece : delivery.pieces)
        m_socket->write(piece);
    // Not at the event loop's next turn: the other side waits for it.
    m_socket->flush();
    if (delivery.closes)
        close();
}

void UnitConnection::close()
{
    m_socket->disconnectFromHost();
}

void UnitConnection::drop()
{
    m_socket->abort();
}

void UnitConnection::takeTurn()
{
    for (int i = 0; i < requestsATurn; ++i) {
        m_isStalled = backlog() > backlogLimit;
        if (!isOpen() || m_isStalled)
            return;
        const std::optional<UnitFrame> request = nextRequest();
        if (m_reader.isBroken()) {
            emit refused(
                QStringLiteral("%1: %2; connection dropped").arg(m_peer, m_reader.error()));
            drop();
            return;
        }
        if (!request)
            return;
        emit requested(*request);
    }
    m_nextTurn.start(0);
}

std::optional<UnitFrame> UnitConnection::nextRequest()
{
    std::optional<UnitFrame> request = m_reader.next();
    if (!request && !m_reader.isBroken() && m_socket->bytesAvailable() > 0) {
        m_reader.feed(m_socket->read(readSize));
        request = m_reader.next();
    }
    return request;
}

} // namespace QuadrelUnit
