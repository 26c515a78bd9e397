// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "projectdocument.h"

#include "documenttext.h"
#include "modelconversion.h"
#include "projectxml.h"
#include "xmlfile.h"

namespace QuadrelDocument {

namespace {

/** Reads one section through the library, or reports what it says. */
template <typename Model>
std::optional<Model> load(const QString& path, bool (*read)(const QString&, Model&, QString&),
    bool isThere, Findings& findings)
{
    Model model;
    QString error;
    if (!isThere)
        return std::nullopt;
    if (read(path, model, error))
        return model;
    Finding finding;
    finding.text = error;
    findings.append(finding);
    return std::nullopt;
}

template <typename Records> std::optional<Records> unlessEmpty(const Records& records)
{
    return records.isEmpty() ? std::nullopt : std::optional<Records>(records);
}

/** The library's reader skips the Modbus triggers. */
QVector<Trigger> withModbus(const QVector<Trigger>& loaded, const ProjectXml& xml)
{
    QVector<Trigger> triggers = loaded;
    for (auto stub = xml.modbusTriggers.begin(); stub != xml.modbusTriggers.end(); ++stub) {
        TriggerModel model;
        model.push_back(*stub);
        Trigger trigger = triggersOf(model).constFirst();
        trigger.line = unknownLine;
        triggers.insert(qMin(stub.key(), triggers.size()), trigger);
    }
    for (int i = 0; i < triggers.size(); ++i)
        triggers[i].id = i;
    return triggers;
}

class Losses {
public:
    explicit Losses(const Contents& contents)
        : m_contents(contents)
    {
    }

    Findings all()
    {
        if (m_contents.device)
            add({Section::Device, -1, {}}, noPlace());
        addEmptySection(Section::Events, m_contents.events);
        addEmptySection(Section::Triggers, m_contents.triggers);
        const QVector<Event> events = m_contents.events.value_or(QVector<Event>());
        for (int i = 0; i < events.size(); ++i) {
            if (events.at(i).name)
                add({Section::Events, i, QStringLiteral("name")}, noPlace());
            addText({Section::Events, i, QStringLiteral("description")}, events.at(i).description);
        }
        const QVector<Trigger> triggers = m_contents.triggers.value_or(QVector<Trigger>());
        for (int i = 0; i < triggers.size(); ++i) {
            if (triggers.at(i).kind == TriggerKind::ComModbus)
                add({Section::Triggers, i, {}},
                    Text::tr("a project file has no place for kind and line of a Modbus trigger"));
            addText(
                {Section::Triggers, i, QStringLiteral("description")}, triggers.at(i).description);
        }
        const int timeTriggers = m_contents.timeTriggers ? m_contents.timeTriggers->size() : 0;
        for (int i = 0; i < timeTriggers; ++i)
            add({Section::TimeTriggers, i, {}}, noPlace());
        return m_findings;
    }

private:
    static QString noPlace() { return Text::tr("a project file has no place for it"); }

    void add(const Place& place, const QString& text)
    {
        m_findings.append({Severity::Warning, place, {}, pathOf(place, m_contents), text});
    }

    template <typename Records>
    void addEmptySection(Section section, const std::optional<Records>& records)
    {
        if (records && records->isEmpty())
            add({section, -1, {}}, Text::tr("a project file can't say that there are none"));
    }

    void addText(const Place& place, const QString& text)
    {
        for (int i = 0; i < text.size(); ++i) {
            const int size = sizeOfXmlCharacter(text, i);
            if (size == 0)
                add(place,
                    Text::tr("a project file has no place for the character U+%1")
                        .arg(QString::number(text.at(i).unicode(), 16).toUpper(), 4,
                            QLatin1Char('0')));
            i += qMax(0, size - 1);
        }
        if (!text.isEmpty() && text.trimmed().isEmpty())
            add(place, Text::tr("a project file has no place for blanks alone"));
    }

    const Contents& m_contents;
    Findings m_findings;
};

template <typename Records> Records withProjectTexts(Records records)
{
    for (auto& record : records)
        record.description = textInProject(record.description);
    return records;
}

} // namespace

Document parseProject(const QString& path, const QByteArray& text)
{
    const ProjectXml xml = surveyProject(text);
    Document document;
    document.positions = xml.positions;
    document.findings = xml.findings;
    if (hasErrors(document.findings))
        return document;
    Findings& findings = document.findings;
    const auto config =
        load<SystemModel>(path, XmlFile::readConfigXmlFile, xml.hasConfig, findings);
    const auto events = load<EventModel>(path, XmlFile::readEventXmlFile, xml.hasEvents, findings);
    const auto triggers =
        load<TriggerModel>(path, XmlFile::readTriggerXmlFile, xml.hasTriggers, findings);
    if (config) {
        document.contents.serialPorts = unlessEmpty(serialPortsOf(*config));
        document.contents.ioLines = unlessEmpty(ioLinesOf(*config));
    }
    if (events)
        document.contents.events = unlessEmpty(eventsOf(*events));
    if (triggers)
        document.contents.triggers = unlessEmpty(withModbus(triggersOf(*triggers), xml));
    return document;
}

QString textInProject(const QString& text)
{
    QString held;
    for (int i = 0; i < text.size(); ++i) {
        const int size = sizeOfXmlCharacter(text, i);
        held += text.midRef(i, size);
        i += qMax(0, size - 1);
    }
    return held.trimmed().isEmpty() ? QString() : held;
}

Findings lossesInProject(const Contents& contents)
{
    return Losses(contents).all();
}

bool writeProject(const QString& path, const Contents& contents)
{
    const QVector<Event> events = contents.events.value_or(QVector<Event>());
    const QVector<Trigger> triggers = contents.triggers.value_or(QVector<Trigger>());
    return XmlFile::writeConfigXmlFile(path, asRead(contents.serialPorts, contents.ioLines), false)
        && XmlFile::writeEventXmlFile(path, asRead(withProjectTexts(events)), true)
        && XmlFile::writeTriggerXmlFile(path, asRead(withProjectTexts(triggers)), true);
}

} // namespace QuadrelDocument
