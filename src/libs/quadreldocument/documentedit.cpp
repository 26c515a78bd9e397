// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "documentedit.h"

#include "contentstree.h"
#include "documenttext.h"

#include <QtCore/QRegularExpression>

#include <algorithm>

namespace QuadrelDocument {

namespace {

/** Why an edit is not made. */
struct EditRefusal {
    QString text;
};

struct Path {
    QString text;
    Section section = Section::None;
    /** The id, port or line. */
    std::optional<int> number;
    QString field;
};

Path parsePath(const QString& text)
{
    static const QRegularExpression form(
        QStringLiteral("\\A([A-Za-z]+)(?:\\[([0-9]{1,5})\\])?(?:\\.([A-Za-z]+))?\\z"));
    const QRegularExpressionMatch match = form.match(text);
    Path path;
    path.text = text;
    for (const Section section : documentSections()) {
        if (sectionName(section) == match.captured(1))
            path.section = section;
    }
    if (!match.captured(2).isEmpty())
        path.number = match.captured(2).toInt();
    path.field = match.captured(3);
    const bool hasRecord = path.number.has_value();
    if (path.section == Section::None || (hasRecord && !isList(path.section))
        || (!hasRecord && isList(path.section) && !path.field.isEmpty()))
        throw EditRefusal{Text::tr("%1 is not a path; paths are such as events[8], "
                                   "events[8].description and device.ip")
                              .arg(shownText(text))};
    return path;
}

/** Of a field that there may be. */
const Field& fieldOf(const Path& path)
{
    const QVector<Field>& fields = fieldsOf(path.section);
    QStringList known;
    for (const Field& field : fields) {
        if (field.key == path.field)
            return field;
        known.append(field.key);
    }
    throw EditRefusal{Text::tr("%1: there is no such field; there are %2")
                          .arg(path.text, known.join(QStringLiteral(", ")))};
}

int orderOf(Section section, const QString& key)
{
    const QVector<Field>& fields = fieldsOf(section);
    for (int i = 0; i < fields.size(); ++i) {
        if (fields.at(i).key == key)
            return i;
    }
    return fields.size();
}

/** One value as YAML writes it in brackets. */
DocumentNode readValue(const Path& path, const QString& text)
{
    try {
        const DocumentNode list = readYaml(QStringLiteral("[%1]").arg(text).toUtf8());
        if (list.items.size() == 1)
            return list.items.front();
        if (!list.items.empty() && list.kind == DocumentNode::Kind::Sequence)
            return list;
    } catch (const Refusal&) {
    }
    throw EditRefusal{Text::tr("%1: %2 is not a value").arg(path.text, shownText(text))};
}

/** A value of a field in the way in which documents are written. */
DocumentNode written(const QString& field, FieldType type, const DocumentNode& value)
{
    const QStringList words{
        QStringLiteral("forever"), QStringLiteral("high"), QStringLiteral("low")};
    if (value.kind != DocumentNode::Kind::Scalar)
        return value;
    const bool isWord = field != QLatin1String("description") && field != QLatin1String("name")
        && words.contains(value.value);
    if (type == FieldType::Word || (type == FieldType::Text && isWord))
        return DocumentNode::word(value.value);
    return type == FieldType::Text ? DocumentNode::text(value.value) : value;
}

DocumentNode fieldValue(const Path& path, const Field& field, const QString& text)
{
    const bool isText = field.type == FieldType::Text || field.type == FieldType::Word;
    if (!isText) {
        DocumentNode value = readValue(path, text);
        if (field.type == FieldType::Numbers && value.kind == DocumentNode::Kind::Scalar) {
            DocumentNode list = DocumentNode::sequence();
            list.items.push_back(value);
            return list;
        }
        return value;
    }
    const bool isQuoted =
        text.size() > 1 && text.startsWith(QLatin1Char('"')) && text.endsWith(QLatin1Char('"'));
    const QString bare = isQuoted ? readValue(path, text).value : text;
    return written(field.key, field.type, DocumentNode::text(bare));
}

/** The keys that have no place beside one that is set. */
QStringList rivalsOf(Section section, const QString& key)
{
    const QStringList commands{
        QStringLiteral("delay"), QStringLiteral("protocol"), QStringLiteral("protocolText")};
    const QStringList parameters{QStringLiteral("parameter"), QStringLiteral("parameterText")};
    QStringList rivals;
    if (section == Section::Events && commands.contains(key))
        rivals = commands;
    else if (section == Section::Triggers && parameters.contains(key))
        rivals = parameters;
    rivals.removeAll(key);
    return rivals;
}

/**
 * A document's text with its tree. Each change is made to both, and the text is read again: what
 * does not come out as the tree says is not a change of that place alone.
 */
class EditableText {
public:
    EditableText(const QByteArray& text, Form form)
        : m_form(form)
    {
        load(text);
        if (m_root.kind != DocumentNode::Kind::Mapping)
            throw EditRefusal{Text::tr("this is not a unit document")};
    }

