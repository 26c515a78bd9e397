// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "systemmodel.h"

#include <utility>

SystemModel::SystemModel() = default;

SystemModel::SystemModel(const SystemModel& other)
    : QObject(nullptr)
    , m_ports(other.m_ports)
    , m_lines(other.m_lines)
{
}

SystemModel& SystemModel::operator=(const SystemModel& other)
{
    m_ports = other.m_ports;
    m_lines = other.m_lines;
    return *this;
}

bool SystemModel::operator==(const SystemModel& other) const
{
    return m_ports == other.m_ports && m_lines == other.m_lines;
}

QList<ComInfo> SystemModel::getComInfo()
{
    return m_ports;
}

void SystemModel::setComInfo(QList<ComInfo> ports)
{
    m_ports = std::move(ports);
}

QList<IOType> SystemModel::getIOType()
{
    return m_lines;
}

void SystemModel::setIOType(QList<IOType> lines)
{
    m_lines = std::move(lines);
}
