// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "patience.h"
#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QHash>
#include <QtCore/QMap>
#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTranslator>
#include <QtTest/QtTest>
#include <QtXml/QDomDocument>

#include <array>

#if defined(Q_OS_LINUX)
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>
#endif

#include "owncost.h"
#include "xmlfile.h"

namespace {

enum class Kind { Events, Triggers, Configs, Descriptor };

constexpr std::array<Kind, 3> sections{Kind::Events, Kind::Triggers, Kind::Configs};

const char* nameOf(Kind kind)
{
    switch (kind) {
    case Kind::Events:
        return "Events";
    case Kind::Triggers:
        return "Triggers";
    case Kind::Configs:
        return "Configs";
    case Kind::Descriptor:
        return "Descriptor";
    }
    return "";
}

EventInfo eventWith(int id, const QString& protocol = QString())
{
    EventInfo event;
    event.setEventId(id);
    event.setEventProtocol(protocol);
    return event;
}

EventModel eventsOf(const QList<EventInfo>& list)
{
    EventModel model;
    model.setEventInfo(list);
    return model;
}

EventModel eventsUpTo(int count)
{
    QList<EventInfo> list;
    for (int id = 1; id <= count; ++id)
        list.append(eventWith(id));
    return eventsOf(list);
}

TriggerInfo triggerWith(const QString& events)
{
    TriggerInfo trigger;
    trigger.setTriggerEvent(events);
    return trigger;
}

TriggerModel triggersOf(const QList<TriggerInfo>& list)
{
    TriggerModel model;
    model.setTriggerInfo(list);
    return model;
}

TriggerModel triggersUpTo(int count)
{
    QList<TriggerInfo> list;
    for (int i = 0; i < count; ++i)
        list.append(triggerWith(QStringLiteral("(ID:%1)").arg(i)));
    return triggersOf(list);
}

ComInfo portWith(int baudRate)
{
    ComInfo port;
    port.setBaudRate(baudRate);
    return port;
}

SystemModel configOf(const QList<ComInfo>& ports, const QList<IOType>& lines)
{
    SystemModel model;
    model.setComInfo(ports);
    model.setIOType(lines);
    return model;
}

QByteArray record(const char* name, const QList<QPair<const char*, QByteArray>>& values)
{
    QByteArray text = "<" + QByteArray(name) + ">";
    for (const auto& value : values) {
        const QByteArray element(value.first);
        text += "<" + element + ">" + value.second + "</" + element + ">";
    }
    return text + "</" + name + ">";
}

QByteArray eventRecord(
    const QByteArray& id, const QByteArray& type = "Deal", const QByteArray& protocolType = "Hex")
{
    return record("EventInfo",
        {{"ID", id}, {"EventType", type}, {"ProtocolType", protocolType}, {"Protocol", "01"},
            {"Instruction", "i"}});
}

QByteArray triggerRecord(const QByteArray& kind, const char* selector, const QByteArray& label,
    const QByteArray& protocolType = "Hex", const QByteArray& events = "ID:1")
{
    return record("TriggerInfo",
        {{"TriggerType", kind}, {selector, label}, {"ProtocolType", protocolType},
            {"Protocol", "01"}, {"Instruction", "i"}, {"Event", events}});
}

QByteArray portRecord(const QByteArray& baudRate, const QByteArray& inspection = "2")
{
    return record("COM",
        {{"BaudRate", baudRate}, {"DataBits", "8"}, {"StopBits", "1"},
            {"InspectionType", inspection}});
}

QByteArray lineRecord(const QByteArray& setting)
{
    return record("IO", {{"Model", setting}});
}

QByteArray section(Kind kind, const QByteArray& records)
{
    const QByteArray name(nameOf(kind));
    return "<" + name + ">" + records + "</" + name + ">";
}

QByteArray project(const QByteArray& content)
{
    return "<DataPackage>" + content + "</DataPackage>";
}

QByteArray goodRecord(Kind kind)
{
    switch (kind) {
    case Kind::Events:
        return eventRecord("1");
    case Kind::Triggers:
        return triggerRecord("COM", "COM", "COM A-1");
    case Kind::Configs:
        return portRecord("9600");
    case Kind::Descriptor:
        return "<Version>1</Version>";
    }
    return QByteArray();
}

struct Reading {
    bool read = false;
    QString error;
    /** The number of records of the model; -1 when the reader left the model alone. */
    int count = -1;
};

QString errorBefore()
{
    return QStringLiteral("before");
}

// A model that no file of these tests holds, to see whether a reader touched it.
Reading read(Kind kind, const QString& path)
{
    Reading reading;
    reading.error = errorBefore();
    switch (kind) {
    case Kind::Events: {
        const EventModel before = eventsOf({eventWith(-77)});
        EventModel model = before;
        reading.read = XmlFile::readEventXmlFile(path, model, reading.error);
        reading.count = model == before ? -1 : model.size();
        break;
    }
    case Kind::Triggers: {
        const TriggerModel before = triggersOf({triggerWith(QStringLiteral("untouched"))});
        TriggerModel model = before;
        reading.read = XmlFile::readTriggerXmlFile(path, model, reading.error);
        reading.count = model == before ? -1 : model.size();
        break;
    }
    case Kind::Configs: {
        const SystemModel before = configOf({portWith(-77)}, {IO_TYPE_1});
        SystemModel model = before;
        reading.read = XmlFile::readConfigXmlFile(path, model, reading.error);
        reading.count = model == before ? -1 : model.getComInfo().size() + model.getIOType().size();
        break;
    }
    case Kind::Descriptor: {
        QString moduleId = QStringLiteral("module before");
        QString version = QStringLiteral("version before");
        reading.read = XmlFile::readUpdateConfigFile(path, moduleId, version, reading.error);
        reading.count =
            moduleId == QLatin1String("module before") && version == QLatin1String("version before")
            ? -1
            : 1;
        break;
    }
    }
    return reading;
}

bool write(Kind kind, const QString& path, bool append)
{
    switch (kind) {
    case Kind::Events:
        return XmlFile::writeEventXmlFile(path, eventsUpTo(3), append);
    case Kind::Triggers:
        return XmlFile::writeTriggerXmlFile(path, triggersUpTo(4), append);
    case Kind::Configs:
        return XmlFile::writeConfigXmlFile(path,
            configOf({portWith(9600), portWith(300)}, {IO_TYPE_0, IO_TYPE_1, IO_TYPE_2}), append);
    case Kind::Descriptor:
        break;
    }
    return false;
}

int writtenRecords(Kind kind)
{
    return kind == Kind::Events ? 3 : kind == Kind::Triggers ? 4 : 5;
}

/** Translates the texts of XmlFile by a table; other texts stay. */
class Translator : public QTranslator {
    Q_OBJECT

public:
    explicit Translator(const QMap<QString, QString>& texts)
        : m_texts(texts)
    {
        QCoreApplication::installTranslator(this);
    }

    QString translate(const char* context, const char* source, const char* /*disambiguation*/,
        int /*n*/) const override
    {
        if (qstrcmp(context, "XmlFile") != 0)
            return QString();
        return m_texts.value(QString::fromUtf8(source));
    }

    bool isEmpty() const override { return false; }

private:
    const QMap<QString, QString> m_texts;
};

/** Collects what the library logs while it lives. */
class LogRecorder {
public:
    struct Line {
        QtMsgType type;
        QString text;
        QString category;
        QString file;
        QString function;
    };

    LogRecorder()
    {
        lines().clear();
        m_before = qInstallMessageHandler(
            [](QtMsgType type, const QMessageLogContext& context, const QString& text) {
                lines().append({type, text, QString::fromUtf8(context.category),
                    QString::fromUtf8(context.file), QString::fromUtf8(context.function)});
            });
    }

    ~LogRecorder() { qInstallMessageHandler(m_before); }

    static QList<Line>& lines()
    {
        static QList<Line> lines;
        return lines;
    }

private:
    Q_DISABLE_COPY(LogRecorder)

    QtMessageHandler m_before;
};

} // namespace

Q_DECLARE_METATYPE(Kind)

class TestXmlFile : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void isAnObjectWithAParent();

    // Writers
    void newFileHasExactBytes();
    void newFileIsXmlForOthers();
    void emptyModelWritesEmptySection_data();
    void emptyModelWritesEmptySection();
    void newFileReplacesTheOldOne_data();
    void newFileReplacesTheOldOne();
    void unwritableTargetFails_data();
    void unwritableTargetFails();
    void fullDiskGoesUnnoticed();
    void appendKeepsWhatTheFileHolds();
    void appendFailsWithoutAGoodFile_data();
    void appendFailsWithoutAGoodFile();
    void appendLeavesAReadOnlyFileAlone();
    void appendKeepsTheEncoding_data();
    void appendKeepsTheEncoding();
    void appendKeepsUtf16();
    void sectionsShareAFileInAnyOrder_data();
    void sectionsShareAFileInAnyOrder();
    void secondSectionIsNeverRead();

    // Readers
    void readerFails_data();
    void readerFails();
    void readerSucceeds_data();
    void readerSucceeds();
    void parserMessageIsTheReason_data();
    void parserMessageIsTheReason();
    void depthIsLimited_data();
    void depthIsLimited();
    void longEventListStaysInProportion();
    void messagesAreTranslated_data();
    void messagesAreTranslated();
    void textSurvives_data();
    void textSurvives();
    void oddTextIsHarmless_data();
    void oddTextIsHarmless();
    void readersLogNothingElse();

    // Events
    void eventSurvives();
    void eventTypeHasItsWord_data();
    void eventTypeHasItsWord();
    void eventTypeIsReadByItsWord_data();
    void eventTypeIsReadByItsWord();
    void eventProtocolTypeIsReadByItsWord_data();
    void eventProtocolTypeIsReadByItsWord();
    void eventNameIsLost();
    void eventIdIsReadAsANumber_data();
    void eventIdIsReadAsANumber();
    void eventRecordNeedsFiveChildren_data();
    void eventRecordNeedsFiveChildren();
    void eventRecordWithOtherNames();
    void eventRecordTakesTheFirstOfAName();
    void eventIdsAreUnique();
    void eventIdsRepeatedOnWriting();
    void eventsAreLimitedOnReading();
    void eventLimitCountsReadRecordsOnly();
    void eventWordsAreTranslated();
    void eventWordsOfAnotherLanguage();
    void eventWordsThatCoincide();

    // Triggers
    void triggerChildrenInOrder_data();
    void triggerChildrenInOrder();
    void comLabels_data();
    void comLabels();
    void ioLabels_data();
    void ioLabels();
    void labelsAreTranslated_data();
    void labelsAreTranslated();
    void labelsThatCoincide();
    void triggerProtocolTypeIsTranslated();
    void unknownSelectorIsEmpty_data();
    void unknownSelectorIsEmpty();
    void triggerReadByItsWords_data();
    void triggerReadByItsWords();
    void triggerTextsSurvive();
    void modbusTriggerIsLost();
    void triggerIdIsLost();
    void otherSelectorIsLost();
    void eventTextIsStripped_data();
    void eventTextIsStripped();
    void eventTextIsRebuilt_data();
    void eventTextIsRebuilt();
    void eventTextIsRebuiltInTranslation();
    void triggerRecordNeedsSixChildren_data();
    void triggerRecordNeedsSixChildren();
    void triggersAreLimitedOnReading();
    void triggersAreNotCompared();
    void triggerCountIsLogged();
    void triggerCountIsNotLoggedOnFailure();

    // Configuration
    void configSurvives();
    void configNumbersStandAsTheyAre();
    void portIsRead_data();
    void portIsRead();
    void lineIsRead_data();
    void lineIsRead();
    void portOfAnotherShapeIsDropped_data();
    void portOfAnotherShapeIsDropped();
    void lineOfAnotherShapeIsDropped_data();
    void lineOfAnotherShapeIsDropped();
    void configListsAreReplaced_data();
    void configListsAreReplaced();
    void configOrderDoesNotMatter();
    void configHasNoLimit();

    // Descriptor
    void descriptorIsRead_data();
    void descriptorIsRead();

