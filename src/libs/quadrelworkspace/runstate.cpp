// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "runstate.h"

#include "configreader.h"
#include "singleline.h"
#include "workspace.h"

#include <documenttree.h>
#include <unitdocument.h>

#include <algorithm>

namespace QuadrelWorkspace {

using QuadrelDocument::DocumentNode;

namespace {

const QString formatKey = QStringLiteral("format");
const QString format = QStringLiteral("quadrel-run/1");
const QString commandKey = QStringLiteral("command");
const QString begunKey = QStringLiteral("begun");
const QString unitsKey = QStringLiteral("units");
const QString nameKey = QStringLiteral("name");
const QString stateKey = QStringLiteral("state");
const QString reasonKey = QStringLiteral("reason");
const QString versionKey = QStringLiteral("version");

/** In the order of UnitState. */
const QStringList stateWords{QStringLiteral("waiting"), QStringLiteral("at work"),
    QStringLiteral("done"), QStringLiteral("failed")};

DocumentNode nodeOf(const UnitRunState& unit)
{
    DocumentNode node = DocumentNode::mapping();
    node.add(nameKey, DocumentNode::text(unit.name));
    node.add(stateKey, DocumentNode::bare(stateWord(unit.state)));
    if (!unit.reason.isEmpty())
        node.add(reasonKey, DocumentNode::text(unit.reason));
    if (!unit.version.isEmpty())
        node.add(versionKey, DocumentNode::text(unit.version));
    return node;
}

UnitRunState readUnit(ConfigReader& reader, const DocumentNode& node)
{
    reader.checkKeys(node, {nameKey, stateKey, reasonKey, versionKey});
    UnitRunState unit;
    unit.name = reader.text(node, nameKey).value_or(QString());
    if (!isName(unit.name))
        reader.addError(node.position, nameFault(unit.name));
    const QString state = reader.word(node, stateKey, stateWords).value_or(stateWords.first());
    unit.state = static_cast<UnitState>(stateWords.indexOf(state));
    unit.reason = singleLine(reader.text(node, reasonKey).value_or(QString()));
    unit.version = singleLine(reader.text(node, versionKey).value_or(QString()));
    return unit;
}

RunState stateOf(ConfigReader& reader, const DocumentNode& file)
{
    RunState state;
    reader.checkKeys(file, {formatKey, commandKey, begunKey, unitsKey});
    if (!file.member(formatKey))
        reader.addError(
            file.position, Workspace::tr("this is not the state of a run: \"format\" is missing"));
    reader.word(file, formatKey, {format});
    state.command = singleLine(reader.text(file, commandKey).value_or(QString()));
    state.begun =
        QDateTime::fromString(reader.text(file, begunKey).value_or(QString()), Qt::ISODate);
    const DocumentNode* units = reader.child(file, unitsKey, DocumentNode::Kind::Sequence);
    for (const DocumentNode& unit : units ? units->items : std::vector<DocumentNode>())
        state.units.append(readUnit(reader, unit));
    return state;
}

template <typename Units> auto find(Units& units, const QString& name)
{
    return std::find_if(units.begin(), units.end(),
        [&name](const UnitRunState& unit) { return unit.name == name; });
}

} // namespace

QString stateWord(UnitState state)
{
    return stateWords.at(static_cast<int>(state));
}

void RunState::set(const QString& name, UnitState state, const QString& reason)
{
    const auto place = find(units, name);
    if (place == units.end())
        return;
    place->state = state;
    place->reason = singleLine(reason);
}

void RunState::setVersion(const QString& name, const QString& version)
{
    const auto place = find(units, name);
    if (place != units.end())
        place->version = singleLine(version);
}

const UnitRunState* RunState::unit(const QString& name) const
{
    const auto place = find(units, name);
    return place == units.end() ? nullptr : &*place;
}

QStringList RunState::namesIn(UnitState state) const
{
    QStringList names;
    for (const UnitRunState& unit : units) {
        if (unit.state == state)
            names.append(unit.name);
    }
    return names;
}

bool RunState::isOver() const
{
    return namesIn(UnitState::Done).size() == units.size();
}

QString saveRunState(const QString& path, const RunState& state)
{
    DocumentNode file = DocumentNode::mapping();
    file.add(formatKey, DocumentNode::bare(format));
    // What is not known is left out: an empty value could not be read again.
    const QString command = singleLine(state.command);
    if (!command.isEmpty())
        file.add(commandKey, DocumentNode::text(command));
    const QString begun = state.begun.toUTC().toString(Qt::ISODate);
    if (!begun.isEmpty())
        file.add(begunKey, DocumentNode::bare(begun));
    DocumentNode units = DocumentNode::sequence();
    for (const UnitRunState& unit : state.units)
        units.items.push_back(nodeOf(unit));
    file.add(unitsKey, units);
    return QuadrelDocument::saveText(path, QuadrelDocument::yamlText(file));
}

LoadedRunState loadRunState(const QString& path)
{
    ConfigReader reader(path);
    LoadedRunState loaded;
    const std::optional<QByteArray> text = reader.read();
    if (const auto file = text ? reader.parse(*text) : std::nullopt)
        loaded.state = stateOf(reader, *file);
    loaded.errors = reader.errors();
    return loaded;
}

} // namespace QuadrelWorkspace
