#include "console.h"

#include "tool.h"

#include <cstdio>

#include <unistd.h>

namespace {

bool progressShown = false;

void write(FILE* stream, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stream);
}

} // namespace

void Console::print(const QString& text)
{
    endProgress();
    write(stdout, text);
}

bool Console::flush()
{
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

void Console::note(const QString& text)
{
    endProgress();
    // Results and remarks keep their order on a terminal.
    flush();
    write(stderr, text + QLatin1Char('\n'));
}

void Console::warn(const QString& text)
{
    note(Tool::tr("warning: %1").arg(text));
}

bool Console::isTerminal()
{
    return isatty(STDERR_FILENO) == 1;
}

void Console::showProgress(const QString& text)
{
    if (!isTerminal())
        return;
    // Back to the line's start, and clear what the last text leaves behind.
    write(stderr, QStringLiteral("\r%1\x1b[K").arg(text));
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
    write(stderr, question + Tool::tr(" [y/N] "));
    char answer[64] = {};
    if (!std::fgets(answer, sizeof(answer), stdin))
        return false;
    const QString given = QString::fromLocal8Bit(answer).trimmed().toLower();
    return given == QStringLiteral("y") || given == QStringLiteral("yes");
}
