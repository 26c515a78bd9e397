// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>

/** The bytes of frames as they go over the wire. */
namespace EchoSize {

constexpr std::size_t request = 20;
/** A reply with a record of 512 bytes in it. */
constexpr std::size_t record = request + 512;

} // namespace EchoSize
