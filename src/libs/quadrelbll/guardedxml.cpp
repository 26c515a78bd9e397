#include "guardedxml.h"

#include <QtCore/QHash>
#include <QtCore/QIODevice>
#include <QtCore/QStringList>
#include <QtXml/QDomDocument>
#include <QtXml/QXmlSimpleReader>

// The SAX classes are marked as deprecated, but the DOM of this framework is built by them alone,
// and nothing else can stop it at a level.
QT_WARNING_DISABLE_DEPRECATED

namespace {

/**
 * Counts the open parentheses of a content model, as in <!ELEMENT a ((b))>: the parser recurses for
 * each of them, too. None of the characters that start the count anew can stand in a model.
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
    // take the text behind that tag for a model.
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

/** The declared entities, and what they come to with all that they refer to. */
class Entities {
public:
    int count() const { return m_values.size(); }

    void declare(const QString& name, const QString& value)
    {
        // The first declaration of a name is the one that counts.
        if (!m_values.contains(name))
            m_values.insert(name, value);
        const QStringList references = referencesIn(value);
        for (const QString& reference : references)
            m_refersAhead = m_refersAhead || !m_values.contains(reference);
    }

    /** Whether one refers to what was not declared before it. */
    bool refersAhead() const { return m_refersAhead; }

    int largestSize() const
    {
        Sizes sizes;
        int largest = 0;
        for (auto entity = m_values.begin(); entity != m_values.end(); ++entity)
            largest = qMax(largest, sizeOf(entity.key(), sizes));
        return largest;
    }

private:
    using Sizes = QHash<QString, int>;

    static QStringList referencesIn(const QString& value)
    {
        QStringList names;
        int start = value.indexOf(QLatin1Char('&'));
        while (start >= 0) {
            const int end = value.indexOf(QLatin1Char(';'), start);
            names.append(value.mid(start + 1, end - start - 1));
            start = value.indexOf(QLatin1Char('&'), start + 1);
        }
        return names;
    }

    /** At most maximumXmlGrowth, so that no sum overflows. */
    int sizeOf(const QString& name, Sizes& known) const
    {
        if (known.contains(name))
            return known.value(name);
        // What a circle comes to is not asked: the parser refuses it.
        known.insert(name, 0);
        const QString value = m_values.value(name);
        const QStringList references = referencesIn(value);
        int size = value.size();
        for (const QString& reference : references)
            size = qMin(size + sizeOf(reference, known), maximumXmlGrowth);
        known.insert(name, size);
        return size;
    }

    QHash<QString, QString> m_values;
    bool m_refersAhead = false;
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
        m_entities.declare(name, value);
        m_growth += value.size();
        m_largest = m_entities.largestSize();
        const bool isTooLarge = m_entities.refersAhead() && m_largest > maximumXmlEntitySize;
        return !isTooLarge && m_entities.count() <= maximumXmlEntities
            && m_growth <= maximumXmlGrowth;
    }

    /** False when so many references can make too much of the document. */
    bool accept(int references)
    {
        m_growth += qint64(references) * m_largest;
        return m_growth <= maximumXmlGrowth;
    }

private:
    Entities m_entities;
    int m_largest = 0;
    qint64 m_growth = 0;
};

/** Stands between the parser and the DOM's own handler, and stops the parser at the limits. */
class ParserGuard : public QXmlContentHandler, public QXmlDeclHandler {
public:
    enum class Refusal { None, TooDeep, TooLarge };

    void setContentHandler(QXmlContentHandler* handler) { m_content = handler; }
    void setDeclHandler(QXmlDeclHandler* handler) { m_decl = handler; }

    bool sawSkippedEntity() const { return m_sawSkippedEntity; }
    Refusal refusal() const { return m_refusal; }

    /** Before the parser gets a piece of the text, which may end the document here. */
    bool accept(const QString& piece)
    {
        if (m_beforeRoot && !m_parentheses.accept(piece))
            return refuse(Refusal::TooDeep);
        const int parameters = m_beforeRoot ? piece.count(QLatin1Char('%')) : 0;
        if (!m_growth.accept(piece.count(QLatin1Char('&')) + parameters))
            return refuse(Refusal::TooLarge);
        return m_refusal == Refusal::None;
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
            return refuse(Refusal::TooDeep);
        return m_content->startElement(namespaceUri, localName, qualifiedName, attributes);
    }

    bool endElement(const QString& namespaceUri, const QString& localName,
        const QString& qualifiedName) override
    {
        --m_depth;
        return m_content->endElement(namespaceUri, localName, qualifiedName);
    }

    bool characters(const QString& text) override { return m_content->characters(text); }

    bool processingInstruction(const QString& target, const QString& data) override
    {
        return m_content->processingInstruction(target, data);
    }

    bool skippedEntity(const QString& name) override
    {
        m_sawSkippedEntity = true;
        return m_content->skippedEntity(name);
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
            return refuse(Refusal::TooDeep);
        if (!m_growth.declare(name, value))
            return refuse(Refusal::TooLarge);
        return m_decl->internalEntityDecl(name, value);
    }

    bool externalEntityDecl(
        const QString& name, const QString& publicId, const QString& systemId) override
    {
        return m_decl->externalEntityDecl(name, publicId, systemId);
    }

    QString errorString() const override { return m_content->errorString(); }

private:
    bool refuse(Refusal refusal)
    {
        m_refusal = refusal;
        return false;
    }

    QXmlContentHandler* m_content = nullptr;
    QXmlDeclHandler* m_decl = nullptr;
    OpenParentheses m_parentheses;
    EntityGrowth m_growth;
    int m_depth = 0;
    bool m_beforeRoot = true;
    bool m_sawSkippedEntity = false;
    Refusal m_refusal = Refusal::None;
};

/** Shows the guard each piece of the text, and ends the document early when it refuses one. */
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

    void setDeclHandler(QXmlDeclHandler* handler) override
    {
        m_guard.setDeclHandler(handler);
        QXmlSimpleReader::setDeclHandler(&m_guard);
    }

private:
    ParserGuard& m_guard;
};

QString textOf(ParserGuard::Refusal refusal, const RefusalTexts& texts)
{
    return refusal == ParserGuard::Refusal::TooDeep ? texts.tooDeep : texts.tooLarge;
}

} // namespace

bool setContentGuarded(
    QDomDocument& document, QIODevice& device, const RefusalTexts& texts, QString* error)
{
    ParserGuard guard;
    GuardedSource source(device, guard);
    GuardedReader reader(guard);
    int line = 0;
    int column = 0;
    if (!document.setContent(&source, &reader, error, &line, &column)) {
        if (guard.refusal() != ParserGuard::Refusal::None && error)
            *error = textOf(guard.refusal(), texts);
        return false;
    }

    // Only its own reader tells the DOM whether an undeclared entity stood in an attribute, where
    // the DOM drops it. The document is known to be shallow now and may be parsed without a guard.
    if (guard.sawSkippedEntity() && device.seek(0))
        return document.setContent(&device, false, error, &line, &column);
    return true;
}
