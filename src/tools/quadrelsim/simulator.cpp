// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "simulator.h"

#include "openfiles.h"

#include <QtCore/QDir>

Simulator::Simulator(const SimOptions& options)
    : m_options(options)
{
}

bool Simulator::start()
{
    if (!makeRoom())
        return false;
    for (int i = 0; i < m_options.unitCount(); ++i) {
        m_units.push_back(std::make_unique<SimulatedUnit>(m_options, i, m_log));
        if (!m_units.back()->start())
            return false;
    }
    printEndpoints();
    return true;
}

/** Room for the sockets of the units, and a folder for their memories. */
bool Simulator::makeRoom()
{
    constexpr quint64 ofTheProgram = 32;
    const auto units = static_cast<quint64>(m_options.unitCount());
    const quint64 socketsOfOne = m_options.answersSearches ? 3 : 2;
    const auto clientsOfOne = static_cast<quint64>(m_options.maximumConnections);
    const quint64 least = ofTheProgram + units * socketsOfOne;
    QString error;
    if (!allowOpenFiles(least + units * clientsOfOne, least, &error)) {
        m_log.report(error);
        return false;
    }
    if (!m_options.isSite() || m_options.memoryPath.isEmpty()
        || QDir().mkpath(m_options.memoryPath))
        return true;
    m_log.report(QStringLiteral("cannot make the folder %1").arg(m_options.memoryPath));
    return false;
}

void Simulator::printEndpoints() const
{
    for (const auto& unit : m_units)
        printLine(QStringLiteral("listening on ") + unit->endpoint());
    if (!m_options.answersSearches)
        return;
    for (const auto& unit : m_units)
        printLine(QStringLiteral("answering searches on ") + unit->searchEndpoint());
}

bool Simulator::stop()
{
    bool isSaved = true;
    for (const auto& unit : m_units)
        isSaved = unit->stop() && isSaved;
    return isSaved;
}
