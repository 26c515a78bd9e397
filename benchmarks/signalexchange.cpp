// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "kvprotocolparser.h"
#include "packagedevice.h"
#include "pingpong.h"
#include "rows.h"
#include "timing.h"
#include "unitaddresses.h"
#include "unitframe.h"
#include "unitsettings.h"
#include "unpackage.h"

namespace {

using namespace QuadrelUnit;

constexpr int exchangesInTurn = 300;
constexpr std::chrono::microseconds wakePause(20);

class AnsweredUnPackage {
public:
    AnsweredUnPackage()
        : m_reply(deviceReply())
    {
        QObject::connect(
            &m_unPackage, &UnPackage::signal_sendPackage, &m_unPackage,
            [this] { m_orders.put(Order::Answer); }, Qt::DirectConnection);
        const OtherSide side;
        m_answering = std::thread([this] { answerFrames(); });
    }

    ~AnsweredUnPackage()
    {
        m_orders.put(Order::End);
        m_answering.join();
    }

    /** As each operation does it, with the decoder of the block that has 32 bytes. */
    void exchange()
    {
        QString error;
        PackageRequestProto3rd* request = KVProtocolParser::Get_CommonRead(
            m_unPackage.getLabels(), Address::information, Address::informationLength);
        m_unPackage.sendPackage(request->ParseSendRequest());
        if (!m_unPackage.waitResponsed(QStringLiteral("device"), error)
            || !PackageDevice::parseDevicePackage(
                Address::information, m_reply, Address::informationLength, m_device, error))
            qFatal("an exchange failed: %s", qPrintable(error));
    }

    /** Says that the operation is over: nobody sleeps who has to be woken again. */
    void finish() { m_orders.put(Order::Rest); }

private:
    enum class Order { Rest, Answer, End };

    static QByteArray deviceReply()
    {
        const UnitFrame request =
            UnitFrame::readRequest(0, Address::information, Address::informationLength);
        return UnitFrame::replyTo(request, UnitSettings().informationBlock()).encode();
    }

    void answerFrames()
    {
        // A reply that comes before the operation sleeps wakes nobody.
        const auto wakeAgain = [this] { m_unPackage.quitWaitDelay(); };
        Order order = Order::Rest;
        while (order != Order::End) {
            if (order == Order::Answer)
                m_unPackage.setRecvPackage(m_reply);
            order = order == Order::Answer ? m_orders.take(wakePause, wakeAgain) : m_orders.take();
        }
    }

    const QByteArray m_reply;
    UnPackage m_unPackage{nullptr};
    DeviceModel m_device;
    Mailbox<Order> m_orders;
    std::thread m_answering;
};

class SignalExchange : public Comparison {
public:
    double ours() override
    {
        const double time =
            microsecondsPerCall(exchangesInTurn, [this] { m_unPackage.exchange(); });
        m_unPackage.finish();
        return time;
    }

    double reference() override
    {
        return microsecondsPerCall(exchangesInTurn, [this] { m_pingPong.exchange(); });
    }

private:
    AnsweredUnPackage m_unPackage;
    PingPong m_pingPong;
};

} // namespace

Rows signalExchangeRows()
{
    return inBothPlacements({"exchange by signal / thread ping-pong", "us", {}, 101,
                                [] { return std::make_unique<SignalExchange>(); }},
        {}, {});
}
