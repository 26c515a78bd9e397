// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include <QtCore/QBuffer>
#include <QtCore/QTemporaryFile>
#include <QtCore/QTextStream>
#include <QtTest/QtTest>
#include <QtXml/QDomDocument>

#include "guardedxml.h"
#include "hostilefiles.h"
#include "owncost.h"

namespace {

const RefusalTexts texts = {
    QStringLiteral("too deep"), QStringLiteral("too large"), QStringLiteral("too many")};

struct Parse {
    bool parsed = false;
    QString text;
    QString error;
};

QString textOf(const QDomDocument& document)
{
    QString text;
    QTextStream stream(&text);
    document.save(stream, 1);
    return text;
}

class OneWayBuffer : public QBuffer {
public:
    using QBuffer::QBuffer;
    bool seek(qint64) override { return false; }
};

Parse guarded(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QDomDocument document;
    Parse parse;
    parse.parsed = setContentGuarded(document, buffer, texts, &parse.error);
    if (parse.parsed)
        parse.text = textOf(document);
    return parse;
}

Parse plain(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QDomDocument document;
    Parse parse;
    parse.parsed = document.setContent(&buffer, false, &parse.error);
    if (parse.parsed)
        parse.text = textOf(document);
    return parse;
}

void accepts(const QByteArray& bytes)
{
    const Parse expected = plain(bytes);
    const Parse actual = guarded(bytes);

    QVERIFY(expected.parsed);
    QCOMPARE(actual.error, QString());
    QCOMPARE(actual.text, expected.text);
}

void refuses(const QByteArray& bytes, const QString& error)
{
    const Parse parse = guarded(bytes);

    QVERIFY(!parse.parsed);
    QCOMPARE(parse.error, error);
}

QByteArray nested(int levels)
{
    return QByteArray("<a>").repeated(levels) + QByteArray("</a>").repeated(levels);
}

QByteArray utf16(const QByteArray& ascii)
{
    QByteArray bytes;
    for (const char c : ascii)
        bytes.append(c).append('\0');
    return bytes;
}

QByteArray withType(const QByteArray& declarations, const QByteArray& document)
{
    return "<!DOCTYPE a [" + declarations + "]>" + document;
}

} // namespace

class TestGuardedXml : public QObject {
    Q_OBJECT

private slots:
    void parsesLikeTheDom_data();
    void parsesLikeTheDom();
    void refusesTooDeep_data();
    void refusesTooDeep();
    void acceptsTheDeepest_data();
    void acceptsTheDeepest();
    void countsNoParenthesesOutsideTheProlog_data();
    void countsNoParenthesesOutsideTheProlog();
    void endsEntityBombs_data();
    void endsEntityBombs();
    void countsOpenParentheses();
    void refusesTooLarge_data();
    void refusesTooLarge();
    void acceptsTheLargest_data();
    void acceptsTheLargest();
    void refusesTooMany_data();
    void refusesTooMany();
    void staysInProportion_data();
    void staysInProportion();
    void leavesErrorAloneOnSuccess();
    void takesNoErrorText();
    void parsesAnOpenTextFile();
    void parsesADeviceThatCannotGoBack();
};

