// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "linkerror.h"

#include <string>

namespace {

class LinkErrorCategory : public std::error_category {
public:
    const char* name() const noexcept override { return "quadrellink"; }
    std::string message(int error) const override;
};

std::string LinkErrorCategory::message(int error) const
{
    switch (static_cast<LinkError>(error)) {
    case LinkError::NoReply:
        return "no reply";
    case LinkError::UnknownHost:
        return "unknown host";
    case LinkError::ConnectionLost:
        return "connection lost";
    case LinkError::DamagedReply:
        return "damaged reply";
    case LinkError::NotAReply:
        return "not a reply of a unit";
    case LinkError::WrongReply:
        return "reply to something else";
    case LinkError::BadContents:
        return "contents that don't hold together";
    case LinkError::Cancelled:
        return "cancelled";
    case LinkError::InvalidRequest:
        return "invalid request";
    case LinkError::Busy:
        return "another operation runs";
    }
    return "unknown error";
}

} // namespace

const std::error_category& linkErrorCategory() noexcept
{
    static const LinkErrorCategory category;
    return category;
}

std::error_code make_error_code(LinkError error) noexcept
{
    return {static_cast<int>(error), linkErrorCategory()};
}
