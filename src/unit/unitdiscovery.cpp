// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitdiscovery.h"

#include "unitendpoint.h"

#include <QtCore/QRandomGenerator>
#include <QtNetwork/QNetworkDatagram>

#include <algorithm>

namespace QuadrelUnit {

namespace {

const QByteArray& searchText()
{
    static const QByteArray text("Zorbe:");
    return text;
}

} // namespace

QByteArray DiscoveryReply::datagram() const
{
    return QByteArray(zeros, '\0') + QByteArray(offset, '.') + name + payload;
}

QByteArray DiscoveryReply::garbageDatagram() const
{
    // Bytes of 128 and more: no letter of a name is among them.
    QRandomGenerator random(1);
    QByteArray bytes(garbage, '\0');
    std::generate(bytes.begin(), bytes.end(),
        [&random] { return static_cast<char>(random.bounded(0x80, 0x100)); });
    return bytes;
}

UnitDiscovery::UnitDiscovery(QObject* parent)
    : QObject(parent)
{
    connect(&m_socket, &QUdpSocket::readyRead, this, &UnitDiscovery::takeTurn);
}

bool UnitDiscovery::listen(const QHostAddress& address, quint16 port, QString* error)
{
    if (m_socket.bind(address, port, QAbstractSocket::ShareAddress))
        return true;
    *error = QStringLiteral("cannot answer searches on %1: %2")
                 .arg(endpointText(address, port), m_socket.errorString());
    return false;
}

void UnitDiscovery::takeTurn()
{
    // What is left comes next turn.
    for (int i = 0; i < searchesATurn && m_socket.hasPendingDatagrams(); ++i) {
        const QNetworkDatagram datagram = m_socket.receiveDatagram();
        if (m_isSilent || datagram.data() != searchText())
            continue;
        const auto port = static_cast<quint16>(datagram.senderPort());
        emit searched(endpointText(datagram.senderAddress(), port));
        reply(datagram.senderAddress(), port);
    }
}

void UnitDiscovery::reply(const QHostAddress& address, quint16 port)
{
    if (m_reply.garbage > 0)
        m_socket.writeDatagram(m_reply.garbageDatagram(), address, port);
    const QByteArray datagram = m_reply.datagram();
    for (int i = 0; i < m_reply.repeats; ++i)
        m_socket.writeDatagram(datagram, address, port);
}

} // namespace QuadrelUnit
