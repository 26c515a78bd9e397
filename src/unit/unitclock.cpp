// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitclock.h"

#include "unitaddresses.h"
#include "unitbytes.h"

#include <QtCore/QDateTime>

namespace QuadrelUnit {

namespace {

constexpr int century = 2000;

/** The number of a byte of two decimal digits; anything else gives -1, which no field can be. */
int fromBcd(char byte)
{
    const int high = static_cast<quint8>(byte) >> 4;
    const int low = static_cast<quint8>(byte) & 0x0F;
    return high > 9 || low > 9 ? -1 : high * 10 + low;
}

} // namespace

UnitClock::UnitClock()
    : m_now(&QDateTime::currentMSecsSinceEpoch)
{
}

QByteArray UnitClock::cell() const
{
    // A clock that was set runs on evenly; only the machine's own time follows daylight saving.
    const qint64 now = m_now();
    const QDateTime time = m_ahead ? QDateTime::fromMSecsSinceEpoch(now + *m_ahead, Qt::UTC)
                                   : QDateTime::fromMSecsSinceEpoch(now);
    const QDate date = time.date();
    const QTime clock = time.time();
    QByteArray cell;
    for (const int value :
        {date.year() % 100, date.month(), date.day(), clock.hour(), clock.minute(), clock.second()})
        cell.append(toBcd(value));
    return cell;
}

bool UnitClock::setCell(const QByteArray& cell)
{
    if (cell.size() != Address::clockLength)
        return false;
    const int year = fromBcd(cell.at(0));
    const QDate date(century + year, fromBcd(cell.at(1)), fromBcd(cell.at(2)));
    const QTime time(fromBcd(cell.at(3)), fromBcd(cell.at(4)), fromBcd(cell.at(5)));
    if (year < 0 || !date.isValid() || !time.isValid())
        return false;
    m_ahead = QDateTime(date, time, Qt::UTC).toMSecsSinceEpoch() - m_now();
    return true;
}

} // namespace QuadrelUnit
