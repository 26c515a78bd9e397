// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "site.h"

#include "configreader.h"
#include "workspace.h"

#include <documenttree.h>
#include <unitcontents.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QHash>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>

#include <algorithm>
#include <limits>
#include <tuple>

namespace QuadrelWorkspace {

using QuadrelDocument::DocumentNode;
using QuadrelDocument::shownText;

namespace {

constexpr int longestTime = 3600000;
constexpr int mostRetries = 100;
constexpr int mostJobs = 1000;
constexpr int mostTags = 100;

/** Host and port: one unit has one of each, whatever the protocol. */
QString endpointOf(const UnitAddress& address)
{
    return address.toText().toLower().section(QStringLiteral("://"), 1);
}

void readDefaults(ConfigReader& reader, const DocumentNode& defaults, Site& site)
{
    const QString timeout = QStringLiteral("timeout");
    const QString retries = QStringLiteral("retries");
    const QString jobs = QStringLiteral("jobs");
    reader.checkKeys(defaults, {timeout, retries, jobs});
    site.timeout = reader.number(defaults, timeout, 1, longestTime);
    site.retries = reader.number(defaults, retries, 0, mostRetries);
    site.jobs = static_cast<int>(reader.number(defaults, jobs, 1, mostJobs).value_or(site.jobs));
}

QStringList readTags(ConfigReader& reader, const DocumentNode& tags)
{
    QStringList names;
    if (tags.items.size() > mostTags)
        reader.addError(
            tags.position, Workspace::tr("more than %1 tags").arg(QString::number(mostTags)));
    for (const DocumentNode& item : tags.items) {
        const std::optional<QString> name = reader.textOf(item, QStringLiteral("tags"));
        if (name && !isName(*name))
            reader.addError(item.position, nameFault(*name));
        else if (name)
            names.append(*name);
    }
    return names;
}

/** A value that each unit needs. */
std::optional<QString> readNeeded(
    ConfigReader& reader, const DocumentNode& unit, const QString& key)
{
    if (!unit.member(key))
        reader.addError(unit.position, Workspace::tr("the unit has no %1").arg(shownText(key)));
    return reader.text(unit, key);
}

/** What is wrong with a unit is an error of the reader; then some of it is missing. */
SiteUnit readUnit(ConfigReader& reader, const DocumentNode& node)
{
    SiteUnit unit;
    const QString name = QStringLiteral("name");
    const QString address = QStringLiteral("address");
    const QString serial = QStringLiteral("serial");
    const QString model = QStringLiteral("model");
    const QString tags = QStringLiteral("tags");
    const QString document = QStringLiteral("document");
    reader.checkKeys(node, {name, address, serial, model, tags, document});

    unit.name = readNeeded(reader, node, name).value_or(QString());
    if (!unit.name.isEmpty() && !isName(unit.name))
        reader.addError(node.member(name)->value.position, nameFault(unit.name));
    if (const auto text = readNeeded(reader, node, address)) {
        if (const auto parsed = UnitAddress::fromText(*text))
            unit.address = *parsed;
        else
            reader.addError(node.member(address)->value.position, addressFault(*text));
    }
    unit.serialNumber =
        reader.number(node, serial, 1, std::numeric_limits<quint64>::max()).value_or(0);
    unit.modelId = reader.number(node, model, 0, std::numeric_limits<quint16>::max());
    if (const DocumentNode* list = reader.child(node, tags, DocumentNode::Kind::Sequence))
        unit.tags = readTags(reader, *list);
    unit.document = reader.text(node, document).value_or(QString());
    return unit;
}

/** Names, addresses and serial numbers that are there already. */
class Doubles {
public:
    void check(ConfigReader& reader, const DocumentNode& node, const SiteUnit& unit)
    {
        check(reader, node, QStringLiteral("name"), unit.name);
        if (!unit.address.host.isEmpty())
            check(reader, node, QStringLiteral("address"), endpointOf(unit.address));
        if (unit.serialNumber != 0)
            check(reader, node, QStringLiteral("serial"), QString::number(unit.serialNumber));
    }

private:
    void check(
        ConfigReader& reader, const DocumentNode& node, const QString& key, const QString& value)
    {
        const DocumentNode::Member* member = node.member(key);
        if (!member || value.isEmpty())
            return;
        const QString seen = key + QLatin1Char(' ') + value;
        if (m_seen.contains(seen))
            reader.addError(member->value.position,
                Workspace::tr("another unit has the %1 %2 too").arg(key, shownText(value)));
        m_seen.insert(seen);
    }

