// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "patience.h"
#include "unpackage.h"
#include "xmlfile.h"

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTranslator>
#include <QtTest/QtTest>
#include <QtXml/QDomDocument>

namespace {

const QString source = QStringLiteral(SOURCE_DIR);
const QString library = QStringLiteral("quadrelbll_en");
const QString tool = QStringLiteral("quadrelctl_zh");
const QString plurals = QStringLiteral("quadrelctl_en");
const QString link = QStringLiteral("quadrellink_zh");
const QString document = QStringLiteral("quadreldocument_zh");
const QString workspace = QStringLiteral("quadrelworkspace_zh");

/** One text of a .ts file. */
struct Entry {
    QString context;
    QString text;
    QString translation;
    QString state;
};

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QVector<Entry> entriesOf(const QString& name)
{
    QDomDocument document;
    document.setContent(
        contentsOf(source + QStringLiteral("/translations/") + name + QStringLiteral(".ts")));
    QVector<Entry> entries;
    const QDomNodeList messages = document.elementsByTagName(QStringLiteral("message"));
    for (int i = 0; i < messages.size(); ++i) {
        const QDomElement message = messages.at(i).toElement();
        const QDomElement translation = message.firstChildElement(QStringLiteral("translation"));
        entries.append({message.parentNode().firstChildElement(QStringLiteral("name")).text(),
            message.firstChildElement(QStringLiteral("source")).text(), translation.text(),
            translation.attribute(QStringLiteral("type"))});
    }
    return entries;
}

bool isChinese(const QString& text)
{
    static const QRegularExpression characters(QStringLiteral("\\p{Han}"));
    return characters.match(text).hasMatch();
}

QStringList placesOf(const QString& text)
{
    static const QRegularExpression place(QStringLiteral("%\\d"));
    QStringList places;
    auto matches = place.globalMatch(text);
    while (matches.hasNext())
        places.append(matches.next().captured());
    places.sort();
    return places;
}

/** The words that are in project files or are compared with what a unit or a file says. */
QStringList fileWords()
{
    QStringList words{QStringLiteral("Hex"), QStringLiteral("ASCII"), QStringLiteral("Deal"),
        QStringLiteral("Delay"), QStringLiteral("COM"), QStringLiteral("IO"),
        QStringLiteral("事件("), QStringLiteral(")"), QStringLiteral("(ID:"), QStringLiteral(";"),
        QStringLiteral("输入-高电平"), QStringLiteral("输入-低电平")};
    for (const QString& kind : {QStringLiteral("COM"), QStringLiteral("IO")})
        for (char group = 'A'; group <= 'D'; ++group)
            for (int line = 1; line <= 4; ++line)
                words.append(QStringLiteral("%1 %2-%3").arg(kind, QChar(group)).arg(line));
    return words;
}

/** English while it lives. */
class English {
public:
    English()
    {
        if (!m_translator.load(QStringLiteral(TRANSLATIONS_DIR "/quadrelbll_en.qm"))
            || !QCoreApplication::installTranslator(&m_translator))
            qFatal("no translation to load");
    }

private:
    QTranslator m_translator;
};

EventModel events()
{
    EventInfo command;
    command.setEventProtocol(QStringLiteral("01 0a"));
    EventInfo delay;
    delay.setEventId(2);
    delay.setEventType(EventInfo::EVENT_DELAY);
    delay.setEventProtocolType(false);
    delay.setEventProtocol(QStringLiteral("25*10ms"));
    EventModel model;
    model.push_back(command);
    model.push_back(delay);
    return model;
}

/** Each line of both kinds, and each level. */
TriggerModel triggers()
{
    TriggerModel model;
    for (int line = 0; line < 16; ++line) {
        TriggerInfo serial;
        serial.setCOMSelect(static_cast<COMSelect>(line));
        serial.setTriggerParameter(QStringLiteral("aa"));
        serial.setTriggerEvent(QStringLiteral("事件(ID:3);事件(ID:7)"));
        model.push_back(serial);
        TriggerInfo io;
        io.setTriggerType(TriggerInfo::IO);
        io.setIOSelect(static_cast<IOSelect>(line));
        io.setTriggerProtocolType(false);
        io.setTriggerParameter(
            line % 2 ? QStringLiteral("输入-低电平") : QStringLiteral("输入-高电平"));
        model.push_back(io);
    }
    return model;
}

} // namespace

/** The translations are whole, and the words of files stay what they are. */
class TestTranslations : public QObject {
    Q_OBJECT

private slots:
    void isComplete_data();
    void isComplete();
    void hasPlurals();
    void missesNothing_data();
    void missesNothing();
    void keepsFileWords();
    void keepsFiles();
    void readsFilesOfTheOtherLanguage();
    void speaksEnglish();
    void speaksOnlyWhatIsInstalled();
};

void TestTranslations::isComplete_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("chinese");
    QTest::newRow("library") << library << false;
    QTest::newRow("tool") << tool << true;
    QTest::newRow("link") << link << true;
    QTest::newRow("document") << document << true;
    QTest::newRow("workspace") << workspace << true;
}

