#include "xmldepthguard.h"

#include <QtCore/QIODevice>
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

/** Stands between the parser and the DOM's own handler, and stops the parser at a level too deep.
 */
class DepthGuard : public QXmlContentHandler, public QXmlDeclHandler {
public:
    void setContentHandler(QXmlContentHandler* handler) { m_content = handler; }
    void setDeclHandler(QXmlDeclHandler* handler) { m_decl = handler; }

    bool isBeforeRoot() const { return m_beforeRoot; }
    bool sawSkippedEntity() const { return m_sawSkippedEntity; }
    bool refused() const { return m_refused; }

    bool refuse()
    {
        m_refused = true;
        return false;
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
            return refuse();
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

    // Character references can hide the parentheses of a parameter entity from the source's count.
    bool internalEntityDecl(const QString& name, const QString& value) override
    {
        if (!OpenParentheses().accept(value))
            return refuse();
        return m_decl->internalEntityDecl(name, value);
    }

    bool externalEntityDecl(
        const QString& name, const QString& publicId, const QString& systemId) override
    {
        return m_decl->externalEntityDecl(name, publicId, systemId);
    }

    QString errorString() const override { return m_content->errorString(); }

private:
    QXmlContentHandler* m_content = nullptr;
    QXmlDeclHandler* m_decl = nullptr;
    int m_depth = 0;
    bool m_beforeRoot = true;
    bool m_sawSkippedEntity = false;
    bool m_refused = false;
};

/** Ends the document early when a content model is nested too deep; models stand before the root.
 */
class GuardedSource : public QXmlInputSource {
public:
    GuardedSource(QIODevice& device, DepthGuard& guard)
        : QXmlInputSource(&device)
        , m_guard(guard)
    {
    }

    using QXmlInputSource::setData;

    // The parser gets the device's text in pieces of about 1 KB, and each of them passes here.
    void setData(const QString& piece) override
    {
        if (m_guard.isBeforeRoot() && !m_parentheses.accept(piece))
            m_guard.refuse();
        QXmlInputSource::setData(m_guard.refused() ? QString() : piece);
    }

private:
    DepthGuard& m_guard;
    OpenParentheses m_parentheses;
};

/** A reader set up as the DOM sets up its own, which puts the guard before the DOM's handler. */
class GuardedReader : public QXmlSimpleReader {
public:
    explicit GuardedReader(DepthGuard& guard)
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
    DepthGuard& m_guard;
};

} // namespace

bool setContentGuarded(
    QDomDocument& document, QIODevice& device, const QString& tooDeep, QString* error)
{
    DepthGuard guard;
    GuardedSource source(device, guard);
    GuardedReader reader(guard);
    int line = 0;
    int column = 0;
    if (!document.setContent(&source, &reader, error, &line, &column)) {
        if (guard.refused() && error)
            *error = tooDeep;
        return false;
    }

    // Only its own reader tells the DOM whether an undeclared entity stood in an attribute, where
    // the DOM drops it. The document is known to be shallow now and may be parsed without a guard.
    if (guard.sawSkippedEntity() && device.seek(0))
        return document.setContent(&device, false, error, &line, &column);
    return true;
}
