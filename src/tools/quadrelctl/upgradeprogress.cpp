// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

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

void UpgradeProgress::show(const QuadrelWorkspace::WorkProgress& progress)
{
    if (progress.phase == QuadrelWorkspace::WorkProgress::Waiting)
        Console::progress(progress.text());
    else if (progress.unit.part == UnitProgress::Upgrade && progress.unit.total > 0)
        showPercent(
            static_cast<int>(progress.unit.done * 100 / progress.unit.total), progress.unit.done);
}

void UpgradeProgress::showPercent(int percent, qint64 bytes)
{
    const int step = Console::isTerminal() ? percent : percent / lineStep * lineStep;
    if (step == m_shown)
        return;
    m_shown = step;
    if (Console::isTerminal())
        Console::showProgress(bar(percent, bytes));
    else
        Console::progress(Tool::tr("%1 % sent").arg(step));
}

QString UpgradeProgress::bar(int percent, qint64 bytes) const
{
    const double seconds = std::max(1.0, static_cast<double>(m_elapsed.elapsed())) / 1000;
    const double rate = static_cast<double>(bytes) / seconds;
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
