// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal; not installed.
#pragma once

#include "transportcore.h"
#include "unpackage.h"

#include <QtCore/QMetaObject>

#include <vector>

/** Connects an UnPackage with the core that carries its frames, as long as it lives. */
class TransportBinding {
public:
    /** Both must outlive this object. */
    TransportBinding(UnPackage& unPackage, TransportCore& core);
    ~TransportBinding();
    TransportBinding(const TransportBinding&) = delete;
    TransportBinding& operator=(const TransportBinding&) = delete;

    /** Where operations keep what they read; null for the registry of the process. */
    void setRegistry(DeviceManagerModel* registry) { m_link.registry = registry; }

private:
    UnPackage& m_unPackage;
    UnPackageLink m_link;
    std::vector<QMetaObject::Connection> m_connections;
};