    QByteArray text() const { return m_text; }

    DocumentNode* section(Section section) { return valueIn(m_root, sectionName(section)); }

    /** The record that the path calls, or null. */
    DocumentNode* record(const Path& path)
    {
        DocumentNode* list = section(path.section);
        if (!list)
            return nullptr;
        if (!path.number)
            return list;
        for (size_t i = 0; i < list->items.size(); ++i) {
            const DocumentNode::Member* key = list->items[i].member(recordKey(path.section));
            const QString number = key ? key->value.value : QString::number(i);
            if (number == QString::number(*path.number))
                return &list->items[i];
        }
        return nullptr;
    }

    static DocumentNode* valueIn(DocumentNode& mapping, const QString& key)
    {
        for (DocumentNode::Member& member : mapping.members) {
            if (member.key == key)
                return &member.value;
        }
        return nullptr;
    }

    void setField(const Path& path, const QString& key, const DocumentNode& value)
    {
        DocumentNode* mapping = record(path);
        if (DocumentNode* old = valueIn(*mapping, key))
            replaceValue(*mapping, key, *old, value);
        else
            insertMember(path, *mapping, key, value);
    }

    void removeField(const Path& path, const QString& key)
    {
        DocumentNode& mapping = *record(path);
        auto& members = mapping.members;
        const auto found = std::find_if(members.begin(), members.end(),
            [&key](const DocumentNode::Member& member) { return member.key == key; });
        if (found == members.end())
            return;
        const auto index = static_cast<size_t>(found - members.begin());
        if (members.size() == 1)
            throw EditRefusal{Text::tr("%1: a record has to have a field").arg(path.text)};
        int start = 0;
        int end = 0;
        if (index == 0) {
            start = members[0].keyStart;
            end = members[1].keyStart;
        } else if (isFlow(mapping)) {
            start = members[index - 1].value.end;
            end = members[index].value.end;
        } else {
            start = lineStart(members[index].keyStart);
            end = nextLine(members[index].value.end);
        }
        members.erase(found);
        change(start, end, {});
    }

    void addRecord(const Path& path, const DocumentNode& record)
    {
        DocumentNode* list = section(path.section);
        DocumentNode added = DocumentNode::sequence();
        added.items.push_back(record);
        if (!list)
            addSection(path.section, added);
        else if (list->items.empty())
            fillSection(path.section, *list, added);
        else
            appendRecord(*list, added);
    }

    void removeRecord(const Path& path)
    {
        DocumentNode& list = *section(path.section);
        const auto index = static_cast<size_t>(record(path) - list.items.data());
        int start = 0;
        int end = 0;
        QByteArray rest;
        if (list.items.size() == 1) {
            start = isFlow(list) ? list.start : colonEnd(path.section);
            end = list.end;
            rest = isFlow(list) ? "[]" : " []";
        } else if (!isFlow(list)) {
            start = lineStart(dashOf(list.items[index]));
            end = nextLine(list.items[index].end);
        } else if (index == 0) {
            start = list.items[0].start;
            end = list.items[1].start;
        } else {
            start = list.items[index - 1].end;
            end = list.items[index].end;
        }
        list.items.erase(list.items.begin() + static_cast<std::ptrdiff_t>(index));
        change(start, end, rest);
    }

private:
    void load(const QByteArray& text)
    {
        m_text = text;
        m_root = readTree(text, m_form);
    }

