// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitconnector.h"

#include "linkerror.h"

std::shared_ptr<UnitSocket> UnitConnector::connectNext(
    const Deadline& deadline, const WakeSignal& cancel, std::error_code& error)
{
    if (!hasMore()) {
        m_endpoints = findEndpoints(m_address, deadline, cancel, error);
        m_next = 0;
    }
    while (hasMore()) {
        const Deadline share = deadline.share(static_cast<int>(m_endpoints.size() - m_next));
        std::shared_ptr<UnitSocket> socket =
            UnitSocket::connectTo(m_endpoints[m_next], m_address.protocol, share, cancel, error);
        ++m_next;
        if (socket || error == LinkError::Cancelled)
            return socket;
    }
    return nullptr;
}
