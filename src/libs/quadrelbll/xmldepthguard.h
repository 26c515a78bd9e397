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
 * Parses the open `device` into `document` with namespace processing off. Result, document and
 * parser's message in `error` (which may be null) are those of QDomDocument::setContent(), but for
 * a document nested deeper than maximumXmlDepth: that one fails with the text `tooDeep`, as soon as
 * the level is reached. So does one that opens 2,048 parentheses before its root element, as a
 * hostile document type does to make the parser recurse. `error` is left alone on success.
 */
bool setContentGuarded(
    QDomDocument& document, QIODevice& device, const QString& tooDeep, QString* error);
