// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "newrecords.h"

#include "editors/unitdates.h"
#include "workspace/recordlists.h"

#include <QtCore/QSet>

#include <type_traits>

using namespace QuadrelDocument;

namespace {

template <class Record>
constexpr bool hasId = !std::is_same_v<Record, SerialPort> && !std::is_same_v<Record, IoLine>;

template <class Record> QSet<int> takenIds(const Contents& contents)
{
    QSet<int> ids;
    const QVector<Record> records = recordsOf<Record>(contents);
    for (const Record& record : records)
        ids.insert(record.id);
    return ids;
}

/** The one after the largest if there is one, since gaps may be meant, or else the first gap. */
int freeId(const QSet<int>& taken)
{
    int largest = -1;
    for (const int id : taken)
        largest = qMax(largest, id);
    if (largest < Limit::id)
        return largest + 1;
    int id = 0;
    while (taken.contains(id))
        ++id;
    return id;
}

void setUsualValues(SerialPort&) { }
void setUsualValues(IoLine&) { }
void setUsualValues(Event&) { }
void setUsualValues(Trigger&) { }
void setUsualValues(TimeTrigger& trigger)
{
    trigger.startDate = UnitDates::textOf(QDate::currentDate());
    trigger.time = QStringLiteral("08:00");
}

} // namespace

template <class Record> Record newRecord(const Contents& contents)
{
    Record record;
    setUsualValues(record);
    if constexpr (hasId<Record>)
        record.id = freeId(takenIds<Record>(contents));
    return record;
}

template <class Record> void renumber(QVector<Record>& records, const Contents& contents)
{
    if constexpr (hasId<Record>) {
        QSet<int> taken = takenIds<Record>(contents);
        for (Record& record : records) {
            if (taken.contains(record.id))
                record.id = freeId(taken);
            taken.insert(record.id);
        }
    } else {
        Q_UNUSED(records)
        Q_UNUSED(contents)
    }
}

#define NEW_RECORDS_OF(Record)                                                                     \
    template Record newRecord(const Contents&);                                                    \
    template void renumber(QVector<Record>&, const Contents&);
NEW_RECORDS_OF(SerialPort)
NEW_RECORDS_OF(IoLine)
NEW_RECORDS_OF(Event)
NEW_RECORDS_OF(Trigger)
NEW_RECORDS_OF(TimeTrigger)
#undef NEW_RECORDS_OF
