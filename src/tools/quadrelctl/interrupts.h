// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

namespace QuadrelWorkspace {
class UnitWork;
}

/**
 * Interrupts by the user, SIGINT and SIGTERM. The first one ends what runs on a unit, and a
 * question; the second one ends the program at once. Work on many units goes by watchRun().
 */
namespace Interrupts {

/**
 * Until the end of the program an interrupt ends this work; null for none. Throws CommandFailure if
 * there is no free descriptor.
 */
void watch(QuadrelWorkspace::UnitWork* work);

/**
 * Until the end of the program interrupts are only counted; the third one ends the program at once.
 * Returns a descriptor that can be read after each. Throws CommandFailure if there is none free.
 */
int watchRun();
/** How many there were so far; the descriptor can be read again after the next one. */
int take();

bool arePending();
/** Throws CommandFailure once there was an interrupt. */
void throwIfPending();
/** Waits until there is something to read, or an interrupt, for which it throws. */
void awaitInput(int descriptor);

} // namespace Interrupts
