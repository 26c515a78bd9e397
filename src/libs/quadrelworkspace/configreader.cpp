// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "configreader.h"

#include "workspace.h"

#include <finding.h>
#include <unitaddress.h>
#include <unitdocument.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSet>

#include <algorithm>

using namespace QuadrelWorkspace;
using QuadrelDocument::DocumentNode;
using QuadrelDocument::Position;
using QuadrelDocument::shownText;

namespace {

constexpr int maximalNameLength = 64;

bool isNameCharacter(QChar character)
{
    return character.isLetterOrNumber() || QStringLiteral("-_.").contains(character);
}

} // namespace

bool QuadrelWorkspace::isName(const QString& text)
{
    return !text.isEmpty() && text.size() <= maximalNameLength && !text.startsWith(QLatin1Char('-'))
        && !text.startsWith(QLatin1Char('.'))
        && std::all_of(text.begin(), text.end(), isNameCharacter);
}

QString QuadrelWorkspace::nameFault(const QString& text)
{
    return Workspace::tr("%1 is not a name; a name has 1 to %2 letters, digits, \"-\", \"_\" and "
                         "\".\", and does not begin with \"-\" or \".\"")
        .arg(shownText(text), QString::number(maximalNameLength));
}

QString QuadrelWorkspace::addressFault(const QString& text)
{
    return Workspace::tr("%1 is not an address; one is tcp://HOST:PORT or udp://HOST:PORT")
        .arg(shownText(text));
}

ConfigReader::ConfigReader(const QString& path)
    : m_path(path)
{
}

std::optional<QByteArray> ConfigReader::read()
{
    QFile file(m_path);
    const QFileInfo info(m_path);
    QString fault;
    if (info.exists() && !info.isFile())
        fault = Workspace::tr("not a regular file");
    else if (!file.open(QIODevice::ReadOnly))
        fault = file.errorString();
    if (!fault.isEmpty()) {
        addError({}, fault);
        return std::nullopt;
    }
    // One byte more than the reader of the text allows.
    return file.read(QuadrelDocument::maximumDocumentSize + 1);
}

std::optional<DocumentNode> ConfigReader::parse(const QByteArray& text)
{
    if (text.size() > QuadrelDocument::maximumDocumentSize) {
        addError({}, Workspace::tr("the file is larger than 4 MB"));
        return std::nullopt;
    }
    try {
        const DocumentNode node = QuadrelDocument::readYaml(text);
        if (node.isNull())
            return DocumentNode::mapping();
        if (node.kind == DocumentNode::Kind::Mapping)
            return node;
        addError(node.position, Workspace::tr("the file has to hold \"key: value\""));
    } catch (const QuadrelDocument::Refusal& refusal) {
        QuadrelDocument::PositionFinder finder(text);
        addError(finder.at(refusal.offset), refusal.text);
    }
    return std::nullopt;
}

void ConfigReader::checkKeys(const DocumentNode& mapping, const QStringList& known)
{
    checkOnce(mapping);
    for (const DocumentNode::Member& member : mapping.members) {
        if (!known.contains(member.key))
            addError(member.keyPosition,
                Workspace::tr("unknown key %1; known are %2")
                    .arg(shownText(member.key), known.join(QStringLiteral(", "))));
    }
}

void ConfigReader::checkOnce(const DocumentNode& mapping)
{
    QSet<QString> keys;
    for (const DocumentNode::Member& member : mapping.members) {
        if (keys.contains(member.key))
            addError(
                member.keyPosition, Workspace::tr("%1 is repeated").arg(shownText(member.key)));
        keys.insert(member.key);
    }
}

std::optional<quint64> ConfigReader::number(
    const DocumentNode& mapping, const QString& key, quint64 least, quint64 most)
{
    const DocumentNode::Member* member = mapping.member(key);
    if (!member)
        return std::nullopt;
    const DocumentNode& value = member->value;
    const bool isHex = value.value.startsWith(QStringLiteral("0x"), Qt::CaseInsensitive);
    bool isNumber = false;
    const quint64 number = value.value.toULongLong(&isNumber, isHex ? 16 : 10);
    const bool isPlain = value.kind == DocumentNode::Kind::Scalar && !value.isQuoted;
    if (isPlain && isNumber && number >= least && number <= most)
        return number;
    addError(value.position,
        Workspace::tr("%1 has to be a number from %2 to %3")
            .arg(shownText(key), QString::number(least), QString::number(most)));
    return std::nullopt;
}

std::optional<QString> ConfigReader::text(const DocumentNode& mapping, const QString& key)
{
    const DocumentNode::Member* member = mapping.member(key);
    return member ? textOf(member->value, key) : std::nullopt;
}

std::optional<QString> ConfigReader::word(
    const DocumentNode& mapping, const QString& key, const QStringList& allowed)
{
    const std::optional<QString> value = text(mapping, key);
    if (!value || allowed.contains(*value))
        return value;
    addError(mapping.member(key)->value.position,
        Workspace::tr("%1 is %2; allowed are %3")
            .arg(shownText(key), shownText(*value), allowed.join(QStringLiteral(", "))));
    return std::nullopt;
}

const DocumentNode* ConfigReader::child(
    const DocumentNode& mapping, const QString& key, DocumentNode::Kind kind)
{
    const DocumentNode::Member* member = mapping.member(key);
    if (!member || member->value.isNull())
        return nullptr;
    if (member->value.kind == kind)
        return &member->value;
    addError(member->value.position,
        kind == DocumentNode::Kind::Mapping
            ? Workspace::tr("%1 has to hold \"key: value\"").arg(shownText(key))
            : Workspace::tr("%1 has to hold a list, \"- value\"").arg(shownText(key)));
    return nullptr;
}

std::optional<QString> ConfigReader::textOf(const DocumentNode& value, const QString& name)
{
    if (value.kind == DocumentNode::Kind::Scalar && !value.isNull() && !value.value.isEmpty())
        return value.value;
    addError(value.position, Workspace::tr("%1 has to be a text").arg(shownText(name)));
    return std::nullopt;
}

void ConfigReader::addError(const Position& position, const QString& text)
{
    QuadrelDocument::Finding finding;
    finding.position = position;
    finding.text = text;
    m_errors.append(QuadrelDocument::messageOf(finding, m_path));
}
