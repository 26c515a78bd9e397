// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "guardedxml.h"

#include <QtCore/QIODevice>
#include <QtCore/QMap>
#include <QtCore/QVector>
#include <QtXml/QDomDocument>
#include <QtXml/QXmlSimpleReader>

// The SAX classes are marked as deprecated, but the DOM of this framework is built by them alone,
// and nothing else can stop it at a level.
QT_WARNING_DISABLE_DEPRECATED

namespace {

/**
 * Counts the open parentheses of a content model, as in <!ELEMENT a ((b))>: the parser recurses for
 * each of them, too. None of the characters that restart the count can be in a model.
 */
class OpenParentheses {
public:
    /** False when `text`, which goes on from the text before it, opens too many. */
    bool accept(const QString& text)
    {
        for (const QChar c : text) {
            count(c);
            if (m_count > maximum)
                return false;
        }
        return true;
    }

private:
    // More than a source holds at once, so that it has met the root's start tag before it could
    // take the text after that tag for a model.
    static constexpr int maximum = 2048;

    void count(QChar c)
    {
        switch (c.unicode()) {
        case '(':
            ++m_count;
            break;
        case ')':
            m_count = qMax(0, m_count - 1);
            break;
        case '<':
        case '>':
        case '"':
        case '\'':
            m_count = 0;
            break;
        default:
            break;
        }
    }

    int m_count = 0;
};

/** What the value of an entity refers to. */
struct References {
    /** The names between "&" and the next ";". */
    QVector<QString> names;
    /** No ";" ends the last one: the text after the entity may do so. */
    bool isOpen = false;
    /** A ";" that ends no reference of this value, but may end one that an entity left open. */
    bool endsAnother = false;
};

References referencesIn(const QString& value)
{
    References references;
    int start = -1;
    for (int i = 0; i < value.size(); ++i) {
        if (value.at(i) == QLatin1Char('&')) {
            start = i + 1;
        } else if (value.at(i) == QLatin1Char(';')) {
            if (start >= 0)
                references.names.append(value.mid(start, i - start));
            else
                references.endsAnother = true;
            start = -1;
        }
    }
    references.isOpen = start >= 0;
    return references;
}

/**
 * The declared entities, and what they come to with all that they refer to. Names have numbers, so
 * that a sum over all entities looks up none: it is made again after each declaration.
 */
class Entities {
public:
    int count() const { return m_count; }

    /** The parser reports the first declaration of a name only, which is the one that counts. */
    void declare(const QString& name, const QString& value)
    {
        const int number = numberOf(name);
        ++m_count;
        m_entities[number].isDeclared = true;
        m_entities[number].size = value.size();

        const References references = referencesIn(value);
        for (const QString& reference : references.names) {
            const int referred = numberOf(reference);
            m_entities[number].references.append(referred);
            m_refersAhead = m_refersAhead || !m_entities.at(referred).isDeclared;
        }
        m_leavesOpen = m_leavesOpen || references.isOpen;
        m_endsAnother = m_endsAnother || references.endsAnother;
    }

    /** Whether one refers to what was not declared before it. */
    bool refersAhead() const { return m_refersAhead; }

    /** Whether one ends within a reference, so that a mere ";" after it makes a whole one. */
    bool leavesOpen() const { return m_leavesOpen; }

    int largestSize() const
    {
        // Each end of a reference within an entity may then be a reference of its own.
        if (m_leavesOpen && m_endsAnother)
            return maximumXmlGrowth;
        QVector<int> sizes(m_entities.size(), unknown);
        int largest = 0;
        for (int number = 0; number < m_entities.size(); ++number)
            largest = qMax(largest, sizeOf(number, sizes));
        return largest;
    }

private:
    struct Entity {
        bool isDeclared = false;
        int size = 0;
        QVector<int> references;
    };
    static constexpr int unknown = -1;

    int numberOf(const QString& name)
    {
        const auto known = m_numbers.constFind(name);
        if (known != m_numbers.constEnd())
            return *known;
        m_entities.append(Entity());
        return *m_numbers.insert(name, m_entities.size() - 1);
    }

    /** At most maximumXmlGrowth, so that no sum overflows. */
    int sizeOf(int number, QVector<int>& sizes) const
    {
        if (sizes.at(number) != unknown)
            return sizes.at(number);
        // What a circle comes to is not asked: the parser refuses it.
        sizes[number] = 0;
        int size = m_entities.at(number).size;
        for (const int reference : m_entities.at(number).references)
            size = qMin(size + sizeOf(reference, sizes), maximumXmlGrowth);
        sizes[number] = size;
        return size;
    }

