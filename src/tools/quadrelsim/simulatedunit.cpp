// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "simulatedunit.h"

#include "console.h"
#include "unitendpoint.h"
#include "unitsample.h"
#include "unittexts.h"

#include <QtCore/QCryptographicHash>

using namespace QuadrelUnit;

namespace {

QString imageLine(const char* name, const QByteArray& image)
{
    const QByteArray digest = QCryptographicHash::hash(image, QCryptographicHash::Sha256).toHex();
    return QStringLiteral("image %1 %2 %3")
        .arg(QLatin1String(name))
        .arg(image.size())
        .arg(QLatin1String(digest));
}

QString requestLine(const UnitFrame& request, const QString& peer, const QString& fault)
{
    const QString line =
        QStringLiteral("%1: label %2, %3 %4 at 0x%5")
            .arg(peer)
            .arg(request.label)
            .arg(request.isReadRequest() ? QStringLiteral("read") : QStringLiteral("write"))
            .arg(bytesText(request.dataLength))
            .arg(request.address, 8, 16, QLatin1Char('0'));
    return fault.isEmpty() ? line : line + QStringLiteral(", fault: ") + fault;
}

} // namespace

SimulatedUnit::SimulatedUnit(const SimOptions& options, int index, Log& log)
    : m_options(options)
    , m_index(index)
    , m_log(log)
    , m_name(options.isSite() ? QStringLiteral("unit %1: ").arg(index + 1) : QString())
    , m_unit(options.settings(index))
    , m_server(&m_unit)
{
    m_unit.setMemoryLimit(options.memoryLimit);
    m_unit.setUpgradeVersion(options.upgradeVersion);
    m_server.setRestartTime(options.resetTime);
    m_server.setLatency(options.latency, options.jitter, options.seedOf(index));
    m_server.tcp().setMaximumConnections(options.maximumConnections);
    m_server.tcp().setIdleTime(options.idleTime);
    m_server.faults() = options.faultsOf(index);
    reportEvents();
    if (options.isVerbose)
        reportTraffic();
}

bool SimulatedUnit::start()
{
    if (m_options.hasSample)
        writeSample(m_unit.memory());
    if (!openMemory())
        return false;
    QString error;
    if (!m_server.listen(m_options.address, m_options.portOf(m_index), &error))
        return fail(error);
    return !m_options.answersSearches || openDiscovery();
}

bool SimulatedUnit::stop()
{
    QString error;
    return !m_memoryFile || m_memoryFile->saveNoted(&error) || fail(error);
}

QString SimulatedUnit::endpoint() const
{
    return endpointText(m_server.address(), m_server.port());
}

QString SimulatedUnit::searchEndpoint() const
{
    return endpointText(m_options.discoveryAddress, m_discovery.port());
}

bool SimulatedUnit::openMemory()
{
    if (m_options.memoryPath.isEmpty())
        return true;
    m_memoryFile = std::make_unique<UnitMemoryFile>(m_options.memoryPathOf(m_index), &m_unit);
    connect(&m_server, &UnitServer::changed, m_memoryFile.get(), &UnitMemoryFile::noteChange);
    connect(m_memoryFile.get(), &UnitMemoryFile::failed, this, &SimulatedUnit::report);

    QString error;
    if (!m_memoryFile->claim(&error))
        return fail(error);
    if (m_memoryFile->exists()) {
        if (!m_memoryFile->load(&error))
            return fail(error);
        m_unit.setSettings(m_options.changed(m_unit.settings(), m_index));
    }
    return m_memoryFile->save(&error) || fail(error);
}

bool SimulatedUnit::openDiscovery()
{
    updateDiscoveryReply();
    QString error;
    return m_discovery.listen(m_options.discoveryAddress, m_options.discoveryPort, &error)
        || fail(error);
}

void SimulatedUnit::updateDiscoveryReply()
{
    DiscoveryReply reply = m_options.discoveryReply;
    if (!m_options.hasDiscoveryPayload) {
        const UnitSettings settings = m_unit.settings();
        reply.payload = QStringLiteral(";port=%1;sn=%2;version=%3")
                            .arg(m_server.port())
                            .arg(settings.serialNumber)
                            .arg(fourBytesText(settings.version))
                            .toUtf8();
    }
    m_discovery.setReply(reply);
}

void SimulatedUnit::reportEvents()
{
    connect(&m_server, &UnitServer::refused, this, &SimulatedUnit::tellOfClient);
    connect(&m_server, &UnitServer::notice, this, &SimulatedUnit::tellOfClient);
    if (m_options.printsDigests)
        connect(&m_server, &UnitServer::upgraded, this, &SimulatedUnit::printDigests);
    // A unit that restarts is not found by a search either.
    connect(&m_server, &UnitServer::wentDown, this, [this] { m_discovery.setSilent(true); });
    connect(&m_server, &UnitServer::cameBack, this, [this] {
        updateDiscoveryReply();
        m_discovery.setSilent(false);
    });
}

void SimulatedUnit::reportTraffic()
{
    connect(&m_server, &UnitServer::served, this,
        [this](const UnitFrame& request, const QString& peer, const QString& fault) {
            report(requestLine(request, peer, fault));
        });
    connect(&m_discovery, &UnitDiscovery::searched, this,
        [this](const QString& peer) { report(QStringLiteral("searched by ") + peer); });
    connect(
        &m_server, &UnitServer::wentDown, this, [this] { report(QStringLiteral("going down")); });
    connect(
        &m_server, &UnitServer::cameBack, this, [this] { report(QStringLiteral("back again")); });
}

void SimulatedUnit::printDigests()
{
    offerLine(m_name + imageLine("addressed", m_unit.upgrade().addressedImage()));
    offerLine(m_name + imageLine("streamed", m_unit.upgrade().streamedImage()));
}

void SimulatedUnit::report(const QString& text)
{
    m_log.report(m_name + text);
}

void SimulatedUnit::tellOfClient(const QString& text)
{
    m_log.tellOfClient(m_name + text);
}

bool SimulatedUnit::fail(const QString& reason)
{
    report(reason);
    return false;
}
