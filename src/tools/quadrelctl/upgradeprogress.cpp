#include "upgradeprogress.h"

#include "console.h"
#include "tool.h"

#include <QtCore/QRegularExpression>

#include <algorithm>

namespace {

constexpr int barWidth = 30;
constexpr int lineStep = 10;

} // namespace

UpgradeProgress::UpgradeProgress(qint64 totalBytes)
    : m_totalBytes(totalBytes)
{
    m_elapsed.start();
}

void UpgradeProgress::show(const QString& text)
{
    static const QRegularExpression number(QStringLiteral("(\\d+)"));
    const QRegularExpressionMatch match = number.match(text);
    if (!match.hasMatch()) {
        Console::note(text);
        return;
    }
    const int percent = match.captured(1).toInt();
    const int step = Console::isTerminal() ? percent : percent / lineStep * lineStep;
    if (step == m_shown)
        return;
    m_shown = step;
    if (Console::isTerminal())
        Console::showProgress(bar(percent));
    else
        Console::note(Tool::tr("%1 % sent").arg(step));
}

QString UpgradeProgress::bar(int percent) const
{
    const int filled = barWidth * percent / 100;
    const double seconds = std::max(1.0, static_cast<double>(m_elapsed.elapsed())) / 1000;
    const double rate = static_cast<double>(m_totalBytes) * percent / 100 / seconds;
    const int left = percent == 0 ? 0 : qRound(seconds * (100 - percent) / percent);
    return Tool::tr("[%1%2] %3 %  %4 KiB/s  %5 s left")
        .arg(QString(filled, QLatin1Char('#')), QString(barWidth - filled, QLatin1Char('.')),
            QString::number(percent), QString::number(rate / 1024, 'f', 0), QString::number(left));
}
