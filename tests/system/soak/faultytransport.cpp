// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "faultytransport.h"

#include "unitframereader.h"

using QuadrelUnit::UnitFrame;
using QuadrelUnit::UnitFrameReader;

FaultyTransport::FaultyTransport(
    UnPackage& operations, QuadrelUnit::ControlUnit& unit, quint32 seed)
    : m_operations(operations)
    , m_unit(unit)
    , m_random(seed)
{
    // Made before any script connects, so that what is to be answered is decided ahead of it.
    QObject::connect(
        &operations, &UnPackage::signal_sendPackage, &operations,
        [this](const QByteArray& frame) { take(frame); }, Qt::DirectConnection);
}

void FaultyTransport::begin(double share, bool awaited)
{
    m_share = share;
    m_awaited = awaited;
    m_exchanges.clear();
    m_script = std::make_unique<ScriptedUnit>(m_operations,
        [this](const QByteArray&, int number) { return m_exchanges.at(number).reaction; });
}

QVector<Exchange> FaultyTransport::end()
{
    m_script->operationClosed();
    m_script.reset();
    return m_exchanges;
}

void FaultyTransport::take(const QByteArray& frame)
{
    Exchange exchange;
    exchange.frame = frame;
    exchange.sent = std::chrono::steady_clock::now();

    UnitFrameReader reader;
    reader.feed(frame);
    const std::optional<UnitFrame> request = reader.next();
    if (!request)
        qFatal("the library sent a frame that is none: %s", qPrintable(reader.error()));
    // A lost request is lost before the unit answers.
    const bool faulty = m_random.generateDouble() < m_share;
    exchange.executed = !faulty || m_random.bounded(5) != 0;
    const QByteArray reply =
        exchange.executed ? m_unit.answer(*request).reply.encode() : QByteArray();

    if (faulty)
        makeFault(exchange, reply);
    else
        exchange.reaction = ScriptedUnit::reply(reply);
    if (!m_awaited) {
        exchange.early = QByteArray();
        exchange.reaction = ScriptedUnit::silence();
    }
    ++m_faults[exchange.fault];
    m_previousReply = reply;
    m_exchanges.append(exchange);
}

void FaultyTransport::makeFault(Exchange& exchange, const QByteArray& reply)
{
    enum Kind { Drop, Early, Late, Duplicate, Truncate, Corrupt, Disconnect, Wake, KindCount };
    int kind = m_random.bounded(static_cast<int>(KindCount));
    const bool needsReply = kind == Early || kind == Truncate || kind == Corrupt;
    if (needsReply && reply.isEmpty())
        kind = Drop;
    switch (kind) {
    case Drop:
        exchange.fault = exchange.executed ? "lost reply" : "lost request";
        m_lostReply = reply;
        break;
    case Early:
        exchange.fault = "early reply";
        exchange.early = reply;
        m_operations.setRecvPackage(reply);
        break;
    case Late:
        exchange.fault = "late reply";
        exchange.reaction = ScriptedUnit::reply(m_lostReply);
        break;
    case Duplicate:
        exchange.fault = "duplicate of the reply before";
        exchange.reaction = ScriptedUnit::reply(m_previousReply);
        break;
    case Truncate:
        exchange.fault = "truncated reply";
        exchange.reaction = ScriptedUnit::reply(reply.left(m_random.bounded(reply.size())));
        break;
    case Corrupt: {
        exchange.fault = "corrupted reply";
        QByteArray corrupted = reply;
        for (int i = m_random.bounded(1, 4); i > 0; --i)
            corrupted[m_random.bounded(corrupted.size())] =
                static_cast<char>(m_random.bounded(256));
        exchange.reaction = ScriptedUnit::reply(corrupted);
        break;
    }
    case Disconnect:
        exchange.fault = exchange.executed ? "lost connection" : "failure to send";
        exchange.reaction = ScriptedUnit::failure(QLatin1String(exchange.fault));
        break;
    default:
        exchange.fault = "bare wake-up";
        exchange.reaction = ScriptedUnit::wake();
        break;
    }
}
