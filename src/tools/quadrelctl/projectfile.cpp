#include "projectfile.h"

#include "savefile.h"
#include "tool.h"
#include "xmlfile.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QHash>
#include <QtCore/QTemporaryFile>
#include <QtCore/QXmlStreamReader>

namespace {

const QString configSection = QStringLiteral("Configs");
const QString eventSection = QStringLiteral("Events");
const QString triggerSection = QStringLiteral("Triggers");

/** What a file looks like from outside. */
struct Survey {
    bool isWellFormed = false;
    QString error;
    bool hasDocumentType = false;
    /** How many records the first section of each name holds. */
    QHash<QString, int> records;
};

int countChildren(QXmlStreamReader& xml)
{
    int count = 0;
    for (; xml.readNextStartElement(); ++count)
        xml.skipCurrentElement();
    return count;
}

Survey survey(const QString& path)
{
    Survey result;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return result;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd() && !xml.isStartElement()) {
        xml.readNext();
        result.hasDocumentType |= xml.isDTD();
    }
    while (!result.hasDocumentType && xml.readNextStartElement()) {
        const QString name = xml.name().toString();
        const int count = countChildren(xml);
        if (!result.records.contains(name))
            result.records.insert(name, count);
    }
    result.isWellFormed = !xml.hasError();
    result.error = xml.errorString();
    return result;
}

[[noreturn]] void fail(const QString& path, const QString& reason)
{
    throw CommandFailure{QStringLiteral("%1: %2").arg(path, reason)};
}

Survey surveyProject(const QString& path)
{
    const QFileInfo info(path);
    if (info.exists() && !info.isFile() && !info.isDir())
        fail(path, Tool::tr("not a regular file"));
    const Survey result = survey(path);
    // Project files have none, and its entities could grow without bounds.
    if (result.hasDocumentType)
        fail(path, Tool::tr("a document type has no place in a project file"));
    return result;
}

class Loader {
public:
    explicit Loader(const QString& path)
        : m_path(path)
        , m_survey(surveyProject(path))
    {
    }

    /** Reads one section into `target`, or notes that it is missing. */
    template <typename Model>
    void load(const QString& section, bool (*read)(const QString&, Model&, QString&),
        std::optional<Model>& target)
    {
        // A file that can't be read at all goes to the library, for its words.
        if (m_survey.isWellFormed && m_survey.records.value(section) == 0) {
            m_file.missing.append(section);
            return;
        }
        Model model;
        QString error;
        if (!read(m_path, model, error))
            fail(m_path, error);
        target = model;
    }

    void warnOfSkipped(const QString& section, int loaded)
    {
        const int skipped = m_survey.records.value(section) - loaded;
        if (skipped > 0)
            m_file.warnings.append(
                Tool::tr("%1: %2 records of \"%3\" were left out: of another shape, or too many")
                    .arg(m_path, QString::number(skipped), section));
    }

    ProjectFile load()
    {
        Contents& contents = m_file.contents;
        load(configSection, &XmlFile::readConfigXmlFile, contents.config);
        load(eventSection, &XmlFile::readEventXmlFile, contents.events);
        load(triggerSection, &XmlFile::readTriggerXmlFile, contents.triggers);
        // The library makes what it can of bytes that are no text in the encoding of the file.
        if (!m_survey.isWellFormed)
            fail(m_path, m_survey.error);
        if (m_file.missing.size() == 3)
            fail(m_path, Tool::tr("no section of a project file is there"));
        if (contents.config)
            warnOfSkipped(configSection,
                contents.config->getComInfo().size() + contents.config->getIOType().size());
        if (contents.events)
            warnOfSkipped(eventSection, contents.events->size());
        if (contents.triggers)
            warnOfSkipped(triggerSection, contents.triggers->size());
        forgetNames();
        return m_file;
    }

private:
    /** The reader gives each event the name of a new one, which says nothing. */
    void forgetNames()
    {
        if (!m_file.contents.events)
            return;
        QList<EventInfo> events = m_file.contents.events->getEventInfo();
        for (EventInfo& event : events)
            event.setEventName(QString());
        m_file.contents.events->setEventInfo(events);
    }

    const QString m_path;
    const Survey m_survey;
    ProjectFile m_file;
};

