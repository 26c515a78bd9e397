// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "contentsdifference.h"

#include "contentstree.h"
#include "documenttext.h"
#include "recordmatch.h"

#include <QtCore/QJsonArray>
#include <QtCore/QStringList>

#include <algorithm>

namespace QuadrelDocument {

namespace {

constexpr Section listSections[] = {Section::SerialPorts, Section::IoLines, Section::Events,
    Section::Triggers, Section::TimeTriggers};

/** For each record of `after` the one of `before` with the same number, or -1. */
QVector<int> matchesByPlace(int before, int after)
{
    QVector<int> matches;
    for (int i = 0; i < after; ++i)
        matches.append(i < before ? i : -1);
    return matches;
}

/** By id; of events with one id, which only a faulty unit has, the first with the first. */
QVector<int> matchesById(const QVector<Event>& before, const QVector<Event>& after)
{
    QHash<int, QVector<int>> places;
    for (int i = 0; i < before.size(); ++i)
        places[before.at(i).id].append(i);
    QVector<int> matches;
    for (const Event& event : after) {
        QVector<int>& candidates = places[event.id];
        matches.append(candidates.isEmpty() ? -1 : candidates.takeFirst());
    }
    return matches;
}

/** Which of the ascending places keep their order: the longest row of matches that ascends. */
QVector<bool> inOrder(const QVector<int>& matches)
{
    QVector<int> lengths(matches.size(), 0);
    QVector<int> previous(matches.size(), -1);
    int last = -1;
    for (int i = 0; i < matches.size(); ++i) {
        if (matches.at(i) < 0)
            continue;
        lengths[i] = 1;
        for (int j = 0; j < i; ++j) {
            const bool isAhead = matches.at(j) >= 0 && matches.at(j) < matches.at(i);
            if (isAhead && lengths.at(j) + 1 > lengths.at(i)) {
                lengths[i] = lengths.at(j) + 1;
                previous[i] = j;
            }
        }
        if (last < 0 || lengths.at(i) > lengths.at(last))
            last = i;
    }
    QVector<bool> result(matches.size(), false);
    for (; last >= 0; last = previous.at(last))
        result[last] = true;
    return result;
}

QString textOf(const DocumentNode& value)
{
    return value.kind == DocumentNode::Kind::Scalar ? value.value : yamlInline(value);
}

std::optional<QString> fieldOf(const DocumentNode& record, const QString& key)
{
    const DocumentNode::Member* member = record.member(key);
    return member ? std::optional<QString>(textOf(member->value)) : std::nullopt;
}

QVector<FieldChange> changesOf(
    Section section, const DocumentNode& before, const DocumentNode& after)
{
    QVector<FieldChange> changes;
    const QVector<Field>& fields = fieldsOf(section);
    for (const Field& field : fields) {
        const FieldChange change{field.key, fieldOf(before, field.key), fieldOf(after, field.key)};
        if (change.before != change.after)
            changes.append(change);
    }
    return changes;
}

class Comparison {
public:
    Comparison(const Contents& before, const Contents& after)
        : m_before(before)
        , m_after(after)
    {
    }