private:
    QString pathOf(const QString& name) const { return m_folder->filePath(name); }

    QString fileWith(const QByteArray& bytes) const
    {
        QFile file(pathOf(QStringLiteral("given.xml")));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write the test's own file");
        return file.fileName();
    }

    static QByteArray bytesOf(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QByteArray bytesOfEvents(const QList<EventInfo>& events) const
    {
        const QString path = pathOf(QStringLiteral("events.xml"));
        return XmlFile::writeEventXmlFile(path, eventsOf(events), false) ? bytesOf(path)
                                                                         : QByteArray();
    }

    QByteArray bytesOfTriggers(const QList<TriggerInfo>& triggers) const
    {
        const QString path = pathOf(QStringLiteral("triggers.xml"));
        return XmlFile::writeTriggerXmlFile(path, triggersOf(triggers), false) ? bytesOf(path)
                                                                               : QByteArray();
    }

    QList<EventInfo> eventsIn(const QByteArray& bytes) const
    {
        EventModel model;
        QString error;
        if (!XmlFile::readEventXmlFile(fileWith(bytes), model, error))
            qWarning("not read: %s", qPrintable(error));
        return model.getEventInfo();
    }

    QList<TriggerInfo> triggersIn(const QByteArray& bytes) const
    {
        TriggerModel model;
        QString error;
        if (!XmlFile::readTriggerXmlFile(fileWith(bytes), model, error))
            qWarning("not read: %s", qPrintable(error));
        return model.getTriggerInfo();
    }

    SystemModel configIn(const QByteArray& bytes) const
    {
        SystemModel model;
        QString error;
        if (!XmlFile::readConfigXmlFile(fileWith(bytes), model, error))
            qWarning("not read: %s", qPrintable(error));
        return model;
    }

    QScopedPointer<QTemporaryDir> m_folder;
};

void TestXmlFile::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(m_folder->isValid());
}

void TestXmlFile::cleanup()
{
    m_folder.reset();
}

void TestXmlFile::isAnObjectWithAParent()
{
    QObject parent;
    const auto* file = new XmlFile(&parent);
    QCOMPARE(file->parent(), &parent);

    const QMetaObject& meta = XmlFile::staticMetaObject;
    QCOMPARE(meta.className(), "XmlFile");
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.methodCount(), meta.methodOffset());
}

// Writers

void TestXmlFile::newFileHasExactBytes()
{
    ComInfo port = portWith(9600);
    port.setDataBits(7);
    port.setStopBits(2);
    port.setInspectionType(INSPECTION_2);

    EventInfo command = eventWith(3, QStringLiteral("01 0A"));
    command.setEventInstruction(QStringLiteral("开灯 <1>"));
    EventInfo delay = eventWith(-4, QStringLiteral("25*10ms"));
    delay.setEventType(EventInfo::EVENT_DELAY);
    delay.setEventProtocolType(false);
    EventInfo other = eventWith(5);
    other.setEventType(EventInfo::EVENT_TYPE_4);

    TriggerInfo serial = triggerWith(QStringLiteral("(ID:3);(ID:7)"));
    serial.setCOMSelect(COM_B_3);
    serial.setTriggerParameter(QStringLiteral("FF & 00"));
    serial.setTriggerInstruction(QStringLiteral("门"));
    TriggerInfo modbus = triggerWith(QString());
    modbus.setTriggerType(TriggerInfo::COM_MODBUS);
    TriggerInfo input;
    input.setTriggerType(TriggerInfo::IO);
    input.setIOSelect(IO_D_4);
    input.setTriggerProtocolType(false);
    input.setTriggerParameter(QStringLiteral("输入-高电平"));
    input.setTriggerEvent(QStringLiteral("事件名称01(ID:3)"));

    const QString path = pathOf(QStringLiteral("project.xml"));
    QVERIFY(XmlFile::writeConfigXmlFile(path, configOf({port}, {IO_TYPE_2, IO_TYPE_0}), false));
    QVERIFY(XmlFile::writeEventXmlFile(path, eventsOf({command, delay, other}), true));
    QVERIFY(XmlFile::writeTriggerXmlFile(path, triggersOf({serial, modbus, input}), true));

    const QByteArray expected = R"(    <Device>Zorbe 3100</Device>
    <Configs>
        <COM>
            <BaudRate>9600</BaudRate>
            <DataBits>7</DataBits>
            <StopBits>2</StopBits>
            <InspectionType>1</InspectionType>
        </COM>
        <IO>
            <Model>2</Model>
        </IO>
        <IO>
            <Model>0</Model>
        </IO>
    </Configs>
    <Events>
        <EventInfo>
            <ID>3</ID>
            <EventType>Deal</EventType>
            <ProtocolType>Hex</ProtocolType>
            <Protocol>01 0A</Protocol>
            <Instruction>开灯 &lt;1></Instruction>
        </EventInfo>
        <EventInfo>
            <ID>-4</ID>
            <EventType>Delay</EventType>
            <ProtocolType>ASCII</ProtocolType>
            <Protocol>25*10ms</Protocol>
            <Instruction/>
        </EventInfo>
        <EventInfo>
            <ID>5</ID>
            <EventType/>
            <ProtocolType>Hex</ProtocolType>
            <Protocol/>
            <Instruction/>
        </EventInfo>
    </Events>
    <Triggers>
        <TriggerInfo>
            <TriggerType>COM</TriggerType>
            <COM>COM B-3</COM>
            <ProtocolType>Hex</ProtocolType>
            <Protocol>FF &amp; 00</Protocol>
            <Instruction>门</Instruction>
            <Event>ID:3;ID:7</Event>
        </TriggerInfo>
        <TriggerInfo>
            <ProtocolType>Hex</ProtocolType>
            <Protocol></Protocol>
            <Instruction></Instruction>
            <Event></Event>
        </TriggerInfo>
        <TriggerInfo>
            <TriggerType>IO</TriggerType>
            <IO>IO D-4</IO>
            <ProtocolType>ASCII</ProtocolType>
            <Protocol>输入-高电平</Protocol>
            <Instruction></Instruction>
            <Event>名称01ID:3</Event>
        </TriggerInfo>
    </Triggers>
</DataPackage>
)";
    // The framework keeps attributes in no order of their own.
    const QByteArray xsi = "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"";
    const QByteArray xsd = "xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\"";
    const QByteArray declaration = "<?xml version='1.0' encoding='UTF-8'?>\n";
    const QByteArray bytes = bytesOf(path);
    const int body = bytes.indexOf("    <Device>");
    const QByteArray head = bytes.left(body);
    QVERIFY2(head == declaration + "<DataPackage " + xsi + " " + xsd + ">\n"
            || head == declaration + "<DataPackage " + xsd + " " + xsi + ">\n",
        head);
    QCOMPARE(bytes.mid(body).split('\n'), expected.split('\n'));

    // What was parsed for an append has single quotes in its declaration and short empty elements;
    // a new file does not.
    QVERIFY(XmlFile::writeEventXmlFile(path, EventModel(), false));
    const QByteArray fresh = bytesOf(path);
    QVERIFY2(fresh.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<DataPackage "), fresh);
    QVERIFY2(fresh.contains(xsi) && fresh.contains(xsd), fresh);
    QVERIFY2(fresh.endsWith(">\n    <Device>Zorbe 3100</Device>\n    <Events/>\n</DataPackage>\n"),
        fresh);
}

void TestXmlFile::newFileIsXmlForOthers()
{
    const QString xmllint = QStandardPaths::findExecutable(QStringLiteral("xmllint"));
    if (xmllint.isEmpty())
        QSKIP("xmllint is not installed: no independent reader has seen the files");

    EventInfo event = eventWith(1, QStringLiteral("<&>\"']]>\t\r\n\u4E8B\U0001F600"));
    const QString path = pathOf(QStringLiteral("project.xml"));
    QVERIFY(XmlFile::writeTriggerXmlFile(path, triggersUpTo(65), false));
    QVERIFY(XmlFile::writeEventXmlFile(path, eventsOf({event, eventWith(2)}), true));
    QVERIFY(write(Kind::Configs, path, true));

    const auto evaluate = [&](const QString& expression) {
        QProcess process;
        process.start(
            xmllint, {QStringLiteral("--noent"), QStringLiteral("--xpath"), expression, path});
        if (!process.waitForFinished(patience) || process.exitCode() != 0)
            return QByteArray("failed: ") + process.readAllStandardError();
        QByteArray output = process.readAllStandardOutput();
        if (output.endsWith('\n'))
            output.chop(1);
        return output;
    };
    QCOMPARE(evaluate(QStringLiteral("name(/*)")), QByteArray("DataPackage"));
    QCOMPARE(evaluate(QStringLiteral("name(/*/*[1])")), QByteArray("Device"));
    QCOMPARE(evaluate(QStringLiteral("name(/*/*[2])")), QByteArray("Triggers"));
    QCOMPARE(evaluate(QStringLiteral("name(/*/*[3])")), QByteArray("Events"));
    QCOMPARE(evaluate(QStringLiteral("name(/*/*[4])")), QByteArray("Configs"));
    QCOMPARE(evaluate(QStringLiteral("count(/*/*)")), QByteArray("4"));
    QCOMPARE(evaluate(QStringLiteral("string(/*/Device)")), QByteArray("Zorbe 3100"));
    QCOMPARE(evaluate(QStringLiteral("count(//@*)")), QByteArray("0"));
    QCOMPARE(evaluate(QStringLiteral("string(/*/namespace::xsi)")),
        QByteArray("http://www.w3.org/2001/XMLSchema-instance"));
    QCOMPARE(evaluate(QStringLiteral("string(/*/namespace::xsd)")),
        QByteArray("http://www.w3.org/2001/XMLSchema"));
    QCOMPARE(evaluate(QStringLiteral("count(/*/Triggers/TriggerInfo)")), QByteArray("65"));
    QCOMPARE(evaluate(QStringLiteral("count(/*/Triggers/TriggerInfo/*)")), QByteArray("390"));
    QCOMPARE(
        evaluate(QStringLiteral("string(/*/Triggers/TriggerInfo[65]/Event)")), QByteArray("ID:64"));
    QCOMPARE(evaluate(QStringLiteral("string(/*/Events/EventInfo[1]/Protocol)")),
        QByteArray("<&>\"']]>\t\r\n\xE4\xBA\x8B\xF0\x9F\x98\x80"));
    QCOMPARE(evaluate(QStringLiteral("sum(/*/Configs/COM/BaudRate)")), QByteArray("9900"));
    QCOMPARE(evaluate(QStringLiteral("count(/*/Configs/IO/Model)")), QByteArray("3"));
}

void TestXmlFile::emptyModelWritesEmptySection_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QString>("error");

    QTest::newRow("events") << Kind::Events << "文件中不存在事件数据！";
    QTest::newRow("triggers") << Kind::Triggers << "文件中不存在触发数据！";
    QTest::newRow("configs") << Kind::Configs << "文件中不存在触发数据！";
}

void TestXmlFile::emptyModelWritesEmptySection()
{
    QFETCH(const Kind, kind);
    QFETCH(const QString, error);

    const QString path = pathOf(QStringLiteral("empty.xml"));
    switch (kind) {
    case Kind::Events:
        QVERIFY(XmlFile::writeEventXmlFile(path, EventModel(), false));
        break;
    case Kind::Triggers:
        QVERIFY(XmlFile::writeTriggerXmlFile(path, TriggerModel(), false));
        break;
    default:
        QVERIFY(XmlFile::writeConfigXmlFile(path, SystemModel(), false));
        break;
    }
    QVERIFY(bytesOf(path).contains("<" + QByteArray(nameOf(kind)) + "/>"));

    const Reading reading = read(kind, path);
    QVERIFY(!reading.read);
    QCOMPARE(reading.error, error);
    QCOMPARE(reading.count, -1);
}

void TestXmlFile::newFileReplacesTheOldOne_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QByteArray>("old");

    for (const Kind kind : sections) {
        QTest::addRow("%s, longer file", nameOf(kind)) << kind << QByteArray(100000, 'x');
        QTest::addRow("%s, project", nameOf(kind))
            << kind << project(section(Kind::Events, eventRecord("9")));
        QTest::addRow("%s, empty file", nameOf(kind)) << kind << QByteArray();
    }
}

void TestXmlFile::newFileReplacesTheOldOne()
{
    QFETCH(const Kind, kind);
    QFETCH(const QByteArray, old);

    const QString path = fileWith(old);
    const QString fresh = pathOf(QStringLiteral("fresh.xml"));
    QVERIFY(write(kind, path, false));
    QVERIFY(write(kind, fresh, false));

    QCOMPARE(bytesOf(path).size(), bytesOf(fresh).size());
    QCOMPARE(read(kind, path).count, writtenRecords(kind));
}

void TestXmlFile::unwritableTargetFails_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<bool>("append");

    for (const Kind kind : sections) {
        QTest::addRow("%s, new", nameOf(kind)) << kind << false;
        QTest::addRow("%s, append", nameOf(kind)) << kind << true;
    }
}

