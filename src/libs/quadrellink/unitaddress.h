// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "quadrellink_global.h"

#include <QtCore/QMetaType>
#include <QtCore/QString>

#include <cstdint>
#include <optional>

/** Where a unit is reached, as in "tcp://192.168.1.10:3801". */
struct QUADRELLINK_EXPORT UnitAddress {
    /** The protocol that carries the frames. */
    enum Protocol { Tcp, Udp };

    /** The port of units that use no other one. */
    static constexpr std::uint16_t defaultPort = 3801;

    Protocol protocol = Tcp;          ///< TCP or UDP
    QString host;                     ///< a name, or an address without brackets
    std::uint16_t port = defaultPort; ///< from 1 to 65535

    /**
     * Reads "tcp://HOST:PORT" or "udp://HOST:PORT". Protocol and port may be missing: "HOST" is
     * "tcp://HOST:3801". Nothing for any other text, also for one with a user, path or query.
     */
    static std::optional<UnitAddress> fromText(const QString& text);

    /** The form with protocol and port. */
    QString toText() const;
};

Q_DECLARE_METATYPE(UnitAddress)
