// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal; not installed.
#pragma once

#include "exchange.h"
#include "unitprogress.h"

#include <cstdint>
#include <optional>

/** Knows from the exchanges of an operation how far it has come. */
class ProgressTracker {
public:
    /** Of an operation that reads, or writes a number of records or bytes. */
    explicit ProgressTracker(qint64 total = 0)
        : m_total(total)
    {
    }

    /** Nothing for an exchange that brings nothing forward. */
    std::optional<UnitProgress> follow(
        const Exchange& exchange, const QuadrelFrame::FrameView& reply);

private:
    std::optional<UnitProgress> followRead(
        std::uint32_t address, const QuadrelFrame::FrameView& reply);
    std::optional<UnitProgress> followWrite(std::uint32_t address, std::uint32_t size);

    /** Of the table or the images at hand. */
    qint64 m_total;
    qint64 m_sentBytes = 0;
    /** Its table is read twice: once for each kind. */
    bool m_hasReadTriggers = false;
};