void TestGuardedXml::parsesLikeTheDom_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("wellFormed");

    QTest::newRow("element") << QByteArray("<a/>") << true;
    QTest::newRow("declaration") << QByteArray("<?xml version='1.0'?><a>t</a>") << true;
    QTest::newRow("indented") << QByteArray("<a>\n  <b> </b>\n  <c> t </c>\n</a>\n") << true;
    QTest::newRow("attributes") << QByteArray("<a b='1' c=\"2&lt;\"/>") << true;
    QTest::newRow("namespaces") << QByteArray(
        "<x:a xmlns:x='urn:x' xmlns='urn:y'><b x:c='1'/></x:a>")
                                << true;
    QTest::newRow("unbound prefix") << QByteArray("<x:a/>") << true;
    QTest::newRow("comments") << QByteArray("<!-- 1 --><a><!-- </a> --></a><!-- 2 -->") << true;
    QTest::newRow("cdata") << QByteArray("<a><![CDATA[</a><b>]]></a>") << true;
    QTest::newRow("instructions") << QByteArray("<?p q?><a><?p <a>?></a><?p q?>") << true;
    QTest::newRow("characters") << QByteArray("<a>&#65;&#x42;&amp;&lt;&gt;&quot;&apos;</a>")
                                << true;
    QTest::newRow("carriage returns") << QByteArray("<a>\r\n<b>x\r\ny\rz</b>\r\n</a>") << true;
    QTest::newRow("type") << withType("<!ELEMENT a (b|(c,d))*>", "<a/>") << true;
    QTest::newRow("type's attribute") << withType("<!ATTLIST a b CDATA 'd'>", "<a/>") << true;
    QTest::newRow("type's notation") << withType("<!NOTATION n SYSTEM 'n'>", "<a/>") << true;
    QTest::newRow("external entity") << withType("<!ENTITY e SYSTEM 'e'>", "<a>&e;</a>") << true;
    QTest::newRow("external entity in attribute")
        << withType("<!ENTITY e SYSTEM 'e'>", "<a b='&e;'/>") << false;
    QTest::newRow("unparsed entity")
        << withType("<!NOTATION n SYSTEM 'n'><!ENTITY e SYSTEM 'e' NDATA n>", "<a/>") << true;
    QTest::newRow("entity") << withType("<!ENTITY e '<b>x</b>'>", "<a>&e;&e;</a>") << true;
    QTest::newRow("entity in attribute") << withType("<!ENTITY e 'x'>", "<a b='&e;'/>") << true;
    QTest::newRow("parameter entity")
        << withType("<!ENTITY % p '<!ENTITY e \"x\">'>%p;", "<a>&e;</a>") << true;
    QTest::newRow("undeclared entity") << QByteArray("<a>x&e;y</a>") << true;
    QTest::newRow("undeclared entity in the root's attribute")
        << QByteArray("<a b='x&e;y'/>") << true;
    QTest::newRow("undeclared entity in an attribute")
        << QByteArray("<r><a b='&e;'/>x&f;<c d='&g;'>&h;</c></r>") << true;
    QTest::newRow("undeclared entity and a mistake")
        << QByteArray("<r><a b='&e;'/>x&f;</s>") << false;
    QTest::newRow("external type")
        << QByteArray("<!DOCTYPE a SYSTEM 'x'><a b='&e;'>&e;</a>") << true;
    QTest::newRow("UTF-8 mark") << QByteArray("\xEF\xBB\xBF<a>\xE4\xBA\x8B</a>") << true;
    QTest::newRow("outside the BMP") << QByteArray("<a>\xF0\x9F\x98\x80</a>") << true;
    QTest::newRow("Latin-1") << QByteArray("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9</a>")
                             << true;
    const QByteArray declared = "<?xml version='1.0' encoding='UTF-16'?><a>x</a>";
    QTest::newRow("UTF-16") << "\xFF\xFE" + utf16(declared) << true;
    QTest::newRow("UTF-16 without mark") << utf16(declared) << plain(utf16(declared)).parsed;
    QTest::newRow("invalid UTF-8") << QByteArray("<a>\xFF\xFE\x80</a>") << true;
    QTest::newRow("long") << "<a>" + QByteArray("<b c='d'>text (</b>\n").repeated(5000) + "</a>"
                          << true;

    QTest::newRow("nothing") << QByteArray() << false;
    QTest::newRow("blanks") << QByteArray(" \n ") << false;
    QTest::newRow("plain text") << QByteArray("text") << false;
    QTest::newRow("open element") << QByteArray("<a><b></b>") << false;
    QTest::newRow("crossed elements") << QByteArray("<a><b></a></b>") << false;
    QTest::newRow("two roots") << QByteArray("<a/><b/>") << false;
    QTest::newRow("text after the root") << QByteArray("<a/>text") << false;
    QTest::newRow("bare ampersand") << QByteArray("<a>&</a>") << false;
    QTest::newRow("attribute without quotes") << QByteArray("<a b=c/>") << false;
    QTest::newRow("attribute twice") << QByteArray("<a b='1' b='2'/>") << true;
    QTest::newRow("open comment") << QByteArray("<a><!-- </a>") << false;
    QTest::newRow("open cdata") << QByteArray("<a><![CDATA[</a>") << false;
    QTest::newRow("late declaration") << QByteArray(" <?xml version='1.0'?><a/>") << false;
    QTest::newRow("wrong version") << QByteArray("<?xml version='9'?><a/>") << true;
    QTest::newRow("unknown encoding")
        << QByteArray("<?xml version='1.0' encoding='no-such'?><a/>") << true;
    QTest::newRow("NUL") << QByteArray("<a>\0</a>", 8) << plain(QByteArray("<a>\0</a>", 8)).parsed;
    QTest::newRow("recursive entities")
        << withType("<!ENTITY e '&f;'><!ENTITY f '&e;'>", "<a>&e;</a>") << false;
    QTest::newRow("open type") << QByteArray("<!DOCTYPE a [<!ELEMENT a (b") << false;
}

