// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "transportcore.h"

#include <algorithm>

using namespace QuadrelFrame;

namespace {

/** More than any datagram, and many frames of a stream. */
constexpr int receiveBufferSize = 128 * 1024;
/** What came between two operations is read in so many pieces at most. */
constexpr int leftoverPieces = 16;
constexpr int usualUdpRetries = 3;

int retriesOf(const UnitAddress& address, int retries)
{
    if (retries != LinkOptions::usualRetries)
        return std::max(retries, 0);
    return address.protocol == UnitAddress::Udp ? usualUdpRetries : 0;
}

QString placeText(std::uint32_t address)
{
    const std::optional<NamedPlace> place = namedPlace(address);
    if (!place)
        return QStringLiteral("0x%1").arg(address, 8, 16, QLatin1Char('0'));
    return QCoreApplication::translate("Place", place->name)
        + QString::fromStdString(place->position);
}

QByteArray bytesOf(const FrameView& frame)
{
    return QByteArray(frame.bytes(), static_cast<int>(frame.size()));
}

} // namespace

TransportCore::TransportCore(
    UnPackage& unPackage, const UnitAddress& address, const LinkOptions& options, Observer observer)
    : m_unPackage(unPackage)
    , m_address(address)
    , m_unit(address.toText())
    , m_timeout(options.timeout)
    , m_retries(retriesOf(address, options.retries))
    , m_log(options.log)
    , m_observer(std::move(observer))
    , m_connector(address)
    , m_buffer(new char[receiveBufferSize])
{
}

void TransportCore::cancel() noexcept
{
    m_isCancelled = true;
    m_cancel.raise();
    m_wake.raise();
}

void TransportCore::resume() noexcept
{
    m_isCancelled = false;
    m_cancel.clear();
}

void TransportCore::wake()
{
    m_isWoken = true;
    m_wake.raise();
}

void TransportCore::disconnectUnit()
{
    const LinkLock lock(m_mutex);
    dropSocket();
}

bool TransportCore::isConnected() const
{
    const LinkLock lock(m_mutex);
    return m_socket && !m_socket->isAtEnd();
}

LinkFailure TransportCore::lastFailure() const
{
    const LinkLock lock(m_mutex);
    return m_lastFailure;
}

// On the operation's thread.

void TransportCore::sendFrame(const QByteArray& frame)
{
    const LinkLock lock(m_mutex);
    beginExchange(frame);
    while (m_isUnsent)
        goOn();
}

void TransportCore::beginExchange(const QByteArray& frame)
{
    if (m_phase == Phase::Idle || m_phase == Phase::Trailing) {
        m_phase = Phase::Idle;
        m_lastFailure = LinkFailure();
        leaveUnusableSocket();
    }
    m_phase = Phase::Awaiting;
    m_outcome.reset();
    m_wasSent = false;
    m_mishap = LinkFailure();
    m_exchange = Exchange(frame);
    m_deadline = Deadline(m_timeout);
    m_sentAt = Clock::now();
    m_triesLeft = m_exchange.mayRepeat() ? m_retries : 0;
    m_timesSent = 1;
    m_isUnsent = true;
    if (m_log)
        m_log->add(m_unit, FrameLog::Sent, frame);
}

/** An operation before may have left it in mid-frame, or the unit may have closed it since. */
void TransportCore::leaveUnusableSocket()
{
    for (int i = 0; m_socket && i < leftoverPieces; ++i) {
        std::error_code error;
        const int size = m_socket->receive(m_buffer.get(), receiveBufferSize, error);
        if (size == 0)
            break;
        takeReceived(size, error);
    }
    if (m_reader.isMidFrame())
        dropSocket();
}

bool TransportCore::await(int milliseconds)
{
    const Deadline limit(milliseconds);
    const LinkLock lock(m_mutex);
    m_isWoken = false;
    while (!m_outcome && !m_isWoken && !limit.isOver())
        goOn(limit);
    const bool isOver = !m_outcome && !m_isWoken;
    handIn();
    return !isOver;
}

void TransportCore::handIn()
{
    if (!m_outcome)
        return;
    if (m_outcome->error.isEmpty())
        UnPackageAccess::setReply(m_unPackage, m_outcome->reply);
    else
        UnPackageAccess::setFailure(m_unPackage, m_outcome->error);
    m_outcome.reset();
}