void TestXmlFile::unwritableTargetFails()
{
    QFETCH(const Kind, kind);
    QFETCH(const bool, append);

    QVERIFY(!write(kind, m_folder->path(), append));
    QVERIFY(!write(kind, pathOf(QStringLiteral("no/such/folder.xml")), append));
    QVERIFY(!write(kind, QString(), append));
    QVERIFY(!write(kind, pathOf(QStringLiteral("a")) + QChar(QChar::Null), append));
    QVERIFY(!QFile::exists(pathOf(QStringLiteral("a"))));
}

// The disk is not asked whether it took the text.
void TestXmlFile::fullDiskGoesUnnoticed()
{
    const QString full = QStringLiteral("/dev/full");
    if (!QFile::exists(full))
        QSKIP("there is no /dev/full: no full disk was tried");
    for (const Kind kind : sections)
        QVERIFY(write(kind, full, false));
    QVERIFY(XmlFile::writeEventXmlFile(full, eventsUpTo(5000), false));
}

void TestXmlFile::appendKeepsWhatTheFileHolds()
{
    const QString path = fileWith("<!-- mine --><!DOCTYPE Own><Own a=\"1\"><Else>x</Else></Own>");
    QVERIFY(write(Kind::Configs, path, true));

    QDomDocument document;
    QVERIFY(document.setContent(bytesOf(path)));
    const QDomElement root = document.documentElement();
    QCOMPARE(document.firstChild().nodeValue(), QStringLiteral(" mine "));
    QCOMPARE(document.doctype().name(), QStringLiteral("Own"));
    QCOMPARE(root.nodeName(), QStringLiteral("Own"));
    QCOMPARE(root.attributes().size(), 1);
    QCOMPARE(root.attribute(QStringLiteral("a")), QStringLiteral("1"));
    QCOMPARE(root.childNodes().size(), 2);
    QCOMPARE(root.firstChildElement().text(), QStringLiteral("x"));
    QCOMPARE(root.lastChildElement().nodeName(), QStringLiteral("Configs"));
    QVERIFY(!bytesOf(path).contains("<?xml"));
    QVERIFY(!bytesOf(path).contains("Device"));
    QCOMPARE(read(Kind::Configs, path).count, 5);
}

void TestXmlFile::appendFailsWithoutAGoodFile_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("text");
    QTest::newRow("open element") << QByteArray("<DataPackage><Device></Device>");
    QTest::newRow("two roots") << QByteArray("<DataPackage/><DataPackage/>");
    QTest::newRow("too deep") << QByteArray("<a>").repeated(1001)
            + QByteArray("</a>").repeated(1001);
    QTest::newRow("far too deep") << QByteArray("<a>").repeated(200000)
            + QByteArray("</a>").repeated(200000);
}

void TestXmlFile::appendFailsWithoutAGoodFile()
{
    QFETCH(const QByteArray, bytes);

    for (const Kind kind : sections) {
        const QString path = fileWith(bytes);
        QVERIFY(!write(kind, path, true));
        QCOMPARE(bytesOf(path), bytes);

        const QString missing = pathOf(QStringLiteral("missing.xml"));
        QVERIFY(!write(kind, missing, true));
        QVERIFY(!QFile::exists(missing));
    }
}

// A file that can be read but not be emptied, even by an administrator.
void TestXmlFile::appendLeavesAReadOnlyFileAlone()
{
#if defined(Q_OS_LINUX)
    const QByteArray bytes = project("<Device>x</Device>");
    const int descriptor = memfd_create("project", MFD_ALLOW_SEALING);
    QVERIFY(descriptor >= 0);
    QCOMPARE(::write(descriptor, bytes.constData(), size_t(bytes.size())), ssize_t(bytes.size()));
    QCOMPARE(fcntl(descriptor, F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_WRITE), 0);
    const QString path = QStringLiteral("/proc/self/fd/%1").arg(descriptor);

    for (const Kind kind : sections) {
        QVERIFY(!write(kind, path, true));
        QVERIFY(!write(kind, path, false));
        QCOMPARE(bytesOf(path), bytes);
    }
    close(descriptor);
#else
    QSKIP("there are no sealed files here: appending to a read-only file was not tried");
#endif
}

void TestXmlFile::appendKeepsTheEncoding_data()
{
    QTest::addColumn<QByteArray>("declaration");
    QTest::addColumn<QByteArray>("encoded");

    QTest::newRow("Latin-1") << QByteArray("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>")
                             << QByteArray("\xE9");
    QTest::newRow("UTF-8") << QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>")
                           << QByteArray("\xC3\xA9");
    QTest::newRow("no encoding") << QByteArray("<?xml version=\"1.0\"?>") << QByteArray("\xC3\xA9");
    QTest::newRow("no declaration") << QByteArray() << QByteArray("\xC3\xA9");
    QTest::newRow("unknown encoding")
        << QByteArray("<?xml version=\"1.0\" encoding=\"no-such\"?>") << QByteArray("\xC3\xA9");
}

void TestXmlFile::appendKeepsTheEncoding()
{
    QFETCH(const QByteArray, declaration);
    QFETCH(const QByteArray, encoded);

    const QString path = fileWith(declaration + project("<Device>" + encoded + "</Device>"));
    const EventModel model = eventsOf({eventWith(1, QStringLiteral("\u00E9"))});
    QVERIFY(XmlFile::writeEventXmlFile(path, model, true));

    const QByteArray bytes = bytesOf(path);
    QVERIFY2(bytes.contains("<Device>" + encoded + "</Device>"), bytes);
    QVERIFY2(bytes.contains("<Protocol>" + encoded + "</Protocol>"), bytes);

    EventModel loaded;
    QString error;
    QVERIFY2(XmlFile::readEventXmlFile(path, loaded, error), qPrintable(error));
    QVERIFY(loaded == model);
}

void TestXmlFile::appendKeepsUtf16()
{
    const QString text = QStringLiteral("<?xml version='1.0' encoding='UTF-16'?>")
        + QString::fromUtf8(project("<Device>\xE4\xBA\x8B</Device>"));
    const auto utf16 = [](const QString& string) {
        return QByteArray(reinterpret_cast<const char*>(string.utf16()), string.size() * 2);
    };
    const QString path = fileWith(utf16(QChar(QChar::ByteOrderMark) + text));
    const EventModel model = eventsOf({eventWith(1, QStringLiteral("件"))});
    QVERIFY(XmlFile::writeEventXmlFile(path, model, true));

    QVERIFY(bytesOf(path).contains(utf16(QStringLiteral("<Device>事</Device>"))));
    EventModel loaded;
    QString error;
    QVERIFY2(XmlFile::readEventXmlFile(path, loaded, error), qPrintable(error));
    QVERIFY(loaded == model);
}

void TestXmlFile::sectionsShareAFileInAnyOrder_data()
{
    QTest::addColumn<QList<Kind>>("order");

    QTest::newRow("CET") << QList<Kind>{Kind::Configs, Kind::Events, Kind::Triggers};
    QTest::newRow("CTE") << QList<Kind>{Kind::Configs, Kind::Triggers, Kind::Events};
    QTest::newRow("ECT") << QList<Kind>{Kind::Events, Kind::Configs, Kind::Triggers};
    QTest::newRow("ETC") << QList<Kind>{Kind::Events, Kind::Triggers, Kind::Configs};
    QTest::newRow("TCE") << QList<Kind>{Kind::Triggers, Kind::Configs, Kind::Events};
    QTest::newRow("TEC") << QList<Kind>{Kind::Triggers, Kind::Events, Kind::Configs};
}

void TestXmlFile::sectionsShareAFileInAnyOrder()
{
    QFETCH(const QList<Kind>, order);

    const QString path = pathOf(QStringLiteral("project.xml"));
    for (const Kind kind : order)
        QVERIFY(write(kind, path, kind != order.first()));

    for (const Kind kind : sections) {
        const Reading reading = read(kind, path);
        QVERIFY2(reading.read, qPrintable(reading.error));
        QCOMPARE(reading.error, errorBefore());
        QCOMPARE(reading.count, writtenRecords(kind));
    }

    QDomDocument document;
    QVERIFY(document.setContent(bytesOf(path)));
    QDomElement child = document.documentElement().firstChildElement();
    QCOMPARE(child.nodeName(), QStringLiteral("Device"));
    for (const Kind kind : order) {
        child = child.nextSiblingElement();
        QCOMPARE(child.nodeName(), QString::fromUtf8(nameOf(kind)));
    }
    QVERIFY(child.nextSibling().isNull());
}

void TestXmlFile::secondSectionIsNeverRead()
{
    const QString path = pathOf(QStringLiteral("project.xml"));
    QVERIFY(write(Kind::Triggers, path, false));
    QVERIFY(write(Kind::Events, path, true));
    QVERIFY(write(Kind::Configs, path, true));
    QVERIFY(XmlFile::writeEventXmlFile(path, eventsUpTo(7), true));
    QVERIFY(XmlFile::writeTriggerXmlFile(path, triggersUpTo(7), true));
    QVERIFY(XmlFile::writeConfigXmlFile(path, configOf({portWith(1)}, {}), true));

    QCOMPARE(bytesOf(path).count("<Events>"), 2);
    QCOMPARE(bytesOf(path).count("<Triggers>"), 2);
    QCOMPARE(bytesOf(path).count("<Configs>"), 2);
    for (const Kind kind : sections)
        QCOMPARE(read(kind, path).count, writtenRecords(kind));

    // Not even when the first one is of no use.
    QCOMPARE(
        read(Kind::Events, fileWith(project("<Events/>" + section(Kind::Events, eventRecord("1")))))
            .error,
        QStringLiteral("文件中不存在事件数据！"));
}

// Readers

void TestXmlFile::readerFails_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("error");

    const QMap<Kind, QString> emptyRoot{
        {Kind::Events, QStringLiteral("文件中无事件数据！")},
        {Kind::Triggers, QStringLiteral("文件中无触发数据！")},
        {Kind::Configs, QStringLiteral("文件中无触发数据！")},
        {Kind::Descriptor, QStringLiteral("文件中无触发数据！")},
    };
    for (auto it = emptyRoot.cbegin(); it != emptyRoot.cend(); ++it) {
        const char* name = nameOf(it.key());
        QTest::addRow("%s, root without children", name)
            << it.key() << QByteArray("<DataPackage/>") << it.value();
        QTest::addRow("%s, root with blanks", name) << it.key() << project(" \n\t ") << it.value();
        QTest::addRow("%s, root with attributes", name)
            << it.key() << QByteArray("<a b='c'/>") << it.value();
        QTest::addRow("%s, comment beside the root", name)
            << it.key() << QByteArray("<!-- c --><a/><!-- c -->") << it.value();
    }

    const QMap<Kind, QString> noSection{
        {Kind::Events, QStringLiteral("文件中不存在事件数据！")},
        {Kind::Triggers, QStringLiteral("文件中不存在触发数据！")},
        {Kind::Configs, QStringLiteral("文件中不存在触发数据！")},
    };
    for (auto it = noSection.cbegin(); it != noSection.cend(); ++it) {
        const QByteArray name = nameOf(it.key());
        const QByteArray good = section(it.key(), goodRecord(it.key()));
        QTest::addRow("%s, no section", name.data())
            << it.key() << project("<Device>x</Device>") << it.value();
        QTest::addRow("%s, root with a comment", name.data())
            << it.key() << project("<!-- c -->") << it.value();
        QTest::addRow("%s, root with text", name.data())
            << it.key() << project("text") << it.value();
        QTest::addRow("%s, empty section", name.data())
            << it.key() << project("<" + name + "/>") << it.value();
        QTest::addRow("%s, section of blanks", name.data())
            << it.key() << project(section(it.key(), " \n ")) << it.value();
        QTest::addRow("%s, section in lower case", name.data())
            << it.key() << project(good).replace(name, name.toLower()) << it.value();
        QTest::addRow("%s, section one level deeper", name.data())
            << it.key() << project("<Device>" + good + "</Device>") << it.value();
        QTest::addRow("%s, section as the root", name.data()) << it.key() << good << it.value();
        QTest::addRow("%s, prefixed section", name.data())
            << it.key() << project(good).replace(name, "x:" + name) << it.value();
        QTest::addRow("%s, instruction of the name first", name.data())
            << it.key() << project("<?" + name + " x?>" + good) << it.value();
        QTest::addRow("%s, empty section first", name.data())
            << it.key() << project("<" + name + "/>" + good) << it.value();
    }
}

void TestXmlFile::readerFails()
{
    QFETCH(const Kind, kind);
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, error);

    const Reading reading = read(kind, fileWith(bytes));

    QVERIFY(!reading.read);
    QCOMPARE(reading.error, error);
    QCOMPARE(reading.count, -1);

    const QStringList unreadable{QString(), m_folder->path(), pathOf(QStringLiteral("none.xml")),
        pathOf(QStringLiteral("given.xml")) + QChar(QChar::Null)};
    for (const QString& path : unreadable) {
        const Reading failed = read(kind, path);
        QVERIFY(!failed.read);
        QCOMPARE(failed.error, QStringLiteral("打开文件失败！"));
        QCOMPARE(failed.count, -1);
    }
}