void TestGuardedXml::parsesLikeTheDom()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const bool, wellFormed);

    const Parse expected = plain(bytes);
    const Parse actual = guarded(bytes);

    QCOMPARE(expected.parsed, wellFormed);
    QCOMPARE(actual.parsed, expected.parsed);
    QCOMPARE(actual.text, expected.text);
    QCOMPARE(actual.error, expected.error);
}

void TestGuardedXml::refusesTooDeep_data()
{
    QTest::addColumn<QByteArray>("bytes");

    const int many = 100000;
    QTest::newRow("one too many") << nested(1001);
    QTest::newRow("empty element too many")
        << QByteArray("<a>").repeated(1000) + "<b/>" + QByteArray("</a>").repeated(1000);
    QTest::newRow("after a shallow part") << "<r>" + nested(999) + nested(1000) + "</r>";
    QTest::newRow("many") << nested(many);
    QTest::newRow("many, never closed") << QByteArray("<a>").repeated(many);
    QTest::newRow("before a mistake") << nested(1001) + "</b>";
    QTest::newRow("with attributes") << QByteArray("<a b='/>'>").repeated(many);
    QTest::newRow("after comments") << QByteArray("<a><!-- </a> -->").repeated(many);
    QTest::newRow("after sections") << QByteArray("<a><![CDATA[</a>]]>").repeated(many);
    QTest::newRow("after instructions") << QByteArray("<a><?p </a>?>").repeated(many);
    QTest::newRow("with texts") << QByteArray("<a>text &amp; text").repeated(many);
    QTest::newRow("within undeclared entities") << QByteArray("<a c='&b;'>&b;").repeated(many);
    QTest::newRow("in an entity") << withType(
        "<!ENTITY e '<a>'>", "<r>" + QByteArray("&e;").repeated(many));
    QTest::newRow("in nested entities")
        << withType("<!ENTITY e '<a><a>&f;&f;'><!ENTITY f '<a>&g;'><!ENTITY g '<a>'>",
               "<r>" + QByteArray("&e;").repeated(many));
    QTest::newRow("in an entity of character references")
        << withType("<!ENTITY e '&#60;a&#62;'>", "<r>" + QByteArray("&e;").repeated(many));
    QTest::newRow("in UTF-16") << "\xFF\xFE" + QByteArray("<\0a\0>\0", 6).repeated(many);
    QTest::newRow("in UTF-16, big-endian")
        << "\xFE\xFF" + QByteArray("\0<\0a\0>", 6).repeated(many);
    QTest::newRow("in Latin-1") << "<?xml version='1.0' encoding='ISO-8859-1'?>"
            + QByteArray("<a>").repeated(many);
    QTest::newRow("in ISO-2022-JP")
        << "<?xml version='1.0' encoding='ISO-2022-JP'?>" + QByteArray("<a>").repeated(many);
    QTest::newRow("content model")
        << withType("<!ELEMENT a " + QByteArray("(").repeated(many), QByteArray());
    QTest::newRow("content model with names") << withType(
        "<!ELEMENT a " + QByteArray("((b)*,").repeated(10) + QByteArray("( \n").repeated(many),
        QByteArray());
    QTest::newRow("content model in an entity") << withType(
        "<!ENTITY % p '<!ELEMENT a " + QByteArray("(").repeated(many) + "'>%p;", "<a/>");
    QTest::newRow("content model in an entity of character references") << withType(
        "<!ENTITY % p '<!ELEMENT a " + QByteArray("&#40;").repeated(many) + "'>%p;", "<a/>");
    QTest::newRow("content model begun in an entity")
        << withType("<!ENTITY % p '<!ELEMENT a ('>%p;" + QByteArray("(").repeated(many), "<a/>");
}

