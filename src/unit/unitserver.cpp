#include "unitserver.h"

#include "unitendpoint.h"

#include <QtCore/QPointer>
#include <QtNetwork/QNetworkDatagram>
#include <QtNetwork/QTcpSocket>

#include <memory>

namespace QuadrelUnit {

namespace {

void sendBytes(QTcpSocket* connection, const UnitDelivery& delivery)
{
    for (const QByteArray& piece : delivery.pieces)
        connection->write(piece);
    // Not at the event loop's next turn: the other side waits for it.
    connection->flush();
    if (delivery.closes)
        connection->disconnectFromHost();
}

} // namespace

UnitServer::UnitServer(ControlUnit* unit, QObject* parent)
    : QObject(parent)
    , m_unit(unit)
{
    qRegisterMetaType<UnitFrame>("QuadrelUnit::UnitFrame");
    m_restart.setSingleShot(true);
    connect(&m_restart, &QTimer::timeout, this, &UnitServer::comeBack);
    connect(&m_tcp, &QTcpServer::newConnection, this, &UnitServer::takeConnections);
    connect(&m_udp, &QUdpSocket::readyRead, this, &UnitServer::takeDatagrams);
}

UnitServer::~UnitServer()
{
    // The connections end with the server, and would tell it so in the midst of its own end.
    for (QTcpSocket* connection : qAsConst(m_connections))
        connection->disconnect(this);
}

bool UnitServer::listen(const QHostAddress& address, quint16 port, QString* error)
{
    if (!open(address, port, error))
        return false;
    m_address = address;
    m_port = m_tcp.serverPort();
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
    if (!m_tcp.listen(address, port)) {
        *error = m_tcp.errorString();
        return false;
    }
    if (m_udp.bind(address, m_tcp.serverPort(), QAbstractSocket::DontShareAddress))
        return true;
    *error = m_udp.errorString();
    m_udp.close();
    m_tcp.close();
    return false;
}

void UnitServer::takeConnections()
{
    while (QTcpSocket* connection = m_tcp.nextPendingConnection()) {
        connection->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        m_connections.append(connection);
        const auto reader = std::make_shared<UnitFrameReader>();
        const QString peer = QStringLiteral("tcp ")
            + endpointText(connection->peerAddress(), connection->peerPort());
        connect(connection, &QTcpSocket::readyRead, this,
            [this, connection, reader, peer] { takeBytes(connection, *reader, peer); });
        connect(connection, &QTcpSocket::disconnected, this, [this, connection] {
            m_connections.removeOne(connection);
            connection->deleteLater();
        });
    }
}

void UnitServer::takeBytes(QTcpSocket* connection, UnitFrameReader& reader, const QString& peer)
{
    reader.feed(connection->readAll());
    const QPointer<QTcpSocket> guard(connection);
    const Send send = [guard](const UnitDelivery& delivery) {
        if (guard && guard->state() == QAbstractSocket::ConnectedState)
            sendBytes(guard, delivery);
    };
    while (connection->state() == QAbstractSocket::ConnectedState) {
        const std::optional<UnitFrame> request = reader.next();
        if (!request)
            break;
        serve(*request, peer, send);
    }
    if (reader.isBroken() && connection->state() == QAbstractSocket::ConnectedState) {
        emit refused(QStringLiteral("%1: %2; connection dropped").arg(peer, reader.error()));
        connection->abort();
    }
}

void UnitServer::takeDatagrams()
{
    // A request may have closed the socket: then the unit is down.
    while (isUp() && m_udp.hasPendingDatagrams()) {
        const QNetworkDatagram datagram = m_udp.receiveDatagram();
        const QHostAddress address = datagram.senderAddress();
        const auto port = static_cast<quint16>(datagram.senderPort());
        const QString peer = QStringLiteral("udp ") + endpointText(address, port);
        QString error;
        const std::optional<UnitFrame> request = UnitFrameReader::datagram(datagram.data(), &error);
        if (!request) {
            emit refused(QStringLiteral("%1: %2; datagram dropped").arg(peer, error));
            continue;
        }
        serve(*request, peer, [this, address, port](const UnitDelivery& delivery) {
            sendDatagrams(address, port, delivery);
        });
    }
}

void UnitServer::sendDatagrams(
    const QHostAddress& address, quint16 port, const UnitDelivery& delivery)
{
    if (!isUp())
        return;
    for (const QByteArray& piece : delivery.pieces) {
        if (m_udp.writeDatagram(piece, address, port) < 0)
            emit refused(QStringLiteral("udp %1: a reply of %2 bytes did not go out: %3")
                             .arg(endpointText(address, port))
                             .arg(piece.size())
                             .arg(m_udp.errorString()));
    }
}

void UnitServer::serve(const UnitFrame& request, const QString& peer, const Send& send)
{
    const std::optional<UnitFault> fault = m_faults.next();
    if (fault && fault->losesRequest()) {
        emit served(request, peer, fault->name());
        return;
    }
    const UnitAnswer answer = m_unit->answer(request);
    const UnitDelivery delivery = m_faults.deliver(answer.reply, fault);
    emit served(request, peer, delivery.fault);
    if (!answer.notice.isEmpty())
        emit notice(answer.notice);
    if (answer.changed)
        emit changed();
    if (answer.upgraded)
        emit upgraded();

    if (delivery.delay == 0) {
        finish(delivery, answer.restarts, send);
        return;
    }
    QTimer::singleShot(delivery.delay, this,
        [this, delivery, restarts = answer.restarts, send] { finish(delivery, restarts, send); });
}

void UnitServer::finish(const UnitDelivery& delivery, bool restarts, const Send& send)
{
    send(delivery);
    if (restarts)
        goDown();
}

bool UnitServer::isUp() const
{
    return m_udp.state() == QAbstractSocket::BoundState;
}

void UnitServer::goDown()
{
    m_tcp.close();
    m_udp.close();
    // What is written already still goes out before each connection ends.
    const QList<QTcpSocket*> connections = m_connections;
    for (QTcpSocket* connection : connections)
        connection->disconnectFromHost();
    m_restart.start(m_restartTime);
    emit wentDown();
}

void UnitServer::comeBack()
{
    // Whoever did not read the last reply in all this time loses it.
    const QList<QTcpSocket*> connections = m_connections;
    for (QTcpSocket* connection : connections)
        connection->abort();

    QString error;
    if (!open(m_address, m_port, &error)) {
        emit notice(error + QStringLiteral("; trying again"));
        m_restart.start(m_restartTime);
        return;
    }
    emit cameBack();
}

} // namespace QuadrelUnit
