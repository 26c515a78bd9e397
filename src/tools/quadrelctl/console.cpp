// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "console.h"

#include "interrupts.h"
#include "pager.h"
#include "table.h"
#include "tool.h"
#include "visibletext.h"

#include <QtCore/QElapsedTimer>

#include <algorithm>
#include <csignal>
#include <cstdio>

#include <sys/ioctl.h>
#include <unistd.h>

namespace {

constexpr int usualColumns = 80;
constexpr int stepInterval = 500;

Console::Options current;
bool progressShown = false;
int linesShown = 0;
bool readerMayVanish = false;

void write(FILE* stream, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stream);
}

QString cutToWidth(QString text, int width)
{
    while (displayWidth(text) > width)
        text.chop(1);
    return text;
}

/** Nothing where there is no terminal. */
winsize sizeOf(int descriptor)
{
    winsize size = {};
    return ioctl(descriptor, TIOCGWINSZ, &size) == 0 ? size : winsize();
}

bool hasColour(int descriptor)
{
    return isatty(descriptor) == 1 && qEnvironmentVariableIsEmpty("NO_COLOR")
        && qgetenv("TERM") != "dumb";
}

const char* sequenceOf(Style style)
{
    switch (style) {
    case Style::Plain:
        return "";
    case Style::Heading:
        return "\x1b[1m";
    case Style::Added:
        return "\x1b[32m";
    case Style::Removed:
        return "\x1b[31m";
    case Style::Changed:
        return "\x1b[33m";
    }
    Q_UNREACHABLE();
}

QString styled(const Line& line, bool colour)
{
    const QString text = visible(line.text);
    return colour && line.style != Style::Plain
        ? QLatin1String(sequenceOf(line.style)) + text + QLatin1String("\x1b[0m")
        : text;
}

QString textOf(const Page& page)
{
    const bool colour = hasColour(STDOUT_FILENO);
    QString text;
    for (const Line& line : page)
        text += styled(line, colour) + QLatin1Char('\n');
    return text;
}

/** A program that reads them needs no more than a person. */
void reportStep(const QString& text)
{
    static QElapsedTimer last;
    if (last.isValid() && last.elapsed() < stepInterval)
        return;
    last.start();
    write(stderr, QLatin1Char('\t') + visible(text) + QLatin1Char('\n'));
}

/** Back to the first of the lines that show progress. */
QString toFirstLine()
{
    return linesShown > 0 ? QStringLiteral("\r\x1b[%1A").arg(linesShown) : QStringLiteral("\r");
}

/** A line that is wider than the terminal takes several of its rows. */
bool exceedsScreen(const Page& page, winsize size)
{
    const int columns = std::max<int>(size.ws_col, 1);
    int rows = 0;
    for (const Line& line : page)
        rows += std::max(1, (displayWidth(line.text) + columns - 1) / columns);
    return size.ws_row > 0 && rows >= size.ws_row;
}

} // namespace

void Console::configure(const Options& options)
{
    current = options;
}

void Console::print(const QString& text)
{
    endProgress();
    write(stdout, visibleLines(text));
}

void Console::print(const Page& page)
{
    endProgress();
    write(stdout, textOf(page));
}

void Console::printPaged(const Page& page)
{
    const bool isLong = isatty(STDOUT_FILENO) == 1 && exceedsScreen(page, sizeOf(STDOUT_FILENO));
    endProgress();
    if (!current.pager || !isLong || !flush() || !Pager::show(textOf(page).toUtf8()))
        print(page);
}

bool Console::flush()
{
    const bool isWritten = std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
    return isWritten || readerMayVanish;
}

void Console::note(const QString& text)
{
    endProgress();
    // Results and remarks keep their order on a terminal.
    flush();
    write(stderr, visibleLines(text) + QLatin1Char('\n'));
}

void Console::warn(const QString& text)
{
    note(Tool::tr("warning: %1").arg(text));
}

void Console::progress(const QString& text)
{
    if (current.reportSteps)
        reportStep(text);
    else if (!current.quiet)
        note(text);
}

void Console::remark(const QString& text)
{
    if (!current.quiet)
        print(text + QLatin1Char('\n'));
}

int Console::pageWidth()
{
    return isatty(STDOUT_FILENO) == 1 ? sizeOf(STDOUT_FILENO).ws_col : 0;
}

bool Console::isTerminal()
{
    return isatty(STDERR_FILENO) == 1;
}

int Console::columns()
{
    const int columns = sizeOf(STDERR_FILENO).ws_col;
    return columns > 0 ? columns : usualColumns;
}

void Console::showProgress(const QString& text)
{
    if (current.reportSteps)
        reportStep(text);
    if (!isTerminal() || current.quiet)
        return;
    // In the last column the cursor would go on to the next line.
    const QString line = cutToWidth(visible(text), columns() - 1);
    // Back to the line's start, and clear what the last text leaves.
    write(stderr, QLatin1Char('\r') + line + QStringLiteral("\x1b[K"));
    progressShown = true;
}

void Console::showProgress(const QStringList& lines)
{
    if (!isTerminal() || current.quiet)
        return;
    const int rows = std::max<int>(sizeOf(STDERR_FILENO).ws_row, 2) - 1;
    // The last line is the total.
    const QStringList shown =
        lines.size() > rows ? lines.mid(0, rows - 1) + QStringList{lines.last()} : lines;
    QString text = toFirstLine();
    for (const QString& line : shown)
        text += cutToWidth(visible(line), columns() - 1) + QStringLiteral("\x1b[K\n");
    write(stderr, text + QStringLiteral("\x1b[J"));
    linesShown = shown.size();
}

void Console::endProgress()
{
    if (progressShown)
        write(stderr, QStringLiteral("\n"));
    if (linesShown > 0)
        write(stderr, toFirstLine() + QStringLiteral("\x1b[J"));
    progressShown = false;
    linesShown = 0;
}

bool Console::canAsk()
{
    return isTerminal() && isatty(STDIN_FILENO) == 1;
}

bool Console::confirm(const QString& question)
{
    endProgress();
    flush();
    write(stderr, visibleLines(question) + Tool::tr(" [y/N] "));
    Interrupts::awaitInput(STDIN_FILENO);
    char answer[64] = {};
    if (!std::fgets(answer, sizeof(answer), stdin)) {
        write(stderr, QStringLiteral("\n"));
        return false;
    }
    const QString given = QString::fromLocal8Bit(answer).trimmed().toLower();
    return given == QStringLiteral("y") || given == QStringLiteral("yes");
}

void Console::outliveReader()
{
    readerMayVanish = true;
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGHUP, SIG_IGN);
}
