// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Makes its application object first, and loads the library with a module afterwards.

#include <QtCore/QCoreApplication>
#include <QtCore/QLibrary>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const auto runModule = QLibrary(QString::fromLocal8Bit(argv[1])).resolve("runModule");
    if (!runModule)
        return 1;
    runModule();
}
