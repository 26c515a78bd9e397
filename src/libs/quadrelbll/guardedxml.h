#pragma once

#include <QtCore/QString>

class QDomDocument;
class QIODevice;

/**
 * The deepest nesting of elements that setContentGuarded() accepts; the root element is level 1.
 * The DOM destroys and saves itself by recursion, and the parser recurses as well: a few ten
 * thousand levels, which fit into a file of 100 KB, overflow the stack. A project file has 4.
 */
constexpr int maximumXmlDepth = 1000;

/**
 * The characters by which entities may make a document larger, each reference counting as one to
 * the longest entity. Without a limit a file of 100 KB, with one long entity and references to it
 * in every fourth character, fills 200 MB.
 */
constexpr int maximumXmlGrowth = 250000;

/**
 * The characters of an entity with all that it refers to. The parser has the same limit and a
 * message of its own, but does not see what an entity makes of an earlier one that refers to it.
 */
constexpr int maximumXmlEntitySize = 4096;

/**
 * The entities that a document may declare. The parser compares each with all others: twenty
 * thousand take it half a minute.
 */
constexpr int maximumXmlEntities = 256;

/** What setContentGuarded() says of a document that it refuses. */
struct RefusalTexts {
    QString tooDeep;
    QString tooLarge;
};

/**
 * Parses the open `device` into `document` with namespace processing off. Result, document and
 * parser's message in `error` (which may be null) are those of QDomDocument::setContent(), but for
 * hostile documents, which fail as soon as a limit is reached:
 *
 * - with the text `tooDeep` one that is nested deeper than maximumXmlDepth, or opens 2,048
 *   parentheses before its root element, as a document type does to make the parser recurse;
 * - with the text `tooLarge` one that entities can make larger by more than maximumXmlGrowth, or
 *   that declares more than maximumXmlEntities of them, or one beyond maximumXmlEntitySize.
 *
 * `error` is left alone on success.
 */
bool setContentGuarded(
    QDomDocument& document, QIODevice& device, const RefusalTexts& texts, QString* error);
