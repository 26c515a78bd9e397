#include "commands.h"
#include "console.h"
#include "contentsjson.h"
#include "session.h"
#include "tool.h"

#include <QtCore/QDateTime>
#include <QtCore/QRegularExpression>

#include <cstdlib>

namespace {

const QString now = QStringLiteral("now");
const QString sentForm = QStringLiteral("yyyy/MM/dd  hh:mm:ss");

/** What a unit's clock says, or an invalid time. The year of a text lacks the zero of 2001 to 2009.
 */
QDateTime unitTime(const QString& text)
{
    static const QRegularExpression form(
        QStringLiteral("^20(\\d{1,3})/(\\d+)/(\\d+) (\\d+):(\\d+):(\\d+)$"));
    const QRegularExpressionMatch match = form.match(text);
    const auto number = [&match](int group) { return match.captured(group).toInt(); };
    const QDate date(2000 + number(1), number(2), number(3));
    const QTime time(number(4), number(5), number(6));
    return match.hasMatch() && date.isValid() && time.isValid() ? QDateTime(date, time)
                                                                : QDateTime();
}

QString describeDifference(qint64 seconds)
{
    if (seconds == 0)
        return Tool::tr("the same as this machine's");
    constexpr qint64 secondsPerDay = 86400;
    const qint64 amount = std::abs(seconds);
    const qint64 days = amount / secondsPerDay;
    const QString time = QTime(0, 0)
                             .addSecs(static_cast<int>(amount % secondsPerDay))
                             .toString(QStringLiteral("hh:mm:ss"));
    const QString length =
        days == 0 ? time : Tool::tr("%1 days %2").arg(QString::number(days), time);
    return (
        seconds > 0 ? Tool::tr("%1 ahead of this machine's") : Tool::tr("%1 behind this machine's"))
        .arg(length);
}

void print(const QString& text, bool json)
{
    const QDateTime time = unitTime(text);
    const qint64 difference = QDateTime::currentDateTime().secsTo(time);
    if (json) {
        QJsonObject object{{QStringLiteral("clock"), text}};
        if (time.isValid())
            object.insert(QStringLiteral("differenceSeconds"), difference);
        printJson(object);
        return;
    }
    Console::print(
        QStringLiteral("%1  (%2)\n")
            .arg(text,
                time.isValid() ? describeDifference(difference) : Tool::tr("not a real time")));
}

} // namespace

bool isClockText(const QString& text)
{
    static const QRegularExpression form(
        QStringLiteral("^20\\d\\d/\\d\\d/\\d\\d  \\d\\d:\\d\\d:\\d\\d\\z"));
    return text == now
        || (form.match(text).hasMatch() && QDateTime::fromString(text, sentForm).isValid());
}

void runClock(const ClockOptions& options)
{
    Session session(options.unit);
    if (!options.time.isEmpty())
        session.run(UnitRequest::setClock(options.time == now
                ? QDateTime::currentDateTime()
                : QDateTime::fromString(options.time, sentForm)));
    print(session.run(UnitRequest::readClock()).clock, options.json);
}
