// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QObject>
#include <QtNetwork/QHostAddress>
#include <QtNetwork/QUdpSocket>

namespace QuadrelUnit {

/** What a unit answers to a search, and the odd things that a test may want around it. */
struct DiscoveryReply {
    static constexpr int largestDatagram = 65507;

    /** The tag by which a search knows a unit. */
    QByteArray name = "Zorbe:3100";
    /** What follows the name. */
    QByteArray payload;
    /** Zero bytes in front of everything. */
    int zeros = 0;
    /** Filling bytes, each a dot, in front of the name. */
    int offset = 0;
    /** How often the reply goes out. */
    int repeats = 1;
    /** Size of a datagram of garbage that goes out ahead of the replies; 0 for none. */
    int garbage = 0;

    QByteArray datagram() const;
    /** Bytes that follow no rule and never hold the name of a unit; the same ones every time. */
    QByteArray garbageDatagram() const;
};

/**
 * Answers the broadcast by which units are searched. It sends to nobody but the searcher, and never
 * broadcasts itself.
 */
class UnitDiscovery : public QObject {
    Q_OBJECT

public:
    static constexpr quint16 defaultPort = 3800;
    static constexpr int searchesATurn = 16;

    explicit UnitDiscovery(QObject* parent = nullptr);

    /** Several units may share a port: a broadcast reaches them all. Port 0 takes a free one. */
    bool listen(const QHostAddress& address, quint16 port, QString* error);
    quint16 port() const { return m_socket.localPort(); }

    void setReply(const DiscoveryReply& reply) { m_reply = reply; }
    /** A silent unit hears nothing, as one does that restarts. */
    void setSilent(bool isSilent) { m_isSilent = isSilent; }

signals:
    void searched(const QString& peer);

private:
    void takeTurn();
    void reply(const QHostAddress& address, quint16 port);

    QUdpSocket m_socket;
    DiscoveryReply m_reply;
    bool m_isSilent = false;
};

} // namespace QuadrelUnit
