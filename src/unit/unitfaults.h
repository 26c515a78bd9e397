// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unitframe.h"

#include <QtCore/QList>
#include <QtCore/QRandomGenerator>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

namespace QuadrelUnit {

/** How a reply goes out: what is sent, when, and whether the connection outlives it. */
struct UnitDelivery {
    /** Each one is a datagram, or one write to a connection. */
    QList<QByteArray> pieces;
    /** Milliseconds to wait before the first piece. */
    int delay = 0;
    /** Close the connection after the last piece. */
    bool closes = false;
    /** The name of the fault that made it so; empty for a good reply. */
    QString fault;
};

/** What can go wrong with a reply. docs/simulated-unit.md has a row for each. */
enum class FaultKind {
    Drop,
    Delay,
    Duplicate,
    Truncate,
    Corrupt,
    Short,
    WrongAddress,
    WrongLength,
    WrongLabel,
    Cut,
    Close,
    LoseRequest,
    Hang
};

/** What goes wrong with one exchange. */
struct UnitFault {
    FaultKind kind;
    /** Milliseconds, of a delay. */
    int delay;

    /** The unit does not see the request: it changes nothing and is not answered. */
    bool losesRequest() const { return kind == FaultKind::LoseRequest || kind == FaultKind::Hang; }
    QString name() const;
};

/**
 * The faults that a unit is asked to make.
 *
 * A fault strikes the n-th reply, counted from 1 over all connections, or a share of the replies at
 * random; a lost request counts as the reply that it would have had. The same seed and the same
 * requests give the same faults. Of several that strike one reply the first that was added counts.
 * A unit that hangs does so until clear().
 */
class UnitFaults {
public:
    static constexpr int defaultDelay = 1000;

    explicit UnitFaults(quint32 seed = 0);

    void addNth(FaultKind kind, quint64 reply, int delay = defaultDelay);
    /** `share` runs from 0, never, to 1, always. */
    void addShare(FaultKind kind, double share, int delay = defaultDelay);
    /**
     * Adds the fault that `text` names: KIND@N or KIND%PERCENT, where a delay may be followed by
     * its milliseconds, as in "delay:250@3". False, and a reason in `error`, for any other text.
     */
    bool add(const QString& text, QString* error);
    void clear();

    /** Replies counted so far, with those that a fault kept back. */
    quint64 replies() const { return m_replies; }

    /** Counts a reply that is due, and chooses what goes wrong with it or with its request. */
    std::optional<UnitFault> next();
    UnitDelivery deliver(const UnitFrame& reply, const std::optional<UnitFault>& fault);

    static QStringList kindNames();

private:
    struct Rule {
        UnitFault fault;
        /** The reply that is struck, or 0 for a share. */
        quint64 reply;
        double share;
    };

    std::optional<UnitFault> strikingFault();
    UnitDelivery faulty(const UnitFrame& reply, const UnitFault& fault);
    QByteArray corrupted(QByteArray frame);

    QList<Rule> m_rules;
    QRandomGenerator m_random;
    quint64 m_replies = 0;
    std::optional<UnitFault> m_hang;
};

} // namespace QuadrelUnit
