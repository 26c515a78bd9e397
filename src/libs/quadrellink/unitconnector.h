// Internal; not installed.
#pragma once

#include "unitsocket.h"

#include <cstddef>
#include <memory>
#include <system_error>
#include <vector>

/** Makes connections to a unit, trying one address of its name after the other. */
class UnitConnector {
public:
    explicit UnitConnector(const UnitAddress& address)
        : m_address(address)
    {
    }

    /** Forgets the addresses: the next connection looks the name up, and begins with the first. */
    void restart() { m_endpoints.clear(); }

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
