// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal to this project's libraries; not installed.
#pragma once

#include "unpackage.h"

class DeviceManagerModel;

/** Awaits replies on the thread of the operation, in place of an UnPackage's own wait. */
class ReplyWait {
public:
    virtual ~ReplyWait() = default;

    /**
     * Waits until the frame just sent is answered or has failed, and hands that in; or until wake()
     * is called. False if neither has come after so many milliseconds; a negative number has no
     * end.
     */
    virtual bool await(int milliseconds) = 0;
    /** Ends a wait, from any thread. Like an UnPackage's own, it has no effect on a later one. */
    virtual void wake() = 0;
};

/** What the link gives an UnPackage in place of its own; null for what it keeps. */
struct UnPackageLink {
    ReplyWait* wait = nullptr;
    /** Operations keep what they read here, so that several units can be served at a time. */
    DeviceManagerModel* registry = nullptr;
};

/** What the link changes in an UnPackage. Call it while no operation runs. */
class UnPackageAccess {
public:
    /** Lets each exchange wait without end: the object's transport keeps the time limit. */
    static void setUnlimitedWait(UnPackage& operations) { operations.m_timeout = -1; }
    /** `link` must outlive the operations; null gives the object its own things back. */
    static void setLink(UnPackage& operations, const UnPackageLink* link)
    {
        operations.m_link = link;
    }

    // Within ReplyWait::await().

    static void setReply(UnPackage& operations, const QByteArray& reply)
    {
        operations.m_recvPackage = reply;
    }
    static void setFailure(UnPackage& operations, const QString& text)
    {
        operations.m_errorText = text;
        operations.m_hasError = true;
    }
};
