// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "page.h"

#include <QtCore/QString>
#include <QtCore/QStringList>

/**
 * What the program says. All of it is UTF-8, whatever the locale, and none of it does anything to a
 * terminal but are shown: see visibleLines().
 */
namespace Console {

struct Options {
    /** No progress and no remarks. */
    bool quiet = false;
    bool pager = true;
    /** Steps go to stderr as lines that begin with a tab, a few each second. */
    bool reportSteps = false;
};
void configure(const Options& options);

/** Results, on stdout. */
void print(const QString& text);
/** Results in lines, with colour on a terminal. */
void print(const Page& page);
/** The same, in a pager if they are longer than the terminal. */
void printPaged(const Page& page);
/** Whether all results have reached stdout, or nobody needs them any more. */
bool flush();

/** Errors and warnings, on stderr. */
void note(const QString& text);
void warn(const QString& text);
/** A step of long work, as a line of its own on stderr unless the user wants quiet. */
void progress(const QString& text);
/** What was done, on stdout unless the user wants quiet. */
void remark(const QString& text);

/** The columns that results may take: those of the terminal on stdout, or 0 without one. */
int pageWidth();

/** Whether a person watches stderr. */
bool isTerminal();
/** The width of the terminal on stderr; without one that of a usual terminal. */
int columns();
/** Rewrites the last line of a terminal, cut to its width; nothing elsewhere. */
void showProgress(const QString& text);
/** The same with as many lines as the terminal has room for; endProgress() clears them. */
void showProgress(const QStringList& lines);
/** Leaves what showProgress() shows, if there is something. */
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
