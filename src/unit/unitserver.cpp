// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitserver.h"

#include "quadrelframe.h"
#include "unitconnection.h"
#include "unitendpoint.h"

#include <QtCore/QPointer>

#include <algorithm>

namespace QuadrelUnit {

namespace {

constexpr int portRetryMilliseconds = 100;

/** What a late reply counts: one without a byte takes room until then, too. */
int lateSizeOf(const UnitDelivery& delivery)
{
    constexpr int least = QuadrelFrame::headSize + QuadrelFrame::trailerSize;
    int size = 0;
    for (const QByteArray& piece : delivery.pieces)
        size += piece.size();
    return std::max(size, least);
}

} // namespace

UnitServer::UnitServer(ControlUnit* unit, QObject* parent)
    : QObject(parent)
    , m_unit(unit)
{
    qRegisterMetaType<UnitFrame>("QuadrelUnit::UnitFrame");
    m_restart.setSingleShot(true);
    connect(&m_restart, &QTimer::timeout, this, &UnitServer::comeBack);
    connect(&m_tcp, &UnitListener::requested, this, &UnitServer::serveConnection);
    connect(&m_tcp, &UnitListener::refused, this, &UnitServer::refused);
    connect(&m_tcp, &UnitListener::notice, this, &UnitServer::notice);
    connect(&m_udp, &UnitDatagrams::requested, this, &UnitServer::serveDatagram);
    connect(&m_udp, &UnitDatagrams::refused, this, &UnitServer::refused);
}

void UnitServer::setLatency(int milliseconds, int jitter, quint32 seed)
{
    m_latency = milliseconds;
    m_jitter = jitter;
    m_random.seed(seed);
}

bool UnitServer::listen(const QHostAddress& address, quint16 port, QString* error)
{
    if (!open(address, port, error))
        return false;
    m_address = address;
    m_port = m_tcp.port();
    return true;
}

bool UnitServer::open(const QHostAddress& address, quint16 port, QString* error)
{
    // A free TCP port may be taken for UDP: where the port is ours to choose, choose again.
    int attempts = port == 0 ? 20 : 1;
    QString reason;
    while (attempts-- > 0) {
        if (openOnce(address, port, &reason))
            return true;
    }
    *error = QStringLiteral("cannot listen on %1: %2").arg(endpointText(address, port), reason);
    return false;
}

bool UnitServer::openOnce(const QHostAddress& address, quint16 port, QString* error)
{
    if (!m_tcp.listen(address, port, error))
        return false;
    if (m_udp.listen(address, m_tcp.port(), error))
        return true;
    m_tcp.close();
    return false;
}

void UnitServer::serveConnection(const UnitFrame& request, UnitConnection* connection)
{
    const QPointer<UnitConnection> guard(connection);
    const auto send = [guard](const UnitDelivery& delivery) {
        if (guard)
            guard->send(delivery);
    };
    const auto addLateBytes = [guard](int bytes) {
        if (guard)
            guard->addLateBytes(bytes);
    };
    const QString peer = connection->peer();
    const QString refusal = serve(request, peer, {send, addLateBytes});
    if (refusal.isEmpty())
        return;
    connection->drop();
    emit refused(QStringLiteral("%1: %2; connection dropped").arg(peer, refusal));
}

void UnitServer::serveDatagram(const UnitFrame& request, const QHostAddress& address, quint16 port)
{
    const auto send = [this, address, port](
                          const UnitDelivery& delivery) { m_udp.send(address, port, delivery); };
    const auto addLateBytes = [this](int bytes) { m_udp.addLateBytes(bytes); };
    const QString peer = QStringLiteral("udp ") + endpointText(address, port);
    const QString refusal = serve(request, peer, {send, addLateBytes});
    if (!refusal.isEmpty())
        emit refused(QStringLiteral("%1: %2; datagram dropped").arg(peer, refusal));
}

/** The reason why the unit does not take the request, or an empty text. */
QString UnitServer::serve(const UnitFrame& request, const QString& peer, const Route& route)
{
    const std::optional<UnitFault> fault = m_faults.next();
    if (fault && fault->losesRequest()) {
        emit served(request, peer, fault->name());
        return QString();
    }
    const UnitAnswer answer = m_unit->answer(request);
    if (!answer.refusal.isEmpty())
        return answer.refusal;

    const UnitDelivery delivery = m_faults.deliver(answer.reply, fault);
    emit served(request, peer, delivery.fault);
    if (!answer.notice.isEmpty())
        emit notice(answer.notice);
    if (answer.changed)
        emit changed();
    if (answer.upgraded)
        emit upgraded();
    deliver(delivery, answer.restarts, route);
    return QString();
}

void UnitServer::deliver(const UnitDelivery& delivery, bool restarts, const Route& route)
{
    const auto finish = [this, delivery, restarts, route] {
        route.send(delivery);
        if (restarts)
            goDown();
    };
    if (m_latency == 0 && m_jitter == 0 && delivery.delay == 0) {
        finish();
        return;
    }
    constexpr qint64 nanosecondsInOne = 1000000;
    const int size = lateSizeOf(delivery);
    route.addLateBytes(size);
    m_schedule.callAt(nextDue() + delivery.delay * nanosecondsInOne, [size, route, finish] {
        route.addLateBytes(-size);
        finish();
    });
}

/** When the reply to a request of this moment goes out, never ahead of an earlier one. */
qint64 UnitServer::nextDue()
{
    constexpr qint64 nanosecondsInOne = 1000000;
    const qint64 jitter = m_random.bounded(m_jitter + 1);
    const qint64 due = m_schedule.now() + (m_latency + jitter) * nanosecondsInOne;
    m_lastDue = std::max(m_lastDue, due);
    return m_lastDue;
}

void UnitServer::goDown()
{
    m_tcp.close();
    m_udp.close();
    m_restart.start(m_restartTime);
    emit wentDown();
}

void UnitServer::comeBack()
{
    // Whoever did not read the last reply in all this time loses it.
    m_tcp.dropConnections();

    QString error;
    if (open(m_address, m_port, &error)) {
        m_toldOfFailedRestart = false;
        emit cameBack();
        return;
    }
    if (!m_toldOfFailedRestart)
        emit notice(error + QStringLiteral("; trying again"));
    m_toldOfFailedRestart = true;
    m_restart.start(portRetryMilliseconds);
}

} // namespace QuadrelUnit