void TestXmlFile::readerSucceeds_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("count");

    for (const Kind kind : sections) {
        const char* name = nameOf(kind);
        const QByteArray good = section(kind, goodRecord(kind));
        QTest::addRow("%s, foreign root", name) << kind << "<Own a='1'>" + good + "</Own>" << 1;
        QTest::addRow("%s, no declaration", name) << kind << project(good) << 1;
        QTest::addRow("%s, other device", name)
            << kind << project("<Device>other</Device>" + good) << 1;
        QTest::addRow("%s, comments", name)
            << kind
            << project("<!-- a -->" + section(kind, "<!-- a -->" + goodRecord(kind) + "<!-- b -->"))
                + "<!-- c -->"
            << 1;
        QTest::addRow("%s, only a comment", name)
            << kind << project(section(kind, "<!-- c -->")) << 0;
        QTest::addRow("%s, only text", name) << kind << project(section(kind, "text")) << 0;
        QTest::addRow("%s, only other records", name)
            << kind << project(section(kind, "<a/><b>c</b>")) << 0;
        QTest::addRow("%s, text between", name)
            << kind << project(section(kind, "text" + goodRecord(kind) + "text")) << 1;
        QTest::addRow("%s, CR LF", name)
            << kind << project("\r\n" + section(kind, "\r\n" + goodRecord(kind) + "\r\n") + "\r\n")
            << 1;
        QTest::addRow("%s, UTF-8 mark", name) << kind << "\xEF\xBB\xBF" + project(good) << 1;
        QTest::addRow("%s, Latin-1", name)
            << kind << "<?xml version='1.0' encoding='ISO-8859-1'?>" + project(good) << 1;
        QByteArray littleEndian("\xFF\xFE");
        for (const QChar character : QString::fromUtf8(project(good))) {
            littleEndian.append(static_cast<char>(character.cell()));
            littleEndian.append(static_cast<char>(character.row()));
        }
        QTest::addRow("%s, UTF-16", name) << kind << littleEndian << 1;
        QTest::addRow("%s, entity", name) << kind
                                          << "<!DOCTYPE a [<!ENTITY e '"
                + QByteArray(good).replace("'", "&#39;") + "'>]>" + project("&e;")
                                          << 1;
    }
}

void TestXmlFile::readerSucceeds()
{
    QFETCH(const Kind, kind);
    QFETCH(const QByteArray, bytes);
    QFETCH(const int, count);

    const Reading reading = read(kind, fileWith(bytes));

    QVERIFY2(reading.read, qPrintable(reading.error));
    QCOMPARE(reading.error, errorBefore());
    QCOMPARE(reading.count, count);
}

void TestXmlFile::parserMessageIsTheReason_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("text");
    QTest::newRow("open element") << QByteArray("<DataPackage>");
    QTest::newRow("crossed") << QByteArray("<a><b></a></b>");
    QTest::newRow("two roots") << QByteArray("<a/><b/>");
    QTest::newRow("mistake after the section")
        << project(section(Kind::Events, eventRecord("1")) + "<a>");
    QTest::newRow("mistake after the version")
        << QByteArray("<Update><ModuleID>m</ModuleID><Version>v</Version></update>");
    QTest::newRow("recursive entities")
        << QByteArray("<!DOCTYPE a [<!ENTITY e '&f;'><!ENTITY f '&e;'>]><a>&e;</a>");
}

void TestXmlFile::parserMessageIsTheReason()
{
    QFETCH(const QByteArray, bytes);

    QDomDocument document;
    QString message;
    QVERIFY(!document.setContent(bytes, false, &message));
    QVERIFY(!message.isEmpty());

    for (const Kind kind : {Kind::Events, Kind::Triggers, Kind::Configs, Kind::Descriptor}) {
        const Reading reading = read(kind, fileWith(bytes));
        QVERIFY(!reading.read);
        QCOMPARE(reading.error, message);
        QCOMPARE(reading.count, -1);
    }
}

void TestXmlFile::depthIsLimited_data()
{
    QTest::addColumn<Kind>("kind");

    for (const Kind kind : {Kind::Events, Kind::Triggers, Kind::Configs, Kind::Descriptor})
        QTest::newRow(nameOf(kind)) << kind;
}

void TestXmlFile::depthIsLimited()
{
    QFETCH(const Kind, kind);

    const auto deep = [kind](int levels) {
        const QByteArray inner =
            QByteArray("<a>").repeated(levels - 1) + QByteArray("</a>").repeated(levels - 1);
        return project(
            (kind == Kind::Descriptor ? goodRecord(kind) : section(kind, goodRecord(kind)))
            + inner);
    };

    const Reading deepest = read(kind, fileWith(deep(1000)));
    QVERIFY2(deepest.read, qPrintable(deepest.error));
    QCOMPARE(deepest.count, 1);
    if (kind != Kind::Descriptor) {
        const QString path = fileWith(deep(1000));
        QVERIFY(write(kind, path, true));
        QCOMPARE(read(kind, path).count, 1);
    }

    for (const int levels : {1001, 100000, 1000000}) {
        const Reading tooDeep = read(kind, fileWith(deep(levels)));
        QVERIFY(!tooDeep.read);
        QCOMPARE(tooDeep.error, QStringLiteral("XML嵌套层数过多！"));
        QCOMPARE(tooDeep.count, -1);
    }
}

/** A file of 1 MB with a single trigger, whose list of events has a million items. */
void TestXmlFile::longEventListStaysInProportion()
{
    const QByteArray list(1000000, ';');
    const QString path = fileWith(project(section(Kind::Triggers,
        "<TriggerInfo><a/><b/><c/><d/><e/><Event>" + list + "</Event></TriggerInfo>")));
    const OwnCost cost;
    TriggerModel model;
    QString error;
    QVERIFY2(XmlFile::readTriggerXmlFile(path, model, error), qPrintable(error));
    QVERIFY(cost.processorSeconds() < 2.5);
    QVERIFY(cost.peakMegabytes() < 80);
    QVERIFY(model.at(0).getTriggerEvent() == QString("事件();").repeated(1000001).chopped(1));
}

void TestXmlFile::messagesAreTranslated_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("source");

    const QByteArray other = project("<Device>x</Device>");
    const QByteArray deep = QByteArray("<a>").repeated(1001);
    QTest::newRow("events, empty root") << Kind::Events << project("") << "文件中无事件数据！";
    QTest::newRow("events, no section") << Kind::Events << other << "文件中不存在事件数据！";
    QTest::newRow("events, repeated")
        << Kind::Events << project(section(Kind::Events, eventRecord("1") + eventRecord("1")))
        << "事件ID重复！";
    QTest::newRow("triggers, empty root") << Kind::Triggers << project("") << "文件中无触发数据！";
    QTest::newRow("triggers, no section") << Kind::Triggers << other << "文件中不存在触发数据！";
    QTest::newRow("configs, empty root") << Kind::Configs << project("") << "文件中无触发数据！";
    QTest::newRow("configs, no section") << Kind::Configs << other << "文件中不存在触发数据！";
    QTest::newRow("descriptor, empty root")
        << Kind::Descriptor << project("") << "文件中无触发数据！";
    QTest::newRow("too deep") << Kind::Descriptor << deep << "XML嵌套层数过多！";
    const QString large = "<!DOCTYPE a [<!ENTITY e '" + QString(4000, 'x') + "'>]><a>"
        + QString("&e;").repeated(100) + "</a>";
    QTest::newRow("too large") << Kind::Descriptor << large.toUtf8() << "XML实体过大！";
    QTest::newRow("too many nodes")
        << Kind::Descriptor << "<a>" + QByteArray("<b c=''/>").repeated(50000) << "XML节点过多！";
}

void TestXmlFile::messagesAreTranslated()
{
    QFETCH(const Kind, kind);
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, source);

    const Translator translator({{source, QStringLiteral("translated")},
        {QStringLiteral("打开文件失败！"), QStringLiteral("not opened")}});

    QCOMPARE(read(kind, fileWith(bytes)).error, QStringLiteral("translated"));
    QCOMPARE(read(kind, m_folder->path()).error, QStringLiteral("not opened"));
}

void TestXmlFile::textSurvives_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("loaded");

    const auto same = [](const char* name, const QString& text) {
        QTest::newRow(name) << text << text;
    };
    same("empty", QString());
    same("plain", QStringLiteral("01 0A FF"));
    same("special to XML", QStringLiteral("<a b=\"c\" d='e'>&amp;</a>"));
    same("end of a section", QStringLiteral("]]>"));
    same("comment", QStringLiteral("<!-- x -->"));
    same("lines", QStringLiteral("a\nb\tc"));
    same("carriage returns", QStringLiteral("a\r\nb\rc"));
    same("blanks around", QStringLiteral("  a  "));
    same("line feeds around", QStringLiteral("\na\n"));
    same("Chinese", QStringLiteral("事件名称01"));
    same("outside the BMP", QStringLiteral("\U0001F600\U0002070E"));
    same("long", QString(100000, QLatin1Char('(')));
    QTest::newRow("a blank") << " "
                             << "";
    QTest::newRow("blanks, tabs and lines") << " \t\n "
                                            << "";
}

void TestXmlFile::textSurvives()
{
    QFETCH(const QString, text);
    QFETCH(const QString, loaded);

    EventInfo event = eventWith(1, text);
    event.setEventInstruction(text);
    const QList<EventInfo> events = eventsIn(bytesOfEvents({event}));
    QCOMPARE(events.size(), 1);
    EventInfo loadedEvent = events.first();
    QCOMPARE(loadedEvent.getEventProtocal(), loaded);
    QCOMPARE(loadedEvent.getEventInstruction(), loaded);

    TriggerInfo trigger;
    trigger.setTriggerParameter(text);
    trigger.setTriggerInstruction(text);
    const QList<TriggerInfo> triggers = triggersIn(bytesOfTriggers({trigger}));
    QCOMPARE(triggers.size(), 1);
    TriggerInfo loadedTrigger = triggers.first();
    QCOMPARE(loadedTrigger.getTriggerParameter(), loaded);
    QCOMPARE(loadedTrigger.getTriggerInstruction(), loaded);
}

// XML has no form for these; what is promised is no more than that nothing breaks.
void TestXmlFile::oddTextIsHarmless_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("NUL") << QString(QChar(QChar::Null));
    QTest::newRow("control characters") << QStringLiteral("\x01\x08\x1B");
    QTest::newRow("lone high surrogate") << QString(QChar(0xD800));
    QTest::newRow("lone low surrogate") << QString(QChar(0xDC00));
    QTest::newRow("noncharacters") << QString(QChar(0xFFFE)) + QChar(0xFFFF);
}

void TestXmlFile::oddTextIsHarmless()
{
    QFETCH(const QString, text);

    const QString path = pathOf(QStringLiteral("odd.xml"));
    QVERIFY(XmlFile::writeEventXmlFile(path, eventsOf({eventWith(1, text)}), false));
    XmlFile::writeTriggerXmlFile(path, triggersOf({triggerWith(text)}), true);
    read(Kind::Events, path);
    read(Kind::Triggers, path);
}

void TestXmlFile::readersLogNothingElse()
{
    const LogRecorder recorder;
    const QString path = pathOf(QStringLiteral("project.xml"));
    QVERIFY(write(Kind::Events, path, false));
    QVERIFY(write(Kind::Configs, path, true));
    QVERIFY(write(Kind::Triggers, path, true));
    read(Kind::Events, path);
    read(Kind::Configs, path);
    read(Kind::Descriptor, path);
    for (const QString& bad : {QString(), m_folder->path(), fileWith("<a>"),
             pathOf(QStringLiteral("a")) + QChar(QChar::Null)}) {
        for (const Kind kind : sections) {
            read(kind, bad);
            write(kind, bad, true);
        }
        read(Kind::Descriptor, bad);
    }
    const QList<LogRecorder::Line> lines = LogRecorder::lines();
    QVERIFY2(lines.isEmpty(), qPrintable(lines.value(0).text));
}

// Events

void TestXmlFile::eventSurvives()
{
    EventInfo command = eventWith(300, QStringLiteral("01 02"));
    command.setEventProtocolType(false);
    command.setEventInstruction(QStringLiteral("说明"));
    EventInfo delay = eventWith(-1, QStringLiteral("25*10ms"));
    delay.setEventType(EventInfo::EVENT_DELAY);

    const QList<EventInfo> loaded = eventsIn(bytesOfEvents({command, delay}));

    QVERIFY(loaded == QList<EventInfo>({command, delay}));
}

