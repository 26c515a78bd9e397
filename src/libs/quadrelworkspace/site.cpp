#include "site.h"

#include "configreader.h"
#include "workspace.h"

#include <documenttree.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QHash>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>

#include <algorithm>
#include <limits>
#include <tuple>

namespace QuadrelWorkspace {

using QuadrelDocument::Node;
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

void readDefaults(ConfigReader& reader, const Node& defaults, Site& site)
{
    const QString timeout = QStringLiteral("timeout");
    const QString retries = QStringLiteral("retries");
    const QString jobs = QStringLiteral("jobs");
    reader.checkKeys(defaults, {timeout, retries, jobs});
    site.timeout = reader.number(defaults, timeout, 1, longestTime);
    site.retries = reader.number(defaults, retries, 0, mostRetries);
    site.jobs = static_cast<int>(reader.number(defaults, jobs, 1, mostJobs).value_or(site.jobs));
}

QStringList readTags(ConfigReader& reader, const Node& tags)
{
    QStringList names;
    if (tags.items.size() > mostTags)
        reader.addError(tags.position,
            Workspace::tr("more than %1 tags").arg(QString::number(mostTags)));
    for (const Node& item : tags.items) {
        const std::optional<QString> name = reader.textOf(item, QStringLiteral("tags"));
        if (name && !isName(*name))
            reader.addError(item.position, nameFault(*name));
        else if (name)
            names.append(*name);
    }
    return names;
}

/** A value that each unit needs. */
std::optional<QString> readNeeded(ConfigReader& reader, const Node& unit, const QString& key)
{
    if (!unit.member(key))
        reader.addError(
            unit.position, Workspace::tr("the unit has no %1").arg(shownText(key)));
    return reader.text(unit, key);
}

/** What is wrong with a unit is an error of the reader; then some of it is missing. */
SiteUnit readUnit(ConfigReader& reader, const Node& node)
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
    if (const Node* list = reader.child(node, tags, Node::Kind::Sequence))
        unit.tags = readTags(reader, *list);
    unit.document = reader.text(node, document).value_or(QString());
    return unit;
}

/** Names, addresses and serial numbers that are there already. */
class Doubles {
public:
    void check(ConfigReader& reader, const Node& node, const SiteUnit& unit)
    {
        check(reader, node, QStringLiteral("name"), unit.name);
        if (!unit.address.host.isEmpty())
            check(reader, node, QStringLiteral("address"), endpointOf(unit.address));
        if (unit.serialNumber != 0)
            check(reader, node, QStringLiteral("serial"), QString::number(unit.serialNumber));
    }

private:
    void check(ConfigReader& reader, const Node& node, const QString& key, const QString& value)
    {
        const Node::Member* member = node.member(key);
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

void readUnits(ConfigReader& reader, const Node& list, Site& site)
{
    if (list.items.size() > Site::mostUnits) {
        reader.addError(list.position,
            Workspace::tr("more than %1 units").arg(QString::number(Site::mostUnits)));
        return;
    }
    Doubles doubles;
    for (const Node& item : list.items) {
        if (item.kind != Node::Kind::Mapping) {
            reader.addError(item.position, Workspace::tr("a unit has to hold \"key: value\""));
            continue;
        }
        const SiteUnit unit = readUnit(reader, item);
        doubles.check(reader, item, unit);
        site.units.append(unit);
    }
}

const QString unitsKey = QStringLiteral("units");

Site siteOf(ConfigReader& reader, const Node& file)
{
    Site site;
    const QString defaults = QStringLiteral("defaults");
    reader.checkKeys(file, {defaults, unitsKey});
    if (const Node* mapping = reader.child(file, defaults, Node::Kind::Mapping))
        readDefaults(reader, *mapping, site);
    if (const Node* list = reader.child(file, unitsKey, Node::Kind::Sequence))
        readUnits(reader, *list, site);
    return site;
}

/** Whether a name is one of the patterns. */
bool matches(const QString& name, const QString& pattern)
{
    const QRegularExpression expression(
        QRegularExpression::wildcardToRegularExpression(pattern));
    return expression.match(name).hasMatch();
}

bool matchesAny(const QString& name, const QStringList& patterns)
{
    return std::any_of(patterns.begin(), patterns.end(),
        [&name](const QString& pattern) { return matches(name, pattern); });
}

bool hasAnyTag(const SiteUnit& unit, const QStringList& tags)
{
    return std::any_of(tags.begin(), tags.end(),
        [&unit](const QString& tag) { return unit.tags.contains(tag); });
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
    for (const QString& name : selection.names + selection.excluded) {
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
        && text.mid(lineStart(text, position), position - lineStart(text, position)).trimmed().isEmpty();
    return isDash ? std::make_optional(position) : std::nullopt;
}

Node nodeOf(const SiteUnit& unit)
{
    Node node = Node::mapping();
    node.add(QStringLiteral("name"), Node::text(unit.name));
    node.add(QStringLiteral("address"), Node::text(unit.address.toText()));
    if (unit.serialNumber != 0)
        node.add(QStringLiteral("serial"), Node::bare(QString::number(unit.serialNumber)));
    if (unit.modelId)
        node.add(QStringLiteral("model"),
            Node::bare(QStringLiteral("0x%1").arg(*unit.modelId, 4, 16, QLatin1Char('0'))));
    if (!unit.tags.isEmpty()) {
        Node tags = Node::sequence();
        for (const QString& tag : unit.tags)
            tags.items.push_back(Node::text(tag));
        node.add(QStringLiteral("tags"), tags);
    }
    if (!unit.document.isEmpty())
        node.add(QStringLiteral("document"), Node::text(unit.document));
    return node;
}
