// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "console.h"
#include "simoptions.h"
#include "simulatedunit.h"

#include <memory>
#include <vector>

/** All units of this program. */
class Simulator {
public:
    explicit Simulator(const SimOptions& options);

    /** False, with the reason on standard error, if a unit cannot do its work. */
    bool start();
    /** Saves what is not saved yet. False if that fails. */
    bool stop();

private:
    bool makeRoom();
    void printEndpoints() const;

    SimOptions m_options;
    Log m_log;
    std::vector<std::unique_ptr<SimulatedUnit>> m_units;
};