void TestXmlFile::eventTypeHasItsWord_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("word");
    QTest::addColumn<int>("loaded");

    QTest::newRow("0") << 0 << QByteArray("Deal") << 0;
    QTest::newRow("1") << 1 << QByteArray() << 0;
    QTest::newRow("2") << 2 << QByteArray() << 0;
    QTest::newRow("3") << 3 << QByteArray() << 0;
    QTest::newRow("4") << 4 << QByteArray() << 0;
    QTest::newRow("5") << 5 << QByteArray("Delay") << 5;
    QTest::newRow("6") << 6 << QByteArray() << 0;
    QTest::newRow("no type") << 99 << QByteArray() << 0;
    QTest::newRow("negative") << -1 << QByteArray() << 0;
}

void TestXmlFile::eventTypeHasItsWord()
{
    QFETCH(const int, type);
    QFETCH(const QByteArray, word);
    QFETCH(const int, loaded);

    EventInfo event = eventWith(1);
    event.setEventType(static_cast<EventInfo::EventType>(type));
    const QByteArray bytes = bytesOfEvents({event});

    QVERIFY2(bytes.contains("<EventType>" + word + "</EventType>"), bytes);
    EventInfo loadedEvent = eventsIn(bytes).value(0);
    QCOMPARE(int(loadedEvent.getEventType()), loaded);
}

void TestXmlFile::eventTypeIsReadByItsWord_data()
{
    QTest::addColumn<QByteArray>("word");
    QTest::addColumn<int>("type");

    QTest::newRow("Deal") << QByteArray("Deal") << 0;
    QTest::newRow("Delay") << QByteArray("Delay") << 5;
    QTest::newRow("empty") << QByteArray() << 0;
    QTest::newRow("other case") << QByteArray("delay") << 0;
    QTest::newRow("with a blank") << QByteArray(" Delay") << 0;
    QTest::newRow("a number") << QByteArray("5") << 0;
    QTest::newRow("in a section") << QByteArray("<![CDATA[Delay]]>") << 5;
    QTest::newRow("around a comment") << QByteArray("De<!-- c -->lay") << 5;
    QTest::newRow("in an element") << QByteArray("<b>Delay</b>") << 5;
}

void TestXmlFile::eventTypeIsReadByItsWord()
{
    QFETCH(const QByteArray, word);
    QFETCH(const int, type);

    EventInfo event = eventsIn(project(section(Kind::Events, eventRecord("1", word)))).value(0);
    QCOMPARE(int(event.getEventType()), type);
}

void TestXmlFile::eventProtocolTypeIsReadByItsWord_data()
{
    QTest::addColumn<QByteArray>("word");
    QTest::addColumn<bool>("isHex");

    QTest::newRow("Hex") << QByteArray("Hex") << true;
    QTest::newRow("ASCII") << QByteArray("ASCII") << false;
    QTest::newRow("empty") << QByteArray() << true;
    QTest::newRow("other case") << QByteArray("ascii") << true;
    QTest::newRow("unknown") << QByteArray("UTF-8") << true;
}

void TestXmlFile::eventProtocolTypeIsReadByItsWord()
{
    QFETCH(const QByteArray, word);
    QFETCH(const bool, isHex);

    EventInfo event =
        eventsIn(project(section(Kind::Events, eventRecord("1", "Deal", word)))).value(0);
    QCOMPARE(event.getEventProtocolType(), isHex);
}

void TestXmlFile::eventNameIsLost()
{
    EventInfo event = eventWith(1);
    event.setEventName(QStringLiteral("door"));

    const QByteArray bytes = bytesOfEvents({event});
    EventInfo loaded = eventsIn(bytes).value(0);

    QVERIFY(!bytes.contains("door"));
    QCOMPARE(loaded.getEventName(), QStringLiteral("事件名称01"));
}

void TestXmlFile::eventIdIsReadAsANumber_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("id");

    QTest::newRow("number") << QByteArray("17") << 17;
    QTest::newRow("negative") << QByteArray("-3") << -3;
    QTest::newRow("zero") << QByteArray("0") << 0;
    QTest::newRow("large") << QByteArray("2147483647") << 2147483647;
    QTest::newRow("too large") << QByteArray("2147483648") << 0;
    QTest::newRow("blanks around") << QByteArray(" 5 ") << 5;
    QTest::newRow("hexadecimal") << QByteArray("0x10") << 0;
    QTest::newRow("leading zero") << QByteArray("010") << 10;
    QTest::newRow("word") << QByteArray("first") << 0;
    QTest::newRow("fraction") << QByteArray("1.5") << 0;
    QTest::newRow("empty") << QByteArray() << 0;
}

void TestXmlFile::eventIdIsReadAsANumber()
{
    QFETCH(const QByteArray, text);
    QFETCH(const int, id);

    EventInfo event = eventsIn(project(section(Kind::Events, eventRecord(text)))).value(0);
    QCOMPARE(event.getEventId(), id);
}

void TestXmlFile::eventRecordNeedsFiveChildren_data()
{
    QTest::addColumn<QByteArray>("odd");

    // The id of a skipped record is not one that was seen.
    const QByteArray good = eventRecord("1");
    QTest::newRow("four") << QByteArray(good).replace("<Instruction>i</Instruction>", "");
    QTest::newRow("six") << QByteArray(good).replace("</EventInfo>", "<More/></EventInfo>");
    QTest::newRow("a comment more")
        << QByteArray(good).replace("</EventInfo>", "<!----></EventInfo>");
    QTest::newRow("a text more") << QByteArray(good).replace("</EventInfo>", "text</EventInfo>");
    QTest::newRow("an instruction more")
        << QByteArray(good).replace("</EventInfo>", "<?p?></EventInfo>");
    QTest::newRow("none") << QByteArray("<EventInfo/>");
    QTest::newRow("a comment beside") << QByteArray("<!-- c -->");
    QTest::newRow("a text beside") << QByteArray("text");
}

void TestXmlFile::eventRecordNeedsFiveChildren()
{
    QFETCH(const QByteArray, odd);

    QList<EventInfo> events =
        eventsIn(project(section(Kind::Events, odd + eventRecord("1") + odd + eventRecord("2"))));
    QCOMPARE(events.size(), 2);
    QCOMPARE(events[0].getEventId(), 1);
    QCOMPARE(events[1].getEventId(), 2);

    const Reading alone = read(Kind::Events, fileWith(project(section(Kind::Events, odd))));
    QVERIFY(alone.read);
    QCOMPARE(alone.count, 0);
}

void TestXmlFile::eventRecordWithOtherNames()
{
    const QByteArray other = "<Any><a>1</a><b>2</b><!-- c --><d/>text</Any>";
    EventInfo expected;
    expected.setEventId(0);

    const QList<EventInfo> events = eventsIn(project(section(Kind::Events, other)));
    QCOMPARE(events.size(), 1);
    QVERIFY(events.first() == expected);

    const Reading twice =
        read(Kind::Events, fileWith(project(section(Kind::Events, other + other))));
    QVERIFY(!twice.read);
    QCOMPARE(twice.error, QStringLiteral("事件ID重复！"));
    QCOMPARE(twice.count, -1);

    // The name of the record is not looked at, and neither is the order of its children.
    const QByteArray shuffled = record("Any",
        {{"Instruction", "i"}, {"Protocol", "p"}, {"ProtocolType", "ASCII"}, {"EventType", "Delay"},
            {"ID", "8"}});
    EventInfo event = eventsIn(project(section(Kind::Events, shuffled))).value(0);
    QCOMPARE(event.getEventId(), 8);
    QCOMPARE(event.getEventType(), EventInfo::EVENT_DELAY);
    QVERIFY(!event.getEventProtocolType());
    QCOMPARE(event.getEventProtocal(), QStringLiteral("p"));
    QCOMPARE(event.getEventInstruction(), QStringLiteral("i"));
}

void TestXmlFile::eventRecordTakesTheFirstOfAName()
{
    EventInfo twice = eventsIn(
        project(section(Kind::Events,
            "<E><ID>4</ID><ID>5</ID><Protocol>p</Protocol><Protocol>q</Protocol><EventType/></E>")))
                          .value(0);
    QCOMPARE(twice.getEventId(), 4);
    QCOMPARE(twice.getEventProtocal(), QStringLiteral("p"));

    // A node of the name that is not an element has no text.
    EventInfo instruction =
        eventsIn(project(section(Kind::Events,
                     "<E><?ID 4?><ID>5</ID><?Protocol p?><Protocol>q</Protocol><EventType/></E>")))
            .value(0);
    QCOMPARE(instruction.getEventId(), 0);
    QCOMPARE(instruction.getEventProtocal(), QString());
}

void TestXmlFile::eventIdsAreUnique()
{
    const QByteArray records = eventRecord("1") + eventRecord("2") + eventRecord("1");
    const Reading reading = read(Kind::Events, fileWith(project(section(Kind::Events, records))));
    QVERIFY(!reading.read);
    QCOMPARE(reading.error, QStringLiteral("事件ID重复！"));
    QCOMPARE(reading.count, -1);

    // Two texts that are no number are the same number.
    const Reading words = read(Kind::Events,
        fileWith(project(section(Kind::Events, eventRecord("a") + eventRecord("b")))));
    QCOMPARE(words.error, QStringLiteral("事件ID重复！"));
}

void TestXmlFile::eventIdsRepeatedOnWriting()
{
    const QByteArray bytes = bytesOfEvents({eventWith(5), eventWith(5)});
    QCOMPARE(bytes.count("<ID>5</ID>"), 2);
}

void TestXmlFile::eventsAreLimitedOnReading()
{
    const QString path = pathOf(QStringLiteral("events.xml"));
    for (const int written : {127, 128, 129, 1000}) {
        QVERIFY(XmlFile::writeEventXmlFile(path, eventsUpTo(written), false));
        QCOMPARE(bytesOf(path).count("<EventInfo>"), written);
        EventModel model;
        QString error;
        QVERIFY(XmlFile::readEventXmlFile(path, model, error));
        QVERIFY(model == eventsUpTo(qMin(written, 128)));
        QCOMPARE(error, QString());
    }
}

void TestXmlFile::eventLimitCountsReadRecordsOnly()
{
    QByteArray records;
    for (int id = 1; id <= 128; ++id)
        records += "<Odd/><!-- c -->" + eventRecord(QByteArray::number(id));
    // After the limit nothing is looked at, not even an id.
    records += eventRecord("1") + eventRecord("500");

    const QList<EventInfo> events = eventsIn(project(section(Kind::Events, records)));
    QVERIFY(events.size() == 128);
    EventInfo last = events.last();
    QCOMPARE(last.getEventId(), 128);
}

void TestXmlFile::eventWordsAreTranslated()
{
    EventInfo command = eventWith(1);
    EventInfo delay = eventWith(2);
    delay.setEventType(EventInfo::EVENT_DELAY);
    delay.setEventProtocolType(false);

    const Translator translator({{QStringLiteral("Deal"), QStringLiteral("处理")},
        {QStringLiteral("Delay"), QStringLiteral("延时")},
        {QStringLiteral("Hex"), QStringLiteral("十六进制")},
        {QStringLiteral("ASCII"), QStringLiteral("字符")},
        {QStringLiteral("Events"), QStringLiteral("wrong")},
        {QStringLiteral("Zorbe 3100"), QStringLiteral("wrong")},
        {QStringLiteral("ID"), QStringLiteral("wrong")}});
    const QByteArray bytes = bytesOfEvents({command, delay});

    QVERIFY2(bytes.contains("<EventType>处理</EventType>"), bytes);
    QVERIFY2(bytes.contains("<EventType>延时</EventType>"), bytes);
    QVERIFY2(bytes.contains("<ProtocolType>十六进制</ProtocolType>"), bytes);
    QVERIFY2(bytes.contains("<ProtocolType>字符</ProtocolType>"), bytes);
    QVERIFY2(!bytes.contains("wrong"), bytes);
    QVERIFY(eventsIn(bytes) == QList<EventInfo>({command, delay}));
}

void TestXmlFile::eventWordsOfAnotherLanguage()
{
    EventInfo delay = eventWith(1);
    delay.setEventType(EventInfo::EVENT_DELAY);
    delay.setEventProtocolType(false);
    const QByteArray bytes = bytesOfEvents({delay, eventWith(2)});

    const Translator translator({{QStringLiteral("Hex"), QStringLiteral("hex'")},
        {QStringLiteral("ASCII"), QStringLiteral("ascii'")},
        {QStringLiteral("Delay"), QStringLiteral("delay'")}});
    QList<EventInfo> loaded = eventsIn(bytes);
    QCOMPARE(loaded.size(), 2);
    QCOMPARE(loaded[0].getEventType(), EventInfo::EVENT_TYPE_0);
    QVERIFY(loaded[0].getEventProtocolType());
    QVERIFY(loaded[1].getEventProtocolType());
}

