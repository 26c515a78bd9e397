// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "finding.h"
#include "unitcontents.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

namespace QuadrelDocument {

/** How contents are written down. A project file is the library's XML and holds less. */
enum class Form { Yaml, Json, Project };

/** The form by the file's ending: .yaml and .yml, .json, .xml, in any case; nothing for others. */
std::optional<Form> formOfFile(const QString& path);

/** The largest text that is read. */
constexpr int maximumDocumentSize = 4 * 1024 * 1024;
/** The deepest nesting that is read. */
constexpr int maximumDocumentDepth = 32;
/** The most records of a section that are looked at; more than any unit has room for. */
constexpr int maximumRecords = 500;

/** What was read from a text. */
struct Document {
    /** With errors among the findings: what could be made of the rest, for further checks only. */
    Contents contents;
    Positions positions; ///< of the contents in the text
    /** What is wrong with the text; what is wrong with the contents is for checkContents(). */
    Findings findings;
};

/**
 * Reads a document of the form Yaml or Json. All errors are found at once: unknown and repeated
 * keys, values of the wrong kind or out of range, and what hostile texts do (anchors, aliases,
 * tags, nesting, size), which ends the reading.
 */
Document parseDocument(const QByteArray& text, Form form);

/**
 * The document of the form Yaml or Json, always the same for the same contents. It ends with a line
 * feed and is encoded in UTF-8.
 */
QByteArray writeDocument(const Contents& contents, Form form);

/** Contents of a file, with everything that is wrong with them. */
struct LoadedFile {
    Form form = Form::Yaml; ///< by the ending of the name
    Contents contents;      ///< with errors: what could be made of the rest
    Positions positions;    ///< of the contents in the text
    /** Of the text and of the contents, in the order of the file. */
    Findings findings;
    /** The text as it is in the file. */
    QByteArray text;
};

/**
 * Reads a file of any form and checks it. A file that can't be read, or whose ending says nothing,
 * gives a finding without a position.
 */
LoadedFile loadFile(const QString& path);

/**
 * Saves contents in the form of the ending, without the clock. A new file is written and then
 * replaces the one at `path`, so that a failure leaves an older file unchanged; a link stays a
 * link. Returns the reason of a failure, or an empty text. What a project file loses on the way is
 * for lossesInProject() to report.
 */
QString saveFile(const QString& path, const Contents& contents);

/** Likewise with a text that is ready. */
QString saveText(const QString& path, const QByteArray& text);

} // namespace QuadrelDocument
