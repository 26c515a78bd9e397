#include "upgradeprogress.h"

#include "console.h"
#include "table.h"
#include "tool.h"

#include <QtCore/QRegularExpression>

#include <algorithm>

namespace {

constexpr int widestBar = 30;
constexpr int narrowestBar = 5;
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
    const double seconds = std::max(1.0, static_cast<double>(m_elapsed.elapsed())) / 1000;
    const double rate = static_cast<double>(m_totalBytes) * percent / 100 / seconds;
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
