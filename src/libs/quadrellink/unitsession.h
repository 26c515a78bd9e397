// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "linkerror.h"
#include "linkoptions.h"
#include "quadrellink_global.h"
#include "unitaddress.h"
#include "unitdata.h"
#include "unitprogress.h"
#include "unitrequest.h"

#include <QtCore/QObject>

#include <functional>
#include <memory>
#include <system_error>

/** How an operation has ended. */
struct UnitResult {
    /** Empty after a success. */
    LinkFailure failure;
    /** What a read has found; models that were not read are at their defaults. */
    UnitData data;

    /** Whether the operation has succeeded. */
    explicit operator bool() const { return !failure; }
};

Q_DECLARE_METATYPE(UnitResult)

/**
 * The operations on one unit, each as a call that returns or as signals.
 *
 * A session owns an UnPackage with a registry of its own and runs it on a worker thread. Sessions
 * share nothing, so that a program may have any number of them at a time. Make it after the
 * application object; it needs no settings file. The first operation connects, and a later one
 * connects again after a loss.
 *
 * @code
 * UnitSession session(UnitAddress{UnitAddress::Tcp, "192.168.1.21"});
 * UnitResult unit = session.run(UnitRequest::readAll());
 * if (unit)
 *     unit = session.run(UnitRequest::writeEvents(changed(unit.data.events)));
 * if (!unit)
 *     qWarning("%s", qUtf8Printable(unit.failure.text));
 * @endcode
 *
 * One operation runs at a time. Nothing is rolled back: after a failure what was written stays.
 *
 * **Calls.** run() blocks its thread until the operation is over, and needs no event loop. Events
 * of the thread, timers and signals included, are not processed meanwhile.
 *
 * **Signals.** start() returns at once. The session's own thread, which must run an event loop,
 * emits progressed() any number of times, and then either finished() or failed() once.
 *
 * **Threads.** cancel() and abort() may be called from any thread and from the handler of a signal
 * of the system. Everything else belongs to the session's own thread.
 *
 * **Failures.** The text of each names the unit, but for those that the library finds in the
 * contents of a reply. Without a free descriptor or thread a session can't work: each of its
 * operations fails with the system's error.
 */
class QUADRELLINK_EXPORT UnitSession : public QObject {
    Q_OBJECT

public:
    /** What run() calls while the operation goes on. */
    using ProgressHandler = std::function<void(const UnitProgress&)>;

    /** Sends nothing yet. */
    explicit UnitSession(
        const UnitAddress& address, const LinkOptions& options = {}, QObject* parent = nullptr);
    /** Cancels the operation that runs, and waits for its end; nothing is emitted any more. */
    ~UnitSession() override;

    /** The address that the session was made for. */
    UnitAddress address() const;

    /** Runs an operation and returns when it is over; `progress` is called on this thread. */
    UnitResult run(const UnitRequest& request, const ProgressHandler& progress = {});
    /** Starts an operation. False, with no effect, if one runs already. */
    bool start(const UnitRequest& request);
    /** Whether an operation runs, from start() to its closing signal. */
    bool isRunning() const;

    /** Ends the operation that runs, with LinkError::Cancelled; no effect if none does. */
    void cancel() noexcept;
    /** Ends the operation that runs, and each later one at once, with LinkError::Cancelled. */
    void abort() noexcept;

    /** Whether there is a connection; over UDP, whether a socket is open. */
    bool isConnected() const;

Q_SIGNALS:
    /** The progress of the operation that was started. */
    void progressed(const UnitProgress& progress);
    /** The operation that was started has succeeded. */
    void finished(const UnitResult& result);
    /** The operation that was started has failed; `text` is for people. */
    void failed(const std::error_code& error, const QString& text);

private:
    class Q_DECL_HIDDEN Private;
    std::unique_ptr<Private> d;
};
