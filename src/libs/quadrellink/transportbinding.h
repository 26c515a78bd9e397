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

private:
    std::vector<QMetaObject::Connection> m_connections;
};
