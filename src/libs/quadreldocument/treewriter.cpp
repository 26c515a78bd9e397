// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "documenttree.h"

#include <QtCore/QStringList>

#include <algorithm>

namespace QuadrelDocument {

namespace {

constexpr int yamlIndentation = 2;
constexpr int jsonIndentation = 4;
constexpr int longestShownText = 40;

QString blanks(int count)
{
    return QString(count, QLatin1Char(' '));
}

/** Makes what follows appear in another order than it is in. */
bool isDirection(ushort unit)
{
    return unit == 0x200E || unit == 0x200F || (unit >= 0x202A && unit <= 0x202E)
        || (unit >= 0x2066 && unit <= 0x2069);
}

/** Whether every reader of YAML and every terminal takes the character as it is. */
bool isPlain(QChar character)
{
    const ushort unit = character.unicode();
    if (isDirection(unit))
        return false;
    return (unit >= 0x20 && unit <= 0x7E) || (unit >= 0xA0 && unit < 0x2028)
        || (unit > 0x2029 && unit < 0xD800)
        || (unit >= 0xE000 && unit <= 0xFFFD && unit != QChar::ByteOrderMark);
}

QString escape(QChar character)
{
    switch (character.unicode()) {
    case '"':
        return QStringLiteral("\\\"");
    case '\\':
        return QStringLiteral("\\\\");
    case '\n':
        return QStringLiteral("\\n");
    case '\r':
        return QStringLiteral("\\r");
    case '\t':
        return QStringLiteral("\\t");
    default:
        return QStringLiteral("\\u%1").arg(
            static_cast<uint>(character.unicode()), 4, 16, QLatin1Char('0'));
    }
}

/** The quotes and escapes are those of JSON, which YAML reads too. */
QString quoted(const QString& text)
{
    QString result(QLatin1Char('"'));
    for (int i = 0; i < text.size(); ++i) {
        const QChar character = text.at(i);
        const bool isPair =
            character.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        const bool isSpecial = character == QLatin1Char('"') || character == QLatin1Char('\\');
        if (isPair)
            result += text.midRef(i++, 2);
        else if (isPlain(character) && !isSpecial)
            result += character;
        else
            result += escape(character);
    }
    return result + QLatin1Char('"');
}

/** Values within brackets, as both forms write them. */
QString inlineText(const DocumentNode& node, bool isJson)
{
    QStringList parts;
    switch (node.kind) {
    case DocumentNode::Kind::Scalar:
        return node.isQuoted || (isJson && node.isWord) ? quoted(node.value) : node.value;
    case DocumentNode::Kind::Sequence:
        for (const DocumentNode& item : node.items)
            parts.append(inlineText(item, isJson));
        return QStringLiteral("[%1]").arg(parts.join(QStringLiteral(", ")));
    case DocumentNode::Kind::Mapping:
        for (const DocumentNode::Member& member : node.members)
            parts.append(QStringLiteral("%1: %2").arg(
                isJson ? quoted(member.key) : member.key, inlineText(member.value, isJson)));
        return QStringLiteral("{%1}").arg(parts.join(QStringLiteral(", ")));
    }
    Q_UNREACHABLE();
}

bool hasRecords(const DocumentNode& node)
{
    return std::any_of(node.items.begin(), node.items.end(),
        [](const DocumentNode& item) { return item.kind == DocumentNode::Kind::Mapping; });
}

/** What follows "key:". */
QString yamlValue(const DocumentNode& node, int indentation)
{
    const int inner = indentation + yamlIndentation;
    if (hasRecords(node))
        return QLatin1Char('\n') + yamlRecords(node, inner);
    if (node.kind == DocumentNode::Kind::Mapping && !node.members.empty())
        return QLatin1Char('\n') + yamlLines(node, inner);
    const QString comment =
        node.comment.isEmpty() ? QString() : QStringLiteral("  # ") + node.comment;
    return QLatin1Char(' ') + yamlInline(node) + comment;
}

} // namespace

QString yamlInline(const DocumentNode& value)
{
    return inlineText(value, false);
}

QString jsonInline(const DocumentNode& value)
{
    return inlineText(value, true);
}

QString shownText(const QString& text)
{
    const bool isLong = text.size() > longestShownText;
    return quoted(text.left(longestShownText)) + (isLong ? QStringLiteral("…") : QString());
}

QString yamlLines(const DocumentNode& mapping, int indentation)
{
    QStringList lines;
    for (const DocumentNode::Member& member : mapping.members)
        lines.append(blanks(indentation) + member.key + QLatin1Char(':')
            + yamlValue(member.value, indentation));
    return lines.join(QLatin1Char('\n'));
}

QString yamlRecords(const DocumentNode& sequence, int indentation)
{
    QStringList records;
    for (const DocumentNode& item : sequence.items) {
        const QString lines = yamlLines(item, indentation + yamlIndentation);
        records.append(
            blanks(indentation) + QStringLiteral("- ") + lines.mid(indentation + yamlIndentation));
    }
    return records.join(QLatin1Char('\n'));
}

QString jsonLines(const DocumentNode& node, int indentation)
{
    const bool isBroken =
        hasRecords(node) || (node.kind == DocumentNode::Kind::Mapping && !node.members.empty());
    if (!isBroken)
        return jsonInline(node);
    const int inner = indentation + jsonIndentation;
    QStringList lines;
    for (const DocumentNode& item : node.items)
        lines.append(blanks(inner) + jsonLines(item, inner));
    for (const DocumentNode::Member& member : node.members)
        lines.append(blanks(inner) + quoted(member.key) + QStringLiteral(": ")
            + jsonLines(member.value, inner));
    const bool isMapping = node.kind == DocumentNode::Kind::Mapping;
    return (isMapping ? QStringLiteral("{\n") : QStringLiteral("[\n"))
        + lines.join(QStringLiteral(",\n")) + QLatin1Char('\n') + blanks(indentation)
        + (isMapping ? QLatin1Char('}') : QLatin1Char(']'));
}

QByteArray yamlText(const DocumentNode& mapping)
{
    return (yamlLines(mapping, 0) + QLatin1Char('\n')).toUtf8();
}

QByteArray jsonText(const DocumentNode& value)
{
    return (jsonLines(value, 0) + QLatin1Char('\n')).toUtf8();
}

} // namespace QuadrelDocument
