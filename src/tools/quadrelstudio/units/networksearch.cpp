// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "networksearch.h"

#include <searchdevice.h>
#include <searchresult.h>

namespace {

/** How often the result so far is looked at, in milliseconds. */
constexpr int lookInterval = 200;

} // namespace

NetworkSearch::NetworkSearch(int length, QObject* parent)
    : UnitSearch(parent)
    , m_length(length)
{
    m_timer.setInterval(lookInterval);
    connect(&m_timer, &QTimer::timeout, this, &NetworkSearch::look);
}

NetworkSearch::~NetworkSearch()
{
    if (m_search)
        m_search->deleteUdpObject();
}

void NetworkSearch::start()
{
    if (isRunning())
        return;
    m_search = std::make_unique<SearchDevice>();
    connect(m_search.get(), &SearchDevice::signal_updateDeviceList, this,
        [this](const QMap<QString, serverData>& heard) {
            QVector<Found> units;
            const auto answers = QuadrelWorkspace::withoutMappedTwins(heard);
            for (const serverData& unit : answers)
                units.append({QuadrelWorkspace::addressOf(unit), QString(unit.name)});
            emit found(units);
        });
    m_elapsed.start();
    m_timer.start();
    m_search->searchDevice();
}

void NetworkSearch::look()
{
    m_search->stopSearchDevice();
    if (m_elapsed.elapsed() < m_length)
        return;
    m_timer.stop();
    m_search->deleteUdpObject();
    emit finished();
}
