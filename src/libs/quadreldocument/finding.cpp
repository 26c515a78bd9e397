// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "finding.h"

#include "documenttext.h"

#include <QtCore/QStringList>

#include <algorithm>
#include <tuple>

namespace QuadrelDocument {

namespace {

QString keyOf(const Place& place)
{
    return QString::number(static_cast<int>(place.section)) + QLatin1Char('/')
        + QString::number(place.index) + QLatin1Char('/') + place.field;
}

template <typename Records> QString shownId(const std::optional<Records>& records, int index)
{
    const bool isThere = records && index < records->size();
    return QString::number(isThere ? records->at(index).id : index);
}

/** What is in brackets for a record. */
QString shownNumber(const Place& place, const Contents& contents)
{
    switch (place.section) {
    case Section::Events:
        return shownId(contents.events, place.index);
    case Section::Triggers:
        return shownId(contents.triggers, place.index);
    case Section::TimeTriggers:
        return shownId(contents.timeTriggers, place.index);
    default:
        return QString::number(place.index + 1);
    }
}

QString severityText(Severity severity)
{
    switch (severity) {
    case Severity::Error:
        return {};
    case Severity::Warning:
        return Text::tr("warning: ");
    case Severity::Note:
        return Text::tr("note: ");
    }
    Q_UNREACHABLE();
}

} // namespace

QString sectionName(Section section)
{
    switch (section) {
    case Section::None:
        return {};
    case Section::Device:
        return QStringLiteral("device");
    case Section::SerialPorts:
        return QStringLiteral("serialPorts");
    case Section::IoLines:
        return QStringLiteral("ioLines");
    case Section::Events:
        return QStringLiteral("events");
    case Section::Triggers:
        return QStringLiteral("triggers");
    case Section::TimeTriggers:
        return QStringLiteral("timeTriggers");
    case Section::Clock:
        return QStringLiteral("clock");
    }
    Q_UNREACHABLE();
}

bool operator<(const Position& left, const Position& right)
{
    return std::tie(left.line, left.column) < std::tie(right.line, right.column);
}

bool operator==(const Position& left, const Position& right)
{
    return left.line == right.line && left.column == right.column;
}

void Positions::insert(const Place& place, Position position)
{
    m_positions.insert(keyOf(place), position);
}

Position Positions::of(const Place& place) const
{
    for (const Place& candidate :
        {place, Place{place.section, place.index, {}}, Place{place.section, -1, {}}}) {
        const auto found = m_positions.constFind(keyOf(candidate));
        if (found != m_positions.constEnd())
            return *found;
    }
    return {};
}

QString pathOf(const Place& place, const Contents& contents)
{
    QString path = sectionName(place.section);
    if (place.index >= 0)
        path += QStringLiteral("[%1]").arg(shownNumber(place, contents));
    if (!place.field.isEmpty())
        path += QLatin1Char('.') + place.field;
    return path;
}

bool hasErrors(const Findings& findings)
{
    return std::any_of(findings.begin(), findings.end(),
        [](const Finding& finding) { return finding.severity == Severity::Error; });
}

void sortByPosition(Findings& findings)
{
    std::stable_sort(findings.begin(), findings.end(),
        [](const Finding& left, const Finding& right) { return left.position < right.position; });
}

QString messageOf(const Finding& finding, const QString& file)
{
    QString where = file;
    if (!file.isEmpty() && finding.position.line > 0)
        where += QStringLiteral(":%1:%2").arg(finding.position.line).arg(finding.position.column);
    if (!where.isEmpty())
        where += QStringLiteral(": ");
    const QString path = finding.path.isEmpty() ? QString() : finding.path + QStringLiteral(": ");
    return where + severityText(finding.severity) + path + finding.text;
}

} // namespace QuadrelDocument
