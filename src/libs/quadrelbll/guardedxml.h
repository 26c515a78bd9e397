// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal to the library; not installed.
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
 * The internal entities that a document may declare, and the external ones with the notations. The
 * parser compares each of the former with all others: twenty thousand take it half a minute. The
 * DOM keeps the latter by a hash of their names, which can be chosen all alike.
 */
constexpr int maximumXmlEntities = 256;

/** The attributes of an element, which the DOM keeps by a hash of their names, too. */
constexpr int maximumXmlAttributes = 256;

/**
 * The nodes that a document may have: this number, and one for each four characters of its text,
 * which is more than the smallest elements make of it. A node fills about 220 bytes, an attribute
 * three times as many. A reference to an entity that is not declared counts as two, because the
 * document is then parsed twice.
 */
constexpr int maximumXmlNodes = 80000;
constexpr int charactersPerXmlNode = 4;
constexpr int nodesPerXmlAttribute = 3;
constexpr int nodesPerUndeclaredEntity = 2;

/** What setContentGuarded() says of a document that it refuses. */
struct RefusalTexts {
    QString tooDeep;
    QString tooLarge;
    QString tooMany;
};

/**
 * Parses the open `device` into `document` with namespace processing off. Result, document and
 * parser's message in `error` (which may be null) are those of QDomDocument::setContent(), but for
 * hostile documents, which fail as soon as a limit is reached:
 *
 * - with the text `tooDeep` one that is nested deeper than maximumXmlDepth, or opens more than
 *   2,048 parentheses before its root element, as a document type does to make the parser recurse;
 * - with the text `tooLarge` one that entities can make larger by more than maximumXmlGrowth, that
 *   declares more than maximumXmlEntities of them or one beyond maximumXmlEntitySize;
 * - with the text `tooMany` one that has more nodes than its length allows, more than
 *   maximumXmlAttributes at an element, or more than maximumXmlEntities notations and external
 *   entities.
 *
 * Time and memory stay in proportion to the file: on a usual desktop computer at most 0.25 s and
 * 80 MB for a file of 1 MB, whatever it holds, and as much again for each further one.
 *
 * `error` is left alone on success.
 */
bool setContentGuarded(
    QDomDocument& document, QIODevice& device, const RefusalTexts& texts, QString* error);
