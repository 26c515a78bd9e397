// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "echosize.h"
#include "fullunit.h"
#include "loopback.h"
#include "loopbackclient.h"
#include "rawecho.h"
#include "rows.h"
#include "timing.h"
#include "unitaddresses.h"
#include "upgradeimage.h"

#include <algorithm>

namespace {

constexpr int recordLength = QuadrelUnit::Address::recordLength;
constexpr int exchangesInTurn = 200;

/** A unit that is read over a connection that stays, beside an echo of a record's size. */
class ReadComparison : public Comparison {
protected:
    LoopbackUnit m_unit;
    LoopbackClient m_client{m_unit.port()};
    RawEcho m_echo{EchoSize::request, EchoSize::record};
};

double recordExchangeTime(LoopbackClient& client)
{
    const double time = microsecondsPerCall(
        exchangesInTurn, [&] { client.readBlock(QuadrelUnit::Address::events, recordLength); });
    client.finish();
    return time;
}

class RecordExchange : public ReadComparison {
public:
    double ours() override { return recordExchangeTime(m_client); }

    double reference() override
    {
        return microsecondsPerCall(exchangesInTurn, [this] { m_echo.exchange(); });
    }
};

class ReadBack : public ReadComparison {
public:
    double ours() override
    {
        return microsecondsPerCall(1, [this] { m_client.readEverything(); }) / 1000;
    }

    double reference() override
    {
        const auto exchange = [this] { m_echo.exchange(); };
        return microsecondsPerCall(FullUnit::exchangesOfRead, exchange) * FullUnit::exchangesOfRead
            / 1000;
    }
};

class Upgrade : public Comparison {
public:
    double ours() override
    {
        // A unit of its own for each upgrade: it restarts with the last byte.
        const LoopbackUnit unit;
        LoopbackClient client(unit.port());
        return microsecondsPerCall(1, [&] { client.upgrade(m_image); }) / 1000;
    }

    double reference() override
    {
        const int chunks = m_image.size() / chunkLength;
        return microsecondsPerCall(chunks, [this] { m_echo.exchange(); }) * chunks / 1000;
    }

private:
    static constexpr int chunkLength = 2048;

    const QByteArray m_image = upgradeImage();
    RawEcho m_echo{EchoSize::request + chunkLength, EchoSize::request};
};

/** One exchange with nobody placed, beside the slower of our own two placements. */
class FreeExchange : public Comparison {
public:
    double ours() override { return m_free.run(exchangeTime); }

    double reference() override
    {
        return std::max(m_one.run(exchangeTime), m_two.run(exchangeTime));
    }

private:
    struct Sides {
        LoopbackUnit unit;
        LoopbackClient client{unit.port()};
    };

    static double exchangeTime(Sides& sides) { return recordExchangeTime(sides.client); }

    AtPlace<Sides> m_free{Placement::Anywhere};
    AtPlace<Sides> m_one{Placement::OneProcessor};
    AtPlace<Sides> m_two{Placement::TwoProcessors};
};

} // namespace

Rows unitExchangeRows()
{
    Rows rows = joined({
        inBothPlacements({"read of 512 bytes / raw echo", "us", {}, 101,
                             [] { return std::make_unique<RecordExchange>(); }},
            {Limit::RatioAtMost, 2.6}, {Limit::RatioAtMost, 0.35}),
        inBothPlacements({"read of a full unit / 263 raw echoes", "ms", {}, 51,
                             [] { return std::make_unique<ReadBack>(); }},
            {Limit::RatioAtMost, 2.8}, {Limit::RatioAtMost, 0.4}),
        inBothPlacements({"upgrade of 16 MiB / raw echoes", "ms", {}, 11,
                             [] { return std::make_unique<Upgrade>(); }},
            {Limit::RatioAtMost, 2.4}, {Limit::RatioAtMost, 1.3}),
    });
    if (usableProcessors() > 1)
        rows.push_back({"read of 512 bytes, left to the scheduler / slower placement", "us",
            {Limit::RatioAtMost, 1.15}, 101, [] { return std::make_unique<FreeExchange>(); }});
    return rows;
}
