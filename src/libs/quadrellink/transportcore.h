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
#include "unpackageaccess.h"

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>
#include <QtCore/QString>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

/**
 * Carries frames of an UnPackage to a unit, and the replies back.
 *
 * All of it is done by the thread of the operation: sendFrame() connects and sends, and await(),
 * where the operation would sleep, receives, watches the time limit and sends again. A reply needs
 * no second thread that way, and can't come too early.
 */
class TransportCore : public ReplyWait {
    Q_DECLARE_TR_FUNCTIONS(UnitTransport)

public:
    /** Called for each reply that is taken, before it is handed in. */
    using Observer = std::function<void(const Exchange&, const QuadrelFrame::FrameView& reply)>;

    /** Throws std::system_error if there is no free descriptor. */
    TransportCore(UnPackage& unPackage, const UnitAddress& address, const LinkOptions& options,
        Observer observer = {});
    TransportCore(const TransportCore&) = delete;
    TransportCore& operator=(const TransportCore&) = delete;

    // On the thread of the operation.

    void sendFrame(const QByteArray& frame);
    bool await(int milliseconds) override;
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

    void wake() override;
    void disconnectUnit();
    bool isConnected() const;
    bool wasSent() const { return m_wasSent; }
    LinkFailure lastFailure() const;

private:
    /** Of an operation, and of the exchange that it is at. */
    enum class Phase {
        Idle,     ///< no operation runs, and no reply is awaited
        Awaiting, ///< the operation awaits the reply to its frame
        Settled,  ///< there is a reply or a failure for it
        Trailing  ///< the operation is over, and the reply to its last frame is still to come
    };
    /** What the operation is given: a reply, or the text of a failure. */
    struct Outcome {
        QByteArray reply;
        QString error;
    };
    using Clock = Deadline::Clock;

    void beginExchange(const QByteArray& frame) LINK_REQUIRES(m_mutex);
    void leaveUnusableSocket() LINK_REQUIRES(m_mutex);

    void goOn(const Deadline& limit = Deadline(-1)) LINK_REQUIRES(m_mutex);
    void transmit() LINK_REQUIRES(m_mutex);
    void awaitInput(const Deadline& limit) LINK_REQUIRES(m_mutex);
    void takeReceived(int size, const std::error_code& error) LINK_REQUIRES(m_mutex);
    void takeFrames() LINK_REQUIRES(m_mutex);
    void takeReply(const QuadrelFrame::FrameView& reply) LINK_REQUIRES(m_mutex);
    void takeFault(const LinkFailure& failure) LINK_REQUIRES(m_mutex);
    void loseConnection(const LinkFailure& failure) LINK_REQUIRES(m_mutex);
    void runOutOfTime() LINK_REQUIRES(m_mutex);
    void handIn() LINK_REQUIRES(m_mutex);

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

    /** Of the operation's thread, unless it waits: others only ask how things are. */
    mutable LinkMutex m_mutex;
    Phase m_phase LINK_GUARDED_BY(m_mutex) = Phase::Idle;
    /** Until the operation has been given it. */
    std::optional<Outcome> m_outcome LINK_GUARDED_BY(m_mutex);
    Exchange m_exchange LINK_GUARDED_BY(m_mutex);
    Deadline m_deadline LINK_GUARDED_BY(m_mutex){-1};
    Clock::time_point m_sentAt LINK_GUARDED_BY(m_mutex);
    int m_triesLeft LINK_GUARDED_BY(m_mutex) = 0;
    int m_timesSent LINK_GUARDED_BY(m_mutex) = 0;
    /** The frame has to be sent, or to be sent again. */
    bool m_isUnsent LINK_GUARDED_BY(m_mutex) = false;
    LinkFailure m_lastFailure LINK_GUARDED_BY(m_mutex);
    /** What came instead of a reply, in this exchange. */
    LinkFailure m_mishap LINK_GUARDED_BY(m_mutex);

    std::shared_ptr<UnitSocket> m_socket LINK_GUARDED_BY(m_mutex);
    ReplyReader m_reader LINK_GUARDED_BY(m_mutex);
    /** Something has been received from the address that the socket leads to. */
    bool m_isHeard LINK_GUARDED_BY(m_mutex) = false;

    std::atomic<bool> m_wasSent{false};
    std::atomic<bool> m_isCancelled{false};
    std::atomic<bool> m_isWoken{false};
    WakeSignal m_wake;
    WakeSignal m_cancel;

    // Of the operation's thread alone.
    UnitConnector m_connector;
    /** Of receiveBufferSize bytes, which take no memory until something comes in. */
    const std::unique_ptr<char[]> m_buffer;
    InputWait m_input;
};
