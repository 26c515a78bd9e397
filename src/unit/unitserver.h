// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controlunit.h"
#include "unitdatagrams.h"
#include "unitfaults.h"
#include "unitlistener.h"
#include "unitschedule.h"

#include <QtCore/QObject>
#include <QtCore/QRandomGenerator>
#include <QtCore/QTimer>
#include <QtNetwork/QHostAddress>

#include <functional>

namespace QuadrelUnit {

/** Puts a unit on the network: TCP and UDP, on one port. */
class UnitServer : public QObject {
    Q_OBJECT

public:
    /** `unit` must outlive the server. */
    explicit UnitServer(ControlUnit* unit, QObject* parent = nullptr);

    /** Port 0 takes a free one. False, and the reason in `error`, if the port cannot be had. */
    bool listen(const QHostAddress& address, quint16 port, QString* error);
    QHostAddress address() const { return m_address; }
    quint16 port() const { return m_port; }

    /** How long the unit is away when it restarts, in milliseconds. */
    void setRestartTime(int milliseconds) { m_restartTime = milliseconds; }
    /**
     * Each reply goes out `milliseconds` after its request, and by chance up to `jitter` later, in
     * the order of the requests.
     */
    void setLatency(int milliseconds, int jitter = 0, quint32 seed = 0);
    UnitFaults& faults() { return m_faults; }
    /** The TCP side, with its limits. */
    UnitListener& tcp() { return m_tcp; }
    /** False while the unit restarts. */
    bool isUp() const { return m_udp.isOpen(); }
    int connectionCount() const { return m_tcp.connectionCount(); }

signals:
    /** A request was taken; `peer` is where it came from, `fault` what goes wrong with its reply.
     */
    void served(const QuadrelUnit::UnitFrame& request, const QString& peer, const QString& fault);
    /** Bytes that were no request, or a request that was not taken. */
    void refused(const QString& reason);
    void notice(const QString& text);
    /** The memory or the clock is not what it was. */
    void changed();
    void upgraded();
    void wentDown();
    void cameBack();

private:
    /** The way back to a client, which may be gone when a late reply takes it. */
    struct Route {
        std::function<void(const UnitDelivery&)> send;
        std::function<void(int)> addLateBytes;
    };

    bool open(const QHostAddress& address, quint16 port, QString* error);
    bool openOnce(const QHostAddress& address, quint16 port, QString* error);
    void serveConnection(const UnitFrame& request, UnitConnection* connection);
    void serveDatagram(const UnitFrame& request, const QHostAddress& address, quint16 port);
    QString serve(const UnitFrame& request, const QString& peer, const Route& route);
    void deliver(const UnitDelivery& delivery, bool restarts, const Route& route);
    qint64 nextDue();
    void goDown();
    void comeBack();

    ControlUnit* m_unit;
    UnitFaults m_faults;
    UnitListener m_tcp;
    UnitDatagrams m_udp;
    UnitSchedule m_schedule;
    int m_latency = 0;
    int m_jitter = 0;
    QRandomGenerator m_random;
    qint64 m_lastDue = 0;
    QTimer m_restart;
    bool m_toldOfFailedRestart = false;
    QHostAddress m_address;
    quint16 m_port = 0;
    int m_restartTime = 1000;
};

} // namespace QuadrelUnit
