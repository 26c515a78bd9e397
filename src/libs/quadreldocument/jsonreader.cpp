// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "documenttext.h"
#include "documenttree.h"
#include "unitdocument.h"

#include <QtCore/QRegularExpression>

#include <cctype>
#include <cstring>

namespace QuadrelDocument {

namespace {

/**
 * The framework's reader of JSON says neither where a value is nor that a key is doubled, and
 * forgets the order.
 */
class JsonReader {
public:
    explicit JsonReader(const QByteArray& text)
        : m_text(text)
        , m_finder(text)
    {
    }

    DocumentNode document()
    {
        DocumentNode node = value(0);
        skipBlanks();
        if (m_at < m_text.size())
            refuse(Text::tr("nothing may follow the document"));
        return node;
    }

private:
    [[noreturn]] void refuse(const QString& text) const { throw Refusal{m_at, text}; }

    char peek() const { return m_at < m_text.size() ? m_text.at(m_at) : '\0'; }

    void skipBlanks()
    {
        while (m_at < m_text.size() && std::strchr(" \t\r\n", peek()))
            ++m_at;
    }

    bool take(char character)
    {
        skipBlanks();
        if (peek() != character)
            return false;
        ++m_at;
        return true;
    }

    void expect(char character)
    {
        if (!take(character))
            refuse(Text::tr("\"%1\" is due here").arg(QLatin1Char(character)));
    }

    DocumentNode value(int depth)
    {
        skipBlanks();
        if (depth >= maximumDocumentDepth)
            refuse(Text::tr("more than %1 levels; a unit needs 4").arg(maximumDocumentDepth));
        if (++m_nodes > maximumNodes)
            refuse(Text::tr("more than %1 values").arg(maximumNodes));
        DocumentNode node;
        node.start = m_at;
        node.position = m_finder.at(m_at);
        if (peek() == '{')
            readMapping(node, depth);
        else if (peek() == '[')
            readSequence(node, depth);
        else
            readScalar(node);
        node.end = m_at;
        return node;
    }

    void readMapping(DocumentNode& node, int depth)
    {
        node.kind = DocumentNode::Kind::Mapping;
        expect('{');
        if (take('}'))
            return;
        do {
            skipBlanks();
            DocumentNode::Member member;
            member.keyStart = m_at;
            member.keyPosition = m_finder.at(m_at);
            member.key = string();
            expect(':');
            member.value = value(depth + 1);
            node.members.push_back(std::move(member));
        } while (take(','));
        expect('}');
    }

    void readSequence(DocumentNode& node, int depth)
    {
        node.kind = DocumentNode::Kind::Sequence;
        expect('[');
        if (take(']'))
            return;
        do {
            node.items.push_back(value(depth + 1));
        } while (take(','));
        expect(']');
    }

    void readScalar(DocumentNode& node)
    {
        node.isQuoted = peek() == '"';
        node.value = node.isQuoted ? string() : word();
    }

    QString word()
    {
        static const QRegularExpression form(QStringLiteral(
            "\\A(?:true|false|null|-?(?:0|[1-9][0-9]*)(?:\\.[0-9]+)?(?:[eE][-+]?[0-9]+)?)\\z"));
        const int start = m_at;
        while (std::isalnum(static_cast<quint8>(peek()))
            || (peek() != '\0' && std::strchr("+-.", peek())))
            ++m_at;
        const QString text = QString::fromLatin1(m_text.mid(start, m_at - start));
        if (!form.match(text).hasMatch()) {
            m_at = start;
            refuse(Text::tr("a value of JSON is due here"));
        }
        return text;
    }

    QString string()
    {
        if (peek() != '"')
            refuse(Text::tr("a text in quotes is due here"));
        ++m_at;
        QString text;
        while (peek() != '"') {
            const int start = m_at;
            while (static_cast<quint8>(peek()) >= ' ' && !std::strchr("\"\\", peek()))
                ++m_at;
            text += textOfUtf8(m_text.constData() + start, m_at - start);
            if (peek() == '\\')
                text += escape();
            else if (peek() != '"')
                refuse(Text::tr("the text does not end in its line"));
        }
        ++m_at;
        return text;
    }

    QChar escape()
    {
        const QByteArray letters("\"\\/bfnrt");
        const QByteArray characters("\"\\/\b\f\n\r\t");
        ++m_at;
        const int known = peek() == '\0' ? -1 : letters.indexOf(peek());
        if (known >= 0) {
            ++m_at;
            return QLatin1Char(characters.at(known));
        }
        const QByteArray digits = m_text.mid(m_at + 1, 4);
        bool isNumber = false;
        const ushort unit = digits.toUShort(&isNumber, 16);
        if (peek() != 'u' || !isNumber || digits.size() != 4
            || !std::isxdigit(quint8(digits.at(0))))
            refuse(Text::tr("JSON has no such escape"));
        m_at += 5;
        return QChar(unit);
    }

    const QByteArray& m_text;
    PositionFinder m_finder;
    int m_at = 0;
    int m_nodes = 0;
};

} // namespace

DocumentNode readJson(const QByteArray& text)
{
    return JsonReader(text).document();
}

} // namespace QuadrelDocument