    /** Puts `bytes` in the place of a range; the tree was changed before. */
    void change(int start, int end, const QByteArray& bytes)
    {
        const DocumentNode wanted = m_root;
        const QByteArray before = m_text;
        try {
            load(QByteArray(before).replace(start, end - start, bytes));
        } catch (const Refusal&) {
            m_root = DocumentNode();
        }
        if (m_root == wanted)
            return;
        throw EditRefusal{
            Text::tr("line %1 can't be changed without touching what is beside it; it is for an "
                     "editor to do")
                .arg(PositionFinder(before).at(start).line)};
    }

    bool isJson() const { return m_form == Form::Json; }
    bool isFlow(const DocumentNode& node) const
    {
        const char first = node.start < m_text.size() ? m_text.at(node.start) : '\0';
        return first == '{' || first == '[';
    }

    int lineStart(int offset) const { return m_text.lastIndexOf('\n', offset - 1) + 1; }
    int lineEnd(int offset) const
    {
        const int end = m_text.indexOf('\n', offset);
        const int last = end < 0 ? m_text.size() : end;
        return last > offset && m_text.at(last - 1) == '\r' ? last - 1 : last;
    }
    int nextLine(int offset) const
    {
        const int end = m_text.indexOf('\n', offset);
        return end < 0 ? m_text.size() : end + 1;
    }
    QByteArray lineFeed() const { return m_text.contains("\r\n") ? "\r\n" : "\n"; }

    QByteArray lines(const QString& text) const { return text.toUtf8().replace("\n", lineFeed()); }

    int colonEnd(Section section) const
    {
        return m_text.indexOf(':', m_root.member(sectionName(section))->keyStart) + 1;
    }

    /** The dash ahead of an item in a line of its own. */
    int dashOf(const DocumentNode& item) const { return m_text.lastIndexOf('-', item.start); }

    QString inlineText(const DocumentNode& value) const
    {
        return isJson() ? jsonInline(value) : yamlInline(value);
    }
    QString keyText(const QString& key) const
    {
        return isJson() ? QStringLiteral("\"%1\": ").arg(key) : key + QStringLiteral(": ");
    }

    /** The value as a reader of the text will find it. */
    DocumentNode found(const DocumentNode& value) const
    {
        return readTree(QStringLiteral("[%1]").arg(inlineText(value)).toUtf8(), m_form)
            .items.front();
    }

    void replaceValue(const DocumentNode& mapping, const QString& key, DocumentNode& old,
        const DocumentNode& value)
    {
        QByteArray bytes = inlineText(value).toUtf8();
        int end = old.end;
        if (old.start == old.end)
            bytes.prepend(' ');
        if (!isFlow(mapping))
            end = withComment(key, old, value, bytes);
        const int start = old.start;
        old = found(value);
        change(start, end, bytes);
    }

    /** Brings the comment after bytes up to date, unless somebody wrote another; gives its end. */
    int withComment(const QString& key, const DocumentNode& old, const DocumentNode& value,
        QByteArray& bytes) const
    {
        const bool isHex = key == QLatin1String("protocol") || key == QLatin1String("parameter");
        if (!isHex)
            return old.end;
        const QByteArray before = hexComment(old.value);
        const QByteArray rest = m_text.mid(old.end, lineEnd(old.end) - old.end).trimmed();
        if (rest != before.trimmed())
            return old.end;
        bytes += hexComment(value.value);
        return lineEnd(old.end);
    }

    static QByteArray hexComment(const QString& hex)
    {
        const QString comment = commentOf(bytesOfHex(hex).value_or(QByteArray()));
        return comment.isEmpty() ? QByteArray() : "  # " + comment.toUtf8();
    }

