// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

#include <cstdio>

/** A difference between what is tested and its model. */
struct Difference {
    QString text;
};

inline void compare(const char* what, const QString& found, const QString& expected)
{
    if (found != expected)
        throw Difference{
            QStringLiteral("%1:\n%2\n  instead of\n%3").arg(QLatin1String(what), found, expected)};
}

/**
 * Runs as many operations of a `Soak`, with the seed, as the environment says: a program that the
 * test presets run gets no arguments of its user. The exit code of the program.
 */
template <typename Soak> int runSoak(const char* operationsOtherwise)
{
    const int operations =
        qEnvironmentVariable("SOAK_OPERATIONS", QString::fromLatin1(operationsOtherwise)).toInt();
    const uint seed = qEnvironmentVariable("SOAK_SEED", QStringLiteral("1")).toUInt();
    if (operations <= 0) {
        std::fprintf(stderr, "SOAK_OPERATIONS is not a number of operations\n");
        return 2;
    }
    Soak soak(seed);
    for (int i = 0; i < operations; ++i) {
        try {
            soak.runOne();
        } catch (const Difference& difference) {
            std::fprintf(
                stderr, "seed %u, operation %d: %s\n", seed, i, qPrintable(difference.text));
            return 1;
        }
    }
    std::printf("seed %u: %d operations without a difference, ", seed, operations);
    soak.printSummary();
    return 0;
}
