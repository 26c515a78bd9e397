#include "comparison.h"
#include "fullunit.h"
#include "loopback.h"
#include "loopbackclient.h"
#include "timing.h"
#include "unitaddresses.h"
#include "upgradeimage.h"

namespace {

constexpr int frameSize = 20;
constexpr int recordLength = QuadrelUnit::Address::recordLength;
constexpr int exchangesInTurn = 200;

/** A unit that is read over a connection that stays, beside an echo of a record's size. */
class ReadComparison : public Comparison {
protected:
    LoopbackUnit m_unit;
    LoopbackClient m_client{m_unit.port()};
    RawEcho m_echo{frameSize, frameSize + recordLength};
};

class RecordExchange : public ReadComparison {
public:
    double ours() override
    {
        const double time = microsecondsPerCall(exchangesInTurn,
            [this] { m_client.readBlock(QuadrelUnit::Address::events, recordLength); });
        m_client.finish();
        return time;
    }

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
    RawEcho m_echo{frameSize + chunkLength, frameSize};
};

} // namespace

std::vector<Row> unitExchangeRows()
{
    return {
        {"read of 512 bytes / raw echo", "us", {Limit::RatioAtMost, 1.6}, 101,
            [] { return std::make_unique<RecordExchange>(); }},
        {"read of a full unit / 263 raw echoes", "ms", {Limit::RatioAtMost, 1.7}, 51,
            [] { return std::make_unique<ReadBack>(); }},
        {"upgrade of 16 MiB / raw echoes", "ms", {Limit::RatioAtMost, 1.6}, 11,
            [] { return std::make_unique<Upgrade>(); }},
    };
}