void TestGuardedXml::refusesTooDeep()
{
    QFETCH(const QByteArray, bytes);
    refuses(bytes, texts.tooDeep);
}

void TestGuardedXml::acceptsTheDeepest_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("elements") << nested(1000);
    QTest::newRow("empty element")
        << QByteArray("<a>").repeated(999) + "<b/>" + QByteArray("</a>").repeated(999);
    QTest::newRow("many of them") << "<r>" + nested(999).repeated(20) + "</r>";
    QTest::newRow("many siblings") << "<r>" + QByteArray("<a/>").repeated(100000) + "</r>";
    QTest::newRow("an undeclared entity")
        << QByteArray("<a b='&e;'>").repeated(1000) + QByteArray("</a>").repeated(1000);
    QTest::newRow("content model") << withType("<!ELEMENT a " + QByteArray("(").repeated(2000) + "b"
            + QByteArray(")").repeated(2000) + ">",
        "<a/>");
    QTest::newRow("many content models")
        << withType(QByteArray("<!ELEMENT a ((b),(c))>").repeated(2000), "<a/>");
}

void TestGuardedXml::acceptsTheDeepest()
{
    QFETCH(const QByteArray, bytes);
    accepts(bytes);
}

void TestGuardedXml::countsNoParenthesesOutsideTheProlog_data()
{
    QTest::addColumn<QByteArray>("bytes");

    const QByteArray parentheses = QByteArray("(").repeated(100000);
    QTest::newRow("text at once") << "<a>" + parentheses + "</a>";
    QTest::newRow("text of a section") << "<a><![CDATA[" + parentheses + "]]></a>";
    QTest::newRow("attribute of a child") << "<a><b c='" + parentheses + "'/></a>";
    // The root's start tag and the text after it meet at the edge of a piece of 1,024 bytes.
    for (int blanks = 1010; blanks < 1030; ++blanks) {
        QTest::newRow(qPrintable(QStringLiteral("after %1 blanks").arg(blanks)))
            << QByteArray(" ").repeated(blanks) + "<a>" + parentheses + "</a>";
    }
}

void TestGuardedXml::countsNoParenthesesOutsideTheProlog()
{
    QFETCH(const QByteArray, bytes);
    accepts(bytes);
}

void TestGuardedXml::endsEntityBombs_data()
{
    QTest::addColumn<QByteArray>("declarations");

    QByteArray doubling = "<!ENTITY e0 'aaaaaaaaaa'>";
    for (int i = 1; i < 30; ++i) {
        const QByteArray before = "&e" + QByteArray::number(i - 1) + ";";
        doubling += "<!ENTITY e" + QByteArray::number(i) + " '" + before.repeated(10) + "'>";
    }
    QTest::newRow("entities of entities") << doubling + "<!ENTITY bomb '&e29;'>";

    QTest::newRow("recursion") << QByteArray("<!ENTITY bomb '&e;&e;'><!ENTITY e '&bomb;&bomb;'>");
    QTest::newRow("parameter entities") << QByteArray(
        "<!ENTITY % p '(((('><!ENTITY % q '%p;%p;'><!ENTITY % r '<!ELEMENT a %q;'>%r;");
}

void TestGuardedXml::endsEntityBombs()
{
    QFETCH(const QByteArray, declarations);
    const QByteArray bytes = withType(declarations, "<a>&bomb;</a>");

    const Parse expected = plain(bytes);
    const Parse actual = guarded(bytes);

    QVERIFY(!actual.parsed);
    QVERIFY(!actual.error.isEmpty());
    QCOMPARE(actual.error, expected.error);
}