    void insertMember(
        const Path& path, DocumentNode& mapping, const QString& key, const DocumentNode& value)
    {
        if (mapping.members.empty())
            throw EditRefusal{Text::tr("%1: the record is empty").arg(path.text)};
        size_t place = 0;
        for (size_t i = 0; i < mapping.members.size(); ++i) {
            if (orderOf(path.section, mapping.members[i].key) < orderOf(path.section, key))
                place = i;
        }
        const DocumentNode::Member& ahead = mapping.members[place];
        DocumentNode single = DocumentNode::mapping();
        single.add(key, value);
        int offset = ahead.value.end;
        QByteArray bytes;
        if (isFlow(mapping)) {
            bytes = "," + gapAhead(ahead.keyStart) + (keyText(key) + inlineText(value)).toUtf8();
        } else {
            offset = lineEnd(ahead.value.end);
            const int indentation = mapping.start - lineStart(mapping.start);
            bytes = lineFeed() + lines(yamlLines(withHexComment(single), indentation));
        }
        mapping.members.insert(mapping.members.begin() + static_cast<std::ptrdiff_t>(place) + 1,
            {key, 0, {}, found(value)});
        change(offset, offset, bytes);
    }

    static DocumentNode withHexComment(DocumentNode mapping)
    {
        for (DocumentNode::Member& member : mapping.members) {
            if (member.key == QLatin1String("protocol") || member.key == QLatin1String("parameter"))
                member.value.comment =
                    commentOf(bytesOfHex(member.value.value).value_or(QByteArray()));
        }
        return mapping;
    }

    /** What parts values within brackets: a line like that of the one before, or a blank. */
    QByteArray gapAhead(int offset) const
    {
        const QByteArray blanks = m_text.mid(lineStart(offset), offset - lineStart(offset));
        return blanks.trimmed().isEmpty() && offset > blanks.size() ? lineFeed() + blanks
                                                                    : QByteArray(" ");
    }

    void addSection(Section section, const DocumentNode& list)
    {
        const auto order = [](const QString& name) {
            for (const Section known : documentSections()) {
                if (sectionName(known) == name)
                    return static_cast<int>(known);
            }
            return 0;
        };
        size_t place = 0;
        for (size_t i = 0; i < m_root.members.size(); ++i) {
            if (order(m_root.members[i].key) < static_cast<int>(section))
                place = i;
        }
        const DocumentNode::Member& ahead = m_root.members.at(place);
        const QString name = sectionName(section);
        int offset = ahead.value.end;
        QByteArray bytes;
        if (isFlow(m_root)) {
            const QByteArray gap = gapAhead(ahead.keyStart);
            bytes = "," + gap
                + lines(keyText(name)
                    + (isJson() ? jsonLines(list, gap.trimmed().isEmpty() ? gap.size() - 1 : 0)
                                : yamlInline(list)));
        } else {
            offset = lineEnd(ahead.value.end);
            DocumentNode single = DocumentNode::mapping();
            single.add(name, withHexComments(list));
            bytes = lineFeed() + lines(yamlLines(single, 0));
        }
        m_root.members.insert(m_root.members.begin() + static_cast<std::ptrdiff_t>(place) + 1,
            {name, 0, {}, found(list)});
        change(offset, offset, bytes);
    }

    static DocumentNode withHexComments(DocumentNode list)
    {
        for (DocumentNode& item : list.items)
            item = withHexComment(item);
        return list;
    }

    /** Puts records where [] or nothing was. */
    void fillSection(Section section, DocumentNode& list, const DocumentNode& records)
    {
        constexpr int yamlIndentation = 2;
        const int end = list.end;
        int start = list.start;
        QByteArray bytes;
        if (isFlow(m_root)) {
            const int keyStart = m_root.member(sectionName(section))->keyStart;
            bytes = isJson() ? lines(jsonLines(records, keyStart - lineStart(keyStart)))
                             : yamlInline(records).toUtf8();
        } else {
            start = colonEnd(section);
            bytes = lineFeed() + lines(yamlRecords(withHexComments(records), yamlIndentation));
        }
        list = found(records);
        change(start, end, bytes);
    }

    void appendRecord(DocumentNode& list, const DocumentNode& records)
    {
        const DocumentNode& last = list.items.back();
        int offset = last.end;
        QByteArray bytes;
        if (isFlow(list)) {
            const QByteArray gap = gapAhead(last.start);
            const DocumentNode& record = records.items.front();
            bytes = "," + gap
                + lines(isJson() && gap != " "
                        ? jsonLines(record, last.start - lineStart(last.start))
                        : inlineText(record));
        } else {
            const int dash = dashOf(last);
            offset = lineEnd(last.end);
            bytes =
                lineFeed() + lines(yamlRecords(withHexComments(records), dash - lineStart(dash)));
        }
        list.items.push_back(found(records).items.front());
        change(offset, offset, bytes);
    }

