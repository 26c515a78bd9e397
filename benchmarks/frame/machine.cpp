// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "machine.h"

#include "comparison.h"
#include "pingpong.h"
#include "timing.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace {

std::string processorModel()
{
    std::ifstream file("/proc/cpuinfo");
    const std::string label = "model name\t: ";
    for (std::string line; std::getline(file, line);) {
        if (line.compare(0, label.size(), label) == 0)
            return line.substr(label.size());
    }
    return "unknown";
}

/** A thread woken on another processor, which has nothing to do meanwhile, and on the same one. */
class Wake : public Comparison {
public:
    double ours() override { return m_idle.run(wakeTime); }
    double reference() override { return m_same.run(wakeTime); }

private:
    static double wakeTime(PingPong& pingPong)
    {
        constexpr int exchanges = 30;
        constexpr int wakesInExchange = 2;
        return microsecondsPerCall(exchanges, [&] { pingPong.exchange(); }) / wakesInExchange;
    }

    AtPlace<PingPong> m_idle{Placement::TwoProcessors};
    AtPlace<PingPong> m_same{Placement::OneProcessor};
};

} // namespace

std::string describeMachine()
{
    double load[1] = {};
    getloadavg(load, 1);
    char buffer[256];
    std::snprintf(buffer, sizeof buffer, "%d usable processors (%s), load %.2f\n",
        usableProcessors(), processorModel().c_str(), load[0]);
    std::string text = buffer;
    if (usableProcessors() < 2)
        return text;
    const Result wake = measure({"wake", "us", {}, 21, [] { return std::make_unique<Wake>(); }});
    std::snprintf(buffer, sizeof buffer,
        "waking a thread takes %.1f us on an idle processor, %.1f us on the same one\n", wake.ours,
        wake.reference);
    return text + buffer;
}
