// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "searchdevice.h"

#include "settingsfile.h"

#include <QtCore/QByteArrayMatcher>
#include <QtCore/QDateTime>
#include <QtCore/QSettings>
#include <QtCore/QTimer>
#include <QtNetwork/QHostAddress>
#include <QtNetwork/QNetworkInterface>
#include <QtNetwork/QUdpSocket>

#include <algorithm>
#include <utility>

namespace {

constexpr quint16 discoveryPort = 3800;
constexpr int repeatInterval = 2000;
constexpr int waitAfterSend = 10;

// What is broadcast, and what a unit of any model repeats in its reply.
QByteArray familyTag()
{
    return QByteArrayLiteral("Zorbe:");
}

QByteArray modelTag()
{
    return QByteArrayLiteral("Zorbe:3100");
}

bool isPlainLoopback(const QHostAddress& address)
{
    return address == QHostAddress(QHostAddress::LocalHost)
        || address == QHostAddress(QHostAddress::LocalHostIPv6);
}

} // namespace

// Nothing is matched with it yet. The constructor gives it the pattern, so it comes before the
// singleton: both are made while the library is loaded, in this order.
static QByteArrayMatcher frameHeadMatcher; // clazy:exclude=non-pod-global-static

SearchDevice* SearchDevice::m_searchDeviceInstance = new SearchDevice(nullptr);

SearchDevice::SearchDevice(QObject* parent)
    : QObject(parent)
    , m_repeatTimer(new QTimer(this))
{
    // A coarse timer may fire 100 ms early: a search of less than 2000 ms would then broadcast.
    m_repeatTimer->setTimerType(Qt::PreciseTimer);
    connect(m_repeatTimer, &QTimer::timeout, this, &SearchDevice::slot_timeout);

    const QSettings settings(settingsFilePath(), QSettings::IniFormat);
    m_searchTimeout = settings.value(QStringLiteral("Search/timeout")).toInt();
    m_upgradeTimeout = settings.value(QStringLiteral("Upgrade/timeout")).toInt();

    frameHeadMatcher.setPattern(QByteArrayLiteral("\xAA\x55"));
}

SearchDevice::~SearchDevice() = default;

SearchDevice* SearchDevice::Instance()
{
    return m_searchDeviceInstance;
}

void SearchDevice::searchDevice()
{
    m_serverMap = {};
    m_connectDevcie = QString();
    deleteUdpObject();
    openSockets(modelTag(), QStringLiteral("Zorbe3100"));
    if (!m_repeatTimer->isActive())
        slot_timeout();
    stopAfter(m_searchTimeout);
}

void SearchDevice::slot_searchDevice(QString connectDevcie)
{
    m_serverMap = {};
    m_connectDevcie = std::move(connectDevcie);
    deleteUdpObject();
    openSockets(familyTag(), QString());
    if (!m_repeatTimer->isActive())
        m_repeatTimer->start(repeatInterval);
    stopAfter(m_upgradeTimeout);
}

void SearchDevice::slot_timeout()
{
    const QByteArray request = familyTag();
    for (int i = 0; i < m_udpSockets.size(); ++i) {
        QUdpSocket* const socket = m_udpSockets.at(i);
        if (!socket)
            continue; // GCOVR_EXCL_LINE: openSockets() leaves no gap in the list
        socket->writeDatagram(request.constData(), request.size(),
            QHostAddress(QHostAddress::Broadcast), discoveryPort);
        socket->waitForReadyRead(waitAfterSend);
    }
}

void SearchDevice::stopSearchDevice()
{
    if (m_repeatTimer->isActive())
        m_repeatTimer->stop();
    Q_EMIT signal_updateDeviceList(m_serverMap, m_connectDevcie);
}

void SearchDevice::deleteUdpObject()
{
    qDeleteAll(m_udpSockets);
    m_udpSockets.clear();
}

void SearchDevice::AddServer(const QString& ip, unsigned short port)
{
    if (m_serverMap.contains(ip))
        return;
    serverData record;
    record.ip = ip;
    record.port = port;
    m_serverMap.insert(ip, record);
}

void SearchDevice::openSockets(const QByteArray& tag, const QString& modelName)
{
    const QList<QHostAddress> addresses = QNetworkInterface::allAddresses();
    for (const QHostAddress& address : addresses) {
        if (isPlainLoopback(address))
            continue;
        auto* const socket = new QUdpSocket;
        socket->bind(address, discoveryPort, QAbstractSocket::ShareAddress);
        connect(socket, &QIODevice::readyRead, this,
            [this, socket, tag, modelName] { takeReply(socket, tag, modelName); });
        m_udpSockets.append(socket);
    }
}

void SearchDevice::takeReply(QUdpSocket* socket, const QByteArray& tag, const QString& modelName)
{
    // An unreadable datagram has the size -1. It is read as well, or the socket would fall silent.
    const qint64 size = std::max<qint64>(socket->pendingDatagramSize(), 0);
    QByteArray datagram(static_cast<int>(size), '\0');
    QHostAddress sender;
    quint16 port = 0;
    const qint64 length = socket->readDatagram(datagram.data(), datagram.size(), &sender, &port);

    // The host hears its own broadcast. Its addresses may change while a search runs.
    if (QNetworkInterface::allAddresses().contains(sender))
        return;
    if (datagram.indexOf(tag) < 0)
        return;

    const QString ip = sender.toString();
    if (m_serverMap.contains(ip))
        return;
    AddServer(ip, port);
    serverData& record = *m_serverMap.find(ip);
    record.lastSeen = QDateTime::currentMSecsSinceEpoch();
    // The tag was sought in the whole datagram, but what is kept ends at the first zero byte.
    record.data = QByteArray(datagram.left(static_cast<int>(length)).constData());
    record.name = modelName;
}

void SearchDevice::stopAfter(int milliseconds)
{
    QTimer::singleShot(
        std::max(milliseconds, 0), Qt::PreciseTimer, this, &SearchDevice::stopSearchDevice);
}
