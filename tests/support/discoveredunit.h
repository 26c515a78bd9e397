// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "networknamespaces.h"

#include <QtCore/QObject>
#include <QtCore/QVector>
#include <QtNetwork/QNetworkDatagram>
#include <QtNetwork/QUdpSocket>

/** The discovery port of a unit, inside a namespace: it keeps what it hears and says what it
 * is given. */
class DiscoveredUnit : public QObject {
public:
    explicit DiscoveredUnit(const NetworkNamespace& network,
        const QHostAddress& address = QHostAddress(QHostAddress::AnyIPv4), quint16 port = 3800);

    /** What was heard so far, in the order of arrival. */
    const QVector<QNetworkDatagram>& heard() const { return m_heard; }

    /**
     * Answers each request of a search with this reply.
     *
     * @param host where to; if not given, where the request came from
     */
    void answerWith(const QByteArray& reply, const QHostAddress& host = QHostAddress());

    /** Sends a datagram to port 3800. A failure ends the test. */
    void send(const QByteArray& datagram, const QHostAddress& host);

private:
    void listen();

    QUdpSocket m_socket;
    QVector<QNetworkDatagram> m_heard;
    bool m_answers = false;
    QByteArray m_reply;
    QHostAddress m_replyHost;
};