void TestGuardedXml::countsOpenParentheses()
{
    const auto model = [](int open) {
        return withType("<!ELEMENT a " + QByteArray("(").repeated(open) + "b"
                + QByteArray(")").repeated(open) + ">",
            "<a/>");
    };
    accepts(model(2048));
    refuses(model(2049), texts.tooDeep);
}

void TestGuardedXml::refusesTooLarge_data()
{
    QTest::addColumn<QByteArray>("bytes");

    const QByteArray longText(4000, 'x');
    const QByteArray references = QByteArray("&e;").repeated(20000);
    const auto row = [](const char* name, const QByteArray& entity, const QByteArray& document) {
        QTest::newRow(name) << withType("<!ENTITY e '" + entity + "'>", document);
    };
    const QByteArray manyReferences = "<a>" + references + "</a>";
    row("text", longText, manyReferences);
    row("text of a section", "<![CDATA[" + longText + "]]>", manyReferences);
    row("comments", QByteArray("<!---->").repeated(500), manyReferences);
    row("instructions", QByteArray("<?p?>").repeated(700), manyReferences);
    row("elements", QByteArray("<b/>").repeated(1000), manyReferences);
    row("text of attributes", longText, "<a b='" + references + "'/>");
    row("text of many attributes", longText,
        "<r>" + QByteArray("<a b='&e;'/>").repeated(20000) + "</r>");
    row("never closed", longText, "<a>" + references);

    row("after entities of entities", "&f;'><!ENTITY f '" + longText, manyReferences);
    row("references made of character references", "&#38;f;'><!ENTITY f '" + longText,
        manyReferences);
    QTest::newRow("defaults of attributes") << withType(
        "<!ENTITY e '" + longText + "'>" + QByteArray("<!ATTLIST a b CDATA '&e;'>").repeated(20000),
        "<a/>");
    QTest::newRow("one reference too many")
        << withType("<!ENTITY e '" + QByteArray(1000, 'x') + "'>",
               "<a>" + QByteArray("&e;").repeated(250) + "</a>");
    for (const char* ampersand : {"&", "&#38;"}) {
        QByteArray declarations;
        for (int i = 30; i > 0; --i) {
            const QByteArray next = ampersand + QByteArray("e") + QByteArray::number(i - 1) + ";";
            declarations += "<!ENTITY e" + QByteArray::number(i) + " '" + next.repeated(40) + "'>";
        }
        QTest::addRow("entities of later entities by %s", ampersand)
            << withType(declarations + "<!ENTITY e0 'xxx'>", "<a>&e30;</a>");
    }

    QTest::newRow("an entity of one that refers to a later one")
        << withType("<!ENTITY e '" + QByteArray("&f;").repeated(40) + "'><!ENTITY f '"
                   + QByteArray(90, 'x') + "'><!ENTITY g '" + QByteArray("&e;").repeated(40) + "'>",
               "<a>&g;</a>");

    // The entity ends in "&e", so that each ";" after it makes one more reference.
    const QByteArray open = "<!ENTITY e '" + longText + "&#38;e'>";
    QTest::newRow("an entity that is not referred to")
        << withType("<!ENTITY e '" + QByteArray(250001, 'x') + "'>", "<a/>");
    QTest::newRow("references that end after the entity")
        << withType(open, "<a>" + QByteArray(1024, ' ') + "&e;" + QByteArray(62, ';') + "</a>");
    QTest::newRow("references that end in another entity")
        << withType(open + "<!ENTITY f 'x;'>", "<a>" + QByteArray(1024, ' ') + "&f;</a>");

    // The parser gets pieces of 1 KB: the entities and the references to them come in the same.
    const QByteArray endsWithPiece(100 * 1024 - int(sizeof("<!DOCTYPE a [<!ENTITY e '") - 1), 'x');
    QTest::newRow("references just after the entity") << withType(
        "<!ENTITY e '" + endsWithPiece + "'>", "<a>" + QByteArray("&e;").repeated(300) + "</a>");
    QTest::newRow("open references just after the entity")
        << withType("<!ENTITY e '" + endsWithPiece.chopped(6) + "&#38;e'>",
               "<a>&e" + QByteArray(900, ';') + "</a>");
    QTest::newRow("entities just after the entity") << withType("<!ENTITY e '" + endsWithPiece
            + "'><!ENTITY f '" + QByteArray("&#38;e;").repeated(30) + "'><!ENTITY g '"
            + QByteArray("&#38;f;").repeated(30) + "'>",
        "<a>&g;</a>");

    QByteArray entities;
    for (int i = 0; i < 20000; ++i)
        entities += "<!ENTITY e" + QByteArray::number(i) + " ''>";
    QTest::newRow("many entities") << withType(entities, "<a/>");
}

