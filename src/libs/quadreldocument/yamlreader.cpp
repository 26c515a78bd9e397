// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "documenttext.h"
#include "documenttree.h"
#include "unitdocument.h"

#include <yaml-cpp/eventhandler.h>
#include <yaml-cpp/exceptions.h>
#include <yaml-cpp/parser.h>

#include <algorithm>
#include <sstream>

namespace QuadrelDocument {

namespace {

/** Makes the tree of what the parser meets, and ends the parsing where a document must not go on.
 */
class TreeBuilder : public YAML::EventHandler {
public:
    explicit TreeBuilder(const QByteArray& text)
        : m_finder(text)
    {
    }

    bool hasDocument() const { return m_documents > 0; }
    DocumentNode takeRoot() { return std::move(m_root); }

    void OnDocumentStart(const YAML::Mark& mark) override
    {
        if (++m_documents > 1)
            throw Refusal{mark.pos, Text::tr("nothing may follow the document")};
    }
    void OnDocumentEnd() override { }

    void OnNull(const YAML::Mark& mark, YAML::anchor_t anchor) override
    {
        refuseDecoration(mark, "?", anchor);
        put(nodeAt(mark));
    }

    void OnAlias(const YAML::Mark& mark, YAML::anchor_t) override
    {
        throw Refusal{mark.pos, Text::tr("aliases have no place in a unit document")};
    }

    void OnScalar(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
        const std::string& value) override
    {
        refuseDecoration(mark, tag, anchor);
        DocumentNode node = nodeAt(mark);
        node.value = textOfUtf8(value.data(), static_cast<int>(value.size()));
        node.isQuoted = tag == "!";
        put(std::move(node));
    }

    void OnSequenceStart(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
        YAML::EmitterStyle::value) override
    {
        open(mark, tag, anchor, DocumentNode::Kind::Sequence);
    }
    void OnSequenceEnd() override { close(); }

    void OnMapStart(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
        YAML::EmitterStyle::value) override
    {
        open(mark, tag, anchor, DocumentNode::Kind::Mapping);
    }
    void OnMapEnd() override { close(); }

private:
    /** A collection that is not at its end, and the key that waits for a value. */
    struct Level {
        DocumentNode node;
        bool hasKey = false;
        DocumentNode key;
    };

    static void refuseDecoration(
        const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor)
    {
        if (anchor != 0)
            throw Refusal{mark.pos, Text::tr("anchors have no place in a unit document")};
        if (tag != "?" && tag != "!" && !tag.empty())
            throw Refusal{mark.pos, Text::tr("tags have no place in a unit document")};
    }

    DocumentNode nodeAt(const YAML::Mark& mark)
    {
        if (++m_nodes > maximumNodes)
            throw Refusal{mark.pos, Text::tr("more than %1 values").arg(maximumNodes)};
        DocumentNode node;
        node.start = mark.pos;
        node.end = mark.pos;
        node.position = m_finder.at(mark.pos);
        return node;
    }

    void open(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
        DocumentNode::Kind kind)
    {
        refuseDecoration(mark, tag, anchor);
        if (m_levels.size() >= maximumDocumentDepth)
            throw Refusal{mark.pos,
                Text::tr("more than %1 levels; a unit needs 4").arg(maximumDocumentDepth)};
        Level level;
        level.node = nodeAt(mark);
        level.node.kind = kind;
        m_levels.push_back(std::move(level));
    }

    void close()
    {
        DocumentNode node = std::move(m_levels.back().node);
        m_levels.pop_back();
        put(std::move(node));
    }

    void put(DocumentNode node)
    {
        if (m_levels.empty()) {
            m_root = std::move(node);
            return;
        }
        Level& level = m_levels.back();
        if (level.node.kind == DocumentNode::Kind::Sequence) {
            level.node.items.push_back(std::move(node));
        } else if (!level.hasKey) {
            if (node.kind != DocumentNode::Kind::Scalar)
                throw Refusal{node.start, Text::tr("a key is a single word")};
            level.key = std::move(node);
            level.hasKey = true;
        } else {
            level.node.members.push_back(
                {level.key.value, level.key.start, level.key.position, std::move(node)});
            level.hasKey = false;
        }
    }

    PositionFinder m_finder;
    DocumentNode m_root;
    std::vector<Level> m_levels;
    int m_documents = 0;
    int m_nodes = 0;
};

/** Finds where values end, of which the parser says nothing; throws Refusal at open texts. */
class EndFinder {
public:
    explicit EndFinder(const QByteArray& text)
        : m_text(text)
    {
    }

    void setEnds(DocumentNode& node) const
    {
        if (node.kind == DocumentNode::Kind::Scalar) {
            node.end = endOfScalar(node);
            return;
        }
        int last = node.start + (isFlow(node) ? 1 : 0);
        for (DocumentNode& item : node.items) {
            setEnds(item);
            last = qMax(last, item.end);
        }
        for (DocumentNode::Member& member : node.members) {
            if (isMissing(member.value))
                member.value.start = afterColon(member.keyStart, member.value.start);
            setEnds(member.value);
            last = qMax(last, member.value.end);
        }
        node.end = isFlow(node) ? endOfFlow(last) : last;
    }

private:
    char at(int offset) const { return offset < m_text.size() ? m_text.at(offset) : '\0'; }
    static bool isBlank(char byte) { return byte == ' ' || byte == '\t'; }
    static bool isSpace(char byte) { return isBlank(byte) || byte == '\r' || byte == '\n'; }

