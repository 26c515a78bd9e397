// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitdatagrams.h"

#include "unitendpoint.h"
#include "unitframereader.h"

#include <QtNetwork/QNetworkDatagram>

namespace QuadrelUnit {

UnitDatagrams::UnitDatagrams(QObject* parent)
    : QObject(parent)
{
    connect(&m_socket, &QUdpSocket::readyRead, this, &UnitDatagrams::takeTurn);
}

bool UnitDatagrams::listen(const QHostAddress& address, quint16 port, QString* error)
{
    if (m_socket.bind(address, port, QAbstractSocket::DontShareAddress))
        return true;
    *error = m_socket.errorString();
    m_socket.close();
    return false;
}

void UnitDatagrams::takeTurn()
{
    // A request may have closed the socket: then the unit is down. What is left comes next turn.
    for (int i = 0; i < requestsATurn && isOpen() && m_socket.hasPendingDatagrams(); ++i)
        takeDatagram();
}

void UnitDatagrams::takeDatagram()
{
    const QNetworkDatagram datagram = m_socket.receiveDatagram();
    const auto port = static_cast<quint16>(datagram.senderPort());
    QString reason;
    const std::optional<UnitFrame> request = UnitFrameReader::datagram(datagram.data(), &reason);
    if (request)
        reason = refusal(*request);
    if (reason.isEmpty())
        emit requested(*request, datagram.senderAddress(), port);
    else
        emit refused(QStringLiteral("udp %1: %2; datagram dropped")
                         .arg(endpointText(datagram.senderAddress(), port), reason));
}

QString UnitDatagrams::refusal(const UnitFrame& request) const
{
    if (request.isReadRequest() && request.dataLength > largestRead)
        return QStringLiteral("a read of %1 bytes is over the %2 of a datagram")
            .arg(request.dataLength)
            .arg(largestRead);
    if (m_lateBytes > backlogLimit)
        return QStringLiteral("%1 bytes of replies wait already").arg(m_lateBytes);
    return QString();
}

void UnitDatagrams::send(const QHostAddress& address, quint16 port, const UnitDelivery& delivery)
{
    if (!isOpen())
        return;
    for (const QByteArray& piece : delivery.pieces)
        m_socket.writeDatagram(piece, address, port);
}

} // namespace QuadrelUnit
