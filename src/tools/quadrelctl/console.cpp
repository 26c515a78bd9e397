#include "console.h"

#include "interrupts.h"
#include "table.h"
#include "tool.h"
#include "visibletext.h"

#include <csignal>
#include <cstdio>

#include <sys/ioctl.h>
#include <unistd.h>

namespace {

constexpr int usualColumns = 80;

bool progressShown = false;
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

} // namespace

void Console::print(const QString& text)
{
    endProgress();
    write(stdout, visibleLines(text));
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

bool Console::isTerminal()
{
    return isatty(STDERR_FILENO) == 1;
}

int Console::columns()
{
    winsize size = {};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col
                                                                           : usualColumns;
}

void Console::showProgress(const QString& text)
{
    if (!isTerminal())
        return;
    // In the last column the cursor would go on to the next line.
    const QString line = cutToWidth(visible(text), columns() - 1);
    // Back to the line's start, and clear what the last text leaves behind.
    write(stderr, QLatin1Char('\r') + line + QStringLiteral("\x1b[K"));
    progressShown = true;
}

void Console::endProgress()
{
    if (progressShown)
        write(stderr, QStringLiteral("\n"));
    progressShown = false;
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
    if (!std::fgets(answer, sizeof(answer), stdin))
        return false;
    const QString given = QString::fromLocal8Bit(answer).trimmed().toLower();
    return given == QStringLiteral("y") || given == QStringLiteral("yes");
}

void Console::outliveReader()
{
    readerMayVanish = true;
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGHUP, SIG_IGN);
}
