// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "loopbackclient.h"

#include "kvprotocolparser.h"

LoopbackClient::LoopbackClient(quint16 port)
    : m_transport(&m_unPackage, {UnitAddress::Tcp, QStringLiteral("127.0.0.1"), port})
{
    const auto fail = [](const QString& error) { qFatal("%s", qPrintable(error)); };
    QObject::connect(
        &m_unPackage, &UnPackage::signal_errored, &m_unPackage, fail, Qt::DirectConnection);
}

void LoopbackClient::readBlock(quint32 address, quint16 length)
{
    QString error;
    m_unPackage.sendPackage(
        KVProtocolParser::Get_CommonRead(m_unPackage.getLabels(), address, length)
            ->ParseSendRequest());
    if (!m_unPackage.waitResponsed(QStringLiteral("block"), error))
        qFatal("%s", qPrintable(error));
}

void LoopbackClient::readEverything()
{
    m_unPackage.slot_runReadPackage(ReadDataType);
}

void LoopbackClient::upgrade(const QByteArray& image)
{
    m_unPackage.setUpgradePackage(image, QByteArray(), QString());
    m_unPackage.slot_runReadPackage(UpgradeDeviceType);
}
