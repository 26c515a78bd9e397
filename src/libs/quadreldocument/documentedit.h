// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unitdocument.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

/**
 * Changes to a document's text that leave the rest of it, comments and order too, as it is.
 *
 * A path is a section, a record or a field: `events`, `events[8]`, `events[8].description`,
 * `serialPorts[2].baudRate`, `device.ip`. In brackets is the id, port or line that the document
 * shows. Only documents of the forms Yaml and Json can be changed.
 */
namespace QuadrelDocument {

/** A changed text, or why there is none. */
struct EditedText {
    QByteArray text; ///< the document after the change
    /** Empty when all went well. */
    QString error;
};

/**
 * Sets what "PATH=VALUE" says. A field takes the value as it is written in a document or, if it
 * holds text, the bare text: "events[8].description=Display off". A record takes a mapping in
 * braces and is added if there is none, "events[40]={delay: 500}"; its id need not be repeated.
 *
 * The result may have errors of its own, which parseDocument() and checkContents() find.
 */
EditedText setValue(const QByteArray& text, Form form, const QString& assignment);

/** Removes a record, or a field that may be left out. */
EditedText unsetValue(const QByteArray& text, Form form, const QString& path);

/** A value, or why there is none. */
struct FoundValue {
    /** A bare scalar, or the record or section as a document of the same form shows it. */
    QString value;
    QString error; ///< empty when all went well
};
/** The value of a section, a record or a field. */
FoundValue getValue(const QByteArray& text, Form form, const QString& path);

/** The text with each finding as a comment above its line; for documents of the form Yaml. */
QByteArray withComments(const QByteArray& text, const Findings& findings);
/** The text without the comments that withComments() made. */
QByteArray withoutComments(const QByteArray& text);

} // namespace QuadrelDocument
