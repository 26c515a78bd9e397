#pragma once

#include <QtCore/QString>

/** What the program says. All of it is UTF-8, whatever the locale. */
namespace Console {

/** Results, on stdout. */
void print(const QString& text);
/** Whether all results have reached stdout. */
bool flush();

/** Errors, warnings and progress, a line on stderr. */
void note(const QString& text);
void warn(const QString& text);

/** Whether a person watches stderr. */
bool isTerminal();
/** Rewrites the last line of a terminal; nothing elsewhere. */
void showProgress(const QString& text);
/** Leaves the line of showProgress(), if there is one. */
void endProgress();

/** Asks on the terminal; false unless the answer is yes. */
bool confirm(const QString& question);
bool canAsk();

} // namespace Console
