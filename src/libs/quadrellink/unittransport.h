#pragma once

#include "replyreader.h"
#include "unitaddress.h"
#include "unitsocket.h"

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>
#include <QtCore/QMetaObject>
#include <QtCore/QString>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

class UnPackage;

/**
 * Carries the frames of an UnPackage to a unit over TCP or UDP, and the replies back.
 *
 * A frame goes out on the thread of the operation, straight from the handler of
 * `signal_sendPackage`. A thread of the transport receives the reply and hands it in.
 *
 * An operation's wait has no predicate, so a reply that is handed in before the operation sleeps
 * wakes nobody. The transport therefore repeats the wake until the next frame or the closing signal
 * has come. All this happens under one mutex, which each new frame takes first: a wake that belongs
 * to one exchange can never reach the next.
 *
 * While replies follow each other fast, as from a unit on this machine, the receiving thread stays
 * awake between them and offers its processor to others; otherwise it sleeps.
 *
 * A reply is taken for the frame in flight by its label; late and repeated replies are dropped. A
 * failure ends the exchange with UnPackage::setError() and a text that names the unit. The
 * connection is made when a frame needs one, and made anew after a loss.
 *
 * The object may live on any thread. Destroy it when no operation runs; abort() makes one end.
 */
class UnitTransport {
    Q_DECLARE_TR_FUNCTIONS(UnitTransport)

public:
    /**
     * Serves `unPackage`, which must outlive this object. `timeout` limits connecting and sending,
     * in milliseconds; a negative number sets no limit.
     */
    UnitTransport(UnPackage* unPackage, UnitAddress address, int timeout);
    ~UnitTransport();
    UnitTransport(const UnitTransport&) = delete;
    UnitTransport& operator=(const UnitTransport&) = delete;

    /**
     * Tells that an operation is over. Operations that end in a closing signal tell it themselves;
     * call this after a direct call, such as UnPackage::readDeviceParameter().
     */
    void finishOperation();

    /** Ends the operation that runs, and each later one, with this text. From any thread. */
    void abort(const QString& reason);

    /**
     * Waits until the last frame was answered or its connection lost, for frames whose reply no
     * operation awaits. Gives up after the time limit.
     */
    void awaitLastReply();

    /** Ends the connection; the next frame makes a new one. Only between operations. */
    void disconnectUnit();
    bool isConnected() const;

    /** Whether the last frame has gone out, be it answered or not. */
    bool wasSent() const { return m_sent; }
    /** The last failure handed to UnPackage::setError(); empty if the last operation had none. */
    QString lastFailure() const;

private:
    using Lock = std::unique_lock<std::mutex>;

    void sendFrame(const QByteArray& frame);
    std::uint64_t beginExchange(const QByteArray& frame, std::shared_ptr<UnitSocket>& socket);
    std::shared_ptr<UnitSocket> usableSocket();
    void failExchange(std::uint64_t number, const QString& reason);

    void receiveReplies();
    bool waitForInput(const UnitSocket* socket, std::chrono::microseconds pause);
    void takeReceived(int size, int error);
    void takeFrames();
    void loseConnection(const QString& reason);
    void repeatWake(std::chrono::microseconds pause);

    void settleExchange();
    void reportFailure(const QString& reason);

    QString describe(int socketError) const;
    QString describe(ReplyReader::Fault fault) const;

    UnPackage* const m_unPackage;
    const UnitAddress m_address;
    const int m_timeout;
    std::vector<QMetaObject::Connection> m_connections;

    mutable std::mutex m_mutex;
    std::condition_variable m_settled;
    std::shared_ptr<UnitSocket> m_socket;
    ReplyReader m_reader;
    /** The number of frames sent: a failure found outside the mutex belongs to one of them. */
    std::uint64_t m_number = 0;
    unsigned char m_label = 0;
    /** The operation runs, from its first frame to its closing signal. */
    bool m_running = false;
    /** The frame in flight has neither been answered nor failed. */
    bool m_awaiting = false;
    bool m_stopping = false;
    std::atomic<bool> m_sent{false};
    QString m_abortReason;
    QString m_lastFailure;
    /** Until the next wake; zero while there is nothing to wake. */
    std::chrono::microseconds m_wakePause{0};

    WakeSignal m_receiverWake;
    WakeSignal m_cancel;
    // Of the receiver's thread alone.
    std::vector<char> m_buffer;
    std::chrono::steady_clock::time_point m_lastInput;
    /** Until then the receiver does not sleep. */
    std::chrono::steady_clock::time_point m_awakeUntil;
    std::thread m_receiver;
};
