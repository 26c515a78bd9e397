// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "memorymap.h"

namespace QuadrelUnit {

namespace Address = QuadrelFrame::Address;

} // namespace QuadrelUnit
