// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unitframe.h"

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>
#include <QtNetwork/QTcpServer>

#include <functional>
#include <memory>

namespace QuadrelUnit {

class UnitConnection;

/** The TCP side of a unit: its clients, as many as there may be and as long as they may be idle. */
class UnitListener : public QObject {
    Q_OBJECT

public:
    static constexpr int defaultConnections = 64;
    /** Milliseconds. */
    static constexpr int defaultIdleTime = 300000;

    /** Milliseconds of a clock that only runs forward; a test puts its own time here. */
    using TimeSource = std::function<qint64()>;

    explicit UnitListener(QObject* parent = nullptr);
    ~UnitListener() override;
    Q_DISABLE_COPY_MOVE(UnitListener)

    /** How many clients may be connected at a time; others are closed at once. */
    void setMaximumConnections(int count) { m_maximumConnections = count; }
    /** After how many milliseconds without a byte a connection is closed; 0 for never. */
    void setIdleTime(int milliseconds) { m_idleTime = milliseconds; }
    void setTimeSource(TimeSource source) { m_now = std::move(source); }

    /** Port 0 takes a free one. */
    bool listen(const QHostAddress& address, quint16 port, QString* error);
    quint16 port() const { return m_server.serverPort(); }
    /** Takes no more clients and requests; replies that are written still go out. */
    void close();
    /** Closes what connections there are at once. */
    void dropConnections();
    int connectionCount() const { return m_connections.size(); }

signals:
    void requested(const QuadrelUnit::UnitFrame& request, QuadrelUnit::UnitConnection* connection);
    void refused(const QString& reason);
    void notice(const QString& text);

private:
    void takeConnections();
    void takeConnection(QTcpSocket* socket);
    bool isFull();
    void tellOfFailedAccept(int error);
    void forget(UnitConnection* connection);
    void closeIdleConnections();

    /** Holds the port; it accepts nobody. */
    QTcpServer m_server;
    std::unique_ptr<QSocketNotifier> m_arrivals;
    /** Each with the time when it was last active. */
    QHash<UnitConnection*, qint64> m_connections;
    int m_maximumConnections = defaultConnections;
    bool m_toldOfFull = false;
    QTimer m_acceptRetry;
    bool m_toldOfFailedAccept = false;
    QTimer m_idleCheck;
    int m_idleTime = defaultIdleTime;
    TimeSource m_now;
};

} // namespace QuadrelUnit