// The first word that fits counts.
void TestXmlFile::eventWordsThatCoincide()
{
    EventInfo delay = eventWith(1);
    delay.setEventType(EventInfo::EVENT_DELAY);
    delay.setEventProtocolType(false);

    const Translator translator({{QStringLiteral("Deal"), QStringLiteral("任务")},
        {QStringLiteral("Delay"), QStringLiteral("任务")},
        {QStringLiteral("Hex"), QStringLiteral("文本")},
        {QStringLiteral("ASCII"), QStringLiteral("文本")}});
    QList<EventInfo> loaded = eventsIn(bytesOfEvents({delay}));
    QCOMPARE(loaded.size(), 1);
    QCOMPARE(loaded[0].getEventType(), EventInfo::EVENT_TYPE_0);
    QVERIFY(loaded[0].getEventProtocolType());
}

// Triggers

void TestXmlFile::triggerChildrenInOrder_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QStringList>("names");

    QTest::newRow("COM") << 0
                         << QStringList{"TriggerType", "COM", "ProtocolType", "Protocol",
                                "Instruction", "Event"};
    QTest::newRow("COM_MODBUS") << 1
                                << QStringList{"ProtocolType", "Protocol", "Instruction", "Event"};
    QTest::newRow("IO") << 2
                        << QStringList{"TriggerType", "IO", "ProtocolType", "Protocol",
                               "Instruction", "Event"};
    QTest::newRow("no kind") << 3
                             << QStringList{"ProtocolType", "Protocol", "Instruction", "Event"};
}

void TestXmlFile::triggerChildrenInOrder()
{
    QFETCH(const int, kind);
    QFETCH(const QStringList, names);

    TriggerInfo trigger;
    trigger.setTriggerType(static_cast<TriggerInfo::TriggerType>(kind));
    QDomDocument document;
    QVERIFY(document.setContent(bytesOfTriggers({trigger})));
    const QDomElement element = document.documentElement()
                                    .firstChildElement(QStringLiteral("Triggers"))
                                    .firstChildElement(QStringLiteral("TriggerInfo"));

    QStringList written;
    for (QDomNode child = element.firstChild(); !child.isNull(); child = child.nextSibling())
        written.append(child.nodeName());
    QCOMPARE(written, names);
}

void TestXmlFile::comLabels_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QByteArray>("label");

    for (int value = 0; value < 16; ++value) {
        const QByteArray label =
            QByteArray("COM ") + char('A' + value / 4) + "-" + char('1' + value % 4);
        QTest::newRow(label) << value << label;
    }
}

void TestXmlFile::comLabels()
{
    QFETCH(const int, value);
    QFETCH(const QByteArray, label);

    TriggerInfo trigger;
    trigger.setCOMSelect(static_cast<COMSelect>(value));
    const QByteArray bytes = bytesOfTriggers({trigger});
    QVERIFY2(bytes.contains("<TriggerType>COM</TriggerType>"), bytes);
    QVERIFY2(bytes.contains("<COM>" + label + "</COM>"), bytes);

    TriggerInfo loaded =
        triggersIn(project(section(Kind::Triggers, triggerRecord("COM", "COM", label)))).value(0);
    QCOMPARE(loaded.getTriggerType(), TriggerInfo::COM);
    QCOMPARE(int(loaded.getCOMSelect()), value);
    QCOMPARE(int(loaded.getIOSelect()), 0);
}

void TestXmlFile::ioLabels_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QByteArray>("label");

    for (int value = 0; value < 16; ++value) {
        const QByteArray label =
            QByteArray("IO ") + char('A' + value / 4) + "-" + char('1' + value % 4);
        QTest::newRow(label) << value << label;
    }
}

void TestXmlFile::ioLabels()
{
    QFETCH(const int, value);
    QFETCH(const QByteArray, label);

    TriggerInfo trigger;
    trigger.setTriggerType(TriggerInfo::IO);
    trigger.setIOSelect(static_cast<IOSelect>(value));
    const QByteArray bytes = bytesOfTriggers({trigger});
    QVERIFY2(bytes.contains("<TriggerType>IO</TriggerType>"), bytes);
    QVERIFY2(bytes.contains("<IO>" + label + "</IO>"), bytes);

    TriggerInfo loaded =
        triggersIn(project(section(Kind::Triggers, triggerRecord("IO", "IO", label)))).value(0);
    QCOMPARE(loaded.getTriggerType(), TriggerInfo::IO);
    QCOMPARE(int(loaded.getIOSelect()), value);
    QCOMPARE(int(loaded.getCOMSelect()), 0);
}

void TestXmlFile::labelsAreTranslated_data()
{
    comLabels_data();
    for (int value = 0; value < 16; ++value) {
        const QByteArray label =
            QByteArray("IO ") + char('A' + value / 4) + "-" + char('1' + value % 4);
        QTest::newRow(label) << value << label;
    }
}

void TestXmlFile::labelsAreTranslated()
{
    QFETCH(const int, value);
    QFETCH(const QByteArray, label);

    const bool isCom = label.startsWith("COM");
    TriggerInfo trigger = triggerWith(QString());
    if (isCom) {
        trigger.setCOMSelect(static_cast<COMSelect>(value));
    } else {
        trigger.setTriggerType(TriggerInfo::IO);
        trigger.setIOSelect(static_cast<IOSelect>(value));
    }
    const QByteArray inSource = bytesOfTriggers({trigger});

    const Translator translator({{QString::fromUtf8(label), QStringLiteral("线路")},
        {QStringLiteral("COM"), QStringLiteral("串口")},
        {QStringLiteral("IO"), QStringLiteral("输入")}});
    const QByteArray bytes = bytesOfTriggers({trigger});
    QVERIFY2(bytes.contains(isCom ? "<COM>线路</COM>" : "<IO>线路</IO>"), bytes);
    QVERIFY2(bytes.contains(
                 isCom ? "<TriggerType>串口</TriggerType>" : "<TriggerType>输入</TriggerType>"),
        bytes);

    TriggerInfo loaded = triggersIn(bytes).value(0);
    QCOMPARE(loaded.getTriggerType(), trigger.getTriggerType());
    QCOMPARE(int(isCom ? int(loaded.getCOMSelect()) : int(loaded.getIOSelect())), value);

    // The words of another language are unknown.
    TriggerInfo foreign = triggersIn(inSource).value(0);
    QCOMPARE(foreign.getTriggerType(), TriggerInfo::COM);
    QCOMPARE(int(foreign.getCOMSelect()), 0);
    QCOMPARE(int(foreign.getIOSelect()), 0);
}

// The first kind and the first label that fit count.
void TestXmlFile::labelsThatCoincide()
{
    const QString same = QStringLiteral("线路");
    const QByteArray text = same.toUtf8();
    const QByteArray serial = triggerRecord("COM", "COM", text);
    const QByteArray input = triggerRecord("IO", "IO", text);
    {
        const Translator translator(
            {{QStringLiteral("COM A-2"), same}, {QStringLiteral("COM D-4"), same},
                {QStringLiteral("IO B-1"), same}, {QStringLiteral("IO B-2"), same}});
        QList<TriggerInfo> loaded = triggersIn(project(section(Kind::Triggers, serial + input)));
        QCOMPARE(loaded.size(), 2);
        QCOMPARE(loaded[0].getCOMSelect(), COM_A_2);
        QCOMPARE(loaded[1].getIOSelect(), IO_B_1);
    }
    const Translator translator({{QStringLiteral("COM"), same}, {QStringLiteral("IO"), same}});
    TriggerInfo loaded =
        triggersIn(project(section(Kind::Triggers, triggerRecord(text, "IO", "IO C-2")))).value(0);
    QCOMPARE(loaded.getTriggerType(), TriggerInfo::COM);
    QCOMPARE(loaded.getIOSelect(), IO_A_1);
}

void TestXmlFile::triggerProtocolTypeIsTranslated()
{
    TriggerInfo hex = triggerWith(QStringLiteral("事件(ID:1)"));
    TriggerInfo ascii = hex;
    ascii.setTriggerProtocolType(false);
    const QByteArray inSource = bytesOfTriggers({hex, ascii});

    const Translator translator({{QStringLiteral("Hex"), QStringLiteral("十六进制")},
        {QStringLiteral("ASCII"), QStringLiteral("字符")}});
    const QByteArray bytes = bytesOfTriggers({hex, ascii});
    QVERIFY2(bytes.contains("<ProtocolType>十六进制</ProtocolType>"), bytes);
    QVERIFY2(bytes.contains("<ProtocolType>字符</ProtocolType>"), bytes);
    QVERIFY(triggersIn(bytes) == QList<TriggerInfo>({hex, ascii}));
    QVERIFY(triggersIn(inSource) == QList<TriggerInfo>({hex, hex}));
}

void TestXmlFile::unknownSelectorIsEmpty_data()
{
    QTest::addColumn<int>("value");

    QTest::newRow("16") << 16;
    QTest::newRow("-1") << -1;
    QTest::newRow("largest") << 2147483647;
}

void TestXmlFile::unknownSelectorIsEmpty()
{
    QFETCH(const int, value);

    TriggerInfo com;
    com.setCOMSelect(static_cast<COMSelect>(value));
    TriggerInfo io;
    io.setTriggerType(TriggerInfo::IO);
    io.setIOSelect(static_cast<IOSelect>(value));
    const QByteArray bytes = bytesOfTriggers({com, io});

    QVERIFY2(bytes.contains("<COM></COM>"), bytes);
    QVERIFY2(bytes.contains("<IO></IO>"), bytes);
    QList<TriggerInfo> loaded = triggersIn(bytes);
    QCOMPARE(loaded.size(), 2);
    QCOMPARE(int(loaded[0].getCOMSelect()), 0);
    QCOMPARE(int(loaded[1].getIOSelect()), 0);
    QCOMPARE(loaded[1].getTriggerType(), TriggerInfo::IO);
}

void TestXmlFile::triggerReadByItsWords_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("com");
    QTest::addColumn<int>("io");
    QTest::addColumn<bool>("isHex");

    QTest::newRow("serial") << triggerRecord("COM", "COM", "COM C-2", "ASCII") << 0 << 9 << 0
                            << false;
    QTest::newRow("input") << triggerRecord("IO", "IO", "IO C-2", "Hex") << 2 << 0 << 9 << true;
    QTest::newRow("unknown kind") << triggerRecord("Modbus", "COM", "COM C-2") << 0 << 0 << 0
                                  << true;
    QTest::newRow("empty kind") << triggerRecord("", "IO", "IO C-2") << 0 << 0 << 0 << true;
    QTest::newRow("kind in lower case")
        << triggerRecord("io", "IO", "IO C-2") << 0 << 0 << 0 << true;
    QTest::newRow("the key of Modbus")
        << triggerRecord("COM_MODBUS", "COM", "COM C-2") << 0 << 0 << 0 << true;
    QTest::newRow("unknown label") << triggerRecord("COM", "COM", "COM E-1") << 0 << 0 << 0 << true;
    QTest::newRow("label of the other kind")
        << triggerRecord("COM", "COM", "IO C-2") << 0 << 0 << 0 << true;
    QTest::newRow("label in lower case")
        << triggerRecord("IO", "IO", "io c-2") << 2 << 0 << 0 << true;
    QTest::newRow("label of a number") << triggerRecord("IO", "IO", "9") << 2 << 0 << 0 << true;
    QTest::newRow("selector of the other kind")
        << triggerRecord("COM", "IO", "IO C-2") << 0 << 0 << 0 << true;
    QTest::newRow("unknown protocol type")
        << triggerRecord("COM", "COM", "COM A-2", "ascii") << 0 << 1 << 0 << true;
}

void TestXmlFile::triggerReadByItsWords()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const int, kind);
    QFETCH(const int, com);
    QFETCH(const int, io);
    QFETCH(const bool, isHex);

    TriggerInfo trigger = triggersIn(project(section(Kind::Triggers, bytes))).value(0);
    QCOMPARE(int(trigger.getTriggerType()), kind);
    QCOMPARE(int(trigger.getCOMSelect()), com);
    QCOMPARE(int(trigger.getIOSelect()), io);
    QCOMPARE(trigger.getTriggerProtocolType(), isHex);
    QCOMPARE(trigger.getTriggerParameter(), QStringLiteral("01"));
    QCOMPARE(trigger.getTriggerInstruction(), QStringLiteral("i"));
    QCOMPARE(trigger.getTriggerEvent(), QStringLiteral("事件(ID:1)"));
}