    // In order, as names can be chosen so that they all have the same hash.
    QMap<QString, int> m_numbers;
    QVector<Entity> m_entities;
    int m_count = 0;
    bool m_refersAhead = false;
    bool m_leavesOpen = false;
    bool m_endsAnother = false;
};

/**
 * Adds up the most by which entities can make the document larger. The parser gathers a text whole
 * before it hands it on, so that the references have to be counted before it meets them.
 */
class EntityGrowth {
public:
    /** False when there are too many entities, or one is too large and the parser may not see it.
     */
    bool declare(const QString& name, const QString& value)
    {
        m_growth += value.size();
        if (m_growth > maximumXmlGrowth)
            return false;
        m_entities.declare(name, value);
        if (m_entities.count() > maximumXmlEntities)
            return false;
        m_largest = m_entities.largestSize();
        return !m_entities.refersAhead() || m_largest <= maximumXmlEntitySize;
    }

    /** False when the references up to this character can make too much of the document. */
    bool accept(QChar c, bool mayBeParameter)
    {
        const bool isReference = c == QLatin1Char('&') || (c == QLatin1Char('%') && mayBeParameter)
            || (c == QLatin1Char(';') && m_entities.leavesOpen());
        if (isReference)
            m_growth += m_largest;
        return m_growth <= maximumXmlGrowth;
    }

private:
    Entities m_entities;
    int m_largest = 0;
    qint64 m_growth = 0;
};

/** Sits between the parser and the DOM's own handler, and stops the parser at the limits. */
class ParserGuard : public QXmlContentHandler, public QXmlDTDHandler, public QXmlDeclHandler {
public:
    explicit ParserGuard(const RefusalTexts& texts)
        : m_texts(texts)
    {
    }

    void setContentHandler(QXmlContentHandler* handler) { m_content = handler; }
    void setDTDHandler(QXmlDTDHandler* handler) { m_dtd = handler; }
    void setDeclHandler(QXmlDeclHandler* handler) { m_decl = handler; }

    bool sawSkippedEntity() const { return m_sawSkippedEntity; }
    /** The text of the limit that was reached, or null. */
    const QString* refusal() const { return m_refusal; }

    /** Before the parser gets a piece of the text, which may end the document here. */
    bool accept(const QString& piece)
    {
        if (m_beforeRoot && !m_parentheses.accept(piece))
            return refuse(m_texts.tooDeep);
        m_room += piece.size();
        return !m_refusal;
    }

    /** Before the parser gets a character, likewise. Entities may be declared in front of it. */
    bool accept(QChar c)
    {
        if (!m_growth.accept(c, m_beforeRoot))
            return refuse(m_texts.tooLarge);
        return !m_refusal;
    }

    void setDocumentLocator(QXmlLocator* locator) override
    {
        m_content->setDocumentLocator(locator);
    }
    bool startDocument() override { return m_content->startDocument(); }
    bool endDocument() override { return m_content->endDocument(); }

    // GCOVR_EXCL_START: the parser calls these three for nobody, as namespaces are off and it takes
    // all white space for text, but the interface demands them.
    bool startPrefixMapping(const QString& prefix, const QString& uri) override
    {
        return m_content->startPrefixMapping(prefix, uri);
    }

    bool endPrefixMapping(const QString& prefix) override
    {
        return m_content->endPrefixMapping(prefix);
    }

    bool ignorableWhitespace(const QString& text) override
    {
        return m_content->ignorableWhitespace(text);
    }
    // GCOVR_EXCL_STOP

    bool startElement(const QString& namespaceUri, const QString& localName,
        const QString& qualifiedName, const QXmlAttributes& attributes) override
    {
        m_beforeRoot = false;
        if (++m_depth > maximumXmlDepth)
            return refuse(m_texts.tooDeep);
        const int attributeCount = attributes.count();
        if (attributeCount > maximumXmlAttributes)
            return refuse(m_texts.tooMany);
        return takeNodes(1 + attributeCount * nodesPerXmlAttribute)
            && m_content->startElement(namespaceUri, localName, qualifiedName, attributes);
    }

    bool endElement(const QString& namespaceUri, const QString& localName,
        const QString& qualifiedName) override
    {
        --m_depth;
        return m_content->endElement(namespaceUri, localName, qualifiedName);
    }

    bool characters(const QString& text) override
    {
        return takeNodes(1) && m_content->characters(text);
    }

    bool processingInstruction(const QString& target, const QString& data) override
    {
        return takeNodes(1) && m_content->processingInstruction(target, data);
    }

    bool skippedEntity(const QString& name) override
    {
        m_sawSkippedEntity = true;
        return takeNodes(nodesPerUndeclaredEntity) && m_content->skippedEntity(name);
    }

    bool attributeDecl(const QString& elementName, const QString& attributeName,
        const QString& type, const QString& valueDefault, const QString& value) override
    {
        return m_decl->attributeDecl(elementName, attributeName, type, valueDefault, value);
    }

