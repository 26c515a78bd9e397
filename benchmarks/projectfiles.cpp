// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "rows.h"
#include "timing.h"
#include "xmlfile.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTextStream>
#include <QtXml/QDomDocument>

namespace {

constexpr int events = 128;
constexpr int triggers = 64;
constexpr int ports = 9;
constexpr int ioLines = 12;

EventModel eventModel()
{
    EventModel model;
    for (int i = 0; i < events; ++i) {
        EventInfo event;
        event.setEventId(i + 1);
        event.setEventProtocol(QStringLiteral("4c 01 00 25 10 03 52 01 10 00 0b 50 4f 57 45 52"));
        event.setEventInstruction(QStringLiteral("打开投影机 %1").arg(i));
        model.push_back(event);
    }
    return model;
}

TriggerModel triggerModel()
{
    TriggerModel model;
    for (int i = 0; i < triggers; ++i) {
        TriggerInfo trigger;
        trigger.setTriggerType(i % 2 == 0 ? TriggerInfo::COM : TriggerInfo::IO);
        trigger.setTriggerParameter(QStringLiteral("50 41 4e 45 4c 20 31 0d"));
        trigger.setTriggerEvent(QStringLiteral("事件(ID:1);事件(ID:5);事件(ID:3)"));
        trigger.setTriggerInstruction(QStringLiteral("面板：开始上课"));
        model.push_back(trigger);
    }
    return model;
}

SystemModel configModel(int portCount, int lineCount)
{
    QList<ComInfo> portList;
    for (int i = 0; i < portCount; ++i)
        portList.append(ComInfo());
    QList<IOType> lineList;
    for (int i = 0; i < lineCount; ++i)
        lineList.append(IO_TYPE_1);
    SystemModel model;
    model.setComInfo(portList);
    model.setIOType(lineList);
    return model;
}

void check(bool succeeded, const QString& path)
{
    if (!succeeded)
        qFatal("%s can't be read or written", qPrintable(path));
}

void load(const QString& path, QDomDocument& document)
{
    QFile file(path);
    check(file.open(QIODevice::ReadOnly | QIODevice::Text) && document.setContent(&file), path);
}

void save(const QString& path, const QDomDocument& document)
{
    QFile file(path);
    check(file.open(QIODevice::WriteOnly | QIODevice::Truncate), path);
    QTextStream stream(&file);
    document.save(stream, 4, QDomNode::EncodingFromDocument);
}

/** The reader of triggers logs a line, which is for the library's developers. */
void dropMessages(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type != QtDebugMsg)
        fprintf(stderr, "%s\n", qPrintable(text));
}

/** A folder with a project file: all that a unit can hold. */
class ProjectFolder {
public:
    ProjectFolder() { qInstallMessageHandler(dropMessages); }
    ~ProjectFolder() { qInstallMessageHandler(nullptr); }
    Q_DISABLE_COPY_MOVE(ProjectFolder)

    QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }

    void writeProject(const QString& path)
    {
        check(XmlFile::writeConfigXmlFile(path, m_config, false)
                && XmlFile::writeEventXmlFile(path, m_events, true)
                && XmlFile::writeTriggerXmlFile(path, m_triggers, true),
            path);
    }

    void readProject(const QString& path)
    {
        SystemModel config;
        EventModel events;
        TriggerModel triggers;
        QString error;
        check(XmlFile::readConfigXmlFile(path, config, error)
                && XmlFile::readEventXmlFile(path, events, error)
                && XmlFile::readTriggerXmlFile(path, triggers, error),
            path);
        check(
            config == m_config && events.size() == ::events && triggers.size() == ::triggers, path);
    }

private:
    const QTemporaryDir m_folder;
    const SystemModel m_config = configModel(ports, ioLines);
    const EventModel m_events = eventModel();
    const TriggerModel m_triggers = triggerModel();
};