    Difference difference()
    {
        for (const Section section : listSections) {
            if (hasSection(m_before, section) && hasSection(m_after, section))
                compare(section);
            else if (hasSection(m_before, section) || hasSection(m_after, section))
                m_difference.notCompared.append(section);
        }
        return m_difference;
    }

private:
    void compare(Section section)
    {
        const std::vector<DocumentNode> before = comparedRecords(m_before, section);
        const std::vector<DocumentNode> after = comparedRecords(m_after, section);
        const QVector<int> matches = matchesOf(section, before, after);
        const bool isOrdered = section == Section::Triggers || section == Section::TimeTriggers;
        const QVector<bool> stays = isOrdered ? inOrder(matches) : QVector<bool>();
        for (int i = 0; i < matches.size(); ++i) {
            const int match = matches.at(i);
            RecordChange change;
            change.section = section;
            change.before = match;
            change.after = i;
            change.path = pathOf({section, i, {}}, m_after);
            change.fields = changesOf(section,
                match < 0 ? DocumentNode::mapping() : before[size_t(match)], after[size_t(i)]);
            change.isMoved = isOrdered && match >= 0 && !stays.at(i);
            change.kind = kindOf(change);
            if (match < 0 || change.isMoved || !change.fields.isEmpty())
                m_difference.changes.append(change);
        }
        for (int i = 0; i < static_cast<int>(before.size()); ++i) {
            if (!matches.contains(i))
                m_difference.changes.append(
                    {ChangeKind::Removed, section, i, -1, pathOf({section, i, {}}, m_before),
                        changesOf(section, before[size_t(i)], DocumentNode::mapping()), false});
        }
    }

    QVector<int> matchesOf(Section section, const std::vector<DocumentNode>& before,
        const std::vector<DocumentNode>& after) const
    {
        if (section == Section::Events)
            return matchesById(*m_before.events, *m_after.events);
        if (section == Section::Triggers || section == Section::TimeTriggers)
            return bestMatches(before, after);
        return matchesByPlace(static_cast<int>(before.size()), static_cast<int>(after.size()));
    }

    static ChangeKind kindOf(const RecordChange& change)
    {
        if (change.before < 0)
            return ChangeKind::Added;
        return change.fields.isEmpty() ? ChangeKind::Moved : ChangeKind::Changed;
    }

