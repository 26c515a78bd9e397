// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal; not installed.
#pragma once

#include "unitsocket.h"

#include <cstddef>
#include <memory>
#include <system_error>
#include <utility>
#include <vector>

/** Makes connections to a unit, trying one address of its name after the other. */
class UnitConnector {
public:
    /** With addresses that are known already, no name is looked up before they are all tried. */
    explicit UnitConnector(const UnitAddress& address, std::vector<Endpoint> endpoints = {})
        : m_address(address)
        , m_endpoints(std::move(endpoints))
    {
    }

    /**
     * Connects to the next address that accepts. Each gets its share of what is left of the time.
     * Null on failure, with the reason of the last one in `error`.
     */
    std::shared_ptr<UnitSocket> connectNext(
        const Deadline& deadline, const WakeSignal& cancel, std::error_code& error);

    /** Whether there are addresses that were not tried since the name was looked up. */
    bool hasMore() const { return m_next < m_endpoints.size(); }

private:
    UnitAddress m_address;
    std::vector<Endpoint> m_endpoints;
    std::size_t m_next = 0;
};
