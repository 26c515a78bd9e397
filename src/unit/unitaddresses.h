#pragma once

#include "memorymap.h"

namespace QuadrelUnit {

namespace Address = QuadrelFrame::Address;

} // namespace QuadrelUnit