void TestXmlFile::triggerTextsSurvive()
{
    TriggerInfo serial = triggerWith(QStringLiteral("事件(ID:3);事件(ID:7)"));
    serial.setCOMSelect(COM_D_4);
    serial.setTriggerProtocolType(false);
    serial.setTriggerParameter(QStringLiteral("open"));
    serial.setTriggerInstruction(QStringLiteral("说明"));
    TriggerInfo input = triggerWith(QStringLiteral("事件(ID:1)"));
    input.setTriggerType(TriggerInfo::IO);
    input.setIOSelect(IO_B_2);
    input.setTriggerParameter(QStringLiteral("输入-低电平"));

    QVERIFY(triggersIn(bytesOfTriggers({serial, input})) == QList<TriggerInfo>({serial, input}));
}

void TestXmlFile::modbusTriggerIsLost()
{
    TriggerInfo modbus = triggerWith(QStringLiteral("(ID:1)"));
    modbus.setTriggerType(TriggerInfo::COM_MODBUS);
    modbus.setCOMSelect(COM_C_3);

    const QByteArray bytes = bytesOfTriggers({modbus, triggerWith(QStringLiteral("(ID:2)"))});
    QList<TriggerInfo> loaded = triggersIn(bytes);
    QCOMPARE(bytes.count("<TriggerInfo>"), 2);
    QVERIFY(!bytes.contains("COM C-3"));
    QCOMPARE(loaded.size(), 1);
    QCOMPARE(loaded[0].getTriggerEvent(), QStringLiteral("事件(ID:2)"));

    QVERIFY(triggersIn(bytesOfTriggers({modbus})).isEmpty());
}

void TestXmlFile::triggerIdIsLost()
{
    TriggerInfo trigger;
    trigger.setTriggerId(4711);

    const QByteArray bytes = bytesOfTriggers({trigger});
    TriggerInfo loaded = triggersIn(bytes).value(0);
    QVERIFY(!bytes.contains("4711"));
    QCOMPARE(loaded.getTriggerId(), -1);
}

void TestXmlFile::otherSelectorIsLost()
{
    TriggerInfo com;
    com.setCOMSelect(COM_A_3);
    com.setIOSelect(IO_B_1);
    TriggerInfo io;
    io.setTriggerType(TriggerInfo::IO);
    io.setCOMSelect(COM_A_3);
    io.setIOSelect(IO_B_1);

    QList<TriggerInfo> loaded = triggersIn(bytesOfTriggers({com, io}));
    QCOMPARE(loaded.size(), 2);
    QCOMPARE(loaded[0].getCOMSelect(), COM_A_3);
    QCOMPARE(loaded[0].getIOSelect(), IO_A_1);
    QCOMPARE(loaded[1].getCOMSelect(), COM_A_1);
    QCOMPARE(loaded[1].getIOSelect(), IO_B_1);
}

void TestXmlFile::eventTextIsStripped_data()
{
    QTest::addColumn<QString>("events");
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QString>("loaded");

    QTest::newRow("from a unit") << "(ID:3);(ID:7)" << QByteArray("ID:3;ID:7")
                                 << "事件(ID:3);事件(ID:7)";
    QTest::newRow("from a file") << "事件(ID:3);事件(ID:7)" << QByteArray("ID:3;ID:7")
                                 << "事件(ID:3);事件(ID:7)";
    QTest::newRow("with a name") << "事件名称01(ID:3)" << QByteArray("名称01ID:3")
                                 << "事件(名称01ID:3)";
    QTest::newRow("each character alone") << "a事b件c(d)e" << QByteArray("abcde") << "事件(abcde)";
    QTest::newRow("turned around") << ")件事(" << QByteArray() << "事件()";
    QTest::newRow("empty") << "" << QByteArray() << "事件()";
    QTest::newRow("empty items") << ";(ID:1);" << QByteArray(";ID:1;")
                                 << "事件();事件(ID:1);事件()";
    QTest::newRow("brackets stay") << "[ID:1]{2}" << QByteArray("[ID:1]{2}") << "事件([ID:1]{2})";
    QTest::newRow("full-width parentheses stay")
        << "（ID:1）" << QByteArray("（ID:1）") << "事件(（ID:1）)";
}

void TestXmlFile::eventTextIsStripped()
{
    QFETCH(const QString, events);
    QFETCH(const QByteArray, stored);
    QFETCH(const QString, loaded);

    const QByteArray bytes = bytesOfTriggers({triggerWith(events)});
    QVERIFY2(bytes.contains("<Event>" + stored + "</Event>"), bytes);
    TriggerInfo trigger = triggersIn(bytes).value(0);
    QCOMPARE(trigger.getTriggerEvent(), loaded);
}

void TestXmlFile::eventTextIsRebuilt_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QString>("loaded");

    QTest::newRow("one") << QByteArray("ID:1") << "事件(ID:1)";
    QTest::newRow("two") << QByteArray("ID:1;ID:2") << "事件(ID:1);事件(ID:2)";
    QTest::newRow("none") << QByteArray() << "事件()";
    QTest::newRow("separator") << QByteArray(";") << "事件();事件()";
    QTest::newRow("blanks") << QByteArray("ID:1; ID:2") << "事件(ID:1);事件( ID:2)";
    QTest::newRow("parentheses of another writer") << QByteArray("(ID:1)") << "事件((ID:1))";
}

void TestXmlFile::eventTextIsRebuilt()
{
    QFETCH(const QByteArray, stored);
    QFETCH(const QString, loaded);

    TriggerInfo trigger = triggersIn(
        project(section(Kind::Triggers, triggerRecord("COM", "COM", "COM A-1", "Hex", stored))))
                              .value(0);
    QCOMPARE(trigger.getTriggerEvent(), loaded);
}

void TestXmlFile::eventTextIsRebuiltInTranslation()
{
    const Translator translator({{QStringLiteral("事件("), QStringLiteral("Event <")},
        {QStringLiteral(")"), QStringLiteral(">")}, {QStringLiteral(";"), QStringLiteral("wrong")},
        {QStringLiteral("[事件()]"), QStringLiteral("wrong")}});

    // The characters that the writer takes out are those of the source texts in every language.
    const QByteArray bytes =
        bytesOfTriggers({triggerWith(QStringLiteral("事件(ID:1);Event <ID:2>"))});
    QVERIFY2(bytes.contains("<Event>ID:1;Event &lt;ID:2></Event>"), bytes);
    TriggerInfo trigger = triggersIn(bytes).value(0);
    QCOMPARE(trigger.getTriggerEvent(), QStringLiteral("Event <ID:1>;Event <Event <ID:2>>"));
}

void TestXmlFile::triggerRecordNeedsSixChildren_data()
{
    QTest::addColumn<QByteArray>("odd");

    const QByteArray good = triggerRecord("COM", "COM", "COM A-1");
    QTest::newRow("five") << QByteArray(good).replace("<Event>ID:1</Event>", "");
    QTest::newRow("seven") << QByteArray(good).replace("</TriggerInfo>", "<More/></TriggerInfo>");
    QTest::newRow("a comment more")
        << QByteArray(good).replace("</TriggerInfo>", "<!-- c --></TriggerInfo>");
    QTest::newRow("none") << QByteArray("<TriggerInfo/>");
    QTest::newRow("a comment beside") << QByteArray("<!-- c -->");
}

void TestXmlFile::triggerRecordNeedsSixChildren()
{
    QFETCH(const QByteArray, odd);

    const QByteArray good = triggerRecord("IO", "IO", "IO A-1");
    QCOMPARE(triggersIn(project(section(Kind::Triggers, good + odd + good))).size(), 2);
    const Reading alone = read(Kind::Triggers, fileWith(project(section(Kind::Triggers, odd))));
    QVERIFY(alone.read);
    QCOMPARE(alone.count, 0);

    // Six children of any name make a trigger, in a record of any name.
    const QList<TriggerInfo> others =
        triggersIn(project(section(Kind::Triggers, "<Any><a/><b/><c/><d/><e/><f/></Any>")));
    QCOMPARE(others.size(), 1);
    QVERIFY(others.first() == triggerWith(QStringLiteral("事件()")));
}

void TestXmlFile::triggersAreLimitedOnReading()
{
    const QString path = pathOf(QStringLiteral("triggers.xml"));
    for (const int written : {63, 64, 65, 1000}) {
        QVERIFY(XmlFile::writeTriggerXmlFile(path, triggersUpTo(written), false));
        QCOMPARE(bytesOf(path).count("<TriggerInfo>"), written);
        const Reading reading = read(Kind::Triggers, path);
        QVERIFY(reading.read);
        QCOMPARE(reading.count, qMin(written, 64));
    }

    TriggerInfo modbus;
    modbus.setTriggerType(TriggerInfo::COM_MODBUS);
    QList<TriggerInfo> mixed;
    for (int i = 0; i < 66; ++i)
        mixed << modbus << triggerWith(QStringLiteral("(ID:%1)").arg(i));
    QList<TriggerInfo> loaded = triggersIn(bytesOfTriggers(mixed));
    QCOMPARE(loaded.size(), 64);
    QCOMPARE(loaded[63].getTriggerEvent(), QStringLiteral("事件(ID:63)"));
}

void TestXmlFile::triggersAreNotCompared()
{
    const TriggerInfo trigger = triggerWith(QStringLiteral("事件(ID:1)"));
    QVERIFY(
        triggersIn(bytesOfTriggers({trigger, trigger})) == QList<TriggerInfo>({trigger, trigger}));
}

void TestXmlFile::triggerCountIsLogged()
{
    TriggerInfo modbus;
    modbus.setTriggerType(TriggerInfo::COM_MODBUS);
    const QByteArray bytes = bytesOfTriggers({modbus, TriggerInfo(), TriggerInfo()});

    QList<LogRecorder::Line> lines;
    {
        const LogRecorder recorder;
        triggersIn(bytes);
        lines = LogRecorder::lines();
    }
    QCOMPARE(lines.size(), 1);
    const LogRecorder::Line line = lines.first();
    QCOMPARE(line.type, QtDebugMsg);
    QCOMPARE(line.text, QStringLiteral("Trigger Num: 3"));
    QCOMPARE(line.category, QStringLiteral("default"));
    QCOMPARE(line.file, QStringLiteral("src/libs/quadrelbll/xmlfile"));
    QCOMPARE(line.function,
        QStringLiteral("static bool XmlFile::readTriggerXmlFile(const QString&, TriggerModel&, "
                       "QString&)"));

    // All child nodes count, also after the limit of the reader.
    {
        const LogRecorder recorder;
        triggersIn(
            project(section(Kind::Triggers, "<!-- c -->text" + QByteArray("<a/>").repeated(100))));
        lines = LogRecorder::lines();
    }
    QCOMPARE(lines.size(), 1);
    QCOMPARE(lines.first().text, QStringLiteral("Trigger Num: 102"));
}

void TestXmlFile::triggerCountIsNotLoggedOnFailure()
{
    const LogRecorder recorder;
    read(Kind::Triggers, pathOf(QStringLiteral("none.xml")));
    read(Kind::Triggers, fileWith("<a>"));
    read(Kind::Triggers, fileWith("<a/>"));
    read(Kind::Triggers, fileWith("<a><b/></a>"));
    read(Kind::Triggers, fileWith("<a><Triggers/></a>"));
    QVERIFY(LogRecorder::lines().isEmpty());
}

// Configuration

void TestXmlFile::configSurvives()
{
    ComInfo port = portWith(115200);
    port.setDataBits(5);
    port.setStopBits(2);
    port.setInspectionType(INSPECTION_1);
    ComInfo negative = portWith(-9600);
    negative.setInspectionType(INSPECTION_2);
    const SystemModel model =
        configOf({port, ComInfo(), negative}, {IO_TYPE_2, IO_TYPE_0, IO_TYPE_1, IO_TYPE_1});

    const QString path = pathOf(QStringLiteral("config.xml"));
    QVERIFY(XmlFile::writeConfigXmlFile(path, model, false));
    SystemModel loaded;
    QString error;
    QVERIFY2(XmlFile::readConfigXmlFile(path, loaded, error), qPrintable(error));
    QVERIFY(loaded == model);
}

