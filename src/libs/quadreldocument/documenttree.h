#pragma once

#include "finding.h"
#include "unitdocument.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <vector>

namespace QuadrelDocument {

/** A value of a document as it is written, in YAML and JSON alike. */
struct Node {
    enum class Kind { Scalar, Sequence, Mapping };
    struct Member;

    Kind kind = Kind::Scalar;
    /** Of a scalar, without quotes and escapes. */
    QString value;
    /** A scalar without quotes may be a number, true, false or null. */
    bool isQuoted = false;
    /** Such as COM: written without quotes where the form allows that. */
    bool isWord = false;
    std::vector<Node> items;
    /** In the order of the text. */
    std::vector<Member> members;
    /** What a YAML text says behind the value. */
    QString comment;

    /** The bytes of the text from the first to the one after the last. */
    int start = 0;
    int end = 0;
    Position position;

    static Node text(const QString& text);
    static Node word(const QString& text);
    /** A number, true or false. */
    static Node bare(const QString& text);
    static Node number(qint64 number);
    static Node sequence();
    static Node mapping();

    /** Appends to a mapping. */
    void add(const QString& key, Node value);
    /** The first member with the key, or null. */
    const Member* member(const QString& key) const;
    /** Whether there is nothing at all, as after "key:". */
    bool isNull() const;
};

struct Node::Member {
    QString key;
    int keyStart = 0;
    Position keyPosition;
    Node value;
};

/** Equal in what they say, wherever they stand and whatever is commented. */
bool operator==(const Node& left, const Node& right);

/** Ends the reading of a text. */
struct Refusal {
    /** Where, in bytes. */
    int offset;
    QString text;
};

/** Finds lines and columns; fast for offsets that ascend. */
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
Node readTree(const QByteArray& text, Form form);
/** Reads YAML without anchors, aliases and tags, one document; throws Refusal. */
Node readYaml(const QByteArray& text);
/** Reads JSON; throws Refusal. */
Node readJson(const QByteArray& text);

/** The mapping as a whole text, records in lines of their own. */
QByteArray yamlText(const Node& mapping);
QByteArray jsonText(const Node& value);
/** The value in one line: valid wherever a value stands. */
QString yamlInline(const Node& value);
QString jsonInline(const Node& value);
/** The start of a text in quotes and without control characters, fit for a message. */
QString shownText(const QString& text);
/** The value in lines, all but the first with `indentation` blanks ahead. */
QString jsonLines(const Node& value, int indentation);
/** The records of a sequence in lines with `indentation` blanks ahead; no line feed at the end. */
QString yamlRecords(const Node& sequence, int indentation);
/** The lines of a mapping, each with `indentation` blanks ahead; no line feed at the end. */
QString yamlLines(const Node& mapping, int indentation);

} // namespace QuadrelDocument
