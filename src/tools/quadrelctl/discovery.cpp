// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "discovery.h"

#include "console.h"
#include "preferences.h"
#include "tool.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <QtNetwork/QNetworkInterface>
#include <QtNetwork/QUdpSocket>

#include <algorithm>

namespace {

constexpr quint16 searchPort = 3800;
constexpr int lookInterval = 100;
constexpr int broadcastInterval = 2000;

bool hasUsableAddress()
{
    const QList<QHostAddress> addresses = QNetworkInterface::allAddresses();
    return std::any_of(addresses.begin(), addresses.end(),
        [](const QHostAddress& address) { return !address.isLoopback(); });
}

/** The library's search says nothing if it can't hear. */
void requireFreePort()
{
    const QList<QHostAddress> addresses = QNetworkInterface::allAddresses();
    for (const QHostAddress& address : addresses) {
        QUdpSocket socket;
        if (address.isLoopback() || socket.bind(address, searchPort, QUdpSocket::ShareAddress)
            || socket.error() != QUdpSocket::AddressInUseError)
            continue;
        throw CommandFailure{
            Tool::tr("UDP port %1 of %2 is in use by another program, so no answer "
                     "can be heard; end that program and search again")
                .arg(QString::number(searchPort), address.toString())};
    }
}

/** A search whose result is looked at while it goes on. */
class Search : public QObject {
public:
    Search(const std::optional<QString>& upgradeName, int length)
        : m_upgradeName(upgradeName)
        , m_length(length)
    {
        connect(&m_search, &SearchDevice::signal_updateDeviceList, this,
            [this](const FoundUnits& found) {
                m_units = QuadrelWorkspace::withoutMappedTwins(found);
            });
    }

    FoundUnits run(SearchEnd end)
    {
        m_elapsed.start();
        if (m_upgradeName)
            m_search.slot_searchDevice(*m_upgradeName);
        else
            m_search.searchDevice();
        while (left() > 0 && (end == SearchEnd::OfTime || m_units.isEmpty())) {
            Console::showProgress(Tool::tr("searching, %1 s left").arg((left() + 999) / 1000));
            wait(std::min<qint64>(left(), lookInterval));
            look();
        }
        Console::endProgress();
        m_search.deleteUdpObject();
        return m_units;
    }

private:
    qint64 left() const { return m_length - m_elapsed.elapsed(); }

    void wait(qint64 milliseconds)
    {
        QEventLoop loop;
        QTimer::singleShot(static_cast<int>(milliseconds), &loop, &QEventLoop::quit);
        loop.exec();
    }

    /** Has the result so far reported. That ends the library's broadcasts, so they are made here.
     */
    void look()
    {
        m_search.stopSearchDevice();
        if (m_upgradeName && m_elapsed.elapsed() / broadcastInterval > m_broadcasts) {
            ++m_broadcasts;
            m_search.slot_timeout();
        }
    }

    const std::optional<QString> m_upgradeName;
    const qint64 m_length;
    SearchDevice m_search;
    FoundUnits m_units;
    QElapsedTimer m_elapsed;
    qint64 m_broadcasts = 0;
};

} // namespace

FoundUnits searchNetwork(SearchEnd end, const std::optional<QString>& upgradeName)
{
    if (!hasUsableAddress())
        throw CommandFailure{Tool::tr("this machine has no network address to search from")};
    requireFreePort();
    const int length = upgradeName ? Preferences::upgradeTimeout() : Preferences::searchTimeout();
    Search search(upgradeName, length);
    FoundUnits units = search.run(end);
    if (units.isEmpty())
        throw CommandFailure{Tool::tr("no unit has answered within %1 ms").arg(length)};
    return units;
}

UnitAddress findOnlyUnit()
{
    const FoundUnits units = searchNetwork(SearchEnd::OfTime);
    if (units.size() == 1)
        return addressOf(units.first());
    QStringList addresses;
    for (const serverData& unit : units)
        addresses.append(addressOf(unit).toText());
    throw CommandFailure{Tool::tr("more than one unit has answered; choose one with --unit: %1")
                             .arg(addresses.join(QLatin1Char(' ')))};
}
