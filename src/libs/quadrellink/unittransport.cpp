#include "unittransport.h"

#include "unpackage.h"

#include <algorithm>
#include <cerrno>

#include <poll.h>

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::microseconds firstWakePause = 10us;
constexpr std::chrono::microseconds longestWakePause = 4ms;
/**
 * Replies that follow each other this fast are waited for awake: to sleep and be woken would take
 * as long again.
 */
constexpr std::chrono::microseconds promptExchange = 150us;
/** More than any datagram, and many frames of a stream. */
constexpr std::size_t receiveBufferSize = std::size_t{128} * 1024;

} // namespace

UnitTransport::UnitTransport(UnPackage* unPackage, UnitAddress address, int timeout)
    : m_unPackage(unPackage)
    , m_address(std::move(address))
    , m_timeout(timeout)
    , m_buffer(receiveBufferSize)
{
    const auto handleDirectly = [this](auto signal, auto handler) {
        m_connections.push_back(
            QObject::connect(m_unPackage, signal, m_unPackage, handler, Qt::DirectConnection));
    };
    handleDirectly(
        &UnPackage::signal_sendPackage, [this](const QByteArray& frame) { sendFrame(frame); });
    const auto finish = [this] { finishOperation(); };
    handleDirectly(&UnPackage::signal_errored, finish);
    handleDirectly(&UnPackage::signal_readFinished, finish);
    handleDirectly(&UnPackage::signal_finshed, finish);
    handleDirectly(&UnPackage::signal_finshedUpgrade, finish);
    handleDirectly(&UnPackage::signal_finshedUpdateRemark, finish);
    handleDirectly(&UnPackage::signal_finishnetwork, finish);
    m_receiver = std::thread([this] { receiveReplies(); });
}

UnitTransport::~UnitTransport()
{
    for (const QMetaObject::Connection& connection : m_connections)
        QObject::disconnect(connection);
    {
        const Lock lock(m_mutex);
        m_stopping = true;
    }
    m_receiverWake.raise();
    m_receiver.join();
}

void UnitTransport::finishOperation()
{
    const Lock lock(m_mutex);
    m_running = false;
    m_wakePause = 0us;
    m_receiverWake.raise();
}

void UnitTransport::abort(const QString& reason)
{
    const Lock lock(m_mutex);
    m_abortReason = reason;
    m_cancel.raise();
    if (m_awaiting)
        reportFailure(reason);
}

void UnitTransport::awaitLastReply()
{
    Lock lock(m_mutex);
    const auto isSettled = [this] { return !m_awaiting; };
    if (m_timeout < 0)
        m_settled.wait(lock, isSettled);
    else
        m_settled.wait_for(lock, std::chrono::milliseconds(m_timeout), isSettled);
}

void UnitTransport::disconnectUnit()
{
    const Lock lock(m_mutex);
    m_socket.reset();
    m_receiverWake.raise();
}

bool UnitTransport::isConnected() const
{
    const Lock lock(m_mutex);
    return m_socket != nullptr;
}

QString UnitTransport::lastFailure() const
{
    const Lock lock(m_mutex);
    return m_lastFailure;
}

// On the operation's thread.

void UnitTransport::sendFrame(const QByteArray& frame)
{
    std::shared_ptr<UnitSocket> socket;
    const std::uint64_t number = beginExchange(frame, socket);
    if (number == 0)
        return;

    const Deadline deadline(m_timeout);
    int error = 0;
    if (!socket) {
        socket = UnitSocket::connectTo(m_address, deadline, m_cancel, error);
        const Lock lock(m_mutex);
        m_socket = socket;
        m_reader = ReplyReader();
        m_receiverWake.raise();
    }
    if (socket)
        error = socket->send(frame, deadline, m_cancel);
    if (error)
        failExchange(number, describe(error));
    else
        m_sent = true;
}

/** The number of the exchange, or 0 if it has failed already. Null if a connection is needed. */
std::uint64_t UnitTransport::beginExchange(
    const QByteArray& frame, std::shared_ptr<UnitSocket>& socket)
{
    const Lock lock(m_mutex);
    if (!m_running)
        m_lastFailure.clear();
    m_wakePause = 0us;
    m_awaiting = true;
    m_sent = false;
    m_label = ReplyReader::labelOf(frame);
    ++m_number;
    if (!m_abortReason.isEmpty()) {
        m_running = true;
        reportFailure(m_abortReason);
        return 0;
    }
    socket = usableSocket();
    m_running = true;
    return m_number;
}

/**
 * The connection, unless an operation before this one has left it in the middle of a reply, or the
 * unit has closed it since.
 */
std::shared_ptr<UnitSocket> UnitTransport::usableSocket()
{
    if (m_socket && !m_running && (m_reader.isMidFrame() || m_socket->isAtEnd()))
        m_socket.reset();
    return m_socket;
}

/** Nothing if the exchange has ended meanwhile: the receiver may have seen the same loss. */
void UnitTransport::failExchange(std::uint64_t number, const QString& reason)
{
    const Lock lock(m_mutex);
    if (number != m_number || !m_awaiting)
        return;
    m_socket.reset();
    reportFailure(reason);
}

