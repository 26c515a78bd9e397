// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unitfaults.h"
#include "unitframereader.h"

#include <QtCore/QObject>
#include <QtCore/QTimer>

class QTcpSocket;

namespace QuadrelUnit {

/**
 * One TCP client of a unit.
 *
 * It serves a bounded number of requests in each turn of the event loop, so that a client with many
 * of them leaves room for others; and it reads no more while the client has not read its replies.
 */
class UnitConnection : public QObject {
    Q_OBJECT

public:
    static constexpr int requestsATurn = 16;
    /** Bytes of replies that may wait, beyond which no request is taken. */
    static constexpr int backlogLimit = 256 * 1024;

    /** Takes `socket` over, which is connected. */
    explicit UnitConnection(QTcpSocket* socket, QObject* parent = nullptr);

    /** Where the client is, as "tcp 127.0.0.1:41213". */
    QString peer() const { return m_peer; }
    bool isOpen() const;
    /** Bytes of replies that the client has not taken. */
    qint64 backlog() const;

    void send(const UnitDelivery& delivery);
    /** Counts `bytes` of a reply that is sent later into the backlog; negative, out of it again. */
    void addLateBytes(int bytes);

    /** Takes no more requests; what is written goes out before the connection closes. */
    void close();
    /** Closes at once. */
    void drop();

signals:
    void requested(const QuadrelUnit::UnitFrame& request);
    /** The bytes are no request; the connection closes. */
    void refused(const QString& reason);
    /** The client took bytes of a reply, or gave some of a request. */
    void active();
    void closed();

private:
    void takeTurn();
    std::optional<UnitFrame> nextRequest();
    void resume();

    QTcpSocket* m_socket;
    QString m_peer;
    UnitFrameReader m_reader;
    /** Runs out in the next turn of the event loop. */
    QTimer m_nextTurn;
    qint64 m_lateBytes = 0;
    /** The last turn ended because of the backlog. */
    bool m_isStalled = false;
};

} // namespace QuadrelUnit
