#pragma once

class UnitSession;

/** Interrupts by the user, SIGINT and SIGTERM. The second one ends the program at once. */
namespace Interrupts {

/** Until the end of the program. Throws CommandFailure if there is no free descriptor. */
void watch();

/** Throws CommandFailure once there was an interrupt. */
void throwIfAny();
/** Waits until there is something to read, or an interrupt, for which it throws. */
void awaitInput(int descriptor);
/** Lets time pass; throws at an interrupt. */
void pause(int milliseconds);

/** An interrupt aborts the session; null for none. */
void setSession(UnitSession* session);

} // namespace Interrupts
