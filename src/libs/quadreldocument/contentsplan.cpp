// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "contentsplan.h"

#include "contentscheck.h"
#include "contentstree.h"
#include "documenttext.h"
#include "projectdocument.h"
#include "recordmatch.h"

#include <algorithm>

namespace QuadrelDocument {

namespace {

constexpr Table allTables[] = {Table::Config, Table::Events, Table::Triggers};

Table tableOf(Section section)
{
    switch (section) {
    case Section::Events:
        return Table::Events;
    case Section::Triggers:
    case Section::TimeTriggers:
        return Table::Triggers;
    default:
        return Table::Config;
    }
}

/** Readers of a unit count from 0. */
template <typename Records> void number(std::optional<Records>& records)
{
    for (int i = 0; records && i < records->size(); ++i)
        (*records)[i].id = i;
}

/** Takes one section over if there is one. */
template <typename Records>
void replace(std::optional<Records>& target, const std::optional<Records>& wanted)
{
    if (wanted)
        target = wanted;
}

class Planner {
public:
    Planner(const Contents& wanted, const Contents& held, const PlanOptions& options,
        const Positions& positions)
        : m_given(wanted)
        , m_wanted(options.fromProject ? carryOver(wanted, held) : wanted)
        , m_held(held)
        , m_options(options)
        , m_positions(positions)
    {
    }

    Plan plan()
    {
        m_plan.result = m_held;
        for (const Table table : allTables) {
            if (isChosen(table))
                takeTable(table);
        }
        number(m_plan.result.triggers);
        number(m_plan.result.timeTriggers);
        m_plan.difference = compareContents(m_held, m_plan.result);
        for (const Table table : allTables) {
            const QVector<Section> sections = sectionsOf(table);
            const auto isConcerned = [this](Section section) {
                return m_plan.difference.concerns(section);
            };
            if (std::any_of(sections.begin(), sections.end(), isConcerned))
                m_plan.tables.append(table);
        }
        refuseOtherUnit();
        addChecks();
        if (m_options.fromProject)
            warnOfKeptTriggers();
        return m_plan;
    }

private:
    /** Whether the table is to be written; one that is asked for must be there. */
    bool isChosen(Table table)
    {
        const QVector<Section> sections = sectionsOf(table);
        const auto isTold = [this](Section section) { return hasSection(m_wanted, section); };
        const bool isThere = std::any_of(sections.begin(), sections.end(), isTold);
        const bool isNamed = m_options.only.contains(table);
        if (isNamed && !isThere)
            report(Severity::Error, {sections.first(), -1, {}},
                Text::tr("this section is missing, and it was asked for"));
        return isThere && (isNamed || m_options.only.isEmpty());
    }

    void takeTable(Table table)
    {
        Contents& result = m_plan.result;
        switch (table) {
        case Table::Config:
            replace(result.serialPorts, m_wanted.serialPorts);
            replace(result.ioLines, m_wanted.ioLines);
            break;
        case Table::Events:
            replace(result.events, m_wanted.events);
            break;
        case Table::Triggers:
            replace(result.triggers, m_wanted.triggers);
            replace(result.timeTriggers, m_wanted.timeTriggers);
            break;
        }
    }

    void report(Severity severity, const Place& place, const QString& text)
    {
        m_plan.findings.append(
            {severity, place, m_positions.of(place), pathOf(place, m_plan.result), text});
    }

    void refuseOtherUnit()
    {
        if (!m_given.device || !m_held.device || m_options.otherUnit)
            return;
        const Device& given = *m_given.device;
        const Device& held = *m_held.device;
        if (given.serialNumber != held.serialNumber)
            report(Severity::Error, {Section::Device, -1, QStringLiteral("serialNumber")},
                Text::tr("this is unit %1, and the unit to be written is %2; only its own "
                         "contents are allowed unless another unit's are asked for")
                    .arg(given.serialNumber)
                    .arg(held.serialNumber));
        else if (given.modelId != held.modelId)
            report(Severity::Error, {Section::Device, -1, QStringLiteral("modelId")},
                Text::tr("this is model %1, and the unit to be written is model %2; only its own "
                         "contents are allowed unless another unit's are asked for")
                    .arg(given.modelId)
                    .arg(held.modelId));
    }

    bool isWritten(const Finding& finding) const
    {
        return m_plan.tables.contains(tableOf(finding.place.section));
    }

    /** What is wrong with the result, less what was wrong before and is left as it was. */
    void addChecks()
    {
        const Findings before = checkContents(m_held);
        const Findings after = checkContents(m_plan.result, m_positions);
        for (Finding finding : after) {
            const bool isOld = std::any_of(before.begin(), before.end(),
                [&](const Finding& old) { return isSame(old, finding); });
            if (isUnknownLine(finding))
                finding.severity = Severity::Error;
            else if (isNoNews(finding, isOld))
                continue;
            else if (isOld && finding.isCarried)
                finding.severity = Severity::Warning;
            m_plan.findings.append(finding);
        }
    }

    /** Notes, what was wrong before in a table that is left alone, and warnings of before. */
    bool isNoNews(const Finding& finding, bool isOld) const
    {
        return finding.severity == Severity::Note
            || (isOld && (!isWritten(finding) || finding.severity == Severity::Warning));
    }

    /** The same fault of the same record, wherever the record is now. */
    bool isSame(const Finding& before, const Finding& after) const
    {
        const Section section = after.place.section;
        return before.place.section == section && before.place.field == after.place.field
            && before.text == after.text
            && (after.place.index < 0
                || comparedFields(m_held, section, before.place.index)
                    == comparedFields(m_plan.result, section, after.place.index));
    }

