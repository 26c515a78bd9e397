// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "eventmodel.h"
#include "fullunit.h"
#include "loopback.h"
#include "loopbackclient.h"
#include "packageevent.h"
#include "packagetimetrigger.h"
#include "packagetrigger.h"
#include "rows.h"
#include "timing.h"
#include "triggermodel.h"
#include "triggertimemodel.h"
#include "unitaddresses.h"
#include "unitframe.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int recordsInTurn = 3000;
constexpr quint32 anyAddress = 0xF0020001;

/** A text with memory of its own, as one that is typed or read has; a literal's copies are free. */
template <std::size_t N> QString madeText(const char16_t (&text)[N])
{
    return QString::fromUtf16(text, N - 1);
}

/** The texts of the records, as they are read and written. */
const QString command = madeText(u"4c 01 00 25 10 03 52 01 10 00 0b 50 4f 57 45 52 20 4f 4e");
const QString description = madeText(u"打开投影机 1");
const QString events = madeText(u"(ID:1);(ID:5);(ID:3);(ID:128)");
const QString startDate = madeText(u"2024/09/02");
const QString endDate = madeText(u"2026/06/30");
const QString timeOfDay = madeText(u"07:45");
const QString days = madeText(u"11111");

QByteArray replyWith(const QByteArray& block, quint32 address = anyAddress)
{
    using QuadrelUnit::UnitFrame;
    const auto length = static_cast<quint16>(block.size());
    return UnitFrame::replyTo(UnitFrame::readRequest(0, address, length), block).encode();
}

/** The framework's part in each encoder: the bytes of a slot, and the texts brought into form. */
void makeSlot(const QString& hexText)
{
    QByteArray block(512, '\0');
    QByteArray bytes = QByteArray::fromHex(hexText.toLatin1());
    QString text = QString::fromUtf8(description.toUtf8());
    benchmark::DoNotOptimize(block);
    benchmark::DoNotOptimize(bytes);
    benchmark::DoNotOptimize(text);
}

struct EventCodec {
    using Record = EventInfo;
    using Model = EventModel;

    static Record makeRecord()
    {
        EventInfo event;
        event.setEventId(7);
        event.setEventProtocolType(true);
        event.setEventType(EventInfo::EVENT_TYPE_0);
        event.setEventProtocol(command);
        event.setEventInstruction(description);
        return event;
    }

    static QByteArray encode(const Record& event)
    {
        return PackageEvent::createEventPackage(event);
    }
    static void makeSlot() { ::makeSlot(command); }

    static bool decode(const QByteArray& reply, Model& model, quint32 address = anyAddress)
    {
        QString error;
        return PackageEvent::parseEventPackage(address, reply, 512, model, error);
    }
};

struct SerialTriggerCodec {
    using Record = TriggerInfo;
    using Model = TriggerModel;

    static Record makeRecord()
    {
        TriggerInfo trigger;
        trigger.setTriggerProtocolType(true);
        trigger.setTriggerType(TriggerInfo::COM);
        trigger.setCOMSelect(COM_A_1);
        trigger.setTriggerParameter(command);
        trigger.setTriggerEvent(events);
        trigger.setTriggerInstruction(description);
        return trigger;
    }

    static QByteArray encode(const Record& trigger)
    {
        return PackageTrigger::createTriggerPackage(trigger);
    }
    static void makeSlot() { ::makeSlot(command); }

    static bool decode(const QByteArray& reply, Model& model, quint32 address = anyAddress)
    {
        QString error;
        return PackageTrigger::parseTriggerPackage(address, reply, 512, model, error);
    }
};

struct TimeTriggerCodec {
    using Record = TriggerTimeInfo;
    using Model = TriggerTimeModel;

    static Record makeRecord()
    {
        TriggerTimeInfo trigger;
        trigger.setTriggerType(TriggerTimeInfo::WEEKLY);
        trigger.setStartDate(startDate);
        trigger.setEndDate(endDate);
        trigger.setTriggerTime(timeOfDay);
        trigger.setSelectWeekly(days);
        trigger.setTriggerEvent(events);
        trigger.setTriggerInstruction(description);
        return trigger;
    }

    static QByteArray encode(const Record& trigger)
    {
        return PackageTimeTrigger::createTimeTriggerPackage(trigger);
    }
    // A time trigger has no hexadecimal text.
    static void makeSlot() { ::makeSlot(QString()); }

    static bool decode(const QByteArray& reply, Model& model, quint32 address = anyAddress)
    {
        QString error;
        return PackageTimeTrigger::parseTimeTriggerPackage(address, reply, 512, model, error);
    }
};

