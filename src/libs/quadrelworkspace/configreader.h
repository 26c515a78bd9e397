// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <documenttree.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

namespace QuadrelWorkspace {

/** Units' names and tags: letters and digits of any language, "-", "_" and ".", at most 64. */
bool isName(const QString& text);
/** What to say of a text that is not a name. */
QString nameFault(const QString& text);
/** What to say of a text that is not an address. */
QString addressFault(const QString& text);

/**
 * Takes values out of a file in YAML that a person wrote, and collects what is wrong with it: all
 * of it at once, each as "FILE:LINE:COLUMN: what is wrong, and what is allowed".
 */
class ConfigReader {
public:
    using DocumentNode = QuadrelDocument::DocumentNode;

    explicit ConfigReader(const QString& path);

    /** The file's bytes; nothing, and an error, if it cannot be read. */
    std::optional<QByteArray> read();
    /** The text's mapping, empty if the text is; nothing, and an error, if it is none. */
    std::optional<DocumentNode> parse(const QByteArray& text);

    /** Every key must be one of these, and be there once. */
    void checkKeys(const DocumentNode& mapping, const QStringList& known);
    /** Every key must be there once, whatever it is. */
    void checkOnce(const DocumentNode& mapping);

    // A value of a mapping; nothing if it is not there, and an error if it is another one.
    /** In decimal, or in hexadecimal after "0x". */
    std::optional<quint64> number(
        const DocumentNode& mapping, const QString& key, quint64 least, quint64 most);
    std::optional<QString> text(const DocumentNode& mapping, const QString& key);
    std::optional<QString> word(
        const DocumentNode& mapping, const QString& key, const QStringList& allowed);
    const DocumentNode* child(
        const DocumentNode& mapping, const QString& key, DocumentNode::Kind kind);

    /** The text of a value that has to be a text; nothing, and an error, for any other. */
    std::optional<QString> textOf(const DocumentNode& value, const QString& name);

    void addError(const QuadrelDocument::Position& position, const QString& text);
    const QStringList& errors() const { return m_errors; }

private:
    const QString m_path;
    QStringList m_errors;
};

} // namespace QuadrelWorkspace