    const Contents& m_before;
    const Contents& m_after;
    Difference m_difference;
};

/** A value as a line shows it: what is free text is quoted. */
QString shownValue(Section section, const QString& key, const QString& value)
{
    const QVector<Field>& fields = fieldsOf(section);
    const bool isText = std::any_of(fields.begin(), fields.end(),
        [&key](const Field& field) { return field.key == key && field.type == FieldType::Text; });
    return isText ? jsonInline(DocumentNode::text(value)) : value;
}

/** A field of a record that is there on both sides, or else of one that is whole on one side. */
QString fieldLine(const RecordChange& change, const FieldChange& field)
{
    const auto shown = [&](const std::optional<QString>& value) {
        return value ? shownValue(change.section, field.field, *value) : Text::tr("none");
    };
    QString line = QStringLiteral("    ") + field.field + QStringLiteral(": ");
    if (change.kind != ChangeKind::Added)
        line += shown(field.before);
    if (change.kind == ChangeKind::Changed)
        line += QStringLiteral(" -> ");
    if (change.kind != ChangeKind::Removed)
        line += shown(field.after);
    return line + QLatin1Char('\n');
}

QString headOf(const RecordChange& change)
{
    switch (change.kind) {
    case ChangeKind::Added:
        return QStringLiteral("+ ") + change.path;
    case ChangeKind::Removed:
        return QStringLiteral("- ") + change.path;
    case ChangeKind::Changed:
    case ChangeKind::Moved:
        break;
    }
    const QString head = QStringLiteral("~ ") + change.path;
    return change.isMoved
        ? Text::tr("%1, moved from place %2 to %3").arg(head).arg(change.before).arg(change.after)
        : head;
}

QString kindWord(ChangeKind kind)
{
    switch (kind) {
    case ChangeKind::Changed:
        return QStringLiteral("changed");
    case ChangeKind::Added:
        return QStringLiteral("added");
    case ChangeKind::Removed:
        return QStringLiteral("removed");
    case ChangeKind::Moved:
        return QStringLiteral("moved");
    }
    Q_UNREACHABLE();
}

QJsonValue jsonOf(const std::optional<QString>& value)
{
    return value ? QJsonValue(*value) : QJsonValue(QJsonValue::Null);
}

QJsonObject jsonOf(const RecordChange& change)
{
    QJsonArray fields;
    for (const FieldChange& field : change.fields)
        fields.append(QJsonObject{{QStringLiteral("field"), field.field},
            {QStringLiteral("before"), jsonOf(field.before)},
            {QStringLiteral("after"), jsonOf(field.after)}});
    return {{QStringLiteral("change"), kindWord(change.kind)},
        {QStringLiteral("section"), sectionName(change.section)},
        {QStringLiteral("path"), change.path}, {QStringLiteral("moved"), change.isMoved},
        {QStringLiteral("before"), change.before}, {QStringLiteral("after"), change.after},
        {QStringLiteral("fields"), fields}};
}

std::optional<QString> textOfJson(const QJsonValue& value)
{
    return value.isString() ? std::make_optional(value.toString()) : std::nullopt;
}

Section sectionNamed(const QString& name)
{
    for (const Section section : {Section::Device, Section::SerialPorts, Section::IoLines,
             Section::Events, Section::Triggers, Section::TimeTriggers, Section::Clock}) {
        if (sectionName(section) == name)
            return section;
    }
    return Section::None;
}

ChangeKind kindNamed(const QString& word)
{
    for (const ChangeKind kind : {ChangeKind::Added, ChangeKind::Removed, ChangeKind::Moved}) {
        if (kindWord(kind) == word)
            return kind;
    }
    return ChangeKind::Changed;
}

RecordChange changeOfJson(const QJsonObject& json)
{
    RecordChange change;
    change.kind = kindNamed(json.value(QStringLiteral("change")).toString());
    change.section = sectionNamed(json.value(QStringLiteral("section")).toString());
    change.path = json.value(QStringLiteral("path")).toString();
    change.isMoved = json.value(QStringLiteral("moved")).toBool();
    change.before = json.value(QStringLiteral("before")).toInt(-1);
    change.after = json.value(QStringLiteral("after")).toInt(-1);
    const QJsonArray fields = json.value(QStringLiteral("fields")).toArray();
    for (const QJsonValue& field : fields)
        change.fields.append({field.toObject().value(QStringLiteral("field")).toString(),
            textOfJson(field.toObject().value(QStringLiteral("before"))),
            textOfJson(field.toObject().value(QStringLiteral("after")))});
    return change;
}

} // namespace

bool Difference::concerns(Section section) const
{
    return std::any_of(changes.begin(), changes.end(),
        [section](const RecordChange& change) { return change.section == section; });
}

int Difference::count(Section section, ChangeKind kind) const
{
    return static_cast<int>(
        std::count_if(changes.begin(), changes.end(), [section, kind](const RecordChange& change) {
            return change.section == section && change.kind == kind;
        }));
}

Difference compareContents(const Contents& before, const Contents& after)
{
    return Comparison(before, after).difference();
}

QString differenceText(const Difference& difference)
{
    QString text;
    for (const RecordChange& change : difference.changes) {
        text += headOf(change) + QLatin1Char('\n');
        for (const FieldChange& field : change.fields)
            text += fieldLine(change, field);
    }
    return text;
}

QJsonObject differenceJson(const Difference& difference)
{
    QJsonArray changes;
    for (const RecordChange& change : difference.changes)
        changes.append(jsonOf(change));
    QJsonArray notCompared;
    for (const Section section : difference.notCompared)
        notCompared.append(sectionName(section));
    return {{QStringLiteral("same"), difference.isEmpty()}, {QStringLiteral("changes"), changes},
        {QStringLiteral("notCompared"), notCompared}};
}

Difference differenceOfJson(const QJsonObject& json)
{
    Difference difference;
    const QJsonArray changes = json.value(QStringLiteral("changes")).toArray();
    for (const QJsonValue& change : changes)
        difference.changes.append(changeOfJson(change.toObject()));
    const QJsonArray notCompared = json.value(QStringLiteral("notCompared")).toArray();
    for (const QJsonValue& name : notCompared)
        difference.notCompared.append(sectionNamed(name.toString()));
    return difference;
}

} // namespace QuadrelDocument
