#include "unitlink.h"

#include <unpackage.h>

#include <QtCore/QtEndian>

namespace {

constexpr int wakeInterval = 2; // ms
constexpr int payloadLengthOffset = 8;
constexpr quint32 maximumPayload = 65535;
constexpr int headAndTrailer = 20;

} // namespace

UnitLink::UnitLink(UnPackage* operations, const QString& host, quint16 port)
    : m_operations(operations)
    , m_host(host)
    , m_port(port)
{
    connect(&m_socket, &QTcpSocket::readyRead, this, &UnitLink::receive);
    connect(&m_socket, &QTcpSocket::errorOccurred, this, [this] { fail(m_socket.errorString()); });
    m_wakes.setInterval(wakeInterval);
    connect(&m_wakes, &QTimer::timeout, this, &UnitLink::wakeAgain);

    // Direct: these run on the thread of the operation, before it sleeps.
    connect(operations, &UnPackage::signal_sendPackage, this, &UnitLink::beginExchange,
        Qt::DirectConnection);
    const auto ends = [this, operations](auto signal) {
        connect(
            operations, signal, this, [this] { endOperation(); }, Qt::DirectConnection);
    };
    ends(&UnPackage::signal_errored);
    ends(&UnPackage::signal_readFinished);
    ends(&UnPackage::signal_finshed);
    ends(&UnPackage::signal_finshedUpgrade);
    ends(&UnPackage::signal_finshedUpdateRemark);
    ends(&UnPackage::signal_finishnetwork);
}

// On the thread of the operation.

void UnitLink::beginExchange(const QByteArray& frame)
{
    const QMutexLocker lock(&m_mutex);
    m_state = Sent; // from here on no wake can come that belongs to the exchange before
    QMetaObject::invokeMethod(this, [this, frame] { send(frame); });
}

void UnitLink::endOperation()
{
    const QMutexLocker lock(&m_mutex);
    const bool isUnanswered = m_state == Sent;
    m_state = Idle;
    // What still comes on this connection would be taken for the reply to the next frame.
    if (isUnanswered)
        QMetaObject::invokeMethod(this, [this] { m_socket.abort(); });
}

// On the thread of the link.

void UnitLink::send(const QByteArray& frame)
{
    if (m_socket.state() == QAbstractSocket::UnconnectedState) {
        m_received.clear();
        m_socket.connectToHost(m_host, m_port);
    }
    m_socket.write(frame); // kept until the connection stands
}

void UnitLink::receive()
{
    m_received += m_socket.readAll();
    while (m_received.size() >= headAndTrailer) {
        const auto payload =
            qFromLittleEndian<quint32>(m_received.constData() + payloadLengthOffset);
        if (payload > maximumPayload) {
            fail(QStringLiteral("this is no reply of a unit"));
            return;
        }
        const int size = headAndTrailer + static_cast<int>(payload);
        if (m_received.size() < size)
            return;
        deliver(m_received.left(size));
        m_received.remove(0, size);
    }
}

void UnitLink::deliver(const QByteArray& reply)
{
    const QMutexLocker lock(&m_mutex);
    if (m_state != Sent)
        return;
    m_operations->setRecvPackage(reply);
    keepWaking();
}

void UnitLink::fail(const QString& reason)
{
    m_socket.abort();
    const QMutexLocker lock(&m_mutex);
    if (m_state != Sent)
        return;
    m_operations->setError(reason);
    keepWaking();
}

/** The operation may not sleep yet, and then the wake of the reply is lost: repeat it. */
void UnitLink::keepWaking()
{
    m_state = Answered;
    m_wakes.start();
}

void UnitLink::wakeAgain()
{
    const QMutexLocker lock(&m_mutex);
    if (m_state == Answered)
        m_operations->quitWaitDelay();
    else
        m_wakes.stop();
}
