// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Reads a whole unit over the loopback, so often: a client in a process of its own.
#include "loopbackclient.h"

#include <QtCore/QCoreApplication>

/** unitreads PORT READS */
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    LoopbackClient client(arguments.value(1).toUShort());
    for (int i = arguments.value(2).toInt(); i > 0; --i)
        client.readEverything();
    return 0;
}
