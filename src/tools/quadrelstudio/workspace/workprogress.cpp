// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "workprogress.h"

#include <algorithm>

using QuadrelWorkspace::WorkProgress;

namespace {

/** The share of a read that each part takes, by its frames in a unit that is half full. */
constexpr double shares[] = {0.02, 0.04, 0.04, 0.5, 0.28, 0.1, 0.02};

double fractionOfRead(const UnitProgress& unit)
{
    double before = 0;
    for (int part = 0; part < unit.part; ++part)
        before += shares[part];
    const double ofPart = unit.total > 0 ? double(unit.done) / double(unit.total) : 0;
    return before + ofPart * shares[unit.part];
}

} // namespace

double fractionOf(const WorkProgress& progress, bool isWrite)
{
    constexpr double half = 0.5;
    if (progress.unit.part == UnitProgress::Upgrade)
        return progress.unit.total > 0 ? double(progress.unit.done) / double(progress.unit.total)
                                       : 0;
    const double fraction = std::clamp(fractionOfRead(progress.unit), 0.0, 1.0);
    if (!isWrite)
        return fraction;
    return progress.phase == WorkProgress::Writing ? fraction * half : half + fraction * half;
}

qint64 remainingTime(qint64 elapsed, double fraction)
{
    constexpr qint64 shortestPace = 500;
    constexpr double leastFraction = 0.05;
    if (elapsed < shortestPace || fraction < leastFraction)
        return -1;
    return qint64(double(elapsed) * (1 - fraction) / fraction);
}
