// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "recordedrequest.h"

#include <unpackage.h>

#include <QtCore/QCoreApplication>

/** Ends with 0 if the frame of a device read is the other makers' frame. */
int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    UnPackage operations;
    QByteArray sent;
    QObject::connect(&operations, &UnPackage::signal_sendPackage, &operations,
        [&sent](const QByteArray& frame) { sent = frame; });
    QString error;
    operations.readDeviceParameter(error); // there are no settings, so that it waits for nothing
    const RecordedRequest expected{false, 0, 0xF0000000, 32, QByteArray(), QString()};
    return sent == expected.toFrame() ? 0 : 1;
}