void TransportCore::finishOperation()
{
    const LinkLock lock(m_mutex);
    m_outcome.reset();
    m_phase = m_phase == Phase::Awaiting ? Phase::Trailing : Phase::Idle;
}

bool TransportCore::awaitLastReply()
{
    const LinkLock lock(m_mutex);
    if (!isAwaited())
        return false;
    while (isAwaited())
        goOn();
    return !m_lastFailure;
}

/** Does what comes next; waits for input, but not beyond `limit`, if there is nothing else. */
void TransportCore::goOn(const Deadline& limit)
{
    if (m_isCancelled && isAwaited())
        fail(cancelled());
    else if (isAwaited() && m_deadline.isOver())
        runOutOfTime();
    else if (isAwaited() && m_isUnsent)
        transmit();
    else
        awaitInput(limit);
}

/** Connects if there is no connection, and sends the frame. */
void TransportCore::transmit()
{
    const Exchange exchange = m_exchange;
    const Deadline deadline = m_deadline;
    std::shared_ptr<UnitSocket> socket = m_socket;
    const bool isNew = !socket;
    std::error_code error;

    m_mutex.unlock();
    if (isNew)
        socket = m_connector.connectNext(deadline, m_cancel, error);
    if (socket)
        error = socket->send(exchange.frame(), deadline, m_cancel);
    m_mutex.lock();

    if (isNew) {
        m_socket = socket;
        m_reader = ReplyReader();
        m_isHeard = false;
    }
    m_isUnsent = false;
    // Half a frame would make the next one unreadable.
    if (error)
        loseConnection(failureOf(error));
    else
        m_wasSent = true;
}

void TransportCore::awaitInput(const Deadline& limit)
{
    const std::shared_ptr<UnitSocket> socket = m_socket;
    const Clock::duration time =
        isAwaited() ? std::min(limit.left(), m_deadline.left()) : limit.left();
    int size = 0;
    std::error_code error;

    m_mutex.unlock();
    const InputWait::Events events =
        m_input.wait(m_wake.descriptor(), socket ? socket->descriptor() : -1, time);
    if (events.isWoken)
        m_wake.clear();
    if (events.hasInput)
        size = socket->receive(m_buffer.get(), receiveBufferSize, error);
    m_mutex.lock();

    if (size != 0 && socket == m_socket)
        takeReceived(size, error);
}

void TransportCore::takeReceived(int size, const std::error_code& error)
{
    if (size < 0) {
        LinkFailure failure = failureOf(error);
        if (error == LinkError::ConnectionLost && m_reader.isMidFrame())
            failure.text = tr("%1 closed the connection in the middle of a reply").arg(m_unit);
        loseConnection(failure);
        return;
    }
    if (m_socket->isDatagram())
        m_reader.appendDatagram(m_buffer.get(), size);
    else
        m_reader.append(m_buffer.get(), size);
    takeFrames();
    if (m_reader.fault() != ReplyReader::NoFault)
        takeFault(faultOf(m_reader.fault()));
}

void TransportCore::takeFrames()
{
    while (const std::optional<FrameView> reply = m_reader.takeFrame()) {
        m_isHeard = true;
        takeReply(*reply);
    }
}

void TransportCore::takeReply(const FrameView& reply)
{
    const Exchange::Verdict verdict =
        isAwaited() ? m_exchange.judge(reply) : Exchange::Verdict::Foreign;
    if (m_log)
        m_log->add(m_unit,
            verdict == Exchange::Verdict::Foreign ? FrameLog::Dropped : FrameLog::Received,
            bytesOf(reply), Clock::now() - m_sentAt);
    if (verdict == Exchange::Verdict::Foreign)
        return;
    if (verdict == Exchange::Verdict::WrongLength) {
        fail({LinkError::WrongReply,
            tr("%1 sent a reply of another length than was asked for").arg(m_unit)});
        return;
    }
    if (m_observer)
        m_observer(m_exchange, reply);
    settle({bytesOf(reply), QString()});
}

