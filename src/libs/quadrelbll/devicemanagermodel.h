// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QMap>
#include <QtCore/QObject>

#include "devicemodel.h"
#include "modelmanagement.h"
#include "quadrelbll_global.h"

/**
 * The registry: which device is selected, and what is known of each device.
 *
 * The key of an entry is the whole device record, so that a unit whose firmware version or link
 * state has changed is another device. DeviceModel has no order (its operator< says only that two
 * records differ), and this decides what the map finds again: a search sees the right edge of the
 * map's tree only. The entry stored last is always found. From the third device on the tree's
 * balancing may move an older entry off that edge; it is then treated as unknown, cannot be
 * deleted, and storing its device again adds a second entry. Copies of records that must stay known
 * are the application's to keep.
 *
 * The registry does not own the aggregates: it deletes none, neither when an entry is overwritten
 * nor when it is removed. The one instance is made while the library is loaded and stays until the
 * process ends. The registry has no lock and must not be touched while an operation runs.
 */
class QUADRELBLL_EXPORT DeviceManagerModel : public QObject {
    Q_OBJECT

public:
    /** A registry without entries; registers the meta-type "DeviceModel". */
    explicit DeviceManagerModel(QObject* parent = nullptr);

    /** The one instance. */
    static DeviceManagerModel* Instance();

    /** A copy of the selected device; a default record until one is selected. */
    DeviceModel getCurrentSelectDevice();
    /** Selects a device; it need not have an entry. */
    void setCurrentSelectDevice(DeviceModel device);

    /**
     * Stores the aggregate under the device. An entry that is found is overwritten, and its former
     * aggregate stays alive; its owner deletes it.
     */
    void setDeviceData(DeviceModel device, ModelManagement* data);
    /**
     * The aggregate of the device. For a device that is not found it is a new empty one at each
     * call, which is not entered into the registry and belongs to the caller. It is null only where
     * a null pointer was stored.
     */
    ModelManagement* getDeviceData(DeviceModel device);
    /** Removes the one entry that a search for the device finds, if any; its aggregate stays alive.
     */
    void deleteDeviceData(DeviceModel device);

    /** What Instance() returns; not to be changed. */
    static DeviceManagerModel* m_pDeviceInstance;

private:
    QMap<DeviceModel, ModelManagement*> m_deviceMap;
    DeviceModel m_selectedDevice;
};
