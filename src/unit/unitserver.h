#pragma once

#include "controlunit.h"
#include "unitfaults.h"
#include "unitframereader.h"

#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtNetwork/QHostAddress>
#include <QtNetwork/QTcpServer>
#include <QtNetwork/QUdpSocket>

#include <functional>

class QTcpSocket;

namespace QuadrelUnit {

/** Puts a unit on the network: TCP and UDP, on one port. */
class UnitServer : public QObject {
    Q_OBJECT

public:
    /** `unit` must outlive the server. */
    explicit UnitServer(ControlUnit* unit, QObject* parent = nullptr);
    ~UnitServer() override;
    Q_DISABLE_COPY_MOVE(UnitServer)

    /** Port 0 takes a free one. False, and the reason in `error`, if the port cannot be had. */
    bool listen(const QHostAddress& address, quint16 port, QString* error);
    QHostAddress address() const { return m_address; }
    quint16 port() const { return m_port; }

    /** How long the unit is away when it restarts, in milliseconds. */
    void setRestartTime(int milliseconds) { m_restartTime = milliseconds; }
    UnitFaults& faults() { return m_faults; }
    /** False while the unit restarts. */
    bool isUp() const;
    int connectionCount() const { return m_connections.size(); }

signals:
    /** A request was taken; `peer` is where it came from, `fault` what goes wrong with its reply.
     */
    void served(const QuadrelUnit::UnitFrame& request, const QString& peer, const QString& fault);
    /** Bytes that were no request, or a reply that could not go out. */
    void refused(const QString& reason);
    void notice(const QString& text);
    /** The memory or the clock is not what it was. */
    void changed();
    void upgraded();
    void wentDown();
    void cameBack();

private:
    using Send = std::function<void(const UnitDelivery&)>;

    bool open(const QHostAddress& address, quint16 port, QString* error);
    bool openOnce(const QHostAddress& address, quint16 port, QString* error);
    void takeConnections();
    void takeBytes(QTcpSocket* connection, UnitFrameReader& reader, const QString& peer);
    void takeDatagrams();
    void serve(const UnitFrame& request, const QString& peer, const Send& send);
    void finish(const UnitDelivery& delivery, bool restarts, const Send& send);
    void sendDatagrams(const QHostAddress& address, quint16 port, const UnitDelivery& delivery);
    void goDown();
    void comeBack();

    ControlUnit* m_unit;
    UnitFaults m_faults;
    QTcpServer m_tcp;
    QUdpSocket m_udp;
    QList<QTcpSocket*> m_connections;
    QTimer m_restart;
    QHostAddress m_address;
    quint16 m_port = 0;
    int m_restartTime = 1000;
};

} // namespace QuadrelUnit