void TestGuardedXml::refusesTooLarge()
{
    QFETCH(const QByteArray, bytes);
    refuses(bytes, texts.tooLarge);
}

void TestGuardedXml::acceptsTheLargest_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("text of entities") << withType("<!ENTITY e '" + QByteArray(1000, 'x') + "'>",
        "<a>" + QByteArray("&e;").repeated(249) + "</a>");
    QByteArray entities;
    for (int i = 0; i < 256; ++i)
        entities += "<!ENTITY e" + QByteArray::number(i) + " 'x'>";
    QTest::newRow("entities") << withType(entities, "<a>&e0;&e255;</a>");
    QTest::newRow("an entity of later entities")
        << withType("<!ENTITY e '" + QByteArray("&f;&#38;f;").repeated(20) + "'><!ENTITY f '"
                   + QByteArray(90, 'x') + "'><!ENTITY f '" + QByteArray(4000, 'y') + "'>",
               "<a>&e;</a>");
    QTest::newRow("references without entities")
        << "<a>" + QByteArray("&lt;").repeated(100000) + "</a>";
    QTest::newRow("entity that is left open and not referred to")
        << withType("<!ENTITY e 'AT&#38;T'><!ENTITY f '&#38;lt;'>",
               "<a b='&f;'>" + QByteArray("x;&f;").repeated(10000) + "</a>");
    QTest::newRow("an entity that is not referred to")
        << withType("<!ENTITY e '" + QByteArray(250000, 'x') + "'>", "<a/>");
    QTest::newRow("semicolons") << withType("<!ENTITY e '" + QByteArray(4000, 'x') + "; '>",
        "<a>&e;" + QByteArray(100000, ';') + "</a>");
    const auto declarations = [](int count, const QByteArray& before, const QByteArray& after) {
        QByteArray text;
        for (int i = 0; i < count; ++i)
            text += before + QByteArray::number(i) + after;
        return text;
    };
    QTest::newRow("notations and external entities")
        << withType(declarations(100, "<!NOTATION n", " SYSTEM 'n'>")
                   + declarations(100, "<!ENTITY e", " SYSTEM 'e'>")
                   + declarations(56, "<!ENTITY u", " SYSTEM 'u' NDATA n>"),
               "<a/>");
    QTest::newRow("attributes") << "<a" + declarations(256, " b", "='x'") + "/>";
    QTest::newRow("nodes") << "<a  >" + QByteArray("<b c=''/>").repeated(45715) + "</a>";
    QTest::newRow("percent signs") << withType(
        "<!ENTITY e '" + QByteArray(4000, 'x') + "'>", "<a>&e;" + QByteArray(100000, '%') + "</a>");
    // A text that no entity makes larger has no limit.
    QTest::newRow("text") << "<a>" + QByteArray(300000, 'x') + "</a>";
}

void TestGuardedXml::acceptsTheLargest()
{
    QFETCH(const QByteArray, bytes);
    accepts(bytes);
}

