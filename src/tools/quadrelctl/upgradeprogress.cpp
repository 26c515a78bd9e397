#include "upgradeprogress.h"

#include "console.h"
#include "table.h"
#include "tool.h"

#include <algorithm>

namespace {

constexpr int widestBar = 30;
constexpr int narrowestBar = 5;
constexpr int lineStep = 10;

} // namespace

UpgradeProgress::UpgradeProgress()
{
    m_elapsed.start();
}

void UpgradeProgress::show(const UnitProgress& step)
{
    const int percent = step.total == 0 ? 100 : static_cast<int>(step.done * 100 / step.total);
    const int shown = Console::isTerminal() ? percent : percent / lineStep * lineStep;
    if (shown == m_shown)
        return;
    m_shown = shown;
    if (Console::isTerminal())
        Console::showProgress(bar(percent, step.done));
    else
        Console::note(Tool::tr("%1 % sent").arg(shown));
}

QString UpgradeProgress::bar(int percent, qint64 sentBytes) const
{
    const double seconds = std::max(1.0, static_cast<double>(m_elapsed.elapsed())) / 1000;
    const double rate = static_cast<double>(sentBytes) / seconds;
    const int left = percent == 0 ? 0 : qRound(seconds * (100 - percent) / percent);
    const QString facts = Tool::tr("%1 %  %2 KiB/s  %3 s left")
                              .arg(QString::number(percent), QString::number(rate / 1024, 'f', 0),
                                  QString::number(left));
    const int room =
        Console::columns() - 1 - displayWidth(facts) - displayWidth(QStringLiteral("[] "));
    const int width = std::min(room, widestBar);
    if (width < narrowestBar)
        return facts;
    const int filled = width * percent / 100;
    return QStringLiteral("[%1%2] %3")
        .arg(QString(filled, QLatin1Char('#')), QString(width - filled, QLatin1Char('.')), facts);
}
