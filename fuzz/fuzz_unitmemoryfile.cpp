// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "controlunit.h"
#include "inputfile.h"
#include "unitmemoryfile.h"

using namespace QuadrelUnit;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static InputFile input;
    input.setContent(data, size);
    constexpr qint64 memoryLimit = 16 * UnitMemory::pageSize;
    ControlUnit unit;
    unit.setMemoryLimit(memoryLimit);
    const UnitMemory before = unit.memory();
    UnitMemoryFile file(input.path(), &unit);
    QString error;
    const bool loaded = file.load(&error);
    require(loaded == error.isEmpty(), "only a failure has a reason");
    require(unit.memory().size() <= memoryLimit, "the memory keeps within its limit");
    require(qAbs(unit.clock().ahead().value_or(0)) <= UnitClock::largestLead,
        "no clock is out of its range");
    require(loaded || unit.memory() == before, "a failure leaves the unit alone");
    return 0;
}