void TestGuardedXml::refusesTooMany_data()
{
    QTest::addColumn<QByteArray>("bytes");

    const auto repeated = [](int count, const QByteArray& before, const QByteArray& after) {
        QByteArray text;
        for (int i = 0; i < count; ++i)
            text += before + QByteArray::number(i) + after;
        return text;
    };
    QTest::newRow("notations") << withType(repeated(257, "<!NOTATION n", " SYSTEM 'n'>"), "<a/>");
    QTest::newRow("external entities")
        << withType(repeated(257, "<!ENTITY e", " SYSTEM 'e'>"), "<a/>");
    QTest::newRow("unparsed entities")
        << withType(repeated(257, "<!ENTITY e", " SYSTEM 'e' NDATA n>"), "<a/>");
    QTest::newRow("both") << withType(
        repeated(256, "<!NOTATION n", " SYSTEM 'n'>") + "<!ENTITY e SYSTEM 'e'>", "<a/>");
    QTest::newRow("attributes") << "<a" + repeated(257, " b", "='x'") + "/>";
    QTest::newRow("nodes") << "<a >" + QByteArray("<b c=''/>").repeated(45715) + "</a>";
    QTest::newRow("texts") << "<a>" + QByteArray("<b/>x").repeated(200000) + "</a>";
    QTest::newRow("instructions") << "<a>" + QByteArray("<?p?>x").repeated(200000) + "</a>";
    const QByteArray references = "<a>" + QByteArray("&e;").repeated(20000) + "</a>";
    QTest::newRow("attributes of an entity")
        << withType("<!ENTITY e '" + QByteArray("<b c=\"\"/>").repeated(400) + "'>", references);
    QTest::newRow("undeclared entities") << "<a>" + QByteArray("&e;").repeated(100000) + "</a>";
}

void TestGuardedXml::refusesTooMany()
{
    QFETCH(const QByteArray, bytes);
    refuses(bytes, texts.tooMany);
}

void TestGuardedXml::staysInProportion_data()
{
    QTest::addColumn<QByteArray>("bytes");
    for (const HostileFile& file : hostileFiles(1024 * 1024))
        QTest::newRow(file.name.constData()) << file.bytes;
}

/** The benchmarks measure the time of an optimised build; this one may take ten times as long. */
void TestGuardedXml::staysInProportion()
{
    QFETCH(QByteArray, bytes);
    constexpr double seconds = 2.5;
    constexpr double megabytes = 80;

    const OwnCost cost;
    {
        QBuffer buffer(&bytes);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        QDomDocument document;
        setContentGuarded(document, buffer, texts, nullptr);
    }
    const double spent = cost.processorSeconds();
    QVERIFY2(spent < seconds, qPrintable(QStringLiteral("%1 s").arg(spent)));
    const double grown = cost.peakMegabytes();
    QVERIFY2(grown < megabytes, qPrintable(QStringLiteral("%1 MB").arg(grown)));
}

void TestGuardedXml::leavesErrorAloneOnSuccess()
{
    QByteArray bytes("<a b='&e;'/>");
    QBuffer buffer(&bytes);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    QDomDocument document;
    QString error = QStringLiteral("before");

    QVERIFY(setContentGuarded(document, buffer, texts, &error));
    QCOMPARE(error, QStringLiteral("before"));
}

void TestGuardedXml::takesNoErrorText()
{
    QByteArray bytes = nested(1001);
    QBuffer buffer(&bytes);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    QDomDocument document;

    QVERIFY(!setContentGuarded(document, buffer, texts, nullptr));
}

void TestGuardedXml::parsesAnOpenTextFile()
{
    const QByteArray bytes = "<a>\r\n<b c='&e;'>x\r\ny</b>\r\n</a>";
    QTemporaryFile file;
    QVERIFY(file.open());
    file.write(bytes);
    file.close();

    QFile guardedFile(file.fileName());
    QVERIFY(guardedFile.open(QIODevice::ReadOnly | QIODevice::Text));
    QDomDocument guardedDocument;
    QVERIFY(setContentGuarded(guardedDocument, guardedFile, texts, nullptr));

    QFile plainFile(file.fileName());
    QVERIFY(plainFile.open(QIODevice::ReadOnly | QIODevice::Text));
    QDomDocument plainDocument;
    QVERIFY(plainDocument.setContent(&plainFile, false));

    QCOMPARE(textOf(guardedDocument), textOf(plainDocument));
}

void TestGuardedXml::parsesADeviceThatCannotGoBack()
{
    QByteArray bytes("<a>x&e;y</a>");
    OneWayBuffer buffer(&bytes);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    QDomDocument document;

    QVERIFY(setContentGuarded(document, buffer, texts, nullptr));
    QCOMPARE(document.documentElement().text(), QStringLiteral("xy"));
}

QTEST_APPLESS_MAIN(TestGuardedXml)
#include "tst_guardedxml.moc"
