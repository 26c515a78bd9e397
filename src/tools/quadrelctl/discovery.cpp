#include "discovery.h"

#include "console.h"
#include "settings.h"
#include "tool.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QRegularExpression>
#include <QtCore/QTimer>
#include <QtNetwork/QNetworkInterface>

#include <algorithm>

namespace {

bool hasUsableAddress()
{
    const QList<QHostAddress> addresses = QNetworkInterface::allAddresses();
    return std::any_of(addresses.begin(), addresses.end(),
        [](const QHostAddress& address) { return !address.isLoopback(); });
}

/** A reply may also have been heard under the IPv6 form of the unit's address, as another unit. */
FoundUnits withoutMappedTwins(const FoundUnits& found)
{
    FoundUnits units;
    for (auto it = found.begin(); it != found.end(); ++it) {
        bool isIpv4 = false;
        const QHostAddress ipv4(QHostAddress(it.key()).toIPv4Address(&isIpv4));
        const QString address = isIpv4 ? ipv4.toString() : it.key();
        if (address != it.key() && found.contains(address))
            continue;
        serverData unit = it.value();
        unit.ip = address;
        units.insert(address, unit);
    }
    return units;
}

} // namespace

FoundUnits searchNetwork(const std::optional<QString>& upgradeName)
{
    if (!hasUsableAddress())
        throw CommandFailure{Tool::tr("this machine has no network address to search from")};

    SearchDevice* search = SearchDevice::Instance();
    const Settings settings = Settings::load();
    const int length = upgradeName ? settings.upgradeTimeout : settings.searchTimeout;
    FoundUnits units;
    QEventLoop loop;
    QObject::connect(search, &SearchDevice::signal_updateDeviceList, &loop,
        // Both outlive the connection, which ends with the loop.
        [&units, &loop](const FoundUnits& found) { // clazy:exclude=lambda-in-connect
            units = withoutMappedTwins(found);
            loop.quit();
        });

    QElapsedTimer elapsed;
    elapsed.start();
    QTimer countdown;
    QObject::connect(&countdown, &QTimer::timeout, &loop, [length, &elapsed] {
        const qint64 seconds = std::max<qint64>(0, (length - elapsed.elapsed() + 999) / 1000);
        Console::showProgress(Tool::tr("searching, %1 s left").arg(seconds));
    });
    countdown.start(250);

    // The signal may come before the loop runs only from a search of no length, by its timer.
    if (upgradeName)
        search->slot_searchDevice(*upgradeName);
    else
        search->searchDevice();
    loop.exec();
    Console::endProgress();
    search->deleteUdpObject();
    if (units.isEmpty())
        throw CommandFailure{Tool::tr("no unit has answered within %1 ms").arg(length)};
    return units;
}

UnitAddress addressOf(const serverData& unit)
{
    static const QRegularExpression port(QStringLiteral(";port=(\\d+)(;|$)"));
    const QByteArray reply = unit.data;
    bool isNumber = false;
    const ushort named = port.match(QString::fromUtf8(reply)).captured(1).toUShort(&isNumber);
    UnitAddress address;
    address.host = QString(unit.ip);
    if (isNumber && named != 0)
        address.port = named;
    return address;
}

UnitAddress findOnlyUnit()
{
    const FoundUnits units = searchNetwork();
    if (units.size() == 1)
        return addressOf(units.first());
    QStringList addresses;
    for (const serverData& unit : units)
        addresses.append(addressOf(unit).toText());
    throw CommandFailure{Tool::tr("more than one unit has answered; choose one with --unit: %1")
                             .arg(addresses.join(QLatin1Char(' ')))};
}
