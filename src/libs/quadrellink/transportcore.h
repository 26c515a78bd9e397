// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal; not installed.
#pragma once

#include "exchange.h"
#include "inputwait.h"
#include "linkerror.h"
#include "linkoptions.h"
#include "replyreader.h"
#include "threadannotations.h"
#include "unitaddress.h"
#include "unitconnector.h"
#include "unitsocket.h"

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>
#include <QtCore/QString>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

class UnPackage;

/**
 * Carries frames of an UnPackage to a unit, and the replies back.
 *
 * A frame goes out on the thread of the operation, straight from sendFrame(). Whatever may take
 * time is done by a thread of the core: it connects, receives, watches the time limit and sends
 * again.
 *
 * An operation's wait has no predicate, so a reply that is handed in before the operation sleeps
 * wakes nobody. The wake is therefore repeated until the next frame or the end of the operation has
 * come: under the mutex, which each new frame takes first, so that a wake which belongs to one
 * exchange can never reach the next.
 */
class TransportCore {
    Q_DECLARE_TR_FUNCTIONS(UnitTransport)

public:
    /** Called for each reply that is taken, before it is handed in; on the core's thread. */
    using Observer = std::function<void(const Exchange&, const QuadrelFrame::FrameView& reply)>;

    /** Throws std::system_error if there is no free descriptor or thread. */
    TransportCore(UnPackage& unPackage, const UnitAddress& address, const LinkOptions& options,
        Observer observer = {});
    ~TransportCore();
    TransportCore(const TransportCore&) = delete;
    TransportCore& operator=(const TransportCore&) = delete;

    // On the thread of the operation.

    void sendFrame(const QByteArray& frame);
    void finishOperation();
    /**
     * After an operation that did not await its last reply: waits until it is there, within the
     * time limit. False if it did not come, or there is none to come.
     */
    bool awaitLastReply();

    // From any thread; the first two also from the handler of a signal of the system.

    void cancel() noexcept;
    bool isCancelled() const noexcept { return m_isCancelled; }
    /** Lets operations go on after cancel(). */
    void resume() noexcept;

    void disconnectUnit();
    bool isConnected() const;
    bool wasSent() const { return m_wasSent; }
    LinkFailure lastFailure() const;

private:
    /** Of an operation, and of the exchange that it is at. */
    enum class Phase {
        Idle,      ///< no operation runs, and no reply is awaited
        Awaiting,  ///< the operation awaits the reply to its frame
        Delivered, ///< it was given a reply or a failure, and has not gone on yet
        Trailing   ///< the operation is over, and the reply to its last frame is still to come
    };
    /** What the operation is given: a reply, or the text of a failure. */
    struct Outcome {
        QByteArray reply;
        QString error;
    };
    using Clock = Deadline::Clock;

    std::shared_ptr<UnitSocket> beginExchange(const QByteArray& frame);
    void handOver(const std::shared_ptr<UnitSocket>& socket, int sent);
    void leaveUnusableSocket() LINK_REQUIRES(m_mutex);

    void work();
    void transmit() LINK_REQUIRES(m_mutex);
    void awaitInput() LINK_REQUIRES(m_mutex);
    void takeReceived(int size, const std::error_code& error) LINK_REQUIRES(m_mutex);
    void takeFrames() LINK_REQUIRES(m_mutex);
    void takeReply(const QuadrelFrame::FrameView& reply) LINK_REQUIRES(m_mutex);
    void takeFault(const LinkFailure& failure) LINK_REQUIRES(m_mutex);
    void loseConnection(const LinkFailure& failure) LINK_REQUIRES(m_mutex);
    void runOutOfTime() LINK_REQUIRES(m_mutex);
    void handIn() LINK_REQUIRES(m_mutex);
    void giveWay() LINK_REQUIRES(m_mutex);
    void repeatWake() LINK_REQUIRES(m_mutex);
    Clock::duration untilNextAct() const LINK_REQUIRES(m_mutex);

    bool isAwaited() const LINK_REQUIRES(m_mutex);
    bool sendAgain() LINK_REQUIRES(m_mutex);
    void fail(const LinkFailure& failure) LINK_REQUIRES(m_mutex);
    void settle(const Outcome& outcome) LINK_REQUIRES(m_mutex);
    void dropSocket() LINK_REQUIRES(m_mutex);

    LinkFailure noReply() const LINK_REQUIRES(m_mutex);
    LinkFailure failureOf(const std::error_code& error) const;
    LinkFailure cancelled() const;
    LinkFailure faultOf(ReplyReader::Fault fault) const;

    UnPackage& m_unPackage;
    const UnitAddress m_address;
    const QString m_unit;
    const int m_timeout;
    const int m_retries;
    const std::shared_ptr<FrameLog> m_log;
    const Observer m_observer;

    mutable LinkMutex m_mutex;
    std::condition_variable_any m_settled;
    Phase m_phase LINK_GUARDED_BY(m_mutex) = Phase::Idle;
    /** Until the operation has been given it. */
    std::optional<Outcome> m_outcome LINK_GUARDED_BY(m_mutex);
    Exchange m_exchange LINK_GUARDED_BY(m_mutex);
    /** Of the frames sent: a wake belongs to one of them. */
    std::uint64_t m_number LINK_GUARDED_BY(m_mutex) = 0;
    /** On which the operation runs; negative if that is not known. */
    int m_processor LINK_GUARDED_BY(m_mutex) = -1;
    Deadline m_deadline LINK_GUARDED_BY(m_mutex){-1};
    Clock::time_point m_sentAt LINK_GUARDED_BY(m_mutex);
    int m_triesLeft LINK_GUARDED_BY(m_mutex) = 0;
    int m_timesSent LINK_GUARDED_BY(m_mutex) = 0;
    /** How much of the frame is out; negative while none of it waits to go out. */
    int m_unsentFrom LINK_GUARDED_BY(m_mutex) = -1;
    int m_exchangesToGiveWay LINK_GUARDED_BY(m_mutex) = 0;
    bool m_isStopping LINK_GUARDED_BY(m_mutex) = false;
    LinkFailure m_lastFailure LINK_GUARDED_BY(m_mutex);
    /** What came instead of a reply, in this exchange. */
    LinkFailure m_mishap LINK_GUARDED_BY(m_mutex);

    std::shared_ptr<UnitSocket> m_socket LINK_GUARDED_BY(m_mutex);
    ReplyReader m_reader LINK_GUARDED_BY(m_mutex);
    /** Something has been received from the address that the socket leads to. */
    bool m_isHeard LINK_GUARDED_BY(m_mutex) = false;

    std::atomic<bool> m_wasSent{false};
    std::atomic<bool> m_isCancelled{false};
    WakeSignal m_wake;
    WakeSignal m_cancel;

    // Of the core's thread alone.
    UnitConnector m_connector;
    std::vector<char> m_buffer;
    InputWait m_input;
    std::thread m_thread;
};
