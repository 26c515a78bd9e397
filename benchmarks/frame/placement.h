// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <sched.h>

/** Where the two sides of a comparison run: the thread that measures, and whom it exchanges with.
 */
enum class Placement { Anywhere, OneProcessor, TwoProcessors };

/** How many processors this process may use. */
int usableProcessors();

/** Moves the calling thread, and with it the threads that it starts, for as long as it exists. */
class Affinity {
public:
    explicit Affinity(const cpu_set_t& processors);
    ~Affinity();
    Affinity(const Affinity&) = delete;
    Affinity& operator=(const Affinity&) = delete;

private:
    cpu_set_t m_before;
};

/** Makes this placement the current one and puts the calling thread on the measuring side of it. */
class Placed {
public:
    explicit Placed(Placement placement);
    ~Placed();
    Placed(const Placed&) = delete;
    Placed& operator=(const Placed&) = delete;

private:
    Placement m_before;
    Affinity m_affinity;
};

/** Threads that are started while it exists run on the other side of the current placement. */
class OtherSide {
public:
    OtherSide();

private:
    Affinity m_affinity;
};

/** Two sides that were built at a placement of their own, and work there only. */
template <typename Sides> class AtPlace {
public:
    explicit AtPlace(Placement placement)
        : m_placement(placement)
    {
        const Placed placed(placement);
        m_sides = std::make_unique<Sides>();
    }

    template <typename Work> double run(Work work)
    {
        const Placed placed(m_placement);
        return work(*m_sides);
    }

private:
    const Placement m_placement;
    std::unique_ptr<Sides> m_sides;
};