template <typename Codec> class Decode : public Comparison {
public:
    double ours() override
    {
        typename Codec::Model model;
        return 1000 * microsecondsPerCall(recordsInTurn, [&] {
            model.clear();
            if (!Codec::decode(m_reply, model))
                qFatal("a reply was refused");
        });
    }

    double reference() override
    {
        return 1000 * microsecondsPerCall(recordsInTurn, [] {
            typename Codec::Record record = Codec::makeRecord();
            benchmark::DoNotOptimize(record);
        });
    }

private:
    const QByteArray m_reply = replyWith(Codec::encode(Codec::makeRecord()));
};

template <typename Codec> class Encode : public Comparison {
public:
    double ours() override
    {
        return 1000 * microsecondsPerCall(recordsInTurn, [this] {
            QByteArray block = Codec::encode(m_record);
            benchmark::DoNotOptimize(block);
        });
    }

    double reference() override
    {
        return 1000 * microsecondsPerCall(recordsInTurn, [] { Codec::makeSlot(); });
    }

private:
    const typename Codec::Record m_record = Codec::makeRecord();
};

/** All records of a full unit: each decoded as often as a read of it does, and encoded once. */
class UnitRecords : public Comparison {
public:
    UnitRecords()
    {
        QuadrelUnit::UnitMemory memory;
        FullUnit::fill(memory);
        namespace Address = QuadrelUnit::Address;
        m_eventReplies = repliesOf(memory, Address::events, FullUnit::events);
        m_tableReplies = repliesOf(memory, Address::triggers, FullUnit::tableEntries);
    }

    double ours() override
    {
        return microsecondsPerCall(1, [this] {
            encodeAll<EventCodec>(decodeAll<EventCodec>(m_eventReplies), FullUnit::events);
            encodeAll<SerialTriggerCodec>(decodeAll<SerialTriggerCodec>(m_tableReplies),
                FullUnit::serialTriggers + FullUnit::inputTriggers);
            encodeAll<TimeTriggerCodec>(
                decodeAll<TimeTriggerCodec>(m_tableReplies), FullUnit::timeTriggers);
        }) / 1000;
    }

    double reference() override
    {
        return microsecondsPerCall(1, [this] { m_client.readEverything(); }) / 1000;
    }

private:
    struct Reply {
        quint32 address;
        QByteArray frame;
    };

    static std::vector<Reply> repliesOf(
        const QuadrelUnit::UnitMemory& memory, quint32 table, int records)
    {
        constexpr int length = QuadrelUnit::Address::recordLength;
        std::vector<Reply> replies;
        for (int i = 0; i < records; ++i) {
            const quint32 record = table + static_cast<quint32>(i * length);
            replies.push_back({record, replyWith(memory.read(record, length), record)});
        }
        return replies;
    }

    template <typename Codec>
    static typename Codec::Model decodeAll(const std::vector<Reply>& replies)
    {
        typename Codec::Model model;
        for (const Reply& reply : replies) {
            if (!Codec::decode(reply.frame, model, reply.address))
                qFatal("a reply was refused");
        }
        return model;
    }

    template <typename Codec> static void encodeAll(typename Codec::Model model, int expectedSize)
    {
        if (model.size() != expectedSize)
            qFatal("%d records instead of %d", model.size(), expectedSize);
        for (int i = 0; i < model.size(); ++i) {
            QByteArray block = Codec::encode(model.at(i));
            benchmark::DoNotOptimize(block);
        }
    }

    std::vector<Reply> m_eventReplies;
    std::vector<Reply> m_tableReplies;
    LoopbackUnit m_unit;
    LoopbackClient m_client{m_unit.port()};
};

template <typename Codec> Row decodeRow(const char* name)
{
    return {name, "ns", {}, 101, [] { return std::make_unique<Decode<Codec>>(); }};
}

template <typename Codec> Row encodeRow(const char* name)
{
    return {name, "ns", {}, 101, [] { return std::make_unique<Encode<Codec>>(); }};
}

} // namespace

Rows codecRows()
{
    return {
        {"decode and encode a full unit / read of it, one processor", "ms",
            {Limit::RatioAtMost, 0.05}, 51, [] { return std::make_unique<UnitRecords>(); },
            Placement::OneProcessor},
        decodeRow<EventCodec>("decode event / fill record"),
        decodeRow<SerialTriggerCodec>("decode serial trigger / fill record"),
        decodeRow<TimeTriggerCodec>("decode time trigger / fill record"),
        encodeRow<EventCodec>("encode event / bytes and texts"),
        encodeRow<SerialTriggerCodec>("encode serial trigger / bytes and texts"),
        encodeRow<TimeTriggerCodec>("encode time trigger / bytes and texts"),
    };
}
