// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controlunit.h"
#include "patience.h"
#include "unitframe.h"

#include <QtNetwork/QTcpSocket>
#include <QtTest/QtTest>

/** The asking side of a connection to a unit in the same thread. */
class UnitClient {
public:
    explicit UnitClient(quint16 port)
    {
        m_socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
        m_socket.connectToHost(QHostAddress::LocalHost, port);
    }

    QTcpSocket& socket() { return m_socket; }
    void send(const QuadrelUnit::UnitFrame& frame) { m_socket.write(frame.encode()); }

    /** All bytes that came so far. */
    QByteArray bytes()
    {
        m_bytes += m_socket.readAll();
        return m_bytes;
    }
    QString peer() const { return QStringLiteral("tcp 127.0.0.1:%1").arg(m_socket.localPort()); }
    bool isConnected() const { return m_socket.state() == QAbstractSocket::ConnectedState; }
    bool isClosed() const { return m_socket.state() == QAbstractSocket::UnconnectedState; }

private:
    QTcpSocket m_socket;
    QByteArray m_bytes;
};

inline QuadrelUnit::UnitFrame readInformation(quint8 label = 1)
{
    return QuadrelUnit::UnitFrame::readRequest(label, 0xF0000000, 32);
}

inline QByteArray informationReply(const QuadrelUnit::ControlUnit& unit, quint8 label = 1)
{
    return QuadrelUnit::ControlUnit(unit.settings()).answer(readInformation(label)).reply.encode();
}

inline QuadrelUnit::UnitFrame reset(bool keepsAddress)
{
    return QuadrelUnit::UnitFrame::writeRequest(
        5, 0xF000001C, QByteArray(1, keepsAddress ? '\1' : '\0'));
}