// The writer tests no setting; the reader makes of it what it makes of any number.
void TestXmlFile::configNumbersStandAsTheyAre()
{
    ComInfo port = portWith(2147483647);
    port.setDataBits(0);
    port.setStopBits(-2147483647 - 1);
    port.setInspectionType(static_cast<inspectionType>(7));
    const QString path = pathOf(QStringLiteral("config.xml"));
    QVERIFY(XmlFile::writeConfigXmlFile(path, configOf({port}, {static_cast<IOType>(9)}), false));

    const QByteArray bytes = bytesOf(path);
    QVERIFY2(bytes.contains("<BaudRate>2147483647</BaudRate>"), bytes);
    QVERIFY2(bytes.contains("<DataBits>0</DataBits>"), bytes);
    QVERIFY2(bytes.contains("<StopBits>-2147483648</StopBits>"), bytes);
    QVERIFY2(bytes.contains("<InspectionType>7</InspectionType>"), bytes);
    QVERIFY2(bytes.contains("<Model>9</Model>"), bytes);

    port.setInspectionType(INSPECTION_NONE);
    QVERIFY(configIn(bytes) == configOf({port}, {IO_TYPE_2}));
}

void TestXmlFile::portIsRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("baudRate");
    QTest::addColumn<int>("dataBits");
    QTest::addColumn<int>("stopBits");
    QTest::addColumn<int>("inspection");

    const auto port = [](const QByteArray& values) { return "<COM>" + values + "</COM>"; };
    QTest::newRow("inspection 0") << portRecord("9600", "0") << 9600 << 8 << 1 << 0;
    QTest::newRow("inspection 1") << portRecord("9600", "1") << 9600 << 8 << 1 << 1;
    QTest::newRow("inspection 2") << portRecord("9600", "2") << 9600 << 8 << 1 << 2;
    QTest::newRow("inspection 3") << portRecord("9600", "3") << 9600 << 8 << 1 << 2;
    QTest::newRow("inspection 7") << portRecord("9600", "7") << 9600 << 8 << 1 << 2;
    QTest::newRow("inspection -1") << portRecord("9600", "-1") << 9600 << 8 << 1 << 2;
    QTest::newRow("no inspection text") << portRecord("9600", "") << 9600 << 8 << 1 << 0;
    QTest::newRow("inspection of letters") << portRecord("9600", "none") << 9600 << 8 << 1 << 0;
    QTest::newRow("no inspection")
        << portRecord("9600").replace("InspectionType", "Other") << 9600 << 8 << 1 << 0;
    QTest::newRow("baud rate of letters") << portRecord("fast") << 0 << 8 << 1 << 2;
    QTest::newRow("no baud rate text") << portRecord("") << 0 << 8 << 1 << 2;
    QTest::newRow("implausible baud rate") << portRecord("-7") << -7 << 8 << 1 << 2;
    QTest::newRow("no baud rate") << portRecord("9600").replace("BaudRate", "Other") << 0 << 8 << 1
                                  << 2;
    QTest::newRow("no data bits") << portRecord("9600").replace("DataBits", "Other") << 9600 << 0
                                  << 1 << 2;
    QTest::newRow("no stop bits") << portRecord("9600").replace("StopBits", "Other") << 9600 << 8
                                  << 0 << 2;
    QTest::newRow("four of other names")
        << port("<a>1</a><b>2</b><c>3</c><d>4</d>") << 0 << 0 << 0 << 0;
    QTest::newRow("another order")
        << port("<InspectionType>1</InspectionType><StopBits>2</StopBits><DataBits>7</"
                "DataBits><BaudRate>300</BaudRate>")
        << 300 << 7 << 2 << 1;
}

void TestXmlFile::portIsRead()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const int, baudRate);
    QFETCH(const int, dataBits);
    QFETCH(const int, stopBits);
    QFETCH(const int, inspection);

    SystemModel model = configIn(project(section(Kind::Configs, bytes)));
    QCOMPARE(model.getComInfo().size(), 1);
    ComInfo port = model.getComInfo().value(0);
    QCOMPARE(port.getBaudRate(), baudRate);
    QCOMPARE(port.getDataBits(), dataBits);
    QCOMPARE(port.getStopBits(), stopBits);
    QCOMPARE(int(port.getInspectionType()), inspection);
}

void TestXmlFile::lineIsRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("setting");

    QTest::newRow("0") << lineRecord("0") << 0;
    QTest::newRow("1") << lineRecord("1") << 1;
    QTest::newRow("2") << lineRecord("2") << 2;
    QTest::newRow("empty") << lineRecord("") << 0;
    QTest::newRow("letters") << lineRecord("in") << 0;
    QTest::newRow("another child") << QByteArray("<IO><Other>1</Other></IO>") << 0;
    QTest::newRow("a text") << QByteArray("<IO>1</IO>") << 0;
    QTest::newRow("a comment") << QByteArray("<IO><!-- c --></IO>") << 0;
    // Any other number keeps the line's place in the list.
    QTest::newRow("3") << lineRecord("3") << 2;
    QTest::newRow("-1") << lineRecord("-1") << 2;
}

void TestXmlFile::lineIsRead()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const int, setting);

    SystemModel model =
        configIn(project(section(Kind::Configs, lineRecord("1") + bytes + lineRecord("0"))));
    const QList<IOType> expected{IO_TYPE_1, static_cast<IOType>(setting), IO_TYPE_0};
    QVERIFY(model.getIOType() == expected);
}

void TestXmlFile::portOfAnotherShapeIsDropped_data()
{
    QTest::addColumn<QByteArray>("odd");

    const QByteArray good = portRecord("1200");
    QTest::newRow("three") << QByteArray(good).replace("<StopBits>1</StopBits>", "");
    QTest::newRow("five") << QByteArray(good).replace("</COM>", "<More/></COM>");
    QTest::newRow("a comment more") << QByteArray(good).replace("</COM>", "<!-- c --></COM>");
    QTest::newRow("none") << QByteArray("<COM/>");
    QTest::newRow("another name") << QByteArray(good).replace("COM>", "com>");
    QTest::newRow("a comment beside") << QByteArray("<!-- c -->");
}

void TestXmlFile::portOfAnotherShapeIsDropped()
{
    QFETCH(const QByteArray, odd);

    SystemModel model =
        configIn(project(section(Kind::Configs, portRecord("300") + odd + portRecord("600"))));
    QList<ComInfo> ports = model.getComInfo();
    QCOMPARE(ports.size(), 2);
    QCOMPARE(ports[0].getBaudRate(), 300);
    QCOMPARE(ports[1].getBaudRate(), 600);
    QVERIFY(model.getIOType().isEmpty());
}

void TestXmlFile::lineOfAnotherShapeIsDropped_data()
{
    QTest::addColumn<QByteArray>("odd");

    QTest::newRow("none") << QByteArray("<IO/>");
    QTest::newRow("two") << QByteArray("<IO><Model>0</Model><Model>0</Model></IO>");
    QTest::newRow("a comment more") << QByteArray("<IO><Model>0</Model><!-- c --></IO>");
    QTest::newRow("another name") << QByteArray("<io><Model>0</Model></io>");
}

void TestXmlFile::lineOfAnotherShapeIsDropped()
{
    QFETCH(const QByteArray, odd);

    SystemModel model =
        configIn(project(section(Kind::Configs, lineRecord("1") + odd + lineRecord("2"))));
    QVERIFY(model.getIOType() == QList<IOType>({IO_TYPE_1, IO_TYPE_2}));
}

void TestXmlFile::configListsAreReplaced_data()
{
    QTest::addColumn<QByteArray>("records");
    QTest::addColumn<int>("ports");
    QTest::addColumn<int>("lines");

    QTest::newRow("only lines") << lineRecord("0") + lineRecord("1") << 0 << 2;
    QTest::newRow("only ports") << portRecord("300") << 1 << 0;
    QTest::newRow("neither") << QByteArray("<Other/>") << 0 << 0;
}

void TestXmlFile::configListsAreReplaced()
{
    QFETCH(const QByteArray, records);
    QFETCH(const int, ports);
    QFETCH(const int, lines);

    SystemModel model = configOf({portWith(1), portWith(2)}, {IO_TYPE_0});
    QString error;
    QVERIFY(XmlFile::readConfigXmlFile(
        fileWith(project(section(Kind::Configs, records))), model, error));
    QCOMPARE(model.getComInfo().size(), ports);
    QCOMPARE(model.getIOType().size(), lines);
}

void TestXmlFile::configOrderDoesNotMatter()
{
    const QByteArray firstPort = portRecord("300");
    const QByteArray secondPort = portRecord("600");
    const QByteArray lines = lineRecord("1") + lineRecord("0");
    const SystemModel expected = configOf({portWith(300), portWith(600)}, {IO_TYPE_1, IO_TYPE_0});

    QVERIFY(configIn(project(section(Kind::Configs, firstPort + secondPort + lines))) == expected);
    QVERIFY(configIn(project(section(Kind::Configs, lines + firstPort + secondPort))) == expected);
    QVERIFY(configIn(project(section(Kind::Configs, firstPort + lines + secondPort))) == expected);
}

void TestXmlFile::configHasNoLimit()
{
    QList<ComInfo> ports;
    QList<IOType> lines;
    for (int i = 0; i < 10000; ++i) {
        ports.append(portWith(i));
        lines.append(static_cast<IOType>(i % 3));
    }
    const SystemModel model = configOf(ports, lines);

    const QString path = pathOf(QStringLiteral("config.xml"));
    QVERIFY(XmlFile::writeConfigXmlFile(path, model, false));
    SystemModel loaded;
    QString error;
    QVERIFY(XmlFile::readConfigXmlFile(path, loaded, error));
    QVERIFY(loaded == model);
}

// Descriptor

void TestXmlFile::descriptorIsRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("moduleId");
    QTest::addColumn<QString>("version");

    const QString before = QStringLiteral("before");
    QTest::newRow("both") << QByteArray(
        "<Update><ModuleID>0x12</ModuleID><Version>1.2.3</Version></Update>")
                          << "0x12"
                          << "1.2.3";
    QTest::newRow("another root") << QByteArray(
        "<x:a b='c'><Version> 2 </Version><ModuleID> m </ModuleID></x:a>")
                                  << " m "
                                  << " 2 ";
    QTest::newRow("neither") << QByteArray("<Update><Other/></Update>") << before << before;
    QTest::newRow("only a comment")
        << QByteArray("<Update><!-- c --></Update>") << before << before;
    QTest::newRow("only a text") << QByteArray("<Update>text</Update>") << before << before;
    QTest::newRow("module only") << QByteArray("<Update><ModuleID>m</ModuleID></Update>") << "m"
                                 << before;
    QTest::newRow("version only") << QByteArray("<Update><Version>v</Version></Update>") << before
                                  << "v";
    QTest::newRow("two versions") << QByteArray(
        "<Update><Version>1</Version><ModuleID>a</ModuleID><Version>2</Version><ModuleID>b</"
        "ModuleID></Update>") << "b"
                                  << "2";
    QTest::newRow("the later one empty")
        << QByteArray("<Update><Version>1</Version><Version/></Update>") << before << "";
    QTest::newRow("empty elements")
        << QByteArray("<Update><ModuleID/><Version></Version></Update>") << ""
        << "";
    QTest::newRow("one level deeper")
        << QByteArray("<Update><a><ModuleID>m</ModuleID></a><Version>v</Version></Update>")
        << before << "v";
    QTest::newRow("as the root") << QByteArray("<ModuleID><a/></ModuleID>") << before << before;
    QTest::newRow("in other case")
        << QByteArray("<Update><moduleid>m</moduleid><VERSION>v</VERSION></Update>") << before
        << before;
    QTest::newRow("prefixed") << QByteArray("<Update><x:ModuleID>m</x:ModuleID></Update>") << before
                              << before;
    QTest::newRow("an instruction of the name")
        << QByteArray("<Update><Version>v</Version><?Version w?></Update>") << before << "";
    QTest::newRow("special characters")
        << QByteArray("<Update><Version>&lt;1&gt;<![CDATA[&]]></Version></Update>") << before
        << "<1>&";
    QTest::newRow("inner elements")
        << QByteArray("<Update><Version>1<b>2</b>3</Version></Update>") << before << "123";
}

void TestXmlFile::descriptorIsRead()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, moduleId);
    QFETCH(const QString, version);

    QString readModuleId = QStringLiteral("before");
    QString readVersion = QStringLiteral("before");
    QString error = errorBefore();
    QVERIFY2(XmlFile::readUpdateConfigFile(fileWith(bytes), readModuleId, readVersion, error),
        qPrintable(error));
    QCOMPARE(readModuleId, moduleId);
    QCOMPARE(readVersion, version);
    QCOMPARE(error, errorBefore());
}

QTEST_GUILESS_MAIN(TestXmlFile)
#include "tst_xmlfile.moc"
