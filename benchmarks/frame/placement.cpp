// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "placement.h"

#include <utility>

namespace {

cpu_set_t currentAffinity()
{
    cpu_set_t processors;
    CPU_ZERO(&processors);
    sched_getaffinity(0, sizeof processors, &processors);
    return processors;
}

/** As the process was started: nothing is placed yet when this is first called. */
const cpu_set_t& usable()
{
    static const cpu_set_t processors = currentAffinity();
    return processors;
}

/** The usable processor with so many others before it; the last one if there are fewer. */
cpu_set_t singleProcessor(int index)
{
    cpu_set_t single;
    CPU_ZERO(&single);
    for (int processor = 0; processor < CPU_SETSIZE && index >= 0; ++processor) {
        if (!CPU_ISSET(processor, &usable()))
            continue;
        CPU_ZERO(&single);
        CPU_SET(processor, &single);
        --index;
    }
    return single;
}

cpu_set_t measuringSide(Placement placement)
{
    return placement == Placement::Anywhere ? usable() : singleProcessor(0);
}

cpu_set_t otherSide(Placement placement)
{
    return placement == Placement::TwoProcessors ? singleProcessor(1) : measuringSide(placement);
}

Placement currentPlacement = Placement::Anywhere;

} // namespace

int usableProcessors()
{
    return CPU_COUNT(&usable());
}

Affinity::Affinity(const cpu_set_t& processors)
    : m_before(currentAffinity())
{
    sched_setaffinity(0, sizeof processors, &processors);
}

Affinity::~Affinity()
{
    sched_setaffinity(0, sizeof m_before, &m_before);
}

Placed::Placed(Placement placement)
    : m_before(std::exchange(currentPlacement, placement))
    , m_affinity(measuringSide(placement))
{
}

Placed::~Placed()
{
    currentPlacement = m_before;
}

OtherSide::OtherSide()
    : m_affinity(otherSide(currentPlacement))
{
}