    QSet<QString> m_seen;
};

void readUnits(ConfigReader& reader, const DocumentNode& list, Site& site)
{
    if (list.items.size() > Site::mostUnits) {
        reader.addError(list.position,
            Workspace::tr("more than %1 units").arg(QString::number(Site::mostUnits)));
        return;
    }
    Doubles doubles;
    for (const DocumentNode& item : list.items) {
        if (item.kind != DocumentNode::Kind::Mapping) {
            reader.addError(item.position, Workspace::tr("a unit has to hold \"key: value\""));
            continue;
        }
        const SiteUnit unit = readUnit(reader, item);
        doubles.check(reader, item, unit);
        site.units.append(unit);
    }
}

const QString unitsKey = QStringLiteral("units");

Site siteOf(ConfigReader& reader, const DocumentNode& file)
{
    Site site;
    const QString defaults = QStringLiteral("defaults");
    reader.checkKeys(file, {defaults, unitsKey});
    if (const DocumentNode* mapping = reader.child(file, defaults, DocumentNode::Kind::Mapping))
        readDefaults(reader, *mapping, site);
    if (const DocumentNode* list = reader.child(file, unitsKey, DocumentNode::Kind::Sequence))
        readUnits(reader, *list, site);
    return site;
}

/** Whether a name is one of the patterns. */
bool matches(const QString& name, const QString& pattern)
{
    const QRegularExpression expression(QRegularExpression::wildcardToRegularExpression(pattern));
    return expression.match(name).hasMatch();
}

bool matchesAny(const QString& name, const QStringList& patterns)
{
    return std::any_of(patterns.begin(), patterns.end(),
        [&name](const QString& pattern) { return matches(name, pattern); });
}

bool hasAnyTag(const SiteUnit& unit, const QStringList& tags)
{
    return std::any_of(
        tags.begin(), tags.end(), [&unit](const QString& tag) { return unit.tags.contains(tag); });
}

/** A tag or a name in the selection that says nothing is most likely misspelt. */
QString selectionFault(const Site& site, const Selection& selection)
{
    const auto exists = [&site](const auto& isIt) {
        return std::any_of(site.units.begin(), site.units.end(), isIt);
    };
    for (const QString& tag : selection.tags) {
        if (!exists([&tag](const SiteUnit& unit) { return unit.tags.contains(tag); }))
            return Workspace::tr("no unit has the tag %1").arg(shownText(tag));
    }
    const QStringList names = selection.names + selection.excluded;
    for (const QString& name : names) {
        if (!exists([&name](const SiteUnit& unit) { return matches(unit.name, name); }))
            return Workspace::tr("no unit has the name %1").arg(shownText(name));
    }
    return QString();
}

// Changing the text: each change is a piece of it that is replaced.

struct Replacement {
    int start;
    int end;
    QByteArray text;
};

QByteArray replaced(const QByteArray& text, QVector<Replacement> replacements)
{
    std::stable_sort(replacements.begin(), replacements.end(),
        [](const Replacement& left, const Replacement& right) { return left.start < right.start; });
    QByteArray result;
    int position = 0;
    for (const Replacement& replacement : qAsConst(replacements)) {
        result += text.mid(position, replacement.start - position) + replacement.text;
        position = replacement.end;
    }
    return result + text.mid(position);
}

int lineStart(const QByteArray& text, int position)
{
    return text.lastIndexOf('\n', position - 1 - text.size()) + 1;
}

/** After the line feed, or the end of the text. */
int lineEnd(const QByteArray& text, int position)
{
    const int feed = text.indexOf('\n', position);
    return feed < 0 ? text.size() : feed + 1;
}

/** The dash ahead of an item of a list; nothing for a list in brackets. */
std::optional<int> dashOf(const QByteArray& text, int itemStart)
{
    int position = itemStart - 1;
    while (position >= 0 && QByteArray(" \t\r\n").contains(text.at(position)))
        --position;
    const bool isDash = position >= 0 && text.at(position) == '-'
        && text.mid(lineStart(text, position), position - lineStart(text, position))
               .trimmed()
               .isEmpty();
    return isDash ? std::make_optional(position) : std::nullopt;
}

/** Without quotes where nothing but a text can be meant. */
DocumentNode plainNode(const QString& text)
{
    static const QRegularExpression plain(QStringLiteral("^[A-Za-z][A-Za-z0-9._/-]*$"));
    static const QStringList words{QStringLiteral("true"), QStringLiteral("false"),
        QStringLiteral("null"), QStringLiteral("yes"), QStringLiteral("no"), QStringLiteral("on"),
        QStringLiteral("off"), QStringLiteral("y"), QStringLiteral("n")};
    const bool isPlain = plain.match(text).hasMatch() && !words.contains(text.toLower());
    return isPlain ? DocumentNode::bare(text) : DocumentNode::text(text);
}

DocumentNode nodeOf(const SiteUnit& unit)
{
    DocumentNode node = DocumentNode::mapping();
    node.add(QStringLiteral("name"), plainNode(unit.name));
    node.add(QStringLiteral("address"), DocumentNode::bare(unit.address.toText()));
    if (unit.serialNumber != 0)
        node.add(QStringLiteral("serial"), DocumentNode::bare(QString::number(unit.serialNumber)));
    if (unit.modelId)
        node.add(
            QStringLiteral("model"), DocumentNode::bare(QuadrelDocument::modelText(*unit.modelId)));
    if (!unit.tags.isEmpty()) {
        DocumentNode tags = DocumentNode::sequence();
        for (const QString& tag : unit.tags)
            tags.items.push_back(plainNode(tag));
        node.add(QStringLiteral("tags"), tags);
    }
    if (!unit.document.isEmpty())
        node.add(QStringLiteral("document"), plainNode(unit.document));
    return node;
}

/** As items of a list in lines of their own, the dash after `indentation` blanks. */
QByteArray itemLines(const QVector<SiteUnit>& units, int indentation)
{
    QString lines;
    for (const SiteUnit& unit : units) {
        const QString fields = QuadrelDocument::yamlLines(nodeOf(unit), indentation + 2);
        lines += QString(indentation, QLatin1Char(' ')) + QStringLiteral("- ")
            + fields.mid(indentation + 2) + QLatin1Char('\n');
    }
    return lines.toUtf8();
}

/** Whole lines for the place after the one with `position` in it. */
Replacement linesAfter(const QByteArray& text, int position, const QByteArray& lines)
{
    const int end = lineEnd(text, position);
    const bool needsFeed = end > 0 && text.at(end - 1) != '\n';
    return {end, end, (needsFeed ? "\n" : "") + lines};
}

QString byHand()
{
    return Workspace::tr("the list of units is not written line by line with \"- \"; change it "
                         "by hand");
}

/** A text that was read without errors, for changes in it. */
class SiteText {
public:
    explicit SiteText(const QByteArray& text)
        : m_text(text)
        , m_reader(unitsKey)
        , m_file(m_reader.parse(text).value_or(DocumentNode::mapping()))
    {
        const LoadedSite loaded = parseSite(text, Workspace::tr("inventory"));
        m_error = loaded.errors.value(0);
        m_units = loaded.site.units;
    }

