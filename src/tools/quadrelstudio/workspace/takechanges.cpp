// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "takechanges.h"

#include "recordlists.h"

#include <QtCore/QHash>
#include <QtCore/QSet>

using namespace QuadrelDocument;

namespace {

/** Takes the changes of one section. */
template <class Record> class Taker {
public:
    Taker(const Contents& contents, const Contents& other)
        : m_before(recordsOf<Record>(contents))
        , m_after(recordsOf<Record>(other))
    {
        matchRecords(compareContents(contents, other));
    }

    QVector<Record> take(const QVector<RecordChange>& changes)
    {
        QSet<int> gone;
        QSet<int> placed;
        for (const RecordChange& change : changes) {
            if (change.section != RecordList<Record>::section)
                continue;
            const bool staysThere = change.kind == ChangeKind::Changed && !change.isMoved;
            if (staysThere) {
                m_before[change.before] = m_after.at(change.after);
                continue;
            }
            if (change.before >= 0)
                gone.insert(change.before);
            if (change.after >= 0)
                placed.insert(change.after);
        }
        return arranged(gone, placed);
    }

private:
    /** Where each record of the one list is in the other; those without a change are in order. */
    void matchRecords(const Difference& difference)
    {
        QSet<int> changedBefore;
        QSet<int> changedAfter;
        for (const RecordChange& change : difference.changes) {
            if (change.section != RecordList<Record>::section)
                continue;
            changedBefore.insert(change.before);
            changedAfter.insert(change.after);
            if (change.before >= 0 && change.after >= 0)
                m_afterOf.insert(change.before, change.after);
        }
        int after = 0;
        for (int before = 0; before < m_before.size(); ++before) {
            if (changedBefore.contains(before))
                continue;
            while (changedAfter.contains(after))
                ++after;
            m_afterOf.insert(before, after++);
        }
    }

    /** The records that stay, and each placed one after the one that it follows in the other list.
     */
    QVector<Record> arranged(const QSet<int>& gone, const QSet<int>& placed) const
    {
        QVector<Record> records;
        QVector<int> places;
        for (int before = 0; before < m_before.size(); ++before) {
            if (gone.contains(before))
                continue;
            records.append(m_before.at(before));
            places.append(m_afterOf.value(before, -1));
        }
        for (int after = 0; after < m_after.size(); ++after) {
            if (!placed.contains(after))
                continue;
            int row = 0;
            for (int former = after - 1; former >= 0 && row == 0; --former)
                row = places.indexOf(former) + 1;
            records.insert(row, m_after.at(after));
            places.insert(row, after);
        }
        return records;
    }

    QVector<Record> m_before;
    const QVector<Record> m_after;
    QHash<int, int> m_afterOf;
};

template <class Record>
void takeSection(Contents& result, const Contents& contents, const Contents& other,
    const QVector<RecordChange>& changes)
{
    const auto member = RecordList<Record>::member;
    if (result.*member && other.*member)
        result.*member = Taker<Record>(contents, other).take(changes);
}

} // namespace

Contents takeChanges(
    const Contents& contents, const Contents& other, const QVector<RecordChange>& changes)
{
    Contents result = contents;
    takeSection<SerialPort>(result, contents, other, changes);
    takeSection<IoLine>(result, contents, other, changes);
    takeSection<Event>(result, contents, other, changes);
    takeSection<Trigger>(result, contents, other, changes);
    takeSection<TimeTrigger>(result, contents, other, changes);
    return result;
}
