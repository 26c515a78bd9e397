// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "quadrellink_global.h"

#include <QtCore/QMetaType>
#include <QtCore/QString>

#include <system_error>

/**
 * Why an operation failed. Failures of the system, such as a refused connection, come with the
 * number and the category of the system instead.
 */
enum class LinkError {
    NoReply = 1,        ///< no reply within the time limit, however often the request was sent
    UnknownHost = 2,    ///< the name of the unit's address is not known
    ConnectionLost = 3, ///< the unit has closed the connection
    DamagedReply = 4,   ///< a reply with a wrong checksum
    NotAReply = 5,      ///< bytes that are no reply of a unit
    WrongReply = 6,     ///< a reply of another length than was asked for
    BadContents = 7,    ///< a good reply with inconsistent contents
    Cancelled = 8,      ///< UnitSession::cancel() or UnitTransport::cancel()
    InvalidRequest = 9, ///< inputs that no unit can take; nothing was sent
    Busy = 10           ///< another operation of the session runs; nothing was sent
};

/** The category of LinkError, named "quadrellink". */
QUADRELLINK_EXPORT const std::error_category& linkErrorCategory() noexcept;
QUADRELLINK_EXPORT std::error_code make_error_code(LinkError error) noexcept;

/** A failure: its code for the program, and a text for people that names the unit. */
struct LinkFailure {
    std::error_code error; ///< none after a success
    QString text;          ///< one sentence in the language of the program

    /** Whether there was a failure. */
    explicit operator bool() const { return static_cast<bool>(error); }
};

namespace std {
template <> struct is_error_code_enum<LinkError> : true_type {
};
} // namespace std

Q_DECLARE_METATYPE(std::error_code)