// On the receiver's thread, with the mutex locked unless it waits.

void UnitTransport::receiveReplies()
{
    Lock lock(m_mutex);
    while (!m_stopping) {
        const std::shared_ptr<UnitSocket> socket = m_socket;
        const std::uint64_t number = m_number;
        const std::chrono::microseconds pause = m_wakePause;
        if (!m_running)
            m_awakeUntil = {};
        lock.unlock();
        int size = 0;
        int error = 0;
        if (waitForInput(socket.get(), pause))
            size = socket->receive(m_buffer.data(), static_cast<int>(m_buffer.size()), error);
        lock.lock();
        if (size != 0 && socket == m_socket)
            takeReceived(size, error);
        if (number == m_number)
            repeatWake(pause);
    }
}

/** Whether the socket has something to tell; false when the pause is over or the wake was raised.
 */
bool UnitTransport::waitForInput(const UnitSocket* socket, std::chrono::microseconds pause)
{
    pollfd waited[] = {
        {m_receiverWake.descriptor(), POLLIN, 0}, {socket ? socket->descriptor() : -1, POLLIN, 0}};
    const auto start = std::chrono::steady_clock::now();
    auto now = start;
    if (now < m_awakeUntil) {
        const auto end = pause > 0us ? std::min(start + pause, m_awakeUntil) : m_awakeUntil;
        while (poll(waited, 2, 0) == 0 && now < end) {
            // To whoever has work for this processor; it may be the operation, or the unit.
            std::this_thread::yield();
            now = std::chrono::steady_clock::now();
        }
    } else {
        timespec limit = {};
        limit.tv_nsec = std::chrono::nanoseconds(pause).count();
        ppoll(waited, 2, pause > 0us ? &limit : nullptr, nullptr);
        now = std::chrono::steady_clock::now();
    }
    if (waited[0].revents)
        m_receiverWake.clear();
    if (!waited[1].revents)
        return false;
    m_awakeUntil = now - m_lastInput < promptExchange ? now + promptExchange : now;
    m_lastInput = now;
    return true;
}

void UnitTransport::takeReceived(int size, int error)
{
    if (size < 0) {
        const bool inReply = error == UnitSocket::Closed && m_reader.isMidFrame();
        loseConnection(inReply
                ? tr("%1 closed the connection in the middle of a reply").arg(m_address.toText())
                : describe(error));
        return;
    }
    if (m_socket->isDatagram())
        m_reader.appendDatagram(m_buffer.data(), size);
    else
        m_reader.append(m_buffer.data(), size);
    takeFrames();
    if (m_reader.fault() != ReplyReader::NoFault)
        loseConnection(describe(m_reader.fault()));
}

void UnitTransport::takeFrames()
{
    while (const std::optional<QByteArray> frame = m_reader.takeFrame()) {
        if (!m_awaiting || ReplyReader::labelOf(*frame) != m_label)
            continue;
        settleExchange();
        if (m_running)
            m_unPackage->setRecvPackage(*frame);
    }
}

void UnitTransport::loseConnection(const QString& reason)
{
    m_socket->shutDown();
    m_socket.reset();
    if (m_awaiting)
        reportFailure(reason);
}

/** Wakes again while the number of the exchange is what it was before the pause. */
void UnitTransport::repeatWake(std::chrono::microseconds pause)
{
    if (pause == 0us || m_wakePause == 0us)
        return;
    m_unPackage->quitWaitDelay();
    m_wakePause = std::min(2 * m_wakePause, longestWakePause);
}

// On either thread, with the mutex locked.

void UnitTransport::settleExchange()
{
    m_awaiting = false;
    m_wakePause = m_running ? firstWakePause : 0us;
    m_settled.notify_all();
}

void UnitTransport::reportFailure(const QString& reason)
{
    m_lastFailure = reason;
    settleExchange();
    if (m_running)
        m_unPackage->setError(reason);
    m_receiverWake.raise();
}

QString UnitTransport::describe(int socketError) const
{
    const QString unit = m_address.toText();
    switch (socketError) {
    case UnitSocket::UnknownHost:
        return tr("%1: no such host").arg(unit);
    case UnitSocket::TimedOut:
    case ETIMEDOUT:
        return tr("%1 does not answer").arg(unit);
    case UnitSocket::Cancelled:
        return tr("%1: interrupted").arg(unit);
    case UnitSocket::Closed:
        return tr("%1 closed the connection without an answer").arg(unit);
    case ECONNREFUSED:
        return tr("%1 refused the connection").arg(unit);
    case ECONNRESET:
    case EPIPE:
        return tr("%1 reset the connection").arg(unit);
    case EHOSTUNREACH:
    case ENETUNREACH:
        return tr("%1 can't be reached").arg(unit);
    default:
        return tr("%1: %2").arg(unit, qt_error_string(socketError));
    }
}

QString UnitTransport::describe(ReplyReader::Fault fault) const
{
    if (fault == ReplyReader::WrongChecksum)
        return tr("%1 sent a damaged reply: its checksum is wrong").arg(m_address.toText());
    return tr("%1 sent something that is no reply of a unit").arg(m_address.toText());
}