    QString error() const { return m_error; }
    const QVector<SiteUnit>& units() const { return m_units; }
    const DocumentNode::Member* list() const { return m_file.member(unitsKey); }
    const DocumentNode& item(int index) const
    {
        return list()->value.items.at(static_cast<size_t>(index));
    }
    int indexOf(const QString& name) const
    {
        for (int i = 0; i < m_units.size(); ++i) {
            if (m_units.at(i).name == name)
                return i;
        }
        return -1;
    }

    /** The changed text, if it says what it should and nothing else. */
    EditedSite finish(
        const QVector<Replacement>& replacements, const QVector<SiteUnit>& units) const
    {
        EditedSite edited{replaced(m_text, replacements), QString()};
        const LoadedSite loaded = parseSite(edited.text, Workspace::tr("inventory"));
        if (!loaded.errors.isEmpty())
            return {QByteArray(), loaded.errors.first()};
        return loaded.site.units == units ? edited : EditedSite{QByteArray(), byHand()};
    }

private:
    const QByteArray m_text;
    ConfigReader m_reader;
    const DocumentNode m_file;
    QString m_error;
    QVector<SiteUnit> m_units;
};

/** After "units:", which may say "[]" or "~" and have a comment. */
std::optional<Replacement> intoEmptyList(
    const QByteArray& text, int keyStart, const QByteArray& lines)
{
    static const QRegularExpression list(QStringLiteral(
        "^(units[ \\t]*:)(?:[ \\t]*(?:\\[[ \\t]*\\]|~|null))?([ \\t]*(?:#.*)?)\\R?$"));
    const int end = lineEnd(text, keyStart);
    const QRegularExpressionMatch match =
        list.match(QString::fromUtf8(text.mid(keyStart, end - keyStart)));
    if (!match.hasMatch())
        return std::nullopt;
    const QString line = match.captured(1) + match.captured(2) + QLatin1Char('\n');
    return Replacement{keyStart, end, line.toUtf8() + lines};
}

/** How to put lines at the end of the list of units. */
std::optional<Replacement> appended(
    const SiteText& site, const QByteArray& text, const QVector<SiteUnit>& units)
{
    const DocumentNode::Member* list = site.list();
    if (!list) {
        const bool isInBraces = text.trimmed().startsWith('{');
        const QByteArray feed = text.isEmpty() || text.endsWith('\n') ? "" : "\n";
        const Replacement whole{text.size(), text.size(), feed + "units:\n" + itemLines(units, 2)};
        return isInBraces ? std::nullopt : std::make_optional(whole);
    }
    if (list->value.items.empty())
        return intoEmptyList(text, list->keyStart, itemLines(units, 2));
    const DocumentNode& last = list->value.items.back();
    const std::optional<int> dash = dashOf(text, last.start);
    if (!dash)
        return std::nullopt;
    return linesAfter(text, last.end - 1, itemLines(units, *dash - lineStart(text, *dash)));
}

QString newName(const FoundUnit& unit, const Site& site)
{
    const QString name = QStringLiteral("unit-%1").arg(unit.serialNumber);
    QString candidate = name;
    for (int i = 2; site.unit(candidate); ++i)
        candidate = QStringLiteral("%1-%2").arg(name, QString::number(i));
    return candidate;
}

} // namespace

bool operator==(const SiteUnit& left, const SiteUnit& right)
{
    const auto fieldsOf = [](const SiteUnit& unit) {
        return std::make_tuple(unit.name, unit.address.toText(), unit.serialNumber, unit.modelId,
            unit.tags, unit.document);
    };
    return fieldsOf(left) == fieldsOf(right);
}

const SiteUnit* Site::unit(const QString& name) const
{
    const auto found = std::find_if(
        units.begin(), units.end(), [&name](const SiteUnit& unit) { return unit.name == name; });
    return found == units.end() ? nullptr : &*found;
}

QString Site::documentPath(const SiteUnit& unit) const
{
    return unit.document.isEmpty() ? QString() : QDir(folder).filePath(unit.document);
}

LoadedSite parseSite(const QByteArray& text, const QString& path)
{
    ConfigReader reader(path);
    LoadedSite loaded;
    loaded.text = text;
    if (const auto file = reader.parse(text))
        loaded.site = siteOf(reader, *file);
    loaded.site.folder = QFileInfo(path).absolutePath();
    loaded.errors = reader.errors();
    return loaded;
}

LoadedSite loadSite(const QString& path)
{
    ConfigReader reader(path);
    const std::optional<QByteArray> text = reader.read();
    if (text)
        return parseSite(*text, path);
    return {Site(), QByteArray(), reader.errors()};
}

std::optional<QVector<SiteUnit>> selectUnits(
    const Site& site, const Selection& selection, QString& error)
{
    if (site.units.isEmpty()) {
        error = Workspace::tr("the inventory has no units");
        return std::nullopt;
    }
    const QString fault = selectionFault(site, selection);
    if (!fault.isEmpty()) {
        error = fault;
        return std::nullopt;
    }
    QVector<SiteUnit> selected;
    for (const SiteUnit& unit : site.units) {
        const bool isTagged = selection.tags.isEmpty() || hasAnyTag(unit, selection.tags);
        const bool isNamed = selection.names.isEmpty() || matchesAny(unit.name, selection.names);
        if (isTagged && isNamed && !matchesAny(unit.name, selection.excluded))
            selected.append(unit);
    }
    if (!selected.isEmpty())
        return selected;
    error = Workspace::tr("no unit is selected");
    return std::nullopt;
}

EditedSite addUnits(const QByteArray& text, const QVector<SiteUnit>& units)
{
    const SiteText site(text);
    if (!site.error().isEmpty())
        return {QByteArray(), site.error()};
    const auto lines = appended(site, text, units);
    return lines ? site.finish({*lines}, site.units() + units) : EditedSite{QByteArray(), byHand()};
}

EditedSite removeUnits(const QByteArray& text, const QStringList& names)
{
    const SiteText site(text);
    if (!site.error().isEmpty())
        return {QByteArray(), site.error()};
    QVector<Replacement> removals;
    QVector<SiteUnit> rest = site.units();
    for (const QString& name : names) {
        const int index = site.indexOf(name);
        if (index < 0)
            return {QByteArray(), Workspace::tr("no unit has the name %1").arg(shownText(name))};
        const DocumentNode& item = site.item(index);
        const std::optional<int> dash = dashOf(text, item.start);
        if (!dash)
            return {QByteArray(), byHand()};
        removals.append({lineStart(text, *dash), lineEnd(text, item.end - 1), QByteArray()});
        rest.removeOne(site.units().at(index));
    }
    return site.finish(removals, rest);
}

EditedSite setAddresses(const QByteArray& text, const QMap<QString, UnitAddress>& addresses)
{
    const SiteText site(text);
    if (!site.error().isEmpty())
        return {QByteArray(), site.error()};
    QVector<Replacement> replacements;
    QVector<SiteUnit> units = site.units();
    for (auto each = addresses.begin(); each != addresses.end(); ++each) {
        const int index = site.indexOf(each.key());
        if (index < 0)
            return {
                QByteArray(), Workspace::tr("no unit has the name %1").arg(shownText(each.key()))};
        const DocumentNode& old = site.item(index).member(QStringLiteral("address"))->value;
        replacements.append({old.start, old.end, each.value().toText().toUtf8()});
        units[index].address = each.value();
    }
    return site.finish(replacements, units);
}

SiteChanges compareFound(const Site& site, const QVector<FoundUnit>& found)
{
    QHash<quint64, int> bySerial;
    QHash<QString, int> byEndpoint;
    for (int i = 0; i < site.units.size(); ++i) {
        if (site.units.at(i).serialNumber != 0)
            bySerial.insert(site.units.at(i).serialNumber, i);
        byEndpoint.insert(endpointOf(site.units.at(i).address), i);
    }

    SiteChanges changes;
    QSet<int> seen;
    Site grown = site;
    for (const FoundUnit& unit : found) {
        const int listed = bySerial.value(unit.serialNumber, -1);
        const int there = byEndpoint.value(endpointOf(unit.address), -1);
        if (listed >= 0) {
            const SiteUnit& known = site.units.at(listed);
            seen.insert(listed);
            UnitAddress address = unit.address;
            address.protocol = known.address.protocol;
            if (listed != there)
                changes.moved.append({known.name, known.address, address});
        } else if (there >= 0 && site.units.at(there).serialNumber == 0) {
            seen.insert(there);
        } else if (there >= 0) {
            const SiteUnit& known = site.units.at(there);
            changes.replaced.append(
                {known.name, known.address, known.serialNumber, unit.serialNumber});
        } else {
            SiteUnit added;
            added.name = newName(unit, grown);
            added.address = unit.address;
            added.serialNumber = unit.serialNumber;
            added.modelId = unit.modelId;
            grown.units.append(added);
            changes.added.append(added);
        }
    }
    for (int i = 0; i < site.units.size(); ++i) {
        if (!seen.contains(i))
            changes.vanished.append(site.units.at(i).name);
    }
    return changes;
}

EditedSite applyChanges(const QByteArray& text, const SiteChanges& changes)
{
    QMap<QString, UnitAddress> addresses;
    for (const MovedUnit& moved : changes.moved)
        addresses.insert(moved.name, moved.after);
    const EditedSite edited = setAddresses(text, addresses);
    return edited.error.isEmpty() && !changes.added.isEmpty() ? addUnits(edited.text, changes.added)
                                                              : edited;
}

} // namespace QuadrelWorkspace
