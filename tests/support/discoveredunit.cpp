// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "discoveredunit.h"

DiscoveredUnit::DiscoveredUnit(
    const NetworkNamespace& network, const QHostAddress& address, quint16 port)
    : m_socket(this)
{
    const InsideNamespace inside(network);
    if (!m_socket.bind(address, port, QAbstractSocket::ShareAddress))
        qFatal("a unit can't use its port: %s", qPrintable(m_socket.errorString()));
    connect(&m_socket, &QIODevice::readyRead, this, &DiscoveredUnit::listen);
}

void DiscoveredUnit::answerWith(const QByteArray& reply, const QHostAddress& host)
{
    m_answers = true;
    m_reply = reply;
    m_replyHost = host;
}

void DiscoveredUnit::send(const QByteArray& datagram, const QHostAddress& host)
{
    if (m_socket.writeDatagram(datagram, host, 3800) != datagram.size())
        qFatal("a unit can't send: %s", qPrintable(m_socket.errorString()));
}

void DiscoveredUnit::listen()
{
    while (m_socket.hasPendingDatagrams()) {
        const QNetworkDatagram datagram = m_socket.receiveDatagram();
        m_heard.append(datagram);
        if (m_answers && datagram.data() == "Zorbe:")
            send(m_reply, m_replyHost.isNull() ? datagram.senderAddress() : m_replyHost);
    }
}
