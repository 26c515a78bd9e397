// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// A program that does nothing but load what it is linked with; built with the library, and with the
// framework only.
#include "ownmemory.h"

/** With an argument it prints the private memory that it has by now. */
int main(int argc, char**)
{
    if (argc > 1)
        return printOwnMemory("/proc/self/smaps_rollup", "Private_Dirty:") ? 0 : 1;
    return 0;
}
