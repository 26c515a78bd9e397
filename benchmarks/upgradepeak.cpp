// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Prints the peak of its own memory, in KiB: of an idle process, or after an upgrade of 16 MiB.
#include "loopbackclient.h"
#include "ownmemory.h"
#include "upgradeimage.h"

#include <QtCore/QCoreApplication>

/** upgradepeak [port of a unit] */
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc > 1) {
        LoopbackClient client(static_cast<quint16>(QByteArray(argv[1]).toUInt()));
        client.upgrade(upgradeImage());
    }
    return printOwnMemory("/proc/self/status", "VmHWM:") ? 0 : 1;
}
