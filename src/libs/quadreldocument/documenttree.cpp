// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "documenttree.h"

#include "documenttext.h"

#include <QtCore/QTextCodec>

#include <algorithm>

namespace QuadrelDocument {

namespace {

bool isContinuation(char byte)
{
    return (static_cast<quint8>(byte) & 0xC0) == 0x80;
}

QByteArray byteOrderMark()
{
    return QByteArrayLiteral("\xEF\xBB\xBF");
}

/** Throws Refusal at what no text in UTF-8 holds. */
void refuseForeignBytes(const QByteArray& text)
{
    const QByteArray valid = textOfUtf8(text.constData(), text.size()).toUtf8();
    if (valid != text) {
        const auto difference =
            std::mismatch(text.begin(), text.end(), valid.begin(), valid.end()).first;
        throw Refusal{static_cast<int>(difference - text.begin()),
            Text::tr("this is not text in UTF-8; only that is read")};
    }
    const auto isControl = [](char byte) {
        return byte >= 0 && byte < ' ' && byte != '\t' && byte != '\n' && byte != '\r';
    };
    const auto control = std::find_if(text.begin(), text.end(), isControl);
    if (control != text.end())
        throw Refusal{static_cast<int>(control - text.begin()),
            Text::tr("control characters are not allowed; escapes such as \\u001b are")};
}

} // namespace

DocumentNode DocumentNode::text(const QString& text)
{
    DocumentNode node;
    node.value = text;
    node.isQuoted = true;
    return node;
}

DocumentNode DocumentNode::word(const QString& text)
{
    DocumentNode node;
    node.value = text;
    node.isWord = true;
    return node;
}

DocumentNode DocumentNode::bare(const QString& text)
{
    DocumentNode node;
    node.value = text;
    return node;
}

DocumentNode DocumentNode::number(qint64 number)
{
    return bare(QString::number(number));
}

DocumentNode DocumentNode::sequence()
{
    DocumentNode node;
    node.kind = Kind::Sequence;
    return node;
}

DocumentNode DocumentNode::mapping()
{
    DocumentNode node;
    node.kind = Kind::Mapping;
    return node;
}

void DocumentNode::add(const QString& key, DocumentNode node)
{
    members.push_back({key, 0, {}, std::move(node)});
}

const DocumentNode::Member* DocumentNode::member(const QString& key) const
{
    const auto found = std::find_if(
        members.begin(), members.end(), [&](const Member& member) { return member.key == key; });
    return found == members.end() ? nullptr : &*found;
}

bool DocumentNode::isNull() const
{
    return kind == Kind::Scalar && !isQuoted
        && (value.isEmpty() || value == QLatin1String("~")
            || value.compare(QLatin1String("null"), Qt::CaseInsensitive) == 0);
}

bool operator==(const DocumentNode& left, const DocumentNode& right)
{
    const auto isSameMember = [](const DocumentNode::Member& one,
                                  const DocumentNode::Member& other) {
        return one.key == other.key && one.value == other.value;
    };
    return left.kind == right.kind && left.value == right.value && left.isQuoted == right.isQuoted
        && left.items == right.items
        && std::equal(left.members.begin(), left.members.end(), right.members.begin(),
            right.members.end(), isSameMember);
}

Position PositionFinder::at(int offset)
{
    while (m_offset > qMax(0, offset))
        stepBack();
    for (; m_offset < qMin(offset, m_text.size()); ++m_offset) {
        const char byte = m_text.at(m_offset);
        if (byte == '\n')
            m_position = {m_position.line + 1, 1};
        else if (!isContinuation(byte))
            ++m_position.column;
    }
    return m_position;
}

void PositionFinder::stepBack()
{
    const char byte = m_text.at(--m_offset);
    if (byte == '\n') {
        const int start = m_offset == 0 ? 0 : m_text.lastIndexOf('\n', m_offset - 1) + 1;
        const auto characters = std::count_if(m_text.begin() + start, m_text.begin() + m_offset,
            [](char other) { return !isContinuation(other); });
        m_position = {m_position.line - 1, static_cast<int>(characters) + 1};
    } else if (!isContinuation(byte)) {
        --m_position.column;
    }
}

QString textOfUtf8(const char* bytes, int size)
{
    static const QTextCodec* const codec = QTextCodec::codecForName("UTF-8");
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    return codec->toUnicode(bytes, size, &state);
}

QByteArray withoutMark(const QByteArray& text)
{
    return text.startsWith(byteOrderMark()) ? text.mid(byteOrderMark().size()) : text;
}

QString sizeFault()
{
    return Text::tr("more than %1 bytes; a unit needs a tenth of that").arg(maximumDocumentSize);
}

DocumentNode readTree(const QByteArray& text, Form form)
{
    if (text.size() > maximumDocumentSize)
        throw Refusal{maximumDocumentSize, sizeFault()};
    refuseForeignBytes(text);
    return form == Form::Json ? readJson(text) : readYaml(text);
}

} // namespace QuadrelDocument
