// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "sections.h"

#include <contentsplan.h>
#include <finding.h>

#include <QtCore/QVector>

#include <algorithm>

using namespace QuadrelDocument;

namespace {

const QVector<Section> storedSections{Section::SerialPorts, Section::IoLines, Section::Events,
    Section::Triggers, Section::TimeTriggers};

QVector<Section> sectionsNamed(const QString& name)
{
    if (name == tableName(Table::Config))
        return sectionsOf(Table::Config);
    for (const Section section : storedSections) {
        if (sectionName(section) == name)
            return {section};
    }
    return {};
}

bool holds(const Contents& contents, Section section)
{
    switch (section) {
    case Section::SerialPorts:
        return contents.serialPorts.has_value();
    case Section::IoLines:
        return contents.ioLines.has_value();
    case Section::Events:
        return contents.events.has_value();
    case Section::Triggers:
        return contents.triggers.has_value();
    case Section::TimeTriggers:
        return contents.timeTriggers.has_value();
    default:
        return false;
    }
}

} // namespace

QStringList sectionNames()
{
    QStringList names{tableName(Table::Config)};
    for (const Section section : storedSections)
        names.append(sectionName(section));
    return names;
}

Contents onlySections(const Contents& contents, const QStringList& names)
{
    if (names.isEmpty())
        return contents;
    QVector<Section> kept;
    for (const QString& name : names)
        kept += sectionsNamed(name);
    Contents result = contents;
    if (!kept.contains(Section::SerialPorts))
        result.serialPorts.reset();
    if (!kept.contains(Section::IoLines))
        result.ioLines.reset();
    if (!kept.contains(Section::Events))
        result.events.reset();
    if (!kept.contains(Section::Triggers))
        result.triggers.reset();
    if (!kept.contains(Section::TimeTriggers))
        result.timeTriggers.reset();
    return result;
}

QStringList missingSections(const Contents& contents, const QStringList& names)
{
    QStringList missing;
    for (const QString& name : names) {
        const QVector<Section> sections = sectionsNamed(name);
        if (std::none_of(sections.begin(), sections.end(),
                [&contents](Section section) { return holds(contents, section); }))
            missing.append(name);
    }
    return missing;
}
