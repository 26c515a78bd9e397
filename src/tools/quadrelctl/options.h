// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

/**
 * The command that the command line asks for. Empty if there is nothing to run: help was printed,
 * or the usage was wrong and was explained; `exitCode` then says which.
 */
struct CommandLine {
    std::function<void()> command;
    int exitCode = 0;

    static CommandLine parse(int argc, char** argv);
};