/** The writers do not look whether the disk took their text: every section must be there again. */
bool isComplete(const QString& path, const Contents& contents)
{
    SystemModel config = *contents.config;
    EventModel events = *contents.events;
    TriggerModel triggers = *contents.triggers;
    const Survey result = survey(path);
    return result.isWellFormed
        && result.records.value(configSection, -1)
        == config.getComInfo().size() + config.getIOType().size()
        && result.records.value(eventSection, -1) == events.size()
        && result.records.value(triggerSection, -1) == triggers.size();
}

} // namespace

ProjectFile ProjectFile::load(const QString& path)
{
    return Loader(path).load();
}

void saveProjectFile(const QString& path, const Contents& contents)
{
    QTemporaryFile file;
    if (!file.open())
        fail(QDir::tempPath(), file.errorString());
    const bool isWritten = XmlFile::writeConfigXmlFile(file.fileName(), *contents.config, false)
        && XmlFile::writeEventXmlFile(file.fileName(), *contents.events, true)
        && XmlFile::writeTriggerXmlFile(file.fileName(), *contents.triggers, true);
    if (!isWritten || !isComplete(file.fileName(), contents))
        fail(path, Tool::tr("a project file can't be made of these contents"));
    saveFile(path, file.readAll());
}

namespace {

/** How many records hold something that has no form in a file. */
struct Losses {
    int eventNames = 0;
    int eventTypes = 0;
    int modbusTriggers = 0;
    int triggerIds = 0;
    int timeTriggers = 0;

    explicit Losses(const Contents& contents)
    {
        EventModel events = contents.events.value_or(EventModel());
        TriggerModel triggers = contents.triggers.value_or(TriggerModel());
        TriggerTimeModel times = contents.timeTriggers.value_or(TriggerTimeModel());
        const QString defaultName = EventInfo().getEventName();
        const QList<EventInfo> eventRecords = events.getEventInfo();
        for (EventInfo event : eventRecords) {
            const EventInfo::EventType type = event.getEventType();
            eventNames += event.getEventName() != defaultName;
            eventTypes += type != EventInfo::EVENT_TYPE_0 && type != EventInfo::EVENT_DELAY;
        }
        const QList<TriggerInfo> triggerRecords = triggers.getTriggerInfo();
        for (TriggerInfo trigger : triggerRecords)
            modbusTriggers += trigger.getTriggerType() == TriggerInfo::COM_MODBUS;
        triggerIds = triggers.size();
        timeTriggers = times.size();
    }
};

class Sentences {
public:
    void add(const QString& text, int records)
    {
        if (records > 0)
            m_sentences.append(text.arg(records));
    }
    QStringList list() const { return m_sentences; }

private:
    QStringList m_sentences;
};

} // namespace

QStringList lossesOfSaving(const Contents& contents)
{
    const Losses losses(contents);
    Sentences sentences;
    sentences.add(Tool::tr("event names are not saved: %1 records"), losses.eventNames);
    sentences.add(
        Tool::tr("event types without a word are not saved: %1 records"), losses.eventTypes);
    sentences.add(Tool::tr("Modbus triggers are not saved: %1 records"), losses.modbusTriggers);
    sentences.add(Tool::tr("the ids of triggers are not saved: %1 records"), losses.triggerIds);
    sentences.add(Tool::tr("time triggers are not saved: %1 records"), losses.timeTriggers);
    return sentences.list();
}

QStringList lossesOfWriting(const Contents& unit)
{
    const Losses losses(unit);
    Sentences sentences;
    sentences.add(Tool::tr("the unit's event names are lost, no file holds them: %1 records"),
        losses.eventNames);
    sentences.add(Tool::tr("the file has no word for the types of some of the unit's events, which "
                           "follow from the commands again: %1 records"),
        losses.eventTypes);
    sentences.add(Tool::tr("the unit's Modbus triggers are lost, no file holds them: %1 records"),
        losses.modbusTriggers);
    sentences.add(Tool::tr("the unit's triggers are numbered anew, no file holds their ids: "
                           "%1 records"),
        losses.triggerIds);
    sentences.add(
        Tool::tr("the unit's time triggers are removed: %1 records"), losses.timeTriggers);
    return sentences.list();
}
