// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "recordmatch.h"

#include "contentstree.h"

#include <QtCore/QHash>

#include <algorithm>
#include <tuple>

namespace QuadrelDocument {

namespace {

/** How much a field says about which record this is. */
int weightOf(const QString& field)
{
    static const QStringList distinctive{QStringLiteral("parameter"), QStringLiteral("time"),
        QStringLiteral("eventIds"), QStringLiteral("description")};
    return distinctive.contains(field) ? 2 : 1;
}

struct Pair {
    int score;
    int before;
    int after;
};

/** A field with its value as a number that only the same field with the same value has. */
struct Mark {
    int number;
    int weight;
};
using Marks = std::vector<Mark>;

bool operator==(const Mark& left, const Mark& right)
{
    return left.number == right.number;
}

/** Makes records quick to compare: there may be a thousand on either side. */
class Marker {
public:
    std::vector<Marks> marksOf(const std::vector<DocumentNode>& records)
    {
        std::vector<Marks> result;
        result.reserve(records.size());
        for (const DocumentNode& record : records)
            result.push_back(marksOf(record));
        return result;
    }

private:
    Marks marksOf(const DocumentNode& record)
    {
        Marks marks;
        for (const DocumentNode::Member& member : record.members) {
            const QString field = member.key + QLatin1Char(':') + yamlInline(member.value);
            const int next = m_numbers.size();
            const int number = m_numbers.value(field, next);
            m_numbers.insert(field, number);
            marks.push_back({number, weightOf(member.key)});
        }
        return marks;
    }

    QHash<QString, int> m_numbers;
};

/** The weight of the common fields; 0 if that is less than half of all. */
int scoreOf(const Marks& before, const Marks& after)
{
    int common = 0;
    int all = 0;
    for (const Mark& mark : after) {
        all += mark.weight;
        if (std::find(before.begin(), before.end(), mark) != before.end())
            common += mark.weight;
    }
    return 2 * common >= all ? common : 0;
}

bool isBetter(const Pair& left, const Pair& right)
{
    const auto rank = [](const Pair& pair) {
        return std::make_tuple(
            -pair.score, std::abs(pair.before - pair.after), pair.after, pair.before);
    };
    return rank(left) < rank(right);
}

} // namespace

DocumentNode comparedFields(const Contents& contents, Section section, int index)
{
    DocumentNode record = recordNode(contents, section, index);
    const QStringList left{QStringLiteral("isHex"), recordKey(section),
        section == Section::Events ? QStringLiteral("type") : QString()};
    record.members.erase(
        std::remove_if(record.members.begin(), record.members.end(),
            [&left](const DocumentNode::Member& member) { return left.contains(member.key); }),
        record.members.end());
    return record;
}

std::vector<DocumentNode> comparedRecords(const Contents& contents, Section section)
{
    std::vector<DocumentNode> records;
    records.reserve(size_t(recordCount(contents, section)));
    for (int i = 0; i < recordCount(contents, section); ++i)
        records.push_back(comparedFields(contents, section, i));
    return records;
}

QVector<int> bestMatches(
    const std::vector<DocumentNode>& beforeRecords, const std::vector<DocumentNode>& afterRecords)
{
    Marker marker;
    const std::vector<Marks> before = marker.marksOf(beforeRecords);
    const std::vector<Marks> after = marker.marksOf(afterRecords);
    QVector<int> matches(static_cast<int>(after.size()), -1);
    std::vector<bool> isTaken(before.size());
    const auto take = [&](size_t from, size_t to) {
        isTaken[from] = true;
        matches[static_cast<int>(to)] = static_cast<int>(from);
    };
    for (size_t to = 0; to < after.size(); ++to) {
        for (size_t from = 0; from < before.size() && matches.at(int(to)) < 0; ++from) {
            if (!isTaken[from] && before[from] == after[to])
                take(from, to);
        }
    }
    std::vector<Pair> pairs;
    for (size_t to = 0; to < after.size(); ++to) {
        for (size_t from = 0; from < before.size() && matches.at(int(to)) < 0; ++from) {
            const int score = isTaken[from] ? 0 : scoreOf(before[from], after[to]);
            if (score > 0)
                pairs.push_back({score, static_cast<int>(from), static_cast<int>(to)});
        }
    }
    std::sort(pairs.begin(), pairs.end(), isBetter);
    for (const Pair& pair : pairs) {
        if (!isTaken[size_t(pair.before)] && matches.at(pair.after) < 0)
            take(size_t(pair.before), size_t(pair.after));
    }
    return matches;
}

} // namespace QuadrelDocument