class ReadProject : public Comparison {
public:
    ReadProject() { m_folder.writeProject(m_path); }

    double ours() override
    {
        return microsecondsPerCall(1, [this] { m_folder.readProject(m_path); }) / 1000;
    }

    double reference() override
    {
        return microsecondsPerCall(1, [this] {
            for (int i = 0; i < 3; ++i) {
                QDomDocument document;
                load(m_path, document);
            }
        }) / 1000;
    }

private:
    ProjectFolder m_folder;
    const QString m_path = m_folder.path("project.xml");
};

/** The writers load what is there, and save it with their section added. */
class WriteProject : public Comparison {
public:
    WriteProject()
    {
        m_folder.writeProject(m_path);
        load(m_path, m_whole);
        m_withoutTriggers = withoutLastSection(m_whole);
        m_configOnly = withoutLastSection(m_withoutTriggers);
    }

    double ours() override
    {
        return microsecondsPerCall(1, [this] { m_folder.writeProject(m_path); }) / 1000;
    }

    double reference() override
    {
        return microsecondsPerCall(1, [this] {
            save(m_path, m_configOnly);
            QDomDocument first;
            load(m_path, first);
            save(m_path, m_withoutTriggers);
            QDomDocument second;
            load(m_path, second);
            save(m_path, m_whole);
        }) / 1000;
    }

private:
    static QDomDocument withoutLastSection(const QDomDocument& document)
    {
        QDomDocument copy = document.cloneNode().toDocument();
        QDomElement root = copy.documentElement();
        root.removeChild(root.lastChild());
        return copy;
    }

    ProjectFolder m_folder;
    const QString m_path = m_folder.path("project.xml");
    QDomDocument m_whole;
    QDomDocument m_withoutTriggers;
    QDomDocument m_configOnly;
};

/** Ten times as many records, by the same calls. */
class Growth : public Comparison {
public:
    double ours() override { return time(20000, "many.xml"); }
    double reference() override { return time(2000, "few.xml"); }

protected:
    virtual double time(int records, const char* name) = 0;

    ProjectFolder m_folder;
};

class ReadGrowth : public Growth {
public:
    ReadGrowth()
    {
        for (const auto& [records, name] :
            {std::pair(20000, "many.xml"), std::pair(2000, "few.xml")})
            XmlFile::writeConfigXmlFile(m_folder.path(name), configModel(records, 0), false);
    }

    double time(int records, const char* name) override
    {
        const QString path = m_folder.path(name);
        SystemModel model;
        QString error;
        const double time =
            microsecondsPerCall(1, [&] { XmlFile::readConfigXmlFile(path, model, error); });
        check(model.getComInfo().size() == records, path);
        return time / 1000;
    }
};

class WriteGrowth : public Growth {
public:
    double time(int records, const char* name) override
    {
        const QString path = m_folder.path(name);
        const SystemModel& model = records == 2000 ? m_few : m_many;
        return microsecondsPerCall(1, [&] {
            check(XmlFile::writeConfigXmlFile(path, model, false), path);
        }) / 1000;
    }

private:
    const SystemModel m_few = configModel(2000, 0);
    const SystemModel m_many = configModel(20000, 0);
};

} // namespace

Rows projectFileRows()
{
    return {
        {"read project file / three DOM parses", "ms", {Limit::RatioAtMost, 1.2}, 151,
            [] { return std::make_unique<ReadProject>(); }},
        {"write project file / DOM loads and saves", "ms", {Limit::RatioAtMost, 1.35}, 151,
            [] { return std::make_unique<WriteProject>(); }},
        {"read 20000 settings / 2000 settings", "ms", {Limit::RatioAtMost, 11}, 11,
            [] { return std::make_unique<ReadGrowth>(); }},
        {"write 20000 settings / 2000 settings", "ms", {Limit::RatioAtMost, 11}, 11,
            [] { return std::make_unique<WriteGrowth>(); }},
    };
}
