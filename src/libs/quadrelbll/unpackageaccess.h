// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal to this project's libraries; not installed.
#pragma once

#include "unpackage.h"

/** What the link changes in an UnPackage of its own. Call it while no operation runs. */
class UnPackageAccess {
public:
    /** Lets each exchange wait until it is woken: the object's transport keeps the time limit. */
    static void setUnlimitedWait(UnPackage& operations) { operations.m_timeout = -1; }

    /**
     * Lets operations keep what they read in `registry` instead of the one of the process, so that
     * several units can be served at a time. It must outlive them; null leads back to the other.
     */
    static void setRegistry(UnPackage& operations, DeviceManagerModel* registry)
    {
        operations.m_registry = registry;
    }
};