void TestTranslations::isComplete()
{
    QFETCH(QString, name);
    QFETCH(bool, chinese);
    const QStringList words = fileWords();
    const QVector<Entry> entries = entriesOf(name);
    QVERIFY(entries.size() > 10);
    for (const Entry& entry : entries) {
        const QByteArray where = (entry.context + QStringLiteral(": ") + entry.text).toUtf8();
        QVERIFY2(entry.state.isEmpty(), where.constData());
        QVERIFY2(!entry.translation.isEmpty(), where.constData());
        QVERIFY2(placesOf(entry.translation) == placesOf(entry.text), where.constData());
        QVERIFY2(entry.translation.startsWith(QLatin1Char('\n'))
                == entry.text.startsWith(QLatin1Char('\n')),
            where.constData());
        QVERIFY2(
            entry.translation.endsWith(QLatin1Char('\n')) == entry.text.endsWith(QLatin1Char('\n')),
            where.constData());
        if (!chinese && !words.contains(entry.text))
            QVERIFY2(!isChinese(entry.translation), where.constData());
    }
}

/** The tool's English texts need no translation but for these. */
void TestTranslations::hasPlurals()
{
    const QVector<Entry> entries = entriesOf(plurals);
    QVERIFY(!entries.isEmpty());
    for (const Entry& entry : entries)
        QVERIFY2(entry.state.isEmpty() && !entry.translation.trimmed().isEmpty(),
            qPrintable(entry.text));
}

void TestTranslations::missesNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("library") << library;
    QTest::newRow("tool") << tool;
    QTest::newRow("plurals") << plurals;
    QTest::newRow("link") << link;
    QTest::newRow("document") << document;
    QTest::newRow("workspace") << workspace;
}

/** Taking in the sources' texts again changes nothing: none is new, and none is left over. */
void TestTranslations::missesNothing()
{
    QFETCH(QString, name);
    const QTemporaryDir folder;
    const QString file = QStringLiteral("/") + name + QStringLiteral(".ts");
    for (const QString& each : {library, tool, plurals, link, document, workspace}) {
        const QString path = QStringLiteral("/") + each + QStringLiteral(".ts");
        QVERIFY(QFile::copy(source + QStringLiteral("/translations") + path, folder.path() + path));
    }
    QProcess update;
    update.setProcessChannelMode(QProcess::ForwardedChannels);
    update.start(source + QStringLiteral("/scripts/translate"), {folder.path()});
    QVERIFY(update.waitForFinished(patience));
    QCOMPARE(update.exitCode(), 0);
    QCOMPARE(QString::fromUtf8(contentsOf(folder.path() + file)),
        QString::fromUtf8(contentsOf(source + QStringLiteral("/translations") + file)));
}

void TestTranslations::keepsFileWords()
{
    QStringList found;
    const QStringList words = fileWords();
    for (const QString& name : {library, tool, document}) {
        for (const Entry& entry : entriesOf(name)) {
            const bool isWord = words.contains(entry.text)
                && (name == library || entry.context == QLatin1String("PackageTrigger"));
            if (!isWord)
                continue;
            QCOMPARE(entry.translation, entry.text);
            found.append(entry.text);
        }
    }
    for (const QString& word : words)
        QVERIFY2(found.contains(word), qPrintable(word));
}

void TestTranslations::keepsFiles()
{
    const QTemporaryDir folder;
    const auto write = [&folder](const QString& name) {
        const QString path = folder.filePath(name);
        return XmlFile::writeEventXmlFile(path, events(), false)
                && XmlFile::writeTriggerXmlFile(path, triggers(), true)
            ? contentsOf(path)
            : QByteArray();
    };
    const QByteArray chinese = write(QStringLiteral("chinese.xml"));
    QVERIFY(chinese.contains("<EventType>Delay</EventType>"));
    const English english;
    QCOMPARE(write(QStringLiteral("english.xml")), chinese);
}

void TestTranslations::readsFilesOfTheOtherLanguage()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("file.xml"));
    QVERIFY(XmlFile::writeEventXmlFile(path, events(), false));
    QVERIFY(XmlFile::writeTriggerXmlFile(path, triggers(), true));
    QString error;
    TriggerModel chineseTriggers;
    QVERIFY(XmlFile::readTriggerXmlFile(path, chineseTriggers, error));

    const English english;
    EventModel readEvents;
    QVERIFY2(XmlFile::readEventXmlFile(path, readEvents, error), qPrintable(error));
    QCOMPARE(readEvents, events());
    TriggerModel readTriggers;
    QVERIFY2(XmlFile::readTriggerXmlFile(path, readTriggers, error), qPrintable(error));
    QCOMPARE(readTriggers, chineseTriggers);
    QCOMPARE(readTriggers.at(6).getCOMSelect(), COM_A_4);
    QCOMPARE(readTriggers.at(0).getTriggerEvent(), QStringLiteral("事件(ID:3);事件(ID:7)"));
}

void TestTranslations::speaksEnglish()
{
    const English english;
    EventModel model;
    QString error;
    QVERIFY(!XmlFile::readEventXmlFile(QStringLiteral("/nowhere/at/all"), model, error));
    QCOMPARE(error, QStringLiteral("The file could not be opened!"));

    // Without settings beside this program the wait is over at once.
    UnPackage operations;
    QVERIFY(!operations.readDeviceParameter(error));
    QCOMPARE(error, QStringLiteral("Reading back the device information timed out!"));

    QString progress;
    connect(&operations, &UnPackage::signal_updateProgress, &operations,
        [&progress](const QString& text) { progress = text; });
    operations.updateProgressBar(1, 4);
    QCOMPARE(progress, QStringLiteral("Upgrading\n25%"));
}

/** The library loads no translation by itself. */
void TestTranslations::speaksOnlyWhatIsInstalled()
{
    EventModel model;
    QString error;
    QVERIFY(!XmlFile::readEventXmlFile(QStringLiteral("/nowhere/at/all"), model, error));
    QCOMPARE(error, QStringLiteral("打开文件失败！"));
}

QTEST_GUILESS_MAIN(TestTranslations)
#include "tst_translations.moc"
