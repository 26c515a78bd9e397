// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unitfaults.h"

#include <QtCore/QObject>
#include <QtNetwork/QHostAddress>
#include <QtNetwork/QUdpSocket>

namespace QuadrelUnit {

/** The UDP side of a unit. */
class UnitDatagrams : public QObject {
    Q_OBJECT

public:
    static constexpr int requestsATurn = 16;
    /** The most that one read asks for: who forges a sender floods it with no more than that. */
    static constexpr int largestRead = 2048;
    /** Bytes of late replies that may wait, beyond which requests are lost. */
    static constexpr int backlogLimit = 256 * 1024;

    explicit UnitDatagrams(QObject* parent = nullptr);

    bool listen(const QHostAddress& address, quint16 port, QString* error);
    void close() { m_socket.close(); }
    bool isOpen() const { return m_socket.state() == QAbstractSocket::BoundState; }

    void send(const QHostAddress& address, quint16 port, const UnitDelivery& delivery);
    /** Counts `bytes` of a reply that is sent later into the backlog; negative, out of it again. */
    void addLateBytes(int bytes) { m_lateBytes += bytes; }

signals:
    void requested(
        const QuadrelUnit::UnitFrame& request, const QHostAddress& address, quint16 port);
    void refused(const QString& reason);

private:
    void takeTurn();
    void takeDatagram();
    QString refusal(const UnitFrame& request) const;

    QUdpSocket m_socket;
    int m_lateBytes = 0;
};

} // namespace QuadrelUnit
