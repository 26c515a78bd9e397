// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "transportbinding.h"

TransportBinding::TransportBinding(UnPackage& unPackage, TransportCore& core)
    : m_unPackage(unPackage)
    , m_link{&core, nullptr}
{
    UnPackageAccess::setLink(unPackage, &m_link);
    const auto handleDirectly = [&](auto signal, auto handler) {
        m_connections.push_back(
            QObject::connect(&unPackage, signal, &unPackage, handler, Qt::DirectConnection));
    };
    handleDirectly(&UnPackage::signal_sendPackage,
        [&core](const QByteArray& frame) { core.sendFrame(frame); });
    const auto finish = [&core] { core.finishOperation(); };
    handleDirectly(&UnPackage::signal_errored, finish);
    handleDirectly(&UnPackage::signal_readFinished, finish);
    handleDirectly(&UnPackage::signal_finshed, finish);
    handleDirectly(&UnPackage::signal_finshedUpgrade, finish);
    handleDirectly(&UnPackage::signal_finshedUpdateRemark, finish);
    handleDirectly(&UnPackage::signal_finishnetwork, finish);
}

TransportBinding::~TransportBinding()
{
    UnPackageAccess::setLink(m_unPackage, nullptr);
    for (const QMetaObject::Connection& connection : m_connections)
        QObject::disconnect(connection);
}
