// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "linkerror.h"
#include "linkoptions.h"
#include "quadrellink_global.h"
#include "unitaddress.h"

#include <memory>

class UnPackage;

/**
 * Carries the frames of an UnPackage of the application's own to a unit over TCP or UDP, and the
 * replies back. UnitSession does this and more; this class is for programs that drive an UnPackage
 * themselves.
 *
 * A reply answers the current frame if label, address and length match; late and
 * repeated replies are dropped. A failure ends the exchange with a text that names the unit. The
 * connection is made when a frame needs one, and made again after a loss.
 *
 * All of this happens on the thread of the operation, in place of the UnPackage's own wait, so that
 * no reply comes too early. setError() and quitWaitDelay() of other threads still end the wait.
 *
 * The time limit of LinkOptions and the wait of the UnPackage both count: let the wait be longer
 * than all tries together, or -1, lest the operation ends while the transport tries again.
 *
 * The object may live on any thread. Destroy it when no operation runs; cancel() makes one end.
 */
class QUADRELLINK_EXPORT UnitTransport {
public:
    /**
     * Serves `unPackage`, which must outlive this object. Throws std::system_error if there is no
     * free descriptor.
     */
    UnitTransport(
        UnPackage* unPackage, const UnitAddress& address, const LinkOptions& options = {});
    ~UnitTransport();
    UnitTransport(const UnitTransport&) = delete;
    UnitTransport& operator=(const UnitTransport&) = delete;

    /**
     * Says that an operation is over. Operations that end in a closing signal say it themselves;
     * call this after a direct call, such as UnPackage::readDeviceParameter().
     */
    void finishOperation();

    /**
     * Ends the operation that runs, and each later one, until resume(). From any thread, and from
     * the handler of a signal of the system.
     */
    void cancel() noexcept;
    /** Lets operations run again after cancel(). */
    void resume() noexcept;

    /**
     * Waits until the last frame is answered or has failed, for frames whose reply no operation
     * awaits; no longer than the time limit. False if there was no answer.
     */
    bool awaitLastReply();

    /** Ends the connection; the next frame makes a new one. Only between operations. */
    void disconnectUnit();
    /** Whether there is a connection; over UDP, whether a socket is open. */
    bool isConnected() const;

    /** Whether the last frame has gone out, answered or not. */
    bool wasSent() const;
    /** The last failure that the UnPackage was given; none if the last operation had none. */
    LinkFailure lastFailure() const;

private:
    class Q_DECL_HIDDEN Private;
    std::unique_ptr<Private> d;
};