    bool isFlow(const DocumentNode& node) const
    {
        return at(node.start) == '[' || at(node.start) == '{';
    }

    /** The parser says of nothing that it is where the next thing is. */
    static bool isMissing(const DocumentNode& node)
    {
        return node.kind == DocumentNode::Kind::Scalar && !node.isQuoted && node.value.isEmpty();
    }

    /** After the colon of a key, which is before `next`; `next` for a key without one. */
    int afterColon(int keyStart, int next) const
    {
        const auto end = m_text.begin() + qMin(next, m_text.size());
        const auto colon = std::find(m_text.begin() + qMin(keyStart, next), end, ':');
        return colon == end ? next : static_cast<int>(colon - m_text.begin()) + 1;
    }

    /** After the closing bracket that follows the last value. */
    int endOfFlow(int offset) const
    {
        while (offset < m_text.size() && at(offset) != ']' && at(offset) != '}')
            offset = at(offset) == '#' ? lineEnd(offset) : offset + 1;
        return qMin(offset + 1, m_text.size());
    }

    int nextLine(int offset) const
    {
        const int end = m_text.indexOf('\n', offset);
        return end < 0 ? m_text.size() : end + 1;
    }
    int lineEnd(int offset) const
    {
        int end = nextLine(offset);
        while (end > offset && (m_text.at(end - 1) == '\n' || m_text.at(end - 1) == '\r'))
            --end;
        return end;
    }

    int endOfScalar(const DocumentNode& node) const
    {
        switch (at(node.start)) {
        case '"':
            return endOfQuoted(node.start, '\\');
        case '\'':
            return endOfQuoted(node.start, '\'');
        case '|':
        case '>':
            return endOfBlock(node.start);
        default:
            return endOfPlain(node);
        }
    }

    /** `escape` takes the character after it for what it is. */
    int endOfQuoted(int start, char escape) const
    {
        const char quote = at(start);
        int offset = start + 1;
        for (; offset < m_text.size(); ++offset) {
            const bool isEscaped =
                at(offset) == escape && (escape != quote || at(offset + 1) == quote);
            if (isEscaped)
                ++offset;
            else if (at(offset) == quote)
                return offset + 1;
        }
        // The parser takes the end of the file for the quote.
        throw Refusal{start, Text::tr("the text that starts here has no closing quote")};
    }

    /** The lines of a text after | or > are those that are as far to the right as its first. */
    int endOfBlock(int start) const
    {
        int end = lineEnd(start);
        int indentation = -1;
        for (int line = nextLine(start); line < m_text.size(); line = nextLine(line)) {
            int first = line;
            while (at(first) == ' ')
                ++first;
            if (first >= lineEnd(line))
                continue;
            if (indentation < 0)
                indentation = first - line;
            if (first - line < indentation)
                break;
            end = lineEnd(line);
        }
        return end;
    }

    /** Blanks and line ends within a plain text come as one blank or as line feeds. */
    int endOfPlain(const DocumentNode& node) const
    {
        const QByteArray value = node.value.toUtf8();
        int offset = node.start;
        for (int i = 0; i < value.size(); ++i) {
            if (!isSpace(value.at(i))) {
                ++offset;
                continue;
            }
            while (isSpace(at(offset)))
                ++offset;
            while (i + 1 < value.size() && isSpace(value.at(i + 1)))
                ++i;
        }
        return qMin(offset, m_text.size());
    }

    const QByteArray& m_text;
};

/**
 * The parser keeps what is in brackets until it knows whether it is a key. These characters
 * bound how much that can be.
 */
void refuseTooManyValues(const QByteArray& text)
{
    int count = 0;
    for (int i = 0; i < text.size(); ++i) {
        const char byte = text.at(i);
        count += byte == '[' || byte == '{' || byte == ',' || byte == ':' || byte == '?';
        if (count > maximumNodes)
            throw Refusal{i, Text::tr("more than %1 values").arg(maximumNodes)};
    }
}

} // namespace

DocumentNode readYaml(const QByteArray& text)
{
    refuseTooManyValues(text);
    std::istringstream stream(text.toStdString());
    TreeBuilder builder(text);
    try {
        YAML::Parser parser(stream);
        while (parser.HandleNextDocument(builder)) { }
    } catch (const YAML::Exception& failure) {
        const int offset = qBound(0, failure.mark.pos, text.size());
        throw Refusal{
            offset, Text::tr("this is not YAML: %1").arg(QString::fromStdString(failure.msg))};
    }
    DocumentNode root = builder.takeRoot();
    EndFinder(text).setEnds(root);
    return root;
}

} // namespace QuadrelDocument
