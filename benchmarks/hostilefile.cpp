// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Reads a file and prints the milliseconds of the processor that this took, or with "memory" after
// the file's name the peak of its own memory in KiB.
#include "ownmemory.h"
#include "xmlfile.h"

#include <QtCore/QCoreApplication>

#include <ctime>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const std::clock_t start = std::clock();
    QString moduleId;
    QString version;
    QString error;
    // All readers begin with the same steps; this one takes any root.
    XmlFile::readUpdateConfigFile(QCoreApplication::arguments().value(1), moduleId, version, error);
    const std::clock_t end = std::clock();
    if (argc > 2)
        return printOwnMemory("/proc/self/status", "VmHWM:") ? 0 : 1;
    std::printf("%ld\n", (end - start) * 1000L / CLOCKS_PER_SEC);
    return 0;
}