    const Form m_form;
    QByteArray m_text;
    DocumentNode m_root;
};

DocumentNode& requireRecord(EditableText& text, const Path& path)
{
    DocumentNode* record = text.record(path);
    if (!record || record->kind != DocumentNode::Kind::Mapping) {
        Path parent = path;
        parent.field.clear();
        throw EditRefusal{
            Text::tr("%1: it is not there").arg(path.text.section(QLatin1Char('.'), 0, 0))};
    }
    return *record;
}

/** The number of the kind follows from the command; where the record has it, it is kept right. */
void updateType(EditableText& text, const Path& path)
{
    const QString key = QStringLiteral("type");
    DocumentNode& record = requireRecord(text, path);
    if (path.section != Section::Events || !record.member(key))
        return;
    DocumentNode root = DocumentNode::mapping();
    DocumentNode list = DocumentNode::sequence();
    list.items.push_back(record);
    root.add(sectionName(Section::Events), list);
    const int type = documentOf(root).contents.events->first().type();
    if (record.member(key)->value.value != QString::number(type))
        text.setField(path, key, DocumentNode::number(type));
}

void setField(EditableText& text, const Path& path, const QString& key, const DocumentNode& value)
{
    text.setField(path, key, value);
    const QStringList rivals = rivalsOf(path.section, key);
    for (const QString& rival : rivals)
        text.removeField(path, rival);
}

/** The record in braces, with its number first. */
DocumentNode recordFrom(const Path& path, const QString& value)
{
    const DocumentNode given = readValue(path, value);
    const QString key = recordKey(path.section);
    const QString number = QString::number(*path.number);
    if (given.kind != DocumentNode::Kind::Mapping)
        throw EditRefusal{
            Text::tr("%1: a record is written in braces, such as {delay: 500}").arg(path.text)};
    if (given.member(key) && given.member(key)->value.value != number)
        throw EditRefusal{Text::tr("%1: the record says %2 %3")
                              .arg(path.text, key, given.member(key)->value.value)};
    DocumentNode record = DocumentNode::mapping();
    record.add(key, DocumentNode::number(*path.number));
    for (const DocumentNode::Member& member : given.members) {
        const QVector<Field>& fields = fieldsOf(path.section);
        const auto field = std::find_if(fields.begin(), fields.end(),
            [&member](const Field& known) { return known.key == member.key; });
        if (field == fields.end())
            fieldOf({path.text + QLatin1Char('.') + member.key, path.section, {}, member.key});
        else if (member.key != key)
            record.add(member.key, written(member.key, field->type, member.value));
    }
    return record;
}

/** Makes a record say just what another one says. */
void replaceRecord(EditableText& text, const Path& path, const DocumentNode& record)
{
    QStringList gone;
    for (const DocumentNode::Member& member : requireRecord(text, path).members) {
        if (!record.member(member.key))
            gone.append(member.key);
    }
    for (const DocumentNode::Member& member : record.members) {
        if (member.key != recordKey(path.section))
            text.setField(path, member.key, member.value);
    }
    for (const QString& key : gone)
        text.removeField(path, key);
}

void assign(EditableText& text, const QString& assignment)
{
    const int sign = assignment.indexOf(QLatin1Char('='));
    if (sign < 0)
        throw EditRefusal{Text::tr("%1 has no \"=\"; an assignment is such as "
                                   "events[8].description=Display off")
                              .arg(shownText(assignment))};
    const Path path = parsePath(assignment.left(sign).trimmed());
    const QString value = assignment.mid(sign + 1);
    if (!path.field.isEmpty()) {
        const Field& field = fieldOf(path);
        requireRecord(text, path);
        setField(text, path, path.field, fieldValue(path, field, value));
        if (field.key != QLatin1String("type") && path.field != recordKey(path.section))
            updateType(text, path);
        return;
    }
    if (!path.number)
        throw EditRefusal{
            Text::tr("%1: only records and fields can be set, such as events[8]").arg(path.text)};
    const DocumentNode record = recordFrom(path, value);
    if (text.record(path))
        replaceRecord(text, path, record);
    else
        text.addRecord(path, record);
}

void remove(EditableText& text, const QString& pathText)
{
    const Path path = parsePath(pathText);
    if (path.field.isEmpty() && !path.number)
        throw EditRefusal{
            Text::tr("%1: only records and fields can be unset, such as events[8]").arg(path.text)};
    const DocumentNode& record = requireRecord(text, path);
    if (path.field.isEmpty()) {
        text.removeRecord(path);
        return;
    }
    if (fieldOf(path).isRequired)
        throw EditRefusal{Text::tr("%1: it can't be left out").arg(path.text)};
    if (!record.member(path.field))
        throw EditRefusal{Text::tr("%1: it is not there").arg(path.text)};
    text.removeField(path, path.field);
}

/** Runs an edit, and turns what keeps it from being made into a message. */
template <typename Edit> EditedText edited(const QByteArray& given, Form form, Edit edit)
{
    const QByteArray text = withoutMark(given);
    const QByteArray mark = given.left(given.size() - text.size());
    if (form == Form::Project)
        return {{}, Text::tr("a project file can't be changed in place; .yaml and .json can")};
    try {
        EditableText editable(text, form);
        edit(editable);
        return {mark + editable.text(), {}};
    } catch (const EditRefusal& refusal) {
        return {{}, refusal.text};
    } catch (const Refusal& refusal) {
        return {{},
            Text::tr("line %1: %2")
                .arg(QString::number(PositionFinder(text).at(refusal.offset).line), refusal.text)};
    }
}

QString shownNode(const DocumentNode& node, Form form)
{
    if (node.kind == DocumentNode::Kind::Scalar)
        return node.value;
    const bool isRecord = node.kind == DocumentNode::Kind::Mapping;
    const bool isList =
        !node.items.empty() && node.items.front().kind == DocumentNode::Kind::Mapping;
    if (form == Form::Json)
        return jsonLines(node, 0);
    if (isRecord)
        return yamlLines(node, 0);
    return isList ? yamlRecords(node, 0) : yamlInline(node);
}

QByteArray commentMark()
{
    return QByteArrayLiteral("#! ");
}

} // namespace

EditedText setValue(const QByteArray& text, Form form, const QString& assignment)
{
    return edited(text, form, [&](EditableText& editable) { assign(editable, assignment); });
}

EditedText unsetValue(const QByteArray& text, Form form, const QString& path)
{
    return edited(text, form, [&](EditableText& editable) { remove(editable, path); });
}

FoundValue getValue(const QByteArray& text, Form form, const QString& pathText)
{
    FoundValue found;
    const EditedText result = edited(text, form, [&](EditableText& editable) {
        const Path path = parsePath(pathText);
        const DocumentNode* node = editable.record(path);
        if (node && !path.field.isEmpty()) {
            fieldOf(path);
            const DocumentNode::Member* member = node->member(path.field);
            node = member ? &member->value : nullptr;
        }
        if (!node)
            throw EditRefusal{Text::tr("%1: it is not there").arg(path.text)};
        found.value = shownNode(*node, form);
    });
    found.error = result.error;
    return found;
}

QByteArray withComments(const QByteArray& text, const Findings& findings)
{
    const QList<QByteArray> lines = text.split('\n');
    QByteArray result;
    for (int i = 0; i < lines.size(); ++i) {
        for (const Finding& finding : findings) {
            // What has no place is said at the top.
            if (qMax(1, finding.position.line) == i + 1)
                result += commentMark() + messageOf(finding).toUtf8() + '\n';
        }
        result += lines.at(i);
        if (i + 1 < lines.size())
            result += '\n';
    }
    return result;
}

QByteArray withoutComments(const QByteArray& text)
{
    QByteArray result;
    int start = 0;
    while (start < text.size()) {
        const int end = text.indexOf('\n', start);
        const QByteArray line = text.mid(start, end < 0 ? -1 : end + 1 - start);
        if (!line.startsWith(commentMark()))
            result += line;
        start += line.size();
    }
    return result;
}

} // namespace QuadrelDocument
