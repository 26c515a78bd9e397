// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>

/** Microseconds that each of `count` calls takes. */
template <typename Work> double microsecondsPerCall(int count, Work work)
{
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < count; ++i)
        work();
    const std::chrono::duration<double, std::micro> elapsed =
        std::chrono::steady_clock::now() - start;
    return elapsed.count() / count;
}
