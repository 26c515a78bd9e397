// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdio>
#include <cstring>

/**
 * Prints a line of a file of this process under /proc as a plain number of KiB, such as "VmHWM:" of
 * /proc/self/status. False if there is no such line.
 */
inline bool printOwnMemory(const char* path, const char* label)
{
    FILE* file = std::fopen(path, "r");
    if (!file)
        return false;
    char line[256];
    long size = -1;
    while (size < 0 && std::fgets(line, sizeof line, file)) {
        if (std::strncmp(line, label, std::strlen(label)) == 0)
            std::sscanf(line + std::strlen(label), "%ld", &size);
    }
    std::fclose(file);
    std::printf("%ld\n", size);
    return size >= 0;
}