    bool isUnknownLine(const Finding& finding) const
    {
        return finding.place.section == Section::Triggers
            && finding.place.field == QLatin1String("line")
            && m_plan.result.triggers->at(finding.place.index).line == unknownLine;
    }

    /** Modbus triggers that the file once showed and does not show any more. */
    void warnOfKeptTriggers()
    {
        const auto isModbus = [](const Trigger& trigger) {
            return trigger.kind == TriggerKind::ComModbus;
        };
        const QVector<Trigger> given = m_given.triggers.value_or(QVector<Trigger>());
        const QVector<Trigger> result = m_plan.result.triggers.value_or(QVector<Trigger>());
        const auto shown = std::count_if(given.begin(), given.end(), isModbus);
        const auto kept = std::count_if(result.begin(), result.end(), isModbus);
        if (shown > 0 && kept > shown && m_plan.tables.contains(Table::Triggers))
            report(Severity::Warning, {Section::Triggers, -1, {}},
                Text::tr("the unit keeps %1 Modbus triggers, of which the project file shows %2; "
                         "it can't remove any")
                    .arg(kept)
                    .arg(shown));
    }

    const Contents m_given;
    const Contents m_wanted;
    const Contents& m_held;
    const PlanOptions& m_options;
    const Positions& m_positions;
    Plan m_plan;
};

/** The file's text, or the unit's where the file would show that just so. */
QString carriedText(const QString& text, const QString& held)
{
    return textInProject(held) == text ? held : text;
}

bool hasSameCommand(const Event& left, const Event& right)
{
    return left.command == right.command && left.delay == right.delay;
}

bool hasSameText(const Event& project, const Event& held)
{
    return project.description == textInProject(held.description);
}

class Carrier {
public:
    Carrier(const Contents& project, const Contents& held)
        : m_result(project)
        , m_held(held)
    {
    }

    Contents carry()
    {
        if (m_result.events && m_held.events)
            carryNames();
        if (m_result.triggers && m_held.triggers)
            carryTriggers();
        return m_result;
    }

private:
    void carryNames()
    {
        for (Event& event : *m_result.events) {
            if (const Event* held = counterpart(event)) {
                event.name = held->name;
                event.description = carriedText(event.description, held->description);
            }
        }
    }

    /** The unit's event with the id and some of the rest, or one that only lost its id. */
    const Event* counterpart(const Event& event) const
    {
        for (const Event& held : *m_held.events) {
            if (held.id == event.id)
                return hasSameCommand(event, held) || hasSameText(event, held) ? &held : nullptr;
        }
        const Event* found = nullptr;
        for (const Event& held : *m_held.events) {
            const bool isSame = hasSameCommand(event, held) && hasSameText(event, held);
            if (!isSame || isInProject(held.id))
                continue;
            if (found)
                return nullptr;
            found = &held;
        }
        return found;
    }

    bool isInProject(int id) const
    {
        return std::any_of(m_result.events->begin(), m_result.events->end(),
            [id](const Event& event) { return event.id == id; });
    }

    void carryTriggers()
    {
        // As the file would show the unit's triggers.
        Contents shown;
        shown.triggers = m_held.triggers;
        for (Trigger& trigger : *shown.triggers) {
            trigger.description = textInProject(trigger.description);
            if (trigger.kind == TriggerKind::ComModbus)
                trigger.line = unknownLine;
        }
        const QVector<int> matches = bestMatches(comparedRecords(shown, Section::Triggers),
            comparedRecords(m_result, Section::Triggers));
        QVector<int> places(m_held.triggers->size(), -1);
        for (int i = 0; i < matches.size(); ++i) {
            if (matches.at(i) < 0)
                continue;
            places[matches.at(i)] = i;
            const Trigger& held = m_held.triggers->at(matches.at(i));
            Trigger& trigger = (*m_result.triggers)[i];
            trigger.description = carriedText(trigger.description, held.description);
            if (trigger.line == unknownLine && held.kind == TriggerKind::ComModbus)
                trigger.line = held.line;
        }
        keepModbus(places);
    }

    /** Puts each Modbus trigger that the file does not show after the one that it followed. */
    void keepModbus(QVector<int> places)
    {
        int before = -1;
        for (int i = 0; i < places.size(); ++i) {
            const Trigger& held = m_held.triggers->at(i);
            if (places.at(i) < 0 && held.kind == TriggerKind::ComModbus) {
                m_result.triggers->insert(before + 1, held);
                for (int& place : places)
                    place += place > before ? 1 : 0;
                places[i] = before + 1;
            }
            if (places.at(i) >= 0)
                before = places.at(i);
        }
        number(m_result.triggers);
    }

    Contents m_result;
    const Contents& m_held;
};

} // namespace

QString tableName(Table table)
{
    switch (table) {
    case Table::Config:
        return QStringLiteral("config");
    case Table::Events:
        return QStringLiteral("events");
    case Table::Triggers:
        return QStringLiteral("triggers");
    }
    Q_UNREACHABLE();
}

QVector<Section> sectionsOf(Table table)
{
    switch (table) {
    case Table::Config:
        return {Section::SerialPorts, Section::IoLines};
    case Table::Events:
        return {Section::Events};
    case Table::Triggers:
        return {Section::Triggers, Section::TimeTriggers};
    }
    Q_UNREACHABLE();
}

Plan makePlan(const Contents& wanted, const Contents& held, const PlanOptions& options,
    const Positions& positions)
{
    return Planner(wanted, held, options, positions).plan();
}

Contents carryOver(const Contents& project, const Contents& held)
{
    return Carrier(project, held).carry();
}

} // namespace QuadrelDocument
