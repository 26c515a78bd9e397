#include "simulator.h"

#include "unitendpoint.h"
#include "unitsample.h"

#include <QtCore/QCryptographicHash>

#include <cstdio>

using namespace QuadrelUnit;

namespace {

void printLine(FILE* stream, const QString& line)
{
    std::fprintf(stream, "%s\n", line.toUtf8().constData());
    std::fflush(stream);
}

void tell(const QString& text)
{
    printLine(stderr, QStringLiteral("quadrelsim: ") + text);
}

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
        QStringLiteral("%1: label %2, %3 %4 bytes at 0x%5")
            .arg(peer)
            .arg(request.label)
            .arg(request.isReadRequest() ? QStringLiteral("read") : QStringLiteral("write"))
            .arg(request.dataLength)
            .arg(request.address, 8, 16, QLatin1Char('0'));
    return fault.isEmpty() ? line : line + QStringLiteral(", fault: ") + fault;
}

} // namespace

Simulator::Simulator(const SimOptions& options)
    : m_options(options)
    , m_unit(options.changed(UnitSettings()))
    , m_server(&m_unit)
{
    m_unit.setUpgradeVersion(options.upgradeVersion);
    m_server.setRestartTime(options.resetTime);
    m_server.faults() = options.faults;
    reportEvents();
}

bool Simulator::start()
{
    if (m_options.hasSample)
        writeSample(m_unit.memory());
    if (!openMemory())
        return false;
    QString error;
    if (!m_server.listen(m_options.address, m_options.port, &error)) {
        tell(error);
        return false;
    }
    if (m_options.answersSearches && !openDiscovery())
        return false;
    printLine(stdout,
        QStringLiteral("listening on ") + endpointText(m_server.address(), m_server.port()));
    if (m_options.answersSearches)
        printLine(stdout,
            QStringLiteral("answering searches on ")
                + endpointText(m_options.discoveryAddress, m_discovery.port()));
    return true;
}

bool Simulator::stop()
{
    QString error;
    if (!m_memoryFile || m_memoryFile->saveNoted(&error))
        return true;
    tell(error);
    return false;
}

bool Simulator::openMemory()
{
    if (m_options.memoryPath.isEmpty())
        return true;
    m_memoryFile = std::make_unique<UnitMemoryFile>(m_options.memoryPath, &m_unit);
    connect(&m_server, &UnitServer::changed, m_memoryFile.get(), &UnitMemoryFile::noteChange);
    connect(m_memoryFile.get(), &UnitMemoryFile::failed, this, &tell);

    QString error;
    if (m_memoryFile->exists()) {
        if (!m_memoryFile->load(&error)) {
            tell(error);
            return false;
        }
        if (!m_options.settingChanges.empty())
            m_unit.setSettings(m_options.changed(m_unit.settings()));
    }
    if (m_memoryFile->save(&error))
        return true;
    tell(error);
    return false;
}

bool Simulator::openDiscovery()
{
    updateDiscoveryReply();
    QString error;
    if (m_discovery.listen(m_options.discoveryAddress, m_options.discoveryPort, &error))
        return true;
    tell(error);
    return false;
}

void Simulator::updateDiscoveryReply()
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

void Simulator::reportEvents()
{
    connect(&m_server, &UnitServer::refused, this, &tell);
    connect(&m_server, &UnitServer::notice, this, &tell);
    if (m_options.printsDigests)
        connect(&m_server, &UnitServer::upgraded, this, &Simulator::printDigests);
    // A unit that restarts is not found by a search either.
    connect(&m_server, &UnitServer::wentDown, this, [this] { m_discovery.setSilent(true); });
    connect(&m_server, &UnitServer::cameBack, this, [this] {
        updateDiscoveryReply();
        m_discovery.setSilent(false);
    });
    if (!m_options.isVerbose)
        return;
    connect(&m_server, &UnitServer::served, this,
        [](const UnitFrame& request, const QString& peer, const QString& fault) {
            tell(requestLine(request, peer, fault));
        });
    connect(&m_discovery, &UnitDiscovery::searched, this,
        [](const QString& peer) { tell(QStringLiteral("searched by ") + peer); });
    connect(&m_server, &UnitServer::wentDown, this, [] { tell(QStringLiteral("going down")); });
    connect(&m_server, &UnitServer::cameBack, this, [] { tell(QStringLiteral("back again")); });
}

void Simulator::printDigests()
{
    printLine(stdout, imageLine("addressed", m_unit.upgrade().addressedImage()));
    printLine(stdout, imageLine("streamed", m_unit.upgrade().streamedImage()));
}