/** A stream that has lost its place is of no use any more; a datagram is simply lost. */
void TransportCore::takeFault(const LinkFailure& failure)
{
    if (!m_socket->isDatagram()) {
        loseConnection(failure);
        return;
    }
    m_reader = ReplyReader();
    if (!isAwaited())
        return;
    m_mishap = failure;
    if (m_triesLeft == 0)
        fail(failure);
}

void TransportCore::loseConnection(const LinkFailure& failure)
{
    const bool isRefused = failure.error == std::errc::connection_refused;
    const bool isNextAddressFree = isRefused && !m_isHeard && m_connector.hasMore();
    const bool wasConnected = m_socket != nullptr;
    dropSocket();
    if (!isAwaited())
        return;
    m_mishap = failure;
    // A refused datagram has reached no unit.
    if (isNextAddressFree)
        m_isUnsent = true;
    else if (!wasConnected || isRefused || !sendAgain())
        fail(failure);
}

void TransportCore::runOutOfTime()
{
    if (!sendAgain())
        fail(noReply());
}

/** Sends the frame once more, if it may be. */
bool TransportCore::sendAgain()
{
    if (m_triesLeft == 0 || m_phase == Phase::Trailing)
        return false;
    --m_triesLeft;
    ++m_timesSent;
    // A stream would only carry it to where the first one is stuck.
    if (m_socket && (!m_socket->isDatagram() || (!m_isHeard && m_connector.hasMore())))
        dropSocket();
    m_isUnsent = true;
    m_deadline = Deadline(m_timeout);
    if (m_log)
        m_log->add(m_unit, FrameLog::Sent, m_exchange.frame());
    return true;
}

bool TransportCore::isAwaited() const
{
    return m_phase == Phase::Awaiting || m_phase == Phase::Trailing;
}

void TransportCore::fail(const LinkFailure& failure)
{
    m_lastFailure = failure;
    settle({QByteArray(), failure.text});
}

void TransportCore::settle(const Outcome& outcome)
{
    m_isUnsent = false;
    if (m_phase == Phase::Awaiting)
        m_outcome = outcome;
    m_phase = m_phase == Phase::Awaiting ? Phase::Settled : Phase::Idle;
}

void TransportCore::dropSocket()
{
    if (!m_socket)
        return;
    m_socket->shutDown();
    m_socket.reset();
    m_reader = ReplyReader();
}

LinkFailure TransportCore::cancelled() const
{
    return {LinkError::Cancelled, tr("cancelled")};
}

LinkFailure TransportCore::noReply() const
{
    if (m_mishap)
        return m_mishap;
    const QString place = placeText(m_exchange.view().address());
    const QString text = m_exchange.isRead()
        ? tr("%1 has not answered the read of %2 within %3 ms")
        : tr("%1 has not answered the write of %2 within %3 ms");
    const QString failure = text.arg(m_unit, place, QString::number(m_timeout));
    return {LinkError::NoReply,
        m_timesSent == 1 ? failure
                         : tr("%1 (sent %2 times)").arg(failure, QString::number(m_timesSent))};
}

LinkFailure TransportCore::failureOf(const std::error_code& error) const
{
    const auto failure = [&](const QString& text) { return LinkFailure{error, text.arg(m_unit)}; };
    if (error == LinkError::Cancelled)
        return cancelled();
    if (error == LinkError::UnknownHost)
        return failure(tr("%1: no such host"));
    if (error == LinkError::ConnectionLost)
        return failure(tr("%1 closed the connection without an answer"));
    if (error == std::errc::timed_out)
        return failure(tr("%1 does not answer"));
    if (error == std::errc::connection_refused)
        return failure(tr("%1 refused the connection"));
    if (error == std::errc::connection_reset || error == std::errc::broken_pipe)
        return failure(tr("%1 reset the connection"));
    if (error == std::errc::host_unreachable || error == std::errc::network_unreachable)
        return failure(tr("%1 can't be reached"));
    return failure(QStringLiteral("%1: ") + qt_error_string(error.value()));
}

LinkFailure TransportCore::faultOf(ReplyReader::Fault fault) const
{
    if (fault == ReplyReader::WrongChecksum)
        return {LinkError::DamagedReply,
            tr("%1 sent a damaged reply: its checksum is wrong").arg(m_unit)};
    return {
        LinkError::NotAReply, tr("%1 sent something that is not a reply of a unit").arg(m_unit)};
}
