// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unitcontents.h"
#include "unitmemory.h"

/** Contents in the memory of a unit, through the library's codecs, without sockets. */
namespace MemoryContents {

/** What a whole read of a unit with this memory gives, but for the clock. */
QuadrelDocument::Contents read(const QuadrelUnit::UnitMemory& memory);

/** Writes all sections but the device, as the library writes them. */
void write(QuadrelUnit::UnitMemory& memory, const QuadrelDocument::Contents& contents);

/** The contents of a unit with these that was just written to an empty unit of the same kind. */
QuadrelDocument::Contents writtenAndRead(const QuadrelDocument::Contents& contents);

} // namespace MemoryContents
