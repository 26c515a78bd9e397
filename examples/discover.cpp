// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Prints the addresses of the units on the network: discover
#include <quadrelbll/searchdevice.h>
#include <quadrellink/unitaddress.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QTextStream>

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    // Made after the application object, so that it finds configWidget.ini beside the program.
    SearchDevice search;
    QObject::connect(&search, &SearchDevice::signal_updateDeviceList, &application,
        [&search](const QMap<QString, serverData>& units) {
            QTextStream out(stdout);
            for (const QString& host : units.keys())
                out << UnitAddress{UnitAddress::Tcp, host}.toText() << '\n';
            search.deleteUdpObject();
            QCoreApplication::quit();
        });
    search.searchDevice();
    return QCoreApplication::exec();
}
