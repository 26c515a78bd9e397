// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "devicemanagermodel.h"

DeviceManagerModel* DeviceManagerModel::m_pDeviceInstance = new DeviceManagerModel(nullptr);

DeviceManagerModel::DeviceManagerModel(QObject* parent)
    : QObject(parent)
{
    qRegisterMetaType<DeviceModel>("DeviceModel");
}

DeviceManagerModel* DeviceManagerModel::Instance()
{
    return m_pDeviceInstance;
}

DeviceModel DeviceManagerModel::getCurrentSelectDevice()
{
    return m_selectedDevice;
}

void DeviceManagerModel::setCurrentSelectDevice(DeviceModel device)
{
    m_selectedDevice = device;
}

void DeviceManagerModel::setDeviceData(DeviceModel device, ModelManagement* data)
{
    m_deviceMap.insert(device, data);
}

ModelManagement* DeviceManagerModel::getDeviceData(DeviceModel device)
{
    const auto entry = m_deviceMap.constFind(device);
    return entry == m_deviceMap.constEnd() ? new ModelManagement : entry.value();
}

void DeviceManagerModel::deleteDeviceData(DeviceModel device)
{
    // QMap::remove() would go on with every further entry of an equal key that it finds.
    const auto entry = m_deviceMap.find(device);
    if (entry != m_deviceMap.end())
        m_deviceMap.erase(entry);
}
