// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QVector>

/** A file that is made to cost its reader far more than its size. */
struct HostileFile {
    QByteArray name;
    QByteArray bytes;
};

/** As many of `unit` between `head` and `tail` as `size` has room for. */
inline QByteArray filledXml(int size, const QByteArray& unit, const QByteArray& head = "<a>",
    const QByteArray& tail = "</a>")
{
    const int room = size - head.size() - tail.size();
    return head + unit.repeated(qMax(0, room / unit.size())) + tail;
}

/** As above, but only so many that a reader still accepts `nodes` for each; a long text fills up.
 */
inline QByteArray denseXml(int size, const QByteArray& unit, int nodes)
{
    const int allowed = (80000 + size / 4 - 10) / nodes;
    const int count = qMin(allowed, (size - 10) / unit.size());
    const int filler = size - 10 - count * unit.size();
    return "<a>" + QByteArray(filler, 'x') + unit.repeated(count) + "</a>";
}

/**
 * Names of six characters whose checksum by the polynomial 0x82F63B78 is the same in UTF-16. The
 * framework hashes by that checksum, so that all of them meet in one place of a table.
 */
class EqualHashes {
public:
    EqualHashes()
    {
        QVector<quint64> checksums;
        QVector<quint64> sources;
        for (int bit = 0; bit < length * bitsPerCharacter; ++bit) {
            quint64 source = quint64(1) << bit;
            quint32 sum = checksum(source);
            for (int i = 0; i < checksums.size(); ++i) {
                if ((sum ^ checksums.at(i)) < sum) {
                    sum ^= static_cast<quint32>(checksums.at(i));
                    source ^= sources.at(i);
                }
            }
            if (sum == 0) {
                m_changes.append(source);
                continue;
            }
            // In descending order, so that each step clears the highest bit that is left.
            int place = 0;
            while (place < checksums.size() && checksums.at(place) > sum)
                ++place;
            checksums.insert(place, sum);
            sources.insert(place, source);
        }
    }

    /** Names that differ for each number below 2 to the power of 28. */
    QString name(int number) const
    {
        quint64 bits = 0;
        for (int i = 0; i < m_changes.size(); ++i)
            bits ^= (number >> i & 1) != 0 ? m_changes.at(i) : 0;
        return text(bits);
    }

private:
    static constexpr int length = 5;
    static constexpr int bitsPerCharacter = 12;

    static QString text(quint64 bits)
    {
        QString name;
        for (int i = 0; i < length; ++i)
            name.append(QChar(ushort(0x5000 | (bits >> i * bitsPerCharacter & 0xFFF))));
        return name;
    }

    /** Linear in the bits, as the start value and the constant ones are left out. */
    static quint32 checksum(quint64 bits)
    {
        quint32 sum = 0;
        for (int i = 0; i < length; ++i) {
            sum ^= static_cast<quint32>(bits >> i * bitsPerCharacter & 0xFFF);
            for (int step = 0; step < 16; ++step)
                sum = sum >> 1 ^ ((sum & 1) != 0 ? 0x82F63B78U : 0U);
        }
        return sum;
    }

    QVector<quint64> m_changes;
};

/** The kinds of attack that are known, each about `size` bytes long. */
inline QVector<HostileFile> hostileFiles(int size)
{
    const auto withType = [](const QByteArray& declarations, const QByteArray& document) {
        return "<!DOCTYPE a [" + declarations + "]>" + document;
    };
    const auto numbered = [](int count, const QByteArray& before, const QByteArray& after) {
        QByteArray text;
        for (int i = 0; i < count; ++i)
            text += before + QByteArray::number(i) + after;
        return text;
    };
    const EqualHashes equal;
    const auto equallyHashed = [&](int count, const QString& before, const QString& after) {
        QString text;
        for (int i = 0; i < count; ++i)
            text += before + equal.name(i) + after;
        return text.toUtf8();
    };
    const QByteArray longText(4000, 'x');
    const QByteArray open = "<!ENTITY e '" + longText + "&#38;e'>";
    QByteArray manyReferences;
    for (int i = 0; i < 250; ++i) {
        manyReferences += "<!ENTITY e" + QByteArray::number(i) + " '";
        for (int j = 0; j < 150; ++j)
            manyReferences += "&#38;e" + QByteArray::number((i + j) % 250) + ";";
        manyReferences += "'>";
    }

    return {
        {"ampersands of an entity",
            filledXml(size, "&#38;", "<!DOCTYPE a [<!ENTITY e '", "'>]><a/>")},
        {"references among entities", withType(manyReferences, "<a/>")},
        {"entity left open, in a text", withType(open, filledXml(size, ";", "<a>&e;"))},
        {"entity left open, in an attribute",
            withType(open, filledXml(size, ";", "<a b='&e;", "'/>"))},
        {"references", withType("<!ENTITY e '" + longText + "'>", filledXml(size, "&e;"))},
        {"references just after the entity",
            withType("<!ENTITY e '" + QByteArray(240 * 1024 - 25, 'x') + "'>",
                "<a>" + QByteArray("&e;").repeated(300) + "</a>")},
        {"entities", withType(numbered(size / 20, "<!ENTITY e", " ''>"), "<a/>")},
        {"elements", filledXml(size, "<a/>")},
        {"elements and texts", denseXml(size, "<a/>x", 2)},
        {"attributes", denseXml(size, "<a b=''/>", 4)},
        {"attributes that are parsed twice", denseXml(size, "<a b='&e;'/>", 6)},
        {"texts that are parsed twice", denseXml(size, "x&e;", 3)},
        {"comments", filledXml(size, "<!---->")},
        {"instructions", filledXml(size, "<?p?>")},
        {"sections", filledXml(size, "<![CDATA[x]]>")},
        {"undeclared parameters", filledXml(size, "%p;", "<!DOCTYPE a [", "]><a/>")},
        {"attributes of one element", "<a" + numbered(size / 12, " b", "=''") + "/>"},
        {"attributes with equal hashes",
            "<a" + equallyHashed(size / 19, QStringLiteral(" "), QStringLiteral("=''")) + "/>"},
        {"notations with equal hashes",
            withType(equallyHashed(
                         size / 38, QStringLiteral("<!NOTATION "), QStringLiteral(" SYSTEM ''>")),
                "<a/>")},
        {"entities with equal hashes",
            withType(equallyHashed(
                         size / 36, QStringLiteral("<!ENTITY "), QStringLiteral(" SYSTEM ''>")),
                "<a/>")},
        {"depth", filledXml(size, "<a>", "", "")},
        {"parentheses", filledXml(size, "(", "<!DOCTYPE a [<!ELEMENT a ", ">]><a/>")},
        {"one long name", filledXml(size, "x", "<a", "/>")},
        {"one open attribute", filledXml(size, "x", "<a b='", "")},
    };
}
