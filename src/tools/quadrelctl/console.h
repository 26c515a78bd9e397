#pragma once

#include <QtCore/QString>

/**
 * What the program says. All of it is UTF-8, whatever the locale, and none of it does anything to a
 * terminal but stand there: see visibleLines().
 */
namespace Console {

/** Results, on stdout. */
void print(const QString& text);
/** Whether all results have reached stdout, or nobody needs them any more. */
bool flush();

/** Errors, warnings and progress, a line on stderr. */
void note(const QString& text);
void warn(const QString& text);

/** Whether a person watches stderr. */
bool isTerminal();
/** The width of the terminal on stderr; without one that of a usual terminal. */
int columns();
/** Rewrites the last line of a terminal, cut to its width; nothing elsewhere. */
void showProgress(const QString& text);
/** Leaves the line of showProgress(), if there is one. */
void endProgress();

/** Asks on the terminal; false unless the answer is yes. Throws CommandFailure at an interrupt. */
bool confirm(const QString& question);
bool canAsk();

/**
 * From here on the program finishes its work even if its output is closed or its terminal is gone;
 * what it says then is lost.
 */
void outliveReader();

} // namespace Console
