// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "finding.h"
#include "unitdocument.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <vector>

namespace QuadrelDocument {

/** A value of a document as it is written, in YAML and JSON alike. */
struct DocumentNode {
    enum class Kind { Scalar, Sequence, Mapping };
    struct Member;

    Kind kind = Kind::Scalar;
    /** Of a scalar, without quotes and escapes. */
    QString value;
    /** A scalar without quotes may be a number, true, false or null. */
    bool isQuoted = false;
    /** Such as COM: written without quotes where the form allows that. */
    bool isWord = false;
    std::vector<DocumentNode> items;
    /** In the order of the text. */
    std::vector<Member> members;
    /** What a YAML text says after the value. */
    QString comment;

    /** The bytes of the text from the first to the one after the last. */
    int start = 0;
    int end = 0;
    Position position;

    static DocumentNode text(const QString& text);
    static DocumentNode word(const QString& text);
    /** A number, true or false. */
    static DocumentNode bare(const QString& text);
    static DocumentNode number(qint64 number);
    static DocumentNode sequence();
    static DocumentNode mapping();

    /** Appends to a mapping. */
    void add(const QString& key, DocumentNode node);
    /** The first member with the key, or null. */
    const Member* member(const QString& key) const;
    /** Whether there is nothing at all, as after "key:". */
    bool isNull() const;
};

struct DocumentNode::Member {
    QString key;
    int keyStart = 0;
    Position keyPosition;
    DocumentNode value;
};

/** Equal in what they say, wherever they are and whatever is commented. */
bool operator==(const DocumentNode& left, const DocumentNode& right);

/** Ends the reading of a text. */
struct Refusal {
    /** Where, in bytes. */
    int offset;
    QString text;
};

/** Finds lines and columns; fast for offsets that are near the one before. */
class PositionFinder {
public:
    /** The text is kept by the caller. */
    explicit PositionFinder(const QByteArray& text)
        : m_text(text)
    {
    }
    explicit PositionFinder(QByteArray&& text) = delete;

    Position at(int offset);

private:
    void stepBack();

    const QByteArray& m_text;
    int m_offset = 0;
    Position m_position{1, 1};
};

/** The most values in one document; more than a hundred units have. */
constexpr int maximumNodes = 100000;

/** The text of UTF-8, whose first mark QString::fromUtf8() would drop. */
QString textOfUtf8(const char* bytes, int size);
/** The text without the mark that some editors put ahead of UTF-8. */
QByteArray withoutMark(const QByteArray& text);
/** What is said of a text of more than maximumDocumentSize. */
QString sizeFault();

/** Reads a text without a mark; throws Refusal, as it does for control characters and size. */
DocumentNode readTree(const QByteArray& text, Form form);
/** Reads YAML without anchors, aliases and tags, one document; throws Refusal. */
DocumentNode readYaml(const QByteArray& text);
/** Reads JSON; throws Refusal. */
DocumentNode readJson(const QByteArray& text);

/** The mapping as a whole text, records in lines of their own. */
QByteArray yamlText(const DocumentNode& mapping);
QByteArray jsonText(const DocumentNode& value);
/** The value in one line: valid wherever a value may be. */
QString yamlInline(const DocumentNode& value);
QString jsonInline(const DocumentNode& value);
/** The start of a text in quotes and without control characters, fit for a message. */
QString shownText(const QString& text);
/** The value in lines, all but the first with `indentation` blanks ahead. */
QString jsonLines(const DocumentNode& value, int indentation);
/** The records of a sequence in lines with `indentation` blanks ahead; no line feed at the end. */
QString yamlRecords(const DocumentNode& sequence, int indentation);
/** The lines of a mapping, each with `indentation` blanks ahead; no line feed at the end. */
QString yamlLines(const DocumentNode& mapping, int indentation);

} // namespace QuadrelDocument
