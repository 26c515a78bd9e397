// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unittransport.h"
#include "unpackage.h"

/** An UnPackage whose frames go to a port of the loopback. Its calls end the program on failure. */
class LoopbackClient {
public:
    explicit LoopbackClient(quint16 port);

    void readBlock(quint32 address, quint16 length);
    void readEverything();
    void upgrade(const QByteArray& image);
    /** After calls of readBlock(). */
    void finish() { m_transport.finishOperation(); }

private:
    UnPackage m_unPackage{nullptr};
    UnitTransport m_transport;
};
