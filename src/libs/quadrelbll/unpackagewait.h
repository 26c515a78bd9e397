// Internal to this project's libraries; not installed.
#pragma once

#include "unpackage.h"

/** Sets the wait time of a single UnPackage, in place of what its settings file says. */
class UnPackageWait {
public:
    /**
     * Lets each exchange of `operations` wait until it is woken: its transport keeps the time
     * limit. Call it while no operation runs.
     */
    static void setUnlimited(UnPackage& operations) { operations.m_timeout = -1; }
};
