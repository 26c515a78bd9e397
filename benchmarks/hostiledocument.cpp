// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Reads a document or a project file and prints the milliseconds of the processor that this took,
// or with "memory" after the file's name the peak of its own memory in KiB.
#include "ownmemory.h"
#include "unitdocument.h"

#include <QtCore/QCoreApplication>

#include <ctime>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const std::clock_t start = std::clock();
    QuadrelDocument::loadFile(QCoreApplication::arguments().value(1));
    const std::clock_t end = std::clock();
    if (argc > 2)
        return printOwnMemory("/proc/self/status", "VmHWM:") ? 0 : 1;
    std::printf("%ld\n", (end - start) * 1000L / CLOCKS_PER_SEC);
    return 0;
}