    bool internalEntityDecl(const QString& name, const QString& value) override
    {
        // Character references can hide the parentheses of a parameter entity from the source's
        // count.
        if (!OpenParentheses().accept(value))
            return refuse(m_texts.tooDeep);
        if (!m_growth.declare(name, value))
            return refuse(m_texts.tooLarge);
        return m_decl->internalEntityDecl(name, value);
    }

    bool externalEntityDecl(
        const QString& name, const QString& publicId, const QString& systemId) override
    {
        return takeDeclaration() && m_decl->externalEntityDecl(name, publicId, systemId);
    }

    bool notationDecl(
        const QString& name, const QString& publicId, const QString& systemId) override
    {
        return takeDeclaration() && m_dtd->notationDecl(name, publicId, systemId);
    }

    bool unparsedEntityDecl(const QString& name, const QString& publicId, const QString& systemId,
        const QString& notation) override
    {
        return takeDeclaration() && m_dtd->unparsedEntityDecl(name, publicId, systemId, notation);
    }

    QString errorString() const override { return m_content->errorString(); }

private:
    bool takeNodes(int count)
    {
        m_room -= qint64(count) * charactersPerXmlNode;
        if (m_room < 0)
            return refuse(m_texts.tooMany);
        return true;
    }

    bool takeDeclaration()
    {
        if (++m_declarations > maximumXmlEntities)
            return refuse(m_texts.tooMany);
        return true;
    }

    bool refuse(const QString& text)
    {
        m_refusal = &text;
        return false;
    }

    const RefusalTexts& m_texts;
    QXmlContentHandler* m_content = nullptr;
    QXmlDTDHandler* m_dtd = nullptr;
    QXmlDeclHandler* m_decl = nullptr;
    OpenParentheses m_parentheses;
    EntityGrowth m_growth;
    int m_depth = 0;
    int m_declarations = 0;
    // In characters, as each of them makes some.
    qint64 m_room = qint64(maximumXmlNodes) * charactersPerXmlNode;
    bool m_beforeRoot = true;
    bool m_sawSkippedEntity = false;
    const QString* m_refusal = nullptr;
};

/** Shows the guard the text, and ends the document early when it refuses a part. */
class GuardedSource : public QXmlInputSource {
public:
    GuardedSource(QIODevice& device, ParserGuard& guard)
        : QXmlInputSource(&device)
        , m_guard(guard)
    {
    }

    using QXmlInputSource::setData;

    // The parser gets the device's text in pieces of about 1 KB, and each of them passes here.
    void setData(const QString& piece) override
    {
        QXmlInputSource::setData(m_guard.accept(piece) ? piece : QString());
    }

    QChar next() override
    {
        const QChar c = QXmlInputSource::next();
        return m_guard.accept(c) ? c : QChar(EndOfDocument);
    }

private:
    ParserGuard& m_guard;
};

/** A reader set up as the DOM sets up its own, which puts the guard before the DOM's handler. */
class GuardedReader : public QXmlSimpleReader {
public:
    explicit GuardedReader(ParserGuard& guard)
        : m_guard(guard)
    {
        setFeature(QStringLiteral("http://xml.org/sax/features/namespaces"), false);
        setFeature(QStringLiteral("http://xml.org/sax/features/namespace-prefixes"), true);
        setFeature(
            QStringLiteral("http://trolltech.com/xml/features/report-whitespace-only-CharData"),
            false);
    }

    void setContentHandler(QXmlContentHandler* handler) override
    {
        m_guard.setContentHandler(handler);
        QXmlSimpleReader::setContentHandler(&m_guard);
    }

    void setDTDHandler(QXmlDTDHandler* handler) override
    {
        m_guard.setDTDHandler(handler);
        QXmlSimpleReader::setDTDHandler(&m_guard);
    }

    void setDeclHandler(QXmlDeclHandler* handler) override
    {
        m_guard.setDeclHandler(handler);
        QXmlSimpleReader::setDeclHandler(&m_guard);
    }

private:
    ParserGuard& m_guard;
};

} // namespace

bool setContentGuarded(
    QDomDocument& document, QIODevice& device, const RefusalTexts& texts, QString* error)
{
    ParserGuard guard(texts);
    GuardedSource source(device, guard);
    GuardedReader reader(guard);
    int line = 0;
    int column = 0;
    if (!document.setContent(&source, &reader, error, &line, &column)) {
        if (guard.refusal() && error)
            *error = *guard.refusal();
        return false;
    }

    // Only its own reader informs the DOM whether an undeclared entity was in an attribute, where
    // the DOM drops it. The document is known to be shallow now and may be parsed without a guard.
    if (guard.sawSkippedEntity() && device.seek(0))
        return document.setContent(&device, false, error, &line, &column);
    return true;
}
